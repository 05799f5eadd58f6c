#include "Worker.h"

#include "model/records/FrameWalk.h"

#include <string>
#include <vector>

namespace korvane::killing {

void Worker::selectAny() {
    std::vector<FramePath> paths;
    for (FrameWalk walk(session_.model().Root); !walk.done(); walk.next()) {
        paths.emplace_back(walk.childNumbers());
    }
    NodeData node;
    node.Frame = paths[static_cast<std::size_t>(number(0, static_cast<int>(paths.size()) - 1))];
    node.NodeKind = NodeKind::Frame;
    node.CanDelete = node.Frame->depth() > 0;
    session_.select(node);
}

void Worker::step() {
    if (materials_ != nullptr) {
        keepEditingMaterials();
    } else if (session_.draggingPlane()) {
        keepDragging();
    } else {
        begin();
    }
}

void Worker::finish() {
    session_.cancelPlaneDrag();
    if (materials_ != nullptr) {
        session_.endMaterials();
        materials_ = nullptr;
    }
}

void Worker::begin() {
    selectAny();
    switch (number(0, 9)) {
    case 0:
    case 1:
        session_.add();
        break;
    case 2:
        if (number(0, 3) == 0) {
            session_.remove();
        }
        break;
    case 3:
        if (const auto question = session_.renameQuestion()) {
            session_.rename(*question, QStringLiteral("n%1").arg(number(0, 99)));
        }
        break;
    case 4:
        cancelOptions();
        break;
    case 5:
        session_.undo();
        break;
    case 6:
        session_.redo();
        break;
    case 7: {
        NodeData table;
        table.NodeKind = NodeKind::MaterialTable;
        session_.select(table);
        materials_ = session_.editMaterials();
        break;
    }
    default:
        // the views' own scale depends on their size
        session_.model().PlaneScale = 16.0F;
        session_.model().PanVector = {};
        session_.setTool(number(0, 1) == 0 ? ViewTool::MoveFrame : ViewTool::RotateFrame);
        mouse_ = {ViewPlane::XY, 200, 160, {DragButton::Left, 100, 100}};
        session_.pressPlane(mouse_);
        break;
    }
}

void Worker::keepDragging() {
    mouse_.mouse.x += static_cast<float>(number(-9, 9));
    mouse_.mouse.y += static_cast<float>(number(-9, 9));
    switch (number(0, 9)) {
    case 0:
        session_.cancelPlaneDrag();
        break;
    case 1:
        session_.releasePlane(mouse_);
        break;
    default:
        session_.movePlane(mouse_);
        break;
    }
}

void Worker::keepEditingMaterials() {
    switch (number(0, 6)) {
    case 0:
        session_.endMaterials();
        materials_ = nullptr;
        break;
    case 1:
    case 2:
        materials_->typeShininess(std::to_string(number(0, 200)));
        break;
    default:
        materials_->moveOpacity(number(0, 100));
        break;
    }
}

void Worker::cancelOptions() {
    if (const auto question = session_.optionsQuestion()) {
        DialogSubject subject = question->subject;
        FrameFlags flags = question->flags;
        flags.GFlag = !flags.GFlag;
        session_.writeFlags(subject, flags);
        session_.endOptions(*question, subject, number(0, 1) == 0);
    }
}

} // namespace korvane::killing
