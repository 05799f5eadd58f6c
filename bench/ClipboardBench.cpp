#include "edit/clipboard/ClipboardEdit.h"
#include "edit/clipboard/ClipboardReader.h"
#include "formats/xsi/XsiReader.h"
#include "support/SizedModel.h"
#include "support/WriteText.h"

#include <benchmark/benchmark.h>

#include <utility>

namespace korvane::bench {
namespace {

using test::gridModel;
using test::writeText;

void CopyAndPasteFrame(benchmark::State& state) {
    ModelDocument source = gridModel(static_cast<std::size_t>(state.range(0)));
    source.selectFrame(FramePath());
    for (auto _ : state) {
        ModelDocument target;
        target.selectFrame(FramePath());
        EditHistory history;
        const QByteArray block = copySelection(source);
        std::optional<ClipboardItem> item =
            decodeBlock({reinterpret_cast<const std::uint8_t*>(block.data()),
                         static_cast<std::size_t>(block.size())});
        benchmark::DoNotOptimize(item && pasteIntoSelection(target, history, std::move(*item), {}));
    }
}

/// For comparison: the same model through the text of a file.
void SaveAndLoadXsi(benchmark::State& state) {
    const ModelDocument source = gridModel(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        ModelDocument target;
        const std::string text = writeText(source);
        benchmark::DoNotOptimize(readXsi(TextScanner(text), target));
    }
}

BENCHMARK(CopyAndPasteFrame)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveAndLoadXsi)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvane::bench
