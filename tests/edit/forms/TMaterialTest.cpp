#include "app/widgets/ColorSwatch.h"
#include "edit/materials/MaterialValues.h"
#include "render/forms/TImage.h"
#include "support/MaterialTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSlider>
#include <QTreeView>

namespace korvane::test {
namespace {

using TMaterialTest = MaterialTest;

TEST_F(TMaterialTest, ShowsTheMaterialOfTheSlotAndChangesNothing) {
    material().FaceColor = {1.0F, 0.5F, 0.0F, 0.289F};
    material().Ambient = {0.1F, 0.2F, 0.3F};
    material().Power = 12.345678F;
    document.Materials[1].Specular = {-1.0F, 2.0F, 0.999F};
    const EditSnapshot before(document);
    edit([&] {
        auto& slots = control<QComboBox>("ComboBox1");
        EXPECT_EQ(slots.count(), 2);
        EXPECT_EQ(slots.currentText(), QStringLiteral("Material 1"));
        EXPECT_EQ(control<ColorSwatch>("diffuse").color(), QColor(255, 127, 0));
        EXPECT_EQ(control<ColorSwatch>("ambient").color(), QColor(25, 51, 76));
        EXPECT_EQ(control<QSlider>("opacitybar").value(), 28);
        EXPECT_EQ(text("opacity") + control<QLineEdit>("Edit1").text(),
                  QStringLiteral("2812.345678"));
        EXPECT_TRUE(control<QCheckBox>("textureCheckBox").isChecked());
        EXPECT_EQ(control<QGroupBox>("texname").title() + text("size"),
                  QStringLiteral("Texture - [ body.tga ]( 300 x 200 )"));
        auto& list = control<QListWidget>("CheckListBox1");
        ASSERT_EQ(list.count(), 3);
        EXPECT_EQ(list.item(2)->text(), QStringLiteral("Material 3"));
        EXPECT_EQ(list.item(1)->checkState(), Qt::Checked);
        EXPECT_EQ(list.item(2)->checkState(), Qt::Unchecked);
        chooseSlot(1);
        EXPECT_EQ(control<ColorSwatch>("specular").color(), QColor(0, 255, 254));
        EXPECT_FALSE(control<QCheckBox>("textureCheckBox").isChecked());
        EXPECT_FALSE(view().isVisible());
        EXPECT_EQ(text("size"), QStringLiteral("( 1 x 1 )"));
        chooseSlot(0);
        EXPECT_TRUE(view().isVisible());
        color("diffuse", std::nullopt); // cancelled
        control<QAction>("emissivechng").trigger();
        control<QCheckBox>("textureCheckBox").setChecked(false); // as the state is filled in
    });
    EXPECT_EQ(EditSnapshot(document), before);
    EXPECT_FALSE(history.canUndo() || document.Modified || ended.tree);
    EXPECT_EQ(edits, 0);
    for (const QWidget* widget : editor.findChildren<QWidget*>()) {
        const QString name = widget->objectName(); // the parts of Qt's own controls have none
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && !name.isEmpty() &&
            !name.startsWith(u"qt_")) {
            EXPECT_FALSE(widget->accessibleName().isEmpty()) << name.toStdString();
        }
    }
}

TEST_F(TMaterialTest, EveryControlGoesDownAndUpTheLadder) {
    std::vector<EditSnapshot> rungs = {snapshot()};
    const auto recorded = [&](int told) {
        EXPECT_EQ(std::exchange(edits, 0), told) << rungs.size();
        EXPECT_EQ(history.entries().size(), rungs.size());
        rungs.push_back(snapshot());
    };
    const QString image = write("skin.bmp", "no picture");
    auto& slots = control<QComboBox>("ComboBox1");
    edit([&] {
        for (const char* swatch :
             {"ambient", "diffuse", "specular", "ambientchng", "diffusechng", "specularchng"}) {
            color(swatch, QColor(77, 0, 200 + static_cast<int>(rungs.size())));
            recorded(1);
        }
        EXPECT_EQ(control<ColorSwatch>("ambient").color(), QColor(77, 0, 204));
        EXPECT_EQ(shownColor(material().Ambient), (Rgba8{77, 0, 204, 255}));
        for (const int position : {50, 33}) {
            control<QSlider>("opacitybar").setValue(position);
        }
        EXPECT_EQ(text("opacity"), QStringLiteral("33"));
        click("RedrawButton"), recorded(2);
        control<QLineEdit>("Edit1").selectAll();
        QTest::keyClicks(&control<QLineEdit>("Edit1"), QStringLiteral("0.15"));
        click("RedrawButton"), recorded(4);
        click("textureCheckBox"), recorded(1);
        EXPECT_FALSE(view().isVisible());
        click("textureCheckBox"), recorded(1);
        EXPECT_TRUE(view().isVisible());
        select({1, 0}), press({100, 100}), move({105, 103}), release({110, 90}), recorded(2);
        select({1, 3}), press({0, 0}), release({-90, 400}), recorded(1);
        texture(image), recorded(1);
        chooseSlot(0), recorded(1);
        check(2, true), recorded(1);
        EXPECT_EQ(slots.itemText(2), QStringLiteral("Material 3"));
        check(0, false), recorded(1);
        EXPECT_EQ(slots.count(), 2);
        EXPECT_EQ(slots.currentText(), QStringLiteral("Material 2"));
        color("ambient", QColor(9, 8, 7)), recorded(1);
    });
    EXPECT_TRUE(ended.tree);
    EXPECT_EQ(climb(document, history, rungs), "");
}

TEST_F(TMaterialTest, WhatIsNoShininessIsToldAndClosingRecordsWhatIsPending) {
    edit([&] {
        answerBox(QStringLiteral("ConversionError"), QStringLiteral("Please type a number >= 0"),
                  QStringLiteral("Conversion Error"), QMessageBox::Ok, QMessageBox::Ok);
        QTest::keyClicks(&control<QLineEdit>("Edit1"), QStringLiteral("x"));
        control<QLineEdit>("Edit1").setText(QStringLiteral("0"));
    });
    EXPECT_EQ(material().Power, 0.0F);
    EXPECT_EQ(history.position(), 0);
    edit([&] {
        control<QSlider>("opacitybar").setValue(3);
        QTest::keyClick(&editor, Qt::Key_Escape);
        EXPECT_EQ(history.position(), 1);
    });
    EXPECT_EQ(history.entries()[1].kind, EditKind::Opacity);
}

TEST_F(TMaterialTest, ControlsAreEnabledByWhatTheyCanEdit) {
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
    auto& list = control<QListWidget>("CheckListBox1");
    const auto locked = [&] {
        std::string rows;
        for (int row = 0; row < list.count(); ++row) {
            rows += (list.item(row)->flags() & Qt::ItemIsEnabled) != 0 ? '.' : 'x';
        }
        return rows;
    };
    edit([&] {
        EXPECT_EQ(locked(), "...");
        check(0, false);
        EXPECT_EQ(locked(), ".x.") << "the last material must stay";
        check(2, true);
        EXPECT_EQ(locked(), "...");
    });
    mesh().MaterialSlotList = {2, 2};
    edit([&] { EXPECT_EQ(locked(), "..x"); });
    auto& slots = control<QComboBox>("ComboBox1");
    edit(std::nullopt, 2, [&] {
        EXPECT_FALSE(list.isEnabled());
        EXPECT_EQ(slots.currentText(), QStringLiteral("Material 3"));
    });
    // a slot that leads nowhere
    mesh().MaterialSlotList = {7, 0};
    edit([&] {
        EXPECT_EQ(slots.itemText(0), QStringLiteral("Material 8"));
        EXPECT_FALSE(control<QWidget>("ambient").isEnabled());
        chooseSlot(1);
        EXPECT_TRUE(control<QWidget>("ambient").isEnabled());
    });
    document.Materials.clear();
    edit([&] {
        EXPECT_EQ(enabled(), "Button2 ");
        click("ambient");
        QTest::mouseClick(&view(), Qt::LeftButton);
    });
    edit(std::nullopt, 0, [&] { EXPECT_EQ(enabled(), "Button2 "); });
}

TEST_F(TMaterialTest, TheTextureViewShowsTheSelectionAndScrolls) {
    edit([&] {
        auto& across = control<QScrollBar>("HorizontalBar");
        auto& down = control<QScrollBar>("VerticalBar");
        auto& corner = control<QWidget>("CornerPanel");
        const QSize size = editor.size();
        EXPECT_TRUE(across.isVisible()); // 300 x 200 in 256 x 256
        EXPECT_FALSE(down.isVisible() || corner.isVisible());
        const auto at = [&](int x, int y) {
            return control<TImage>("Image1").picture().pixelColor(x, y);
        };
        const auto told = [&] { return text("StatusPanel0") + text("StatusPanel1"); };
        EXPECT_EQ(at(90, 20), QColor(0, 255, 255)); // (0.3, 0.9) of 300 x 200
        EXPECT_EQ(at(200, 50), QColor(200, 100, 50));
        select({0, 0});
        EXPECT_EQ(at(90, 20), QColor(255, 0, 255));
        EXPECT_EQ(told(), QStringLiteral("X: (30, 150, 150)Y: (20, 20, 100)"));
        color("Panel1", QColor(1, 2, 3));
        EXPECT_EQ(at(90, 20), QColor(1, 2, 3));
        color("Panel2", QColor(4, 5, 6));
        select({1, 2});
        EXPECT_EQ(at(90, 20), QColor(4, 5, 6));
        EXPECT_EQ(told(), QStringLiteral("X: (30, 150, 30)Y: (20, 100, 100)"));
        control<QTreeView>("TreeView1").clearSelection();
        EXPECT_EQ(told(), QStringLiteral("X:Y:"));

        click("ZoomInButton");
        EXPECT_EQ(text("ZoomLabel"), QStringLiteral("x2"));
        EXPECT_EQ(across.maximum(), 300 - 128);
        EXPECT_EQ(down.maximum(), 200 - 128);
        EXPECT_TRUE(corner.isVisible());
        const QImage before = control<TImage>("Image1").picture().copy();
        across.setValue(100);
        down.setValue(50);
        EXPECT_NE(control<TImage>("Image1").picture(), before);
        click("ZoomOutButton");
        EXPECT_EQ(text("ZoomLabel"), QStringLiteral("x1"));
        EXPECT_EQ(across.value(), 300 - 256);
        EXPECT_EQ(down.value(), 0);
        EXPECT_EQ(editor.size(), size);
        across.setValue(30);
        click("textureCheckBox");
        EXPECT_FALSE(across.isVisible()) << "the texture is off";
        click("textureCheckBox");
        EXPECT_TRUE(across.isVisible());
        EXPECT_EQ(across.value(), 30);
        chooseSlot(1); // 1 x 1
        EXPECT_FALSE(across.isVisible());
        EXPECT_EQ(across.value(), 0);
    });
    EXPECT_EQ(history.position(), 1) << "the texture alone";
}

TEST_F(TMaterialTest, ADragIsFollowedLiveOrLeavesNoTrace) {
    const std::vector<Vec2> before = mesh().TexCoords;
    edit([&] {
        select({0, 0});
        const std::function<void()> ends[] = {[&] { QTest::keyClick(&editor, Qt::Key_Escape); },
                                              [&] { click("ZoomInButton"); },
                                              [&] { control<QSlider>("opacitybar").setValue(77); },
                                              [&] { view().hide(), view().show(); }};
        for (const auto& end : ends) {
            const QImage shown = control<TImage>("Image1").picture().copy();
            press({100, 100});
            move({150, 150});
            EXPECT_NE(mesh().TexCoords, before);
            EXPECT_NE(control<TImage>("Image1").picture(), shown);
            end();
            EXPECT_EQ(mesh().TexCoords, before);
            release({170, 170});
            EXPECT_EQ(mesh().TexCoords, before);
            EXPECT_TRUE(editor.isVisible());
        }
        click("ZoomOutButton");
        EXPECT_EQ(history.position(), 0) << "the opacity alone";
        press({100, 100});
        release({130, 80});
        EXPECT_EQ(text("StatusPanel0"), QStringLiteral("X: (60, 180, 180)"));
        QTest::mousePress(&view(), Qt::RightButton, Qt::NoModifier, {10, 10});
        QTest::mouseRelease(&view(), Qt::RightButton, Qt::NoModifier, {90, 90});
        EXPECT_EQ(history.position(), 1);
        click("ZoomInButton"); // the same way on the screen is half of it
        select({1, 3});
        press({100, 100});
        release({130, 80});
        EXPECT_FLOAT_EQ(mesh().TexCoords[3].u, 0.1F + 15.0F / 300.0F);
        EXPECT_EQ(history.position(), 2);
        press({100, 100});
        move({150, 150});
        editor.close();
    });
    EXPECT_EQ(history.position(), 2);
    history.undo(document);
    history.undo(document);
    EXPECT_EQ(mesh().TexCoords, before);
}

TEST_F(TMaterialTest, ATextureIsLoadedShownAndRecorded) {
    // a top-down picture of 2 x 1 pixels
    std::string tga(18, '\0');
    tga[2] = 2;
    tga[12] = 2;
    tga[14] = 1;
    tga[16] = 24;
    const QString good = write("good.tga", tga + "abcdef");
    const QString other = write("other.pic", "something else");
    edit([&] {
        texture(good);
        EXPECT_EQ(control<QGroupBox>("texname").title(), QStringLiteral("Texture - [ good.tga ]"));
        EXPECT_EQ(text("size"), QStringLiteral("( 2 x 1 )"));
        EXPECT_EQ(material().TextureFile, good.toStdString());
        EXPECT_EQ(material().TextureImage, textureDialog.loadedImage()) << "taken over";
        texture(other, QDialog::Rejected);
        EXPECT_EQ(history.position(), 0);
        texture(other); // cannot be decoded
        EXPECT_EQ(text("size"), QStringLiteral("( 1 x 1 )"));
        EXPECT_EQ(text("TextureMessage"), QStringLiteral("other.pic cannot be shown"));
        EXPECT_TRUE(control<QLabel>("TextureMessage").isVisible());
        chooseSlot(1);
        texture(good);
        EXPECT_EQ(text("TextureMessage"),
                  QStringLiteral("good.tga is chosen but off: it will not be saved"));
        click("textureCheckBox");
        EXPECT_TRUE(control<QLabel>("TextureMessage").isHidden());
    });
    EXPECT_EQ(material().TextureFile, other.toStdString());
    EXPECT_EQ(history.position(), 3);
}

} // namespace
} // namespace korvane::test
