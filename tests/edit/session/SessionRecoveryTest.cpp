// Recovery copies of a session's work.

#include "edit/session/DocumentSession.h"
#include "formats/files/ByteReader.h"
#include "support/FileSizeLimit.h"
#include "support/SmallModel.h"
#include "support/TestFiles.h"
#include "support/TextModel.h"

#include <QImage>

#include <functional>
#include <memory>
#include <vector>

namespace korvane::test {
namespace {

using When = RecoveryKeeper::When;

class SessionRecovery : public TestFiles {
  protected:
    SessionRecovery() { begin(); }

    [[nodiscard]] RecoveryFolder recovery() const { return RecoveryFolder(path("recovery")); }
    void begin() {
        session_ = std::make_unique<DocumentSession>();
        session_->keepCopiesIn(recovery(), [] { return CopyPace::Time(0); });
    }
    DocumentSession& open(const char* name = "m.xsi") {
        begin();
        EXPECT_EQ(session_->open(write(name, smallModel())).status, ReadStatus::Done);
        return *session_;
    }
    [[nodiscard]] std::string bytes() const { return writeText(session_->model()); }
    /// The bytes that the model in the copy would be saved as; empty without a copy.
    [[nodiscard]] std::string copied() const {
        const QDir folder(path("recovery"));
        const QStringList copies = folder.entryList({QStringLiteral("*.copy")}, QDir::Files);
        EXPECT_LE(copies.size(), 1);
        if (copies.isEmpty()) {
            return {};
        }
        QFile file(folder.filePath(copies.front()));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const auto model = readCopy(bytesOf(file.readAll()), {});
        return model ? writeText(*model) : "damaged";
    }
    /// As if the event loop were about to wait.
    void wait() { session_->keepCopy(When::Now); }
    static PlaneInput at(float x, float y) {
        return {ViewPlane::XY, 200, 160, {DragButton::Left, x, y}};
    }
    void clickOption(bool confirmed, int clicks = 1) {
        const OptionsQuestion question = session_->optionsQuestion().value();
        DialogSubject subject = question.subject;
        FrameFlags flags = question.flags;
        for (; clicks > 0; --clicks) {
            flags.GFlag = !flags.GFlag;
            session_->writeFlags(subject, flags);
            wait();
        }
        session_->endOptions(question, subject, confirmed);
    }
    void startDrag() {
        session_->setTool(ViewTool::MoveFrame);
        session_->pressPlane(at(100, 100));
        session_->movePlane(at(130, 90));
    }
    MaterialEditing& materials() {
        StructureTreeModel& tree = session_->tree();
        const QModelIndex table = tree.index(1, 0, {});
        session_->select(tree.tree().nodeData(StructureTreeModel::nodeOf(table)));
        return *session_->editMaterials();
    }

    std::unique_ptr<DocumentSession> session_;
};

TEST_F(SessionRecovery, EveryChangeOfTheModelIsInTheCopy) {
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"an edit", [&] { session_->add(); }},
        {"an undone edit",
         [&] {
             session_->add();
             session_->undo();
         }},
        {"cancelled options", [&] { clickOption(false); }},
        {"edits after options clicked back, which had been copied",
         [&] {
             clickOption(true, 2);
             session_->add(), session_->add();
         }},
        {"a running drag", [&] { startDrag(); }},
        {"the end of a drag",
         [&] {
             startDrag();
             wait();
             session_->releasePlane(at(140, 90));
         }},
        {"an opacity while it is dragged",
         [&] {
             materials().moveOpacity(30);
             wait();
             session_->endMaterials();
             materials().moveOpacity(31);
         }},
        {"a shininess while it is typed", [&] { materials().typeShininess("12"); }},
        {"a zero shininess that is restored",
         [&] {
             materials().typeShininess("0");
             session_->endMaterials();
             materials().typeShininess("-0");
             wait();
             session_->endMaterials();
         }},
    };
    for (const auto& [what, change] : rows) {
        open();
        wait();
        EXPECT_EQ(copied(), "") << what << ": it is in a file";
        change();
        EXPECT_TRUE(session_->hasUnsavedWork()) << what;
        wait();
        EXPECT_EQ(copied(), bytes()) << what;
        session_->setGivenUp(true);
        session_->endWork();
    }
}

