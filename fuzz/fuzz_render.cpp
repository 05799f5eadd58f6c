#include "render/scene/StartCamera.h"
#include "render/software/SoftwareView.h"
#include "support/RandomModel.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace {

using namespace korvane;

ViewState viewState(const test::NumberSource& number, test::RandomModel& random) {
    ViewState state;
    state.mode = static_cast<RenderMode>(number(0, 2));
    state.dots = number(0, 7) == 0;
    state.allowTransparent = number(0, 1) == 1;
    state.showHiddenTransparent = number(0, 1) == 1;
    state.angles = {random.real(), random.real(), random.real()};
    if (number(0, 7) == 0) {
        state.light = random.vec3();
        state.eye = random.vec3();
    }
    return state;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const test::NumberSource number = [&input](int least, int most) {
        return input.ConsumeIntegralInRange(least, most);
    };
    constexpr int deepest = 3;
    test::RandomModel random(number, test::RandomContent::Any, deepest);
    SoftwareView view;
    view.resize(number(0, 90), number(0, 90));
    ViewState state = viewState(number, random);
    const bool placed = number(0, 1) == 1;
    const float distance = random.real();
    const Vec3 center = random.vec3();
    ModelDocument document = random.make();
    document.CameraDistance = distance;
    document.CameraCenter = center;
    if (placed) {
        startCamera(document, state, view.geometry());
    }
    view.redraw(document, state);
    state.mode = static_cast<RenderMode>(number(0, 2));
    view.resize(view.geometry().width + 1, view.geometry().height);
    view.redraw(document, state);
    return 0;
}
