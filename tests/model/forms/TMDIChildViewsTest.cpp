#include "app/widgets/DevicePixels.h"
#include "render/forms/TImage.h"
#include "support/MainFormTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QMessageBox>
#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>

#include <functional>

namespace korvane::test {
namespace {

/// The 2D views and the "Tools" page of a window whose root, which has a mesh, is selected.
class TMDIChildViews : public MainFormTest {
  protected:
    TMDIChildViews() {
        start({write("m.xsi", smallModel())});
        tree().setCurrentIndex(tree().model()->index(0, 0));
        settle();
        document().PlaneScale = 2;
        window().setDrawingInterface(DrawApi::Software); // whose picture can be looked at
        window().render3d();
    }

    [[nodiscard]] TImage& image(const char* name) const { return child<TImage>(window(), name); }
    [[nodiscard]] QImage picture(const char* name) const { return image(name).picture().copy(); }
    [[nodiscard]] QString status() const { return child<QLabel>(form(), "StatusPanel").text(); }
    void choose(const char* button) const { child<QAbstractButton>(window(), button).click(); }

    void press(const char* name, QPoint at, Qt::MouseButton button = Qt::LeftButton) const {
        QTest::mousePress(&image(name), button, Qt::NoModifier, at);
    }
    void move(const char* name, QPoint at) const { moveHolding(image(name), at); }
    void hover(const char* name) const { moveHolding(image(name), {7, 7}, Qt::NoButton); }
    void release(const char* name, QPoint at, Qt::MouseButton button = Qt::LeftButton) const {
        QTest::mouseRelease(&image(name), button, Qt::NoModifier, at);
    }
};

TEST_F(TMDIChildViews, EachImageDragsInItsPlaneAndRecordsOneStep) {
    choose("moveFrameButton");
    const auto ratio = static_cast<float>(window().devicePixelRatioF());
    const std::tuple<const char*, std::size_t, float, const char*> cases[] = {
        {"Image2", 12, -5, "x -"}, {"Image3", 12, -5, "x -"}, {"Image4", 14, 5, "z "}};
    for (const auto& [name, element, way, axis] : cases) {
        const Matrix4 before = document().Root.Matrix;
        const QImage space = picture("Image1");
        const QImage plane = picture(name);
        press(name, {40, 40});
        EXPECT_TRUE(image(name).hasFocus());
        move(name, {45, 40});
        EXPECT_NE(picture(name), plane);
        EXPECT_NE(picture("Image1"), space) << "the 3D view follows live";
        EXPECT_TRUE(status().contains(QStringLiteral("frame moved ") + QString::fromLatin1(axis)))
            << status().toStdString();
        window().undo(); // refused
        EXPECT_NE(document().Root.Matrix, before);
        release(name, {50, 40});
        Matrix4 expected = before;
        expected[element] += way * ratio;
        EXPECT_EQ(document().Root.Matrix, expected) << name;
        EXPECT_FALSE(status().contains(u"moved"));
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(&image(name), &leave);
        EXPECT_EQ(status(), QStringLiteral("1 mesh, 2 faces"));
        window().undo();
        EXPECT_EQ(document().Root.Matrix, before);
        EXPECT_EQ(picture(name), plane);
        EXPECT_FALSE(window().canUndo()) << "one step";
    }
}

TEST_F(TMDIChildViews, ViewsAreDrawnInTheirSizeWhenTheyShow) {
    const QSize before = picture("Image2").size();
    const float scale = document().PlaneScale;
    window().showNormal();
    window().resize(511, 307);
    settle();
    for (const char* name : {"Image2", "Image3", "Image4"}) {
        EXPECT_EQ(picture(name).size(), sizeInPixels(image(name)));
        EXPECT_EQ(image(name).size(), child<QWidget>(window(), "Panel6").size());
    }
    EXPECT_NE(picture("Image2").size(), before);
    EXPECT_EQ(document().PlaneScale, scale) << "a resize leaves the scale alone";
    const QImage shown = picture("Image4");
    document().Root.Matrix[14] += 3; // behind the views' back
    hover("Image2");
    EXPECT_EQ(picture("Image4"), shown) << "hovering over fresh pictures draws nothing";
    choose("TwoDVisibleBox");
    window().render3d();
    choose("TwoDVisibleBox");
    settle();
    EXPECT_NE(picture("Image4"), shown);
    EXPECT_EQ(picture("Image4").size(), shown.size());
}

TEST_F(TMDIChildViews, ToolsAreChosenByButtonOrAction) {
    const std::tuple<const char*, const char*, ViewTool, Qt::CursorShape> tools[] = {
        {"moveFrameButton", "moveFrame", ViewTool::MoveFrame, Qt::SizeAllCursor},
        {"moveViewButton", "moveView", ViewTool::MoveView, Qt::OpenHandCursor},
        {"rotateFrameButton", "rotateFrame", ViewTool::RotateFrame, Qt::BitmapCursor},
        {"MoveObjCoordsButton", "MoveObjCoords", ViewTool::MoveObjCoords, Qt::CrossCursor},
        {"zoomButton", "zoom", ViewTool::Zoom, Qt::BitmapCursor}};
    for (const bool byAction : {false, true}) {
        for (const auto& [button, action, tool, cursor] : tools) {
            byAction ? child<QAction>(window(), action).trigger() : choose(button);
            EXPECT_EQ(document().Tool, tool);
            EXPECT_TRUE(child<QAction>(window(), action).isChecked());
            EXPECT_TRUE(child<QAbstractButton>(window(), button).isChecked());
            EXPECT_EQ(image("Image3").cursor().shape(), cursor);
        }
    }
}

TEST_F(TMDIChildViews, APressThatActivatesItsWindowOrHoldsCtrlStartsNothing) {
    TMDIChild& model = window();
    run("FileNew1");
    run("WindowTileVertical1");
    const auto clickFor = [&](QWidget& view, Qt::KeyboardModifiers modifiers) {
        // by way of the window system, which is what activates document windows
        const QPoint at = view.mapTo(&form(), QPoint(30, 30));
        QTest::mousePress(form().windowHandle(), Qt::LeftButton, modifiers, at);
        QTest::mouseMove(form().windowHandle(), at + QPoint(9, 9));
        QTest::mouseRelease(form().windowHandle(), Qt::LeftButton, modifiers, at + QPoint(9, 9));
        settle();
    };
    for (const char* name : {"Image3", "ThreeDWin"}) {
        auto& view = child<QWidget>(model, name);
        const auto camera = [&] {
            return std::pair(model.document()->PlaneScale, model.view().angles);
        };
        const auto before = camera();
        form().documents().constLast()->setFocus();
        settle();
        ASSERT_NE(form().activeDocument(), &model);
        clickFor(view, Qt::NoModifier);
        EXPECT_EQ(form().activeDocument(), &model) << name;
        EXPECT_EQ(camera(), before) << name;
        clickFor(view, Qt::ControlModifier);
        EXPECT_EQ(camera(), before) << name;
        clickFor(view, Qt::NoModifier);
        EXPECT_NE(camera(), before) << name;
    }
    answerCloseQuestion(QStringLiteral("Untitled 2"), QMessageBox::No);
    form().documents().constLast()->close();
}

TEST_F(TMDIChildViews, ClicksZoomAllViewsAndASecondClickCountsToo) {
    const QImage xy = picture("Image2");
    const QImage zy = picture("Image4");
    const QPointF at(20, 20);
    const auto click = [&](const char* name, Qt::MouseButton button) {
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonDblClick}) {
            QMouseEvent down(type, at, image(name).mapToGlobal(at), button, button, Qt::NoModifier);
            QApplication::sendEvent(&image(name), &down);
            release(name, at.toPoint(), button);
        }
    };
    click("Image3", Qt::LeftButton);
    EXPECT_EQ(document().PlaneScale, 8.0F);
    EXPECT_NE(picture("Image2"), xy);
    EXPECT_NE(picture("Image4"), zy);
    click("Image4", Qt::RightButton);
    EXPECT_EQ(document().PlaneScale, 2.0F);
    QWheelEvent wheel(at, image("Image2").mapToGlobal(at), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&image("Image2"), &wheel);
    EXPECT_GT(document().PlaneScale, 2.0F);
    EXPECT_FALSE(window().canUndo() || document().Modified);
}

