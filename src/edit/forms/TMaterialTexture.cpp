// The texture view of the material editor.

#include "app/widgets/DevicePixels.h"
#include "app/widgets/DragFilter.h"
#include "app/widgets/ElidedLabel.h"
#include "app/widgets/ModalCall.h"
#include "app/widgets/WidgetText.h"
#include "edit/forms/TMaterial.h"
#include "edit/forms/TOKBottomDlg.h"
#include "edit/materials/TextureViewText.h"
#include "model/records/ModelText.h"
#include "ui_TMaterial.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

namespace korvane {

namespace {

/// A text of a face with so many corners that nobody reads them all still has to fit into memory
/// and time as a line of the status bar.
QString statusText(const std::string& text) {
    constexpr std::size_t longest = 4096;
    const QString shown = QString::fromStdString(text.substr(0, longest));
    return text.size() > longest ? shown + QChar(0x2026) : shown;
}

constexpr int textMargin = 16; ///< in pixels, of a line of text in the view or over it

/// The text with its middle left out as far as it has no room, in pixels, in the widget's font.
QString elided(const QWidget& widget, const QString& text, int room) {
    return widget.fontMetrics().elidedText(text, Qt::ElideMiddle, room);
}

void setUpBar(QScrollBar& bar, const std::optional<std::int32_t>& range, std::int32_t page,
              std::int32_t position) {
    const QSignalBlocker blocked(bar);
    bar.setVisible(range.has_value());
    bar.setRange(0, range.value_or(0));
    bar.setPageStep(page);
    bar.setValue(position);
}

} // namespace

void TMaterial::connectTextureControls() {
    const std::pair<QPushButton*, void (TMaterial::*)()> buttons[] = {
        {ui_->ZoomInButton, &TMaterial::FormZoomIn},
        {ui_->ZoomOutButton, &TMaterial::FormZoomOut},
        {ui_->RedrawButton, &TMaterial::BMPRefresh}};
    for (const auto& [button, handler] : buttons) {
        connect(button, &QPushButton::clicked, this, handler);
    }
    connect(ui_->HorizontalBar, &QScrollBar::valueChanged, this, &TMaterial::HorizontalChange);
    connect(ui_->VerticalBar, &QScrollBar::valueChanged, this, &TMaterial::VerticalChange);
    connect(ui_->TreeView1->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &TMaterial::VertChange);
    connect(ui_->TreeView1, &QTreeView::clicked, this, &TMaterial::VertChange1);
    ui_->Panel1->setColor(QColor::fromRgb(colors_.selected));
    ui_->Panel2->setColor(QColor::fromRgb(colors_.inactive));
    mouse_ = std::make_unique<DragFilter>(
        *ui_->Image1,
        DragFilter::Handlers{.press = [this](const DragInput& input) { FormMouseDown(input); },
                             .move = [this](const DragInput& input) { FormMouseMove(input); },
                             .release = [this](const DragInput& input) { FormMouseUp(input); },
                             .cancel = [this] { return cancelDrag(); }});
    ui_->ComboBox1->installEventFilter(this);
}

void TMaterial::showTexture() {
    const auto current = currentMaterial();
    const MaterialRecord none;
    const MaterialRecord& material = current ? subject_->document->Materials[*current] : none;
    texture_ = material.TextureImage;
    view_.setTextureSize(texture_->width, texture_->height);
    showTextureName();
    const QSize size = current ? QSize(texture_->width, texture_->height) : QSize(0, 0);
    ui_->size->setText(sizeText(size));
    showPicture();
    DrawTexTri();
}

void TMaterial::showTextureName() {
    const auto current = currentMaterial();
    const std::string file =
        current ? subject_->document->Materials[*current].TextureFile : std::string();
    const QString title = QStringLiteral("Texture - [ %1 ]");
    const int taken = ui_->texname->fontMetrics().horizontalAdvance(title.arg(QString()));
    const QString name = elided(*ui_->texname, withoutFolder(file),
                                ui_->texname->minimumWidth() - taken - textMargin);
    ui_->texname->setTitle(title.arg(captionOf(name)));
    ui_->texname->setToolTip(toolTipOf(shownText(file)));
}

void TMaterial::showPicture() {
    const auto current = currentMaterial();
    QString message;
    bool on = true;
    if (current) {
        const MaterialRecord& material = subject_->document->Materials[*current];
        on = material.HasTexture;
        message = textureViewText(material, QFileInfo(subject_->document->FileName).path(),
                                  elided(*ui_->TextureMessage, withoutFolder(material.TextureFile),
                                         ui_->Image1->minimumWidth() - textMargin));
    }
    ui_->TextureMessage->setText(message);
    ui_->TextureMessage->setVisible(!message.isEmpty());
    ui_->Image1->setVisible(on);
    scrollcheck();
}

void TMaterial::TextureStatusChange() {
    commitPending();
    const auto material = currentMaterial();
    if (!material) {
        return;
    }
    const MaterialRecord& record = subject_->document->Materials[*material];
    const bool on = ui_->textureCheckBox->isChecked();
    if (record.HasTexture != on) {
        subject_->history->textureOn(*subject_->document, *material, on);
        Q_EMIT edited();
    }
    showPicture();
}

void TMaterial::mopen1execute() {
    commitPending();
    const auto material = currentMaterial();
    if (!material || textureDialog_ == nullptr) {
        return;
    }
    textureDialog_->reset(QFileInfo(subject_->document->FileName).path());
    const std::uint64_t revision = subject_->document->Revision;
    if (execModal(*textureDialog_) != Accepted || textureDialog_->loadedImage() == nullptr ||
        !stillCurrent(*material, revision)) {
        return;
    }
    const QString name = QDir::toNativeSeparators(textureDialog_->fileName());
    subject_->history->textureFile(*subject_->document, *material, modelText(name),
                                   textureDialog_->loadedImage());
    showTexture();
    Q_EMIT edited();
}

void TMaterial::FormZoomIn() {
    commitPending();
    if (view_.zoomIn()) {
        zoomChanged();
    }
}

void TMaterial::FormZoomOut() {
    commitPending();
    if (view_.zoomOut()) {
        zoomChanged();
    }
}

void TMaterial::zoomChanged() {
    ui_->ZoomLabel->setText(QStringLiteral("x%1").arg(view_.zoom()));
    scrollcheck();
    DrawTexTri();
}

void TMaterial::scrollcheck() {
    const QSize size = sizeInPixels(*ui_->Image1);
    view_.setViewSize(size.width(), size.height());
    const ScrollRanges needed = view_.scrollcheck();
    const ScrollRanges ranges = ui_->TextureMessage->isHidden() ? needed : ScrollRanges();
    setUpBar(*ui_->HorizontalBar, ranges.horizontal, size.width() / view_.zoom(), view_.offsetX());
    setUpBar(*ui_->VerticalBar, ranges.vertical, size.height() / view_.zoom(), view_.offsetY());
    ui_->CornerPanel->setVisible(ranges.horizontal && ranges.vertical);
}

void TMaterial::HorizontalChange() {
    offsetChanged();
}

void TMaterial::VerticalChange() {
    offsetChanged();
}

void TMaterial::offsetChanged() {
    commitPending();
    view_.setOffsets(ui_->HorizontalBar->value(), ui_->VerticalBar->value());
    DrawTexTri();
}

std::optional<FacePart> TMaterial::selectedPart() const {
    const QModelIndexList selected = ui_->TreeView1->selectionModel()->selectedIndexes();
    return FaceTreeModel::partOf(selected.value(0));
}

void TMaterial::DrawTexTri() {
    if (!subject_ || texture_ == nullptr) {
        return;
    }
    const auto part = selectedPart();
    colors_.background = palette().color(QPalette::Dark).rgb();
    view_.draw(picture_, *texture_, mesh(), part, colors_);
    ui_->Image1->showPicture(imageOf(picture_));
    if (part && mesh().HasTexCoords) {
        const TexCoordTexts texts = view_.texts(mesh(), part->face);
        statusPanels_[0]->setText(statusText(texts.x));
        statusPanels_[1]->setText(statusText(texts.y));
    } else {
        statusPanels_[0]->setText(QStringLiteral("X:"));
        statusPanels_[1]->setText(QStringLiteral("Y:"));
    }
}

bool TMaterial::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui_->ComboBox1 && event->type() == QEvent::Wheel) {
        return true; // rolling past it must not give the face another material
    }
    return QDialog::eventFilter(watched, event);
}

