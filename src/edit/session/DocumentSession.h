#pragma once

#include "edit/clipboard/ClipboardBlock.h"
#include "edit/history/EditHistory.h"
#include "edit/session/StatusText.h"
#include "formats/xsi/FrameNames.h"
#include "formats/xsi/XsiReader.h"
#include "model/document/StructureTreeModel.h"
#include "model/records/FrameFlags.h"
#include "render/drags/PlaneDrag.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

namespace korvane {

/// What of the forms an operation has put out of date.
struct Changes {
    bool tree = false;      ///< the structure tree has other nodes
    bool geometry = false;  ///< what all views show
    bool selection = false; ///< the selected node is another one
    bool title = false;
    bool status = false;

    Changes& operator|=(const Changes& other);
    bool operator==(const Changes&) const = default;
};

/// A frame that a dialog is about. What comes back from the dialog is dropped where anything else
/// has changed the model meanwhile.
struct DialogSubject {
    FramePath frame;
    std::uint64_t revision = 0;
};

/// What the rename dialog has to know.
struct RenameQuestion {
    DialogSubject subject;
    QString shown; ///< the name as the user sees it
    NameUse use;
};

/// What the frame options dialog has to know.
struct OptionsQuestion {
    DialogSubject subject;
    FrameFlags flags;
};

// How opening, saving and pasting ended, and what is out of date since.
struct OpenOutcome {
    ReadStatus status = ReadStatus::Done;
    Changes changes;
};
struct SaveOutcome {
    SaveResult result = SaveResult::Written;
    Changes changes;
};

struct PasteOutcome {
    QString refusal; ///< why nothing was pasted, to the user; empty when it was
    Changes changes;
};

/// One open model with everything that a user can do to it. The session owns the model and its
/// history and is the one that changes them. It asks nothing: what needs an answer of the user is a
/// question that a form brings the answer to.
class DocumentSession {
  public:
    /// An empty model that was never saved, with nothing selected.
    DocumentSession();
    // the history refers to the session
    DocumentSession(const DocumentSession&) = delete;
    DocumentSession& operator=(const DocumentSession&) = delete;

    [[nodiscard]] const ModelDocument& model() const { return model_; }
    /// For the views, which set the camera, and the material editor.
    [[nodiscard]] ModelDocument& model() { return model_; }
    [[nodiscard]] EditHistory& history() { return history_; }
    /// The structure of the model, rebuilt by every operation that changes it.
    [[nodiscard]] StructureTreeModel& tree() { return tree_; }

    // Opening and saving.

    /// Gives a new model its name.
    Changes setName(const QString& name);
    /// Reads a model in place of this one, and forgets the history of that. A reading that is
    /// cancelled leaves all as it was.
    OpenOutcome open(const QString& fileName, const ReadProgress& progress = {});
    /// Whether saving needs a name of the user's choice first.
    [[nodiscard]] bool needsName() const { return model_.NeverSaved; }
    /// Saves under the model's name. It counts as saved whatever became of that, by design also
    /// under names of kinds that are never written.
    SaveOutcome save();
    SaveOutcome saveAs(const QString& name);
    /// Whether closing would lose changes, which needs a yes.
    [[nodiscard]] bool needsCloseQuestion() const { return model_.Modified; }

    // Editing. Nothing is edited, and nothing taken back, while a drag changes the model.

    [[nodiscard]] bool acceptsEdits() const { return !model_.DragRunning; }
    [[nodiscard]] bool canUndo() const { return acceptsEdits() && history_.canUndo(); }
    [[nodiscard]] bool canRedo() const { return acceptsEdits() && history_.canRedo(); }
    Changes undo();
    Changes redo();

    /// Whether Copy takes something from the selection, and whether Paste puts such content there.
    [[nodiscard]] bool canCopy() const;
    [[nodiscard]] bool canPaste(ClipboardContent content) const;
    /// The clipboard block of the selection; empty if there is nothing that Copy takes. Throws as
    /// encoding does.
    [[nodiscard]] QByteArray copy() const;
    /// Pastes a block into the selection. One that is damaged or does not fit changes nothing.
    PasteOutcome paste(const QByteArray& block);

    /// A node of the tree becomes the selection; an empty record means none.
    Changes select(const NodeData& node);
    Changes selectRoot();
    /// What the "Add" and "Delete" buttons do to the selected node.
    Changes add();
    Changes remove();

    /// What the rename dialog asks about the selected frame, if there is one, and its answer.
    [[nodiscard]] std::optional<RenameQuestion> renameQuestion() const;
    Changes rename(const RenameQuestion& question, const QString& name);

    /// What the frame options dialog asks about the selected frame, if there is one. The dialog
    /// writes flags at once; its end records them, or if it was cancelled deliberately leaves them
    /// without an entry.
    [[nodiscard]] std::optional<OptionsQuestion> optionsQuestion() const;
    void writeFlags(DialogSubject& subject, const FrameFlags& flags);
    Changes endOptions(const OptionsQuestion& asked, const DialogSubject& subject, bool confirmed);

    /// Shows or hides the selected frame and its mesh. The pictures follow when they are next
    /// drawn.
    void setVisible(bool frame, bool mesh);
    /// Records what a drag did to a frame.
    Changes recordMove(const FrameMove& move);
    /// The table of materials or slots of a mesh may be others, changed through the history.
    Changes materialsEdited(bool slotsChanged);

    // The status bar.

    /// Where the pointer is in a 2D view and what it does there, else what became of the last
    /// command, else how much the model holds.
    [[nodiscard]] const QString& statusText() const;
    Changes setPointerText(const QString& text);
    /// A new command begins: what the last one said is out of date.
    Changes clearMessage();

  private:
    /// Whether a dialog about the frame may still change it; the frame then.
    [[nodiscard]] FrameRecord* stillThere(const DialogSubject& subject);
    Changes setText(QString& text, const QString& value);
    void startHistory();
    Changes rebuildTree();
    /// Makes the node of the tree that stands for the selection, or for what is nearest to it, the
    /// selection.
    void settleSelection();
    Changes refreshed(const RefreshFlags& flags, const NodeData& before);
    /// After a command of the user has changed the structure.
    Changes structureEdited();

    ModelDocument model_;
    EditHistory history_;
    StructureTreeModel tree_;
    QString counts_;
    QString message_; ///< of the last command
    QString pointerText_;
};

} // namespace korvane
