#pragma once

#include "edit/clipboard/ClipboardBlock.h"
#include "edit/history/EditHistory.h"
#include "edit/recovery/RecoveryKeeper.h"
#include "edit/session/Changes.h"
#include "edit/session/FoundTextures.h"
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

/// A frame that a dialog is about. Its answer is dropped if anything else has changed the model
/// meanwhile.
struct DialogSubject {
    FramePath frame;
    std::uint64_t revision = 0;
};

/// The input of the rename dialog.
struct RenameQuestion {
    DialogSubject subject;
    QString shown; ///< the name as displayed
    NameUse use;
};

/// The input of the frame options dialog.
struct OptionsQuestion {
    DialogSubject subject;
    FrameFlags flags;
};

// The results of opening, saving and pasting, and what they have put out of date.
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
    QString refusal; ///< tells the user why nothing was pasted; empty on success
    Changes changes;
};

/// A mouse event in a 2D view, and the view's size in device pixels.
struct PlaneInput {
    ViewPlane plane = ViewPlane::XY;
    std::int32_t width = 1;
    std::int32_t height = 1;
    DragInput mouse;
};

/// One open model with everything that a user can do to it. The session owns the model, its history
/// and its view settings, and nothing else changes them. Each operation returns what it has put out
/// of date. The session never asks the user: it returns a question, and a form brings back the
/// answer.
class DocumentSession {
  public:
    /// Starts with an empty model, never saved, with nothing selected.
    DocumentSession();
    // the history and the editing of materials refer to the session
    DocumentSession(const DocumentSession&) = delete;
    DocumentSession& operator=(const DocumentSession&) = delete;

    [[nodiscard]] const ModelDocument& model() const { return model_; }
    [[nodiscard]] const ViewState& view() const { return view_; }
    [[nodiscard]] const PlaneColors& planeColors() const { return planeColors_; }
    // Only for drawing, which stores its caches in the model and the last drawn mode in the view.
    [[nodiscard]] ModelDocument& model() { return model_; }
    [[nodiscard]] ViewState& view() { return view_; }
    [[nodiscard]] const EditHistory& history() const { return history_; }
    /// The structure of the model. Every operation that changes it rebuilds this.
    [[nodiscard]] StructureTreeModel& tree() { return tree_; }

    // Opening and saving.

    /// Names a new model.
    Changes setName(const QString& name);
    /// Reads a model in place of this one and starts a new history. A failed read leaves an empty
    /// model, a cancelled one changes nothing.
    OpenOutcome open(const QString& fileName, const ReadProgress& progress = {});
    /// Opens a binary mesh file, but reads nothing from it.
    MeshOutcome openMesh(const QString& fileName);
    /// Whether the user must choose a name before saving.
    [[nodiscard]] bool needsName() const { return model_.NeverSaved; }
    /// Whether Save has anything to do.
    [[nodiscard]] bool canSave() const { return model_.Modified || model_.NeverSaved; }
    /// Saves under the model's name. By design the model counts as saved even if this fails or the
    /// name is of a kind that is never written.
    SaveOutcome save();
    SaveOutcome saveAs(const QString& name);
    /// Whether closing would lose changes and needs the user's consent.
    [[nodiscard]] bool needsCloseQuestion() const { return model_.Modified; }

    // Recovery copies, for work that is in no file.

    /// Keeps copies of the model in the folder from now on.
    void keepCopiesIn(const RecoveryFolder& folder, KeeperClock clock = steadyClock());
    /// Whether the model holds work that is in no file, whatever its flags say.
    [[nodiscard]] bool hasUnsavedWork() const;
    /// Makes the copy current, at once or when due. Removes it if all work is in a file.
    KeepOutcome keepCopy(RecoveryKeeper::When when);
    /// Records whether the user gives up the work with the window; this does not include later
    /// changes.
    void setGivenUp(bool givenUp) {
        givenUp_ = givenUp ? std::optional(model_.Revision) : std::nullopt;
    }
    /// The model goes away. Makes the copy of its work current and leaves it, unless the user has
    /// given up all of the work.
    KeepOutcome endWork();
    /// Opens a copy in place of this model, as one that was never saved. If that fails, the copy
    /// and this model stay as they are.
    OpenOutcome recover(LeftCopy& copy, const ReadProgress& progress = {});

