#include "edit/history/StructureEdits.h"
#include "model/document/StructureTreeModel.h"
#include "model/forms/TStructureView.h"
#include "model/records/FrameWalk.h"
#include "support/SizedModel.h"

#include <QApplication>
#include <QTreeView>

#include <benchmark/benchmark.h>

namespace korvane::bench {
namespace {

using test::groupedFrames;

/// A document of ten thousand frames with its tree model.
struct Tree {
    ModelDocument document = groupedFrames(10'000);
    StructureTreeModel model;
    EditHistory history;

    void refresh() { model.setTree(StructureTree(document)); }
};

/// The same in the structure page's tree, with everything expanded.
struct Page {
    ModelDocument document = groupedFrames(10'000);
    QTreeView widget;
    StructureTreeModel model;
    TStructureView view{widget, model};
    EditHistory history;

    Page() {
        widget.setUniformRowHeights(true);
        widget.setHeaderHidden(true);
        widget.resize(200, 800);
        widget.show();
        refresh();
        widget.expandAll();
    }
    void refresh() {
        model.setTree(StructureTree(document));
        view.select(document.Selected);
    }
};

void WalkFrames(benchmark::State& state) {
    ModelDocument document = groupedFrames(10'000);
    for (auto _ : state) {
        std::size_t length = 0;
        for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
            length += walk.frame().Name.size();
        }
        benchmark::DoNotOptimize(length);
    }
}

template <class Shown>
void Rebuild(benchmark::State& state) {
    Shown shown;
    for (auto _ : state) {
        shown.refresh();
    }
}

enum class Edit { Rename, Add, Delete };

template <class Shown>
void make(Shown& shown, Edit edit) {
    const FramePath frame = FramePath().child(50).child(25);
    switch (edit) {
    case Edit::Rename:
        renameFrame(shown.history, shown.document, frame, "other");
        break;
    case Edit::Add:
        addFrame(shown.history, shown.document, frame, "");
        break;
    case Edit::Delete:
        deleteFrame(shown.history, shown.document, frame);
        shown.document.selectFrame(FramePath().child(50));
        break;
    }
    shown.refresh();
}

template <class Shown>
void show(Shown& shown, const StepOutcome& outcome) {
    if (outcome.frame) {
        shown.document.selectFrame(*outcome.frame);
    }
    shown.refresh();
}

template <class Shown>
void undo(Shown& shown) {
    show(shown, shown.history.undo(shown.document));
}

/// An edit, its undo, its redo and another undo, each with a refresh: four times the cost of one.
template <class Shown, Edit edit>
void FourSteps(benchmark::State& state) {
    Shown shown;
    for (auto _ : state) {
        make(shown, edit);
        undo(shown);
        show(shown, shown.history.redo(shown.document));
        undo(shown);
    }
}

BENCHMARK(WalkFrames)->Unit(benchmark::kMicrosecond);
BENCHMARK(Rebuild<Tree>)->Unit(benchmark::kMicrosecond);
BENCHMARK(FourSteps<Tree, Edit::Rename>)->Unit(benchmark::kMicrosecond);
BENCHMARK(FourSteps<Tree, Edit::Add>)->Unit(benchmark::kMicrosecond);
BENCHMARK(FourSteps<Tree, Edit::Delete>)->Unit(benchmark::kMicrosecond);
BENCHMARK(Rebuild<Page>)->Unit(benchmark::kMicrosecond);
BENCHMARK(FourSteps<Page, Edit::Rename>)->Unit(benchmark::kMicrosecond);
BENCHMARK(FourSteps<Page, Edit::Add>)->Unit(benchmark::kMicrosecond);
BENCHMARK(FourSteps<Page, Edit::Delete>)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace korvane::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
