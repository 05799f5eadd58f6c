#pragma once

#include <QString>

#include <cstdint>

namespace korvane::monkey {

// Records what the monkey does and prints it on a fault. There is one journal, as the program may
// end anywhere: in a signal, in a sanitizer, in the middle of an event.

/// From now on, a crash or hang prints the seed and the last actions.
void watchProgram();
/// Chooses whether to print each action when it begins.
void printActions(bool wanted);

void beginStory(std::uint32_t seed);
/// Notes that an action begins. After a minute without another one, the program ends with status 1.
void note(const QString& action);
/// Returns the number of actions in all stories.
std::int64_t actionCount();

/// Prints the fault, the seed and the last actions, and ends the program with status 1.
[[noreturn]] void fail(const QString& fault);
/// Fails unless `holds`.
inline void expect(bool holds, const char* fault) {
    if (!holds) {
        fail(QString::fromLatin1(fault));
    }
}

} // namespace korvane::monkey
