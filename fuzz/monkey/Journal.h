#pragma once

#include <QString>

#include <cstdint>

namespace korvane::monkey {

// What the monkey does, told to the user when something goes wrong. There is one journal, as the
// program may end at any place: in a signal, in a sanitizer, in the middle of an event.

/// From here on, a program that crashes or hangs tells the seed and the last actions.
void watchProgram();
/// With it, each action is told when it begins.
void tellActions(bool tell);

void beginStory(std::uint32_t seed);
/// An action begins. It has a minute: then the program ends with status 1.
void note(const QString& action);
/// How many actions there were in all stories.
std::int64_t actionCount();

/// Tells what is wrong, the seed and the last actions, and ends the program with status 1.
[[noreturn]] void fail(const QString& fault);
/// Fails unless `holds`.
inline void expect(bool holds, const char* fault) {
    if (!holds) {
        fail(QString::fromLatin1(fault));
    }
}

} // namespace korvane::monkey
