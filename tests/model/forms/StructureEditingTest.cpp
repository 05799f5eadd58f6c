#include "render/forms/TImage.h"
#include "support/MainFormTest.h"
#include "support/TextModel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QTest>

#include <functional>
#include <string>
#include <vector>

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
    void answerRename(const QString& typed, const QString& hint, bool accept = true) {
        answer([=](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Rename Frame"));
            auto& edit = child<QLineEdit>(dialog, "NameEdit");
            edit.selectAll();
            edit.insert(typed);
            EXPECT_EQ(child<QLabel>(dialog, "HintLabel").text().contains(hint),
                      !hint.isEmpty() || child<QLabel>(dialog, "HintLabel").text().isEmpty());
            static_cast<QDialog&>(dialog).done(accept ? QDialog::Accepted : QDialog::Rejected);
        });
    }
    /// Clicks boxes of the frame options, and looks at which are enabled before it closes them.
    void answerFrameOptions(const std::vector<const char*>& boxes, const std::string& disabled,
                            bool accept) {
        answer([=](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Frame Options"));
            for (const char* box : boxes) {
                child<QCheckBox>(dialog, box).click();
            }
            std::string found;
            for (const QCheckBox* box : dialog.findChildren<QCheckBox*>()) {
                found += box->isEnabled() ? "" : box->objectName().toStdString() + " ";
            }
            EXPECT_EQ(found, disabled);
            static_cast<QDialog&>(dialog).done(accept ? QDialog::Accepted : QDialog::Rejected);
        });
    }
};

