#pragma once

#include <QDialog>

namespace korvane {

/// The choice of a texture file. It has no controls yet and no command shows it.
class TOKBottomDlg : public QDialog {
  public:
    explicit TOKBottomDlg(QWidget* parent);
};

} // namespace korvane
