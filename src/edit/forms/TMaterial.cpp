#include "edit/forms/TMaterial.h"

#include "app/widgets/DialogStart.h"
#include "app/widgets/DragFilter.h"
#include "app/widgets/ElidedLabel.h"
#include "app/widgets/MenuLetters.h"
#include "app/widgets/MessageBox.h"
#include "app/widgets/ModalCall.h"
#include "edit/materials/MaterialValues.h"
#include "ui_TMaterial.h"

#include <QKeyEvent>
#include <QMenuBar>
#include <QScopedValueRollback>

#include <numeric>
#include <string>
#include <utility>

namespace korvane {

namespace {

Rgba8 channelsOf(const QColor& color) {
    const QRgb rgb = color.rgb();
    return {static_cast<std::uint8_t>(qRed(rgb)), static_cast<std::uint8_t>(qGreen(rgb)),
            static_cast<std::uint8_t>(qBlue(rgb)), 255};
}

QColor screenColor(const ColorRGB& color) {
    const Rgba8 shown = shownColor(color);
    return {shown.red, shown.green, shown.blue};
}

QString materialText(std::int64_t index) {
    return QStringLiteral("Material %1").arg(index + 1);
}

} // namespace

TMaterial::TMaterial(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::TMaterial>()) {
    ui_->setupUi(this);
    setWindowFlag(Qt::MSWindowsFixedSizeDialogHint);
    setUpLook();
    connectControls();
    connectTextureControls();
}

TMaterial::~TMaterial() {
    DeleteBMP();
    ui_->TreeView1->setModel(nullptr); // the view outlives the model of the faces
}

void TMaterial::setUpLook() {
    auto* menu = new QMenuBar(this);
    menu->setObjectName(QStringLiteral("MainMenu1"));
    menu->setAccessibleName(QStringLiteral("Menu"));
    QMenu* texture = menu->addMenu(QStringLiteral("Texture"));
    texture->addAction(ui_->mopen);
    QMenu* color = menu->addMenu(QStringLiteral("Color"));
    color->addActions({ui_->ambientchng, ui_->diffusechng, ui_->specularchng});
    layout()->setMenuBar(menu);
    actOnFirstLetters(*menu);

    for (std::size_t i = 0; i < std::size(statusPanels_); ++i) {
        auto* panel = new ElidedLabel(this); // a face may have many corners
        panel->setObjectName(QStringLiteral("StatusPanel%1").arg(i));
        ui_->StatusBar1->addWidget(panel, 1);
        statusPanels_[i] = panel;
    }
    // a long name or number must not widen the dialog, nor a scroll bar that comes and goes
    ui_->texname->setFixedWidth(ui_->texname->sizeHint().width());
    ui_->opacity->setMinimumWidth(
        ui_->opacity->fontMetrics().horizontalAdvance(QString::number(lastOpacityPosition)));
    for (QWidget* widget :
         {static_cast<QWidget*>(ui_->HorizontalBar), static_cast<QWidget*>(ui_->VerticalBar),
          static_cast<QWidget*>(ui_->CornerPanel), static_cast<QWidget*>(ui_->Image1)}) {
        QSizePolicy policy = widget->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        widget->setSizePolicy(policy);
    }
    ui_->TreeView1->setModel(&faces_);
}

void TMaterial::connectControls() {
    const std::pair<ColorSwatch*, void (TMaterial::*)()> swatches[] = {
        {ui_->ambient, &TMaterial::AmbientChange},
        {ui_->diffuse, &TMaterial::DiffuseChange},
        {ui_->specular, &TMaterial::SpecularChange},
        {ui_->Panel1, &TMaterial::SelectedTriChange},
        {ui_->Panel2, &TMaterial::TriInactiveChange}};
    for (const auto& [swatch, handler] : swatches) {
        connect(swatch, &ColorSwatch::clicked, this, handler);
    }
    const std::pair<QAction*, void (TMaterial::*)()> actions[] = {
        {ui_->mopen, &TMaterial::mopen1execute},
        {ui_->ambientchng, &TMaterial::AmbientChange},
        {ui_->diffusechng, &TMaterial::DiffuseChange},
        {ui_->specularchng, &TMaterial::SpecularChange},
        {ui_->emissivechng, &TMaterial::EmissiveChange}};
    for (const auto& [action, handler] : actions) {
        connect(action, &QAction::triggered, this, handler);
    }
    connect(ui_->opacitybar, &QSlider::valueChanged, this, &TMaterial::OpacityChange);
    connect(ui_->Edit1, &QLineEdit::textChanged, this, &TMaterial::ShininessChange);
    // also for the item that stands there: a face may have another material
    connect(ui_->ComboBox1, &QComboBox::activated, this, &TMaterial::ComboBoxChange);
    connect(ui_->CheckListBox1, &QListWidget::itemChanged, this, &TMaterial::CheckListBoxClicked);
    connect(ui_->textureCheckBox, &QCheckBox::clicked, this, &TMaterial::TextureStatusChange);
    connect(ui_->Button2, &QPushButton::clicked, this, &TMaterial::Ok_ButtonClick);
}

void TMaterial::edit(const MaterialSubject& subject) {
    subject_ = subject;
    table_ = FrameRecord();
    if (!subject.frame) {
        table_.Mesh.MaterialSlotList.resize(subject.document->Materials.size());
        std::iota(table_.Mesh.MaterialSlotList.begin(), table_.Mesh.MaterialSlotList.end(), 0);
    }
    mesh().CurrentSlot = subject.slot;
    showNeeded_ = true;
    centreOnScreen(*this);
    execModal(*this);
    faces_.setFaces({});
    DeleteBMP();
    subject_.reset();
}

const FrameRecord& TMaterial::frame() const {
    const FrameRecord* found =
        subject_->frame ? frameAt(subject_->document->Root, *subject_->frame) : nullptr;
    return found != nullptr ? *found : table_;
}

FrameRecord& TMaterial::frame() {
    FrameRecord* found =
        subject_->frame ? frameAt(subject_->document->Root, *subject_->frame) : nullptr;
    return found != nullptr ? *found : table_;
}

bool TMaterial::stillCurrent(std::size_t material, std::uint64_t revision) const {
    return subject_ && subject_->document->Revision == revision && currentMaterial() == material;
}

void TMaterial::documentChanged() {
    ++subject_->document->Revision;
    Q_EMIT edited();
}

void TMaterial::showEvent(QShowEvent* event) {
    if (showNeeded_ && subject_) {
        ShowMaterial();
    }
    QDialog::showEvent(event);
}

void TMaterial::hideEvent(QHideEvent* event) {
    OnHide();
    QDialog::hideEvent(event);
}

void TMaterial::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && cancelDrag()) {
        return;
    }
    QDialog::keyPressEvent(event);
}

