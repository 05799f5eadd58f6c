// Drives the real windows and prints the processor time of a user's steps, over all threads of the
// process: elapsed time says little on a busy machine. See bench/windows.

#include "app/shell/EditorApplication.h"
#include "app/shell/EditorForms.h"
#include "model/forms/TMDIChild.h"

#include <QAction>
#include <QEventLoop>
#include <QFile>
#include <QPushButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <sys/resource.h>
#include <vector>

namespace {

using korvane::EditorForms;
using korvane::TMDIChild;

double processorMs() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto ms = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
}

/// The resident memory of the process in MiB.
double memoryMiB() {
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    double kib = 0;
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray& line : file.readAll().split('\n')) {
            if (line.startsWith("Rss:")) {
                kib = line.simplified().split(' ').value(1).toDouble();
            }
        }
    }
    return kib / 1024;
}

void tell(const char* what, double value, const char* unit) {
    std::printf("%s %.2f %s\n", what, value, unit);
    std::fflush(stdout);
}

/// Runs the event loop as the program does, which lets it wait for events.
void runLoop(int ms) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Runs the event loop until all requested updates are on the screen.
void settle(int quietMs = 0) {
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        if (quietMs > 0) {
            runLoop(quietMs);
        }
    }
}

/// Returns the median cost of a step.
double stepMs(int steps, const std::function<void(int)>& step) {
    std::vector<double> costs;
    for (int i = -5; i < steps; ++i) {
        const double before = processorMs();
        step(i);
        settle();
        if (i >= 0) {
            costs.push_back(processorMs() - before);
        }
    }
    std::sort(costs.begin(), costs.end());
    return costs[costs.size() / 2];
}

class Bench {
  public:
    explicit Bench(const QStringList& models) : forms_(models) {
        forms_.mainForm.show();
        constexpr int tries = 100;
        for (int i = 0; i < tries && (!forms_.mainForm.isActiveWindow() ||
                                      forms_.mainForm.documents().size() < models.size());
             ++i) {
            runLoop(50);
        }
        settle(100);
    }

    void turn() {
        // the picture gets the mouse, whatever renderer draws it
        QWidget* view = window().findChild<QWidget*>(QStringLiteral("ThreeDWin"));
        const QPoint middle = view->rect().center();
        QTest::mousePress(view, Qt::LeftButton, Qt::NoModifier, middle);
        const auto move = [&](int i) {
            const QPointF at = middle + QPoint(i % 40, i % 7);
            QMouseEvent event(QEvent::MouseMove, at, view->mapToGlobal(at), Qt::NoButton,
                              Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(view, &event);
        };
        tell("turn", stepMs(31, move), "ms");
        QTest::mouseRelease(view, Qt::LeftButton, Qt::NoModifier, middle);
    }

    void tree() {
        treeView().expandToDepth(1);
        const QModelIndexList frames = nodes("Frame", 6);
        const auto select = [&](int i) {
            treeView().setCurrentIndex(frames[(i + 5) % frames.size()]);
        };
        tell("tree", stepMs(31, select), "ms");
        treeView().expandToDepth(3);
        treeView().setCurrentIndex(frames.first());
        settle(50);
        const auto down = [&](int i) {
            QTest::keyClick(&treeView(), i < 0 || i % 24 < 12 ? Qt::Key_Down : Qt::Key_Up);
        };
        tell("row", stepMs(31, down), "ms");
    }

    void opacity() {
        treeView().setCurrentIndex(nodes("Material", 1).value(0));
        settle(50);
        QTimer::singleShot(300, [this] {
            auto* bar = forms_.material.findChild<QSlider*>(QStringLiteral("opacitybar"));
            if (!forms_.material.isVisible()) {
                return;
            }
            tell("opacity", stepMs(11, [bar](int i) { bar->setValue(60 + i); }), "ms");
            forms_.material.close();
        });
        window().findChild<QPushButton*>(QStringLiteral("EditButton"))->click();
    }

    void copyAndClose() {
        tell("open", memoryMiB(), "MiB");
        treeView().setCurrentIndex(nodes("Frame", 1).value(0));
        settle(50);
        trigger("EditCopy");
        trigger("EditPaste");
        settle(200);
        tell("pasted", memoryMiB(), "MiB");
        window().closeUnasked();
        settle(200);
        tell("closed", memoryMiB(), "MiB");
    }

    void software() { trigger("SoftwareAction"); }

  private:
    [[nodiscard]] TMDIChild& window() const { return *forms_.mainForm.documents().at(0); }
    [[nodiscard]] QTreeView& treeView() const {
        return *window().findChild<QTreeView*>(QStringLiteral("TreeView1"));
    }
    /// The first rows of the tree whose text begins with `start`.
    [[nodiscard]] QModelIndexList nodes(const char* start, int count) const {
        const QAbstractItemModel& model = *treeView().model();
        return model.match(model.index(0, 0), Qt::DisplayRole, QString::fromLatin1(start), count,
                           Qt::MatchStartsWith | Qt::MatchRecursive);
    }
    void trigger(const char* name) {
        forms_.mainForm.findChild<QAction*>(QString::fromLatin1(name))->trigger();
        settle(50);
    }

    EditorForms forms_;
};

} // namespace

int main(int argc, char** argv) {
    const QString task = QString::fromLocal8Bit(argc > 1 ? argv[1] : "");
    QStringList models;
    for (int i = 2; i < argc; ++i) {
        models += QString::fromLocal8Bit(argv[i]);
    }
    if (models.isEmpty() && task != QStringLiteral("start")) {
        std::puts(
            "bench_windows start|open|steps|software|memory [MODEL...]: all but start need one");
        return 2;
    }
    int words = 1;
    const auto application = korvane::EditorApplication::onDisplay(words, argv);
    QTemporaryDir state; // keeps the user's own recovery copies out of this
    qputenv("XDG_STATE_HOME", state.path().toLocal8Bit());
    const double before = processorMs();
    Bench bench(models);
    if (task == QStringLiteral("start")) {
        tell("start", processorMs(), "ms");
        tell("start", memoryMiB(), "MiB");
    } else if (task == QStringLiteral("open")) {
        tell("open", processorMs() - before, "ms");
        tell("open", memoryMiB(), "MiB");
    } else if (task == QStringLiteral("steps") || task == QStringLiteral("software")) {
        if (task == QStringLiteral("software")) {
            bench.software();
        }
        bench.turn();
        bench.tree();
        bench.opacity();
    } else if (task == QStringLiteral("memory")) {
        bench.copyAndClose();
    } else {
        std::printf("no task \"%s\"\n", qPrintable(task));
        return 2;
    }
    state.remove();
    std::_Exit(0); // closing is not measured
}
