#include "app/TMainForm.h"

#include "formats/FileNames.h"
#include "model/ModelDocument.h"
#include "model/TMDIChild.h"
#include "ui_TMainForm.h"

#include <QAbstractEventDispatcher>
#include <QAction>
#include <QCloseEvent>
#include <QFileDialog>
#include <QMdiSubWindow>
#include <QStyle>

#include <utility>

namespace korvane {

namespace {

void setActionEnabled(QAction& action, bool enabled) {
    // these run at every idle moment: leave the widgets alone unless something changed
    if (action.isEnabled() != enabled) {
        action.setEnabled(enabled);
    }
}

} // namespace

TMainForm::TMainForm(QStringList paths)
    : ui_(std::make_unique<Ui::TMainForm>()), paths_(std::move(paths)),
      statusPanel_(new QLabel(this)) {
    ui_->setupUi(this);
    setCentralWidget(ui_->MDIArea);
    statusPanel_->setObjectName(QStringLiteral("StatusPanel"));
    statusPanel_->setAccessibleName(QStringLiteral("Model read"));
    ui_->StatusBar1->addWidget(statusPanel_, 1);

    ui_->FileNew1->setIcon(style()->standardIcon(QStyle::SP_FileIcon));
    ui_->FileOpen1->setIcon(style()->standardIcon(QStyle::SP_DialogOpenButton));
    ui_->FileOpenItem->setIcon(ui_->FileOpen1->icon());
    ui_->FileSave->setIcon(style()->standardIcon(QStyle::SP_DialogSaveButton));

    // closing a window goes back to the one that was used before it
    ui_->MDIArea->setActivationOrder(QMdiArea::ActivationHistoryOrder);
    connectActions();
    setWindowState(Qt::WindowMaximized);
}

TMainForm::~TMainForm() {
    // the windows that go with the MDI area must find no half-destroyed frame to report to
    ui_->MDIArea->disconnect(this);
}

void TMainForm::connectActions() {
    connect(ui_->FileNew1, &QAction::triggered, this, &TMainForm::FileNew1Execute);
    connect(ui_->FileOpen1, &QAction::triggered, this, &TMainForm::FileOpen1Execute);
    connect(ui_->FileOpenItem, &QAction::triggered, ui_->FileOpen1, &QAction::trigger);
    connect(ui_->FileClose1, &QAction::triggered, this, &TMainForm::FileClose1Execute);
    connect(ui_->FileSave, &QAction::triggered, this, &TMainForm::ChildSave);
    connect(ui_->FileSaveAs, &QAction::triggered, this, &TMainForm::ChildSaveAs);
    connect(ui_->FileExit1, &QAction::triggered, this, &TMainForm::FileExit1Execute);
    // shortcuts work wherever the focus is, whether or not the tool bar shows
    addActions({ui_->FileNew1, ui_->FileOpen1});

    connect(ui_->MDIArea, &QMdiArea::subWindowActivated, this, &TMainForm::showSummary);
    // queued: reading may ask the user something, which neither an activation event nor the idle
    // moment can wait for
    connect(this, &TMainForm::firstActivated, this, &TMainForm::MainFormActivate,
            Qt::QueuedConnection);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &TMainForm::idle);
}

TMDIChild* TMainForm::activeDocument() const {
    return qobject_cast<TMDIChild*>(ui_->MDIArea->currentSubWindow());
}

QList<TMDIChild*> TMainForm::documents() const {
    QList<TMDIChild*> documents;
    for (QMdiSubWindow* window : ui_->MDIArea->subWindowList(QMdiArea::CreationOrder)) {
        if (auto* document = qobject_cast<TMDIChild*>(window)) {
            documents.push_back(document);
        }
    }
    return documents;
}

bool TMainForm::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        scheduleFirstActivation();
    }
    return QMainWindow::event(event);
}

void TMainForm::closeEvent(QCloseEvent* event) {
    // all are asked before the first one closes: Cancel leaves every window open
    const QList<TMDIChild*> open = documents();
    for (TMDIChild* document : open) {
        if (document->needsCloseQuestion()) {
            ui_->MDIArea->setActiveSubWindow(document);
        }
        if (!document->FormCanClose()) {
            event->ignore();
            return;
        }
    }
    for (TMDIChild* document : open) {
        document->closeUnasked();
    }
    event->accept();
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
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
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
    setActionEnabled(*ui_->FileClose1, activeDocument() != nullptr);
}

void TMainForm::Filesaveupdate() {
    const TMDIChild* window = activeDocument();
    const ModelDocument* model = window != nullptr ? window->document() : nullptr;
    setActionEnabled(*ui_->FileSave, model != nullptr && (model->Modified || model->NeverSaved));
}

void TMainForm::Filesaveasupdate() {
    setActionEnabled(*ui_->FileSaveAs, activeDocument() != nullptr);
}

void TMainForm::MainFormActivate() {
    for (const QString& path : std::as_const(paths_)) {
        if (isTextModelName(path)) {
            createDocument(path);
        }
    }
}

void TMainForm::idle() {
    if (isVisible()) {
        scheduleFirstActivation();
    }
    FileClose1Update();
    Filesaveupdate();
    Filesaveasupdate();
}

void TMainForm::scheduleFirstActivation() {
    if (!std::exchange(activated_, true)) {
        Q_EMIT firstActivated();
    }
}

void TMainForm::createDocument(const QString& name) {
    // the MDI area owns the window, which frees itself when it is closed
    auto* document = new TMDIChild(ui_->MDIArea);
    ui_->MDIArea->addSubWindow(document);
    document->showMaximized();
    document->create(name);
    showSummary();
}

void TMainForm::showSummary() {
    const TMDIChild* document = activeDocument();
    statusPanel_->setText(document != nullptr ? document->readSummary() : QString());
}

} // namespace korvane
