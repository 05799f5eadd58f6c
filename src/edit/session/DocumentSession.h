#pragma once

#include "edit/clipboard/ClipboardBlock.h"
#include "edit/history/EditHistory.h"
#include "edit/recovery/RecoveryKeeper.h"
#include "edit/session/Changes.h"
#include "edit/session/MaterialEditing.h"
#include "edit/session/PickCycle.h"
#include "edit/session/StatusText.h"
#include "formats/files/FileState.h"
#include "formats/files/OtherSave.h"
#include "formats/xsi/FrameNames.h"
#include "formats/xsi/MshOpener.h"
#include "formats/xsi/XsiReader.h"
#include "model/document/StructureTreeModel.h"
#include "model/records/FrameFlags.h"
#include "render/drags/KeyRun.h"
#include "render/drags/OrbitDrag.h"
#include "render/drags/PlaneDrag.h"
#include "render/scene/ViewState.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace korvane {

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

struct MeshOutcome {
    MshOutcome result;
    Changes changes;
};
struct PasteOutcome {
    QString refusal; ///< why nothing was pasted, to the user; empty when it was
    Changes changes;
};

/// A mouse event of a 2D view, and the size of that view in device pixels.
struct PlaneInput {
    ViewPlane plane = ViewPlane::XY;
    std::int32_t width = 1;
    std::int32_t height = 1;
    DragInput mouse;
};

/// One open model with everything that a user can do to it. The session owns the model, its history
/// and what its views show of it, and is the one that changes them. Each operation answers what is
/// out of date since. It asks nothing: what needs an answer of the user is a question that a form
/// brings the answer to.
class DocumentSession {
  public:
    /// An empty model that was never saved, with nothing selected.
    DocumentSession();
    // the history and the editing of materials refer to the session
    DocumentSession(const DocumentSession&) = delete;
    DocumentSession& operator=(const DocumentSession&) = delete;

    [[nodiscard]] const ModelDocument& model() const { return model_; }
    [[nodiscard]] const ViewState& view() const { return view_; }
    [[nodiscard]] const PlaneColors& planeColors() const { return planeColors_; }
    // For drawing alone: it stores its caches in the model, and the mode drawn last in the view.
    [[nodiscard]] ModelDocument& model() { return model_; }
    [[nodiscard]] ViewState& view() { return view_; }
    [[nodiscard]] const EditHistory& history() const { return history_; }
    /// The structure of the model, rebuilt by every operation that changes it.
    [[nodiscard]] StructureTreeModel& tree() { return tree_; }

    // Opening and saving.

    /// Gives a new model its name.
    Changes setName(const QString& name);
    /// Reads a model in place of this one, and forgets the history of that. A reading that fails
    /// leaves an empty model, one that is cancelled leaves all as it was.
    OpenOutcome open(const QString& fileName, const ReadProgress& progress = {});
    /// Opens a binary mesh file, of which nothing is read.
    MeshOutcome openMesh(const QString& fileName);
    /// Whether saving needs a name of the user's choice first.
    [[nodiscard]] bool needsName() const { return model_.NeverSaved; }
    /// Whether there is anything for Save to do.
    [[nodiscard]] bool canSave() const { return model_.Modified || model_.NeverSaved; }
    /// Saves under the model's name. It counts as saved whatever became of that, by design also
    /// under names of kinds that are never written.
    SaveOutcome save();
    SaveOutcome saveAs(const QString& name);
    /// Whether closing would lose changes, which needs a yes.
    [[nodiscard]] bool needsCloseQuestion() const { return model_.Modified; }

    // Recovery copies, which keep what is in no file.

