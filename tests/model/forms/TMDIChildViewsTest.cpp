#include "support/ModelWindowTest.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QMenu>

#include <utility>
#include <vector>

namespace korvane::test {
namespace {

/// The 2D views and the "Tools" page.
class TMDIChildViews : public ModelWindowTest {
  protected:
    TMDIChildViews() {
        document().PlaneScale = 2;
        drawBySoftware();
        window().render3d();
    }
    [[nodiscard]] std::vector<QImage> planes() const {
        return {picture("Image2"), picture("Image3"), picture("Image4")};
    }
};

TEST_F(TMDIChildViews, EachImageDragsInItsPlaneAndRecordsOneStep) {
    click("moveFrameButton");
    const std::vector<QImage> shown = planes();
    const auto way = static_cast<float>(5 * window().devicePixelRatioF());
    const std::tuple<const char*, std::size_t, float> cases[] = {
        {"Image2", 12, -way}, {"Image3", 12, -way}, {"Image4", 14, way}};
    for (const auto& [name, element, moved] : cases) {
        const Matrix4 before = document().Root.Matrix;
        const QImage space = picture("Image1");
        const QImage plane = picture(name);
        press(name, {40, 40});
        EXPECT_TRUE(image(name).hasFocus());
        move(name, {45, 40});
        EXPECT_NE(picture(name), plane);
        EXPECT_NE(picture("Image1"), space) << "the 3D view follows live";
        release(name, {50, 40});
        Matrix4 expected = before;
        expected[element] += moved;
        EXPECT_EQ(document().Root.Matrix, expected) << name;
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(&image(name), &leave);
        EXPECT_EQ(window().statusText(), QStringLiteral("1 mesh, 2 faces"));
        window().undo();
        EXPECT_EQ(document().Root.Matrix, before);
        EXPECT_EQ(picture(name), plane);
        EXPECT_FALSE(window().canUndo()) << "one step";
        roll(image(name));
        EXPECT_NE(std::exchange(document().PlaneScale, 2.0F), 2.0F) << name;
        const std::vector<QImage> zoomed = planes();
        EXPECT_TRUE(zoomed[0] != shown[0] && zoomed[1] != shown[1] && zoomed[2] != shown[2]);
        window().render3d();
    }
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
            byAction ? child<QAction>(window(), action).trigger() : click(button);
            EXPECT_EQ(document().Tool, tool);
            EXPECT_TRUE(child<QAction>(window(), action).isChecked());
            EXPECT_TRUE(child<QAbstractButton>(window(), button).isChecked());
            EXPECT_EQ(image("Image3").cursor().shape(), cursor);
        }
    }
}

TEST_F(TMDIChildViews, PressesThatActivateTheWindowOrHoldCtrlStartNothing) {
    TMDIChild& model = window();
    run("FileNew1");
    run("WindowTileVertical1");
    const std::pair<Qt::KeyboardModifiers, bool> presses[] = {
        {Qt::NoModifier, false}, {Qt::ControlModifier, false}, {Qt::NoModifier, true}};
    for (const char* name : {"Image3", "ThreeDWin"}) {
        form().documents().constLast()->setFocus();
        settle();
        ASSERT_NE(form().activeDocument(), &model);
        for (const auto& [modifiers, starts] : presses) {
            const float scale = model.document()->PlaneScale;
            const CameraAngles angles = model.view().angles;
            // via the window system, because that activates document windows
            const QPoint at = child<QWidget>(model, name).mapTo(&form(), QPoint(30, 30));
            const QPoint end = at + QPoint(9, 9);
            QTest::mousePress(form().windowHandle(), Qt::LeftButton, modifiers, at);
            QTest::mouseMove(form().windowHandle(), end);
            QTest::mouseRelease(form().windowHandle(), Qt::LeftButton, modifiers, end);
            settle();
            EXPECT_EQ(model.document()->PlaneScale != scale || model.view().angles != angles,
                      starts)
                << name;
        }
    }
}

TEST_F(TMDIChildViews, KeysWorkInEachViewAndARunEndsWithTheFocus) {
    for (const char* name : {"Image2", "Image3", "Image4", "ThreeDWin"}) {
        auto& view = child<QWidget>(window(), name);
        tree().setFocus();
        const QImage without = view.grab().toImage();
        view.setFocus();
        EXPECT_NE(view.grab().toImage(), without) << "the focus mark";
        QTest::keyClick(&view, Qt::Key_2);
        EXPECT_EQ(document().Tool, ViewTool::MoveFrame);
        const Matrix4 before = document().Root.Matrix;
        const CameraAngles angles = window().view().angles;
        QTest::keyClick(&view, Qt::Key_Right);
        QTest::keyClick(&view, Qt::Key_Right);
        const bool space = view.objectName() == QStringLiteral("ThreeDWin");
        EXPECT_EQ(window().view().angles == angles, !space);
        EXPECT_EQ(document().Root.Matrix == before, space) << name;
        tree().setFocus();
        view.setFocus();
        QTest::keyClick(&view, Qt::Key_Up);
        for (int steps = space ? 0 : 2; steps > 0; --steps) {
            EXPECT_TRUE(window().canUndo());
            window().undo();
        }
        EXPECT_FALSE(window().canUndo());
        const std::pair<Qt::Key, Qt::KeyboardModifiers> menuKeys[] = {
            {Qt::Key_Menu, Qt::NoModifier}, {Qt::Key_F10, Qt::ShiftModifier}};
        for (const auto& [key, held] : menuKeys) {
            document().PlaneScale = document().CameraDistance = 3;
            QTest::keyClick(&view, key, held);
            QWidget* menu = QApplication::activePopupWidget();
            ASSERT_NE(menu, nullptr) << name;
            QTest::keyClick(menu, Qt::Key_Return); // "Show Whole Model"
            EXPECT_EQ(document().CameraDistance != 3, space);
            EXPECT_EQ(document().PlaneScale != 3, !space);
        }
    }
    QTest::keyClick(&tree(), Qt::Key_4);
    EXPECT_EQ(document().Tool, ViewTool::RotateFrame);
}

