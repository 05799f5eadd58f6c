#pragma once

#include "app/shell/ModelClipboard.h"
#include "app/shell/ModelRecovery.h"
#include "app/shell/TGuide.h"
#include "app/shell/WindowList.h"
#include "render/scene/ViewState.h"

#include <QLabel>
#include <QList>
#include <QMainWindow>
#include <QStringList>

#include <memory>

class QAction;
class QMdiSubWindow;

namespace korvane {

class BeginHint;
struct EditorForms;
class TMDIChild;

namespace Ui {
class TMainForm;
}

/// The main frame: menu, tool bar, status bar and the open document windows. It has no model data:
/// commands work on the active document window, and check marks show its state.
class TMainForm : public QMainWindow {
    Q_OBJECT
  public:
    /// `forms` holds the frame itself and the dialogs that its commands show; they may be made
    /// after it. Those of `paths` with the extension of a text model are opened at the first
    /// activation.
    TMainForm(EditorForms& forms, QStringList paths);
    ~TMainForm() override;

    /// Returns the document window that commands work on, or null if none is open.
    [[nodiscard]] TMDIChild* activeDocument() const;
    /// Returns all open document windows in the order in which they were opened.
    [[nodiscard]] QList<TMDIChild*> documents() const;
    /// Updates the recovery copies of all models. Callable from any event loop.
    void keepAll() { keepCopies(RecoveryKeeper::When::Now); }

    /// Returns whether any document window would ask the user before it closes.
    [[nodiscard]] bool needsCloseQuestion() const;
    /// Has all windows ask what to do about unsaved changes. Returns false if the user cancels.
    [[nodiscard]] bool documentsMayClose();
    /// Closes all document windows without asking. Call documentsMayClose() first.
    void closeDocuments();

  Q_SIGNALS:
    /// The frame is active for the first time, or visible and idle without ever having been active.
    void firstActivated();
    /// Model files were dropped on the frame.
    void filesDropped(const QStringList& files);

  protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    // The handlers of the actions: each has an execute handler, most have an update handler.
    void FileNew1Execute();
    void FileOpen1Execute();
    void FileClose1Execute();
    void FileClose1Update();
    void ChildSave();
    void Filesaveupdate();
    void ChildSaveAs();
    void Filesaveasupdate();
    void FileExit1Execute();
    void EditUndo1Execute();
    void EditUndo1Update();
    void EditRedo1Execute();
    void EditRedo1Update();
    void EditCutExecute();
    void EditCutUpdate();
    void EditCopyExecute();
    void EditCopyUpdate();
    void EditPasteExecute();
    void EditPasteUpdate();
    void ColorOptionsActionExecute();
    void ChildWire();
    void wireupdate();
    void ChildFlat();
    void Flatupdate();
    void ChildFull();
    void Fullupdate();
    void ChildDots();
    void dotsupdate();
    void ChildTrans();
    void allowupdate();
    void ChildBackwards();
    void backwardsupdate();
    void D3DExecute();
    void D3DUpdate();
    void OpenGLExecute();
    void OpenGLUpdate();
    void SoftwareExecute();
    void SoftwareUpdate();
    void WindowCascade1Execute();
    void WindowTileHorizontal1Execute();
    void WindowTileVertical1Execute();
    void WindowMinimizeAll1Execute();
    void WindowArrangeAll1Execute();
    void windowUpdate();
    void HelpAbout1Execute();
    void MainFormActivate();

    void connectActions();
    void connectEvents();
    void setUpWindowKeys();
    /// Removes the window's own shortcuts: a key that both have would be ambiguous and do nothing.
    static void leaveKeysToFrame(const QMdiSubWindow& window);
    void showBackground();
    void setIcons();
    void setUpToolBar();
    void setUpMenus();
    /// Runs the update handlers; called whenever the event loop is about to wait.
    void idle();
    void scheduleFirstActivation();
    /// Opens a new, maximised document window.
    TMDIChild& addWindow();
    void createDocument(const QString& name);
    void createDocuments(const QStringList& names);
    void showStatus();
    /// Shows a notice in the status bar until the next command.
    void showNotice(const QString& notice);
    void keepCopies(RecoveryKeeper::When when);

    void setRenderMode(QAction& action, RenderMode mode);
    /// Updates the marks of the render modes to the active window's mode.
    void Rupdate();
    void updateRenderMode(QAction& action);
    void toggleSetting(QAction& action, bool ViewState::*setting);
    void updateSetting(QAction& action, bool ViewState::*setting);
    void setDrawingInterface(DrawApi api);
    void updateDrawingInterface(QAction& action, DrawApi api);

    EditorForms& forms_;
    std::unique_ptr<Ui::TMainForm> ui_;
    QStringList paths_;
    bool activated_ = false; ///< the first activation is handled or scheduled
    QLabel* statusPanel_;
    BeginHint* beginHint_; ///< owned by the area of the document windows
    GuideKey guideKey_;
    QString hint_;   ///< for the item under the pointer
    QString notice_; ///< from the program, whatever window is active
    ModelRecovery recovery_;
    WindowList windowList_;
    ModelClipboard clipboard_;
};

} // namespace korvane
