#include "app/shell/TRecoveryBox.h"
#include "support/MainFormTest.h"

#include <QEventLoop>
#include <QTreeWidget>

namespace korvane::test {
namespace {

class ModelRecoveryTest : public MainFormTest {
  protected:
    /// Ends the program as if it were killed.
    void kill() { forms_.reset(); }
    [[nodiscard]] static RecoveryFolder recovery() { return RecoveryFolder::ofUser(); }
    /// Opens models of these names, edits each and kills the program.
    void leave(const QStringList& names) {
        QStringList files;
        for (const QString& name : names) {
            files += write(qPrintable(name), smallModel());
        }
        start(files);
        for (TMDIChild* window : form().documents()) {
            window->session()->add();
        }
        form().keepAll();
        kill();
    }
    /// Ticks only the models with these names and presses the button.
    static void press(TRecoveryBox& box, const QStringList& names, const char* button) {
        auto& list = child<QTreeWidget>(box, "CopyList");
        for (int row = 0; row < list.topLevelItemCount(); ++row) {
            QTreeWidgetItem& item = *list.topLevelItem(row);
            item.setCheckState(0, names.contains(item.text(0)) ? Qt::Checked : Qt::Unchecked);
        }
        EXPECT_EQ(child<QPushButton>(box, "OpenButton").isEnabled(), !names.isEmpty());
        child<QPushButton>(box, button).click();
    }
    void answerThrowAway(const QString& name, int reply) {
        answerBox(QStringLiteral("ThrowAwayQuestion"),
                  QStringLiteral("Throw away the recovery copy of %1 for good?").arg(name),
                  QStringLiteral("Throw Away"), QMessageBox::Yes | QMessageBox::No, reply);
    }
};

TEST_F(ModelRecoveryTest, CopiesOfAKilledProgramAreOfferedOnce) {
    leave({QStringLiteral("models/a.xsi"), QStringLiteral("b.xsi"), QStringLiteral("c.xsi")});
    const QString other = write("other.xsi", smallModel());
    answer<TRecoveryBox>([this](TRecoveryBox& box) {
        const auto& list = child<QTreeWidget>(box, "CopyList");
        EXPECT_EQ(list.topLevelItemCount(), 3);
        const auto found = list.findItems(QStringLiteral("a.xsi"), Qt::MatchExactly);
        EXPECT_EQ(found.size(), 1);
        EXPECT_EQ(found.value(0)->text(1), path("models"));
        EXPECT_EQ(captions().size(), 1) << "files of the command line are opened first";
        EXPECT_TRUE(recovery().claimLeft().empty()) << "another start does not offer them";
        press(box, {QStringLiteral("a.xsi")}, "OpenButton");
        for (const int reply : {QMessageBox::No, QMessageBox::Yes}) {
            answerThrowAway(QStringLiteral("b.xsi"), reply);
            press(box, {QStringLiteral("b.xsi")}, "ThrowAwayButton");
            EXPECT_EQ(list.topLevelItemCount(), reply == QMessageBox::No ? 2 : 1);
        }
        press(box, {}, "LaterButton");
    });
    start({other});
    EXPECT_EQ(captions(), (QStringList{other, path("models/a.xsi")}));
    EXPECT_TRUE(status().starts_with("Recovered, and not saved yet: 1 mesh, 2 faces")) << status();
    EXPECT_TRUE(document().NeverSaved && document().Modified);
    EXPECT_EQ(document().Root.Children.size(), 2U);
    EXPECT_EQ(recovery().claimLeft().size(), 1U) << "c.xsi is for later";
    answerFileDialog(QStringLiteral("SaveDialog1"), path("saved.xsi"));
    run("FileSave");
    kill();
    answer<TRecoveryBox>([this](TRecoveryBox& box) {
        EXPECT_EQ(child<QTreeWidget>(box, "CopyList").topLevelItemCount(), 1);
        answerThrowAway(QStringLiteral("c.xsi"), QMessageBox::Yes);
        press(box, {QStringLiteral("c.xsi")}, "ThrowAwayButton");
    });
    start();
    EXPECT_EQ(captions(), QStringList());
    kill();
    start();
}

TEST_F(ModelRecoveryTest, ClosingLeavesACopyOfWorkThatIsInNoFile) {
    const struct {
        const char* what;
        bool failsBefore; ///< a save has failed: Save is disabled and closing does not ask
        int reply;
        bool stays;
    } rows[] = {{"a plain No", false, QMessageBox::No, false},
                {"Yes, and Save As cancelled", false, QMessageBox::Yes, true},
                {"a save that failed", true, 0, true}};
    for (const auto& row : rows) {
        start();
        run("FileNew1");
        window().session()->selectRoot();
        window().session()->add();
        if (row.failsBefore) {
            window().session()->saveAs(path("no/folder/m.xsi"));
        } else {
            answerCloseQuestion(QStringLiteral("Untitled 1"), row.reply);
        }
        if (row.reply == QMessageBox::Yes) {
            answerFileDialog(QStringLiteral("SaveDialog1"), QString());
        }
        form().close();
        settle();
        kill();
        std::vector<LeftCopy> left = recovery().claimLeft();
        EXPECT_EQ(left.size(), row.stays ? 1U : 0U) << row.what;
        for (LeftCopy& copy : left) {
            EXPECT_EQ(copy.place.read({})->Root.Children.size(), 1U) << row.what;
            copy.place.remove();
        }
    }
}

TEST_F(ModelRecoveryTest, CopiesAreMadeWhenIdleAndByTheTimer) {
    start({write("m.xsi", smallModel())});
    const auto copied = [] {
        const QDir folder(recovery().path());
        const QStringList copies = folder.entryList({QStringLiteral("*.copy")}, QDir::Files);
        return copies.isEmpty() ? QDateTime()
                                : QFileInfo(folder.filePath(copies[0])).lastModified();
    };
    EXPECT_FALSE(copied().isValid());
    window().session()->add();
    settle();
    const QDateTime first = copied();
    EXPECT_TRUE(first.isValid());
    window().session()->add(); // too soon for another copy, and no event follows
    QEventLoop loop;
    QTimer::singleShot(400, &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_GT(copied(), first);
}

TEST_F(ModelRecoveryTest, FailureToMakeCopiesIsReportedOnce) {
    qputenv("XDG_STATE_HOME", write("file", "").toLocal8Bit());
    start({write("m.xsi", smallModel())});
    window().session()->add();
    settle();
    const std::string told = "No recovery copies can be made in " +
                             path("file/korvane-editor/recovery").toStdString() + ": save often";
    EXPECT_EQ(status(), told);
    window().session()->add();
    form().keepAll();
    EXPECT_EQ(status(), told);
    run("EditUndo1");
    EXPECT_EQ(status(), "Undone: add frame") << "work continues";
    form().keepAll();
    EXPECT_EQ(status(), "Undone: add frame");
}

TEST_F(ModelRecoveryTest, UnreadableCopiesAreNamed) {
    leave({QStringLiteral("a.xsi"), QStringLiteral("b.xsi")});
    QStringList names;
    {
        const std::vector<LeftCopy> left = recovery().claimLeft();
        ASSERT_EQ(left.size(), 2U);
        QFile cut(left[0].place.fileName());
        ASSERT_TRUE(cut.resize(20));
        QFile damaged(left[1].place.fileName());
        ASSERT_TRUE(damaged.open(QIODevice::ReadWrite) && damaged.seek(damaged.size() - 9));
        damaged.write("!");
        names = {QFileInfo(cut).fileName(), damaged.fileName()};
    }
    const QString notice = QStringLiteral("Recovery copies that cannot be read are left in %1: "
                                          "%2 (damaged)")
                               .arg(recovery().path(), names[0]);
    answer<TRecoveryBox>([&](TRecoveryBox& box) {
        EXPECT_EQ(child<QLabel>(box, "NoticeLabel").text(), notice);
        child<QPushButton>(box, "OpenButton").click();
    });
    // only reading all of this copy detects the damage
    answerBox(QStringLiteral("RecoveryFailure"), names[1],
              QStringLiteral("Unable to open recovery copy"), QMessageBox::Ok, QMessageBox::Ok);
    start();
    EXPECT_EQ(captions(), QStringList());
    kill();
    EXPECT_TRUE(QFile::remove(names[1]));
    start();
    EXPECT_EQ(status(), notice.toStdString()) << "no dialog without readable copies";
}

} // namespace
} // namespace korvane::test
