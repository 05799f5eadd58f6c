#include "render/picking/FramePicking.h"
#include "render/planes/PlaneCache.h"
#include "render/planes/PlaneView.h"
#include "render/scene/StartCamera.h"
#include "render/software/SoftwareView.h"
#include "support/SizedModel.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <utility>
#include <vector>

namespace korvane::bench {
namespace {

using test::gridModel;

/// Draws the whole model at 1024 x 768.
void drawFrames(benchmark::State& state, ModelDocument document, RenderMode mode) {
    SoftwareView view;
    view.resize(1024, 768);
    ViewState settings;
    startCamera(document, settings, view.geometry());
    settings.mode = mode;
    settings.angles.pitch = 1.0F; // from above: the meshes are landscapes
    for (auto _ : state) {
        view.redraw(document, settings);
        benchmark::DoNotOptimize(view.bitmap().pixels());
    }
    state.counters["pixels"] =
        static_cast<double>(countOtherThan(imageOf(view.bitmap()), settings.colors.background));
}

/// The textbook line: clips the ends at one side of the view after the other, then decides each
/// step by the error of the last one.
void plainLine(Bitmap& bitmap, PixelPoint from, PixelPoint to, BitmapPixel color) {
    const std::int32_t right = bitmap.width() - 1;
    const std::int32_t low = bitmap.height() - 1;
    const auto outside = [&](PixelPoint p) {
        return (p.x < 0 ? 1 : 0) | (p.x > right ? 2 : 0) | (p.y < 0 ? 4 : 0) | (p.y > low ? 8 : 0);
    };
    while ((outside(from) | outside(to)) != 0) {
        if ((outside(from) & outside(to)) != 0) {
            return;
        }
        PixelPoint& end = outside(from) != 0 ? from : to;
        const int side = outside(end);
        const std::int64_t dx = std::int64_t{to.x} - from.x;
        const std::int64_t dy = std::int64_t{to.y} - from.y;
        if ((side & 12) != 0) {
            const std::int32_t edge = (side & 8) != 0 ? low : 0;
            end = {from.x + static_cast<std::int32_t>(dx * (edge - from.y) / dy), edge};
        } else {
            const std::int32_t edge = (side & 2) != 0 ? right : 0;
            end = {edge, from.y + static_cast<std::int32_t>(dy * (edge - from.x) / dx)};
        }
    }
    const std::int32_t dx = std::abs(to.x - from.x);
    const std::int32_t dy = std::abs(to.y - from.y);
    const std::ptrdiff_t stepX = from.x < to.x ? 1 : -1;
    const std::ptrdiff_t stepY = from.y < to.y ? bitmap.width() : -bitmap.width();
    const bool flat = dx >= dy;
    const std::int32_t longer = flat ? dx : dy;
    const std::int32_t shorter = flat ? dy : dx;
    BitmapPixel* at = bitmap.pixels() + std::ptrdiff_t{from.y} * bitmap.width() + from.x;
    std::int32_t error = longer / 2;
    for (std::int32_t left = longer;; --left) {
        *at = color;
        if (left == 0) {
            return;
        }
        at += flat ? stepX : stepY;
        error -= shorter;
        if (error < 0) {
            error += longer;
            at += flat ? stepY : stepX;
        }
    }
}

ModelDocument model(const benchmark::State& state) {
    return gridModel(static_cast<std::size_t>(state.range(0)));
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

/// Draws a 2D view at 800 x 600 with the whole model in view or part of it, either repeatedly as it
/// is or after a pan.
void DrawPlane(benchmark::State& state) {
    ModelDocument document = model(state);
    PlaneView view(ViewPlane::XY);
    view.resize(800, 600);
    startPlanes(document, 800, 600);
    document.PlaneScale *= static_cast<float>(state.range(1));
    for (auto _ : state) {
        document.PanVector.y += state.range(2) != 0 ? 1e-3F : 0.0F;
        view.draw(document);
        benchmark::DoNotOptimize(view.bitmap().pixels());
    }
    state.counters["pixels"] = static_cast<double>(
        countOtherThan(imageOf(view.bitmap()), view.colors().frames.background));
}

/// For comparison: only the lines of that picture, between precomputed pixels, by the plainest way
/// to draw a line.
void DrawPlainLines(benchmark::State& state) {
    ModelDocument document = model(state);
    PlaneView view(ViewPlane::XY);
    view.resize(800, 600);
    startPlanes(document, 800, 600);
    document.PlaneScale *= static_cast<float>(state.range(1));
    view.draw(document);
    std::vector<std::pair<PixelPoint, PixelPoint>> lines;
    DrawList list;
    list.rebuild(document.Root);
    for (const DrawItem& item : list.items()) {
        PlaneCache& cache = planeCache(drawCache(*item.frame));
        for (const MeshEdge& edge : cache.edges(item.frame->Mesh)) {
            const auto& points = cache.points(ViewPlane::XY);
            if (!points.empty()) {
                lines.emplace_back(points[edge.from], points[edge.to]);
            }
        }
    }
    Bitmap bitmap;
    bitmap.resize(800, 600);
    for (auto _ : state) {
        bitmap.fill(0xffffffffU);
        for (const auto& [from, to] : lines) {
            plainLine(bitmap, from, to, 0xff0000ffU);
        }
        benchmark::DoNotOptimize(bitmap.pixels());
    }
    state.counters["lines"] = static_cast<double>(lines.size());
}

/// Finds the frames under the middle of the view, which the whole model fills.
void pick(benchmark::State& state, RenderMode mode) {
    ModelDocument document = gridModel(static_cast<std::size_t>(state.range(0)));
    const ViewGeometry geometry(1024, 768);
    ViewState settings;
    settings.mode = mode;
    startCamera(document, settings, geometry);
    settings.angles.pitch = 1.0F;
    std::size_t found = 0;
    for (auto _ : state) {
        found = framesInSpace(document, settings, geometry, 512, 384).size();
    }
    state.counters["found"] = static_cast<double>(found);
}

void PickShaded(benchmark::State& state) {
    pick(state, RenderMode::SmoothShading);
}

void PickWires(benchmark::State& state) {
    pick(state, RenderMode::Wireframe);
}

void PickPlane(benchmark::State& state) {
    ModelDocument document = gridModel(static_cast<std::size_t>(state.range(0)));
    startPlanes(document, 512, 384);
    const PlaneMapping mapping =
        planeMapping(ViewPlane::XZ, 512, 384, document.PlaneScale, document.PanVector);
    for (auto _ : state) {
        benchmark::DoNotOptimize(framesInPlane(document, mapping, 256, 192));
    }
}

void planeSizes(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"faces", "zoom", "pan"})->Unit(benchmark::kMillisecond);
    bench->Args({200'000, 1, 0})->Args({200'000, 4, 0});
}

void sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(10'000)->Arg(200'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(DrawSmooth)->Apply(sizes);
BENCHMARK(DrawFlat)->Apply(sizes);
BENCHMARK(DrawWireframe)->Apply(sizes);
BENCHMARK(DrawTextured)->Apply(sizes);
BENCHMARK(DrawTranslucent)->Apply(sizes);
BENCHMARK(PickShaded)->Apply(sizes);
BENCHMARK(PickWires)->Apply(sizes);
BENCHMARK(PickPlane)->Apply(sizes);
BENCHMARK(DrawPlainLines)->Apply(planeSizes);
BENCHMARK(DrawPlane)->Apply(planeSizes)->Args({200'000, 1, 1})->Args({200'000, 4, 1});

} // namespace
} // namespace korvane::bench
