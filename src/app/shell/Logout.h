#pragma once

#include <QObject>

#include <functional>

class QSessionManager;

namespace korvane {

class TMainForm;

/// Handles the end of the desktop's session. The desktop first asks every program whether the
/// session may end, and tells them to quit later.
///
/// If the desktop permits questions, this object asks the close questions, and Cancel stops the
/// logout. If it does not, or if a dialog is open, which no other may cover, the logout continues:
/// `keepAll` has kept the unsaved work.
class Logout : public QObject {
    Q_OBJECT
  public:
    /// `keepAll`, unless it is empty, keeps unsaved work for the next run.
    Logout(TMainForm& frame, std::function<void()> keepAll);

    /// Returns whether the session may end. `mayAsk` asks the desktop whether this program may ask
    /// the user now. It can block until other programs have asked; a dialog that the user opens
    /// meanwhile takes precedence.
    bool mayEnd(const std::function<bool()>& mayAsk);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void commitData(QSessionManager& desktop);
    void keep() const;
    /// Asks the close questions, in front of other programs' windows.
    [[nodiscard]] bool questionsAnswered();

    /// How the program ends once the desktop tells it to quit.
    enum class End {
        AsUsual, ///< the session continues
        Asked,   ///< closes the windows without another question
        Kept     ///< exits at once: a dialog may be open
    };

    TMainForm& frame_;
    std::function<void()> keepAll_;
    End end_ = End::AsUsual;
};

} // namespace korvane
