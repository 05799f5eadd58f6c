#pragma once

#include <QList>
#include <QPointer>

class QAction;
class QMenu;

namespace korvane {

class TMainForm;

/// Lists the open windows at the end of a menu, the active one checked. Choosing one activates it.
class WindowList {
  public:
    /// Replaces the list by the frame's open windows.
    void refresh(const TMainForm& frame, QMenu& menu);

  private:
    QList<QPointer<QAction>> items_;
};

} // namespace korvane
