// What the monkey can use, and how it uses any control.

#include "Journal.h"
#include "Monkey.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMenu>

#include <algorithm>
#include <iterator>

namespace korvane::monkey {

std::vector<QWidget*> Monkey::controls(const QWidget& in) {
    std::vector<QWidget*> found;
    for (QWidget* widget : in.findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->isEnabled() && !widget->rect().isEmpty() &&
            widget->window() == in.window()) {
            found.push_back(widget);
        }
    }
    return found;
}

/// Returns a control of the active document window that can be used, or null.
QWidget* Monkey::control(const char* name) const {
    QWidget* found =
        active() == nullptr ? nullptr : active()->findChild<QWidget*>(QString::fromLatin1(name));
    return found != nullptr && found->isVisible() && found->isEnabled() ? found : nullptr;
}

QPoint Monkey::anyPlace(const QWidget& in) {
    return {dice_.below(std::max(in.width(), 1)), dice_.below(std::max(in.height(), 1))};
}

void Monkey::anyKey(const QWidget& in) {
    static const Qt::Key keys[] = {
        Qt::Key_Escape, Qt::Key_Delete, Qt::Key_Insert,   Qt::Key_Space,  Qt::Key_Tab,
        Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Left,     Qt::Key_Right,  Qt::Key_Return,
        Qt::Key_Home,   Qt::Key_End,    Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Backspace,
        Qt::Key_F,      Qt::Key_M,      Qt::Key_2,        Qt::Key_Plus,   Qt::Key_Minus,
        Qt::Key_Slash,  Qt::Key_Backtab};
    static const Qt::Key shortcuts[] = {Qt::Key_Z, Qt::Key_Y, Qt::Key_C,   Qt::Key_V,
                                        Qt::Key_X, Qt::Key_A, Qt::Key_Tab, Qt::Key_S};
    static const Qt::Key menus[] = {Qt::Key_F, Qt::Key_E, Qt::Key_R, Qt::Key_W, Qt::Key_O};
    if (dice_.chance(25)) {
        typeKey(in, dice_.of(shortcuts), Qt::ControlModifier);
    } else if (dice_.chance(5)) {
        typeKey(in, dice_.of(menus), Qt::AltModifier);
    } else {
        typeKey(in, dice_.of(keys), dice_.chance(10) ? Qt::ShiftModifier : Qt::NoModifier);
    }
}

void Monkey::randomClick(const QWidget& in) {
    const QPoint place = anyPlace(in);
    if (dice_.chance(15)) {
        mouse_.doubleClick(in, place);
        return;
    }
    const Qt::MouseButton button = dice_.chance(85)   ? Qt::LeftButton
                                   : dice_.chance(80) ? Qt::RightButton
                                                      : Qt::MiddleButton;
    mouse_.click(in, place, button, dice_.chance(10) ? Qt::ControlModifier : Qt::NoModifier);
}

void Monkey::interruptDrag(QWidget& view) {
    static const Qt::Key keys[] = {Qt::Key_Escape, Qt::Key_Delete, Qt::Key_Space, Qt::Key_Down};
    switch (dice_.below(5)) {
    case 0:
        return typeKey(view, dice_.of(keys));
    case 1:
        return typeKey(view, dice_.chance(50) ? Qt::Key_Z : Qt::Key_V, Qt::ControlModifier);
    case 2:
        return Mouse::wheel(view, anyPlace(view), dice_.between(-2, 2), Qt::NoModifier);
    case 3:
        return mouse_.press(view, anyPlace(view), Qt::RightButton);
    default:
        return queueOne();
    }
}

void Monkey::dragIn(QWidget& view) {
    const QPointer<QWidget> still(&view);
    const Qt::MouseButton button = dice_.chance(75) ? Qt::LeftButton : Qt::RightButton;
    const Qt::KeyboardModifiers keys = dice_.chance(8) ? Qt::ControlModifier : Qt::NoModifier;
    mouse_.press(view, anyPlace(view), button, keys);
    const int moves = dice_.between(0, 4);
    for (int i = 0; i < moves && still; ++i) {
        mouse_.move(view, anyPlace(view), keys);
        if (dice_.chance(25)) {
            settle();
        }
        if (still && dice_.chance(15)) {
            interruptDrag(view);
            settle();
        }
    }
    if (!still) {
        return;
    }
    if (dice_.chance(15)) {
        mouse_.release(*view.window(), anyPlace(*view.window()), button, keys);
    } else {
        mouse_.release(view, anyPlace(view), button, keys);
    }
    if (still) {
        mouse_.letGo(view);
    }
}

/// Returns a node or row of the view, which may be hidden in a collapsed one.
QModelIndex Monkey::anyNode(const QAbstractItemView& view) {
    const QAbstractItemModel* model = view.model();
    QModelIndex at = view.rootIndex();
    while (model != nullptr && model->rowCount(at) > 0) {
        at = model->index(dice_.below(model->rowCount(at)), 0, at);
        if (dice_.chance(20)) {
            break;
        }
    }
    return at;
}

void Monkey::triggerAny(const QObject& in) {
    std::vector<QAction*> actions;
    for (QAction* action : in.findChildren<QAction*>()) {
        static const QStringList kept = {QStringLiteral("FileExit1"), QStringLiteral("FileClose1"),
                                         QStringLiteral("FileNew1"), QStringLiteral("FileOpen1"),
                                         QStringLiteral("FileOpenItem")};
        if (action->isEnabled() && !action->objectName().isEmpty() && action->menu() == nullptr &&
            !kept.contains(action->objectName())) {
            actions.push_back(action);
        }
    }
    if (!actions.empty()) {
        QAction* action = dice_.of(actions);
        note(QStringLiteral("  trigger ") + action->objectName());
        action->trigger();
    }
}

/// Returns a file in the folder, possibly not a model, or the name of a missing one.
QString Monkey::anyFile() {
    QStringList files = QDir(folder_).entryList(
        {QStringLiteral("*.xsi"), QStringLiteral("*.x"), QStringLiteral("*.msh")}, QDir::Files,
        QDir::Name);
    files += QStringLiteral("none.xsi");
    return QDir(folder_).filePath(dice_.of(files));
}

} // namespace korvane::monkey
