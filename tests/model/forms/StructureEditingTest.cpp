#include "render/forms/TImage.h"
#include "support/MainFormTest.h"
#include "support/TextModel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>

#include <functional>

namespace korvane::test {
namespace {

class StructureEditing : public MainFormTest {
  protected:
    StructureEditing() { start({write("m.xsi", smallModel())}); }

    [[nodiscard]] std::string bytes() const { return writeText(document()); }
    [[nodiscard]] QString selected() const { return tree().currentIndex().data().toString(); }

    void press(const char* button) const {
        auto& found = child<QPushButton>(window(), button);
        ASSERT_TRUE(found.isEnabled()) << button;
        found.click();
        settle();
    }
    void rename(const QString& typed, const QString& hint, bool accept = true) {
        answer([=](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Rename Frame"));
            auto& edit = child<QLineEdit>(dialog, "NameEdit");
            edit.selectAll();
            edit.insert(typed);
            const QString text = child<QLabel>(dialog, "HintLabel").text();
            EXPECT_TRUE(hint.isEmpty() ? text.isEmpty() : text.contains(hint))
                << text.toStdString();
            static_cast<QDialog&>(dialog).done(accept ? QDialog::Accepted : QDialog::Rejected);
        });
        press("RenameButton");
    }
    /// Clicks boxes of the frame options, and looks at which are enabled before it closes them.
    void options(const std::string& boxes, const std::string& disabled, bool accept) {
        answer([=](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Frame Options"));
            for (const std::string& box : words(boxes)) {
                child<QCheckBox>(dialog, box.c_str()).click();
            }
            std::string found;
            for (const QCheckBox* box : dialog.findChildren<QCheckBox*>()) {
                found += box->isEnabled() ? "" : box->objectName().toStdString() + " ";
            }
            EXPECT_EQ(found, disabled);
            static_cast<QDialog&>(dialog).done(accept ? QDialog::Accepted : QDialog::Rejected);
        });
        press("EditButton");
    }
};

TEST_F(StructureEditing, EveryButtonIsTakenBackAndMadeAgain) {
    const auto add = [&] { press("AddButton"); };
    const auto remove = [&] { press("DeleteButton"); };
    const std::tuple<std::string, std::function<void()>, const char*> steps[] = {
        {bodyNode, add, "Frame frm-body"},
        {bodyNode + "/Frame frm-",
         [&] { rename(QStringLiteral("Fin\n 2"), QStringLiteral("a blank")); }, "Frame frm-fin 2"},
        {bodyNode + "/Frame frm-fin 2",
         [&] { options("MeshBox GFlagBox", "BasePoseBox TexCoordsBox ", true); },
         "Frame frm-fin 2"},
        {bodyNode + "/Frame frm-fin 2", remove, "Frame frm-body"},
        {bodyMaterials, add, "MeshMaterialList"},
        {bodyMaterials + "/Material 2", remove, "Material 3"},
        {"Materials", add, "Materials"},
        {"Materials/Material 4", remove, "Material 3"}};
    tree().expandAll();
    const std::string before = bytes();
    int count = 0;
    for (const auto& [at, command, selects] : steps) {
        select(at);
        command();
        EXPECT_EQ(selected().toStdString(), selects) << count;
        EXPECT_EQ(window().session()->history().position(), count++);
    }
    EXPECT_TRUE(tree().isExpanded(node(bodyMaterials)));
    const std::string after = bytes();
    for (int step = 0; step < count; ++step) {
        run("EditUndo1");
    }
    EXPECT_EQ(bytes(), before);
    EXPECT_FALSE(action("EditUndo1").isEnabled());
    for (int step = 0; step < count; ++step) {
        run("EditRedo1");
    }
    EXPECT_EQ(bytes(), after);
    EXPECT_FALSE(action("EditRedo1").isEnabled());
}

TEST_F(StructureEditing, DialogsShowWhatTheyAskAboutAndCancel) {
    select(bodyNode);
    const std::string before = bytes();
    rename({}, QStringLiteral("is empty"), false);
    rename(QStringLiteral("templates"), QStringLiteral("template"), false);
    EXPECT_EQ(bytes(), before);
    EXPECT_FALSE(window().canUndo());
    options("MeshBox",
            "BasePoseBox BackwardsBox EmissiveBox MaterialBox NormalsBox TexCoordsBox "
            "VertexColorsBox FlameBox GFlagBox AnimationBox ",
            false);
    EXPECT_FALSE(document().Root.HasMesh || window().canUndo()) << "what was clicked stays";
    EXPECT_EQ(tree().model()->rowCount(node(bodyNode)), 1); // the tree tells of it all the same
    options("MeshBox MaterialBox VertexColorsBox", "BasePoseBox TexCoordsBox ", true);
    EXPECT_TRUE(document().Root.HasMesh);
    EXPECT_FALSE(document().Root.Mesh.HasMaterials);
    EXPECT_FALSE(document().Root.Mesh.HasVertexColors) << "its box changes nothing";
}

TEST_F(StructureEditing, AQuickSecondPressDeletesNothingMoreAndTheTreeGetsTheFocusBack) {
    select(bodyNode + "/Frame frm-wing/Frame frm-tip");
    auto& button = child<QPushButton>(window(), "DeleteButton");
    button.setFocus();
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseDClick(&button, Qt::LeftButton); // how the second press comes
    QTest::mouseRelease(&button, Qt::LeftButton);
    ASSERT_EQ(document().Root.Children.size(), 1U);
    EXPECT_TRUE(document().Root.Children[0].Children.empty());
    EXPECT_TRUE(tree().hasFocus());
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(document().Root.Children.empty()) << "a click of its own";
}

TEST_F(StructureEditing, WhatIsOpenStaysOpenAndInPlaceWhereverFramesMove) {
    const auto child = [&](int i) { return bodyNode + "/Frame frm-" + std::to_string(i); };
    document().Root.Children.resize(400);
    for (int i = 0; i < 400; ++i) {
        FrameRecord& frame = document().Root.Children[static_cast<std::size_t>(i)];
        frame.Name = std::to_string(i);
        frame.Children.resize(1);
    }
    document().computeDerivedData();
    select(bodyNode);
    press("AddButton"); // shows what the test has made
    EXPECT_TRUE(tree().isExpanded(node(bodyNode)));
    tree().expand(node(child(1)));
    select(child(0));
    press("DeleteButton");
    EXPECT_TRUE(tree().isExpanded(node(child(1))));
    EXPECT_FALSE(tree().isExpanded(node(child(2))));
    run("EditUndo1");
    EXPECT_FALSE(tree().isExpanded(node(child(0))));
    EXPECT_TRUE(tree().isExpanded(node(child(1))));

    // an edit of a frame that is out of sight leaves the view where it is; a new selection shows
    select(bodyNode);
    QScrollBar& bar = *tree().verticalScrollBar();
    settle();
    bar.setValue(20);
    ASSERT_EQ(bar.value(), 20);
    press("AddButton");
    EXPECT_EQ(bar.value(), 20);
    select(child(399));
    press("DeleteButton");
    EXPECT_GT(bar.value(), 100);
    // and so does the frame that undo selects
    select(child(398));
    rename(QStringLiteral("end"), {});
    select("Materials");
    tree().collapseAll();
    run("EditUndo1");
    EXPECT_EQ(selected(), QStringLiteral("Frame frm-398"));
    EXPECT_TRUE(tree().viewport()->rect().intersects(tree().visualRect(tree().currentIndex())));

    select(bodyNode);
    QTest::keyClick(&tree(), Qt::Key_Asterisk);
    settle();
    EXPECT_TRUE(tree().isExpanded(node(bodyMaterials)) && tree().isExpanded(node(child(7))));
}

TEST_F(StructureEditing, EditOpensTheMaterialEditorOnWhatIsSelected) {
    const auto edit = [&](const std::string& at, const std::function<void(QWidget&)>& steps) {
        select(at);
        settle();
        answer([&](QWidget& editor) {
            EXPECT_EQ(editor.windowTitle(), QStringLiteral("Material Editor"));
            steps(editor);
            child<QPushButton>(editor, "Button2").click();
        });
        press("EditButton");
        EXPECT_EQ(tree().currentIndex(), node(at));
    };
    for (const std::string& list : {bodyMaterials, std::string("Materials")}) {
        edit(list + "/Material 2", [&](QWidget& editor) {
            EXPECT_EQ(child<QComboBox>(editor, "ComboBox1").currentIndex(), 1);
            EXPECT_EQ(child<QWidget>(editor, "CheckListBox1").isEnabled(), list == bodyMaterials);
        });
    }
    // the tree follows the slots, the 3D view each edit
    window().setDrawingInterface(DrawApi::Software); // draws at once
    TImage& image = child<TImage>(window(), "Image1");
    edit(bodyMaterials, [&](QWidget& editor) {
        const QImage before = image.picture().copy();
        child<QSlider>(editor, "opacitybar").setValue(20);
        EXPECT_NE(image.picture(), before);
        child<QListWidget>(editor, "CheckListBox1").item(0)->setCheckState(Qt::Unchecked);
    });
    EXPECT_EQ(tree().model()->rowCount(node(bodyMaterials)), 1);
}

} // namespace
} // namespace korvane::test
