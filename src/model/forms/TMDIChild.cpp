#include "model/forms/TMDIChild.h"

#include "app/widgets/DialogStart.h"
#include "app/widgets/DragFilter.h"
#include "app/widgets/Hints.h"
#include "app/widgets/MessageBox.h"
#include "app/widgets/ModalCall.h"
#include "app/widgets/PaletteIcon.h"
#include "app/widgets/PathTitleStyle.h"
#include "app/widgets/SplitterKeys.h"
#include "app/widgets/WidgetText.h"
#include "app/widgets/WindowFocus.h"
#include "edit/session/HeapMemory.h"
#include "formats/files/FileNames.h"
#include "formats/xsi/XsiWriter.h"
#include "model/forms/TReadProgress.h"
#include "model/forms/TStructureView.h"
#include "render/drags/ViewPlaces.h"
#include "render/forms/ViewControls.h"
#include "ui_TMDIChild.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace korvane {

TMDIChild::TMDIChild(const ViewColors& colors, QWidget* parent)
    : QMdiSubWindow(parent), ui_(std::make_unique<Ui::TMDIChild>()), session_(std::in_place) {
    setObjectName(QStringLiteral("MDIChild"));
    setAccessibleName(QStringLiteral("Model window"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* content = new QWidget(this);
    ui_->setupUi(content);
    setWidget(content);
    new SplitterKeys(*ui_->Splitter2);
    setTabOrder(ui_->TwoDVisibleBox, ui_->Splitter2->handle(1));
    setTabOrder(ui_->Splitter2->handle(1), ui_->Image3);
    setHints(*this);
    setWindowTitle(QStringLiteral("MDI Child"));
    setWindowIcon(paletteIcon(QStringLiteral("document")));
    resize(520, 311);
    auto* titleStyle = new PathTitleStyle;
    titleStyle->setParent(this);
    setStyle(titleStyle);

    session_->setColors(colors, {});
    fillPanel(*ui_->Panel1, QColor::fromRgb(colors.background));
    setUpViews();
    setUpTools();
    ui_->ThreeDWin->setSession(session());
    focus_ = new WindowFocus(*this, *ui_->TreeView1);
    clearMessageAtCommands();
    ui_->Panel3->installEventFilter(this);
    ui_->TreeView1->installEventFilter(this);

    structure_ = std::make_unique<TStructureView>(*ui_->TreeView1, session_->tree());
    connect(ui_->TreeView1->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &TMDIChild::ChildSelectedChange);
    setUpButtons();
    setUpStructureMenu();
    fitPages();
    showSelectedButtons();
}

void TMDIChild::clearMessageAtCommands() {
    for (const QAction* action : widget()->findChildren<QAction*>()) {
        connect(action, &QAction::triggered, this, &TMDIChild::clearMessage);
    }
    for (const QPushButton* button :
         {ui_->EditButton, ui_->RenameButton, ui_->DeleteButton, ui_->AddButton}) {
        connect(button, &QPushButton::clicked, this, &TMDIChild::clearMessage);
    }
}

TMDIChild::~TMDIChild() {
    // their owners, the views, outlive the members that they use
    qDeleteAll(findChildren<ViewControls*>());
    ChildDeactivate();
}

void TMDIChild::ChildActivate() {
    ui_->ThreeDWin->setUpView();
}

void TMDIChild::ChildDeactivate() {
    // the 3D view is a child widget and outlives the model; this also frees its context
    ui_->ThreeDWin->setSession(nullptr);
}

void TMDIChild::create(const QString& name) {
    apply(session_->setName(name));
    ChildActivate();
    ui_->TreeView1->setFocus();
    if (isTextModel(modelFileKind(name))) {
        FileOpenXSI(name);
    } else {
        render3d();
    }
}

void TMDIChild::FileOpenXSI(const QString& fileName) {
    OpenOutcome outcome;
    {
        TReadProgress progress(*this, fileName, progressDelay_);
        outcome = session_->open(fileName, [&progress](std::size_t done, std::size_t size) {
            return progress.report(done, size);
        });
    }
    if (outcome.status == ReadStatus::Cancelled) {
        closeUnasked();
        return;
    }
    showModel(outcome.changes);
    showReadFailure(outcome.status, fileName);
}

void TMDIChild::showModel(const Changes& changes) {
    apply(changes);
    ui_->TreeView1->expand(ui_->TreeView1->currentIndex());
}

void TMDIChild::recover(LeftCopy& copy) {
    ChildActivate();
    ui_->TreeView1->setFocus();
    OpenOutcome outcome;
    {
        TReadProgress progress(*this, copy.head.model, progressDelay_);
        outcome = session_->recover(copy, [&progress](std::size_t done, std::size_t size) {
            return progress.report(done, size);
        });
    }
    if (outcome.status == ReadStatus::Done) {
        showModel(outcome.changes);
        return;
    }
    if (outcome.status != ReadStatus::Cancelled) {
        showMessageBox(this, QStringLiteral("RecoveryFailure"), QMessageBox::Critical,
                       QStringLiteral("Unable to open recovery copy"), copy.place.fileName());
    }
    closeUnasked();
}

void TMDIChild::apply(const Changes& changes) {
    if (changes.title) {
        setCaption();
    }
    if (changes.tree || changes.selection) {
        followSelection();
    }
    if (changes.materials) {
        ui_->TreeView1->viewport()->update(); // repaints the samples of their colours
    }
    if (changes.geometry) {
        render3d();
    } else {
        if (changes.space()) {
            ui_->ThreeDWin->redraw();
        }
        if (changes.plane()) {
            drawPlanes();
        }
    }
    if (changes.status) {
        Q_EMIT statusChanged();
    }
}

void TMDIChild::applyStep(const Changes& changes) {
    apply(changes);
    if (changes.selection) {
        structure_->scrollToSelection();
    }
}

void TMDIChild::clearMessage() {
    Q_EMIT commandBegun();
    if (session_) {
        apply(session_->clearMessage());
    }
}

void TMDIChild::FileOpenMSH(const QString& fileName) {
    if (!session_) {
        return;
    }
    const MeshOutcome outcome = session_->openMesh(fileName);
    if (!outcome.result.saveFailed.isEmpty()) {
        showSaveFailure(outcome.result.saveFailed);
    }
    showReadFailure(outcome.result.status, fileName);
    if (session_) {
        apply(outcome.changes);
    }
}

void TMDIChild::showReadFailure(ReadStatus status, const QString& fileName) {
    const QString failure = failureCaption(status, fileName);
    if (!failure.isEmpty()) {
        showMessageBox(this, QStringLiteral("ReadFailure"), QMessageBox::Critical, failure,
                       fileName);
    }
}

void TMDIChild::showSaveFailure(const QString& fileName) {
    showMessageBox(this, QStringLiteral("SaveFailure"), QMessageBox::Critical,
                   QString::fromLatin1(saveFailureCaption), fileName);
}

void TMDIChild::showPasteFailure(const QString& reason) {
    showMessageBox(this, QStringLiteral("PasteFailure"), QMessageBox::Critical,
                   QStringLiteral("Unable to paste"), reason);
}

void TMDIChild::FileSaveExecute() {
    if (!session_) {
        return;
    }
    cancelDrag();
    if (session_->needsName()) {
        FileSaveAsExecute();
        return;
    }
    showSaved(session_->save());
}

void TMDIChild::showSaved(const SaveOutcome& outcome) {
    apply(outcome.changes);
    if (outcome.result == SaveResult::Failed) {
        showSaveFailure(session_->model().FileName);
    }
}

bool TMDIChild::completeName(QString& name, const QString& suffix) {
    if (modelFileKind(name) != ModelFileKind::None) {
        return true;
    }
    // the dialog takes anything after a dot for an extension, and has asked about another file
    name += u'.' + suffix;
    return !QFileInfo::exists(name) || replacingAgreed(this, name);
}

void TMDIChild::FileSaveAsExecute() {
    if (!session_) {
        return;
    }
    QFileDialog dialog(this);
    dialog.setObjectName(QStringLiteral("SaveDialog1"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setSizeGripEnabled(true);
    dialog.setDefaultSuffix(QStringLiteral("xsi"));
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
        dialog.setDefaultSuffix(filter.section(u'.', -1).chopped(1));
    });
    dialog.setNameFilters({QStringLiteral("XSI file (*.xsi)"), QStringLiteral("MSH file (*.msh)"),
                           QStringLiteral("X file (*.x)")});
    startIn(dialog, folderOf(session_->model().FileName));
    dialog.selectFile(offeredName(session_->model().FileName));
    QString name;
    do {
        if (execModal(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty() ||
            !session_) {
            return;
        }
        name = dialog.selectedFiles().constFirst();
    } while (!completeName(name, dialog.defaultSuffix()));
    if (session_) {
        showSaved(session_->saveAs(name));
    }
}

bool TMDIChild::FormCanClose() {
    if (!needsCloseQuestion()) {
        return true;
    }
    const QMessageBox::StandardButton answer =
        showMessageBox(this, QStringLiteral("CloseQuestion"), QMessageBox::Question,
                       QStringLiteral("File is not saved.  Save?"), session_->model().FileName,
                       QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (answer == QMessageBox::Yes) {
        FileSaveExecute(); // cancelling its Save As dialog does not keep the window open
    }
    session_->setGivenUp(answer == QMessageBox::No);
    return answer == QMessageBox::Yes || answer == QMessageBox::No;
}

bool TMDIChild::mayEdit() const {
    return session_ && session_->acceptsEdits() && !ModalCall::running();
}

void TMDIChild::closeUnasked() {
    const QScopedValueRollback<bool> agreed(closeAgreed_, true);
    close();
}

void TMDIChild::closeEvent(QCloseEvent* event) {
    // a modal call still uses the model
    if (ModalCall::running() || (!closeAgreed_ && !FormCanClose())) {
        event->ignore();
        return;
    }
    FormClose();
    QMdiSubWindow::closeEvent(event);
}

void TMDIChild::FormClose() {
    cancelDrag();
    if (session_ && session_->endWork().failed) {
        Q_EMIT recoveryCopyFailed(session_->model().FileName);
    }
    ChildDeactivate();
    structure_.reset();
    session_.reset();
    trimHeap();
}

bool TMDIChild::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui_->Panel3 && event->type() == QEvent::Resize) {
        FormResize();
    }
    if (watched == ui_->TreeView1 && event->type() == QEvent::KeyPress &&
        structureKey(dynamic_cast<const QKeyEvent&>(*event))) {
        return true;
    }
    if (watched != ui_->DeleteButton && event->type() == QEvent::KeyPress &&
        toolKey(dynamic_cast<QKeyEvent&>(*event))) {
        return true;
    }
    if (watched == ui_->DeleteButton && event->type() == QEvent::MouseButtonDblClick) {
        focus_->give(*ui_->TreeView1); // the press has taken the focus
        return true; // the second click must not delete what is selected after the first
    }
    if (watched == ui_->TreeView1->viewport() && event->type() == QEvent::MouseButtonDblClick &&
        dynamic_cast<const QMouseEvent&>(*event).button() != Qt::LeftButton) {
        return true; // the tree would report a double click of any button
    }
    return viewEvent(*watched, *event) || QMdiSubWindow::eventFilter(watched, event);
}

void TMDIChild::FormResize() {
    if (!session_) {
        return;
    }
    const bool planes = ui_->TwoDVisibleAction->isChecked();
    const ViewPlaces places = viewPlaces(ui_->Panel3->size(), planes);
    ui_->Panel1->setGeometry(places.space);
    if (planes) { // hidden views keep their places
        ui_->Panel5->setGeometry(places.xz);
        ui_->Panel6->setGeometry(places.xy);
        ui_->Panel7->setGeometry(places.zy);
    }
}

void TMDIChild::setRenderMode(RenderMode mode) {
    if (session_) {
        apply(session_->setRenderMode(mode));
    }
}

void TMDIChild::setViewSetting(bool ViewState::*setting, bool on) {
    if (session_) {
        apply(session_->setViewSetting(setting, on));
    }
}

void TMDIChild::setDrawingInterface(DrawApi api) {
    if (session_) {
        ui_->ThreeDWin->releaseContext();
        const Changes changes = session_->setDrawApi(api);
        ui_->ThreeDWin->setUpView();
        apply(changes);
    }
}

void TMDIChild::setColors(const ViewColors& colors, const PlaneColors& planeColors) {
    if (session_) {
        session_->setColors(colors, planeColors);
        showPlaneColors();
    }
}

void TMDIChild::setCaption() {
    setWindowTitle(titleOf(session_->model().FileName));
}

void TMDIChild::fitPages() {
    // at the designed width, unless the captions are wider in this font
    constexpr int designedWidth = 178;
    constexpr int captionMargin = 10;
    const std::pair<QPushButton*, QString> widest[] = {
        {ui_->EditButton, ui_->EditButton->text()},
        {ui_->RenameButton, ui_->RenameButton->text()},
        {ui_->DeleteButton, ui_->DeleteButton->text()},
        {ui_->AddButton, QStringLiteral("Add Material")}};
    for (const auto& [button, caption] : widest) {
        button->setMinimumWidth(button->fontMetrics().horizontalAdvance(caption) + captionMargin);
    }
    const int width = std::max(designedWidth, ui_->PageControl1->minimumSizeHint().width());
    ui_->PageControl1->setMinimumWidth(width);
    ui_->Splitter2->setSizes({width, 1});
    ui_->Splitter2->setStretchFactor(1, 1);
}

} // namespace korvane