    /// From here on copies of the model are kept in the folder.
    void keepCopiesIn(const RecoveryFolder& folder, KeeperClock clock = steadyClock());
    /// Whether the model holds work that is in no file, whatever its flags say.
    [[nodiscard]] bool hasUnsavedWork() const;
    /// Makes the copy current, at once or where one is due. A copy of what is in a file goes.
    KeepOutcome keepCopy(RecoveryKeeper::When when);
    /// The user has said that the work may go with the window, or has not. What is done after that
    /// is not meant.
    void giveUpWork(bool givenUp) {
        givenUp_ = givenUp ? std::optional(model_.Revision) : std::nullopt;
    }
    /// The model goes away. The copy of its work stays, made current, unless the user has given all
    /// of the work up.
    KeepOutcome endWork();
    /// Opens a copy in place of this model, as one that was never saved. One that cannot be opened
    /// is left as it is, and so is this model.
    OpenOutcome recover(LeftCopy& copy, const ReadProgress& progress = {});

    // Editing. Nothing is edited, and nothing taken back, while a drag changes the model or its
    // materials are edited.

    [[nodiscard]] bool acceptsEdits() const { return !dragging() && !materials_; }
    /// Whether there is something to take back, and to make again. True also while materials are
    /// edited, though undo() and redo() then refuse: the dialog covers the commands.
    [[nodiscard]] bool canUndo() const { return !dragging() && history_.canUndo(); }
    [[nodiscard]] bool canRedo() const { return !dragging() && history_.canRedo(); }
    Changes undo();
    Changes redo();

    /// Whether Copy takes something from the selection, and whether Paste puts such content there.
    [[nodiscard]] bool canCopy() const;
    [[nodiscard]] bool canPaste(ClipboardContent content) const;
    /// The clipboard block of the selection; empty if there is nothing that Copy takes. Throws as
    /// encoding does.
    [[nodiscard]] QByteArray copy();
    /// Pastes a block into the selection. One that is damaged or does not fit changes nothing.
    PasteOutcome paste(const QByteArray& block);

    /// The tree has selected a node; an empty record means none.
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

    /// Begins editing the materials of the selected slot list or table; null if none is selected.
    /// Nothing else is edited until that ends, and with it the object.
    MaterialEditing* editMaterials();
    /// Records what is pending. After this the object is gone.
    Changes endMaterials();

    // The views.

    /// What the mouse does in the 2D views, from the next press on.
    Changes setTool(ViewTool tool);
    Changes setRenderMode(RenderMode mode);
    Changes setViewSetting(bool ViewState::*setting, bool on);
    Changes setDrawApi(DrawApi api);
    /// Shows or hides the selected frame, or its mesh; a frame that is hidden hides its mesh for
    /// later as well. The pictures follow when the mouse next comes to a view; so they do with
    /// other colours.
    void setFrameVisible(bool visible);
    void setMeshVisible(bool visible);
    void setColors(const ViewColors& colors, const PlaneColors& planeColors);
    /// What such a change has put out of date, told once. Undo, redo and the mouse in a 2D view
    /// tell it as well.
    Changes takeOverdue();
    /// A view is about to be drawn in a size in device pixels. Where the model is another one since
    /// the last time, this moves the camera, or the 2D views, to where it is seen whole.
    void placeCamera(const ViewGeometry& geometry);
    void placePlanes(std::int32_t width, std::int32_t height);

    // The mouse in the views. In the 2D views it does what the tool is for.

    Changes pressPlane(const PlaneInput& input);
    Changes movePlane(const PlaneInput& input);
    Changes releasePlane(const PlaneInput& input);
    Changes wheelPlane(const PlaneInput& input, float notches);
    /// The pointer has left the 2D views.
    Changes leavePlane();
    /// Ends a running drag of a 2D view without a trace.
    Changes cancelPlaneDrag();
    [[nodiscard]] bool draggingPlane() const { return planeDrag_.active(); }

    Changes pressOrbit(const DragInput& input);
    Changes moveOrbit(const DragInput& input, const ViewGeometry& geometry);
    Changes releaseOrbit(const DragInput& input, const ViewGeometry& geometry);
    Changes wheelOrbit(float notches);
    Changes cancelOrbit();
    [[nodiscard]] bool draggingOrbit() const { return orbit_.active(); }

    /// Selects the frame that shows at a pixel of a view, another one there each time; nothing
    /// where none shows.
    Changes pickPlane(const PlaneInput& input);
    Changes pickSpace(const DragInput& input, const ViewGeometry& geometry);

