#include "app/widgets/DevicePixels.h"
#include "model/document/StructureTreeModel.h"
#include "render/forms/TImage.h"
#include "support/MainFormTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QMessageBox>
#include <QMouseEvent>
#include <QRadioButton>
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
    const std::tuple<const char*, std::size_t, float> cases[] = {
        {"Image2", 12, -5}, {"Image3", 12, -5}, {"Image4", 14, 5}};
    for (const auto& [name, element, way] : cases) {
        const Matrix4 before = document().Root.Matrix;
        const QImage space = picture("Image1");
        const QImage plane = picture(name);
        press(name, {40, 40});
        EXPECT_TRUE(image(name).hasFocus());
        move(name, {45, 40});
        EXPECT_NE(picture(name), plane);
        EXPECT_NE(picture("Image1"), space) << "the 3D view follows live";
        EXPECT_FALSE(window().canUndo());
        window().undo(); // refused
        EXPECT_FALSE(window().canPaste(ClipboardContent::Frame));
        EXPECT_NE(document().Root.Matrix, before);
        release(name, {50, 40});
        Matrix4 expected = before;
        expected[element] += way * ratio;
        EXPECT_EQ(document().Root.Matrix, expected) << name;
        EXPECT_TRUE(document().Modified);
        EXPECT_TRUE(window().canUndo());
        EXPECT_TRUE(window().canPaste(ClipboardContent::Frame));
        window().undo();
        EXPECT_EQ(document().Root.Matrix, before);
        EXPECT_EQ(picture(name), plane);
        EXPECT_FALSE(window().canUndo()) << "one step";
    }
}

TEST_F(TMDIChildViews, ViewsShowTheWholeModelInTheSizeOfTheirControls) {
    TMDIChild& opened = window();
    for (const char* name : {"Image2", "Image3", "Image4"}) {
        EXPECT_EQ(picture(name).size(), sizeInPixels(image(name)));
        EXPECT_EQ(image(name).size(), child<QWidget>(opened, "Panel6").size());
    }
    const QSize before = picture("Image2").size();
    const float scale = document().PlaneScale;
    opened.showNormal();
    opened.resize(511, 307);
    settle();
    EXPECT_EQ(picture("Image2").size(), sizeInPixels(image("Image2")));
    EXPECT_NE(picture("Image2").size(), before);
    EXPECT_EQ(document().PlaneScale, scale) << "a resize leaves the scale alone";
}

TEST_F(TMDIChildViews, ToolsAreChosenByButtonOrAction) {
    const std::tuple<const char*, const char*, ViewTool> tools[] = {
        {"moveFrameButton", "moveFrame", ViewTool::MoveFrame},
        {"moveViewButton", "moveView", ViewTool::MoveView},
        {"rotateFrameButton", "rotateFrame", ViewTool::RotateFrame},
        {"MoveObjCoordsButton", "MoveObjCoords", ViewTool::MoveObjCoords},
        {"zoomButton", "zoom", ViewTool::Zoom}};
    QList<Qt::CursorShape> shapes;
    for (const auto& [button, action, tool] : tools) {
        choose(button);
        EXPECT_EQ(document().Tool, tool);
        EXPECT_TRUE(child<QAction>(window(), action).isChecked());
        shapes.push_back(image("Image3").cursor().shape());
    }
    EXPECT_EQ(shapes,
              (QList<Qt::CursorShape>{Qt::SizeAllCursor, Qt::OpenHandCursor, Qt::BitmapCursor,
                                      Qt::CrossCursor, Qt::BitmapCursor}));
    for (const auto& [button, action, tool] : tools) {
        child<QAction>(window(), action).trigger();
        EXPECT_EQ(document().Tool, tool);
        EXPECT_TRUE(child<QRadioButton>(window(), button).isChecked());
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
        const auto camera = [&model] { return model.view().angles; };
        const auto before = std::pair(model.document()->PlaneScale, camera());
        const auto changed = [&] {
            return std::pair(model.document()->PlaneScale, camera()) != before;
        };
        form().documents().constLast()->setFocus();
        settle();
        ASSERT_NE(form().activeDocument(), &model);
        clickFor(view, Qt::NoModifier);
        EXPECT_EQ(form().activeDocument(), &model) << name;
        EXPECT_FALSE(changed()) << name;
        clickFor(view, Qt::ControlModifier);
        EXPECT_FALSE(changed()) << name;
        clickFor(view, Qt::NoModifier);
        EXPECT_TRUE(changed()) << name;
    }
    answerCloseQuestion(QStringLiteral("Untitled 2"), QMessageBox::No);
    form().documents().constLast()->close();
}

