#pragma once

#include "edit/ClipboardBlock.h"
#include "edit/EditHistory.h"
#include "model/ModelDocument.h"
#include "render/ViewState.h"

#include <QByteArray>
#include <QMdiSubWindow>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>

class QItemSelection;

namespace korvane {

class TMaterial;
class TOKBottomDlg1;
class TStructureView;
class TframeF;

enum class ReadStatus;

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
    /// How long create() reads before it shows its progress.
    void setProgressDelay(std::chrono::milliseconds delay) { progressDelay_ = delay; }

    /// The dialogs that the commands of the "Structure" page show; they must outlive the window.
    /// Without them "Edit" and "Rename Frame" do nothing.
    void setDialogs(const DocumentDialogs& dialogs) { dialogs_ = dialogs; }

    [[nodiscard]] bool canUndo() const { return model_ && history_.canUndo(); }
    [[nodiscard]] bool canRedo() const { return model_ && history_.canRedo(); }
    void undo();
    void redo();

    /// Whether Copy takes something from the selection, and whether Paste puts such content there.
    [[nodiscard]] bool canCopy() const;
    [[nodiscard]] bool canPaste(ClipboardContent content) const;
    /// The clipboard block of the selection; empty if there is nothing that Copy takes.
    [[nodiscard]] QByteArray copy() const;
    /// Pastes a block into the selection; one that is damaged or does not fit changes nothing.
    void paste(const QByteArray& block);

    /// The settings of the 3D view; changes show with the next render3d().
    [[nodiscard]] ViewState& view();
    /// Gives the 3D view other colours, which show when it is drawn next.
    void setViewColors(const ViewColors& colors);

    /// The model; null once the window has been closed.
    [[nodiscard]] ModelDocument* document() { return model_ ? &*model_ : nullptr; }
    [[nodiscard]] const ModelDocument* document() const { return model_ ? &*model_ : nullptr; }
    /// How much was read from the file, for the status bar; empty if nothing was.
    [[nodiscard]] const QString& readSummary() const { return readSummary_; }

    /// Opens a binary mesh file for a window just constructed; no command does so. Nothing is read
    /// from the file: the empty model is saved as "loaded.xsi" in the current folder.
    void FileOpenMSH(const QString& fileName);

    // Saving does nothing once the window has been closed.
    void FileSaveExecute();
    void FileSaveAsExecute();

    /// Redraws the views; does nothing once the window has been closed.
    void render3d();

    /// Whether FormCanClose would ask the user.
    [[nodiscard]] bool needsCloseQuestion() const { return model_ && model_->Modified; }
    /// Asks what to do about changes that are not saved; false if the user wants to keep the
    /// window.
    bool FormCanClose();
    /// Closes the window for a caller that has already asked FormCanClose.
    void closeUnasked();

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void FormClose();
    void FormResize();
    void ChildSelectedChange(const QItemSelection& selected);
    void EditButtonClick();
    void RenameButtonClick();
    void Deletebuttonclick();
    void Addbuttonclick();
    void TwoDVisibleExecute();

    void FileOpenXSI(const QString& fileName);
    void SaveFileXSI();
    /// Shows nothing where the file was read or is just missing.
    void showReadFailure(ReadStatus status, const QString& fileName);
    void showSaveFailure(const QString& fileName);
    void setCaption();
    void rebuildTree();
    void editFrameOptions();
    /// Opens the material editor on the selected slot or entry of the table.
    void editMaterials();
    /// `path` leads to the frame; a frame outside the model has none.
    void showMaterialEditor(FrameRecord& frame, const std::optional<FramePath>& path);
    void refresh(const RefreshFlags& flags);
    /// Moves the selection in the tree to what the document has selected, as if the user did.
    void followSelection();
    void loadTexturesOfDocument();
    void fitPages();
    void selectRoot();
    void showSelectedButtons();

    std::unique_ptr<Ui::TMDIChild> ui_;
    std::optional<ModelDocument> model_;
    EditHistory history_;
    DocumentDialogs dialogs_;
    std::unique_ptr<TStructureView> structure_; ///< goes before the tree view that it fills
    std::chrono::milliseconds progressDelay_{500};
    QString readSummary_;
    bool filling_ = false; ///< the selection is set to show the model, not by the user
    bool closeAgreed_ = false;
};

} // namespace korvane