TEST_F(SessionRecovery, WhatLeavesNoTraceLeavesNoCopy) {
    open();
    startDrag();
    wait();
    EXPECT_EQ(copied(), bytes());
    session_->cancelPlaneDrag();
    wait();
    EXPECT_EQ(copied(), "");
    for (const ViewTool tool : {ViewTool::MoveView, ViewTool::Zoom, ViewTool::MoveObjCoords}) {
        session_->setTool(tool);
        session_->pressPlane(at(100, 100));
        session_->movePlane(at(130, 90));
        EXPECT_FALSE(session_->hasUnsavedWork());
        session_->releasePlane(at(130, 90));
    }
    session_->setMeshVisible(false);
    session_->setRenderMode(RenderMode::Wireframe);
    EXPECT_FALSE(session_->hasUnsavedWork());
    // a drag that begins where a copied one was cancelled
    session_->add();
    startDrag();
    wait();
    session_->cancelPlaneDrag();
    wait();
    EXPECT_EQ(copied(), bytes());
}

/// The copy when the window closes, beside the close question, which follows other rules.
TEST_F(SessionRecovery, TheCopyStaysUnlessTheWorkIsInAFileOrGivenUp) {
    const QString file = path("m.xsi");
    const struct {
        const char* what;
        std::function<void()> story;
        bool asks;  ///< whether closing asks
        bool stays; ///< whether the copy stays
    } rows[] = {
        {"nothing done", [&] {}, false, false},
        {"a new model", [&] { begin(); }, true, false},
        {"saved", [&] { session_->add(), session_->save(); }, false, false},
        {"saved and edited", [&] { session_->save(), session_->add(); }, true, true},
        {"saved elsewhere", [&] { session_->add(), session_->saveAs(path("n.xsi")); }, false,
         false},
        {"not written", [&] { open("m.x"), session_->add(), session_->save(); }, false, true},
        {"under a name that is never written",
         [&] { session_->add(), session_->saveAs(path("m.msh")); }, false, true},
        {"failed", [&] { session_->add(), session_->saveAs(path("no/folder/m.xsi")); }, false,
         true},
        {"failed, then saved",
         [&] {
             session_->add(), session_->saveAs(path("no/folder/m.xsi"));
             session_->saveAs(file);
         },
         false, false},
        {"cancelled options", [&] { clickOption(false); }, false, true},
        {"options clicked back", [&] { clickOption(true, 2); }, false, false},
        {"given up", [&] { session_->add(), session_->setGivenUp(true); }, true, false},
        {"given up, but another window was kept open and a save failed",
         [&] {
             session_->add(), session_->setGivenUp(true);
             session_->saveAs(path("no/folder/m.xsi"));
         },
         false, true},
        {"given up, and then worked on",
         [&] { session_->add(), session_->setGivenUp(true), session_->add(); }, true, true},
        {"a drag that was running", [&] { startDrag(); }, false, false},
        {"unchanged, after a failed save elsewhere",
         [&] { session_->saveAs(path("no/folder/m.xsi")); }, false, false},
        {"unchanged, after a failed save over its file",
         [&] {
             QFile::remove(file);
             QDir().mkdir(file);
             session_->saveAs(file);
         },
         false, true},
    };
    for (const auto& row : rows) {
        open();
        row.story();
        EXPECT_EQ(session_->needsCloseQuestion(), row.asks) << row.what;
        session_->cancelPlaneDrag();
        const std::string last = bytes();
        EXPECT_FALSE(session_->endWork().failed) << row.what;
        EXPECT_EQ(copied(), row.stays ? last : "") << row.what;
        session_.reset();
        std::vector<LeftCopy> left = recovery().claimLeft();
        ASSERT_EQ(left.size(), row.stays ? 1U : 0U) << row.what;
        for (LeftCopy& copy : left) {
            copy.place.remove();
        }
    }
}

