#include "tool/CommandLine.h"

#include <cmath>
#include <numbers>

namespace korvane::tool {

namespace {

std::optional<float> finiteNumber(const QString& text) {
    bool valid = false;
    const float value = text.toFloat(&valid);
    return valid && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

} // namespace

CommandLine::CommandLine(const char* usage, const char* about, bool leading)
    : usage_(QString::fromLatin1(usage)) {
    if (leading) {
        parser_.setOptionsAfterPositionalArgumentsMode(
            QCommandLineParser::ParseAsPositionalArguments);
    }
    parser_.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser_.setApplicationDescription(QString::fromLatin1(about));
    parser_.addOption(
        {{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help.")});
    addFlag("version", "Show the version.");
}

void CommandLine::addFlag(const char* name, const char* description) {
    parser_.addOption({QString::fromLatin1(name), QString::fromLatin1(description)});
}

void CommandLine::addValue(const char* name, const char* valueName, const char* description) {
    parser_.addOption({QString::fromLatin1(name), QString::fromLatin1(description),
                       QString::fromLatin1(valueName)});
}

void CommandLine::parse(const QStringList& words) {
    if (!parser_.parse(QStringList(QStringLiteral("korvane-tool")) + words)) {
        const QString fault = parser_.errorText();
        throw WrongCall(fault.chopped(fault.endsWith(u'.') ? 1 : 0));
    }
    answered_ = isSet("help") || isSet("version");
    if (isSet("help")) {
        print(helpText().toStdString());
    } else if (answered_) {
        print("korvane-tool " KORVANE_VERSION "\n");
    }
}

/// The toolkit's help names neither the command nor its operands.
QString CommandLine::helpText() const {
    const QString text = parser_.helpText();
    return usage_ + u'\n' + text.mid(text.indexOf(u'\n'));
}

bool CommandLine::isSet(const char* option) const {
    return parser_.isSet(QString::fromLatin1(option));
}

QString CommandLine::value(const char* option) const {
    return parser_.value(QString::fromLatin1(option));
}

std::optional<std::size_t> CommandLine::choice(const char* option, const QStringList& known) const {
    if (!isSet(option)) {
        return std::nullopt;
    }
    const qsizetype index = known.indexOf(value(option));
    if (index < 0) {
        refuseValue(option);
    }
    return static_cast<std::size_t>(index);
}

std::vector<float> CommandLine::numbers(const char* option, qsizetype count,
                                        QChar separator) const {
    std::vector<float> values;
    if (!isSet(option)) {
        return values;
    }
    const QStringList texts = value(option).split(separator);
    for (const QString& text : texts) {
        const std::optional<float> number = finiteNumber(text);
        if (!number || texts.size() != count) {
            refuseValue(option);
        }
        values.push_back(*number);
    }
    return values;
}

std::optional<float> CommandLine::number(const char* option) const {
    const std::vector<float> values = numbers(option, 1, u',');
    return values.empty() ? std::nullopt : std::optional(values.front());
}

std::optional<float> CommandLine::angle(const char* option) const {
    if (!isSet(option)) {
        return std::nullopt;
    }
    const QString text = value(option);
    const bool degrees = text.endsWith(QLatin1String("deg"));
    const bool unit = degrees || text.endsWith(QLatin1String("rad"));
    const std::optional<float> number = finiteNumber(text.chopped(unit ? 3 : 0));
    if (!number) {
        refuseValue(option);
    }
    constexpr double degree = std::numbers::pi / 180.0;
    return degrees ? static_cast<float>(*number * degree) : *number;
}

std::optional<int> CommandLine::count(const char* option) const {
    if (!isSet(option)) {
        return std::nullopt;
    }
    bool valid = false;
    const int number = value(option).toInt(&valid);
    if (!valid || number < 1) {
        refuseValue(option);
    }
    return number;
}

void CommandLine::refuseValue(const char* option) const {
    throw WrongCall(QStringLiteral("invalid value \"%1\" for --%2")
                        .arg(value(option), QString::fromLatin1(option)));
}

void CommandLine::forbid(std::initializer_list<const char*> options, const QString& reason) const {
    for (const char* option : options) {
        if (isSet(option)) {
            throw WrongCall(QStringLiteral("--%1 %2").arg(QString::fromLatin1(option), reason));
        }
    }
}

} // namespace korvane::tool
