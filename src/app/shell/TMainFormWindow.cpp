// The "Window" menu of the main frame, and the keys of any window of windows.

#include "app/shell/MdiArrange.h"
#include "app/shell/TMainForm.h"
#include "app/widgets/ModalCall.h"
#include "model/forms/TMDIChild.h"
#include "ui_TMainForm.h"

#include <QAction>
#include <QShortcut>

#include <functional>
#include <utility>

namespace korvane {

void TMainForm::setUpWindowKeys() {
    // Not all desktops have these by themselves. They are no keys of the actions, whose menu items
    // show none.
    const std::pair<QKeySequence, std::function<void()>> keys[] = {
        {Qt::CTRL | Qt::Key_F4, [this] { ui_->FileClose1->trigger(); }},
        {Qt::CTRL | Qt::Key_F6, [this] { ui_->MDIArea->activateNextSubWindow(); }},
        {Qt::CTRL | Qt::SHIFT | Qt::Key_F6, [this] { ui_->MDIArea->activatePreviousSubWindow(); }}};
    for (const auto& [key, act] : keys) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, [act = act] {
            if (!ModalCall::running()) {
                act();
            }
        });
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
