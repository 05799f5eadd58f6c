#include "model/forms/TframeF.h"

#include "app/widgets/Hints.h"
#include "app/widgets/ModalCall.h"
#include "app/widgets/WidgetText.h"
#include "ui_TframeF.h"

#include <utility>

namespace korvane {

TframeF::TframeF(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::TframeF>()) {
    ui_->setupUi(this);
    setHints(*this);
    ui_->Layout->addStrut(widthForTitle(*this, windowTitle()));
    const std::pair<QCheckBox*, void (TframeF::*)()> handlers[] = {
        {ui_->MeshBox, &TframeF::MeshBoxClick},
        {ui_->BackwardsBox, &TframeF::BackwardsClicked},
        {ui_->EmissiveBox, &TframeF::EmissiveClicked},
        {ui_->MaterialBox, &TframeF::MaterialChecked},
        {ui_->NormalsBox, &TframeF::NormalsChecked},
        {ui_->TexCoordsBox, &TframeF::TexCoordsChecked},
        {ui_->FlameBox, &TframeF::FlameChecked},
        {ui_->GFlagBox, &TframeF::GFlagActionExecute},
        {ui_->AnimationBox, &TframeF::AnimationActionExecute},
    };
    for (const auto& [box, handler] : handlers) {
        connect(box, &QCheckBox::clicked, this, handler); // clicked: only by the user
    }
    ui_->BasePoseBox->setEnabled(false);
    // this flag cannot be changed here: a click is reverted
    connect(ui_->VertexColorsBox, &QCheckBox::clicked, this,
            [this] { ui_->VertexColorsBox->setChecked(flags_.HasVertexColors); });
}

TframeF::~TframeF() = default;

bool TframeF::edit(const FrameFlags& flags, Write write) {
    flags_ = flags;
    write_ = std::move(write);
    FrameEditActivate();
    const bool confirmed = execModal(*this) == Accepted;
    write_ = {};
    return confirmed;
}

void TframeF::FrameEditActivate() {
    ui_->BasePoseBox->setChecked(flags_.HasBasePose);
    ui_->MeshBox->setChecked(flags_.HasMesh);
    ui_->BackwardsBox->setChecked(flags_.RenderBackwards);
    ui_->EmissiveBox->setChecked(flags_.Emissive);
    ui_->MaterialBox->setChecked(flags_.HasMaterials);
    ui_->NormalsBox->setChecked(flags_.HasNormals);
    ui_->TexCoordsBox->setChecked(flags_.HasTexCoords);
    ui_->VertexColorsBox->setChecked(flags_.HasVertexColors);
    ui_->FlameBox->setChecked(flags_.KV2Animated);
    ui_->GFlagBox->setChecked(flags_.GFlag);
    ui_->AnimationBox->setChecked(flags_.HasAnimation);
    enableBoxes();
    ui_->MeshBox->setFocus();
}

void TframeF::enableBoxes() {
    for (QCheckBox* box : {ui_->BackwardsBox, ui_->EmissiveBox, ui_->MaterialBox, ui_->NormalsBox,
                           ui_->VertexColorsBox, ui_->FlameBox, ui_->GFlagBox, ui_->AnimationBox}) {
        box->setEnabled(flags_.HasMesh);
    }
    ui_->TexCoordsBox->setEnabled(flags_.HasMesh && flags_.HasMaterials);
}

void TframeF::setFlag(bool FrameFlags::*flag, const QCheckBox& box) {
    flags_.*flag = box.isChecked();
    if (write_) {
        write_(flags_);
    }
}

void TframeF::MeshBoxClick() {
    setFlag(&FrameFlags::HasMesh, *ui_->MeshBox);
    enableBoxes();
}

void TframeF::BackwardsClicked() {
    setFlag(&FrameFlags::RenderBackwards, *ui_->BackwardsBox);
}

void TframeF::EmissiveClicked() {
    setFlag(&FrameFlags::Emissive, *ui_->EmissiveBox);
}

void TframeF::MaterialChecked() {
    setFlag(&FrameFlags::HasMaterials, *ui_->MaterialBox);
    enableBoxes();
}

void TframeF::NormalsChecked() {
    setFlag(&FrameFlags::HasNormals, *ui_->NormalsBox);
}

void TframeF::TexCoordsChecked() {
    setFlag(&FrameFlags::HasTexCoords, *ui_->TexCoordsBox);
}

void TframeF::FlameChecked() {
    setFlag(&FrameFlags::KV2Animated, *ui_->FlameBox);
}

void TframeF::GFlagActionExecute() {
    setFlag(&FrameFlags::GFlag, *ui_->GFlagBox);
}

void TframeF::AnimationActionExecute() {
    setFlag(&FrameFlags::HasAnimation, *ui_->AnimationBox);
}

} // namespace korvane
