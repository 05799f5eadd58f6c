#include "render/forms/TThreeDWinFrame.h"

#include "app/widgets/DevicePixels.h"
#include "app/widgets/DragFilter.h"
#include "app/widgets/MessageBox.h"
#include "app/widgets/PictureLabel.h"
#include "render/forms/TGlPanel.h"
#include "render/gl/GlContext.h"
#include "render/scene/NothingShown.h"
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
    setUpMouse();
    // queued: whoever asked for the drawing cannot wait for the user
    connect(
        this, &TThreeDWinFrame::contextFailed, this, [this] { showFailure(GlProbe::NoContext); },
        Qt::QueuedConnection);
}

void TThreeDWinFrame::setUpMouse() {
    const auto with = [this](auto operation) {
        return [this, operation](const DragInput& input) {
            if (session_ != nullptr) {
                apply(operation(*session_, input));
            }
        };
    };
    using Session = DocumentSession;
    mouse_ = std::make_unique<DragFilter>(
        *this,
        DragFilter::Handlers{.press = with([](Session& session, const DragInput& input) {
                                 return session.pressOrbit(input);
                             }),
                             .move = with([this](Session& session, const DragInput& input) {
                                 return session.moveOrbit(input, geometry_);
                             }),
                             .release = with([this](Session& session, const DragInput& input) {
                                 return session.releaseOrbit(input, geometry_);
                             }),
                             .cancel = [this] { return cancelDrag(); },
                             .wheel =
                                 [this](const DragInput& /*place*/, float notches) {
                                     if (session_ != nullptr) {
                                         apply(session_->wheelOrbit(notches));
                                     }
                                 }});
}

TThreeDWinFrame::~TThreeDWinFrame() {
    delete panel_; // it refers to the document
}

void TThreeDWinFrame::setSession(DocumentSession* session) {
    cancelDrag();
    releaseContext();
    session_ = session;
}

void TThreeDWinFrame::setUpView() {
    releaseContext();
    if (session_ == nullptr || session_->view().api != DrawApi::OpenGL) {
        return;
    }
    if (const GlProbe probe = probeContext(); probe != GlProbe::Works) {
        showFailure(probe);
        return;
    }
    panel_ = new TGlPanel(session_->model(), session_->view(), this);
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
    if (session_ == nullptr || !isVisible()) {
        return; // drawn when shown
    }
    const QSize size = sizeInPixels(*this);
    geometry_ = ViewGeometry(size.width(), size.height());
    if (!size.isEmpty()) {
        session_->placeCamera(geometry_);
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
    view_.redraw(session_->model(), session_->view());
    ui_->Image1->showPicture(imageOf(view_.bitmap()));
}

void TThreeDWinFrame::showReason() {
    const QString reason = whyNothingShows(session_->model(), session_->view());
    QLabel& label = *ui_->ReasonLabel;
    label.setVisible(!reason.isEmpty());
    if (label.isHidden()) {
        return;
    }
    label.setText(reason);
    layOver(label);
    setInkFor(label, session_->view().colors.background);
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

void TThreeDWinFrame::apply(const Changes& changes) {
    if (changes.space()) {
        redraw();
    }
}

bool TThreeDWinFrame::cancelDrag() {
    if (session_ == nullptr || !session_->draggingOrbit()) {
        return false;
    }
    apply(session_->cancelOrbit());
    return true;
}

} // namespace korvane
