#include "support/ModelWindowTest.h"
#include "support/TextModel.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>

#include <functional>

namespace korvane::test {
namespace {

const QString saveDialog = QStringLiteral("SaveDialog1");
const QString untitled = QStringLiteral("Untitled 1");

class TMDIChildTest : public ModelWindowTest {
  protected:
    /// Opens another window.
    TMDIChild& open(const QString& name) const {
        Q_EMIT form().filesDropped({name});
        settle();
        return window();
    }
    /// Closes the window like its close button. Returns true if it has closed.
    static bool closes(TMDIChild& window) {
        const QPointer<TMDIChild> alive(&window);
        window.close();
        settle();
        return alive.isNull();
    }
    [[nodiscard]] std::string bytes() const { return writeText(document()); }

    /// Clicks the button, lets the steps use its dialog and ends the dialog.
    void use(const char* button, const char* title, bool accept,
             const std::function<void(QWidget&)>& steps) {
        answer([=](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QString::fromLatin1(title));
            steps(dialog);
            static_cast<QDialog&>(dialog).done(accept ? QDialog::Accepted : QDialog::Rejected);
        });
        click(button);
    }
    void rename(const char* typed, const QString& hint, bool accept = true) {
        use("RenameButton", "Rename Frame", accept, [=](QWidget& dialog) {
            child<QLineEdit>(dialog, "NameEdit").selectAll();
            child<QLineEdit>(dialog, "NameEdit").insert(QString::fromLatin1(typed));
            const QString text = child<QLabel>(dialog, "HintLabel").text();
            EXPECT_TRUE(hint.isEmpty() ? text.isEmpty() : text.contains(hint));
        });
    }
    /// Clicks boxes of the frame options, and checks which are then disabled.
    void options(const std::string& boxes, const std::string& disabled, bool accept) {
        use("EditButton", "Frame Options", accept, [=](QWidget& dialog) {
            for (const std::string& box : words(boxes)) {
                child<QCheckBox>(dialog, box.c_str()).click();
            }
            std::string found;
            for (const QCheckBox* box : dialog.findChildren<QCheckBox*>()) {
                found += box->isEnabled() ? "" : box->objectName().toStdString() + " ";
            }
            EXPECT_EQ(found, disabled);
        });
    }
};

TEST_F(TMDIChildTest, ControlsHaveNamesUnlessTheirTextIsRead) {
    for (const QWidget* control : QApplication::allWidgets()) {
        const QString name = control->objectName(); // Qt's internal widgets have none
        const bool text = control->inherits("QLabel") && name != u"ProgramIcon";
        const bool frame = control->isWindow() || name == u"texname" || name == u"CornerPanel";
        if (!name.isEmpty() && !name.startsWith(u"qt_") && !frame) {
            EXPECT_EQ(control->accessibleName().isEmpty(), text) << name.toStdString();
        }
    }
}

TEST_F(TMDIChildTest, ButtonsFollowTheModelAndItsSelection) {
    const auto enabled = [&] {
        std::string buttons;
        for (const char* name : {"EditButton", "RenameButton", "DeleteButton", "AddButton"}) {
            const auto& button = child<QPushButton>(window(), name);
            buttons += button.isEnabled() ? '[' + button.text().toStdString() + ']' : "";
        }
        return buttons;
    };
    // a single one would be the mark for changes, a doubled one is text
    EXPECT_EQ(open(write("a[*].xsi", smallModel())).windowTitle(), path("a[*][*].xsi"));
    EXPECT_EQ(enabled(), "[Edit][Rename Frame][Add Frame]");
    select(bodyMaterials + "/Material 2");
    EXPECT_EQ(enabled(), "[Edit][Rename Frame][Delete][Add Material]");
    const QPoint selected = tree().visualRect(tree().currentIndex()).center();
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, Qt::ControlModifier, selected);
    EXPECT_EQ(enabled(), "[Edit][Rename Frame][Delete][Add Material]") << "still selected";
    EXPECT_TRUE(tree().selectionModel()->hasSelection());
    open(untitled);
    EXPECT_EQ(enabled(), "") << "no selection";
}

