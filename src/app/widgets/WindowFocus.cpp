#include "app/widgets/WindowFocus.h"

#include <QApplication>
#include <QEvent>
#include <QMdiSubWindow>

#include <utility>

namespace korvane {

WindowFocus::WindowFocus(QMdiSubWindow& window, QWidget& first)
    : QObject(&window), window_(window), first_(&first) {
    for (const auto& [timer, handler] : {std::pair(&noteSoon_, &WindowFocus::note),
                                         std::pair(&restoreSoon_, &WindowFocus::restore)}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, handler);
    }
    qApp->installEventFilter(this);
    connect(&window, &QMdiSubWindow::windowStateChanged, this,
            [this](Qt::WindowStates /*before*/, Qt::WindowStates now) {
                if (now.testFlag(Qt::WindowActive)) {
                    restoreSoon_.start(); // the toolkit moves the focus before and after the signal
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
        // Only input in the window counts: focus events also come from the toolkit's own moves.
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (widget != nullptr && widget != &window_ && window_.isAncestorOf(widget)) {
            noteSoon_.start();
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
    if (noteSoon_.isActive()) {
        note(); // a press has activated the window
    }
    const bool usable = chosen_ && chosen_->isVisible() && chosen_->isEnabled();
    if (QWidget* control = usable ? chosen_ : first_) {
        control->setFocus();
    }
}

} // namespace korvane