TEST_F(TMDIChildViews, CtrlClicksSelectFramesAndPicturesAreCopied) {
    for (const char* name : {"Image2", "Image1"}) {
        select("Materials");
        const QSize size = image(name).size();
        QTest::mouseClick(&image(name), Qt::LeftButton, Qt::ControlModifier,
                          {size.width() / 2, size.height() / 2});
        EXPECT_EQ(tree().currentIndex().data().toString(), QStringLiteral("Frame frm-body"));
        const QString menu = QString::fromLatin1(name) + QStringLiteral("Menu");
        auto& commands = child<QMenu>(window(), menu.toLatin1().constData());
        commands.actions().at(commands.actions().size() - 2)->trigger();
        EXPECT_EQ(QGuiApplication::clipboard()->image(), picture(name));
        answerFileDialog(QStringLiteral("SavePictureDialog"), path(name) + QStringLiteral(".png"));
        commands.actions().constLast()->trigger();
        EXPECT_EQ(QImage(path(name) + QStringLiteral(".png")).convertToFormat(QImage::Format_RGB32),
                  picture(name));
    }
}

TEST_F(TMDIChildViews, HidingOrLosingTheFocusCancelsADrag) {
    click("rotateFrameButton");
    const Matrix4 before = document().Root.Matrix;
    const std::vector<QImage> shown = planes();
    QWidget active; // the frame is inactive: views get no event when they lose the focus
    active.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&active));
    for (const char* const ender : {"RenameButton", "TwoDVisibleBox"}) {
        press("Image2", {10, 10});
        move("Image2", {60, 90});
        EXPECT_NE(document().Root.Matrix, before);
        click(ender);
        EXPECT_EQ(document().Root.Matrix, before) << ender;
        release("Image2", {70, 90});
    }
    EXPECT_FALSE(window().canUndo() || document().Modified);
    document().Root.Matrix[12] += 3;
    window().render3d(); // hidden views are only drawn when shown
    EXPECT_EQ(planes(), shown);
    click("TwoDVisibleBox");
    EXPECT_NE(planes(), shown);
}

TEST_F(TMDIChildViews, VisibilityTogglesTakeEffectAtTheNextMouseEvent) {
    const auto boxes = [&] {
        std::string found;
        for (const char* name : {"FrameVisibleBox", "MeshVisibleBox"}) {
            const auto& box = child<QCheckBox>(window(), name);
            found += std::string(box.isEnabled() ? "" : "-") + (box.isChecked() ? "on " : "off ");
        }
        return found;
    };
    const auto row = [&] {
        return tree().viewport()->grab(tree().visualRect(node(bodyMesh))).toImage();
    };
    const QImage black = row();
    const QImage space = picture("Image1");
    const std::vector<QImage> shown = planes();
    click("MeshVisibleBox");
    EXPECT_EQ(boxes(), "on off ");
    click("FrameVisibleBox");
    EXPECT_EQ(boxes(), "off -off ");
    EXPECT_NE(row(), black) << "hidden rows are grey";
    EXPECT_TRUE(picture("Image1") == space && planes() == shown) << "a toggle redraws nothing";
    moveHolding(image("Image3"), {7, 7}, Qt::NoButton);
    EXPECT_TRUE(picture("Image1") != space && planes() != shown);
    const auto& reason = child<QLabel>(window(), "ReasonLabel");
    EXPECT_EQ(reason.text(), QStringLiteral("Every mesh is hidden."));
    EXPECT_TRUE(reason.isVisible() && reason.width() >= reason.sizeHint().width());
    QWidget& spaceView = child<QWidget>(window(), "ThreeDWin");
    EXPECT_EQ(spaceView.childAt(reason.geometry().center()), &image("Image1")) << "clicks pass";
    const QImage seen = spaceView.grab(reason.geometry()).toImage();
    EXPECT_GT(countOtherThan(seen.convertToFormat(QImage::Format_RGB32), 0xff000000U), 20U);
    select(bodyNode + "/Frame frm-wing");
    EXPECT_EQ(boxes(), "on on ") << "children keep their own setting";
    select("Materials");
    EXPECT_EQ(boxes(), "-on -on ");
    select(bodyNode);
    click("FrameVisibleBox");
    click("MeshVisibleBox");
    QHoverEvent over(QEvent::HoverMove, QPointF(9, 9), QPointF(9, 9), QPointF(8, 8));
    QApplication::sendEvent(&spaceView, &over);
    EXPECT_TRUE(picture("Image1") == space && planes() == shown && reason.isHidden());
    select(bodyNode + "/Frame frm-wing");
    EXPECT_NE(picture("Image1"), space) << "the box of the root is gone";
    EXPECT_FALSE(document().Modified);
}

} // namespace
} // namespace korvane::test
