#include "app/WindowFocus.h"

#include <QApplication>
#include <QEvent>
#include <QMdiSubWindow>

namespace korvane {

WindowFocus::WindowFocus(QMdiSubWindow& window, QWidget& first)
    : QObject(&window), window_(window), first_(&first) {
    qApp->installEventFilter(this);
    connect(&window, &QMdiSubWindow::windowStateChanged, this,
            [this](Qt::WindowStates /*before*/, Qt::WindowStates now) {
                if (now.testFlag(Qt::WindowActive)) {
                    // later: the toolkit moves the focus both before and after it tells
                    QMetaObject::invokeMethod(this, &WindowFocus::restore, Qt::QueuedConnection);
                }
            });
}

void WindowFocus::give(QWidget& control) {
    chosen_ = &control;
    control.setFocus();
}

bool WindowFocus::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease: {
        // Only input within the window chooses a control there; the toolkit's own moves look alike.
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (widget != nullptr && widget != &window_ && window_.isAncestorOf(widget)) {
            QMetaObject::invokeMethod(this, &WindowFocus::note, Qt::QueuedConnection);
        }
        break;
    }
    default:
        break;
    }
    return false;
}

void WindowFocus::note() {
    QWidget* focused = QApplication::focusWidget();
    if (focused != nullptr && window_.isAncestorOf(focused)) {
        chosen_ = focused;
    }
}

void WindowFocus::restore() {
    if (!window_.windowState().testFlag(Qt::WindowActive) || window_.isMinimized()) {
        return;
    }
    const bool usable = chosen_ && chosen_->isVisible() && chosen_->isEnabled();
    if (QWidget* control = usable ? chosen_ : first_) {
        control->setFocus();
    }
}

} // namespace korvane
