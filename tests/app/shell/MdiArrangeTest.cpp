#include "app/shell/MdiArrange.h"

#include "support/MainFormTest.h"

#include <QMdiArea>

namespace korvane::test {
namespace {

TEST(MdiArrange, TilesFillTheAreaWithoutGaps) {
    const QSize area(601, 401);
    const std::tuple<int, Qt::Orientation, QList<QRect>> cases[] = {
        {0, Qt::Horizontal, {}},
        {1, Qt::Vertical, {{0, 0, 601, 401}}},
        {2, Qt::Horizontal, {{0, 0, 601, 200}, {0, 200, 601, 201}}},
        {2, Qt::Vertical, {{0, 0, 300, 401}, {300, 0, 301, 401}}},
        {3, Qt::Vertical, {{0, 0, 200, 401}, {200, 0, 200, 401}, {400, 0, 201, 401}}},
        {5,
         Qt::Horizontal,
         {{0, 0, 300, 200},
          {0, 200, 300, 201},
          {300, 0, 301, 133},
          {300, 133, 301, 134},
          {300, 267, 301, 134}}}};
    for (const auto& [count, orientation, expected] : cases) {
        EXPECT_EQ(tileRects(area, count, orientation), expected) << count;
    }
}

class WindowCommandsTest : public MainFormTest {
  protected:
    [[nodiscard]] QList<QRect> places() const {
        QList<QRect> places;
        for (const TMDIChild* window : form().documents()) {
            places += window->geometry();
        }
        return places;
    }
};

TEST_F(WindowCommandsTest, NarrowTitleBarsShowTheEndOfThePath) {
    start();
    run("FileNew1");
    window().showMinimized();
    const auto titled = [this](const QString& title) {
        window().setWindowTitle(title);
        settle();
        return window().grab().toImage();
    };
    const QString folder = QStringLiteral("/a folder with a long name/and another one in it/");
    const QImage shown = titled(folder + QStringLiteral("a[*][*].xsi"));
    EXPECT_EQ(titled(QStringLiteral("/elsewhere") + folder + QStringLiteral("a[*][*].xsi")), shown);
    EXPECT_NE(titled(folder + QStringLiteral("a[*][*].xso")), shown) << "the last letter shows";
}

TEST_F(WindowCommandsTest, WindowsAreArrangedAsTheCommandsSay) {
    const TMainForm& frame = start();
    run("FileNew1");
    run("FileNew1");
    run("FileNew1");
    const TMDIChild* const active = frame.activeDocument();
    const QRect area = child<QMdiArea>(frame, "MDIArea").viewport()->rect();

    run("WindowTileHorizontal1");
    EXPECT_EQ(places(), tileRects(area.size(), 3, Qt::Horizontal));
    run("WindowTileVertical1");
    EXPECT_EQ(places(), tileRects(area.size(), 3, Qt::Vertical));
    EXPECT_EQ(frame.activeDocument(), active);

    run("WindowCascade1");
    QList<QRect> stack = places();
    std::sort(stack.begin(), stack.end(),
              [](const QRect& a, const QRect& b) { return a.y() < b.y(); });
    for (qsizetype i = 1; i < stack.size(); ++i) {
        EXPECT_GT(stack[i].x(), stack[i - 1].x());
        EXPECT_EQ(stack[i].size(), stack[i - 1].size());
    }

    frame.documents().constFirst()->showMaximized();
    run("WindowMinimizeAll1");
    for (TMDIChild* window : frame.documents()) {
        EXPECT_TRUE(window->isMinimized());
        window->move(200, 100);
    }
    run("WindowArrangeAll1");
    int x = 0;
    for (const QRect& place : places()) {
        EXPECT_EQ(place.bottomLeft(), QPoint(x, area.bottom()));
        x += place.width();
    }
    run("WindowTileVertical1");
    EXPECT_TRUE(frame.documents().constFirst()->isMinimized()) << "icons are no tiles";
}

} // namespace
} // namespace korvane::test
