#include "app/widgets/SplitterKeys.h"

#include <QKeyEvent>
#include <QSplitter>

namespace korvane {

SplitterKeys::SplitterKeys(QSplitter& splitter)
    : QObject(&splitter), splitter_(splitter), handle_(*splitter.handle(1)) {
    handle_.setObjectName(splitter.objectName() + QStringLiteral("Handle"));
    handle_.setAccessibleName(splitter.accessibleName());
    handle_.setFocusPolicy(Qt::TabFocus);
    handle_.setBackgroundRole(QPalette::Highlight); // visible while it has the focus
    handle_.installEventFilter(this);
}

bool SplitterKeys::eventFilter(QObject* watched, QEvent* event) {
    constexpr int step = 16;
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        handle_.setAutoFillBackground(event->type() == QEvent::FocusIn);
        handle_.update();
        break;
    case QEvent::KeyPress: {
        const auto& pressed = dynamic_cast<const QKeyEvent&>(*event);
        const int key = pressed.key();
        if ((key == Qt::Key_Left || key == Qt::Key_Right) &&
            (pressed.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
            // in right-to-left layouts, the first pane is on the right
            move((key == Qt::Key_Right) != splitter_.isRightToLeft() ? step : -step);
            return true;
        }
        break;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void SplitterKeys::move(int pixels) {
    QList<int> sizes = splitter_.sizes();
    sizes[0] += pixels;
    sizes[1] -= pixels;
    splitter_.setSizes(sizes); // respects the minimum sizes of the panes
}

} // namespace korvane
