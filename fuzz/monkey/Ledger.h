#pragma once

#include "model/forms/TMDIChild.h"

#include <QPointer>

#include <optional>
#include <string>
#include <vector>

namespace korvane {
class TMainForm;
}

namespace korvane::monkey {

/// Returns what saving the model writes, followed by the materials that no slot uses.
std::string bytesOf(const TMDIChild& window);

/// Remembers the state of every open model when opened and when saved, and checks that the editor
/// returns to it.
class Ledger {
  public:
    /// Call after every action, with no dialog open: registers new windows, and checks that closed
    /// ones are gone and that saved models are in their files.
    void follow(const TMainForm& form);
    /// The frame options were left with changed flags but without a step, which is allowed: the
    /// states to compare with are taken anew.
    void flagsStay(const TMDIChild* window);
    /// Undoes and redoes everything as a user can, and compares the bytes.
    void check(TMDIChild& window);
    /// Undo and redo steps taken by all checks so far.
    [[nodiscard]] std::size_t stepsTaken() const { return steps_; }

  private:
    struct Account {
        QPointer<TMDIChild> window;
        std::string first;                ///< the state with nothing left to undo
        std::optional<std::string> saved; ///< the state when last equal to its file
        bool modified = true;
        bool flagsStay = false;
    };

    void open(TMDIChild& window);
    static void compareFile(Account& account);
    void checkWay(Account& account);

    std::vector<Account> accounts_;
    std::size_t steps_ = 0;
};

} // namespace korvane::monkey
