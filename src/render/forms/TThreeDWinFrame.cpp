#include "render/forms/TThreeDWinFrame.h"

#include "app/widgets/DevicePixels.h"
#include "app/widgets/DragFilter.h"
#include "app/widgets/MessageBox.h"
#include "app/widgets/ModalCall.h"
#include "app/widgets/PictureLabel.h"
#include "render/forms/AxisPainting.h"
#include "render/forms/ViewControls.h"
#include "render/gl/GlOffscreen.h"
#include "render/scene/AxisDirections.h"
#include "render/scene/NothingShown.h"
#include "ui_TThreeDWinFrame.h"

#include <QApplication>

namespace korvane {

TThreeDWinFrame::TThreeDWinFrame(QWidget* parent)
    : PictureWidget(parent), ui_(std::make_unique<Ui::TThreeDWinFrame>()),
      driver_(&GlDriver::standard()) {
    ui_->setupUi(this);
    ui_->Image1->setDrawing([this] { draw(); });
    ui_->Image1->setMarks([this](QPainter& painter) {
        if (session_ != nullptr) {
            paintAxisCross(painter, session_->view().angles, ui_->Image1->picture().size(),
                           QColor::fromRgb(session_->view().colors.background));
        }
    });
    ui_->ReasonLabel->hide();
    // by click as well as by Tab: Escape must arrive here during a drag
    setFocusPolicy(Qt::StrongFocus);
    setUpMouse();
    setUpKeys();
    // queued: a paint cannot show a dialog
    connect(this, &TThreeDWinFrame::contextFailed, this, &TThreeDWinFrame::showFailure,
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
                                 return session.moveOrbit(input, geometry());
                             }),
                             .release = with([this](Session& session, const DragInput& input) {
                                 return session.releaseOrbit(input, geometry());
                             }),
                             .cancel = [this] { return cancelDrag(); },
                             .wheel =
                                 [this](const DragInput& /*place*/, float notches) {
                                     if (session_ != nullptr) {
                                         apply(session_->wheelOrbit(notches));
                                     }
                                 },
                             .pick =
                                 [this](const DragInput& input) {
                                     if (session_ != nullptr) {
                                         Q_EMIT changed(session_->pickSpace(input, geometry()));
                                     }
                                 }});
}

void TThreeDWinFrame::setUpKeys() {
    const auto perform = [this](auto operation) {
        if (session_ != nullptr) {
            Q_EMIT changed(operation(*session_));
        }
    };
    auto* controls = new ViewControls(
        *this, *ui_->Image1,
        {.key =
             [this, perform](ViewKey key) {
                 perform(
                     [&](DocumentSession& session) { return session.keyOrbit(geometry(), key); });
             },
         .leave =
             [this] {
                 if (session_ != nullptr) {
                     session_->endKeys();
                 }
             },
         .pictureName =
             [this] {
                 return session_ != nullptr ? pictureName(session_->model().FileName, u"3d")
                                            : QString();
             },
         .sentence =
             [this] { return session_ != nullptr ? session_->describeSpace() : QString(); }});
    auto* directions = new QMenu(QStringLiteral("Look Along"), ui_->Image1);
    for (const AxisDirection& axis : axisDirections) {
        QAction* action = directions->addAction(QString::fromLatin1(axis.name));
        action->setStatusTip(
            QStringLiteral("Turn the 3D view to look along %1").arg(action->text()));
        connect(action, &QAction::triggered, this, [this, perform, angles = axis.angles] {
            perform([&](DocumentSession& session) { return session.lookAlong(angles); });
            sentenceChanged();
        });
    }
    controls->insert(*directions);
}

TThreeDWinFrame::~TThreeDWinFrame() = default;

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
    gl_ = std::make_unique<GlOffscreen>(*driver_);
    if (const GlStatus status = gl_->status(); status != GlStatus::Works) {
        releaseContext();
        showFailure(status);
    }
}

void TThreeDWinFrame::releaseContext() {
    // the control refers to the memory of either renderer's picture
    ui_->Image1->showPicture({});
    gl_.reset();
    glPicture_ = Bitmap();
    view_ = SoftwareView();
}

void TThreeDWinFrame::showFailure(GlStatus status) {
    if (session_ == nullptr) {
        return; // the window has closed meanwhile
    }
    if (ModalCall::isReturning()) {
        Q_EMIT contextFailed(status); // try later: a box would be rejected unseen now
        return;
    }
    showMessageBox(this, QStringLiteral("GlFailure"), QMessageBox::Critical,
                   QApplication::applicationName(),
                   status == GlStatus::NoContext ? QStringLiteral(":-)~ hrc == NULL")
                                                 : QStringLiteral("Could not MakeCurrent"));
}

ViewGeometry TThreeDWinFrame::geometry() const {
    const QSize size = sizeInPixels(*ui_->Image1);
    return {size.width(), size.height()};
}

void TThreeDWinFrame::redraw() {
    if (session_ == nullptr) {
        return;
    }
    // not in draw(), which is not called while another window covers the view
    if (isVisible() && !size().isEmpty()) {
        session_->placeCamera(geometry());
    }
    showReason();
    ui_->Image1->redraw();
}

void TThreeDWinFrame::draw() {
    if (session_ == nullptr) {
        return;
    }
    const ViewGeometry size = geometry();
    if (!gl_ || !drawByOpenGl(size)) {
        drawBySoftware(size);
    }
}

bool TThreeDWinFrame::drawByOpenGl(const ViewGeometry& geometry) {
    const GlStatus status = gl_->redraw(session_->model(), session_->view(), geometry.width,
                                        geometry.height, glPicture_);
    if (status == GlStatus::Works) {
        ui_->Image1->showPicture(imageOf(glPicture_));
        return true;
    }
    releaseContext();
    Q_EMIT contextFailed(status);
    return false;
}

void TThreeDWinFrame::drawBySoftware(const ViewGeometry& geometry) {
    if (geometry.width != view_.bitmap().width() || geometry.height != view_.bitmap().height()) {
        view_.resize(geometry.width, geometry.height);
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
