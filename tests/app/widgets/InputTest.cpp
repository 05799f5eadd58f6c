#include "app/widgets/DragFilter.h"
#include "app/widgets/MenuLetters.h"

#include <QMenu>
#include <QMouseEvent>
#include <QTest>

#include <utility>

namespace korvane::test {
namespace {

TEST(DragFilter, ConvertsEventsToDragInput) {
    QWidget control;
    std::string calls;
    float turned = 0;
    const auto teller = [&](const char* call) {
        return [&, call](const DragInput& input, float notches = 0) {
            const bool left = input.button == DragButton::Left;
            calls += call + std::string(left ? " left" : "") +
                     (input.button == DragButton::Right ? " right" : "");
            turned = notches;
        };
    };
    const auto cancel = [&] {
        calls += "cancel ";
        return true;
    };
    const DragFilter filter(
        control, {teller("press"), teller("move"), teller("release"), cancel, teller("wheel")});
    const auto send = [&](QEvent&& event) {
        QCoreApplication::sendEvent(&control, &event);
        return std::exchange(calls, {});
    };
    const auto mouse = [&](QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
        return send(QMouseEvent(type, {3, 4}, {3, 4}, button, held, {}));
    };
    control.setMouseTracking(true); // also delivers moves without a button
    EXPECT_EQ(mouse(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton), "press left");
    EXPECT_EQ(mouse(QEvent::MouseButtonDblClick, Qt::RightButton, Qt::RightButton), "press right");
    EXPECT_EQ(mouse(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton), "move");
    EXPECT_EQ(mouse(QEvent::MouseMove, Qt::NoButton, Qt::NoButton), "cancel move");
    EXPECT_EQ(mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton), "release left");
    EXPECT_EQ(send(QWheelEvent({}, {}, {}, {0, 240}, {}, {}, Qt::NoScrollPhase, false)), "wheel");
    EXPECT_EQ(turned, 2.0F);
    // a drag is cancelled if its release may never arrive
    EXPECT_EQ(send(QFocusEvent(QEvent::FocusOut)), "cancel ");
    EXPECT_EQ(send(QHideEvent()), "cancel ");
    EXPECT_EQ(send(QEvent(QEvent::WindowDeactivate)), "cancel ");
    EXPECT_EQ(send(QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, {})), "cancel ");
    EXPECT_EQ(send(QKeyEvent(QEvent::KeyPress, Qt::Key_A, {})), "");
}

/// Returns what keys do in an open menu; items that end with "!" are disabled.
std::string typed(const char* items, const char* keys) {
    QWidget window;
    QMenu menu(&window);
    std::string done;
    for (const QString& text : QString::fromLatin1(items).split(u'|')) {
        const auto tell = [&done, text] { done += "done: " + text.toStdString(); };
        QAction* item = menu.addAction(text, &menu, tell);
        item->setDisabled(text.endsWith(u'!'));
        item->setSeparator(text.isEmpty());
    }
    actOnFirstLetters(window);
    menu.popup({10, 10});
    QTest::keyClicks(&menu, QString::fromLatin1(keys));
    EXPECT_EQ(menu.isVisible(), done.empty());
    const bool chosen = menu.isVisible() && menu.activeAction() != nullptr;
    return chosen ? menu.activeAction()->text().toStdString() : done;
}

TEST(MenuLetters, SelectItemsByTheirFirstLetter) {
    const char* file = "&New|&Open File|Save|Save As|&Close!||E&xit";
    const char* fresh = "&New|&Open File|Save!|Save As|&Close!||E&xit";
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {file, "ss", "Save As"},
        {file, "ssS", "Save"},
        {fresh, "s", "done: Save As"},
        {file, "e", "done: E&xit"},
        {"Cut!|Copy|Undo!", "c", "done: Copy"},
        {"Cut!|Copy|Undo!", "u", ""},
        {"Save As|&Save", "s", "done: &Save"}, // mnemonics take precedence
        {"10 other.xsi|&1 small.xsi", "1", "done: &1 small.xsi"}};
    for (const auto& [items, keys, expected] : rows) {
        EXPECT_EQ(typed(items, keys), expected) << items << ' ' << keys;
    }
}

} // namespace
} // namespace korvane::test
