// What the monkey does to the main form and the document windows.

#include "Journal.h"
#include "Monkey.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
#include <QUrl>

namespace korvane::monkey {

namespace {

constexpr qsizetype maxWindows = 5;

} // namespace

void Monkey::command() {
    triggerAny(dice_.chance(75) || active() == nullptr ? static_cast<QObject&>(forms_.mainForm)
                                                       : *active());
}

void Monkey::menu() {
    QMenuBar* bar = forms_.mainForm.menuBar();
    const QList<QAction*> menus = bar->actions();
    mouse_.click(*bar, bar->actionGeometry(dice_.of(menus)).center());
    settle();
}

void Monkey::toolButton() {
    const QList<QToolButton*> buttons = forms_.mainForm.findChildren<QToolButton*>();
    QToolButton* button = dice_.of(buttons);
    const QString name =
        button->defaultAction() ? button->defaultAction()->objectName() : QString();
    const bool opens = name == QStringLiteral("FileNew1") || name == QStringLiteral("FileOpen1");
    if (button->isVisible() && (!opens || forms_.mainForm.documents().size() < maxWindows)) {
        mouse_.click(*button, button->rect().center());
    }
}

void Monkey::undoSome() {
    TMDIChild* window = active();
    for (int steps = dice_.between(1, 6); window != nullptr && steps > 0; --steps) {
        dice_.chance(60) ? window->undo() : window->redo();
    }
}

void Monkey::copyAndPaste() {
    node();
    settle();
    typeKey(forms_.mainForm, Qt::Key_C, Qt::ControlModifier);
    if (dice_.chance(50)) {
        switchWindow();
        settle();
    }
    node();
    settle();
    typeKey(forms_.mainForm, Qt::Key_V, Qt::ControlModifier);
}

void Monkey::newWindow() {
    if (forms_.mainForm.documents().size() < maxWindows) {
        typeKey(forms_.mainForm, Qt::Key_N, Qt::ControlModifier);
    }
}

void Monkey::openFile() {
    if (forms_.mainForm.documents().size() < maxWindows) {
        typeKey(forms_.mainForm, Qt::Key_O, Qt::ControlModifier);
    }
}

void Monkey::closeWindow() {
    if (active() == nullptr) {
        return;
    }
    switch (dice_.below(3)) {
    case 0:
        active()->close();
        break;
    case 1:
        typeKey(forms_.mainForm, Qt::Key_F4, Qt::ControlModifier);
        break;
    default:
        forms_.mainForm.findChild<QAction*>(QStringLiteral("FileClose1"))->trigger();
    }
}

void Monkey::leave() {
    if (!dice_.chance(20)) {
        return;
    }
    if (dice_.chance(50)) {
        closeByFrame(forms_.mainForm);
    } else {
        forms_.mainForm.findChild<QAction*>(QStringLiteral("FileExit1"))->trigger();
    }
}

void Monkey::dropFile() {
    if (forms_.mainForm.documents().size() >= maxWindows) {
        return;
    }
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(anyFile())});
    const QPoint place = anyPlace(forms_.mainForm);
    QDragEnterEvent enter(place, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&forms_.mainForm, &enter);
    QDropEvent drop(place, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&forms_.mainForm, &drop);
}

void Monkey::arrange() {
    TMDIChild* window = active();
    if (window == nullptr) {
        return;
    }
    switch (dice_.below(6)) {
    case 0:
        return window->showMinimized();
    case 1:
        return window->showNormal();
    case 2:
        window->showNormal();
        return window->setGeometry(dice_.below(300), dice_.below(200), dice_.between(60, 900),
                                   dice_.between(30, 700));
    case 3:
        if (auto* splitter = window->findChild<QSplitter*>(QStringLiteral("Splitter2"))) {
            splitter->setSizes({dice_.below(600), dice_.below(600)});
        }
        return;
    default:
        return window->showMaximized();
    }
}

