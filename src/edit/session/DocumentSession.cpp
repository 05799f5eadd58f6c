#include "edit/session/DocumentSession.h"

#include "edit/clipboard/ClipboardEdit.h"
#include "edit/clipboard/ClipboardReader.h"
#include "edit/history/SlotEdits.h"
#include "edit/history/StructureEdits.h"
#include "edit/session/RowDetails.h"
#include "formats/files/ByteReader.h"
#include "formats/files/FileNames.h"
#include "formats/textures/TextureLoader.h"
#include "formats/xsi/XsiWriter.h"
#include "model/records/ModelText.h"

#include <QFileInfo>
#include <QScopeGuard>

#include <string>
#include <utility>
#include <variant>

namespace korvane {

namespace {

/// Tells the user why Paste did nothing.
QString pasteRefusal(bool frameToFrame) {
    return frameToFrame ? QStringLiteral("Frames cannot be nested any deeper.")
                        : QStringLiteral("The clipboard contains nothing that can be pasted.");
}

QString folderOfModel(const ModelDocument& model) {
    return QFileInfo(model.FileName).path();
}

} // namespace

DocumentSession::DocumentSession() {
    startHistory();
    const auto find = [this](const std::string& name) { return textures_.find(model_, name); };
    tree_.setSource({[this, find](const NodeData& node) { return rowDetails(model_, node, find); },
                     [this](const NodeData& node) { return rowSample(model_, node); }});
    rebuildTree();
}

void DocumentSession::startHistory() {
    // a new loader for each texture: files may have changed since the last one
    history_ = EditHistory([this](const std::string& name) {
        return TextureLoader(folderOfModel(model_)).load(name);
    });
}

// Opening and saving

Changes DocumentSession::setName(const QString& name) {
    model_.FileName = name;
    return {.title = true};
}

OpenOutcome DocumentSession::open(const QString& fileName, const ReadProgress& progress) {
    // events run while progress shows: do not expose half a model
    ModelDocument read;
    OpenNotes notes;
    OpenOutcome outcome;
    outcome.status = FileOpenXSI(fileName, read, progress, &notes);
    if (outcome.status == ReadStatus::Cancelled) {
        return outcome;
    }
    outcome.changes = takeModel(std::move(read));
    fileRevision_ = model_.Revision;
    file_ = notes.file;
    outcome.changes |=
        setText(message_,
                outcome.status == ReadStatus::Done ? openedText(model_, notes.unseen) : QString());
    return outcome;
}

Changes DocumentSession::takeModel(ModelDocument&& model) {
    cancelPlaneDrag();
    endKeys();
    materials_.reset(); // belongs to the old model
    model_ = std::move(model);
    textures_ = {};
    startHistory();
    cameraPlaced_ = planesPlaced_ = false;
    Changes changes = rebuildTree();
    changes |= selectRoot();
    changes.geometry = changes.title = true;
    return changes;
}

MeshOutcome DocumentSession::openMesh(const QString& fileName) {
    const MshOutcome result = FileOpenMSH(fileName, model_);
    return {result, {.title = result.status == ReadStatus::CannotOpen}};
}

SaveOutcome DocumentSession::save() {
    OtherSave other;
    if (modelFileKind(model_.FileName) == ModelFileKind::Xsi) {
        other = keepOtherSave(model_.FileName, file_);
    }
    if (other.fate == OtherSave::Fate::Kept) {
        file_ = other.file; // for another try if this save fails
    }
    return write(model_.FileName, other);
}

SaveOutcome DocumentSession::saveAs(const QString& name) {
    const QString former = model_.FileName;
    const Changes named = setName(name);
    const std::optional<FileStamp> replaced = stampOf(name);
    file_ = replaced ? std::optional(FileState{*replaced, {}}) : std::nullopt; // the user agreed
    SaveOutcome outcome = write(former, {});
    outcome.changes |= named;
    return outcome;
}

SaveOutcome DocumentSession::write(const QString& former, const OtherSave& other) {
    SaveOutcome outcome;
    endKeys();
    outcome.changes = cancelPlaneDrag(); // never save half a drag
    givenUp_.reset();
    const bool writes = modelFileKind(model_.FileName) == ModelFileKind::Xsi;
    if (writes && former == model_.FileName) {
        fileRevision_.reset(); // overwriting may fail halfway
    }
    keepCopy(RecoveryKeeper::When::Now);
    if (!writes) {
        outcome.result = SaveResult::NotWritten;
    } else if (const auto written = SaveFileXSI(model_, model_.FileName)) {
        file_ = written;
        fileRevision_ = model_.Revision;
    } else {
        outcome.result = SaveResult::Failed;
    }
    outcome.changes |= setText(message_, savedText(model_, outcome.result, other));
    model_.NeverSaved = false;
    model_.Modified = false;
    keepCopy(RecoveryKeeper::When::Due); // removes the copy after a save
    return outcome;
}

// Undo and redo, the clipboard

bool DocumentSession::dragging() const {
    return planeDrag_.active() || (materials_ && materials_->dragging());
}

Changes DocumentSession::undo() {
    if (!acceptsEdits() || !canUndo()) {
        return {};
    }
    const NodeData before = model_.Selected;
    const QString text = undoneText(history_.undoName());
    const Changes changes = stepped(history_.undo(model_), before);
    return changes | setText(message_, text);
}

Changes DocumentSession::redo() {
    if (!acceptsEdits() || !canRedo()) {
        return {};
    }
    const NodeData before = model_.Selected;
    const QString text = redoneText(history_.redoName());
    const Changes changes = stepped(history_.redo(model_), before);
    return changes | setText(message_, text);
}

Changes DocumentSession::stepped(const StepOutcome& outcome, const NodeData& before) {
    if (outcome.frame) {
        model_.selectFrame(*outcome.frame);
    }
    Changes changes = {.geometry = outcome.refresh.refreshGeometry,
                       .materials = outcome.refresh.refreshMaterials};
    if (outcome.refresh.rebuildTree) {
        changes |= rebuildTree();
    } else {
        settleSelection();
    }
    changes.selection = !model_.Selected.isSameNode(before);
    // the views mark the selected frame
    changes.geometry = changes.geometry || model_.Selected.Frame != before.Frame;
    return changes | takeOverdue();
}

bool DocumentSession::canCopy() const {
    return !dragging() && korvane::canCopy(model_.Selected.NodeKind);
}

bool DocumentSession::canPaste(ClipboardContent content) const {
    return !dragging() && korvane::canPaste(model_.Selected.NodeKind, content);
}

QByteArray DocumentSession::copy() {
    endKeys();
    return dragging() ? QByteArray() : copySelection(model_);
}

PasteOutcome DocumentSession::paste(const QByteArray& block) {
    if (!acceptsEdits()) {
        return {};
    }
    std::optional<ClipboardItem> item = decodeBlock(bytesOf(block));
    const bool frameToFrame = item && std::holds_alternative<CopiedFrame>(*item) &&
                              model_.Selected.NodeKind == NodeKind::Frame;
    TextureLoader textures(folderOfModel(model_));
    const auto load = [&textures](const std::string& name) { return textures.load(name); };
    if (!item || !pasteIntoSelection(model_, history_, std::move(*item), load)) {
        return {pasteRefusal(frameToFrame), {}};
    }
    return {{}, structureEdited()};
}

// The selection and the structure

Changes DocumentSession::select(const NodeData& node) {
    endKeys();
    const std::optional<FramePath> oldFrame = model_.Selected.Frame;
    model_.Selected = model_.SelectionCopy = node;
    const bool otherFrame = node.Frame && node.Frame != oldFrame;
    if (otherFrame) {
        model_.markSelection(*node.Frame);
    }
    return {.geometry = otherFrame};
}

Changes DocumentSession::selectRoot() {
    model_.selectFrame(FramePath());
    settleSelection();
    return {.selection = true};
}

void DocumentSession::settleSelection() {
    if (model_.Selected.NodeKind != NodeKind::None) {
        model_.Selected = tree_.tree().nodeData(tree_.tree().nearestNode(model_.Selected));
    }
    model_.SelectionCopy = model_.Selected;
}

Changes DocumentSession::rebuildTree() {
    tree_.setTree(StructureTree(model_));
    settleSelection();
    Changes changes = setText(counts_, countsText(model_));
    changes.tree = true;
    return changes;
}

Changes DocumentSession::structureEdited() {
    Changes changes = rebuildTree();
    changes.geometry = true;
    return changes;
}

Changes DocumentSession::add() {
    const NodeData node = model_.Selected;
    if (!acceptsEdits()) {
        return {};
    }
    switch (node.NodeKind) {
    case NodeKind::Frame:
        addFrame(history_, model_, *node.Frame, "");
        break;
    case NodeKind::MeshMaterialList:
    case NodeKind::MaterialSlot:
        addMeshMaterial(history_, model_, *node.Frame);
        break;
    case NodeKind::MaterialTable:
    case NodeKind::TableMaterial:
        addMaterial(history_, model_);
        break;
    default:
        return {};
    }
    return structureEdited();
}

Changes DocumentSession::remove() {
    const NodeData node = model_.Selected;
    if (!acceptsEdits() || !node.CanDelete) {
        return {};
    }
    switch (node.NodeKind) {
    case NodeKind::Frame:
        deleteFrame(history_, model_, *node.Frame);
        model_.selectFrame(node.Frame->parent());
        break;
    case NodeKind::MaterialSlot:
        removeSlot(history_, model_, *node.Frame, node.ItemIndex);
        break;
    case NodeKind::TableMaterial:
        deleteMaterial(history_, model_, static_cast<std::size_t>(node.ItemIndex));
        break;
    default:
        return {};
    }
    return structureEdited();
}

// Answers of dialogs

FrameRecord* DocumentSession::frameIfUnchanged(const DialogSubject& subject) {
    return acceptsEdits() && model_.Revision == subject.revision
               ? frameAt(model_.Root, subject.frame)
               : nullptr;
}

std::optional<RenameQuestion> DocumentSession::renameQuestion() const {
    const FrameRecord* frame = model_.selectedFrame();
    if (frame == nullptr || !acceptsEdits()) {
        return std::nullopt;
    }
    const FramePath& path = *model_.Selected.Frame;
    return RenameQuestion{
        {path, model_.Revision}, shownText(frame->Name), nameUse(*frame, path.depth() == 0)};
}

Changes DocumentSession::rename(const RenameQuestion& question, const QString& name) {
    FrameRecord* frame = frameIfUnchanged(question.subject);
    if (frame == nullptr) {
        return {};
    }
    // an unchanged name keeps its bytes, however they are displayed
    renameFrame(history_, model_, question.subject.frame,
                name == question.shown ? frame->Name : modelText(name));
    return rebuildTree();
}

std::optional<OptionsQuestion> DocumentSession::optionsQuestion() const {
    const FrameRecord* frame = model_.selectedFrame();
    if (frame == nullptr || model_.Selected.NodeKind != NodeKind::Frame || !acceptsEdits()) {
        return std::nullopt;
    }
    return OptionsQuestion{{*model_.Selected.Frame, model_.Revision}, frameFlags(*frame)};
}

void DocumentSession::writeFlags(DialogSubject& subject, const FrameFlags& flags) {
    if (FrameRecord* frame = frameIfUnchanged(subject)) {
        setFrameFlags(*frame, flags);
        subject.revision = ++model_.Revision;
    }
}

Changes DocumentSession::endOptions(const OptionsQuestion& asked, const DialogSubject& subject,
                                    bool confirmed) {
    FrameRecord* frame = frameIfUnchanged(subject);
    if (frame == nullptr) {
        return {};
    }
    if (frameFlags(*frame) == asked.flags) {
        if (subject.revision != asked.subject.revision) {
            // clicked back: there is no unsaved work to keep a copy of
            model_.Revision = asked.subject.revision;
            ++model_.LiveChanges; // the revisions in between will come again with other content
        }
        return {};
    }
    if (confirmed) {
        try {
            recordFrameOptions(history_, model_, subject.frame, asked.flags);
        } catch (...) {
            setFrameFlags(*frame, asked.flags); // no change without an entry
            ++model_.Revision;
            throw;
        }
    }
    // flags clicked before Cancel stay without an entry; the views must show them too
    return structureEdited();
}

MaterialEditing* DocumentSession::editMaterials() {
    endKeys();
    const NodeData& node = model_.Selected;
    const bool whole =
        node.NodeKind == NodeKind::MeshMaterialList || node.NodeKind == NodeKind::MaterialTable;
    const bool one =
        node.NodeKind == NodeKind::MaterialSlot || node.NodeKind == NodeKind::TableMaterial;
    if (!acceptsEdits() || !(whole || one)) {
        return nullptr;
    }
    return &materials_.emplace(model_, history_,
                               MaterialSubject{node.Frame, whole ? 0 : node.ItemIndex});
}

Changes DocumentSession::endMaterials() {
    if (!materials_) {
        return {};
    }
    const auto reset = qScopeGuard([this] { materials_.reset(); }); // even if the rest throws
    const Changes changes = materials_->end();
    return changes.tree ? structureEdited() : changes;
}

// The status bar

QString DocumentSession::statusText(const QString& notice) const {
    for (const QString* text : {&pointerText_, &notice, &message_}) {
        if (!text->isEmpty()) {
            return *text;
        }
    }
    return counts_;
}

Changes DocumentSession::setText(QString& text, const QString& value) {
    const bool changes = text != value;
    text = value;
    return {.status = changes};
}

Changes DocumentSession::clearMessage() {
    endKeys();
    return setText(message_, {});
}

} // namespace korvane