TEST_F(StructureEditing, FramesAreAddedRenamedAndDeletedAndAllOfItTakenBack) {
    std::vector<std::string> rungs = {bytes()};
    const auto rung = [&] { rungs.push_back(bytes()); };
    select(bodyNode);
    press("AddButton");
    rung();
    select(bodyNode + "/Frame frm-");
    answerRename(QStringLiteral("Fin 2"), QStringLiteral("a blank"));
    press("RenameButton");
    rung();
    EXPECT_EQ(selected(), QStringLiteral("Frame frm-fin 2"));
    answerFrameOptions({"MeshBox", "GFlagBox"}, "BasePoseBox TexCoordsBox ", true);
    press("EditButton");
    rung();
    press("DeleteButton");
    rung();
    EXPECT_EQ(selected(), QStringLiteral("Frame frm-body")) << "the parent";
    EXPECT_TRUE(document().Modified);
    for (int time = 0; time < 2; ++time) {
        for (std::size_t i = rungs.size() - 1; i > 0; --i) {
            run("EditUndo1");
            EXPECT_EQ(bytes(), rungs[i - 1]) << i;
        }
        EXPECT_FALSE(action("EditUndo1").isEnabled());
        for (std::size_t i = 1; i < rungs.size(); ++i) {
            run("EditRedo1");
            EXPECT_EQ(bytes(), rungs[i]) << i;
        }
        settle();
        EXPECT_FALSE(action("EditRedo1").isEnabled());
    }
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

TEST_F(StructureEditing, TheFrameThatUndoSelectsIsShown) {
    const std::string wing = bodyNode + "/Frame frm-wing";
    select(wing + "/Frame frm-tip");
    answerRename(QStringLiteral("end"), {});
    press("RenameButton");
    select("Materials");
    tree().collapseAll();
    run("EditUndo1");
    EXPECT_EQ(selected(), QStringLiteral("Frame frm-tip"));
    EXPECT_TRUE(tree().isExpanded(node(wing)));
    EXPECT_TRUE(tree().viewport()->rect().intersects(tree().visualRect(tree().currentIndex())));
}

TEST_F(StructureEditing, FrameOptionsWriteAtOnceAndCancelKeepsWhatWasClicked) {
    select(bodyNode);
    const FrameRecord& frame = document().Root;
    const std::string meshBoxes = "BackwardsBox EmissiveBox MaterialBox NormalsBox TexCoordsBox "
                                  "VertexColorsBox FlameBox GFlagBox AnimationBox ";
    answerFrameOptions({"MeshBox"}, "BasePoseBox " + meshBoxes, false);
    press("EditButton");
    EXPECT_FALSE(frame.HasMesh);
    EXPECT_FALSE(window().canUndo());
    EXPECT_EQ(tree().model()->rowCount(node(bodyNode)), 1); // the tree tells of it all the same
    answerFrameOptions({"MeshBox", "MaterialBox", "VertexColorsBox"}, "BasePoseBox TexCoordsBox ",
                       true);
    press("EditButton");
    EXPECT_TRUE(frame.HasMesh);
    EXPECT_FALSE(frame.Mesh.HasMaterials);
    EXPECT_FALSE(frame.Mesh.HasVertexColors); // its box changes nothing
    run("EditUndo1");
    EXPECT_FALSE(frame.HasMesh);
    EXPECT_TRUE(frame.Mesh.HasMaterials);
}

TEST_F(StructureEditing, MaterialsComeAndGoAndTheTreeStaysOpen) {
    tree().expandAll();
    const std::size_t materials = document().Materials.size();
    select(bodyMaterials);
    press("AddButton");
    EXPECT_EQ(selected(), QStringLiteral("MeshMaterialList"));
    EXPECT_TRUE(tree().isExpanded(node(bodyMaterials)));
    EXPECT_EQ(tree().model()->rowCount(node(bodyMaterials)), 3);
    tree().setCurrentIndex(tree().model()->index(2, 0, node(bodyMaterials)));
    press("DeleteButton");
    EXPECT_EQ(tree().currentIndex().row(), 1); // the last slot there is
    select("Materials");
    press("AddButton");
    EXPECT_EQ(document().Materials.size(), materials + 2);
    tree().setCurrentIndex(
        tree().model()->index(static_cast<int>(materials) + 1, 0, node("Materials")));
    press("DeleteButton");
    EXPECT_EQ(document().Materials.size(), materials + 1);
    EXPECT_EQ(selected(), QStringLiteral("Material %1").arg(materials + 1));
}

TEST_F(StructureEditing, WhatIsOpenStaysOpenAndInPlaceWhereverFramesMove) {
    const auto child = [&](int i) { return bodyNode + "/Frame frm-" + std::to_string(i); };
    document().Root.Children.resize(400);
    for (int i = 0; i < 400; ++i) {
        FrameRecord& frame = document().Root.Children[static_cast<std::size_t>(i)];
        frame.Name = std::to_string(i);
        frame.Children.resize(1);
    }
    ModelDocument::refreshPaths(document().Root, 0);
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
    settle();
    EXPECT_EQ(bar.value(), 20);
    select(child(399));
    press("DeleteButton");
    EXPECT_GT(bar.value(), 100);
}

TEST_F(StructureEditing, OpeningAllOpensAll) {
    tree().collapseAll();
    select(bodyNode);
    QTest::keyClick(&tree(), Qt::Key_Asterisk);
    settle();
    EXPECT_TRUE(tree().isExpanded(node(bodyMaterials)));
    int rows = 0;
    for (QModelIndex at = tree().model()->index(0, 0); at.isValid(); at = tree().indexBelow(at)) {
        ++rows;
    }
    EXPECT_EQ(rows, 9) << "the frames with all their parts, and the table";
}

TEST_F(StructureEditing, NamesAreOnOneLineAndLeftAloneOnesKeepTheirBytes) {
    FrameRecord& frame = document().Root;
    select(bodyNode);
    answerRename(QStringLiteral("Wing\nTip\x85\u2028"), {});
    press("RenameButton");
    EXPECT_EQ(frame.Name, "wingtip");
    answerRename({}, QStringLiteral("is empty"), false);
    press("RenameButton");
    answerRename(QStringLiteral("templates"), QStringLiteral("template"), false);
    press("RenameButton");
    EXPECT_EQ(frame.Name, "wingtip") << "cancelled";
    // as read from a file: only the letters of the language are folded there
    frame.Name = "\xC9";
    answer([](QWidget& dialog) { static_cast<QDialog&>(dialog).accept(); });
    press("RenameButton");
    EXPECT_EQ(frame.Name, "\xC9");
    EXPECT_EQ(selected(), QStringLiteral("Frame frm-\u00c9")) << "no UTF-8: one character a byte";
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
    const auto current = [](QWidget& editor) {
        return child<QComboBox>(editor, "ComboBox1").currentText();
    };
    edit(bodyMaterials + "/Material 2", [&](QWidget& editor) {
        EXPECT_EQ(current(editor), QStringLiteral("Material 2"));
        EXPECT_EQ(document().Root.Mesh.CurrentSlot, 1);
    });
    edit("Materials/Material 2", [&](QWidget& editor) {
        EXPECT_EQ(current(editor), QStringLiteral("Material 2"));
        EXPECT_FALSE(child<QListWidget>(editor, "CheckListBox1").isEnabled());
    });
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
    run("EditUndo1");
    EXPECT_EQ(tree().model()->rowCount(node(bodyMaterials)), 2);
}

} // namespace
} // namespace korvane::test
