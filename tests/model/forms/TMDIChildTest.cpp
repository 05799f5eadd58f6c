#include "model/forms/TMDIChild.h"

#include "support/GuiTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMessageBox>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeView>

namespace korvane::test {
namespace {

const QString saveDialog = QStringLiteral("SaveDialog1");

class TMDIChildTest : public GuiTest {
  protected:
    TMDIChildTest() {
        area_.resize(800, 600);
        area_.show();
    }

    TMDIChild& open(const QString& name) {
        auto* window = new TMDIChild(ViewColors());
        area_.addSubWindow(window);
        window->showMaximized();
        window->create(name);
        return *window;
    }

    /// Closes the window as its close button does; whether it went.
    static bool closes(TMDIChild& window) {
        const QPointer<TMDIChild> alive(&window);
        window.close();
        settle();
        return alive.isNull();
    }

    QMdiArea area_;
};

/// The tree's texts in the order shown, one node a line, indented by depth.
QString shownTree(const QAbstractItemModel& model, const QModelIndex& parent = {}, int depth = 0) {
    QString text;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex node = model.index(row, 0, parent);
        text += QString(depth, u' ') + node.data().toString() + u'\n' +
                shownTree(model, node, depth + 1);
    }
    return text;
}

std::string enabledButtons(const TMDIChild& window) {
    std::string enabled;
    for (const char* name : {"EditButton", "RenameButton", "DeleteButton", "AddButton"}) {
        const auto& button = child<QPushButton>(window, name);
        if (button.isEnabled()) {
            enabled += '[' + button.text().toStdString() + ']';
        }
    }
    return enabled;
}

TEST_F(TMDIChildTest, NewWindowIsEmptyUnsavedAndSelectsNothing) {
    TMDIChild& window = open(QStringLiteral("Untitled 1"));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Untitled 1"));
    EXPECT_TRUE(window.isMaximized());
    EXPECT_TRUE(window.document()->NeverSaved);
    EXPECT_TRUE(window.document()->Modified);
    EXPECT_EQ(shownTree(*child<QTreeView>(window, "TreeView1").model()),
              QStringLiteral("Frame frm-\nMaterials\n"));
    EXPECT_EQ(enabledButtons(window), "");
    EXPECT_EQ(child<QPushButton>(window, "AddButton").text(), QStringLiteral("Add"));
    EXPECT_TRUE(child<QRadioButton>(window, "zoomButton").isChecked());
    EXPECT_TRUE(child<QCheckBox>(window, "TwoDVisibleBox").isChecked());
}

// A label is read as the value that it shows, which a name would hide.
TEST_F(TMDIChildTest, EveryControlButLabelsHasAnAccessibleName) {
    TMDIChild& window = open(QStringLiteral("Untitled 1"));
    for (const QWidget* control : window.widget()->findChildren<QWidget*>()) {
        if (!control->objectName().isEmpty() && !control->objectName().startsWith(u"qt_")) {
            EXPECT_EQ(control->accessibleName().isEmpty(),
                      qobject_cast<const QLabel*>(control) != nullptr)
                << control->objectName().toStdString();
        }
    }
}

TEST_F(TMDIChildTest, ReadModelIsShownWithItsRootSelected) {
    const QString name = write("small.XSI", smallModel());
    TMDIChild& window = open(name);
    EXPECT_EQ(window.windowTitle(), name);
    EXPECT_FALSE(window.document()->NeverSaved);
    EXPECT_FALSE(window.document()->Modified);
    EXPECT_EQ(window.statusText(), QStringLiteral("1 mesh, 2 faces"));
    auto& tree = child<QTreeView>(window, "TreeView1");
    EXPECT_EQ(shownTree(*tree.model()),
              QStringLiteral("Frame frm-body\n Mesh body\n  MeshMaterialList\n   Material 1\n"
                             "   Material 2\n  MeshNormals\n Frame frm-wing\n  Frame frm-tip\n"
                             "Materials\n Material 1\n Material 2\n"));
    EXPECT_EQ(tree.currentIndex(), tree.model()->index(0, 0));
    EXPECT_TRUE(tree.selectionModel()->isSelected(tree.currentIndex()));
    EXPECT_EQ(window.document()->SelectionCopy.NodeKind, NodeKind::Frame);
    EXPECT_EQ(window.document()->Root.SelectState, SelectState::Selected);
    EXPECT_EQ(enabledButtons(window), "[Edit][Rename Frame][Add Frame]");
}

TEST_F(TMDIChildTest, ButtonsFollowTheSelectedNode) {
    TMDIChild& window = open(write("small.xsi", smallModel()));
    auto& tree = child<QTreeView>(window, "TreeView1");
    const auto select = [&](std::initializer_list<int> rows) {
        QModelIndex node;
        for (const int row : rows) {
            node = tree.model()->index(row, 0, node);
        }
        tree.setCurrentIndex(node);
        return enabledButtons(window);
    };
    EXPECT_EQ(select({0, 0}), "[Rename Frame]"); // mesh
    EXPECT_EQ(child<QPushButton>(window, "AddButton").text(), QStringLiteral("Add"));
    EXPECT_EQ(select({0, 0, 0, 1}), "[Edit][Rename Frame][Delete][Add Material]"); // one of 2 slots
    EXPECT_EQ(select({1}), "[Edit][Add Material]");                                // table
    EXPECT_EQ(window.document()->Root.SelectState, SelectState::Selected);
    EXPECT_EQ(select({0, 1}), "[Edit][Rename Frame][Delete][Add Frame]"); // a child frame
    EXPECT_EQ(window.document()->Root.SelectState, SelectState::Other);
    EXPECT_FALSE(window.document()->Modified) << "a selection is no edit";

    tree.clearSelection();
    EXPECT_EQ(enabledButtons(window), "");
    EXPECT_EQ(window.document()->Selected, NodeData());
}

TEST_F(TMDIChildTest, LayoutHalvesTheDrawingAreaAndDropsTheOddPixel) {
    TMDIChild& window = open(QStringLiteral("Untitled 1"));
    auto& area = child<QWidget>(window, "Panel3");
    const auto geometry = [&](const char* name) { return child<QWidget>(window, name).geometry(); };
    area.resize(301, 203);
    EXPECT_EQ(geometry("Panel5"), QRect(0, 0, 150, 101));
    EXPECT_EQ(geometry("Panel1"), QRect(150, 0, 150, 101));
    EXPECT_EQ(geometry("Panel6"), QRect(0, 101, 150, 101));
    EXPECT_EQ(geometry("Panel7"), QRect(150, 101, 150, 101));

    auto& box = child<QCheckBox>(window, "TwoDVisibleBox");
    box.click();
    EXPECT_EQ(geometry("Panel1"), QRect(0, 0, 301, 203));
    EXPECT_TRUE(child<QWidget>(window, "Panel5").isHidden());
    EXPECT_TRUE(child<QWidget>(window, "Panel7").isHidden());
    area.resize(400, 300);
    EXPECT_EQ(geometry("Panel1"), QRect(0, 0, 400, 300));

    box.click();
    EXPECT_FALSE(child<QWidget>(window, "Panel6").isHidden());
    EXPECT_EQ(geometry("Panel1"), QRect(200, 0, 200, 150));
    EXPECT_EQ(geometry("Panel7"), QRect(200, 150, 200, 150));
}

TEST_F(TMDIChildTest, FailedReadsTellWhyAndLeaveAnEmptyModel) {
    const QString wrong = write("wrong.x", "xof 0303txt 0032\n");
    const QString folder = path("folder.xsi");
    ASSERT_TRUE(QDir().mkdir(folder));
    const std::pair<QString, QString> failures[] = {
        {wrong, QStringLiteral("Not a valid .X file")},
        {folder, QStringLiteral("Unable to open file")}};
    for (const auto& [name, title] : failures) {
        answerBox(QStringLiteral("ReadFailure"), name, title, QMessageBox::Ok, QMessageBox::Ok);
        TMDIChild& window = open(name);
        EXPECT_EQ(window.windowTitle(), QStringLiteral("Untitled"));
        EXPECT_EQ(window.document()->FileName, QStringLiteral("Untitled"));
        EXPECT_TRUE(window.document()->NeverSaved);
        EXPECT_EQ(window.statusText(), QStringLiteral("0 meshes, 0 faces"));
        EXPECT_EQ(enabledButtons(window), "[Edit][Rename Frame][Add Frame]");
    }
}

TEST_F(TMDIChildTest, ACancelledReadingClosesItsWindowWithoutAQuestion) {
    leaveModalWindows();
    const QString name = write("small.xsi", smallModel());
    for (const bool cancelled : {true, false}) {
        auto* window = new TMDIChild(ViewColors());
        area_.addSubWindow(window);
        const QPointer<TMDIChild> alive(window);
        window->showMaximized();
        window->setProgressDelay(std::chrono::milliseconds(0));
        // the timer fires when the dialog lets events through
        QTimer::singleShot(0, window, [cancelled] {
            auto* dialog = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            EXPECT_EQ(dialog->windowModality(), Qt::ApplicationModal);
            EXPECT_TRUE(dialog->isVisible());
            if (cancelled) {
                dialog->findChild<QPushButton*>()->click();
            }
        });
        window->create(name);
        settle();
        EXPECT_EQ(alive.isNull(), cancelled);
    }
}

TEST_F(TMDIChildTest, CaptionShowsThePathAsItIs) {
    const QString name = write("a[*].xsi", smallModel());
    // once would be the mark of a changed window, twice is the text
    EXPECT_EQ(open(name).windowTitle(), path("a[*][*].xsi"));
}

TEST_F(TMDIChildTest, SaveAsWritesOnlyTextModelsAndMarksTheModelClean) {
    for (const char* name : {"b.x", "b.xsi", "b"}) {
        TMDIChild& window = open(QStringLiteral("Untitled 1"));
        answerFileDialog(saveDialog, path(name));
        window.FileSaveExecute(); // a model that was never saved asks for its name
        const bool isXsi = std::string(name) != "b.x";
        const QString chosen = path(isXsi ? "b.xsi" : "b.x"); // the default suffix
        EXPECT_EQ(window.windowTitle(), chosen);
        EXPECT_EQ(QFile::remove(chosen), isXsi);
        EXPECT_FALSE(window.document()->NeverSaved);
        EXPECT_TRUE(closes(window)) << "without a question";
    }
}

TEST_F(TMDIChildTest, SaveAsAddsItsExtensionBehindADotAndAsksBeforeItReplaces) {
    const QString model = write("model.v2.xsi", "old");
    TMDIChild& window = open(QStringLiteral("Untitled 1"));
    for (const int reply : {QMessageBox::No, QMessageBox::Yes}) {
        answerFileDialog(saveDialog, path("model.v2"));
        answerBox(QStringLiteral("ReplaceQuestion"), model,
                  QStringLiteral("File exists.  Replace?"), QMessageBox::Yes | QMessageBox::No,
                  reply);
        const bool replaced = reply == QMessageBox::Yes;
        if (!replaced) {
            answerFileDialog(saveDialog, {}); // which asks for another name
        }
        window.FileSaveAsExecute();
        EXPECT_EQ(content(model) == "old", !replaced);
        EXPECT_EQ(window.windowTitle(), replaced ? model : QStringLiteral("Untitled 1"));
        EXPECT_EQ(window.document()->NeverSaved, !replaced);
    }
    EXPECT_FALSE(QFile::exists(path("model.v2")));
}

TEST_F(TMDIChildTest, SaveDialogStartsBesideTheFileAndOffersItsName) {
    TMDIChild& window = open(path("folder.msh"));
    answer([this](QWidget& shown) {
        auto& dialog = dynamic_cast<QFileDialog&>(shown);
        EXPECT_EQ(dialog.directory().absolutePath(), QFileInfo(path("folder.msh")).path());
        EXPECT_EQ(child<QLineEdit>(dialog, "fileNameEdit").text(), QStringLiteral("folder.xsi"));
        EXPECT_FALSE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
        dialog.reject();
    });
    window.FileSaveExecute();
    EXPECT_EQ(window.windowTitle(), path("folder.msh")) << "cancelled: nothing changes";
    EXPECT_TRUE(window.document()->NeverSaved);
    EXPECT_TRUE(window.document()->Modified);
}

TEST_F(TMDIChildTest, SaveOfAnXFileWritesNothingButMarksItClean) {
    const QString name = write("small.x", smallModel());
    TMDIChild& window = open(name);
    window.session()->model().Root.Name = "other";
    window.session()->model().Modified = true;
    window.FileSaveExecute();
    EXPECT_FALSE(window.document()->Modified);
    EXPECT_EQ(content(name), smallModel());
}

TEST_F(TMDIChildTest, FailedSaveIsToldAndClearsTheFlagsAllTheSame) {
    ASSERT_TRUE(QDir().mkdir(path("gone")));
    const QString name = write("gone/small.xsi", smallModel());
    TMDIChild& window = open(name);
    ASSERT_TRUE(QDir(path("gone")).removeRecursively());
    window.session()->model().Modified = true;
    answerBox(QStringLiteral("SaveFailure"), name, QStringLiteral("Unable to save"),
              QMessageBox::Ok, QMessageBox::Ok);
    window.FileSaveExecute();
    EXPECT_FALSE(window.document()->Modified);
    EXPECT_FALSE(window.document()->NeverSaved);
}

TEST_F(TMDIChildTest, CloseQuestionAnswers) {
    const QString name = write("small.xsi", smallModel());
    TMDIChild& window = open(name);
    window.session()->model().Root.Name = "other";
    window.session()->model().Modified = true;
    answerCloseQuestion(name, QMessageBox::Cancel);
    EXPECT_FALSE(closes(window));
    EXPECT_TRUE(window.document()->Modified);

    answerCloseQuestion(name, QMessageBox::Yes);
    EXPECT_TRUE(closes(window));
    TMDIChild& saved = open(name);
    EXPECT_EQ(saved.document()->Root.Name, "other");

    saved.session()->model().Root.Name = "third";
    saved.session()->model().Modified = true;
    answerCloseQuestion(name, QMessageBox::No);
    EXPECT_TRUE(closes(saved));
    EXPECT_EQ(open(name).document()->Root.Name, "other");
}

TEST_F(TMDIChildTest, YesWithItsSaveAsCancelledStillCloses) {
    TMDIChild& window = open(QStringLiteral("Untitled 1"));
    answerCloseQuestion(QStringLiteral("Untitled 1"), QMessageBox::Yes);
    answerFileDialog(saveDialog, {});
    EXPECT_TRUE(closes(window));
}

TEST_F(TMDIChildTest, AClosedWindowSavesNothing) {
    const QString name = write("small.xsi", smallModel());
    TMDIChild& window = open(name);
    window.session()->model().Root.Name = "other";
    window.close(); // frees itself only when the event loop goes on
    ASSERT_EQ(window.document(), nullptr);
    window.FileSaveExecute();
    window.FileSaveAsExecute(); // no dialog comes up
    EXPECT_EQ(content(name), smallModel());
}

TEST_F(TMDIChildTest, AMeshFileIsNotReadAndFailuresAreShown) {
    const WorkingFolder here(path(""));
    TMDIChild& window = open(path("a.msh"));
    EXPECT_EQ(window.windowTitle(), path("a.msh"));
    QDir().mkdir(path("loaded.xsi"));
    answerBox(QStringLiteral("SaveFailure"), QStringLiteral("loaded.xsi"),
              QStringLiteral("Unable to save"), QMessageBox::Ok, QMessageBox::Ok);
    window.FileOpenMSH(write("a.msh", "mesh"));
    QDir().mkdir(path("folder.msh"));
    answerBox(QStringLiteral("ReadFailure"), path("folder.msh"),
              QStringLiteral("Unable to open file"), QMessageBox::Ok, QMessageBox::Ok);
    window.FileOpenMSH(path("folder.msh"));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Untitled"));
}

} // namespace
} // namespace korvane::test
