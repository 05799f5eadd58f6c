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

TEST_F(TMDIChildTest, ButtonsFollowTheModelAndItsSelection) {
    TMDIChild& empty = open(QStringLiteral("Untitled 1"));
    EXPECT_EQ(empty.windowTitle(), QStringLiteral("Untitled 1"));
    EXPECT_EQ(enabledButtons(empty), "") << "nothing is selected";
    // a label is read as the value that it shows, which a name would hide
    for (const QWidget* control : empty.widget()->findChildren<QWidget*>()) {
        if (!control->objectName().isEmpty() && !control->objectName().startsWith(u"qt_")) {
            EXPECT_EQ(control->accessibleName().isEmpty(),
                      qobject_cast<const QLabel*>(control) != nullptr)
                << control->objectName().toStdString();
        }
    }

    TMDIChild& window = open(write("a[*].xsi", smallModel()));
    // once would be the mark of a changed window, twice is the text
    EXPECT_EQ(window.windowTitle(), path("a[*][*].xsi"));
    EXPECT_EQ(window.statusText(), QStringLiteral("1 mesh, 2 faces"));
    auto& tree = child<QTreeView>(window, "TreeView1");
    EXPECT_EQ(tree.currentIndex(), tree.model()->index(0, 0));
    EXPECT_TRUE(tree.selectionModel()->isSelected(tree.currentIndex()));
    const std::pair<std::vector<int>, const char*> nodes[] = {
        {{0}, "[Edit][Rename Frame][Add Frame]"},
        {{0, 0}, "[Rename Frame]"},                                   // mesh
        {{0, 0, 0, 1}, "[Edit][Rename Frame][Delete][Add Material]"}, // one of 2 slots
        {{1}, "[Edit][Add Material]"},                                // table
        {{0, 1}, "[Edit][Rename Frame][Delete][Add Frame]"},          // a child frame
        {{}, ""}};
    for (const auto& [rows, buttons] : nodes) {
        QModelIndex node;
        for (const int row : rows) {
            node = tree.model()->index(row, 0, node);
        }
        tree.selectionModel()->setCurrentIndex(node, QItemSelectionModel::ClearAndSelect);
        EXPECT_EQ(enabledButtons(window), buttons);
    }
    EXPECT_EQ(window.document()->Selected, NodeData());
    EXPECT_FALSE(window.document()->Modified) << "a selection is no edit";
}

TEST_F(TMDIChildTest, LayoutHalvesTheDrawingAreaAndDropsTheOddPixel) {
    TMDIChild& window = open(QStringLiteral("Untitled 1"));
    auto& area = child<QWidget>(window, "Panel3");
    const auto geometry = [&](const char* name) { return child<QWidget>(window, name).geometry(); };
    const auto halved = [&](int width, int height) {
        EXPECT_EQ(geometry("Panel5"), QRect(0, 0, width, height));
        EXPECT_EQ(geometry("Panel1"), QRect(width, 0, width, height));
        EXPECT_EQ(geometry("Panel6"), QRect(0, height, width, height));
        EXPECT_EQ(geometry("Panel7"), QRect(width, height, width, height));
    };
    auto& box = child<QCheckBox>(window, "TwoDVisibleBox");
    area.resize(301, 203);
    halved(150, 101);
    box.click();
    EXPECT_EQ(geometry("Panel1"), QRect(0, 0, 301, 203));
    area.resize(400, 300);
    EXPECT_EQ(geometry("Panel1"), QRect(0, 0, 400, 300));
    for (const bool shown : {false, true}) {
        for (const char* panel : {"Panel5", "Panel6", "Panel7"}) {
            EXPECT_EQ(child<QWidget>(window, panel).isVisible(), shown);
        }
        box.click();
    }
    box.click();
    halved(200, 150);
}