    // Editing. Edits, undo and redo do nothing while a drag changes the model or materials are
    // edited.

    [[nodiscard]] bool acceptsEdits() const { return !dragging() && !materials_; }
    /// Whether there is something to undo or redo. Also true while materials are edited, though
    /// undo() and redo() then refuse: the dialog covers the commands.
    [[nodiscard]] bool canUndo() const { return !dragging() && history_.canUndo(); }
    [[nodiscard]] bool canRedo() const { return !dragging() && history_.canRedo(); }
    Changes undo();
    Changes redo();

    /// Whether Copy works with the selection, and Paste with such content.
    [[nodiscard]] bool canCopy() const;
    [[nodiscard]] bool canPaste(ClipboardContent content) const;
    /// The clipboard block of the selection; empty if Copy does not work with it. Throws as
    /// encoding does.
    [[nodiscard]] QByteArray copy();
    /// Pastes a block into the selection. A damaged or unsuitable one changes nothing.
    PasteOutcome paste(const QByteArray& block);

    /// Call when the tree selects a node; an empty record means none.
    Changes select(const NodeData& node);
    Changes selectRoot();
    /// The "Add" and "Delete" buttons, for the selected node.
    Changes add();
    Changes remove();

    /// The question of the rename dialog about the selected frame, if any, and its answer.
    [[nodiscard]] std::optional<RenameQuestion> renameQuestion() const;
    Changes rename(const RenameQuestion& question, const QString& name);

    /// The question of the frame options dialog about the selected frame, if any. The dialog writes
    /// flags at once; endOptions() records them, or, if cancelled, deliberately leaves them without
    /// an entry.
    [[nodiscard]] std::optional<OptionsQuestion> optionsQuestion() const;
    void writeFlags(DialogSubject& subject, const FrameFlags& flags);
    Changes endOptions(const OptionsQuestion& asked, const DialogSubject& subject, bool confirmed);

    /// Begins editing the materials of the selected slot list or table; null if none is selected.
    /// Until endMaterials() nothing else can be edited.
    MaterialEditing* editMaterials();
    /// Records what is pending and destroys the object.
    Changes endMaterials();

    // The views.

    /// Sets the tool of the mouse in the 2D views, from the next press on.
    Changes setTool(ViewTool tool);
    Changes setRenderMode(RenderMode mode);
    Changes setViewSetting(bool ViewState::*setting, bool on);
    Changes setDrawApi(DrawApi api);
    /// Shows or hides the selected frame or its mesh. Hiding a frame hides its mesh too, which then
    /// stays hidden when the frame shows again. The pictures follow when the mouse next enters a
    /// view, also after setColors().
    void setFrameVisible(bool visible);
    void setMeshVisible(bool visible);
    void setColors(const ViewColors& colors, const PlaneColors& planeColors);
    /// Returns once what such a change has put out of date. Undo, redo and the mouse in a 2D view
    /// include it in theirs.
    Changes takeOverdue();
    /// Call before drawing a view of a size in device pixels. For a new model, this moves the
    /// camera, or the 2D views, so that the model is seen whole.
    void placeCamera(const ViewGeometry& geometry);
    void placePlanes(std::int32_t width, std::int32_t height);

    // The mouse in the views. In the 2D views the tool decides what it does.

    Changes pressPlane(const PlaneInput& input);
    Changes movePlane(const PlaneInput& input);
    Changes releasePlane(const PlaneInput& input);
    Changes wheelPlane(const PlaneInput& input, float notches);
    /// The pointer has left the 2D views.
    Changes leavePlane();
    /// Cancels a running drag in a 2D view.
    Changes cancelPlaneDrag();
    [[nodiscard]] bool draggingPlane() const { return planeDrag_.active(); }

    Changes pressOrbit(const DragInput& input);
    Changes moveOrbit(const DragInput& input, const ViewGeometry& geometry);
    Changes releaseOrbit(const DragInput& input, const ViewGeometry& geometry);
    Changes wheelOrbit(float notches);
    Changes cancelOrbit();
    [[nodiscard]] bool draggingOrbit() const { return orbit_.active(); }

