#pragma once

#include <array>
#include <functional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace korvane::test {

/// Calls the function in a forked child and returns what it wrote to the given descriptor, then
/// "exit" or "signal" and the number.
inline std::string endOfChild(const std::function<void(int out)>& run) {
    std::array<int, 2> ends = {};
    if (pipe(ends.data()) != 0) {
        return "no pipe";
    }
    const pid_t child = fork();
    if (child == 0) {
        constexpr int returned = 99;
        run(ends[1]);
        _exit(returned);
    }
    close(ends[1]);
    std::string told;
    char letter = 0;
    while (read(ends[0], &letter, 1) == 1) {
        told += letter;
    }
    close(ends[0]);
    int status = 0;
    if (waitpid(child, &status, 0) != child) {
        return "no child";
    }
    return told + (WIFSIGNALED(status) ? "signal " + std::to_string(WTERMSIG(status))
                                       : "exit " + std::to_string(WEXITSTATUS(status)));
}

} // namespace korvane::test
