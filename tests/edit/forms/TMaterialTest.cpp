#include "app/widgets/ColorSwatch.h"
#include "edit/materials/MaterialValues.h"
#include "support/MaterialTest.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QScrollBar>
#include <QSlider>
#include <QTreeView>

namespace korvane::test {
namespace {

using TMaterialTest = MaterialTest;

TEST_F(TMaterialTest, ShowsTheMaterialOfTheSlotAndChangesNothing) {
    material().FaceColor = {1.0F, 0.5F, 0.0F, 0.289F};
    material().Ambient = {0.1F, 0.2F, 0.3F};
    material().Specular = {-1.0F, 2.0F, 0.999F};
    material().Power = 12.345678F;
    const EditSnapshot before(document);
    edit([&] {
        EXPECT_EQ(control<ColorSwatch>("diffuse").color(), QColor(255, 127, 0));
        EXPECT_EQ(control<ColorSwatch>("ambient").color(), QColor(25, 51, 76));
        EXPECT_EQ(control<ColorSwatch>("specular").color(), QColor(0, 255, 254));
        EXPECT_EQ(control<QSlider>("opacitybar").value(), 28);
        EXPECT_EQ(text("opacity") + control<QLineEdit>("Edit1").text(),
                  QStringLiteral("2812.345678"));
        EXPECT_EQ(textureTexts(), QStringLiteral("Texture - [ body.tga ]( 300 x 200 )"));
        for (const int slot : {1, 0}) {
            chooseSlot(slot);
            EXPECT_EQ(control<QCheckBox>("textureCheckBox").isChecked(), slot == 0);
            EXPECT_EQ(view().isVisible(), slot == 0);
        }
        color("diffuse", std::nullopt); // cancelled
        control<QAction>("emissivechng").trigger();
    });
    EXPECT_EQ(EditSnapshot(document), before);
    EXPECT_FALSE(history.canUndo() || document.Modified || ended.tree || edits > 0);
}

TEST_F(TMaterialTest, EveryControlEditsItsValue) {
    const auto type = [&](const char* text) {
        control<QLineEdit>("Edit1").setText(QString::fromLatin1(text));
    };
    const std::tuple<std::function<void()>, EditKind, int> steps[] = {
        {[&] { color("ambient", QColor(1, 2, 3)); }, EditKind::Ambient, 1},
        {[&] { color("diffuse", QColor(1, 2, 3)); }, EditKind::FaceColor, 1},
        {[&] { color("specular", QColor(1, 2, 3)); }, EditKind::Specular, 1},
        {[&] { color("ambientchng", QColor(77, 0, 204)); }, EditKind::Ambient, 1},
        {[&] { color("diffusechng", QColor(4, 5, 6)); }, EditKind::FaceColor, 1},
        {[&] { color("specularchng", QColor(4, 5, 6)); }, EditKind::Specular, 1},
        {[&] { control<QSlider>("opacitybar").setValue(33), click("RedrawButton"); },
         EditKind::Opacity, 1},
        {[&] { type("0.15"), click("RedrawButton"); }, EditKind::Power, 1},
        {[&] { click("textureCheckBox"); }, EditKind::TextureOn, 1},
        {[&] { click("textureCheckBox"); }, EditKind::TextureOn, 1},
        {[&] {
             select({1, 0}), press({9, 9}), release({39, 9});
         },
         EditKind::TexCoords, 1},
        {[&] { chooseSlot(0); }, EditKind::FaceSlot, 1}, // also assigned to the face
        {[&] { check(2, true); }, EditKind::AppendSlot, 1},
        {[&] { check(0, false); }, EditKind::RemoveSlot, 1}};
    edit([&] {
        std::size_t entries = 0;
        for (const auto& [step, kind, told] : steps) {
            step();
            EXPECT_EQ(std::exchange(edits, 0), told) << entries;
            ASSERT_EQ(history.entries().size(), ++entries);
            EXPECT_EQ(history.entries().back().kind, kind) << entries;
        }
        EXPECT_EQ(slotText(), QStringLiteral("Material 2"));
    });
    EXPECT_TRUE(ended.tree);
    EXPECT_EQ(shownColor(material().Ambient), (Rgba8{77, 0, 204, 255}));
    EXPECT_FLOAT_EQ(mesh().TexCoords[0].u, 0.1F + 30.0F / 300.0F);
    // text that is not a number is reported, and closing the editor records a pending value
    edit([&] {
        answerBox(QStringLiteral("ConversionError"), QStringLiteral("Please type a number >= 0"),
                  QStringLiteral("Conversion Error"), QMessageBox::Ok, QMessageBox::Ok);
        type("x");
        type("7");
        EXPECT_EQ(history.entries().size(), std::size(steps));
        QTest::keyClick(&editor, Qt::Key_Escape);
        EXPECT_EQ(history.entries().size(), std::size(steps) + 1);
    });
}

TEST_F(TMaterialTest, ControlsAreEnabledIfTheyCanEdit) {
    const auto enabled = [&](const char* name) { return control<QWidget>(name).isEnabled(); };
    edit([&] {
        EXPECT_EQ(usedMaterials(), "xx.");
        check(0, false);
        EXPECT_EQ(usedMaterials(), ".(x).") << "the last material must stay";
        check(2, true);
        EXPECT_EQ(usedMaterials(), ".xx");
    });
    edit(std::nullopt, 2, [&] {
        EXPECT_FALSE(enabled("CheckListBox1"));
        EXPECT_EQ(slotText(), QStringLiteral("Material 3"));
    });
    mesh().MaterialSlotList = {7, 2}; // the first slot has no material
    edit([&] {
        EXPECT_EQ(slotText(), QStringLiteral("Material 8"));
        EXPECT_FALSE(enabled("ambient"));
        chooseSlot(1);
        EXPECT_TRUE(enabled("ambient"));
    });
    document.Materials.clear();
    for (const auto& frame : {std::optional(framePath()), std::optional<FramePath>()}) {
        edit(frame, 0, [&] {
            for (const QWidget* widget : editor.findChildren<QWidget*>()) {
                const bool used = (widget->focusPolicy() & Qt::TabFocus) != 0 &&
                                  widget->isVisible() && widget->isEnabled();
                EXPECT_EQ(used, widget->objectName() == u"Button2")
                    << widget->objectName().toStdString();
            }
            for (const char* action : {"mopen", "ambientchng", "diffusechng", "specularchng"}) {
                EXPECT_FALSE(control<QAction>(action).isEnabled()) << action;
            }
            QTest::mouseClick(&view(), Qt::LeftButton);
        });
    }
}

TEST_F(TMaterialTest, TheTextureViewShowsTheSelectionAndScrolls) {
    edit([&] {
        auto& across = control<QScrollBar>("HorizontalBar");
        auto& down = control<QScrollBar>("VerticalBar");
        const QSize size = editor.size();
        const auto zoomAndBars = [&] {
            return text("ZoomLabel").toStdString() + (across.isVisible() ? " across" : "") +
                   (down.isVisible() ? " down" : "") +
                   (control<QWidget>("CornerPanel").isVisible() ? " corner" : "");
        };
        const auto told = [&] { return text("StatusPanel0") + text("StatusPanel1"); };
        const auto line = [&] { return picture().pixelColor(90, 20); }; // (0.3, 0.9) of 300 x 200
        EXPECT_EQ(picture().pixelColor(200, 50), QColor(200, 100, 50));
        EXPECT_EQ(line(), QColor(0, 255, 255));
        select({0, 0});
        EXPECT_EQ(line(), QColor(255, 0, 255));
        EXPECT_EQ(told(), QStringLiteral("X: (30, 150, 150)Y: (20, 20, 100)"));
        color("Panel1", QColor(1, 2, 3));
        EXPECT_EQ(line(), QColor(1, 2, 3));
        color("Panel2", QColor(4, 5, 6));
        control<QTreeView>("TreeView1").clearSelection();
        EXPECT_EQ(line(), QColor(4, 5, 6));
        EXPECT_EQ(told(), QStringLiteral("X:Y:"));

        EXPECT_EQ(zoomAndBars(), "x1 across"); // the view has 256 x 256 pixels
        click("ZoomInButton");
        EXPECT_EQ(zoomAndBars(), "x2 across down corner");
        EXPECT_EQ(QSize(across.maximum(), down.maximum()), QSize(300 - 128, 200 - 128));
        for (QScrollBar* bar : {&across, &down}) {
            const QImage before = picture();
            bar->setValue(60);
            EXPECT_NE(picture(), before);
        }
        click("ZoomOutButton");
        EXPECT_EQ(QPoint(across.value(), down.value()), QPoint(300 - 256, 0));
        for (const char* bars : {"x1", "x1 across"}) {
            click("textureCheckBox");
            EXPECT_EQ(zoomAndBars(), bars);
        }
        EXPECT_EQ(across.value(), 300 - 256);
        chooseSlot(1); // 1 x 1
        EXPECT_EQ(zoomAndBars(), "x1");
        settle();
        EXPECT_EQ(editor.size(), size);
    });
}

TEST_F(TMaterialTest, ADragShowsLiveAndIsRevertedWhenCancelled) {
    const std::vector<Vec2> before = mesh().TexCoords;
    edit([&] {
        select({0, 0});
        const std::function<void()> ends[] = {
            [&] { QTest::keyClick(&editor, Qt::Key_Escape); }, [&] { click("ZoomInButton"); },
            [&] { control<QSlider>("opacitybar").setValue(77); },
            [&] { view().hide(), view().show(); }, [&] { editor.close(); }};
        for (const auto& end : ends) {
            const QImage shown = picture();
            press({100, 100});
            move({150, 150});
            EXPECT_NE(mesh().TexCoords, before);
            EXPECT_NE(picture(), shown);
            end();
            EXPECT_EQ(mesh().TexCoords, before);
            release({170, 170});
            EXPECT_EQ(mesh().TexCoords, before);
        }
    });
    EXPECT_EQ(history.position(), 0) << "only the opacity";
    EXPECT_EQ(text("opacity"), QStringLiteral("77"));
}

TEST_F(TMaterialTest, ATextureIsLoadedAndShown) {
    QImage picture(2, 1, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const QString good = path("good.bmp");
    ASSERT_TRUE(picture.save(good));
    const QString other = write("other.pic", "something else");
    edit([&] {
        texture(good);
        EXPECT_EQ(textureTexts(), QStringLiteral("Texture - [ good.bmp ]( 2 x 1 )"));
        EXPECT_EQ(material().TextureFile, good.toStdString());
        EXPECT_EQ(material().TextureImage, textureDialog.loadedImage()) << "not loaded again";
        texture(other, QDialog::Rejected);
        EXPECT_EQ(history.position(), 0);
        EXPECT_EQ(edits, 1);
        texture(other);
        EXPECT_EQ(textureTexts(), QStringLiteral("Texture - [ other.pic ]( 1 x 1 )"
                                                 "other.pic cannot be shown"));
    });
}

} // namespace
} // namespace korvane::test
