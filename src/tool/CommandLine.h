#pragma once

#include "tool/Report.h"

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace korvane::tool {

/// The words of a call, read by the toolkit's rules: "--" ends the options, "-" is no option.
/// Whatever makes no sense throws WrongCall.
class CommandLine {
  public:
    /// How the call looks, a line for each way, and what it does, both for the help. With
    /// `leading` options stand before the first other word only.
    CommandLine(const char* usage, const char* about, bool leading = false);

    void addFlag(const char* name, const char* description);
    void addValue(const char* name, const char* valueName, const char* description);
    void parse(const QStringList& words);

    /// What --help or --version asked for has been printed: nothing else is to be done.
    [[nodiscard]] bool answered() const { return answered_; }
    /// The words that are no options.
    [[nodiscard]] QStringList operands() const { return parser_.positionalArguments(); }

    [[nodiscard]] bool isSet(const char* option) const;
    [[nodiscard]] QString value(const char* option) const;
    /// Where the option's value stands among the words, or nothing if it was not given.
    [[nodiscard]] std::optional<std::size_t> choice(const char* option,
                                                    const QStringList& known) const;
    /// As many finite numbers with the separator between them as asked for, or an empty list.
    [[nodiscard]] std::vector<float> numbers(const char* option, qsizetype count,
                                             QChar separator) const;
    [[nodiscard]] std::optional<float> number(const char* option) const;
    /// An angle in radians; the value may have the unit "rad" or "deg".
    [[nodiscard]] std::optional<float> angle(const char* option) const;
    /// A whole number above 0.
    [[nodiscard]] std::optional<int> count(const char* option) const;
    /// Throws: the option's value is none.
    [[noreturn]] void refuseValue(const char* option) const;
    /// Throws if any of the options is set, which have no meaning for the reason given.
    void forbid(std::initializer_list<const char*> options, const QString& reason) const;

  private:
    [[nodiscard]] QString helpText() const;

    QString usage_;
    QCommandLineParser parser_;
    bool answered_ = false;
};

} // namespace korvane::tool