void Monkey::switchWindow() {
    const QList<TMDIChild*> windows = forms_.mainForm.documents();
    if (windows.isEmpty()) {
        return;
    }
    if (dice_.chance(30)) {
        return typeKey(forms_.mainForm, Qt::Key_Tab, Qt::ControlModifier);
    }
    TMDIChild* window = dice_.of(windows);
    if (window->isMinimized()) {
        window->showNormal();
    }
    window->mdiArea()->setActiveSubWindow(window);
}

void Monkey::key() {
    for (int i = dice_.between(1, 4); i > 0; --i) {
        anyKey(forms_.mainForm);
    }
}

void Monkey::clickAnywhere() {
    const std::vector<QWidget*> all = controls(forms_.mainForm);
    // while a button is held, a click would end the drag
    if (!all.empty() && !mouse_.holds()) {
        randomClick(*dice_.of(all));
    }
}

/// Uses a menu or list that is open, then closes it.
void Monkey::handlePopup() {
    if (QApplication::activePopupWidget() == nullptr) {
        return;
    }
    static const Qt::Key keys[] = {Qt::Key_Down, Qt::Key_Up, Qt::Key_Right};
    for (int i = dice_.between(0, 5); i > 0; --i) {
        typeKey(forms_.mainForm, dice_.of(keys));
    }
    const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    const QAction* action = menu != nullptr ? menu->activeAction() : nullptr;
    const QString name = action != nullptr ? action->objectName() : QString();
    note(QStringLiteral("  popup at ") + name);
    typeKey(forms_.mainForm, name == QStringLiteral("FileExit1") || dice_.chance(20)
                                 ? Qt::Key_Escape
                                 : Qt::Key_Return);
    settle();
    while (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
    }
}

void Monkey::node() {
    auto* tree = qobject_cast<QTreeView*>(control("TreeView1"));
    if (tree == nullptr) {
        return page();
    }
    QModelIndex index = anyNode(*tree);
    if (!index.parent().isValid() && dice_.chance(80)) {
        index = anyNode(*tree); // the two at the top have fewer uses
    }
    if (index.isValid()) {
        clickNode(*tree, index);
    }
}

void Monkey::clickNode(QTreeView& tree, const QModelIndex& index) {
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) {
        tree.expand(above);
    }
    tree.scrollTo(index);
    const QPoint place = tree.visualRect(index).center();
    note(QStringLiteral("  ") + index.data().toString());
    if (dice_.chance(90)) {
        mouse_.click(*tree.viewport(), place);
    } else {
        mouse_.doubleClick(*tree.viewport(), place);
    }
}

void Monkey::expandNode() {
    if (auto* tree = qobject_cast<QTreeView*>(control("TreeView1"))) {
        tree->setExpanded(anyNode(*tree), dice_.chance(70));
    }
}

void Monkey::treeKey() {
    static const Qt::Key keys[] = {Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left,   Qt::Key_Right,
                                   Qt::Key_Home,   Qt::Key_End,      Qt::Key_Delete, Qt::Key_Insert,
                                   Qt::Key_Return, Qt::Key_Asterisk, Qt::Key_F2,     Qt::Key_F,
                                   Qt::Key_PageUp, Qt::Key_PageDown};
    if (QWidget* tree = control("TreeView1")) {
        tree->setFocus();
        for (int i = dice_.between(1, 5); i > 0; --i) {
            typeKey(*tree, dice_.of(keys));
        }
    }
}

void Monkey::pageButton() {
    static const char* const names[] = {"EditButton", "RenameButton", "DeleteButton", "AddButton"};
    const char* name = dice_.of(names);
    note(QStringLiteral("  ") + QString::fromLatin1(name));
    if (QWidget* button = control(name)) {
        const QPoint place = button->rect().center();
        dice_.chance(90) ? mouse_.click(*button, place) : mouse_.doubleClick(*button, place);
    }
}

/// Presses a button as assistive software does, without the mouse.
void Monkey::pressButton() {
    static const char* const names[] = {"EditButton", "RenameButton", "DeleteButton", "AddButton"};
    const char* name = dice_.of(names);
    note(QStringLiteral("  ") + QString::fromLatin1(name));
    if (active() != nullptr) {
        active()->findChild<QAbstractButton*>(QString::fromLatin1(name))->click();
    }
}

