#include "edit/history/StructureEdits.h"

#include "edit/history/EditSteps.h"
#include "model/document/ChildFrames.h"

#include <array>
#include <memory>
#include <utility>

namespace korvane {

namespace {

/// The position among the children, from 0, of an added or deleted frame.
struct ChildPlace {
    std::int32_t position = 0;
};

void stepMoveFrame(EditStep& step) {
    if (const auto* matrix = step.value<Matrix4>()) {
        step.frame->Matrix = *matrix;
    }
}

void stepRenameFrame(EditStep& step) {
    if (const auto* name = step.value<std::string>()) {
        step.frame->Name = *name;
    }
}

void stepFrameOptions(EditStep& step) {
    if (const auto* flags = step.value<FrameFlags>()) {
        setFrameFlags(*step.frame, *flags);
    }
}

void stepAddFrame(EditStep& step) {
    const auto position = static_cast<std::size_t>(step.numbers<ChildPlace>().position);
    if (!step.forward) {
        std::vector<FrameRecord> gone;
        takeChild(*step.frame, position, gone);
    } else if (const auto* name = step.value<std::string>()) {
        FrameRecord frame;
        frame.Name = *name;
        insertChild(*step.frame, position, frame);
    }
}

void stepDeleteFrame(EditStep& step) {
    const auto position = static_cast<std::size_t>(step.numbers<ChildPlace>().position);
    if (step.forward) {
        auto taken = std::make_unique<RemovedParts>();
        takeChild(*step.frame, position, taken->frames);
        step.action.after = std::move(taken);
    } else if (RemovedParts* parts = keptParts(step.action.after);
               parts != nullptr && !parts->frames.empty()) {
        insertChild(*step.frame, position, parts->frames.front());
        step.action.after = {};
    }
}

constexpr std::array<EditKindRow, 5> rows = {{
    {EditKind::MoveFrame, "move or rotate frame", true, refresh::geometry, stepMoveFrame},
    {EditKind::RenameFrame, "rename frame", true, refresh::tree, stepRenameFrame},
    {EditKind::AddFrame, "add frame", true, refresh::everything, stepAddFrame},
    {EditKind::DeleteFrame, "delete frame", true, refresh::everything, stepDeleteFrame},
    {EditKind::FrameOptions, "change frame options", true, refresh::everything, stepFrameOptions},
}};

/// Records an old and a new value of a frame.
template <class Value>
void recordValue(EditHistory& history, ModelDocument& document, EditKind kind,
                 const FramePath& frame, Value before, Value after) {
    EditAction action = frameAction(kind, frame);
    action.before = std::move(before);
    action.after = std::move(after);
    history.record(document, std::move(action));
}

} // namespace

std::span<const EditKindRow> structureKinds() {
    return rows;
}

void recordMove(EditHistory& history, ModelDocument& document, const FramePath& frame,
                const Matrix4& before, const Matrix4& after) {
    if (frameAt(document.Root, frame) != nullptr) {
        recordValue(history, document, EditKind::MoveFrame, frame, before, after);
    }
}

void renameFrame(EditHistory& history, ModelDocument& document, const FramePath& frame,
                 std::string name) {
    if (const FrameRecord* target = frameAt(document.Root, frame)) {
        recordValue(history, document, EditKind::RenameFrame, frame, target->Name, std::move(name));
    }
}

void addFrame(EditHistory& history, ModelDocument& document, const FramePath& parent,
              std::string name) {
    const FrameRecord* target = frameAt(document.Root, parent);
    if (target != nullptr && parent.depth() < maxFrameDepth) {
        const ChildPlace place = {count32(target->Children.size())};
        EditAction action = frameAction(EditKind::AddFrame, parent, plainNumbers(place));
        action.after = std::move(name);
        history.record(document, std::move(action));
    }
}

void deleteFrame(EditHistory& history, ModelDocument& document, const FramePath& frame) {
    const std::vector<std::int32_t> numbers = frame.childNumbers();
    if (!numbers.empty() && frameAt(document.Root, numbers) != nullptr) {
        const std::span parent = std::span(numbers).first(numbers.size() - 1);
        const ChildPlace place = {numbers.back() - 1};
        history.record(document, frameAction(EditKind::DeleteFrame, parent, plainNumbers(place)));
    }
}

void recordFrameOptions(EditHistory& history, ModelDocument& document, const FramePath& frame,
                        const FrameFlags& before) {
    if (const FrameRecord* target = frameAt(document.Root, frame)) {
        recordValue(history, document, EditKind::FrameOptions, frame, before, frameFlags(*target));
    }
}

} // namespace korvane