TEST_F(TMDIChildTest, FailuresAreToldAndFlagsClearedAllTheSame) {
    const WorkingFolder here(path(""));
    const auto expect = [this](const char* name, const QString& file, const char* title) {
        answerBox(QString::fromLatin1(name), file, QString::fromLatin1(title), QMessageBox::Ok,
                  QMessageBox::Ok);
    };
    for (const char* folder : {"folder.xsi", "folder.msh", "loaded.xsi"}) {
        ASSERT_TRUE(QDir().mkdir(path(folder)));
    }
    const std::pair<QString, const char*> reads[] = {
        {write("wrong.x", "xof 0303txt 0032\n"), "Not a valid .X file"},
        {path("folder.xsi"), "Unable to open file"}};
    for (const auto& [name, title] : reads) {
        expect("ReadFailure", name, title);
        TMDIChild& window = open(name);
        EXPECT_EQ(window.windowTitle(), QStringLiteral("Untitled"));
        EXPECT_EQ(window.statusText(), QStringLiteral("0 meshes, 0 faces"));
    }
    TMDIChild& mesh = open(path("a.msh"));
    expect("SaveFailure", QStringLiteral("loaded.xsi"), "Unable to save");
    mesh.FileOpenMSH(write("a.msh", "mesh"));
    expect("ReadFailure", path("folder.msh"), "Unable to open file");
    mesh.FileOpenMSH(path("folder.msh"));
    EXPECT_EQ(mesh.windowTitle(), QStringLiteral("Untitled"));

    const QString name = write("gone/small.xsi", smallModel());
    TMDIChild& window = open(name);
    ASSERT_TRUE(QDir(path("gone")).removeRecursively());
    window.session()->add();
    expect("SaveFailure", name, "Unable to save");
    window.FileSaveExecute();
    EXPECT_FALSE(window.needsCloseQuestion());
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
            EXPECT_TRUE(dialog->isModal() && dialog->isVisible());
            if (cancelled) {
                dialog->findChild<QPushButton*>()->click();
            }
        });
        window->create(name);
        settle();
        EXPECT_EQ(alive.isNull(), cancelled);
    }
}

TEST_F(TMDIChildTest, SaveAsOffersAndCompletesANameAndAsksBeforeItReplaces) {
    TMDIChild& window = open(path("folder.msh"));
    answer([this](QWidget& shown) {
        auto& dialog = dynamic_cast<QFileDialog&>(shown);
        EXPECT_EQ(dialog.directory().absolutePath(), QFileInfo(path("folder.msh")).path());
        EXPECT_EQ(child<QLineEdit>(dialog, "fileNameEdit").text(), QStringLiteral("folder.xsi"));
        EXPECT_FALSE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
        dialog.reject();
    });
    window.FileSaveExecute(); // a model that was never saved asks for its name
    EXPECT_EQ(window.windowTitle(), path("folder.msh")) << "cancelled: nothing changes";
    EXPECT_TRUE(window.document()->NeverSaved && window.document()->Modified);
    const QString model = write("model.v2.xsi", "old");
    const auto saveTo = [&](const char* name) { answerFileDialog(saveDialog, path(name)); };
    for (const int reply : {QMessageBox::No, QMessageBox::Yes}) {
        const bool replaced = reply == QMessageBox::Yes;
        saveTo("model.v2");
        answerBox(QStringLiteral("ReplaceQuestion"), model,
                  QStringLiteral("File exists.  Replace?"), QMessageBox::Yes | QMessageBox::No,
                  reply);
        if (!replaced) {
            answerFileDialog(saveDialog, {}); // which asks for another name
        }
        window.FileSaveAsExecute();
        EXPECT_EQ(content(model) == "old", !replaced);
        EXPECT_EQ(window.windowTitle(), replaced ? model : path("folder.msh"));
    }
    EXPECT_FALSE(QFile::exists(path("model.v2")));
    for (const char* name : {"b.x", "b"}) {
        TMDIChild& fresh = open(QStringLiteral("Untitled 1"));
        saveTo(name);
        fresh.FileSaveExecute();
        const bool isXsi = std::string(name) == "b"; // the default suffix
        EXPECT_EQ(fresh.windowTitle(), path(isXsi ? "b.xsi" : "b.x"));
        EXPECT_EQ(QFile::exists(path("b.xsi")) || QFile::exists(path("b.x")), isXsi);
        EXPECT_TRUE(closes(fresh)) << "without a question";
    }
}

TEST_F(TMDIChildTest, CloseQuestionAnswers) {
    const QString name = write("small.xsi", smallModel());
    const std::tuple<int, bool, std::size_t> replies[] = {
        {QMessageBox::Cancel, false, 1}, {QMessageBox::No, true, 1}, {QMessageBox::Yes, true, 2}};
    for (const auto& [reply, gone, saved] : replies) {
        TMDIChild& window = open(name);
        window.session()->add();
        answerCloseQuestion(name, reply);
        EXPECT_EQ(closes(window), gone);
        EXPECT_EQ(open(name).document()->Root.Children.size(), saved);
    }
    TMDIChild& fresh = open(QStringLiteral("Untitled 1"));
    answerCloseQuestion(QStringLiteral("Untitled 1"), QMessageBox::Yes);
    answerFileDialog(saveDialog, {}); // cancelled there, it closes all the same
    EXPECT_TRUE(closes(fresh));
    TMDIChild& closed = open(name);
    closed.close(); // frees itself only when the event loop goes on
    ASSERT_EQ(closed.document(), nullptr);
    closed.FileSaveExecute();
    closed.FileSaveAsExecute(); // no dialog comes up
}

} // namespace
} // namespace korvane::test
