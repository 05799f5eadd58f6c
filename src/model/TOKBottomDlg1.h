#pragma once

#include <QDialog>

namespace korvane {

/// The new name of a frame. It has no controls yet and no command shows it.
class TOKBottomDlg1 : public QDialog {
  public:
    explicit TOKBottomDlg1(QWidget* parent);
};

} // namespace korvane