TEST_F(SessionRecovery, AModelFromACopyIsNeverSavedAndKeepsItsName) {
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    open("models/m.xsi");
    ASSERT_TRUE(picture.save(path("models/skin.bmp")));
    session_->add();
    const std::size_t texture = 0;
    session_->model().Materials[texture].HasTexture = true;
    session_->model().Materials[texture].TextureFile = "skin.bmp";
    session_->model().Materials[1].TextureFile = "skin.bmp"; // switched off
    const std::string work = bytes();
    session_->endWork();
    for (int start = 0; start < 2; ++start) {
        begin(); // the previous program was killed
        std::vector<LeftCopy> left = recovery().claimLeft();
        ASSERT_EQ(left.size(), 1U);
        EXPECT_EQ(session_->recover(left[0], [](auto...) { return false; }).status,
                  ReadStatus::Cancelled);
        EXPECT_FALSE(session_->hasUnsavedWork());
        const auto [read, changes] = session_->recover(left[0]);
        ASSERT_EQ(read, ReadStatus::Done);
        EXPECT_TRUE(changes.title && changes.tree && changes.geometry && changes.status);
        EXPECT_EQ(bytes(), work);
        EXPECT_EQ(session_->model().FileName, path("models/m.xsi"));
        for (const MaterialRecord& material : session_->model().Materials) {
            EXPECT_EQ(material.TextureImage->width, 2);
        }
        EXPECT_TRUE(session_->needsName() && session_->needsCloseQuestion() &&
                    session_->hasUnsavedWork() && !session_->canUndo());
        left.clear();
        wait();
        EXPECT_EQ(recovery().claimLeft().size(), 0U) << "its window has claimed it";
        EXPECT_EQ(copied(), work) << "until it is saved or given up";
    }
    session_->add();
    wait();
    EXPECT_EQ(copied(), bytes());
    session_->add();
    EXPECT_EQ(session_->saveAs(path("no/folder/m.xsi")).result, SaveResult::Failed);
    EXPECT_EQ(copied(), bytes()) << "made before the save";
    EXPECT_EQ(session_->saveAs(path("models/m.xsi")).result, SaveResult::Written);
    EXPECT_EQ(copied(), "");
    EXPECT_EQ(content(path("models/m.xsi")), bytes());
}

TEST_F(SessionRecovery, AnotherProgramsSaveIsKeptAndReported) {
    open();
    session_->add();
    write("m.xsi", "theirs");
    EXPECT_EQ(session_->save().result, SaveResult::Written);
    EXPECT_NE(
        session_->statusText().indexOf(QStringLiteral("another program's save is kept as m.xsi~")),
        -1);
    EXPECT_EQ(content(path("m.xsi~")), "theirs");
    EXPECT_EQ(content(path("m.xsi")), bytes());
    session_->add();
    session_->save();
    for (int tries = 0; tries < 2; ++tries) {
        write("m.xsi", "more of theirs");
        session_->setName(path("m.xsi"));
        session_->save();
        QFile::remove(path("m.xsi~2"));
    }
    session_->saveAs(write("n.xsi", "agreed to be replaced"));
    session_->add();
    session_->save();
    EXPECT_EQ(session_->statusText().indexOf(QStringLiteral("another")), -1);
    EXPECT_EQ(filesInFolder(), 3) << "our own saves are not kept";
    write("n.xsi", "theirs");
    session_->setName(path("n.x")); // which is never written
    session_->save();
    EXPECT_EQ(filesInFolder(), 3);
}

TEST_F(SessionRecovery, ASaveThatFailsKeepsNothingTwice) {
    open();
    const auto save = [&](bool fails, const char* newName = nullptr) {
        const FileSizeLimit limit(fails ? 500 : RLIM_INFINITY); // a model is longer
        return (newName != nullptr ? session_->saveAs(path(newName)) : session_->save()).result;
    };
    write("m.xsi", "theirs");
    EXPECT_EQ(save(true), SaveResult::Failed);
    EXPECT_EQ(save(false), SaveResult::Written);
    EXPECT_EQ(filesInFolder(), 2) << "theirs is in m.xsi~ already";
    write("n.xsi", "agreed to be replaced");
    EXPECT_EQ(save(true, "n.xsi"), SaveResult::Failed);
    EXPECT_EQ(save(false), SaveResult::Written);
    EXPECT_EQ(filesInFolder(), 3);
}

} // namespace
} // namespace korvane::test
