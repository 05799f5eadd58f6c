#include "edit/forms/TTextureView.h"

#include "app/widgets/ColorSwatch.h"
#include "app/widgets/DevicePixels.h"
#include "app/widgets/DragFilter.h"
#include "app/widgets/ElidedLabel.h"
#include "app/widgets/WidgetText.h"
#include "edit/materials/FaceTreeModel.h"
#include "edit/materials/TextureViewText.h"
#include "edit/session/MaterialEditing.h"
#include "formats/textures/TextureLoader.h"
#include "model/records/ModelText.h"
#include "ui_TMaterial.h"

#include <QFileInfo>
#include <QPainter>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <cmath>
#include <utility>

namespace korvane {

namespace {

constexpr int textMargin = 16; ///< in pixels, beside a line of text in or above the view

void setUpBar(QScrollBar& bar, const std::optional<std::int32_t>& range, std::int32_t page,
              std::int32_t position) {
    const QSignalBlocker blocked(bar);
    bar.setVisible(range.has_value());
    bar.setRange(0, range.value_or(0));
    bar.setPageStep(page);
    bar.setValue(position);
}

} // namespace

TTextureView::TTextureView(Ui::TMaterial& controls, FaceTreeModel& faces, QWidget& dialog)
    : ui_(controls), faces_(faces), dialog_(dialog) {
    setUpLook();
    connectControls();
    setUpMouse();
}

TTextureView::~TTextureView() {
    ui_.Image1->setSentence({}); // it calls back, and lives on
    DeleteBMP();
}

void TTextureView::setUpLook() {
    for (std::size_t i = 0; i < std::size(statusPanels_); ++i) {
        auto* panel = new ElidedLabel(&dialog_); // a face may have many corners
        panel->setObjectName(QStringLiteral("StatusPanel%1").arg(i));
        ui_.StatusBar1->addWidget(panel, 1);
        statusPanels_[i] = panel;
    }
    // neither a long name nor a scroll bar that appears may change the dialog's width
    ui_.texname->setFixedWidth(ui_.texname->sizeHint().width());
    for (QWidget* widget :
         {static_cast<QWidget*>(ui_.HorizontalBar), static_cast<QWidget*>(ui_.VerticalBar),
          static_cast<QWidget*>(ui_.CornerPanel), static_cast<QWidget*>(ui_.Image1)}) {
        QSizePolicy policy = widget->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        widget->setSizePolicy(policy);
    }
    ui_.Panel1->setColor(QColor::fromRgb(colors_.selected));
    ui_.Panel2->setColor(QColor::fromRgb(colors_.inactive));
}

void TTextureView::connectControls() {
    const std::pair<QPushButton*, void (TTextureView::*)()> buttons[] = {
        {ui_.ZoomInButton, &TTextureView::FormZoomIn},
        {ui_.ZoomOutButton, &TTextureView::FormZoomOut},
        {ui_.RedrawButton, &TTextureView::BMPRefresh}};
    for (const auto& [button, handler] : buttons) {
        connect(button, &QPushButton::clicked, this, handler);
    }
    connect(ui_.Panel1, &ColorSwatch::clicked, this, &TTextureView::SelectedTriChange);
    connect(ui_.Panel2, &ColorSwatch::clicked, this, &TTextureView::TriInactiveChange);
    connect(ui_.HorizontalBar, &QScrollBar::valueChanged, this, &TTextureView::HorizontalChange);
    connect(ui_.VerticalBar, &QScrollBar::valueChanged, this, &TTextureView::VerticalChange);
    connect(ui_.TreeView1->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &TTextureView::VertChange);
    connect(ui_.OnlyMaterialBox, &QCheckBox::clicked, this, [this] {
        commitPending();
        if (materials_ != nullptr) {
            showFaces();
            DrawTexTri();
        }
    });
    connect(ui_.TreeView1, &QTreeView::clicked, this, &TTextureView::VertChange1);
}

void TTextureView::setUpMouse() {
    ui_.Image1->setSentence([this] {
        const QString message = ui_.TextureMessage->text(); // in place of a picture
        return materials_ == nullptr || !message.isEmpty()
                   ? message
                   : materials_->textureSentence(selectedPart());
    });
    mouse_ = std::make_unique<DragFilter>(
        *ui_.Image1,
        DragFilter::Handlers{.press = [this](const DragInput& input) { FormMouseDown(input); },
                             .move = [this](const DragInput& input) { FormMouseMove(input); },
                             .release = [this](const DragInput& input) { FormMouseUp(input); },
                             .cancel = [this] { return cancelDrag(); },
                             .wheel = [this](const DragInput& input,
                                             float notches) { wheelTurned(input, notches); }});
}

void TTextureView::open(MaterialEditing& materials) {
    materials_ = &materials;
}

void TTextureView::close() {
    scroll_.reset();
    turned_ = 0.0F;
    DeleteBMP();
    materials_ = nullptr;
}

void TTextureView::commitPending() {
    if (materials_ != nullptr) {
        texCoordsChanged(materials_->commit());
    }
}

void TTextureView::showTexture() {
    texture_ = materials_->material().TextureImage;
    view_.setTextureSize(texture_->width, texture_->height);
    showTextureName();
    const bool current = materials_->currentMaterial().has_value();
    ui_.size->setText(sizeText(current ? QSize(texture_->width, texture_->height) : QSize(0, 0)));
    showPicture();
    DrawTexTri();
}

void TTextureView::showTextureName() {
    const std::string& file = materials_->material().TextureFile;
    const QString title = QStringLiteral("Texture - [ %1 ]");
    const int taken = ui_.texname->fontMetrics().horizontalAdvance(title.arg(QString()));
    const QString name = elidedText(*ui_.texname, withoutFolder(file),
                                    ui_.texname->minimumWidth() - taken - textMargin);
    ui_.texname->setTitle(title.arg(captionOf(name)));
    ui_.texname->setToolTip(toolTipOf(shownText(file)));
    ui_.texname->setAccessibleDescription(shownText(file));
}

void TTextureView::showPicture() {
    const bool current = materials_->currentMaterial().has_value();
    const MaterialRecord& material = materials_->material();
    const auto find = [this](const std::string& name) {
        return TextureLoader(QFileInfo(materials_->model().FileName).path()).find(shownText(name));
    };
    const QString message =
        current
            ? textureViewText(material, find,
                              elidedText(*ui_.TextureMessage, withoutFolder(material.TextureFile),
                                         ui_.Image1->minimumWidth() - textMargin))
            : QString();
    ui_.TextureMessage->setText(message);
    ui_.TextureMessage->setVisible(!message.isEmpty());
    ui_.Image1->setVisible(!current || material.HasTexture);
    scrollcheck();
}

void TTextureView::FormZoomIn() {
    commitPending();
    if (view_.zoomIn()) {
        zoomChanged();
    }
}

void TTextureView::FormZoomOut() {
    commitPending();
    if (view_.zoomOut()) {
        zoomChanged();
    }
}

void TTextureView::zoomChanged() {
    ui_.ZoomLabel->setText(QStringLiteral("x%1").arg(view_.zoom()));
    scrollcheck();
    DrawTexTri();
}

void TTextureView::scrollcheck() {
    const QSize size = sizeInPixels(*ui_.Image1);
    view_.setViewSize(size.width(), size.height());
    ScrollRanges ranges = view_.scrollcheck();
    if (!ui_.TextureMessage->isHidden()) {
        ranges = {};
    }
    setUpBar(*ui_.HorizontalBar, ranges.horizontal, size.width() / view_.zoom(), view_.offsetX());
    setUpBar(*ui_.VerticalBar, ranges.vertical, size.height() / view_.zoom(), view_.offsetY());
    ui_.CornerPanel->setVisible(ranges.horizontal && ranges.vertical);
}

void TTextureView::HorizontalChange() {
    offsetChanged();
}

void TTextureView::VerticalChange() {
    offsetChanged();
}

void TTextureView::offsetChanged() {
    commitPending();
    view_.setOffsets(ui_.HorizontalBar->value(), ui_.VerticalBar->value());
    DrawTexTri();
}

std::optional<FacePart> TTextureView::selectedPart() const {
    const QModelIndexList selected = ui_.TreeView1->selectionModel()->selectedIndexes();
    return faces_.partOf(selected.value(0));
}

void TTextureView::showFaces() {
    const QScopedValueRollback<bool> filling(filling_, true);
    const auto before = selectedPart();
    faces_.setFaces([this] { return materials_ != nullptr ? &materials_->mesh().Faces : nullptr; },
                    ui_.OnlyMaterialBox->isChecked() ? std::optional(materials_->facesOfCurrent())
                                                     : std::nullopt);
    const QModelIndex row = before ? faces_.indexOf(*before) : QModelIndex();
    if (row.isValid()) {
        ui_.TreeView1->setCurrentIndex(row);
    }
}

const QImage& TTextureView::vertexMark(const std::optional<FacePart>& part) {
    mark_ = QImage();
    if (const auto at = view_.selectedVertex(materials_->mesh(), part)) {
        constexpr double radius = 4.0;
        mark_ = QImage(picture_.width(), picture_.height(), QImage::Format_ARGB32_Premultiplied);
        mark_.fill(Qt::transparent);
        QPainter painter(&mark_);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::black);
        painter.setBrush(QColor::fromRgb(colors_.selected));
        painter.drawEllipse(QPointF(double{at->u} + 0.5, double{at->v} + 0.5), radius, radius);
    }
    return mark_;
}