    /// Selects a frame at a pixel of a view; repeated picks there cycle through its frames. Without
    /// a frame there, nothing changes.
    Changes pickPlane(const PlaneInput& input);
    Changes pickSpace(const DragInput& input, const ViewGeometry& geometry);

    // The keyboard in the views. In the 2D views the tool decides what arrows do. A run of arrows
    // that moves or turns a frame is one step of the history, present from the first key on.

    Changes keyPlane(const PlaneInput& view, ViewKey key);
    Changes keyOrbit(const ViewGeometry& geometry, ViewKey key);
    /// Ends a run, as all other operations do: the next key starts a new step.
    void endKeys() { keys_.reset(); }
    /// Turns the camera.
    Changes lookAlong(const CameraAngles& angles);

    /// What the views show, each in one sentence for people who cannot see it.
    [[nodiscard]] QString describePlane(const PlaneInput& view) const;
    [[nodiscard]] QString describeSpace() const;

    // The status bar.

    /// The first of these that has something to say: the pointer in a 2D view, the program's
    /// notice, the last command's message, the size of the model.
    [[nodiscard]] QString statusText(const QString& notice = {}) const;
    /// Call when a new command begins: clears the last one's message.
    Changes clearMessage();

  private:
    /// Whether the mouse is changing the model.
    [[nodiscard]] bool dragging() const;
    /// The frame, if a dialog about it may still change it; else null.
    [[nodiscard]] FrameRecord* frameIfUnchanged(const DialogSubject& subject);
    Changes setText(QString& text, const QString& value);
    void setVisible(bool frame, bool mesh);
    void startHistory();
    /// Replaces the model and shows the new one whole.
    Changes takeModel(ModelDocument&& model);
    /// Writes the model under its name. `former` was its name so far; `other` says what happened to
    /// another program's save there.
    SaveOutcome write(const QString& former, const OtherSave& other);
    Changes rebuildTree();
    /// Moves the selection to the tree's node for it, or the nearest one.
    void settleSelection();
    /// Follows an undo or a redo. `before` was the selection.
    Changes stepped(const StepOutcome& outcome, const NodeData& before);
    /// Follows a command that has changed the structure.
    Changes structureEdited();
    [[nodiscard]] PlaneMapping mappingOf(const PlaneInput& input) const;
    /// Records that a frame has moved, or puts it back if that throws.
    void record(const FrameMove& move);
    /// Handles an arrow key that moves or turns the selected frame.
    Changes keyFrame(const PlaneMapping& mapping, ViewKey arrow);
    Changes pick(const PickSpot& spot,
                 const std::function<std::vector<FramePath>(const PickSpot&)>& framesAt);
    /// Call when the 2D views show another part of the model: updates the pointer's coordinates.
    Changes followPointer();
    /// Updates the status bar after a mouse event in a 2D view, and adds what was overdue.
    Changes afterPlane(const PlaneInput& input, const StaleViews& stale);

    ModelDocument model_;
    std::optional<std::uint64_t> fileRevision_ = 0; ///< the Revision that is in a file
    std::optional<FileState> file_;                 ///< the model's file, as last known
    std::optional<RecoveryKeeper> keeper_;
    std::optional<std::uint64_t> givenUp_; ///< the Revision that the user gave up
    EditHistory history_;
    StructureTreeModel tree_;
    FoundTextures textures_; ///< for what the rows tell
    std::optional<MaterialEditing> materials_;
    ViewState view_;
    PlaneColors planeColors_;
    PlaneDrag planeDrag_;
    OrbitDrag orbit_;
    /// A run of keys, and the model's marks before it.
    struct Keys {
        KeyRun run;
        bool modified = false;
        std::uint64_t startRevision = 0;
        std::uint64_t revision = 0; ///< after the last key
    };
    std::optional<Keys> keys_; ///< while the next key may continue it
    PickCycle picks_;
    bool overdue_ = false; ///< the pictures are out of date
    bool cameraPlaced_ = false;
    bool planesPlaced_ = false;
    QString counts_;
    QString message_;                   ///< from the last command
    std::optional<PlaneInput> pointer_; ///< while in a 2D view
    QString pointerText_;
};

} // namespace korvane
