#include "formats/xsi/XsiReader.h"
#include "formats/xsi/XsiWriter.h"
#include "support/SizedModel.h"
#include "support/WriteText.h"

#include <benchmark/benchmark.h>

#include <charconv>

namespace korvane::bench {
namespace {

using test::directXText;
using test::gridModel;
using test::writeText;

void setBytes(benchmark::State& state, std::size_t bytes) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

void loadText(benchmark::State& state, const std::string& text) {
    for (auto _ : state) {
        ModelDocument document;
        benchmark::DoNotOptimize(readXsi(TextScanner(text), document));
    }
    setBytes(state, text.size());
}

void LoadDirectX(benchmark::State& state) {
    loadText(state, directXText(gridModel(static_cast<std::size_t>(state.range(0)))));
}

void LoadXsi(benchmark::State& state) {
    loadText(state, writeText(gridModel(static_cast<std::size_t>(state.range(0)))));
}

/// For comparison with loading: every number of the text by std::from_chars, without a model.
void NumbersByFromChars(benchmark::State& state) {
    const std::string text = writeText(gridModel(static_cast<std::size_t>(state.range(0))));
    for (auto _ : state) {
        double sum = 0;
        const char* const end = text.data() + text.size();
        for (const char* next = text.data(); next < end;) {
            float number = 0;
            const bool starts = *next == '-' || (*next >= '0' && *next <= '9');
            const auto result = starts ? std::from_chars(next, end, number)
                                       : std::from_chars_result{next, std::errc::invalid_argument};
            sum += number;
            next = result.ec == std::errc::invalid_argument ? next + 1 : result.ptr;
        }
        benchmark::DoNotOptimize(sum);
    }
    setBytes(state, text.size());
}

void SaveXsi(benchmark::State& state) {
    const ModelDocument document = gridModel(static_cast<std::size_t>(state.range(0)));
    std::size_t bytes = 0;
    for (auto _ : state) {
        bytes = 0;
        writeXsi(document, [&bytes](std::string_view piece) {
            bytes += piece.size();
            return true;
        });
    }
    setBytes(state, bytes);
}

/// For comparison with saving: the numbers of the meshes by std::to_chars, with separators.
void NumbersByToChars(benchmark::State& state) {
    const ModelDocument document = gridModel(static_cast<std::size_t>(state.range(0)));
    std::vector<char> out(1U << 18U);
    std::size_t bytes = 0;
    for (auto _ : state) {
        bytes = 0;
        char* next = out.data();
        const auto put = [&](auto value) {
            if (next > out.data() + out.size() - 64) {
                bytes += static_cast<std::size_t>(next - out.data());
                next = out.data();
            }
            if constexpr (std::is_floating_point_v<decltype(value)>) {
                next = std::to_chars(next, next + 32, value, std::chars_format::general, 6).ptr;
            } else {
                next = std::to_chars(next, next + 32, value).ptr;
            }
            *next++ = ';';
        };
        for (const FrameRecord& frame : document.Root.Children) {
            for (const std::vector<Vec3>* list : {&frame.Mesh.Vertices, &frame.Mesh.Normals}) {
                for (const Vec3& v : *list) {
                    put(v.x);
                    put(v.y);
                    put(v.z);
                }
            }
            for (const Vec2& t : frame.Mesh.TexCoords) {
                put(t.u);
                put(t.v);
            }
            for (const PolygonList* list :
                 {&frame.Mesh.Faces, &frame.Mesh.NormalFaces, &frame.Mesh.TexCoordFaces}) {
                for (std::size_t i = 0; i < list->size(); ++i) {
                    put(static_cast<std::uint32_t>((*list)[i].size()));
                    for (const std::uint32_t corner : (*list)[i]) {
                        put(corner);
                    }
                }
            }
        }
        benchmark::DoNotOptimize(next);
        bytes += static_cast<std::size_t>(next - out.data());
    }
    setBytes(state, bytes);
}

void sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(10'000)->Arg(200'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(LoadDirectX)->Apply(sizes);
BENCHMARK(LoadXsi)->Apply(sizes);
BENCHMARK(NumbersByFromChars)->Apply(sizes);
BENCHMARK(SaveXsi)->Apply(sizes);
BENCHMARK(NumbersByToChars)->Apply(sizes);

} // namespace
} // namespace korvane::bench
