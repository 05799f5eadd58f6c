// The "Window" menu of the main frame, and the usual keys for closing and switching windows.

#include "app/shell/MdiArrange.h"
#include "app/shell/TMainForm.h"
#include "app/widgets/ModalCall.h"
#include "model/forms/TMDIChild.h"
#include "ui_TMainForm.h"

#include <QAction>
#include <QMdiSubWindow>
#include <QMenu>
#include <QShortcut>

#include <functional>
#include <utility>

namespace korvane {

void TMainForm::setUpWindowKeys() {
    // Not all desktops have these keys. They are not shortcuts of the actions, whose menu items
    // would then show them.
    QList<QKeySequence> close = QKeySequence::keyBindings(QKeySequence::Close);
    if (!close.contains(Qt::CTRL | Qt::Key_F4)) {
        close.append(Qt::CTRL | Qt::Key_F4);
    }
    const std::pair<QList<QKeySequence>, std::function<void()>> commands[] = {
        {close, [this] { ui_->FileClose1->trigger(); }},
        {{Qt::CTRL | Qt::Key_F6}, [this] { ui_->MDIArea->activateNextSubWindow(); }},
        {{Qt::CTRL | Qt::SHIFT | Qt::Key_F6},
         [this] { ui_->MDIArea->activatePreviousSubWindow(); }}};
    for (const auto& [keys, act] : commands) {
        auto* shortcut = new QShortcut(this);
        shortcut->setKeys(keys);
        connect(shortcut, &QShortcut::activated, this, [act = act] {
            if (!ModalCall::running()) {
                act();
            }
        });
    }
}

void TMainForm::leaveKeysToFrame(const QMdiSubWindow& window) {
    for (QAction* action : window.systemMenu()->actions()) {
        action->setShortcuts(QList<QKeySequence>());
    }
}

void TMainForm::WindowCascade1Execute() {
    cascadeWindows(*ui_->MDIArea);
}

void TMainForm::WindowTileHorizontal1Execute() {
    tileWindows(*ui_->MDIArea, Qt::Horizontal);
}

void TMainForm::WindowTileVertical1Execute() {
    tileWindows(*ui_->MDIArea, Qt::Vertical);
}

void TMainForm::WindowMinimizeAll1Execute() {
    minimizeWindows(*ui_->MDIArea);
}

void TMainForm::WindowArrangeAll1Execute() {
    arrangeMinimized(*ui_->MDIArea);
}

void TMainForm::windowUpdate() {
    const bool open = activeDocument() != nullptr;
    for (QAction* action :
         {ui_->WindowCascade1, ui_->WindowTileHorizontal1, ui_->WindowTileVertical1,
          ui_->WindowMinimizeAll1, ui_->WindowArrangeAll1}) {
        action->setEnabled(open);
    }
}

} // namespace korvane