TEST_F(TMDIChildViews, ClicksZoomAllViewsAndASecondClickCountsToo) {
    const QImage xy = picture("Image2");
    const QImage zy = picture("Image4");
    const auto click = [&](const char* name, Qt::MouseButton button, bool second) {
        const QPointF at(20, 20);
        QMouseEvent down(second ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, at,
                         image(name).mapToGlobal(at), button, button, Qt::NoModifier);
        QApplication::sendEvent(&image(name), &down);
        release(name, at.toPoint(), button);
    };
    click("Image3", Qt::LeftButton, false);
    EXPECT_EQ(document().PlaneScale, 4.0F);
    click("Image3", Qt::LeftButton, true);
    EXPECT_EQ(document().PlaneScale, 8.0F);
    EXPECT_NE(picture("Image2"), xy);
    EXPECT_NE(picture("Image4"), zy);
    click("Image4", Qt::RightButton, false);
    click("Image4", Qt::RightButton, true);
    EXPECT_EQ(document().PlaneScale, 2.0F);
    EXPECT_FALSE(window().canUndo());
    EXPECT_FALSE(document().Modified);

    const QPoint at(30, 20);
    QWheelEvent wheel(QPointF(at), QPointF(image("Image2").mapToGlobal(at)), {}, {0, 120},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&image("Image2"), &wheel);
    EXPECT_GT(document().PlaneScale, 2.0F);
}

TEST_F(TMDIChildViews, EscapeAndLosingTheMouseCancel) {
    choose("rotateFrameButton");
    const Matrix4 before = document().Root.Matrix;
    const QImage plane = picture("Image2");
    const std::function<void()> ways[] = {
        [&] { QTest::keyClick(&image("Image2"), Qt::Key_Escape); },
        [&] { tree().setFocus(); },
        [&] { hover("Image2"); }, // no button is held any more
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
    const QModelIndex root = tree().model()->index(0, 0);
    const auto greyed = [&](const QModelIndex& node) {
        return node.data(StructureTreeModel::hiddenRole).toBool();
    };
    EXPECT_EQ(boxes(), "F+M+");
    const QModelIndex meshNode = root.model()->index(0, 0, root);
    const auto meshRow = [&] {
        return tree().viewport()->grab(tree().visualRect(meshNode)).toImage();
    };
    const QImage shownRow = meshRow();
    const QImage shown = picture("Image2");
    const QImage space = picture("Image1");

    meshBox.click();
    EXPECT_EQ(boxes(), "F+M-");
    EXPECT_FALSE(greyed(root));
    EXPECT_TRUE(greyed(meshNode));
    EXPECT_NE(meshRow(), shownRow);
    frameBox.click();
    EXPECT_EQ(boxes(), "F-m-");
    EXPECT_TRUE(greyed(root));
    settle();
    EXPECT_EQ(picture("Image2"), shown) << "a toggle draws nothing by itself";
    hover("Image3");
    EXPECT_NE(picture("Image2"), shown);
    EXPECT_NE(picture("Image1"), space);
    EXPECT_EQ(document().Root.ViewFlags, (std::array{false, true, false}));

    // children keep their own
    tree().setCurrentIndex(root.model()->index(1, 0, root));
    EXPECT_EQ(boxes(), "F+M+");
    tree().setCurrentIndex(root);
    EXPECT_EQ(boxes(), "F-m-");
    frameBox.click();
    EXPECT_EQ(boxes(), "F+M-");
    meshBox.click();
    EXPECT_EQ(boxes(), "F+M+");
    QHoverEvent over(QEvent::HoverMove, QPointF(9, 9), QPointF(9, 9), QPointF(8, 8));
    QApplication::sendEvent(&child<QWidget>(window(), "ThreeDWin"), &over);
    EXPECT_EQ(picture("Image2"), shown);
    EXPECT_EQ(picture("Image1"), space);
    tree().setCurrentIndex(tree().model()->index(1, 0)); // the material table
    EXPECT_FALSE(frameBox.isEnabled() || meshBox.isEnabled());
    EXPECT_FALSE(document().Modified);
}

TEST_F(TMDIChildViews, HoveringOverFreshPicturesDrawsNothing) {
    const QImage shown = picture("Image2");
    document().Root.Matrix[12] += 3; // behind the views' back
    hover("Image2");
    hover("Image4");
    EXPECT_EQ(picture("Image2"), shown);
    window().render3d();
    EXPECT_NE(picture("Image2"), shown);
}

TEST_F(TMDIChildViews, HiddenViewsAreFreshWhenShownAgain) {
    const QImage shown = picture("Image4");
    choose("TwoDVisibleBox");
    document().Root.Matrix[14] += 3;
    window().render3d();
    choose("TwoDVisibleBox");
    settle();
    EXPECT_NE(picture("Image4"), shown);
    EXPECT_EQ(picture("Image4").size(), shown.size());
}

TEST_F(TMDIChildViews, StatusBarTellsWhereThePointerIs) {
    EXPECT_EQ(status(), QStringLiteral("1 mesh, 2 faces"));
    document().PanVector = Vec3();
    const QPoint centre = image("Image4").rect().center();
    hover("Image4");
    EXPECT_TRUE(status().startsWith(u"z -")) << status().toStdString();
    choose("moveFrameButton");
    press("Image4", centre);
    move("Image4", centre + QPoint(10, 0));
    EXPECT_TRUE(status().contains(u"frame moved z ")) << status().toStdString();
    release("Image4", centre);
    EXPECT_FALSE(status().contains(u"moved"));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&image("Image4"), &leave);
    EXPECT_EQ(status(), QStringLiteral("1 mesh, 2 faces"));
}

} // namespace
} // namespace korvane::test
