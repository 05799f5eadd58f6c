#include "app/shell/TMainForm.h"

#include "app/shell/BeginHint.h"
#include "app/shell/EditorForms.h"
#include "app/shell/ToolButtons.h"
#include "app/widgets/DialogStart.h"
#include "app/widgets/MenuLetters.h"
#include "app/widgets/ModalCall.h"
#include "app/widgets/PaletteIcon.h"
#include "formats/files/FileNames.h"
#include "model/document/ModelDocument.h"
#include "model/forms/TMDIChild.h"
#include "ui_TMainForm.h"

#include <QAbstractEventDispatcher>
#include <QAction>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QStatusTipEvent>
#include <QWindow>

#include <algorithm>
#include <exception>
#include <utility>

namespace korvane {

namespace {

/// Returns the model files among the dragged items.
QStringList modelFiles(const QMimeData& dragged) {
    QStringList files;
    for (const QUrl& url : dragged.urls()) {
        const QString file = url.toLocalFile();
        if (modelFileKind(file) != ModelFileKind::None) {
            files.push_back(file);
        }
    }
    return files;
}

} // namespace

TMainForm::TMainForm(EditorForms& forms, QStringList paths)
    : forms_(forms), ui_(std::make_unique<Ui::TMainForm>()), paths_(std::move(paths)),
      statusPanel_(new QLabel(this)), guideKey_(*this) {
    ui_->setupUi(this);
    setCentralWidget(ui_->FrameContent);
    statusPanel_->setObjectName(QStringLiteral("StatusPanel"));
    statusPanel_->setTextFormat(Qt::PlainText);
    // a long message must not limit how narrow the frame can be
    statusPanel_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    ui_->StatusBar1->addWidget(statusPanel_, 1);
    beginHint_ = new BeginHint(*ui_->MDIArea);
    showBackground();

    setIcons();
    setUpToolBar();
    setUpMenus();
    connectActions();
    connectEvents();
    setWindowState(Qt::WindowMaximized);
}

TMainForm::~TMainForm() {
    // the MDI area's windows must not report to a half-destroyed frame
    ui_->MDIArea->disconnect(this);
}

void TMainForm::showBackground() {
    ui_->MDIArea->setBackground(palette().brush(QPalette::Dark));
    beginHint_->followBackground();
}

void TMainForm::setIcons() {
    const std::pair<QAction*, const char*> icons[] = {
        {ui_->FileNew1, "new"},
        {ui_->FileOpen1, "open"},
        {ui_->FileOpenItem, "open"},
        {ui_->FileSave, "save"},
        {ui_->EditCut, "cut"},
        {ui_->EditCopy, "copy"},
        {ui_->EditPaste, "paste"},
        {ui_->EditUndo1, "undo"},
        {ui_->EditRedo1, "redo"},
        {ui_->WindowCascade1, "cascade"},
        {ui_->WindowTileHorizontal1, "tile-horizontally"},
        {ui_->WindowTileVertical1, "tile-vertically"}};
    for (const auto& [action, name] : icons) {
        action->setIcon(paletteIcon(QString::fromLatin1(name)));
    }
}

void TMainForm::setUpToolBar() {
    ui_->PageScroller1->setWidget(ui_->ToolBar1);
    nameToolButtons(*ui_->ToolBar1);
    addDropDown(*ui_->ToolBar1, *ui_->EditUndo1);
    addDropDown(*ui_->ToolBar1, *ui_->EditRedo1);
}

void TMainForm::setUpMenus() {
    // The item is a second action for Open, with another caption. It only displays the key: if both
    // had it, it would be ambiguous.
    ui_->FileOpenItem->setText(ui_->FileOpenItem->text() + u'\t' +
                               ui_->FileOpen1->shortcut().toString(QKeySequence::NativeText));
    actOnFirstLetters(*this);
}

void TMainForm::connectActions() {
    const std::pair<QAction*, void (TMainForm::*)()> commands[] = {
        {ui_->FileNew1, &TMainForm::FileNew1Execute},
        {ui_->FileOpen1, &TMainForm::FileOpen1Execute},
        {ui_->FileOpenItem, &TMainForm::FileOpen1Execute},
        {ui_->FileClose1, &TMainForm::FileClose1Execute},
        {ui_->FileSave, &TMainForm::ChildSave},
        {ui_->FileSaveAs, &TMainForm::ChildSaveAs},
        {ui_->FileExit1, &TMainForm::FileExit1Execute},
        {ui_->EditUndo1, &TMainForm::EditUndo1Execute},
        {ui_->EditRedo1, &TMainForm::EditRedo1Execute},
        {ui_->EditCut, &TMainForm::EditCutExecute},
        {ui_->EditCopy, &TMainForm::EditCopyExecute},
        {ui_->EditPaste, &TMainForm::EditPasteExecute},
        {ui_->ColorOptionsAction, &TMainForm::ColorOptionsActionExecute},
        {ui_->Rwire, &TMainForm::ChildWire},
        {ui_->Rflat, &TMainForm::ChildFlat},
        {ui_->Rfull, &TMainForm::ChildFull},
        {ui_->Rdots, &TMainForm::ChildDots},
        {ui_->Rallowtrans, &TMainForm::ChildTrans},
        {ui_->Rbackwards, &TMainForm::ChildBackwards},
        {ui_->D3DAction, &TMainForm::D3DExecute},
        {ui_->OpenGLAction, &TMainForm::OpenGLExecute},
        {ui_->SoftwareAction, &TMainForm::SoftwareExecute},
        {ui_->WindowCascade1, &TMainForm::WindowCascade1Execute},
        {ui_->WindowTileHorizontal1, &TMainForm::WindowTileHorizontal1Execute},
        {ui_->WindowTileVertical1, &TMainForm::WindowTileVertical1Execute},
        {ui_->WindowMinimizeAll1, &TMainForm::WindowMinimizeAll1Execute},
        {ui_->WindowArrangeAll1, &TMainForm::WindowArrangeAll1Execute},
        {ui_->HelpAbout1, &TMainForm::HelpAbout1Execute}};
    for (const auto& [action, execute] : commands) {
        connect(action, &QAction::triggered, this, [this, action = action, execute = execute] {
            if (action->isCheckable()) {
                // the action has toggled its mark, but only the handlers may set it
                action->setChecked(!action->isChecked());
            }
            if (ModalCall::running()) {
                return;
            }
            showNotice({});
            if (TMDIChild* document = activeDocument()) {
                document->clearMessage();
            }
            (this->*execute)();
        });
    }
    // shortcuts must work whatever has the focus, even if their items are hidden
    setUpWindowKeys();
    addActions({ui_->FileNew1, ui_->FileOpen1, ui_->EditCut, ui_->EditCopy, ui_->EditPaste});
}

void TMainForm::connectEvents() {
    connect(ui_->Window1, &QMenu::aboutToShow, this,
            [this] { windowList_.refresh(*this, *ui_->Window1); });
    connect(ui_->MDIArea, &QMdiArea::subWindowActivated, this, &TMainForm::showStatus);
    // queued: reading may show a dialog, for which neither an activation event nor idle() can wait
    connect(this, &TMainForm::firstActivated, this, &TMainForm::MainFormActivate,
            Qt::QueuedConnection);
    // queued: the source of the files waits for an answer, which reading must not delay
    connect(this, &TMainForm::filesDropped, this, &TMainForm::createDocuments,
            Qt::QueuedConnection);
    connect(&recovery_, &ModelRecovery::due, this,
            [this] { keepCopies(RecoveryKeeper::When::Due); });
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            [this] {
                try {
                    idle();
                } catch (const std::exception&) {
                    // memory ran out outside of any event, where the user cannot be told; the
                    // next idle moment does the rest
                }
            });
}

