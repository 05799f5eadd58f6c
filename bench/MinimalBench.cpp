// The smallest program of the toolkit with what the editor's idle main frame shows: menus, a tool
// bar, a status bar and an area for windows. bench/windows compares the editor with it.

#include <QApplication>
#include <QFile>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>

#include <cstdio>
#include <sys/resource.h>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow frame;
    for (const char* menu : {"&File", "&Edit", "&Help"}) {
        frame.menuBar()->addMenu(QString::fromLatin1(menu))->addAction(QStringLiteral("Item"));
    }
    frame.addToolBar(QStringLiteral("Tools"))->addAction(QStringLiteral("Tool"));
    frame.statusBar()->showMessage(QStringLiteral("Ready"));
    frame.setCentralWidget(new QMdiArea);
    frame.setWindowState(Qt::WindowMaximized);
    frame.show();
    static_cast<void>(QTest::qWaitForWindowActive(&frame));
    for (int round = 0; round < 3; ++round) {
        QTest::qWait(100);
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto ms = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    std::printf("start %.2f ms\n", ms(usage.ru_utime) + ms(usage.ru_stime));
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray& line : file.readAll().split('\n')) {
            if (line.startsWith("Rss:")) {
                std::printf("start %.2f MiB\n",
                            line.simplified().split(' ').value(1).toDouble() / 1024);
            }
        }
    }
    std::fflush(stdout);
    std::_Exit(0);
}
