#include "model/TframeF.h"

namespace korvane {

TframeF::TframeF(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frameF"));
    setWindowTitle(QStringLiteral("Frame Options"));
}

} // namespace korvane
