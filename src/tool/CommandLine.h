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

/// Parses the words of a call by the toolkit's rules: "--" ends the options, "-" is no option.
/// Throws WrongCall for a wrong call.
class CommandLine {
  public:
    /// `usage` (a line for each form of the call) and `about` are for the help. With `leading`,
    /// options are only those before the first other word.
    CommandLine(const char* usage, const char* about, bool leading = false);

    void addFlag(const char* name, const char* description);
    void addValue(const char* name, const char* valueName, const char* description);
    void parse(const QStringList& words);

    /// Returns true if the call only asked for --help or --version, which has been printed.
    [[nodiscard]] bool answered() const { return answered_; }
    /// Returns the words that are no options.
    [[nodiscard]] QStringList operands() const { return parser_.positionalArguments(); }

    [[nodiscard]] bool isSet(const char* option) const;
    [[nodiscard]] QString value(const char* option) const;
    /// Returns the index of the option's value in `known`; nullopt if the option is not set.
    [[nodiscard]] std::optional<std::size_t> choice(const char* option,
                                                    const QStringList& known) const;
    /// Returns `count` finite numbers, separated by `separator`; empty if the option is not set.
    [[nodiscard]] std::vector<float> numbers(const char* option, qsizetype count,
                                             QChar separator) const;
    [[nodiscard]] std::optional<float> number(const char* option) const;
    /// Returns an angle in radians; the value may have the unit "rad" or "deg".
    [[nodiscard]] std::optional<float> angle(const char* option) const;
    /// Returns a whole number above 0.
    [[nodiscard]] std::optional<int> count(const char* option) const;
    /// Throws WrongCall: the option's value is not valid.
    [[noreturn]] void refuseValue(const char* option) const;
    /// Throws WrongCall with the reason if any of the options is set.
    void forbid(std::initializer_list<const char*> options, const QString& reason) const;

  private:
    [[nodiscard]] QString helpText() const;

    QString usage_;
    QCommandLineParser parser_;
    bool answered_ = false;
};

} // namespace korvane::tool
