#pragma once

#include "edit/session/DocumentSession.h"
#include "render/planes/PlaneView.h"

#include <QMdiSubWindow>
#include <QString>

#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <vector>

class QItemSelection;
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

/// The dialogs of the whole run that a document window shows.
struct DocumentDialogs {
    TframeF* frameOptions = nullptr;
    TOKBottomDlg1* renameFrame = nullptr;
    TMaterial* material = nullptr;
};

/// A document window: owns one model for as long as it is open and shows its structure, the tools
/// and the four drawing areas.
class TMDIChild : public QMdiSubWindow {
    Q_OBJECT
  public:
    /// A window with an empty model that was never saved, whose 3D view has these colours.
    explicit TMDIChild(const ViewColors& colors, QWidget* parent = nullptr);
    ~TMDIChild() override;

    /// Gives a window just constructed its name, and reads the file of that name if it is that of a
    /// text model. Failures are shown to the user and leave the model empty; a reading that the
    /// user cancels closes the window.
    void create(const QString& name);
    /// Shows a model from a recovery copy in a window just constructed. Where it cannot be opened
    /// the user is told and the window closes, as it does where the user cancels; the copy is then
    /// left as it is.
    void recover(LeftCopy& copy);
    /// How long create() reads before it shows its progress.
    void setProgressDelay(std::chrono::milliseconds delay) { progressDelay_ = delay; }

    /// The dialogs that the commands of the "Structure" page show; they must outlive the window.
    /// Without them "Edit" and "Rename Frame" do nothing.
    void setDialogs(const DocumentDialogs& dialogs) { dialogs_ = dialogs; }
    /// Adds commands of the main frame to the menu of the structure tree.
    void addToStructureMenu(const QList<QAction*>& commands);

    /// The model with what can be done to it; null once the window has been closed.
    [[nodiscard]] DocumentSession* session() { return session_ ? &*session_ : nullptr; }
    [[nodiscard]] const DocumentSession* session() const { return session_ ? &*session_ : nullptr; }
    [[nodiscard]] const ModelDocument* document() const {
        return session_ ? &session_->model() : nullptr;
    }
    /// The settings of the 3D view of a window that is open.
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
    /// The clipboard block of the selection; empty if there is nothing that Copy takes.
    [[nodiscard]] QByteArray copy() { return session_ ? session_->copy() : QByteArray(); }
    /// Pastes a block into the selection. One that is damaged or does not fit changes nothing, and
    /// the user is told.
    void paste(const QByteArray& block);
    void setRenderMode(RenderMode mode);
    void setViewSetting(bool ViewState::*setting, bool on);
    /// Draws the 3D view through another interface from here on.
    void setDrawingInterface(DrawApi api);
    /// Gives the views other colours, which show when they are drawn next.
    void setColors(const ViewColors& colors, const PlaneColors& planeColors);
    /// Draws the views that show anew.
    void render3d();

    /// What the status bar shows of the window.
    /// `notice` is what the program has to say, whatever window is active.
    [[nodiscard]] QString statusText(const QString& notice = {}) const {
        return session_ ? session_->statusText(notice) : notice;
    }
    /// A new command begins: what the last one said is out of date.
    void clearMessage();

    /// Opens a binary mesh file for a window just constructed; no command does so. Nothing is read
    /// from the file: the empty model is saved as "loaded.xsi" in the current folder.
    void FileOpenMSH(const QString& fileName);

    void FileSaveExecute();
    void FileSaveAsExecute();

    /// Whether FormCanClose would ask the user.
    [[nodiscard]] bool needsCloseQuestion() const {
        return session_ && session_->needsCloseQuestion();
    }
    /// Asks what to do about changes that are not saved; false if the user wants to keep the
    /// window.
    bool FormCanClose();
    /// Closes the window for a caller that has already asked FormCanClose.
    void closeUnasked();

  Q_SIGNALS:
    /// The status text is another one.
    void statusChanged();
    /// A command of this window begins: what was said before is out of date.
    void commandBegun();
    /// The window closes, and no recovery copy of its work can be made.
    void keepingFailed(const QString& model);

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ChildActivate();
    void ChildDeactivate();
    void FormClose();
    void FormResize();
    void ChildSelectedChange(const QItemSelection& selected);
    void EditButtonClick();
    void RenameButtonClick();
    void Deletebuttonclick();
    void Addbuttonclick();