TEST_F(TMDIChildTest, KeysAndDoubleClicksInTheTreeActOnItsRow) {
    const std::string wing = bodyNode + "/Frame frm-wing";
    const std::string tip = wing + "/Frame frm-tip";
    const auto key = [&](Qt::Key pressed, Qt::KeyboardModifiers held = {}, bool repeated = false) {
        QKeyEvent event(QEvent::KeyPress, pressed, held, {}, repeated);
        QApplication::sendEvent(&tree(), &event);
    };
    const std::tuple<std::string, const char*, std::function<void()>> steps[] = {
        {wing, "Frame Options", [&] { key(Qt::Key_Return); }},
        {wing, "Frame Options", [&] { key(Qt::Key_Enter, Qt::KeypadModifier); }},
        {tip, "Frame Options",
         [&] {
             const QPoint at = tree().visualRect(tree().currentIndex()).center();
             QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, at);
             QTest::mouseDClick(tree().viewport(), Qt::MiddleButton, {}, at);
             QTest::mouseRelease(tree().viewport(), Qt::MiddleButton, {}, at);
             settle(); // must open nothing
             QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, at);
         }},
        {bodyNode, "Rename Frame", [&] { key(Qt::Key_F2); }},
        {bodyMaterials, "Material Editor", [&] { key(Qt::Key_Return); }}};
    for (const auto& [at, title, step] : steps) {
        answer([title = title](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QString::fromLatin1(title));
            dialog.close();
        });
        select(at);
        settle();
        step();
        settle();
        EXPECT_TRUE(allAnswered()) << title;
    }
    const std::string before = bytes();
    select(bodyMesh); // only its frame can be renamed
    for (const Qt::Key none : {Qt::Key_Return, Qt::Key_Delete, Qt::Key_Insert}) {
        key(none);
    }
    select(wing);
    key(Qt::Key_Delete, Qt::ShiftModifier);
    key(Qt::Key_Delete, {}, true);
    EXPECT_EQ(bytes(), before);
    key(Qt::Key_Insert);
    EXPECT_EQ(document().Root.Children[0].Children.size(), 2U);
    key(Qt::Key_Delete);
    EXPECT_TRUE(document().Root.Children.empty());
}

TEST_F(TMDIChildTest, FailuresAreReportedAndFlagsClearedAnyway) {
    const WorkingFolder here(folder());
    const auto expect = [this](const char* name, const QString& file, const char* title) {
        answerBox(QString::fromLatin1(name), file, QString::fromLatin1(title), QMessageBox::Ok,
                  QMessageBox::Ok);
    };
    const QString wrong = write("wrong.x", "xof 0303txt 0032\n");
    expect("ReadFailure", wrong, "Not a valid .X file");
    EXPECT_EQ(open(wrong).windowTitle(), QStringLiteral("Untitled"));

    TMDIChild& mesh = open(path("a.msh"));
    ASSERT_TRUE(QDir().mkdir(path("loaded.xsi")));
    expect("SaveFailure", QStringLiteral("loaded.xsi"), "Unable to save");
    mesh.FileOpenMSH(write("a.msh", "mesh"));
    expect("ReadFailure", folder(), "Unable to open file");
    mesh.FileOpenMSH(folder());
    EXPECT_EQ(mesh.windowTitle(), QStringLiteral("Untitled"));

    const QString name = write("gone/small.xsi", smallModel());
    TMDIChild& window = open(name);
    ASSERT_TRUE(QDir(path("gone")).removeRecursively());
    window.session()->add();
    expect("SaveFailure", name, "Unable to save");
    window.FileSaveExecute();
    EXPECT_FALSE(window.needsCloseQuestion());
}

TEST_F(TMDIChildTest, CancellingReadingClosesItsWindowWithoutAQuestion) {
    leaveModalWindows();
    for (const bool cancelled : {true, false}) {
        auto* reading = new TMDIChild(ViewColors());
        child<QMdiArea>(form(), "MDIArea").addSubWindow(reading);
        const QPointer<TMDIChild> alive(reading);
        reading->showMaximized();
        reading->setProgressDelay(std::chrono::milliseconds(0));
        // the timer fires when the dialog processes events
        QTimer::singleShot(0, reading, [cancelled] {
            auto* dialog = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            EXPECT_TRUE(dialog->isModal() && dialog->isVisible());
            if (cancelled) {
                dialog->findChild<QPushButton*>()->click();
            }
        });
        reading->create(path("m.xsi"));
        settle();
        EXPECT_EQ(alive.isNull(), cancelled);
    }
}

