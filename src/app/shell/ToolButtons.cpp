#include "app/shell/ToolButtons.h"

#include <QMenu>
#include <QToolBar>
#include <QToolButton>

namespace korvane {

void nameToolButtons(QToolBar& bar) {
    for (QAction* action : bar.actions()) {
        if (auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(action))) {
            button->setObjectName(action->objectName() + QStringLiteral("Button"));
            button->setAccessibleName(action->iconText());
            // on the action: the button copies it at each change of the action
            const QString key = action->shortcut().toString(QKeySequence::NativeText);
            action->setToolTip(key.isEmpty()
                                   ? action->iconText()
                                   : QStringLiteral("%1 (%2)").arg(action->iconText(), key));
        }
    }
}

void addDropDown(QToolBar& bar, QAction& action) {
    auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(&action));
    auto* menu = new QMenu(button);
    menu->setObjectName(action.objectName() + QStringLiteral("Menu"));
    menu->setAccessibleName(action.iconText());
    menu->addAction(&action);
    button->setMenu(menu);
    button->setPopupMode(QToolButton::MenuButtonPopup);
}

} // namespace korvane
