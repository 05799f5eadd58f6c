#pragma once

#include "edit/session/DocumentSession.h"
#include "render/planes/PlaneView.h"

#include <QMdiSubWindow>
#include <QPersistentModelIndex>
#include <QString>

#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <vector>

class QModelIndex;
class QKeyEvent;
class QMenu;

namespace korvane {

class DragFilter;
class TMaterial;
class TOKBottomDlg1;
class TStructureView;
class WindowFocus;
class TframeF;

namespace Ui {
class TMDIChild;
}

/// The dialogs that document windows share.
struct DocumentDialogs {
    TframeF* frameOptions = nullptr;
    TOKBottomDlg1* renameFrame = nullptr;
    TMaterial* material = nullptr;
};

/// A document window: owns one model while it is open, and shows the model's structure, the tools
/// and the four drawing areas.
class TMDIChild : public QMdiSubWindow {
    Q_OBJECT
  public:
    /// Starts with an empty model, never saved. `colors` are those of the 3D view.
    explicit TMDIChild(const ViewColors& colors, QWidget* parent = nullptr);
    ~TMDIChild() override;

    /// Names the model of a new window, and reads the file of that name if its extension is that of
    /// a text model. A failure is shown to the user and leaves the model empty; if the user
    /// cancels, the window closes.
    void create(const QString& name);
    /// Opens a recovery copy in a new window. If that fails, which is shown to the user, or if the
    /// user cancels, the window closes and the copy is left as it is.
    void recover(LeftCopy& copy);
    /// Sets how long create() and recover() read before they show their progress.
    void setProgressDelay(std::chrono::milliseconds delay) { progressDelay_ = delay; }

    /// Sets the dialogs of the "Structure" page's commands; they must outlive the window. Without
    /// them, "Edit" and "Rename Frame" do nothing.
    void setDialogs(const DocumentDialogs& dialogs) { dialogs_ = dialogs; }
    /// Adds commands of the main frame to the menu of the structure tree.
    void addToStructureMenu(const QList<QAction*>& commands);

    /// The model and its operations; null once the window has been closed.
    [[nodiscard]] DocumentSession* session() { return session_ ? &*session_ : nullptr; }
    [[nodiscard]] const DocumentSession* session() const { return session_ ? &*session_ : nullptr; }
    [[nodiscard]] const ModelDocument* document() const {
        return session_ ? &session_->model() : nullptr;
    }
    /// The settings of the 3D view. The window must be open.
    [[nodiscard]] const ViewState& view() const { return session_->view(); }

    // Commands of the main frame. They do nothing once the window has been closed.

    [[nodiscard]] bool canUndo() const { return session_ && session_->canUndo(); }
    [[nodiscard]] bool canRedo() const { return session_ && session_->canRedo(); }
    void undo();
    void redo();
    [[nodiscard]] bool canCopy() const { return session_ && session_->canCopy(); }
    [[nodiscard]] bool canPaste(ClipboardContent content) const {
        return session_ && session_->canPaste(content);
    }
    /// Returns the clipboard block of the selection; empty if it cannot be copied.
    [[nodiscard]] QByteArray copy() { return session_ ? session_->copy() : QByteArray(); }
    /// Pastes a block into the selection. If it is damaged or does not fit, nothing changes and the
    /// user is told.
    void paste(const QByteArray& block);
    void setRenderMode(RenderMode mode);
    void setViewSetting(bool ViewState::*setting, bool on);
    /// Draws the 3D view through another interface from now on.
    void setDrawingInterface(DrawApi api);
    /// Gives the views other colours. Their pictures show them once they are redrawn.
    void setColors(const ViewColors& colors, const PlaneColors& planeColors);
    /// Redraws all visible views.
    void render3d();

    /// Returns the status bar's text for this window. `notice` is the program's, whatever window is
    /// active.
    [[nodiscard]] QString statusText(const QString& notice = {}) const {
        return session_ ? session_->statusText(notice) : notice;
    }
    /// Clears the last command's message; call it when a new command begins.
    void clearMessage();

    /// Opens a binary mesh file in a new window; no command calls it. Reads nothing from the file,
    /// but saves the empty model as "loaded.xsi" in the current folder.
    void FileOpenMSH(const QString& fileName);

    void FileSaveExecute();
    void FileSaveAsExecute();

    /// Returns whether FormCanClose() would ask the user.
    [[nodiscard]] bool needsCloseQuestion() const {
        return session_ && session_->needsCloseQuestion();
    }
    /// Asks what to do about unsaved changes. Returns false if the user cancels.
    bool FormCanClose();
    /// Closes the window without asking. Call FormCanClose() first.
    void closeUnasked();

  Q_SIGNALS:
    /// The status text has changed.
    void statusChanged();
    /// A command of this window begins: earlier messages are out of date.
    void commandBegun();
    /// The window closes, and no recovery copy of its work could be made.
    void recoveryCopyFailed(const QString& model);

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ChildActivate();
    void ChildDeactivate();
    void FormClose();
    void FormResize();
    void ChildSelectedChange();
    void EditButtonClick();
    void RenameButtonClick();
    void Deletebuttonclick();
    void Addbuttonclick();

