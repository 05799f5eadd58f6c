#include "app/TColorOptions.h"

#include "app/ColorSwatch.h"
#include "ui_TColorOptions.h"

#include <QColorDialog>

#include <utility>

namespace korvane {

TColorOptions::TColorOptions(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::TColorOptions>()) {
    ui_->setupUi(this);
    setWindowFlag(Qt::MSWindowsFixedSizeDialogHint);
    layout()->setSizeConstraint(QLayout::SetFixedSize);

    const std::pair<ColorSwatch*, QColor> defaults[] = {
        {ui_->ThreeDWinColorEdit, QColor(0, 0, 0)},
        {ui_->WireRenderSelectedEdit, QColor(255, 0, 0)},
        {ui_->WireRenderSelectedChildEdit, QColor(0, 255, 0)},
        {ui_->WireRenderUnselectedEdit, QColor(0, 0, 255)},
        {ui_->TwoDWinColorEdit, QColor(255, 255, 255)},
        {ui_->WorldAxesEdit, QColor(0, 128, 128)},
        {ui_->ObjAxesEdit, QColor(255, 255, 0)}};
    for (const auto& [swatch, color] : defaults) {
        swatch->setColor(color);
    }

    const std::pair<ColorSwatch*, void (TColorOptions::*)()> handlers[] = {
        {ui_->ThreeDWinColorEdit, &TColorOptions::ThreeDWinColorEditClick},
        {ui_->WireRenderSelectedEdit, &TColorOptions::WireRenderSelectedEditClick},
        {ui_->WireRenderSelectedChildEdit, &TColorOptions::WireRenderSelectedChildEditClick},
        {ui_->WireRenderUnselectedEdit, &TColorOptions::WireRenderUnselectedEditClick},
        {ui_->TwoDWinColorEdit, &TColorOptions::TwoDWinColorEditClick},
        {ui_->WorldAxesEdit, &TColorOptions::WorldAxesEditClick},
        {ui_->ObjAxesEdit, &TColorOptions::ObjAxesEditClick}};
    for (const auto& [swatch, handler] : handlers) {
        connect(swatch, &ColorSwatch::clicked, this, handler);
    }
}

TColorOptions::~TColorOptions() = default;

ViewColors TColorOptions::viewColors() const {
    return {ui_->ThreeDWinColorEdit->color().rgb(), ui_->WireRenderSelectedEdit->color().rgb(),
            ui_->WireRenderSelectedChildEdit->color().rgb(),
            ui_->WireRenderUnselectedEdit->color().rgb()};
}

PlaneColors TColorOptions::planeColors() const {
    PlaneColors colors;
    colors.frames = viewColors();
    colors.frames.background = ui_->TwoDWinColorEdit->color().rgb();
    colors.worldAxes = ui_->WorldAxesEdit->color().rgb();
    colors.objectAxes = ui_->ObjAxesEdit->color().rgb();
    return colors;
}

void TColorOptions::ThreeDWinColorEditClick() {
    choose(*ui_->ThreeDWinColorEdit);
}

void TColorOptions::WireRenderSelectedEditClick() {
    choose(*ui_->WireRenderSelectedEdit);
}

void TColorOptions::WireRenderSelectedChildEditClick() {
    choose(*ui_->WireRenderSelectedChildEdit);
}

void TColorOptions::WireRenderUnselectedEditClick() {
    choose(*ui_->WireRenderUnselectedEdit);
}

void TColorOptions::TwoDWinColorEditClick() {
    choose(*ui_->TwoDWinColorEdit);
}

void TColorOptions::WorldAxesEditClick() {
    choose(*ui_->WorldAxesEdit);
}

void TColorOptions::ObjAxesEditClick() {
    choose(*ui_->ObjAxesEdit);
}

void TColorOptions::choose(ColorSwatch& swatch) {
    QColorDialog dialog(swatch.color(), this);
    dialog.setObjectName(QStringLiteral("ColorDialog1"));
    dialog.setWindowTitle(swatch.accessibleName());
    if (dialog.exec() == QDialog::Accepted) {
        swatch.setColor(dialog.selectedColor());
    }
}

} // namespace korvane