void TMaterial::ShowMaterial() {
    drag_ = TexCoordDrag();
    fillSlots();
    faces_.setFaces([this] { return subject_ ? &mesh().Faces : nullptr; });
    fillMaterials();
    lockLastMaterial();
    slotsChanged_ = false;
    MaterialRefresh();
    ui_->ComboBox1->setFocus();
}

void TMaterial::fillSlots() {
    QStringList texts;
    for (const std::int32_t material : mesh().MaterialSlotList) {
        texts.push_back(materialText(material));
    }
    ui_->ComboBox1->clear();
    ui_->ComboBox1->addItems(texts);
}

std::vector<bool> TMaterial::usedMaterials() const {
    std::vector<bool> used(subject_->document->Materials.size());
    for (const std::int32_t material : mesh().MaterialSlotList) {
        if (static_cast<std::size_t>(material) < used.size()) {
            used[static_cast<std::size_t>(material)] = true;
        }
    }
    return used;
}

void TMaterial::fillMaterials() {
    const QScopedValueRollback<bool> filling(filling_, true);
    const std::vector<bool> used = usedMaterials();
    ui_->CheckListBox1->clear();
    for (std::size_t i = 0; i < used.size(); ++i) {
        auto* item = new QListWidgetItem(materialText(static_cast<std::int64_t>(i)));
        item->setCheckState(used[i] ? Qt::Checked : Qt::Unchecked);
        ui_->CheckListBox1->addItem(item);
    }
}

