#pragma once

class QAction;
class QToolBar;

namespace korvane {

/// Names the buttons of a tool bar after their actions, and adds their keys to the tool tips.
void nameToolButtons(QToolBar& bar);

/// Gives the action's button a drop-down menu that contains only the action.
void addDropDown(QToolBar& bar, QAction& action);

} // namespace korvane
