#pragma once

#include "render/forms/TImage.h"
#include "support/MainFormTest.h"

#include <QAbstractButton>
#include <QWheelEvent>

namespace korvane::test {

/// A test of a window with the small model, whose root is selected.
class ModelWindowTest : public MainFormTest {
  protected:
    ModelWindowTest() { start({write("m.xsi", smallModel())}); }

    /// Draws the 3D view by software, so that its picture can be examined.
    void drawBySoftware() const {
        window().setDrawingInterface(DrawApi::Software);
        settle();
    }
    [[nodiscard]] TImage& image(const char* name) const { return child<TImage>(window(), name); }
    /// Returns what the view shows once painted.
    [[nodiscard]] QImage picture(const char* name) const {
        settle();
        return image(name).picture().copy();
    }

    /// Clicks a button as a user can: fails if it is disabled.
    void click(const char* button) const {
        auto& found = child<QAbstractButton>(window(), button);
        ASSERT_TRUE(found.isEnabled()) << button;
        found.click();
        settle();
    }
    // the left button of the mouse in a view
    void press(const char* view, QPoint at) const {
        QTest::mousePress(&image(view), Qt::LeftButton, Qt::NoModifier, at);
    }
    void move(const char* view, QPoint at) const { moveHolding(image(view), at); }
    void release(const char* view, QPoint at) const {
        QTest::mouseRelease(&image(view), Qt::LeftButton, Qt::NoModifier, at);
    }
    /// Rolls the wheel by one notch.
    static void roll(QWidget& view) {
        QWheelEvent wheel({20, 20}, view.mapToGlobal(QPointF(20, 20)), {}, {0, 120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view, &wheel);
    }
};

} // namespace korvane::test
