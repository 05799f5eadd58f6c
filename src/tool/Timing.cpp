#include "tool/Timing.h"

#include "tool/FileName.h"

#include <QString>

#include <algorithm>

namespace korvane::tool {

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void printMedian(const char* name, std::vector<double> milliseconds) {
    const auto middle = milliseconds.begin() + static_cast<std::ptrdiff_t>(milliseconds.size() / 2);
    std::nth_element(milliseconds.begin(), middle, milliseconds.end());
    // printf would write the decimal point of the locale
    print(std::string(name) + " median " + QString::number(*middle, 'f', 3).toStdString() +
          " ms\n");
}

void addRepeatOption(CommandLine& line, const char* description) {
    line.addValue("repeat", "N", description);
}

std::optional<int> repeatCount(const CommandLine& line, const Job& job) {
    if (isStandardStream(job.in) || isStandardStream(job.out)) {
        line.forbid({"repeat"}, QStringLiteral("cannot be used with \"-\""));
    }
    if (line.isSet("out-dir")) {
        line.forbid({"repeat"}, QStringLiteral("cannot be used with --out-dir"));
    }
    return line.count("repeat");
}

} // namespace korvane::tool
