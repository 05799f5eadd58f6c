#include "model/TframeF.h"

#include "app/WindowTitle.h"
#include "ui_TframeF.h"

#include <utility>

namespace korvane {

TframeF::TframeF(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::TframeF>()) {
    ui_->setupUi(this);
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
        connect(box, &QCheckBox::clicked, this, handler); // by the user alone, not by filling
    }
    ui_->BasePoseBox->setEnabled(false);
    // a box of a flag that nothing here writes shows the frame, whatever is clicked
    connect(ui_->VertexColorsBox, &QCheckBox::clicked, this,
            [this] { ui_->VertexColorsBox->setChecked(frame_->Mesh.HasVertexColors); });
}

TframeF::~TframeF() = default;

bool TframeF::edit(FrameRecord& frame) {
    frame_ = &frame;
    FrameEditActivate();
    const bool confirmed = exec() == Accepted;
    frame_ = nullptr;
    return confirmed;
}

void TframeF::FrameEditActivate() {
    const MeshRecord& mesh = frame_->Mesh;
    ui_->BasePoseBox->setChecked(frame_->HasBasePose);
    ui_->MeshBox->setChecked(frame_->HasMesh);
    ui_->BackwardsBox->setChecked(frame_->RenderBackwards);
    ui_->EmissiveBox->setChecked(frame_->Emissive);
    ui_->MaterialBox->setChecked(mesh.HasMaterials);
    ui_->NormalsBox->setChecked(mesh.HasNormals);
    ui_->TexCoordsBox->setChecked(mesh.HasTexCoords);
    ui_->VertexColorsBox->setChecked(mesh.HasVertexColors);
    ui_->FlameBox->setChecked(frame_->KV2Animated);
    ui_->GFlagBox->setChecked(frame_->GFlag);
    ui_->AnimationBox->setChecked(frame_->HasAnimation);
    enableBoxes();
    ui_->MeshBox->setFocus();
}

void TframeF::enableBoxes() {
    for (QCheckBox* box : {ui_->BackwardsBox, ui_->EmissiveBox, ui_->MaterialBox, ui_->NormalsBox,
                           ui_->VertexColorsBox, ui_->FlameBox, ui_->GFlagBox, ui_->AnimationBox}) {
        box->setEnabled(frame_->HasMesh);
    }
    ui_->TexCoordsBox->setEnabled(frame_->HasMesh && frame_->Mesh.HasMaterials);
}

void TframeF::MeshBoxClick() {
    frame_->HasMesh = ui_->MeshBox->isChecked();
    enableBoxes();
}

void TframeF::BackwardsClicked() {
    frame_->RenderBackwards = ui_->BackwardsBox->isChecked();
}

void TframeF::EmissiveClicked() {
    frame_->Emissive = ui_->EmissiveBox->isChecked();
}

void TframeF::MaterialChecked() {
    frame_->Mesh.HasMaterials = ui_->MaterialBox->isChecked();
    enableBoxes();
}

void TframeF::NormalsChecked() {
    frame_->Mesh.HasNormals = ui_->NormalsBox->isChecked();
}

void TframeF::TexCoordsChecked() {
    frame_->Mesh.HasTexCoords = ui_->TexCoordsBox->isChecked();
}

void TframeF::FlameChecked() {
    frame_->KV2Animated = ui_->FlameBox->isChecked();
}

void TframeF::GFlagActionExecute() {
    frame_->GFlag = ui_->GFlagBox->isChecked();
}

void TframeF::AnimationActionExecute() {
    frame_->HasAnimation = ui_->AnimationBox->isChecked();
}

} // namespace korvane
