#include "Input.h"

#include <QApplication>
#include <QPointingDevice>
#include <QTest>
#include <QWheelEvent>

namespace korvane::monkey {

namespace {

int delivering = 0;

/// While one exists, input is being delivered to a widget.
struct Delivery {
    Delivery() { ++delivering; }
    ~Delivery() { --delivering; }
    Delivery(const Delivery&) = delete;
    Delivery& operator=(const Delivery&) = delete;
};

} // namespace

bool inputWaits() {
    return delivering > 0;
}

void Mouse::send(const QWidget& at, QPoint place, QEvent::Type type, Qt::MouseButton button,
                 Qt::KeyboardModifiers keys) {
    QWindow* window = holder_ ? holder_.data() : at.window()->windowHandle();
    if (window == nullptr || !at.isVisible()) {
        held_ = {};
        return;
    }
    const QPoint global = at.mapToGlobal(place);
    const Delivery delivery;
    qt_handleMouseEvent(window, window->mapFromGlobal(global), global, held_, button, type, keys,
                        time_);
}

void Mouse::press(const QWidget& at, QPoint place, Qt::MouseButton button,
                  Qt::KeyboardModifiers keys) {
    held_ |= button;
    if (!holder_) {
        holder_ = at.window()->windowHandle();
    }
    send(at, place, QEvent::MouseButtonPress, button, keys);
}

void Mouse::move(const QWidget& at, QPoint place, Qt::KeyboardModifiers keys) {
    send(at, place, QEvent::MouseMove, Qt::NoButton, keys);
}

void Mouse::release(const QWidget& at, QPoint place, Qt::MouseButton button,
                    Qt::KeyboardModifiers keys) {
    constexpr int apart = 1000;
    held_ &= ~Qt::MouseButtons(button);
    send(at, place, QEvent::MouseButtonRelease, button, keys);
    if (held_ == Qt::NoButton) {
        holder_ = nullptr;
    }
    time_ += apart;
}

void Mouse::click(const QWidget& at, QPoint place, Qt::MouseButton button,
                  Qt::KeyboardModifiers keys) {
    const QPointer<const QWidget> still(&at);
    press(at, place, button, keys);
    if (still) {
        release(at, place, button, keys);
    } else {
        held_ = {};
        holder_ = nullptr;
    }
}

void Mouse::doubleClick(const QWidget& at, QPoint place) {
    constexpr int soon = 50;
    const QPointer<const QWidget> still(&at);
    click(at, place);
    time_ -= 1000 - soon;
    if (still) {
        click(at, place);
    }
}

void Mouse::wheel(const QWidget& at, QPoint place, int notches, Qt::KeyboardModifiers keys) {
    constexpr int notch = 120;
    QWindow* window = at.window()->windowHandle();
    const QWidget* modal = QApplication::activeModalWidget();
    if (window == nullptr || (modal != nullptr && modal != at.window())) {
        return; // blocked
    }
    const QPoint global = at.mapToGlobal(place);
    QWheelEvent event(window->mapFromGlobal(global), global, {}, {0, notches * notch}, Qt::NoButton,
                      keys, Qt::NoScrollPhase, false);
    QApplication::sendEvent(window, &event);
}

void Mouse::letGo(const QWidget& at) {
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (held_.testFlag(button)) {
            release(at, at.rect().center(), button);
        }
    }
    holder_ = nullptr;
    held_ = {};
}

void typeKey(const QWidget& in, Qt::Key key, Qt::KeyboardModifiers keys) {
    const QPointer<QWindow> window = in.window()->windowHandle();
    if (!window) {
        return;
    }
    const bool letter = key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde;
    const QChar upper(static_cast<char16_t>(key));
    QString text;
    if (letter && !keys.testAnyFlags(Qt::ControlModifier | Qt::AltModifier)) {
        text = keys.testFlag(Qt::ShiftModifier) ? upper : upper.toLower();
    } else if (key == Qt::Key_Return) {
        text = QStringLiteral("\r");
    }
    const Delivery delivery;
    qt_handleKeyEvent(window, QEvent::KeyPress, key, keys, text);
    if (window) {
        qt_handleKeyEvent(window, QEvent::KeyRelease, key, keys, text);
    }
}

void typeText(const QWidget& in, const QString& text) {
    const QPointer<QWindow> window = in.window()->windowHandle();
    for (const QChar letter : text) {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            if (window) {
                qt_handleKeyEvent(window, type, letter.toUpper().unicode(), Qt::NoModifier, letter);
            }
        }
    }
}

void waitForActive(QWidget& window) {
    constexpr int longest = 500;
    static_cast<void>(QTest::qWaitForWindowActive(&window, longest));
}

void closeByFrame(const QWidget& window) {
    if (QWindow* handle = window.window()->windowHandle()) {
        handle->close();
    }
}

} // namespace korvane::monkey
