#pragma once

#include <QDialog>

#include <memory>

namespace korvane {

/// Stands for one modal call: made before its dialog shows, gone when the call returns.
///
/// A modal dialog blocks the other windows only while it shows, and only from new input. Its call
/// returns later, once the events that were waiting have been delivered, and until then these would
/// reach windows whose work is still on the stack, or the hidden dialog itself. So input that
/// waited for a window under the dialog is dropped, and from the moment the innermost dialog hides
/// until its call has returned, no window gets any input, and none may be closed by the user.
class ModalCall {
  public:
    /// The dialog must outlive this object.
    explicit ModalCall(QDialog& dialog);
    ~ModalCall();
    ModalCall(const ModalCall&) = delete;
    ModalCall& operator=(const ModalCall&) = delete;

    /// True while a call has not returned. Until then no document window edits its model, closes or
    /// shows another dialog, whoever asks for it; assistive programs do so without any input.
    [[nodiscard]] static bool running();
    /// True while the innermost dialog is hidden but its call has not returned.
    [[nodiscard]] static bool returning();
    /// True while an open dialog covers the widget's window, or a call is returning. What assistive
    /// programs ask of such a widget then shows no dialog over the open one.
    [[nodiscard]] static bool covers(const QWidget& widget);

  private:
    class InputGate;

    /// The dialog, or the box that it shows by itself, as a file dialog does to ask whether to
    /// replace a file.
    [[nodiscard]] const QDialog& top() const;

    const QDialog& dialog_;
    const ModalCall* outer_;        ///< the call during which this one was made
    std::unique_ptr<QObject> gate_; ///< the outermost call's
};

/// Shows the dialog until the user closes it; what QDialog::exec() answers. A dialog that is asked
/// for while another's call is returning counts as rejected: what asks for it then, as a command
/// that waited in the queue, was not meant for what the user sees by now.
int execModal(QDialog& dialog);

} // namespace korvane