void Monkey::editNode() {
    static const char* const names[] = {"EditButton", "EditButton", "DeleteButton", "AddButton",
                                        "RenameButton"};
    node();
    settle();
    const char* name = dice_.of(names);
    note(QStringLiteral("  ") + QString::fromLatin1(name));
    if (QWidget* button = control(name)) {
        mouse_.click(*button, button->rect().center());
    }
}

/// Opens the material editor on a mesh, which chance alone rarely does.
void Monkey::editMesh() {
    auto* tree = qobject_cast<QTreeView*>(control("TreeView1"));
    if (tree == nullptr) {
        return page();
    }
    const QModelIndexList lists = tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole,
                                                       QStringLiteral("MeshMaterialList"), -1,
                                                       Qt::MatchExactly | Qt::MatchRecursive);
    if (lists.isEmpty()) {
        return;
    }
    clickNode(*tree, dice_.of(lists));
    settle();
    if (QWidget* button = control("EditButton")) {
        mouse_.click(*button, button->rect().center());
    }
}

void Monkey::tool() {
    static const char* const names[] = {
        "zoomButton",        "moveFrameButton",   "moveFrameButton",     "moveViewButton",
        "rotateFrameButton", "rotateFrameButton", "MoveObjCoordsButton", "FrameVisibleBox",
        "MeshVisibleBox",    "TwoDVisibleBox"};
    const char* name = dice_.of(names);
    note(QStringLiteral("  ") + QString::fromLatin1(name));
    if (active() != nullptr) {
        active()->findChild<QAbstractButton*>(QString::fromLatin1(name))->click();
    }
}

void Monkey::page() {
    if (auto* pages = qobject_cast<QTabWidget*>(control("PageControl1"))) {
        const int next = pages->currentIndex() == 0 && dice_.chance(40) ? 1 : 0;
        mouse_.click(*pages->tabBar(), pages->tabBar()->tabRect(next).center());
    }
}

void Monkey::dragPlane() {
    static const char* const names[] = {"Image2", "Image3", "Image4"};
    QWidget* view = control(dice_.of(names));
    if (view == nullptr) {
        return;
    }
    if (dice_.chance(60)) {
        return dragIn(*view);
    }
    const std::string before = bytesOf(*active());
    QPointer<TMDIChild> window = active();
    mouse_.press(*view, anyPlace(*view), Qt::LeftButton);
    mouse_.move(*view, anyPlace(*view));
    if (bytesOf(*window) != before) {
        disturbDrag(window, before);
        if (window && window->document() != nullptr) {
            typeKey(*window, Qt::Key_Escape);
        }
    }
    mouse_.letGo(forms_.mainForm);
}

/// A drag has changed the model. While it runs, nothing else may, and what ends it before the
/// release must revert all of it.
void Monkey::disturbDrag(const QPointer<TMDIChild>& window, const std::string& before) {
    const std::string dragged = bytesOf(*window);
    for (int i = dice_.between(1, 3); i > 0; --i) {
        expect(!window->canUndo() && !window->canRedo(), "a drag leaves undo or redo open");
        switch (dice_.below(3)) {
        case 0:
            pressButton();
            break;
        case 1:
            undoSome();
            break;
        default:
            queueOne();
        }
        settle();
        if (!window || window->document() == nullptr) {
            return;
        }
        const std::string now = bytesOf(*window);
        expect(now == dragged || now == before, "the model was edited during a drag");
        if (now == before) {
            return;
        }
    }
    typeKey(*window, Qt::Key_Escape);
    expect(bytesOf(*window) == before, "a cancelled drag leaves a trace");
}

void Monkey::dragModel() {
    if (QWidget* view = control("ThreeDWin")) {
        dragIn(*view);
    }
}

void Monkey::wheel() {
    static const char* const names[] = {"Image2", "Image3", "Image4", "ThreeDWin", "TreeView1"};
    if (QWidget* view = control(dice_.of(names))) {
        Mouse::wheel(*view, anyPlace(*view), dice_.between(-3, 3),
                     dice_.chance(15) ? Qt::ControlModifier : Qt::NoModifier);
    }
}

} // namespace korvane::monkey
