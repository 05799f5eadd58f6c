#include "BenchModel.h"
#include "render/SoftwareView.h"
#include "render/StartCamera.h"

#include <benchmark/benchmark.h>

namespace korvane::bench {
namespace {

/// Draws the model of so many faces, 1024 x 768, all of it in view.
void drawFrames(benchmark::State& state, ModelDocument document, RenderMode mode) {
    SoftwareView view;
    view.resize(1024, 768);
    startCamera(document, view.geometry());
    ViewState settings;
    settings.mode = mode;
    for (auto _ : state) {
        view.redraw(document, settings);
        benchmark::DoNotOptimize(view.bitmap().pixels());
    }
    state.counters["pixels"] =
        static_cast<double>(view.bitmap().countOtherThan(settings.colors.background));
}

ModelDocument model(const benchmark::State& state) {
    return makeModel(static_cast<std::size_t>(state.range(0)));
}

void DrawSmooth(benchmark::State& state) {
    drawFrames(state, model(state), RenderMode::SmoothShading);
}

void DrawFlat(benchmark::State& state) {
    drawFrames(state, model(state), RenderMode::FlatShading);
}

void DrawWireframe(benchmark::State& state) {
    drawFrames(state, model(state), RenderMode::Wireframe);
}

void DrawTextured(benchmark::State& state) {
    ModelDocument document = model(state);
    auto image = std::make_shared<TextureImage>();
    image->width = image->height = 256;
    image->pixels.clear();
    for (std::uint32_t i = 0; i < 256U * 256U; ++i) {
        image->pixels.push_back({static_cast<std::uint8_t>(i), static_cast<std::uint8_t>(i >> 8U),
                                 static_cast<std::uint8_t>(i * 7), 255});
    }
    for (MaterialRecord& material : document.Materials) {
        material.HasTexture = true;
        material.TextureImage = image;
    }
    drawFrames(state, std::move(document), RenderMode::SmoothShading);
}

void DrawTranslucent(benchmark::State& state) {
    ModelDocument document = model(state);
    for (MaterialRecord& material : document.Materials) {
        material.FaceColor.alpha = 0.5F;
    }
    drawFrames(state, std::move(document), RenderMode::SmoothShading);
}

void sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(10'000)->Arg(200'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(DrawSmooth)->Apply(sizes);
BENCHMARK(DrawFlat)->Apply(sizes);
BENCHMARK(DrawWireframe)->Apply(sizes);
BENCHMARK(DrawTextured)->Apply(sizes);
BENCHMARK(DrawTranslucent)->Apply(sizes);

} // namespace
} // namespace korvane::bench
