#include "app/widgets/ColorSwatch.h"
#include "support/EditLadder.h"
#include "support/MaterialTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QSlider>

namespace korvane::test {
namespace {

using TMaterialTest = MaterialTest;

TEST_F(TMaterialTest, ShowsTheMaterialOfTheSlotAndChangesNothing) {
    document.Materials[0].FaceColor = {1.0F, 0.5F, 0.0F, 0.289F};
    document.Materials[0].Ambient = {0.1F, 0.2F, 0.3F};
    document.Materials[0].Power = 12.345678F;
    document.Materials[1].Specular = {-1.0F, 2.0F, 0.999F};
    const ModelDocument before = document;
    edit([&] {
        auto& slots = control<QComboBox>("ComboBox1");
        EXPECT_EQ(slots.count(), 2);
        EXPECT_EQ(slots.currentText(), QStringLiteral("Material 1"));
        EXPECT_EQ(control<ColorSwatch>("diffuse").color(), QColor(255, 127, 0));
        EXPECT_EQ(control<ColorSwatch>("ambient").color(), QColor(25, 51, 76));
        EXPECT_EQ(control<QSlider>("opacitybar").value(), 28);
        EXPECT_EQ(control<QLabel>("opacity").text(), QStringLiteral("28"));
        EXPECT_EQ(control<QLineEdit>("Edit1").text(), QStringLiteral("12.345678"));
        EXPECT_TRUE(control<QCheckBox>("textureCheckBox").isChecked());
        EXPECT_EQ(control<QGroupBox>("texname").title(), QStringLiteral("Texture - [ body.tga ]"));
        EXPECT_EQ(control<QLabel>("size").text(), QStringLiteral("( 300 x 200 )"));
        auto& list = control<QListWidget>("CheckListBox1");
        ASSERT_EQ(list.count(), 3);
        EXPECT_EQ(list.item(2)->text(), QStringLiteral("Material 3"));
        EXPECT_EQ(list.item(1)->checkState(), Qt::Checked);
        EXPECT_EQ(list.item(2)->checkState(), Qt::Unchecked);
        chooseSlot(1);
        EXPECT_EQ(control<ColorSwatch>("specular").color(), QColor(0, 255, 254));
        EXPECT_FALSE(control<QCheckBox>("textureCheckBox").isChecked());
        EXPECT_FALSE(view().isVisible());
        EXPECT_EQ(control<QLabel>("size").text(), QStringLiteral("( 1 x 1 )"));
        chooseSlot(0);
        EXPECT_TRUE(view().isVisible());
    });
    EXPECT_EQ(EditSnapshot(document), EditSnapshot(before));
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(document.Modified);
    EXPECT_FALSE(ended.tree);
}

TEST_F(TMaterialTest, EveryControlHasAnAccessibleName) {
    for (const QWidget* widget : editor.findChildren<QWidget*>()) {
        const QString name = widget->objectName(); // the parts of Qt's own controls have none
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && !name.isEmpty() &&
            !name.startsWith(u"qt_")) {
            EXPECT_FALSE(widget->accessibleName().isEmpty()) << name.toStdString();
        }
    }
}

TEST_F(TMaterialTest, ColoursAreChosenAndRecorded) {
    edit([&] {
        answerColor(QColor(77, 0, 255));
        click("ambient");
        EXPECT_EQ(document.Materials[0].Ambient,
                  (ColorRGB{static_cast<float>(77 / 255.0), 0.0F, 1.0F}));
        EXPECT_EQ(control<ColorSwatch>("ambient").color(), QColor(77, 0, 255));
        answerColor(std::nullopt);
        click("diffuse");
        EXPECT_EQ(history.position(), 0);
        answerColor(QColor(255, 255, 255));
        control<QAction>("diffusechng").trigger();
        answerColor(control<ColorSwatch>("specular").color()); // the same again
        control<QAction>("specularchng").trigger();
        EXPECT_EQ(history.position(), 2);
        control<QAction>("emissivechng").trigger();
    });
    EXPECT_EQ(document.Materials[0].FaceColor, (ColorRGBA{1, 1, 1, 1}));
    EXPECT_EQ(history.position(), 2);
    EXPECT_EQ(edits, 3);
    EXPECT_EQ(history.entries()[2].kind, EditKind::Specular);
}

TEST_F(TMaterialTest, RunsOfOpacityAndShininessAreOneEntryEach) {
    const auto kinds = [&] {
        std::string text;
        for (const EditAction& entry : history.entries()) {
            text += std::to_string(static_cast<int>(entry.kind)) + ' ';
        }
        return text;
    };
    edit([&] {
        for (const int position : {10, 25, 40}) {
            control<QSlider>("opacitybar").setValue(position);
            EXPECT_EQ(document.Materials[0].FaceColor.alpha, static_cast<float>(position * 0.01));
        }
        EXPECT_EQ(control<QLabel>("opacity").text(), QStringLiteral("40"));
        answerColor(QColor(1, 2, 3));
        click("ambient");
        EXPECT_EQ(kinds(), "6 2 ");
        auto& field = control<QLineEdit>("Edit1");
        field.selectAll();
        QTest::keyClicks(&field, QStringLiteral("125"));
        EXPECT_EQ(document.Materials[0].Power, 125.0F);
        control<QSlider>("opacitybar").setValue(50); // commits the shininess
        EXPECT_EQ(kinds(), "6 2 20 ");
        field.setText(QStringLiteral("7")); // commits the opacity
        EXPECT_EQ(kinds(), "6 2 20 6 ");
    }); // OK commits
    EXPECT_EQ(kinds(), "6 2 20 6 20 ");
    // closing by Escape commits as well
    edit([&] {
        control<QSlider>("opacitybar").setValue(3);
        QTest::keyClick(&editor, Qt::Key_Escape);
    });
    EXPECT_EQ(kinds(), "6 2 20 6 20 6 ");
}

TEST_F(TMaterialTest, WhatIsNoShininessIsRefused) {
    edit([&] {
        auto& field = control<QLineEdit>("Edit1");
        for (const char* text : {"-1", "letters", "", "1e99"}) {
            answerConversionError();
            field.setText(QString::fromLatin1(text));
            EXPECT_EQ(document.Materials[0].Power, 200.0F) << text;
        }
        answerConversionError();
        QTest::keyClicks(&field, QStringLiteral("x"));
        click("RedrawButton"); // commits: nothing has changed
        EXPECT_FALSE(history.canUndo());
        field.setText(QStringLiteral("0"));
    });
    EXPECT_EQ(document.Materials[0].Power, 0.0F);
    EXPECT_EQ(history.position(), 0);
    history.undo(document);
    EXPECT_EQ(document.Materials[0].Power, 200.0F);
}

TEST_F(TMaterialTest, TheComboBoxGivesTheSelectedFaceASlot) {
    edit([&] {
        chooseSlot(1); // no face is selected
        EXPECT_FALSE(history.canUndo());
        EXPECT_EQ(mesh().CurrentSlot, 1);
        select({0, 2}); // a vertex stands for its face
        chooseSlot(1);
        EXPECT_EQ(mesh().FaceSlotIndex, (std::vector<std::int32_t>{1, 1, 1}));
        select({2, 0});
        chooseSlot(0);
        EXPECT_EQ(mesh().FaceSlotIndex, (std::vector<std::int32_t>{1, 1, 0}));
        EXPECT_EQ(mesh().CurrentSlot, 0);
        EXPECT_EQ(history.position(), 1);
        mesh().FaceSlotIndex.resize(1);
        chooseSlot(0); // a face without an entry, like the one before
        EXPECT_EQ(mesh().FaceSlotIndex, (std::vector<std::int32_t>{1, 1, 0}));
        EXPECT_EQ(history.position(), 2);
    });
}

TEST_F(TMaterialTest, TheCheckListRemovesAndAppendsSlots) {
    mesh().MaterialSlotList = {0, 1, 0};
    mesh().FaceSlotIndex = {0, 1, 2};
    edit(
        [&] {
            auto& list = control<QListWidget>("CheckListBox1");
            const auto locked = [&] {
                std::string rows;
                for (int row = 0; row < list.count(); ++row) {
                    rows += (list.item(row)->flags() & Qt::ItemIsEnabled) != 0 ? "" : "x";
                    rows += '.';
                }
                return rows;
            };
            EXPECT_EQ(locked(), "...");
            check(0, false); // both of its slots
            EXPECT_EQ(mesh().MaterialSlotList, std::vector<std::int32_t>{1});
            EXPECT_EQ(mesh().FaceSlotIndex, (std::vector<std::int32_t>{0, 0, 0}));
            EXPECT_EQ(mesh().CurrentSlot, 0) << "the material that was edited is edited still";
            EXPECT_EQ(control<QComboBox>("ComboBox1").currentText(), QStringLiteral("Material 2"));
            EXPECT_EQ(control<QComboBox>("ComboBox1").count(), 1);
            EXPECT_EQ(locked(), ".x..");
            EXPECT_EQ(history.position(), 1);
            check(2, true);
            EXPECT_EQ(mesh().MaterialSlotList, (std::vector<std::int32_t>{1, 2}));
            EXPECT_EQ(control<QComboBox>("ComboBox1").itemText(1), QStringLiteral("Material 3"));
            EXPECT_EQ(locked(), "...");
            check(1, false);
            EXPECT_EQ(mesh().MaterialSlotList, std::vector<std::int32_t>{2});
            EXPECT_EQ(locked(), "..x.");
        },
        1);
    EXPECT_TRUE(ended.tree);
    mesh().MaterialSlotList = {2, 2};
    edit([&] {
        EXPECT_EQ(control<QListWidget>("CheckListBox1").item(2)->flags() & Qt::ItemIsEnabled, 0);
    });
    EXPECT_FALSE(ended.tree);
}

TEST_F(TMaterialTest, TheTextureBoxSwitchesTheTexture) {
    edit([&] {
        click("textureCheckBox");
        EXPECT_FALSE(document.Materials[0].HasTexture);
        EXPECT_FALSE(view().isVisible());
        click("textureCheckBox");
        EXPECT_TRUE(view().isVisible());
        EXPECT_EQ(history.position(), 1);
        control<QCheckBox>("textureCheckBox").setChecked(false); // as the state is filled in
        EXPECT_EQ(history.position(), 1);
    });
    EXPECT_TRUE(document.Materials[0].HasTexture);
}

TEST_F(TMaterialTest, TheTableOfMaterialsHasNoFrame) {
    edit(std::nullopt, 2, [&] {
        EXPECT_FALSE(control<QListWidget>("CheckListBox1").isEnabled());
        EXPECT_EQ(control<QComboBox>("ComboBox1").currentText(), QStringLiteral("Material 3"));
        check(0, false);
        chooseSlot(1);
        EXPECT_FALSE(history.canUndo());
        answerColor(QColor(0, 255, 0));
        click("diffuse");
    });
    EXPECT_EQ(document.Materials[1].FaceColor.green, 1.0F);
    EXPECT_EQ(history.position(), 0);
    EXPECT_FALSE(ended.tree);
}

TEST_F(TMaterialTest, WithoutMaterialsOnlyOkIsEnabled) {
    const auto enabled = [&] {
        std::string names;
        for (const QWidget* widget : editor.findChildren<QWidget*>()) {
            const bool used = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible();
            names += used && widget->isEnabled() ? widget->objectName().toStdString() + ' ' : "";
        }
        for (const QAction* action :
             editor.findChildren<QAction*>(QRegularExpression(QStringLiteral("mopen|chng$")))) {
            names += action->isEnabled() ? action->objectName().toStdString() + ' ' : "";
        }
        return names;
    };
    document.Materials.clear();
    edit([&] {
        EXPECT_EQ(enabled(), "Button2 ");
        click("ambient");
        QTest::mouseClick(&view(), Qt::LeftButton);
    });
    edit(std::nullopt, 0, [&] { EXPECT_EQ(enabled(), "Button2 "); });
    // a slot that leads nowhere
    document.Materials.resize(1);
    mesh().MaterialSlotList = {7, 0};
    edit([&] {
        EXPECT_EQ(control<QComboBox>("ComboBox1").itemText(0), QStringLiteral("Material 8"));
        EXPECT_FALSE(control<QWidget>("ambient").isEnabled());
        chooseSlot(1);
        EXPECT_TRUE(control<QWidget>("ambient").isEnabled());
    });
    EXPECT_FALSE(history.canUndo());
}

TEST_F(TMaterialTest, EveryEditGoesDownAndUpTheLadder) {
    std::vector<EditSnapshot> rungs;
    const auto snapshot = [&] {
        // which slot is shown is not part of what is taken back
        const std::int32_t slot = std::exchange(mesh().CurrentSlot, 0);
        rungs.emplace_back(document);
        mesh().CurrentSlot = slot;
    };
    const QString image = write("skin.bmp", "no picture");
    const auto commit = [&] { click("RedrawButton"); };
    const std::function<void()> steps[] = {
        [&] { answerColor(QColor(9, 8, 7)), click("ambient"); },
        [&] { answerColor(QColor(99, 8, 7)), click("diffuse"); },
        [&] { answerColor(QColor(9, 98, 7)), click("specular"); },
        [&] { control<QSlider>("opacitybar").setValue(33), commit(); },
        [&] { control<QLineEdit>("Edit1").setText(QStringLiteral("0.1")), commit(); },
        [&] { click("textureCheckBox"); },
        [&] { click("textureCheckBox"); },
        [&] {
            select({1, 0}), press({100, 100}), move({105, 103}), release({110, 90});
        },
        [&] {
            select({1, 3}), press({0, 0}), release({-90, 400});
        },
        [&] { answerTexture(image, QDialog::Accepted), control<QAction>("mopen").trigger(); },
        [&] { chooseSlot(0); },
        [&] { check(2, true); },
        [&] { check(0, false); },
        [&] { answerColor(QColor(1, 1, 1)), click("ambient"); }};
    document.Materials[0].Power = 1.0F / 3.0F;
    document.Materials[0].FaceColor.alpha = 0.289F;
    snapshot();
    edit([&] {
        for (const auto& step : steps) {
            const std::int32_t position = history.position();
            step();
            EXPECT_EQ(history.position(), position + 1) << rungs.size();
            snapshot();
        }
    });
    EXPECT_EQ(rungs.size(), std::size(steps) + 1);
    mesh().CurrentSlot = 0;
    // the images of textures are loaded anew on the way; compare what the file would hold
    for (EditSnapshot& rung : rungs) {
        for (MaterialRecord& material : rung.materials) {
            material.TextureImage = blankTextureImage();
        }
    }
    document.Materials[0].TextureImage = blankTextureImage();
    EXPECT_EQ(climb(document, history, rungs), "");
}

} // namespace
} // namespace korvane::test