TEST_F(TMDIChildTest, SaveAsOffersAndCompletesANameAndAsksBeforeReplacing) {
    TMDIChild& window = open(path("folder.msh"));
    answer([this](QWidget& shown) {
        auto& dialog = dynamic_cast<QFileDialog&>(shown);
        EXPECT_EQ(dialog.directory().absolutePath(), folder());
        EXPECT_EQ(child<QLineEdit>(dialog, "fileNameEdit").text(), QStringLiteral("folder.xsi"));
        EXPECT_FALSE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
        dialog.reject();
    });
    window.FileSaveExecute(); // asks for the name of a model never saved
    EXPECT_TRUE(window.needsCloseQuestion());
    const QString model = write("model.v2.xsi", "old");
    for (const int reply : {QMessageBox::No, QMessageBox::Yes}) {
        const bool replaced = reply == QMessageBox::Yes;
        answerFileDialog(saveDialog, path("model.v2"));
        answerBox(QStringLiteral("ReplaceQuestion"), model,
                  QStringLiteral("File exists.  Replace?"), QMessageBox::Yes | QMessageBox::No,
                  reply);
        if (!replaced) {
            answerFileDialog(saveDialog, {}); // the dialog shows again
        }
        window.FileSaveAsExecute();
        EXPECT_EQ(content(model) == "old", !replaced);
        EXPECT_EQ(window.windowTitle(), replaced ? model : path("folder.msh"));
    }
    answerFileDialog(saveDialog, path("b.x")); // this name is complete
    window.FileSaveAsExecute();
    EXPECT_EQ(window.windowTitle(), path("b.x"));
}

TEST_F(TMDIChildTest, CloseQuestionAnswers) {
    const QString name = path("m.xsi");
    for (const int reply : {QMessageBox::Cancel, QMessageBox::No, QMessageBox::Yes}) {
        TMDIChild& window = open(name);
        window.session()->add();
        answerCloseQuestion(name, reply);
        EXPECT_EQ(closes(window), reply != QMessageBox::Cancel);
        EXPECT_EQ(open(name).document()->Root.Children.size(), reply == QMessageBox::Yes ? 2U : 1U);
    }
    TMDIChild& fresh = open(untitled);
    answerCloseQuestion(untitled, QMessageBox::Yes);
    answerFileDialog(saveDialog, {}); // the window closes even if this is cancelled
    EXPECT_TRUE(closes(fresh));
    TMDIChild& closed = open(name);
    closed.close(); // only the event loop frees it
    ASSERT_EQ(closed.document(), nullptr);
    closed.FileSaveExecute();
    closed.FileSaveAsExecute(); // must show no dialog
}

TEST_F(TMDIChildTest, EveryButtonCanBeUndoneAndRedone) {
    const auto add = [&] { click("AddButton"); };
    const auto remove = [&] { click("DeleteButton"); };
    const std::string fin = bodyNode + "/Frame frm-fin 2";
    const std::tuple<std::string, std::function<void()>, const char*> steps[] = {
        {bodyNode, add, "Frame frm-body"},
        {bodyNode + "/Frame frm-", [&] { rename("Fin\n 2", QStringLiteral("a space")); },
         "Frame frm-fin 2"},
        {fin, [&] { options("MeshBox GFlagBox", "BasePoseBox TexCoordsBox ", true); },
         "Frame frm-fin 2"},
        {fin, remove, "Frame frm-body"},
        {"Materials", add, "Materials"},
        {bodyMaterials + "/Material 2", remove, "Material 1"}};
    tree().expandAll();
    std::vector<std::string> ends = {bytes()};
    int count = 0;
    for (const auto& [at, command, selects] : steps) {
        select(at);
        command();
        EXPECT_EQ(tree().currentIndex().data().toString(), QString::fromLatin1(selects)) << count;
        EXPECT_EQ(window().session()->history().position(), count++);
    }
    EXPECT_TRUE(tree().isExpanded(node(bodyMaterials)));
    ends.push_back(bytes());
    for (const auto& [way, end] : {std::pair("EditUndo1", 0U), std::pair("EditRedo1", 1U)}) {
        for (int step = 0; step < count; ++step) {
            run(way);
        }
        EXPECT_EQ(bytes(), ends.at(end));
        EXPECT_FALSE(action(way).isEnabled());
    }
}

