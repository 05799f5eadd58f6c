#pragma once

#include <QList>
#include <QPointer>

class QAction;
class QMenu;

namespace korvane {

class TMainForm;

/// The open windows at the end of a menu, the active one marked; choosing one activates it.
class WindowList {
  public:
    /// Lists the windows that the frame has open now, in place of what was listed before.
    void refresh(const TMainForm& frame, QMenu& menu);

  private:
    QList<QPointer<QAction>> items_;
};

} // namespace korvane