    // The keyboard in the views. In the 2D views arrows do what the tool is for. Those that move or
    // turn a frame in a run are one step of the history, which has the step from the first key on.

    Changes keyPlane(const PlaneInput& view, ViewKey key);
    Changes keyOrbit(const ViewGeometry& geometry, ViewKey key);
    /// Something else begins, as all other operations do: the next key is a step of its own.
    void endKeys() { keys_.reset(); }
    /// Turns the camera.
    Changes lookAlong(const CameraAngles& angles);

    /// What the views show, each in one sentence for people who cannot see it.
    [[nodiscard]] QString describePlane(const PlaneInput& view) const;
    [[nodiscard]] QString describeSpace() const;

    // The status bar.

    /// Where the pointer is in a 2D view and what it does there, else what the program has to say,
    /// else what became of the last command, else how much the model holds.
    [[nodiscard]] QString statusText(const QString& notice = {}) const;
    /// A new command begins: what the last one said is out of date.
    Changes clearMessage();

  private:
    /// Whether the mouse is changing the model.
    [[nodiscard]] bool dragging() const;
    /// Whether a dialog about the frame may still change it; the frame then.
    [[nodiscard]] FrameRecord* stillThere(const DialogSubject& subject);
    Changes setText(QString& text, const QString& value);
    void setVisible(bool frame, bool mesh);
    void startHistory();
    /// The model is another one, to be seen from the start.
    Changes takeModel(ModelDocument&& model);
    /// Writes the model under its name; `former` is the name of the file that it was in so far.
    /// `other` is what became of another program's save there.
    SaveOutcome write(const QString& former, const OtherSave& other);
    Changes rebuildTree();
    /// Makes the node of the tree that stands for the selection, or for what is nearest to it, the
    /// selection.
    void settleSelection();
    /// After an undo or a redo, with the selection from before it.
    Changes stepped(const StepOutcome& outcome, const NodeData& before);
    /// After a command of the user has changed the structure.
    Changes structureEdited();
    [[nodiscard]] PlaneMapping mappingOf(const PlaneInput& input) const;
    /// Records that a frame has moved. One that cannot be recorded is back at its place.
    void record(const FrameMove& move);
    /// An arrow key of a run that moves or turns the selected frame.
    Changes keyFrame(const PlaneMapping& mapping, ViewKey arrow);
    Changes pick(const PickSpot& spot,
                 const std::function<std::vector<FramePath>(const PickSpot&)>& framesAt);
    /// The 2D views show another part of the model: other coordinates are under the pointer.
    Changes followPointer();
    /// What a mouse event in a 2D view has put out of date: what was overdue, and the status bar.
    Changes afterPlane(const PlaneInput& input, const StaleViews& stale);

    ModelDocument model_;
    std::optional<std::uint64_t> fileRevision_ = 0; ///< the Revision of what is in a file
    std::optional<FileState> file_;                 ///< the file of the model's name, as last known
    std::optional<RecoveryKeeper> keeper_;
    std::optional<std::uint64_t> givenUp_; ///< the Revision that may go with the window
    EditHistory history_;
    StructureTreeModel tree_;
    std::optional<MaterialEditing> materials_;
    ViewState view_;
    PlaneColors planeColors_;
    PlaneDrag planeDrag_;
    OrbitDrag orbit_;
    /// A run of keys, and how the model was marked before it.
    struct Keys {
        KeyRun run;
        bool modified = false;
        std::uint64_t startRevision = 0;
        std::uint64_t revision = 0; ///< since the last key
    };
    std::optional<Keys> keys_; ///< while the next key may go on with it
    PickCycle picks_;
    bool overdue_ = false; ///< the pictures do not show everything yet
    bool cameraPlaced_ = false;
    bool planesPlaced_ = false;
    QString counts_;
    QString message_;                   ///< of the last command
    std::optional<PlaneInput> pointer_; ///< while it is in a 2D view
    QString pointerText_;
};

} // namespace korvane
