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

/// What saving the model writes, and behind it the materials that no slot leads to.
std::string bytesOf(const TMDIChild& window);

/// Knows how every open model was when it was opened and when it was saved, and checks that the
/// editor comes back to it.
class Ledger {
  public:
    /// To be called after every action, with no dialog open: takes in new windows, sees that closed
    /// ones are gone and that what was saved is in its file.
    void follow(const TMainForm& form);
    /// The frame options were left with flags changed but without a step, as they may be: what
    /// comes back is settled anew.
    void flagsStay(const TMDIChild* window);
    /// Undoes and redoes everything as a user can, and compares the bytes.
    void check(TMDIChild& window);
    /// As of all actions up to the last check.
    [[nodiscard]] std::size_t stepsTaken() const { return steps_; }

  private:
    struct Account {
        QPointer<TMDIChild> window;
        std::string first;                ///< with nothing left to undo
        std::optional<std::string> saved; ///< as it was when it was last in step with its file
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