    // The views and the "Tools" page. Each image passes its mouse events to its plane.
    void XYWinMouseDown(const DragInput& input);
    void XYWinMouseMove(const DragInput& input);
    void XYWinMouseUp(const DragInput& input);
    void XZWinMouseDown(const DragInput& input);
    void XZWinMouseMove(const DragInput& input);
    void XZWinMouseUp(const DragInput& input);
    void ZYWinMouseDown(const DragInput& input);
    void ZYWinMouseMove(const DragInput& input);
    void ZYWinMouseUp(const DragInput& input);
    void FrameVisibleExecute();
    void MeshVisibleExecute();
    void TwoDVisibleExecute();
    void toolExecute(ViewTool tool);

    struct PlaneImage;
    [[nodiscard]] std::array<PlaneImage, planeCount> planeImages() const;
    void setUpViews();
    /// Sets up the keys and the menu of a 2D view.
    void setUpKeys(const PlaneImage& image);
    /// Returns true if the key has chosen a tool.
    bool toolKey(const QKeyEvent& event);
    void setUpTools();
    void setUpButtons();
    /// Sets up the tree's menu with the commands of the buttons and their keys.
    void setUpStructureMenu();
    /// Triggers Edit if the double-clicked row is selected and has no rows below it.
    void editDoubleClicked();
    /// Runs the menu's command for a key. Returns true if the tree must not get the key.
    bool structureKey(const QKeyEvent& key);
    /// Handles an event of a view. Returns true if the view must not get it.
    bool viewEvent(const QObject& watched, const QEvent& event);
    /// Returns true for a press that only activates the window or comes during a modal call.
    [[nodiscard]] bool startsNothing(const QEvent& event) const;
    /// An operation of the session for a mouse event in a 2D view.
    using PlaneOperation = Changes (DocumentSession::*)(const PlaneInput&);
    void planeInput(ViewPlane plane, const DragInput& input, PlaneOperation operation);
    [[nodiscard]] PlaneInput inputOf(ViewPlane plane, const DragInput& input);
    /// Reverts a running drag in a 2D view. Returns true if there was one.
    bool cancelDrag();
    void drawPlanes();
    /// Makes the whole model visible in the 2D views once one of them has its size, even if another
    /// window covers it.
    void placePlanes(const QWidget& image);
    void drawPlane(const PlaneImage& image);
    [[nodiscard]] PlaneView& planeView(ViewPlane plane) {
        return planeViews_[static_cast<std::size_t>(plane)];
    }
    void showToolCursor();
    void showPlaneColors();
    /// Updates the boxes of the "Tools" page to the selected frame.
    void fillVisibilityBoxes();
    /// Updates the parts of the window that the session reports as out of date.
    void apply(const Changes& changes);
    /// Returns whether the model accepts edits and no modal call runs. Commands check it when they
    /// run, not to be enabled: otherwise all of them would be greyed behind every dialog.
    [[nodiscard]] bool mayEdit() const;
    static void fillPanel(QWidget& panel, const QColor& color);

    void FileOpenXSI(const QString& fileName);
    /// Shows a model that has just been read.
    void showModel(const Changes& changes);
    void showSaved(const SaveOutcome& outcome);
    /// Appends the suffix if the name has none of our extensions. Returns false if the user does
    /// not want to replace the file of the new name.
    bool completeName(QString& name, const QString& suffix);
    /// Shows nothing if the file was read or is missing.
    void showReadFailure(ReadStatus status, const QString& fileName);
    void showSaveFailure(const QString& fileName);
    void showPasteFailure(const QString& reason);
    void setCaption();
    void clearMessageAtCommands();
    void editFrameOptions();
    /// Opens the material editor for the selected slot or entry of the table.
    void editMaterials();
    /// Applies changes and scrolls the tree to the node that they select.
    void applyStep(const Changes& changes);
    /// Selects the document's selection in the tree.
    void followSelection();
    void fitPages();
    void showSelectedButtons();

    std::unique_ptr<Ui::TMDIChild> ui_;
    std::optional<DocumentSession> session_; ///< none once the window has been closed
    DocumentDialogs dialogs_;
    QPersistentModelIndex doubleClicked_;       ///< until editDoubleClicked()
    std::unique_ptr<TStructureView> structure_; ///< destroyed before the tree view that it fills
    QMenu* structureMenu_ = nullptr;            ///< owned by the tree view
    WindowFocus* focus_ = nullptr;              ///< owned by the window
    std::chrono::milliseconds progressDelay_{500};
    std::array<PlaneView, planeCount> planeViews_ = {
        PlaneView(ViewPlane::XY), PlaneView(ViewPlane::XZ), PlaneView(ViewPlane::ZY)};
    bool filling_ = false; ///< the program sets the selection, not the user
    bool closeAgreed_ = false;
    bool activatedByPress_ = false; ///< a press has activated the window, but is not delivered yet
    std::vector<std::unique_ptr<DragFilter>> mice_; ///< of the 2D views; destroyed first
};

} // namespace korvane
