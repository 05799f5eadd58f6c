#include "edit/TMaterial.h"

namespace korvane {

TMaterial::TMaterial(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("Material"));
    setWindowTitle(QStringLiteral("Material Editor"));
}

} // namespace korvane
