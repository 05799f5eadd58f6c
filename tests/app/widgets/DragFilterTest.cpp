#include "app/widgets/DragFilter.h"

#include "support/GuiTest.h"

#include <QFocusEvent>
#include <QHideEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace korvane::test {
namespace {

/// Tells the calls of a filter's handlers by letters.
class DragFilterTest : public GuiTest {
  protected:
    auto teller(char call) {
        return [this, call](const DragInput& input, float notches = 0) {
            calls_ += call;
            button_ = input.button;
            notches_ = notches;
        };
    }
    std::string mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
        QMouseEvent event(type, {3, 4}, control_.mapToGlobal(QPointF(3, 4)), button, held, {});
        return send(event);
    }
    std::string send(QEvent& event) {
        calls_.clear();
        QCoreApplication::sendEvent(&control_, &event);
        return calls_;
    }

    QWidget control_;
    std::string calls_;
    DragButton button_ = DragButton::Other;
    float notches_ = 0;
};

TEST_F(DragFilterTest, EventsOfAControlBecomeThoseOfADrag) {
    const DragFilter filter(control_, {.press = teller('p'),
                                       .move = teller('m'),
                                       .release = teller('r'),
                                       .cancel =
                                           [this] {
                                               calls_ += 'c';
                                               return true;
                                           },
                                       .wheel = teller('w')});
    control_.setMouseTracking(true); // moves without a button are told as well
    EXPECT_EQ(mouse(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton), "p");
    EXPECT_EQ(button_, DragButton::Left);
    EXPECT_EQ(mouse(QEvent::MouseButtonDblClick, Qt::RightButton, Qt::RightButton), "p");
    EXPECT_EQ(button_, DragButton::Right);
    EXPECT_EQ(mouse(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton), "m");
    EXPECT_EQ(mouse(QEvent::MouseMove, Qt::NoButton, Qt::NoButton), "cm") << "released elsewhere";
    EXPECT_EQ(mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton), "r");
    QWheelEvent wheel({1, 1}, {1, 1}, {}, {0, 240}, {}, {}, Qt::NoScrollPhase, false);
    EXPECT_EQ(send(wheel), "w");
    EXPECT_EQ(notches_, 2.0F);
    // a drag that may get no release is cancelled
    QFocusEvent focus(QEvent::FocusOut);
    QHideEvent hide;
    QEvent deactivate(QEvent::WindowDeactivate);
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    for (QEvent* event : {static_cast<QEvent*>(&focus), static_cast<QEvent*>(&hide), &deactivate,
                          static_cast<QEvent*>(&escape)}) {
        EXPECT_EQ(send(*event), "c") << event->type();
    }
    QKeyEvent other(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
    EXPECT_EQ(send(other), "");
}

} // namespace
} // namespace korvane::test