void TTextureView::DrawTexTri() {
    if (materials_ == nullptr || texture_ == nullptr) {
        return;
    }
    const auto part = selectedPart();
    colors_.background = dialog_.palette().color(QPalette::Dark).rgb();
    view_.draw(picture_, *texture_, materials_->mesh(), part, colors_, faces_.only());
    ui_.Image1->showPicture(imageOf(picture_), vertexMark(part));
    ui_.FaceMaterial->setText(materials_->faceText(part));
    const TexCoordTexts texts = view_.texts(materials_->mesh(), part);
    statusPanels_[0]->setText(QString::fromStdString(texts.x));
    statusPanels_[1]->setText(QString::fromStdString(texts.y));
    ui_.Image1->sentenceChanged();
}

void TTextureView::wheelTurned(const DragInput& input, float notches) {
    if (materials_ == nullptr || materials_->dragging() || scroll_) {
        return;
    }
    turned_ = (turned_ < 0) == (notches < 0) ? turned_ + notches : notches;
    if (std::abs(turned_) >= 1.0F) { // some wheels turn by fractions of a notch
        commitPending();
        if (view_.zoomAbout(input.x, input.y, std::exchange(turned_, 0.0F) > 0)) {
            zoomChanged();
        }
    }
}

void TTextureView::FormMouseDown(const DragInput& input) {
    if (input.button == DragButton::Middle && materials_ != nullptr && !materials_->dragging()) {
        scroll_ = Scroll{input, view_.offsetX(), view_.offsetY()};
    } else if (materials_ != nullptr && !scroll_) {
        texCoordsChanged(materials_->beginDrag(input, view_, selectedPart()));
    }
}