TEST_F(TMDIChildTest, DialogsShowTheFrameAndCanBeCancelled) {
    const std::string before = bytes();
    rename("", QStringLiteral("is empty"), false);
    EXPECT_EQ(bytes(), before);
    options("MeshBox",
            "BasePoseBox BackwardsBox EmissiveBox MaterialBox NormalsBox TexCoordsBox "
            "VertexColorsBox FlameBox GFlagBox AnimationBox ",
            false);
    EXPECT_FALSE(document().Root.HasMesh || window().canUndo()) << "clicks are not reverted";
    EXPECT_EQ(tree().model()->rowCount(node(bodyNode)), 1); // the tree follows anyway
    options("MeshBox MaterialBox VertexColorsBox", "BasePoseBox TexCoordsBox ", true);
    EXPECT_TRUE(document().Root.HasMesh && !document().Root.Mesh.HasMaterials);
    EXPECT_FALSE(document().Root.Mesh.HasVertexColors) << "its box changes nothing";
}

TEST_F(TMDIChildTest, ADoubleClickDeletesOnceAndReturnsTheFocusToTheTree) {
    select(bodyNode + "/Frame frm-wing/Frame frm-tip");
    auto& button = child<QPushButton>(window(), "DeleteButton");
    button.setFocus();
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseDClick(&button, Qt::LeftButton); // the second press
    QTest::mouseRelease(&button, Qt::LeftButton);
    ASSERT_EQ(document().Root.Children.size(), 1U);
    EXPECT_TRUE(tree().hasFocus());
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(document().Root.Children.empty()) << "a separate click";
}

TEST_F(TMDIChildTest, TreeStaysExpandedAndScrolledWhenFramesMove) {
    const auto frame = [](int i) { return bodyNode + "/Frame frm-" + std::to_string(i); };
    const auto isOpen = [&](const std::string& path) { return tree().isExpanded(node(path)); };
    for (int i = 0; i < 400; ++i) {
        document().Root.Children.resize(static_cast<std::size_t>(i) + 1);
        document().Root.Children.back().Name = std::to_string(i);
        document().Root.Children.back().Children.resize(1);
    }
    document().computeDerivedData();
    tree().collapseAll();
    click("AddButton"); // makes the tree show the frames added above
    EXPECT_TRUE(isOpen(bodyNode));
    tree().expand(node(frame(1)));
    select(frame(0));
    click("DeleteButton");
    EXPECT_TRUE(isOpen(frame(1)) && !isOpen(frame(2)));
    run("EditUndo1");
    EXPECT_TRUE(isOpen(frame(1)) && !isOpen(frame(0)));

    // editing a frame out of sight does not scroll; a new selection does
    select(bodyNode);
    settle();
    QScrollBar& bar = *tree().verticalScrollBar();
    bar.setValue(20);
    click("AddButton");
    EXPECT_EQ(bar.value(), 20);
    select(frame(398));
    EXPECT_GT(bar.value(), 100);
    // and so does an undo that selects a frame
    rename("end", {});
    select("Materials");
    tree().collapseAll();
    run("EditUndo1");
    EXPECT_EQ(tree().currentIndex(), node(frame(398)));
    EXPECT_TRUE(tree().viewport()->rect().intersects(tree().visualRect(tree().currentIndex())));
}

TEST_F(TMDIChildTest, EditOpensTheMaterialEditorAndFollowsIt) {
    drawBySoftware();
    select(bodyMaterials);
    const QImage before = picture("Image1");
    use("EditButton", "Material Editor", true, [&](QWidget& editor) {
        child<QSlider>(editor, "opacitybar").setValue(50);
        EXPECT_NE(picture("Image1"), before) << "live";
        child<QListWidget>(editor, "CheckListBox1").item(0)->setCheckState(Qt::Unchecked);
    });
    EXPECT_EQ(tree().currentIndex(), node(bodyMaterials));
    EXPECT_EQ(tree().model()->rowCount(node(bodyMaterials)), 1);
}

} // namespace
} // namespace korvane::test
