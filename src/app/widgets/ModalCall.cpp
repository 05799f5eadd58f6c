#include "app/widgets/ModalCall.h"

#include <QApplication>
#include <QEvent>
#include <QFileDialog>
#include <QMessageBox>

#include <utility>

namespace korvane {

namespace {

/// Modality concerns the whole program.
const ModalCall* innermost = nullptr;

bool isInput(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::NativeGesture:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

/// Returns whether the object is a widget in a window that the dialog covers. Pop-up lists and
/// menus count as part of the dialog.
bool isCovered(const QObject* object, const QDialog& dialog) {
    const auto* widget = qobject_cast<const QWidget*>(object);
    if (widget == nullptr || widget->window()->windowType() == Qt::Popup) {
        return false;
    }
    while (widget != nullptr && widget != &dialog) {
        widget = widget->parentWidget();
    }
    return widget == nullptr;
}

} // namespace

/// Drops input and close requests once the innermost dialog is hidden, and while it is visible,
/// pending input for windows that it covers.
class ModalCall::InputGate : public QObject {
  public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const QDialog& dialog = innermost->top();
        if (dialog.isVisible()) {
            return isInput(event->type()) && isCovered(watched, dialog);
        }
        const bool close = event->type() == QEvent::Close && event->spontaneous();
        if (!close && !isInput(event->type())) {
            return false;
        }
        event->ignore();
        return true;
    }
};

ModalCall::ModalCall(QDialog& dialog) : dialog_(dialog), outer_(std::exchange(innermost, this)) {
    if (outer_ == nullptr) {
        gate_ = std::make_unique<InputGate>();
        qApp->installEventFilter(gate_.get());
    }
}

ModalCall::~ModalCall() {
    gate_.reset();
    innermost = outer_;
}

const QDialog& ModalCall::top() const {
    if (qobject_cast<const QFileDialog*>(&dialog_) == nullptr) {
        return dialog_; // our own boxes have their own calls
    }
    const auto* box = dialog_.findChild<QMessageBox*>({}, Qt::FindDirectChildrenOnly);
    return box != nullptr ? *box : dialog_;
}

bool ModalCall::running() {
    return innermost != nullptr;
}

bool ModalCall::isReturning() {
    return innermost != nullptr && !innermost->top().isVisible();
}

bool ModalCall::covers(const QWidget& widget) {
    return innermost != nullptr && (isReturning() || isCovered(&widget, innermost->top()));
}

int execModal(QDialog& dialog) {
    if (ModalCall::isReturning()) {
        return QDialog::Rejected;
    }
    const ModalCall call(dialog);
    return dialog.exec();
}

} // namespace korvane
