#include "app/WindowFocus.h"

#include <QApplication>
#include <QMdiSubWindow>

namespace korvane {

WindowFocus::WindowFocus(QMdiSubWindow& window, QWidget& first)
    : QObject(&window), window_(window), first_(first) {
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget* old, QWidget* now) { focusChanged(old, now); });
    connect(&window, &QMdiSubWindow::windowStateChanged, this,
            [this](Qt::WindowStates before, Qt::WindowStates now) {
                const bool active = now.testFlag(Qt::WindowActive);
                if (active == before.testFlag(Qt::WindowActive)) {
                    return;
                }
                restored_ = false;
                if (active) {
                    // later: the toolkit moves the focus on both before and after it tells
                    QMetaObject::invokeMethod(this, &WindowFocus::restore, Qt::QueuedConnection);
                }
            });
}

void WindowFocus::focusChanged(const QWidget* old, QWidget* now) {
    // leaving a maximised window hides it for a moment, and the toolkit moves the focus out of what
    // it hides
    if (old != nullptr && window_.isAncestorOf(old) && !old->isVisible()) {
        return;
    }
    // a press in the window both activates it and chooses a control
    const bool byUser = restored_ || QApplication::mouseButtons() != Qt::NoButton;
    if (byUser && now != nullptr && now != &window_ && window_.isAncestorOf(now)) {
        focused_ = now;
    }
}

void WindowFocus::restore() {
    if (!window_.windowState().testFlag(Qt::WindowActive) || window_.isMinimized()) {
        return;
    }
    const bool usable = focused_ && focused_->isVisible() && focused_->isEnabled();
    (usable ? *focused_ : first_).setFocus();
    restored_ = true;
}

} // namespace korvane