void TMaterial::FormMouseDown(const DragInput& input) {
    // a frame outside the model has nothing that a history could refer to
    if (input.button != DragButton::Left || !subject_ || !subject_->frame || !mesh().HasTexCoords) {
        return;
    }
    commitPending();
    if (const auto part = selectedPart()) {
        subject_->document->DragRunning = drag_.begin(input, view_, mesh(), *part);
    }
}

void TMaterial::FormMouseMove(const DragInput& input) {
    if (drag_.active()) {
        MaterialPTMove(input);
    }
}

void TMaterial::FormMouseUp(const DragInput& input) {
    if (!drag_.active() || input.button != DragButton::Left) {
        return;
    }
    MovedTexCoords moved = drag_.end(input, view_, mesh());
    subject_->document->DragRunning = false;
    subject_->history->texCoords(*subject_->document, *subject_->frame, moved.numbers,
                                 std::move(moved.before), std::move(moved.after));
    texCoordsChanged();
}

void TMaterial::MaterialPTMove(const DragInput& input) {
    drag_.update(input, view_, mesh());
    texCoordsChanged();
}

void TMaterial::texCoordsChanged() {
    mesh().ListRevision.surfaceChanged();
    DrawTexTri();
    documentChanged();
}

bool TMaterial::cancelDrag() {
    if (!subject_ || !drag_.cancel(mesh())) {
        return false;
    }
    subject_->document->DragRunning = false;
    texCoordsChanged();
    return true;
}

void TMaterial::SelectedTriChange() {
    commitPending();
    if (ui_->Panel1->choose()) {
        colors_.selected = ui_->Panel1->color().rgb();
        DrawTexTri();
    }
}

void TMaterial::TriInactiveChange() {
    commitPending();
    if (ui_->Panel2->choose()) {
        colors_.inactive = ui_->Panel2->color().rgb();
        DrawTexTri();
    }
}

void TMaterial::VertChange() {
    commitPending();
    DrawTexTri();
}

void TMaterial::VertChange1() {
    VertChange();
}

void TMaterial::BMPRefresh() {
    commitPending();
    scrollcheck();
    DrawTexTri();
}

void TMaterial::DeleteBMP() {
    texture_.reset();
    picture_ = Bitmap();
    ui_->Image1->showPicture({});
}

} // namespace korvane
