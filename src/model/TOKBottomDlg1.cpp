#include "model/TOKBottomDlg1.h"

namespace korvane {

TOKBottomDlg1::TOKBottomDlg1(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("OKBottomDlg1"));
    setWindowTitle(QStringLiteral("Rename Frame"));
}

} // namespace korvane
