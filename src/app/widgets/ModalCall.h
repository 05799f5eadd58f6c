#pragma once

#include <QDialog>

#include <memory>

namespace korvane {

/// One modal call: create it before its dialog shows, destroy it when the call returns.
///
/// A modal dialog blocks other windows only while it is visible, and only from new input. Its call
/// returns later, after pending events have been delivered. These would reach windows whose
/// functions are still on the stack, or the hidden dialog itself. So pending input for windows
/// under the dialog is dropped, and from when the innermost dialog hides until its call returns, no
/// window gets input and the user cannot close one.
class ModalCall {
  public:
    /// The dialog must outlive this object.
    explicit ModalCall(QDialog& dialog);
    ~ModalCall();
    ModalCall(const ModalCall&) = delete;
    ModalCall& operator=(const ModalCall&) = delete;

    /// True until all calls have returned. Meanwhile no document window may edit its model, close
    /// or show another dialog, even without input: assistive programs trigger such actions.
    [[nodiscard]] static bool running();
    /// True while the innermost dialog is hidden but its call has not returned.
    [[nodiscard]] static bool isReturning();
    /// True while an open dialog covers the widget's window, or a call is returning. Actions that
    /// assistive programs trigger on such a widget must not show a dialog over the open one.
    [[nodiscard]] static bool covers(const QWidget& widget);

  private:
    class InputGate;

    /// Returns the dialog, or its own message box: a file dialog asks whether to replace a file.
    [[nodiscard]] const QDialog& top() const;

    const QDialog& dialog_;
    const ModalCall* outer_;        ///< the enclosing call
    std::unique_ptr<QObject> gate_; ///< only in the outermost call
};

/// Shows the dialog until the user closes it and returns the result of QDialog::exec(). While
/// another call is returning, rejects the dialog without showing it: a request from then, such as
/// a queued command, was not meant for the present state.
int execModal(QDialog& dialog);

} // namespace korvane
