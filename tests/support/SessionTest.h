#pragma once

#include "edit/session/DocumentSession.h"
#include "support/SmallModel.h"
#include "support/TestFiles.h"
#include "support/TextModel.h"
#include "support/Words.h"

#include <functional>
#include <map>
#include <stdexcept>
#include <utility>

namespace korvane::test {

/// The changes in words.
inline std::string told(const Changes& changes) {
    const std::pair<bool, const char*> names[] = {
        {changes.tree, "tree "},           {changes.geometry, "geometry "},
        {changes.materials, "materials "}, {changes.camera, "camera "},
        {changes.planes, "planes "},       {changes.selection, "selection "},
        {changes.title, "title "},         {changes.status, "status "}};
    std::string text;
    for (const auto& [set, name] : names) {
        text += set ? name : "";
    }
    return text;
}

/// A user at work on a model, without windows. Each line of a script is a command with arguments.
class SessionTest : public TestFiles {
  protected:
    [[nodiscard]] std::string bytes() const { return writeText(session_.model()); }
    [[nodiscard]] const FrameRecord& root() const { return session_.model().Root; }
    [[nodiscard]] std::string status() const { return session_.statusText().toStdString(); }

    /// The text of the selected node.
    [[nodiscard]] std::string selected() {
        StructureTreeModel& tree = session_.tree();
        const std::int32_t node = tree.tree().nearestNode(session_.model().Selected);
        return tree.indexOf(node).data().toString().toStdString();
    }

    /// Selects a node by the texts on the path to it, separated by "/"; "_" stands for a blank.
    Changes select(const std::string& path) {
        StructureTreeModel& tree = session_.tree();
        QModelIndex at;
        for (QString text : QString::fromStdString(path).split(u'/')) {
            text.replace(u'_', u' ');
            const auto found =
                tree.match(tree.index(0, 0, at), Qt::DisplayRole, text, 1, Qt::MatchExactly);
            if (found.isEmpty()) {
                throw std::runtime_error("no node " + path);
            }
            at = found.front();
        }
        return session_.select(tree.tree().nodeData(StructureTreeModel::nodeOf(at)));
    }

    Changes rename(const std::string& name) {
        return session_.rename(session_.renameQuestion().value(), QString::fromStdString(name));
    }

    /// Clicks flags of the selected frame one by one.
    Changes options(const std::vector<bool FrameFlags::*>& clicked, bool confirmed) {
        const OptionsQuestion question = session_.optionsQuestion().value();
        DialogSubject subject = question.subject;
        FrameFlags flags = question.flags;
        for (bool FrameFlags::*flag : clicked) {
            flags.*flag = !(flags.*flag);
            session_.writeFlags(subject, flags);
        }
        return session_.endOptions(question, subject, confirmed);
    }

    /// A mouse event in a view of 200 x 160 pixels, centred at (100, 80).
    static PlaneInput at(ViewPlane plane, float x, float y, DragButton button = DragButton::Left) {
        return {plane, 200, 160, {button, x, y}};
    }

    Changes drag(ViewTool tool, float x, float y) {
        session_.setTool(tool);
        Changes changes = session_.pressPlane(at(ViewPlane::XY, 100, 100));
        changes |= session_.movePlane(at(ViewPlane::XY, 100 + x, 100 + y));
        EXPECT_FALSE(session_.canUndo() || session_.canCopy());
        EXPECT_EQ(session_.add(), Changes()) << "not while the mouse changes the model";
        changes |= session_.releasePlane(at(ViewPlane::XY, 100 + x, 100 + y));
        session_.leavePlane();
        changes.status = false;
        return changes;
    }

    Changes run(const std::string& line) {
        const std::vector<std::string> said = words(line + " -");
        const auto with = [this](ViewTool tool) {
            return [=, this] { return drag(tool, 9, -13); };
        };
        const std::map<std::string, std::function<Changes()>> commands = {
            {"select", [&] { return select(said[1]); }},
            {"add", [&] { return session_.add(); }},
            {"delete", [&] { return session_.remove(); }},
            {"rename", [&] { return rename(said[1]); }},
            {"options",
             [&] {
                 return options({&FrameFlags::GFlag, &FrameFlags::HasNormals}, true);
             }},
            {"move", with(ViewTool::MoveFrame)},
            {"turn", with(ViewTool::RotateFrame)},
            {"pan", with(ViewTool::MoveView)},
            {"aim", with(ViewTool::MoveObjCoords)},
            {"zoom", with(ViewTool::Zoom)},
            {"undo", [&] { return session_.undo(); }},
            {"redo", [&] { return session_.redo(); }},
            {"copy",
             [&] {
                 clipboard_ = session_.copy();
                 return Changes();
             }},
            {"paste", [&] { return paste(); }}};
        return commands.at(said[0])();
    }

    Changes paste() {
        const PasteOutcome outcome = session_.paste(clipboard_);
        EXPECT_EQ(outcome.refusal.toStdString(), "");
        return outcome.changes;
    }

    void open() {
        const OpenOutcome outcome = session_.open(write("m.xsi", smallModel()));
        ASSERT_EQ(outcome.status, ReadStatus::Done);
    }

    DocumentSession session_;
    QByteArray clipboard_;
};

} // namespace korvane::test