TEST_F(TMDIChildViews, EscapeAndLosingTheMouseCancel) {
    choose("rotateFrameButton");
    const Matrix4 before = document().Root.Matrix;
    const QImage plane = picture("Image2");
    const std::function<void()> ways[] = {
        [&] { QTest::keyClick(&image("Image2"), Qt::Key_Escape); },
        [&] { tree().setFocus(); },
        [&] { choose("TwoDVisibleBox"); },
    };
    for (const auto& cancel : ways) {
        press("Image2", {10, 10});
        move("Image2", {60, 90});
        EXPECT_NE(document().Root.Matrix, before);
        cancel();
        EXPECT_EQ(document().Root.Matrix, before);
        release("Image2", {70, 90});
        EXPECT_EQ(document().Root.Matrix, before);
        EXPECT_FALSE(window().canUndo() || document().Modified);
    }
    choose("TwoDVisibleBox");
    settle();
    EXPECT_EQ(picture("Image2"), plane);
}

TEST_F(TMDIChildViews, VisibilityTogglesShowAtTheNextMouseEvent) {
    auto& frameBox = child<QCheckBox>(window(), "FrameVisibleBox");
    auto& meshBox = child<QCheckBox>(window(), "MeshVisibleBox");
    const auto boxes = [&] {
        return std::string(frameBox.isEnabled() ? "F" : "f") + (frameBox.isChecked() ? "+" : "-") +
               (meshBox.isEnabled() ? "M" : "m") + (meshBox.isChecked() ? "+" : "-");
    };
    const QModelIndex meshNode = node(bodyMesh);
    const auto meshRow = [&] {
        return tree().viewport()->grab(tree().visualRect(meshNode)).toImage();
    };
    const QImage shownRow = meshRow();
    const QImage shown = picture("Image2");
    const QImage space = picture("Image1");
    meshBox.click();
    EXPECT_EQ(boxes(), "F+M-");
    EXPECT_NE(meshRow(), shownRow);
    meshBox.click();
    frameBox.click();
    EXPECT_EQ(boxes(), "F-m-") << "a mesh does not show without its frame";
    settle();
    EXPECT_EQ(picture("Image2"), shown) << "a toggle draws nothing by itself";
    hover("Image3");
    EXPECT_NE(picture("Image2"), shown);
    EXPECT_NE(picture("Image1"), space);
    EXPECT_EQ(document().Root.ViewFlags, (std::array{false, true, false}));

    // children keep their own
    select(bodyNode + "/Frame frm-wing");
    EXPECT_EQ(boxes(), "F+M+");
    select(bodyNode);
    EXPECT_EQ(boxes(), "F-m-");
    frameBox.click();
    EXPECT_EQ(boxes(), "F+M-");
    meshBox.click();
    EXPECT_EQ(boxes(), "F+M+");
    QHoverEvent over(QEvent::HoverMove, QPointF(9, 9), QPointF(9, 9), QPointF(8, 8));
    QApplication::sendEvent(&child<QWidget>(window(), "ThreeDWin"), &over);
    EXPECT_EQ(picture("Image2"), shown);
    EXPECT_EQ(picture("Image1"), space);
    select("Materials");
    EXPECT_FALSE(frameBox.isEnabled() || meshBox.isEnabled());
    EXPECT_FALSE(document().Modified);
}

} // namespace
} // namespace korvane::test