TMDIChild* TMainForm::activeDocument() const {
    auto* document = qobject_cast<TMDIChild*>(ui_->MDIArea->currentSubWindow());
    return document != nullptr && document->document() != nullptr ? document : nullptr;
}

QList<TMDIChild*> TMainForm::documents() const {
    QList<TMDIChild*> documents;
    for (QMdiSubWindow* window : ui_->MDIArea->subWindowList(QMdiArea::CreationOrder)) {
        auto* document = qobject_cast<TMDIChild*>(window);
        // a window that has just closed is still listed
        if (document != nullptr && document->document() != nullptr) {
            documents.push_back(document);
        }
    }
    return documents;
}

bool TMainForm::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        scheduleFirstActivation();
    } else if (event->type() == QEvent::StatusTip) {
        // hints and messages share one panel
        hint_ = dynamic_cast<QStatusTipEvent&>(*event).tip();
        showStatus();
        return true;
    }
    return QMainWindow::event(event);
}

void TMainForm::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) {
        showBackground();
    }
    QMainWindow::changeEvent(event);
}

void TMainForm::dragEnterEvent(QDragEnterEvent* event) {
    // an open dialog takes precedence
    if (QApplication::activeModalWidget() == nullptr && !modelFiles(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void TMainForm::dropEvent(QDropEvent* event) {
    if (ModalCall::running()) {
        event->ignore(); // a dialog has opened since the files entered
        return;
    }
    // after a move, the source would remove the files
    event->setDropAction(Qt::CopyAction);
    event->accept();
    Q_EMIT filesDropped(modelFiles(*event->mimeData()));
}

void TMainForm::closeEvent(QCloseEvent* event) {
    if (ModalCall::running()) {
        event->ignore();
        return;
    }
    // ask for all before the first one closes: Cancel leaves every window open
    if (!documentsMayClose()) {
        event->ignore();
        return;
    }
    closeDocuments();
    event->accept();
}

bool TMainForm::needsCloseQuestion() const {
    const QList<TMDIChild*> open = documents();
    return std::any_of(open.begin(), open.end(),
                       [](const TMDIChild* document) { return document->needsCloseQuestion(); });
}

bool TMainForm::documentsMayClose() {
    for (TMDIChild* document : documents()) {
        if (document->needsCloseQuestion()) {
            ui_->MDIArea->setActiveSubWindow(document);
        }
        if (!document->FormCanClose()) {
            return false;
        }
    }
    return true;
}

void TMainForm::closeDocuments() {
    for (TMDIChild* document : documents()) {
        document->closeUnasked();
    }
}

void TMainForm::FileNew1Execute() {
    createDocument(QStringLiteral("Untitled %1").arg(documents().size() + 1));
}

void TMainForm::FileOpen1Execute() {
    QFileDialog dialog(this);
    dialog.setObjectName(QStringLiteral("OpenDialog1"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({QStringLiteral("Compatible files (*.msh *.xsi *.x)"),
                           QStringLiteral("XSI file (*.xsi)"), QStringLiteral("MSH file (*.msh)"),
                           QStringLiteral("X file (*.x)")});
    const TMDIChild* active = activeDocument();
    startIn(dialog, active != nullptr ? folderOf(active->document()->FileName) : QString());
    if (execModal(dialog) == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        createDocument(dialog.selectedFiles().constFirst());
    }
}

void TMainForm::FileClose1Execute() {
    if (TMDIChild* document = activeDocument()) {
        document->close();
    }
}

void TMainForm::ChildSave() {
    if (TMDIChild* document = activeDocument()) {
        document->FileSaveExecute();
    }
}

void TMainForm::ChildSaveAs() {
    if (TMDIChild* document = activeDocument()) {
        document->FileSaveAsExecute();
    }
}

void TMainForm::FileExit1Execute() {
    close();
}

void TMainForm::FileClose1Update() {
    ui_->FileClose1->setEnabled(activeDocument() != nullptr);
}

void TMainForm::Filesaveupdate() {
    const TMDIChild* window = activeDocument();
    const DocumentSession* session = window != nullptr ? window->session() : nullptr;
    ui_->FileSave->setEnabled(session != nullptr && session->canSave());
}

void TMainForm::Filesaveasupdate() {
    ui_->FileSaveAs->setEnabled(activeDocument() != nullptr);
}

void TMainForm::HelpAbout1Execute() {
    execModal(forms_.aboutBox);
}

void TMainForm::MainFormActivate() {
    for (const QString& path : std::exchange(paths_, {})) {
        if (isTextModel(modelFileKind(path))) {
            createDocument(QFileInfo(path).absoluteFilePath());
        }
    }
    const auto open = [this](LeftCopy& copy) { addWindow().recover(copy); };
    const QString notice = recovery_.offer(*this, open);
    notice.isEmpty() ? showStatus() : showNotice(notice);
}

void TMainForm::keepCopies(RecoveryKeeper::When when) {
    const QString notice = recovery_.keep(documents(), when);
    if (!notice.isEmpty()) {
        showNotice(notice);
    }
}

void TMainForm::idle() {
    // once exposed, the frame is maximised, so models open in their final size
    if (isVisible() && windowHandle()->isExposed()) {
        scheduleFirstActivation();
    }
    // cheap: an action only updates its items and buttons if its state changes
    constexpr void (TMainForm::*updates[])() = {
        &TMainForm::FileClose1Update, &TMainForm::Filesaveupdate,  &TMainForm::Filesaveasupdate,
        &TMainForm::EditUndo1Update,  &TMainForm::EditRedo1Update, &TMainForm::EditCutUpdate,
        &TMainForm::EditCopyUpdate,   &TMainForm::EditPasteUpdate, &TMainForm::wireupdate,
        &TMainForm::Flatupdate,       &TMainForm::Fullupdate,      &TMainForm::dotsupdate,
        &TMainForm::allowupdate,      &TMainForm::backwardsupdate, &TMainForm::D3DUpdate,
        &TMainForm::OpenGLUpdate,     &TMainForm::SoftwareUpdate,  &TMainForm::windowUpdate};
    for (const auto update : updates) {
        (this->*update)();
    }
    beginHint_->setVisible(paths_.isEmpty() && documents().isEmpty());
    keepCopies(RecoveryKeeper::When::Due);
}

void TMainForm::scheduleFirstActivation() {
    if (!std::exchange(activated_, true)) {
        Q_EMIT firstActivated();
    }
}

TMDIChild& TMainForm::addWindow() {
    // owned by the MDI area; the window frees itself when it is closed
    auto* document = new TMDIChild(forms_.colorOptions.viewColors());
    document->setDialogs({&forms_.frameOptions, &forms_.renameFrame, &forms_.material});
    document->addToStructureMenu({ui_->EditCopy, ui_->EditPaste});
    connect(document, &TMDIChild::statusChanged, this, [this] { showNotice(notice_); });
    connect(document, &TMDIChild::commandBegun, this, [this] { showNotice({}); });
    connect(document, &TMDIChild::recoveryCopyFailed, this,
            [this](const QString& model) { showNotice(recovery_.recoveryFailureText(model)); });
    document->session()->keepCopiesIn(recovery_.folder());
    leaveKeysToFrame(*document);
    ui_->MDIArea->addSubWindow(document);
    document->showMaximized();
    return *document;
}

void TMainForm::createDocument(const QString& name) {
    addWindow().create(name);
    showStatus();
}

void TMainForm::createDocuments(const QStringList& names) {
    for (const QString& name : names) {
        createDocument(name);
    }
}

void TMainForm::showStatus() {
    const TMDIChild* document = activeDocument();
    const QString message = document != nullptr ? document->statusText(notice_) : notice_;
    statusPanel_->setText(hint_.isEmpty() ? message : hint_);
}

void TMainForm::showNotice(const QString& notice) {
    notice_ = notice;
    hint_.clear(); // the pointer is still over the command's control, whose hint would hide it
    showStatus();
}

} // namespace korvane