void TMaterial::lockLastMaterial() {
    const QScopedValueRollback<bool> filling(filling_, true);
    const std::vector<std::int32_t>& slots = mesh().MaterialSlotList;
    // several slots of one material go with one click
    const bool oneMaterial =
        !slots.empty() && std::count(slots.begin(), slots.end(), slots.front()) ==
                              static_cast<std::ptrdiff_t>(slots.size());
    for (int row = 0; row < ui_->CheckListBox1->count(); ++row) {
        QListWidgetItem* item = ui_->CheckListBox1->item(row);
        const bool locked = oneMaterial && row == slots.front();
        const Qt::ItemFlags flags = item->flags();
        const Qt::ItemFlags wanted =
            locked ? flags & ~Qt::ItemIsEnabled : flags | Qt::ItemIsEnabled;
        if (flags != wanted) {
            item->setFlags(wanted);
        }
    }
}

std::optional<std::size_t> TMaterial::currentMaterial() const {
    if (!subject_) {
        return std::nullopt;
    }
    const auto slot = static_cast<std::size_t>(mesh().CurrentSlot);
    if (slot >= mesh().MaterialSlotList.size()) {
        return std::nullopt;
    }
    const auto material = static_cast<std::size_t>(mesh().MaterialSlotList[slot]);
    return material < subject_->document->Materials.size() ? std::optional(material) : std::nullopt;
}

void TMaterial::MaterialRefresh() {
    ui_->ComboBox1->setCurrentIndex(mesh().CurrentSlot);
    showValues();
    enableControls();
    showNeeded_ = false;
    showTexture();
}

void TMaterial::showValues() {
    const QScopedValueRollback<bool> filling(filling_, true);
    const auto current = currentMaterial();
    const MaterialRecord none;
    const MaterialRecord& material = current ? subject_->document->Materials[*current] : none;
    const auto& [red, green, blue, alpha] = material.FaceColor;
    ui_->ambient->setColor(screenColor(material.Ambient));
    ui_->diffuse->setColor(screenColor({red, green, blue}));
    ui_->specular->setColor(screenColor(material.Specular));
    const std::int32_t position = current ? opacityPosition(alpha) : 0;
    ui_->opacitybar->setValue(position);
    ui_->opacity->setText(QString::number(position));
    ui_->textureCheckBox->setChecked(material.HasTexture || !current);
    pendingOpacity_.start(alpha);
    const std::string power = current ? powerText(material.Power) : std::string();
    ui_->Edit1->setText(QString::fromStdString(power));
    pendingShininess_.start(power, material.Power);
}

void TMaterial::enableControls() {
    const bool anyMaterial = !subject_->document->Materials.empty();
    const bool current = currentMaterial().has_value();
    for (QWidget* widget :
         {static_cast<QWidget*>(ui_->ambient), static_cast<QWidget*>(ui_->diffuse),
          static_cast<QWidget*>(ui_->specular), static_cast<QWidget*>(ui_->opacitybar),
          static_cast<QWidget*>(ui_->Edit1), static_cast<QWidget*>(ui_->textureCheckBox)}) {
        widget->setEnabled(current);
    }
    for (QAction* action :
         {ui_->mopen, ui_->ambientchng, ui_->diffusechng, ui_->specularchng, ui_->emissivechng}) {
        action->setEnabled(current);
    }
    ui_->ComboBox1->setEnabled(anyMaterial && ui_->ComboBox1->count() > 0);
    ui_->CheckListBox1->setEnabled(anyMaterial && subject_->frame.has_value());
    for (QWidget* widget :
         {static_cast<QWidget*>(ui_->TreeView1), static_cast<QWidget*>(ui_->texname),
          static_cast<QWidget*>(ui_->ZoomInButton), static_cast<QWidget*>(ui_->ZoomOutButton),
          static_cast<QWidget*>(ui_->RedrawButton), static_cast<QWidget*>(ui_->Panel1),
          static_cast<QWidget*>(ui_->Panel2)}) {
        widget->setEnabled(anyMaterial);
    }
}

void TMaterial::commitPendingOpacity() {
    if (const auto material = currentMaterial()) {
        pendingOpacity_.commit(*subject_->history, *subject_->document, *material);
    }
}

void TMaterial::commitPendingShininess() {
    if (const auto material = currentMaterial()) {
        pendingShininess_.commit(*subject_->history, *subject_->document, *material,
                                 ui_->Edit1->text().toStdString());
    }
}

void TMaterial::commitPending() {
    cancelDrag();
    commitPendingOpacity();
    commitPendingShininess();
}

