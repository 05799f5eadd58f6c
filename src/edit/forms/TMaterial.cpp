#include "edit/forms/TMaterial.h"

#include "app/widgets/DialogStart.h"
#include "app/widgets/Hints.h"
#include "app/widgets/MenuLetters.h"
#include "app/widgets/MessageBox.h"
#include "app/widgets/ModalCall.h"
#include "edit/forms/TOKBottomDlg.h"
#include "edit/forms/TTextureView.h"
#include "edit/materials/MaterialValues.h"
#include "model/records/ModelText.h"
#include "ui_TMaterial.h"

#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScopeGuard>
#include <QScopedValueRollback>

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
    setHints(*this);
    setWindowFlag(Qt::MSWindowsFixedSizeDialogHint);
    setUpLook();
    texture_ = std::make_unique<TTextureView>(*ui_, faces_, *this);
    connect(texture_.get(), &TTextureView::edited, this, &TMaterial::emitChanges);
    connectControls();
}

TMaterial::~TMaterial() {
    texture_.reset();
    ui_->TreeView1->setModel(nullptr); // the tree view outlives the model
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

    ui_->opacity->setMinimumWidth(
        ui_->opacity->fontMetrics().horizontalAdvance(QString::number(lastOpacityPosition)));
    ui_->TreeView1->setModel(&faces_);
}

void TMaterial::connectControls() {
    const std::pair<ColorSwatch*, void (TMaterial::*)()> swatches[] = {
        {ui_->ambient, &TMaterial::AmbientChange},
        {ui_->diffuse, &TMaterial::DiffuseChange},
        {ui_->specular, &TMaterial::SpecularChange}};
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
    // activated, even for the current item: the selected face may have another material
    connect(ui_->ComboBox1, &QComboBox::activated, this, &TMaterial::ComboBoxChange);
    connect(ui_->CheckListBox1, &QListWidget::itemChanged, this, &TMaterial::CheckListBoxClicked);
    connect(ui_->textureCheckBox, &QCheckBox::clicked, this, &TMaterial::TextureStatusChange);
    connect(ui_->Button2, &QPushButton::clicked, this, &TMaterial::Ok_ButtonClick);
    ui_->ComboBox1->installEventFilter(this);
}

void TMaterial::edit(MaterialEditing& materials) {
    const auto close = qScopeGuard([this] {
        faces_.setFaces({});
        texture_->close();
        materials_ = nullptr;
    });
    materials_ = &materials;
    showNeeded_ = true;
    fitToScreen(*this, *ui_->ScrollBox1);
    centreOnScreen(*this);
    execModal(*this);
}

void TMaterial::emitChanges(const Changes& changes) {
    if (changes != Changes()) {
        Q_EMIT edited(changes);
    }
}

void TMaterial::showEvent(QShowEvent* event) {
    if (showNeeded_ && materials_ != nullptr) {
        ShowMaterial();
    }
    QDialog::showEvent(event);
}

void TMaterial::hideEvent(QHideEvent* event) {
    OnHide();
    QDialog::hideEvent(event);
}

void TMaterial::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && texture_->cancelDrag()) {
        return;
    }
    if (ui_->Edit1->hasFocus() &&
        (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        commitPending(); // Enter ends the typing, not the dialog
        ui_->Edit1->selectAll();
        return;
    }
    QDialog::keyPressEvent(event);
}

bool TMaterial::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui_->ComboBox1 && event->type() == QEvent::Wheel) {
        return true; // scrolling past it must not change the material of a face
    }
    return QDialog::eventFilter(watched, event);
}

void TMaterial::ShowMaterial() {
    texture_->open(*materials_);
    fillSlots();
    texture_->showFaces();
    fillMaterials();
    lockLastMaterial();
    MaterialRefresh();
    ui_->ComboBox1->setFocus();
}

void TMaterial::fillSlots() {
    QStringList texts;
    for (const std::int32_t material : materials_->slots()) {
        texts.push_back(materialText(material));
    }
    ui_->ComboBox1->clear();
    ui_->ComboBox1->addItems(texts);
}

void TMaterial::fillMaterials() {
    const QScopedValueRollback<bool> filling(filling_, true);
    const std::vector<bool> used = materials_->usedMaterials();
    ui_->CheckListBox1->clear();
    for (std::size_t i = 0; i < used.size(); ++i) {
        auto* item = new QListWidgetItem(materialText(static_cast<std::int64_t>(i)));
        item->setCheckState(used[i] ? Qt::Checked : Qt::Unchecked);
        ui_->CheckListBox1->addItem(item);
    }
}

void TMaterial::lockLastMaterial() {
    const QScopedValueRollback<bool> filling(filling_, true);
    const std::optional<std::int32_t> only = materials_->onlyMaterial();
    for (int row = 0; row < ui_->CheckListBox1->count(); ++row) {
        QListWidgetItem* item = ui_->CheckListBox1->item(row);
        const Qt::ItemFlags flags = item->flags();
        const Qt::ItemFlags wanted =
            only == row ? flags & ~Qt::ItemIsEnabled : flags | Qt::ItemIsEnabled;
        if (flags != wanted) {
            item->setFlags(wanted);
        }
    }
}

void TMaterial::MaterialRefresh() {
    ui_->ComboBox1->setCurrentIndex(materials_->currentSlot());
    showValues();
    enableControls();
    if (ui_->OnlyMaterialBox->isChecked()) {
        texture_->showFaces();
    }
    showNeeded_ = false;
    texture_->showTexture();
}