    // The views and the "Tools" page. Each image hands its mouse events to its plane.
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
    /// The keys and the menu of a 2D view.
    void setUpKeys(const PlaneImage& image);
    /// Whether the key has chosen a tool.
    bool toolKey(const QKeyEvent& event);
    void setUpTools();
    void setUpButtons();
    /// The menu of the tree, with the commands of the buttons and the keys that stand for them.
    void setUpStructureMenu();
    /// Edits what the row stands for, unless it has rows below it.
    void rowDoubleClicked(const QModelIndex& row);
    /// Carries out the command of the menu that a key stands for; whether there is one.
    bool structureKey(const QKeyEvent& key);
    /// An event of a view; whether that was all about it.
    bool viewEvent(const QObject& watched, const QEvent& event);
    /// Whether the event is a press that only activates the window or comes while a dialog is at
    /// work.
    [[nodiscard]] bool startsNothing(const QEvent& event) const;
    /// What an operation of the session makes of a mouse event in a 2D view.
    using PlaneOperation = Changes (DocumentSession::*)(const PlaneInput&);
    void planeInput(ViewPlane plane, const DragInput& input, PlaneOperation operation);
    [[nodiscard]] PlaneInput inputOf(ViewPlane plane, const DragInput& input);
    /// Ends a running drag of a 2D view without a trace; whether there was one.
    bool cancelDrag();
    void drawPlanes();
    /// Has the 2D views start with the whole model in sight once one of them has its size, also
    /// where another window covers it.
    void placePlanes(const QWidget& image);
    void drawPlane(const PlaneImage& image);
    [[nodiscard]] PlaneView& planeView(ViewPlane plane) {
        return planeViews_[static_cast<std::size_t>(plane)];
    }
    void showToolCursor();
    void showPlaneColors();
    /// Brings the boxes of the "Tools" page in step with the selected frame.
    void fillVisibilityBoxes();
    /// Brings the controls in step with what the session says is out of date.
    void apply(const Changes& changes);
    /// Whether the model takes edits and no call that shows a dialog is at work. Commands ask this
    /// when they run, but do not show it: all of them would grey behind every dialog.
    [[nodiscard]] bool mayEdit() const;
    static void fillPanel(QWidget& panel, const QColor& color);

    void FileOpenXSI(const QString& fileName);
    /// Shows a model that has just come in.
    void showModel(const Changes& changes);
    void showSaved(const SaveOutcome& outcome);
    /// Gives a name that a file dialog left without an extension of ours the suffix. False if the
    /// user does not want that file to be replaced.
    bool completeName(QString& name, const QString& suffix);
    /// Shows nothing where the file was read or is just missing.
    void showReadFailure(ReadStatus status, const QString& fileName);
    void showSaveFailure(const QString& fileName);
    void showPasteFailure(const QString& reason);
    void setCaption();
    void clearMessageAtCommands();
    void editFrameOptions();
    /// Opens the material editor on the selected slot or entry of the table.
    void editMaterials();
    /// What undo or redo has done; the node that it selects comes into sight.
    void applyStep(const Changes& changes);
    /// Moves the selection in the tree to what the document has selected.
    void followSelection();
    void fitPages();
    void showSelectedButtons();

    std::unique_ptr<Ui::TMDIChild> ui_;
    std::optional<DocumentSession> session_; ///< none once the window has been closed
    DocumentDialogs dialogs_;
    std::unique_ptr<TStructureView> structure_; ///< goes before the tree view that it fills
    QMenu* structureMenu_ = nullptr;            ///< the tree view owns it
    WindowFocus* focus_ = nullptr;              ///< the window owns it
    std::chrono::milliseconds progressDelay_{500};
    std::array<PlaneView, planeCount> planeViews_ = {
        PlaneView(ViewPlane::XY), PlaneView(ViewPlane::XZ), PlaneView(ViewPlane::ZY)};
    bool filling_ = false; ///< the selection is set to show the model, not by the user
    bool closeAgreed_ = false;
    bool activatedByPress_ = false; ///< by the one about to be delivered, if that is to a view
    std::vector<std::unique_ptr<DragFilter>> mice_; ///< of the 2D views; go first: they call back
};

} // namespace korvane
