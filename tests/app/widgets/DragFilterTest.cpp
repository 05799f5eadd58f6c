#include "app/widgets/DragFilter.h"

#include "support/GuiTest.h"

#include <QCoreApplication>
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
    DragFilterTest() { control_.setMouseTracking(true); } // moves without a button are told as well

    DragFilter::Handlers handlers() {
        return {.press = [this](const DragInput& input) { tell('p', input); },
                .move = [this](const DragInput& input) { tell('m', input); },
                .release = [this](const DragInput& input) { tell('r', input); },
                .cancel =
                    [this] {
                        calls_ += 'c';
                        return running_;
                    },
                .wheel = [this](const DragInput& input, float) { tell('w', input); }};
    }
    void tell(char call, const DragInput& input) {
        calls_ += call;
        last_ = input;
    }
    std::string send(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
        QMouseEvent event(type, QPointF(3, 4), control_.mapToGlobal(QPointF(3, 4)), button, held,
                          Qt::NoModifier);
        return send(event);
    }
    std::string send(QEvent& event) {
        calls_.clear();
        QCoreApplication::sendEvent(&control_, &event);
        return calls_;
    }

    QWidget control_;
    std::string calls_;
    DragInput last_;
    bool running_ = false;
};

TEST_F(DragFilterTest, EventsOfAControlBecomeThoseOfADrag) {
    const DragFilter filter(control_, handlers());
    EXPECT_EQ(send(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton), "p");
    EXPECT_EQ(last_.button, DragButton::Left);
    EXPECT_EQ(send(QEvent::MouseButtonDblClick, Qt::RightButton, Qt::RightButton), "p");
    EXPECT_EQ(last_.button, DragButton::Right);
    EXPECT_EQ(send(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton), "m");
    EXPECT_EQ(send(QEvent::MouseMove, Qt::NoButton, Qt::NoButton), "cm") << "released elsewhere";
    EXPECT_EQ(send(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton), "r");
    QWheelEvent wheel(QPointF(1, 1), QPointF(1, 1), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    EXPECT_EQ(send(wheel), "w");
}

TEST_F(DragFilterTest, ADragThatMayGetNoReleaseIsCancelled) {
    const DragFilter filter(control_, handlers());
    QFocusEvent focus(QEvent::FocusOut);
    QHideEvent hide;
    QEvent deactivate(QEvent::WindowDeactivate);
    for (QEvent* event : {static_cast<QEvent*>(&focus), static_cast<QEvent*>(&hide), &deactivate}) {
        EXPECT_EQ(send(*event), "c") << event->type();
    }
    for (const bool running : {false, true}) {
        running_ = running;
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        escape.ignore();
        EXPECT_EQ(send(escape), "c");
        QKeyEvent other(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
        EXPECT_EQ(send(other), "");
    }
}

} // namespace
} // namespace korvane::test
