#pragma once

#include <QObject>

#include <functional>

class QSessionManager;

namespace korvane {

class TMainForm;

/// The program's part in the end of the desktop's session. First the desktop asks every program
/// whether its session may end, and only later tells them to quit.
///
/// Where the desktop lets programs ask their users, this one asks its close questions, and Cancel
/// stops the logout. Where it does not, or while a dialog is open, over which no other one may
/// show, the logout is not held up: what is not saved is kept by the function given.
class Logout : public QObject {
    Q_OBJECT
  public:
    /// `keepAll` keeps what is not saved for the next run, where there is such a function.
    Logout(TMainForm& frame, std::function<void()> keepAll);

    /// Whether the session may end. `mayAsk` asks the desktop whether the user may be asked now. It
    /// can take until other programs have asked; a dialog that the user opens meanwhile comes
    /// first.
    bool mayEnd(const std::function<bool()>& mayAsk);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void commitData(QSessionManager& desktop);
    void keep() const;
    /// Asks the close questions, in front of other programs' windows.
    [[nodiscard]] bool questionsAnswered();

    /// How the program ends when the desktop tells it to quit.
    enum class End {
        AsUsual, ///< the session goes on
        Asked,   ///< the windows close without another question
        Kept     ///< at once: a dialog may be open
    };

    TMainForm& frame_;
    std::function<void()> keepAll_;
    End end_ = End::AsUsual;
};

} // namespace korvane