void TTextureView::FormMouseMove(const DragInput& input) {
    if (scroll_) {
        const auto moved = [this](float way) { return static_cast<int>(way) / view_.zoom(); };
        // the signals of the bars move the view
        ui_.HorizontalBar->setValue(scroll_->offsetX - moved(input.x - scroll_->from.x));
        ui_.VerticalBar->setValue(scroll_->offsetY - moved(input.y - scroll_->from.y));
    } else if (materials_ != nullptr) {
        MaterialPTMove(input);
    }
}

void TTextureView::FormMouseUp(const DragInput& input) {
    if (input.button == DragButton::Middle) {
        scroll_.reset();
    } else if (materials_ != nullptr) {
        texCoordsChanged(materials_->endDrag(input, view_));
    }
}

void TTextureView::MaterialPTMove(const DragInput& input) {
    texCoordsChanged(materials_->moveDrag(input, view_));
}

void TTextureView::texCoordsChanged(const Changes& changes) {
    if (changes != Changes()) {
        DrawTexTri();
        Q_EMIT edited(changes);
    }
}

bool TTextureView::cancelDrag() {
    if (scroll_) {
        scroll_.reset();
        return true;
    }
    if (materials_ == nullptr || !materials_->dragging()) {
        return false;
    }
    texCoordsChanged(materials_->cancelDrag());
    return true;
}

void TTextureView::SelectedTriChange() {
    commitPending();
    if (ui_.Panel1->choose()) {
        colors_.selected = ui_.Panel1->color().rgb();
        DrawTexTri();
    }
}

void TTextureView::TriInactiveChange() {
    commitPending();
    if (ui_.Panel2->choose()) {
        colors_.inactive = ui_.Panel2->color().rgb();
        DrawTexTri();
    }
}

void TTextureView::VertChange() {
    if (!filling_) {
        commitPending();
        revealSelection();
        DrawTexTri();
    }
}

// A click on the selected row changes no selection, but its face may be out of sight.
void TTextureView::VertChange1() {
    commitPending();
    if (revealSelection()) {
        DrawTexTri();
    }
}

bool TTextureView::revealSelection() {
    const auto part = selectedPart();
    const bool moved = materials_ != nullptr && part && view_.reveal(materials_->mesh(), *part);
    if (moved) {
        scrollcheck();
    }
    return moved;
}

void TTextureView::BMPRefresh() {
    commitPending();
    scrollcheck();
    DrawTexTri();
}

void TTextureView::DeleteBMP() {
    texture_.reset();
    picture_ = Bitmap();
    ui_.Image1->showPicture({});
}

} // namespace korvane
