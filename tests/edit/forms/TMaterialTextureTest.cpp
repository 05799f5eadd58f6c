#include "edit/materials/TexCoordView.h"
#include "render/forms/TImage.h"
#include "support/MaterialTest.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QLabel>
#include <QScrollBar>
#include <QSlider>

namespace korvane::test {
namespace {

using TMaterialTextureTest = MaterialTest;

TEST_F(TMaterialTextureTest, ScrollBarsComeAndGoWithTheZoom) {
    edit([&] {
        auto& across = control<QScrollBar>("HorizontalBar");
        auto& down = control<QScrollBar>("VerticalBar");
        auto& corner = control<QWidget>("CornerPanel");
        const QSize size = editor.size();
        EXPECT_TRUE(across.isVisible()); // 300 x 200 in 256 x 256
        EXPECT_FALSE(down.isVisible() || corner.isVisible());
        click("ZoomInButton");
        EXPECT_EQ(control<QLabel>("ZoomLabel").text(), QStringLiteral("x2"));
        EXPECT_EQ(across.maximum(), 300 - 128);
        EXPECT_EQ(down.maximum(), 200 - 128);
        EXPECT_TRUE(corner.isVisible());
        const QImage before = control<TImage>("Image1").picture().copy();
        across.setValue(100);
        down.setValue(50);
        EXPECT_NE(control<TImage>("Image1").picture(), before);
        click("ZoomOutButton");
        EXPECT_EQ(control<QLabel>("ZoomLabel").text(), QStringLiteral("x1"));
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
        history.undo(document);
        history.undo(document);
    });
    EXPECT_FALSE(history.canUndo());
}

TEST_F(TMaterialTextureTest, TheSelectionIsHighlightedAndTold) {
    edit([&] {
        const auto picture = [&] { return control<TImage>("Image1").picture(); };
        const auto at = [&](int x, int y) { return picture().pixelColor(x, y); };
        EXPECT_EQ(at(90, 20), QColor(0, 255, 255)); // (0.3, 0.9) of 300 x 200
        EXPECT_EQ(at(200, 50), QColor(200, 100, 50));
        select({0, 0});
        EXPECT_EQ(at(90, 20), QColor(255, 0, 255));
        EXPECT_EQ(control<QLabel>("StatusPanel0").text(), QStringLiteral("X: (30, 150, 150)"));
        EXPECT_EQ(control<QLabel>("StatusPanel1").text(), QStringLiteral("Y: (20, 20, 100)"));
        answerColor(QColor(1, 2, 3));
        click("Panel1");
        EXPECT_EQ(at(90, 20), QColor(1, 2, 3));
        answerColor(QColor(4, 5, 6));
        click("Panel2");
        select({1, 2});
        EXPECT_EQ(at(90, 20), QColor(4, 5, 6));
        EXPECT_EQ(control<QLabel>("StatusPanel0").text(), QStringLiteral("X: (30, 150, 30)"));
        select({2, 0}); // without texture coordinates
        EXPECT_EQ(control<QLabel>("StatusPanel0").text(), QStringLiteral("X: ()"));
        control<QTreeView>("TreeView1").clearSelection();
        EXPECT_EQ(control<QLabel>("StatusPanel0").text(), QStringLiteral("X:"));
        EXPECT_EQ(control<QLabel>("StatusPanel1").text(), QStringLiteral("Y:"));
    });
    EXPECT_FALSE(history.canUndo());
}

TEST_F(TMaterialTextureTest, OneDragIsOneEntry) {
    const std::vector<Vec2> before = mesh().TexCoords;
    edit([&] {
        press({10, 10}); // nothing is selected
        move({20, 20});
        release({20, 20});
        EXPECT_EQ(edits, 0);
        select({0, 0});
        press({100, 100});
        for (int step = 1; step < 30; ++step) {
            move({100 + step, 100 + step});
        }
        EXPECT_EQ(edits, 29) << "live";
        EXPECT_FALSE(history.canUndo());
        release({130, 80});
        ASSERT_EQ(history.position(), 0);
        EXPECT_FLOAT_EQ(mesh().TexCoords[0].u, 0.1F + 30.0F / 300.0F);
        EXPECT_FLOAT_EQ(mesh().TexCoords[2].v, 0.5F + 20.0F / 200.0F);
        EXPECT_EQ(control<QLabel>("StatusPanel0").text(), QStringLiteral("X: (60, 180, 180)"));
        move({0, 0});
        QTest::mousePress(&view(), Qt::RightButton, Qt::NoModifier, {10, 10});
        QTest::mouseRelease(&view(), Qt::RightButton, Qt::NoModifier, {90, 90});
        EXPECT_EQ(history.position(), 0);
        click("ZoomInButton"); // the same way on the screen is half of it
        select({1, 3});
        press({100, 100});
        release({130, 80});
    });
    ASSERT_EQ(history.position(), 1);
    EXPECT_FLOAT_EQ(mesh().TexCoords[3].u, 0.1F + 15.0F / 300.0F);
    history.undo(document);
    history.undo(document);
    EXPECT_EQ(mesh().TexCoords, before);
}

TEST_F(TMaterialTextureTest, ADragThatIsNotFinishedLeavesNoTrace) {
    const std::vector<Vec2> before = mesh().TexCoords;
    edit([&] {
        select({0, 0});
        const std::function<void()> ends[] = {[&] { QTest::keyClick(&editor, Qt::Key_Escape); },
                                              [&] { click("ZoomInButton"); },
                                              [&] { control<QSlider>("opacitybar").setValue(77); },
                                              [&] { view().hide(), view().show(); },
                                              [&] {
                                                  QEvent away(QEvent::WindowDeactivate);
                                                  QApplication::sendEvent(&editor, &away);
                                              }};
        for (const auto& end : ends) {
            press({100, 100});
            move({150, 150});
            EXPECT_NE(mesh().TexCoords, before);
            end();
            EXPECT_EQ(mesh().TexCoords, before);
            release({170, 170});
            EXPECT_EQ(mesh().TexCoords, before);
            EXPECT_TRUE(editor.isVisible());
        }
        click("RedrawButton");
        EXPECT_EQ(history.position(), 0) << "the opacity alone";
        press({100, 100});
        move({150, 150});
        editor.close();
    });
    EXPECT_EQ(mesh().TexCoords, before);
    EXPECT_EQ(history.position(), 0);
}

TEST_F(TMaterialTextureTest, ATextureIsLoadedShownAndRecorded) {
    // a top-down picture of 2 x 1 pixels
    std::string tga(18, '\0');
    tga[2] = 2;
    tga[12] = 2;
    tga[14] = 1;
    tga[16] = 24;
    const QString good = write("good.tga", tga + "abcdef");
    const QString other = write("other.pic", "something else");
    edit([&] {
        answerTexture(good, QDialog::Accepted);
        control<QAction>("mopen").trigger();
        EXPECT_EQ(control<QGroupBox>("texname").title(), QStringLiteral("Texture - [ good.tga ]"));
        EXPECT_EQ(control<QLabel>("size").text(), QStringLiteral("( 2 x 1 )"));
        EXPECT_EQ(document.Materials[0].TextureFile, good.toStdString());
        EXPECT_EQ(document.Materials[0].TextureImage, textureDialog.loadedImage()) << "taken over";
        answerTexture(other, QDialog::Rejected);
        control<QAction>("mopen").trigger();
        EXPECT_EQ(history.position(), 0);
        answerTexture(other, QDialog::Accepted); // cannot be decoded
        control<QAction>("mopen").trigger();
        EXPECT_EQ(control<QLabel>("size").text(), QStringLiteral("( 1 x 1 )"));
        auto& message = control<QLabel>("TextureMessage");
        EXPECT_EQ(message.text(), QStringLiteral("other.pic cannot be shown"));
        EXPECT_TRUE(message.isVisible());
        chooseSlot(1);
        answerTexture(good, QDialog::Accepted);
        control<QAction>("mopen").trigger();
        EXPECT_EQ(message.text(),
                  QStringLiteral("good.tga is chosen but off: it will not be saved"));
        click("textureCheckBox");
        EXPECT_TRUE(message.isHidden());
        history.undo(document);
        history.undo(document);
    });
    EXPECT_EQ(document.Materials[0].TextureFile, other.toStdString());
    EXPECT_EQ(history.position(), 1);
    EXPECT_EQ(edits, 4);
    history.undo(document);
    history.undo(document);
    EXPECT_EQ(document.Materials[0].TextureFile, "skins\\body.tga");
}

TEST_F(TMaterialTextureTest, ALargeMeshIsNoWait) {
    constexpr std::uint32_t faces = 100'000;
    constexpr std::uint32_t corners = 50'000;
    MeshRecord large = mesh();
    large.Faces = large.TexCoordFaces = PolygonList();
    large.TexCoords.clear();
    for (std::uint32_t i = 0; i < corners; ++i) {
        large.TexCoords.push_back({static_cast<float>(i % 223) / 223.0F,
                                   static_cast<float>(i) / static_cast<float>(corners)});
    }
    large.Vertices.resize(corners);
    for (std::uint32_t i = 0; i < faces; ++i) {
        const std::uint32_t at = i / 2 % (corners - 224);
        const std::vector<std::uint32_t> face = {at, at + 1, at + 223 + i % 2};
        large.Faces.push_back(face);
        large.TexCoordFaces.push_back(face);
    }
    large.FaceSlotIndex.assign(faces, 0);
    mesh() = large;
    // what drawing the faces takes, on this machine and as busy as it is
    TexCoordView plain;
    plain.setViewSize(256, 256);
    plain.setTextureSize(300, 200);
    Bitmap bitmap;
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 3; ++i) {
        plain.draw(bitmap, *document.Materials[0].TextureImage, large, std::nullopt, {});
    }
    const qint64 drawing = clock.restart();
    edit([&] {
        auto& tree = control<QTreeView>("TreeView1");
        tree.expand(tree.model()->index(99'999, 0));
        select({99'999, 2});
        press({100, 100});
        move({110, 100});
        release({120, 100});
        EXPECT_EQ(history.position(), 0);
    });
    EXPECT_LT(clock.elapsed(), 5 * drawing + 500) << "an item for each face took far more";
}

} // namespace
} // namespace korvane::test
