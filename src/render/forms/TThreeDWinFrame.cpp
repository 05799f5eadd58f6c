#include "render/forms/TThreeDWinFrame.h"

#include "app/widgets/DevicePixels.h"
#include "app/widgets/DragFilter.h"
#include "app/widgets/MessageBox.h"
#include "app/widgets/PictureLabel.h"
#include "render/forms/TGlPanel.h"
#include "render/gl/GlContext.h"
#include "render/scene/NothingShown.h"
#include "render/scene/StartCamera.h"
#include "ui_TThreeDWinFrame.h"

#include <QApplication>

#include <utility>

namespace korvane {

TThreeDWinFrame::TThreeDWinFrame(QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::TThreeDWinFrame>()) {
    ui_->setupUi(this);
    ui_->ReasonLabel->hide();
    // clicked or tabbed to: Escape has to arrive here while a drag runs
    setFocusPolicy(Qt::StrongFocus);
    mouse_ = std::make_unique<DragFilter>(
        *this, DragFilter::Handlers{
                   .press = [this](const DragInput& input) { mouseDown(input); },
                   .move = [this](const DragInput& input) { mouseMove(input); },
                   .release = [this](const DragInput& input) { mouseUp(input); },
                   .cancel = [this] { return cancelDrag(); },
                   .wheel = [this](const DragInput& /*place*/, float notches) { zoom(notches); }});
    // queued: whoever asked for the drawing cannot wait for the user
    connect(
        this, &TThreeDWinFrame::contextFailed, this, [this] { showFailure(GlProbe::NoContext); },
        Qt::QueuedConnection);
}

TThreeDWinFrame::~TThreeDWinFrame() {
    delete panel_; // before the settings that it refers to
}

void TThreeDWinFrame::setDocument(ModelDocument* document) {
    cancelDrag();
    releaseContext();
    document_ = document;
}

void TThreeDWinFrame::setUpView() {
    releaseContext();
    if (state_.api != DrawApi::OpenGL || document_ == nullptr) {
        return;
    }
    if (const GlProbe probe = probeContext(); probe != GlProbe::Works) {
        showFailure(probe);
        return;
    }
    panel_ = new TGlPanel(*document_, state_, this);
    ui_->Image1->hide();
    ui_->ThreeDWinLayout->addWidget(panel_);
    panel_->show();
}

void TThreeDWinFrame::releaseContext() {
    if (panel_ != nullptr) {
        delete std::exchange(panel_, nullptr);
        ui_->Image1->show();
    }
}

void TThreeDWinFrame::showFailure(GlProbe probe) {
    showMessageBox(this, QStringLiteral("GlFailure"), QMessageBox::Critical,
                   QApplication::applicationName(),
                   probe == GlProbe::NotCurrent ? QStringLiteral("Could not MakeCurrent")
                                                : QStringLiteral(":-)~ hrc == NULL"));
}

void TThreeDWinFrame::redraw() {
    if (document_ == nullptr || !isVisible()) {
        return; // drawn when shown
    }
    const QSize size = sizeInPixels(*this);
    geometry_ = ViewGeometry(size.width(), size.height());
    if (cameraPending_ && !size.isEmpty()) {
        cameraPending_ = false;
        startCamera(*document_, state_, geometry_);
    }
    if (panel_ != nullptr && panel_->failed()) {
        // the driver took back what the probe was promised
        releaseContext();
        Q_EMIT contextFailed();
    }
    showReason();
    if (panel_ != nullptr) {
        panel_->redraw();
        return;
    }
    if (size != QSize(view_.bitmap().width(), view_.bitmap().height())) {
        view_.resize(size.width(), size.height());
    }
    view_.redraw(*document_, state_);
    ui_->Image1->showPicture(imageOf(view_.bitmap()));
}

void TThreeDWinFrame::showReason() {
    const QString reason = whyNothingShows(*document_, state_);
    QLabel& label = *ui_->ReasonLabel;
    label.setVisible(!reason.isEmpty());
    if (label.isHidden()) {
        return;
    }
    label.setText(reason);
    layOver(label);
    setInkFor(label, state_.colors.background);
    label.raise(); // whatever has drawn the picture
}

void TThreeDWinFrame::FrameResize() {
    redraw();
}

void TThreeDWinFrame::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    FrameResize();
}

void TThreeDWinFrame::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    redraw();
}

void TThreeDWinFrame::mouseDown(const DragInput& input) {
    if (document_ != nullptr) {
        drag_.begin(input, state_.angles, document_->CameraDistance);
    }
}

void TThreeDWinFrame::mouseMove(const DragInput& input) {
    if (document_ != nullptr &&
        drag_.update(input, geometry_, state_.angles, document_->CameraDistance)) {
        redraw();
    }
}

void TThreeDWinFrame::mouseUp(const DragInput& input) {
    if (document_ != nullptr &&
        drag_.end(input, geometry_, state_.angles, document_->CameraDistance)) {
        redraw();
    }
}

bool TThreeDWinFrame::cancelDrag() {
    if (document_ == nullptr || !drag_.cancel(state_.angles, document_->CameraDistance)) {
        return false;
    }
    redraw();
    return true;
}

void TThreeDWinFrame::zoom(float notches) {
    if (document_ == nullptr || drag_.active() || notches == 0.0F) {
        return;
    }
    document_->CameraDistance = wheelDistance(document_->CameraDistance, notches);
    redraw();
}

} // namespace korvane