void TMaterial::AmbientChange() {
    changeColor(*ui_->ambient, &EditHistory::ambient);
}

void TMaterial::DiffuseChange() {
    changeColor(*ui_->diffuse, &EditHistory::faceColor);
}

void TMaterial::SpecularChange() {
    changeColor(*ui_->specular, &EditHistory::specular);
}

// The emissive colour is deliberately not edited here, though there is an action for it.
void TMaterial::EmissiveChange() {}

void TMaterial::changeColor(ColorSwatch& swatch,
                            void (EditHistory::*record)(ModelDocument&, std::size_t,
                                                        const ColorRGB&)) {
    commitPending();
    const auto material = currentMaterial();
    if (!material) {
        return;
    }
    const std::uint64_t revision = subject_->document->Revision;
    if (swatch.choose() && stillCurrent(*material, revision)) {
        (subject_->history->*record)(*subject_->document, *material,
                                     modelColor(channelsOf(swatch.color())));
        Q_EMIT edited();
    }
}

void TMaterial::OpacityChange() {
    const auto material = currentMaterial();
    if (filling_ || !material) {
        return;
    }
    cancelDrag();
    commitPendingShininess();
    const int position = ui_->opacitybar->value();
    subject_->document->Materials[*material].FaceColor.alpha = opacityAt(position);
    ui_->opacity->setText(QString::number(position));
    pendingOpacity_.change();
    documentChanged();
}

void TMaterial::ShininessChange() {
    const auto material = currentMaterial();
    if (filling_ || !material) {
        return;
    }
    cancelDrag();
    commitPendingOpacity();
    pendingShininess_.change();
    if (const auto power = powerOf(ui_->Edit1->text().toStdString())) {
        subject_->document->Materials[*material].Power = *power;
        documentChanged();
    } else {
        refuseShininess();
    }
}

void TMaterial::refuseShininess() {
    showMessageBox(this, QStringLiteral("ConversionError"), QMessageBox::Warning,
                   QStringLiteral("Conversion Error"), QStringLiteral("Please type a number >= 0"));
}

void TMaterial::ComboBoxChange() {
    commitPending();
    const int slot = ui_->ComboBox1->currentIndex();
    if (!subject_ || slot < 0) {
        return;
    }
    if (const auto part = selectedPart(); part && subject_->frame) {
        subject_->history->faceSlot(*subject_->document, *subject_->frame,
                                    static_cast<std::int32_t>(part->face), slot);
        Q_EMIT edited();
    }
    mesh().CurrentSlot = slot;
    MaterialRefresh();
}

void TMaterial::CheckListBoxClicked() {
    if (filling_ || !subject_ || !subject_->frame) {
        return;
    }
    commitPending();
    const std::vector<bool> used = usedMaterials();
    bool changed = false;
    for (std::size_t material = 0; material < used.size(); ++material) {
        const QListWidgetItem* item = ui_->CheckListBox1->item(static_cast<int>(material));
        const bool wanted = item != nullptr && item->checkState() == Qt::Checked;
        if (wanted != used[material]) {
            changed = true;
            if (wanted) {
                appendSlot(material);
            } else {
                removeSlots(material);
            }
        }
    }
    lockLastMaterial();
    fillSlots();
    MaterialRefresh();
    slotsChanged_ = slotsChanged_ || changed;
    if (changed) {
        Q_EMIT edited();
    }
}

void TMaterial::appendSlot(std::size_t material) {
    subject_->history->appendSlot(*subject_->document, *subject_->frame,
                                  static_cast<std::int32_t>(material));
}

void TMaterial::removeSlots(std::size_t material) {
    const std::vector<std::int32_t>& slots = mesh().MaterialSlotList;
    for (std::size_t slot = 0; slot < slots.size();) {
        if (static_cast<std::size_t>(slots[slot]) != material) {
            ++slot;
            continue;
        }
        subject_->history->removeSlot(*subject_->document, *subject_->frame,
                                      static_cast<std::int32_t>(slot));
        // the current slot moves as the slots of the faces do
        std::int32_t& current = mesh().CurrentSlot;
        current -= current >= static_cast<std::int32_t>(slot) && current != 0 ? 1 : 0;
    }
}

void TMaterial::Ok_ButtonClick() {
    commitPending();
    accept();
}

void TMaterial::OnHide() {
    commitPending();
}

} // namespace korvane
