#include "app/shell/TColorOptions.h"

#include "app/widgets/ColorSwatch.h"
#include "app/widgets/Hints.h"
#include "ui_TColorOptions.h"

#include <utility>

namespace korvane {

TColorOptions::TColorOptions(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::TColorOptions>()) {
    ui_->setupUi(this);
    setHints(*this);
    setWindowFlag(Qt::MSWindowsFixedSizeDialogHint);
    layout()->setSizeConstraint(QLayout::SetFixedSize);

    const ViewColors view;
    const PlaneColors planes;
    const std::pair<ColorSwatch*, BitmapPixel> defaults[] = {
        {ui_->ThreeDWinColorEdit, view.background},
        {ui_->WireRenderSelectedEdit, view.selected},
        {ui_->WireRenderSelectedChildEdit, view.selectedChild},
        {ui_->WireRenderUnselectedEdit, view.unselected},
        {ui_->TwoDWinColorEdit, planes.frames.background},
        {ui_->WorldAxesEdit, planes.worldAxes},
        {ui_->ObjAxesEdit, planes.objectAxes}};
    for (const auto& [swatch, color] : defaults) {
        swatch->setColor(QColor::fromRgb(color));
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