void TMaterial::showValues() {
    const QScopedValueRollback<bool> filling(filling_, true);
    const bool current = materials_->currentMaterial().has_value();
    const MaterialRecord& material = materials_->material();
    const auto& [red, green, blue, alpha] = material.FaceColor;
    ui_->ambient->setColor(screenColor(material.Ambient));
    ui_->diffuse->setColor(screenColor({red, green, blue}));
    ui_->specular->setColor(screenColor(material.Specular));
    const std::int32_t position = current ? opacityPosition(alpha) : 0;
    ui_->opacitybar->setValue(position);
    ui_->opacity->setText(QString::number(position));
    ui_->textureCheckBox->setChecked(material.HasTexture || !current);
    ui_->Edit1->setText(QString::fromStdString(materials_->shininess()));
}

void TMaterial::enableControls() {
    const bool anyMaterial = !materials_->model().Materials.empty();
    const bool current = materials_->currentMaterial().has_value();
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
    ui_->CheckListBox1->setEnabled(anyMaterial && materials_->ofMesh());
    for (QWidget* widget :
         {static_cast<QWidget*>(ui_->TreeView1), static_cast<QWidget*>(ui_->texname),
          static_cast<QWidget*>(ui_->OnlyMaterialBox), static_cast<QWidget*>(ui_->ZoomInButton),
          static_cast<QWidget*>(ui_->ZoomOutButton), static_cast<QWidget*>(ui_->RedrawButton),
          static_cast<QWidget*>(ui_->Panel1), static_cast<QWidget*>(ui_->Panel2)}) {
        widget->setEnabled(anyMaterial);
    }
}

void TMaterial::commitPending() {
    texture_->commitPending();
}

void TMaterial::AmbientChange() {
    changeColor(*ui_->ambient, MaterialColor::Ambient);
}

void TMaterial::DiffuseChange() {
    changeColor(*ui_->diffuse, MaterialColor::Diffuse);
}

void TMaterial::SpecularChange() {
    changeColor(*ui_->specular, MaterialColor::Specular);
}

// The action for the emissive colour deliberately does nothing.
void TMaterial::EmissiveChange() {}

void TMaterial::changeColor(ColorSwatch& swatch, MaterialColor color) {
    commitPending();
    const auto question = materials_ != nullptr ? materials_->ask() : std::nullopt;
    if (question && swatch.choose() && materials_ != nullptr) {
        emitChanges(materials_->setColor(*question, color, modelColor(channelsOf(swatch.color()))));
    }
}

void TMaterial::OpacityChange() {
    if (filling_ || materials_ == nullptr) {
        return;
    }
    texture_->cancelDrag();
    emitChanges(materials_->moveOpacity(ui_->opacitybar->value()));
    ui_->opacity->setText(QString::number(ui_->opacitybar->value()));
}

void TMaterial::ShininessChange() {
    if (filling_ || materials_ == nullptr) {
        return;
    }
    texture_->cancelDrag();
    const ShininessOutcome outcome = materials_->typeShininess(ui_->Edit1->text().toStdString());
    emitChanges(outcome.changes);
    if (outcome.refused) {
        refuseShininess();
    }
}

void TMaterial::refuseShininess() {
    showMessageBox(this, QStringLiteral("ConversionError"), QMessageBox::Warning,
                   QStringLiteral("Conversion Error"), QStringLiteral("Please type a number >= 0"));
}

void TMaterial::ComboBoxChange() {
    commitPending();
    if (materials_ != nullptr && ui_->ComboBox1->currentIndex() >= 0) {
        emitChanges(
            materials_->chooseSlot(ui_->ComboBox1->currentIndex(), texture_->selectedPart()));
        MaterialRefresh();
    }
}

void TMaterial::CheckListBoxClicked() {
    if (filling_ || materials_ == nullptr || !materials_->ofMesh()) {
        return;
    }
    commitPending();
    std::vector<bool> wanted(static_cast<std::size_t>(ui_->CheckListBox1->count()));
    for (std::size_t row = 0; row < wanted.size(); ++row) {
        wanted[row] = ui_->CheckListBox1->item(static_cast<int>(row))->checkState() == Qt::Checked;
    }
    const Changes changes = materials_->useMaterials(wanted);
    lockLastMaterial();
    fillSlots();
    MaterialRefresh();
    emitChanges(changes);
}

void TMaterial::TextureStatusChange() {
    commitPending();
    if (materials_ != nullptr) {
        emitChanges(materials_->setTextureOn(ui_->textureCheckBox->isChecked()));
        texture_->showPicture();
    }
}

void TMaterial::mopen1execute() {
    commitPending();
    const auto question = materials_ != nullptr ? materials_->ask() : std::nullopt;
    if (!question || textureDialog_ == nullptr || ModalCall::covers(*this)) {
        return;
    }
    textureDialog_->reset(QFileInfo(materials_->model().FileName).path());
    if (execModal(*textureDialog_) == Accepted && textureDialog_->loadedImage() != nullptr &&
        materials_ != nullptr) {
        const QString name = QDir::toNativeSeparators(textureDialog_->fileName());
        emitChanges(
            materials_->setTexture(*question, modelText(name), textureDialog_->loadedImage()));
        texture_->showTexture();
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
