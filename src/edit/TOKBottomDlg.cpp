#include "edit/TOKBottomDlg.h"

namespace korvane {

TOKBottomDlg::TOKBottomDlg(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("OKBottomDlg"));
    setWindowTitle(QStringLiteral("Load Texture"));
}

} // namespace korvane
