#include "app/TColorOptions.h"

#include "app/ColorSwatch.h"
#include "ui_TColorOptions.h"

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
    ui_->ThreeDWinColorEdit->choose();
}

void TColorOptions::WireRenderSelectedEditClick() {
    ui_->WireRenderSelectedEdit->choose();
}

void TColorOptions::WireRenderSelectedChildEditClick() {
    ui_->WireRenderSelectedChildEdit->choose();
}

void TColorOptions::WireRenderUnselectedEditClick() {
    ui_->WireRenderUnselectedEdit->choose();
}

void TColorOptions::TwoDWinColorEditClick() {
    ui_->TwoDWinColorEdit->choose();
}

void TColorOptions::WorldAxesEditClick() {
    ui_->WorldAxesEdit->choose();
}

void TColorOptions::ObjAxesEditClick() {
    ui_->ObjAxesEdit->choose();
}

} // namespace korvane
