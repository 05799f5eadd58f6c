#include "tool/Timing.h"

#include <QString>

#include <algorithm>
#include <cstdio>

namespace korvane::tool {

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void printMedian(const char* name, std::vector<double> milliseconds) {
    const auto middle = milliseconds.begin() + static_cast<std::ptrdiff_t>(milliseconds.size() / 2);
    std::nth_element(milliseconds.begin(), middle, milliseconds.end());
    // not by printf, which would write the point of the locale
    std::printf("%s median %s ms\n", name, qPrintable(QString::number(*middle, 'f', 3)));
}

} // namespace korvane::tool
