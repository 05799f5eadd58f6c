// What the monkey does in the material editor.

#include "Monkey.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QSlider>

namespace korvane::monkey {

namespace {

/// Returns a control of the editor that can be used, or null.
template <class Control = QWidget>
Control* usable(const QWidget& editor, const char* name) {
    auto* found = editor.findChild<Control*>(QString::fromLatin1(name));
    return found != nullptr && found->isVisible() && found->isEnabled() ? found : nullptr;
}

} // namespace

void Monkey::swatch() {
    static const char* const names[] = {"ambient", "diffuse", "specular", "Panel1", "Panel2"};
    if (QWidget* found = usable(*dialogs_.last(), dice_.of(names))) {
        mouse_.click(*found, found->rect().center());
    }
}

void Monkey::materialMenu() {
    triggerAny(*dialogs_.last());
}

void Monkey::opacity() {
    static const Qt::Key keys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_PageUp, Qt::Key_Home,
                                   Qt::Key_End};
    auto* bar = usable<QSlider>(*dialogs_.last(), "opacitybar");
    if (bar == nullptr) {
        return;
    }
    if (dice_.chance(30)) {
        return dragIn(*bar);
    }
    bar->setFocus();
    for (int i = dice_.between(1, 4); i > 0; --i) {
        typeKey(*bar, dice_.of(keys));
    }
}

void Monkey::power() {
    static const QString texts[] = {QStringLiteral("1"),   QStringLiteral("25.5"),
                                    QStringLiteral("-"),   QStringLiteral("x"),
                                    QStringLiteral("1e3"), QStringLiteral("0.1")};
    auto* edit = usable<QLineEdit>(*dialogs_.last(), "Edit1");
    if (edit == nullptr) {
        return;
    }
    edit->setFocus();
    if (dice_.chance(40)) {
        typeKey(*edit, dice_.chance(50) ? Qt::Key_Backspace : Qt::Key_Home);
    }
    typeText(*edit, dice_.of(texts));
}

void Monkey::slot() {
    static const Qt::Key keys[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End};
    auto* box = usable<QComboBox>(*dialogs_.last(), "ComboBox1");
    if (box == nullptr) {
        return;
    }
    if (dice_.chance(60)) {
        face(); // the face to give the material to
        settle();
    }
    box->setFocus();
    if (dice_.chance(70)) {
        return typeKey(*box, dice_.of(keys));
    }
    box->showPopup();
    settle();
    typeKey(*box, dice_.of(keys));
    typeKey(*box, Qt::Key_Return);
}

void Monkey::checkMaterial() {
    auto* list = usable<QListWidget>(*dialogs_.last(), "CheckListBox1");
    if (list == nullptr || list->count() == 0) {
        return;
    }
    QListWidgetItem* item = list->item(dice_.below(list->count()));
    list->scrollToItem(item);
    const QRect place = list->visualItemRect(item);
    mouse_.click(*list->viewport(), {place.left() + 8, place.center().y()});
}

void Monkey::face() {
    auto* tree = usable<QTreeView>(*dialogs_.last(), "TreeView1");
    if (tree == nullptr) {
        return;
    }
    const QModelIndex part = anyNode(*tree);
    if (part.isValid()) {
        tree->expand(part.parent());
        tree->scrollTo(part);
        mouse_.click(*tree->viewport(), tree->visualRect(part).center());
    }
}

void Monkey::dragTexture() {
    if (QWidget* view = usable(*dialogs_.last(), "Image1")) {
        dragIn(*view);
    }
}

void Monkey::textureButton() {
    static const char* const names[] = {"ZoomInButton", "ZoomInButton", "ZoomOutButton",
                                        "RedrawButton", "textureCheckBox"};
    if (auto* button = usable<QAbstractButton>(*dialogs_.last(), dice_.of(names))) {
        mouse_.click(*button,
                     dice_.chance(50) ? QPoint(8, button->height() / 2) : button->rect().center());
    }
    for (const char* name : {"HorizontalBar", "VerticalBar"}) {
        auto* bar = usable<QScrollBar>(*dialogs_.last(), name);
        if (bar != nullptr && dice_.chance(30)) {
            bar->setValue(dice_.below(bar->maximum() + 1));
        }
    }
}

} // namespace korvane::monkey
