#include "render/gl/GlOffscreen.h"
#include "render/planes/PlaneView.h"
#include "render/scene/NothingShown.h"
#include "render/scene/StartCamera.h"
#include "render/software/SoftwareView.h"
#include "tool/Commands.h"
#include "tool/InputFile.h"
#include "tool/ModelInput.h"
#include "tool/ModelWarnings.h"
#include "tool/PictureOutput.h"
#include "tool/RenderRequest.h"
#include "tool/Timing.h"

#include <functional>
#include <memory>
#include <utility>

namespace korvane::tool {

namespace {

/// A view of one model. `redraw` draws once and returns false if it cannot; `picture` returns what
/// was drawn, or a null image.
struct Drawing {
    std::function<bool()> redraw;
    std::function<QImage()> picture;
};

/// Returns the bitmap as an image; without a background, pixels not drawn on are transparent.
QImage pictureOf(const Bitmap& bitmap, BitmapPixel background) {
    return background == RenderRequest::noBackground ? overlayOf(bitmap) : imageOf(bitmap);
}

/// Draws, as often as requested, and saves the picture.
void drawAndSave(const RenderRequest& request, const Job& job, const Drawing& drawing) {
    const Refusal failure(job.in, QStringLiteral("no OpenGL here"));
    if (!drawing.redraw()) {
        throw failure;
    }
    std::vector<double> times;
    for (int round = 0; round < request.repeat.value_or(0); ++round) {
        const Clock::time_point start = Clock::now();
        drawing.redraw();
        times.push_back(millisecondsSince(start));
    }
    const QImage image = drawing.picture();
    if (image.isNull()) {
        throw failure;
    }
    if (request.repeat) {
        printMedian("frame", std::move(times));
        print("pixels " + std::to_string(countOtherThan(image, request.background)) + "\n");
    }
    savePng(image, job.out);
}

void renderPlane(const RenderRequest& request, const Job& job, ModelDocument& document) {
    PlaneView view(*request.plane);
    PlaneColors colors;
    colors.frames.background = request.background;
    view.setColors(colors);
    view.resize(request.width, request.height);
    startPlanes(document, request.width, request.height);
    drawAndSave(request, job,
                {[&] {
                     view.draw(document);
                     return true;
                 },
                 [&] { return pictureOf(view.bitmap(), request.background); }});
}

void renderBySoftware(RenderRequest& request, const Job& job, ModelDocument& document) {
    SoftwareView view;
    view.resize(request.width, request.height);
    drawAndSave(request, job,
                {[&] {
                     view.redraw(document, request.state);
                     return true;
                 },
                 [&] { return pictureOf(view.bitmap(), request.background); }});
}

void renderByOpenGl(RenderRequest& request, const Job& job, ModelDocument& document) {
    GlOffscreen offscreen;
    Bitmap picture;
    const auto read = [&] {
        const bool covered =
            request.background == RenderRequest::noBackground
                ? offscreen.readWithCoverage(document, request.state, picture) == GlStatus::Works
                : offscreen.read(picture) == GlStatus::Works;
        return covered ? pictureOf(picture, request.background) : QImage();
    };
    drawAndSave(request, job,
                {[&] {
                     return offscreen.redraw(document, request.state, request.width,
                                             request.height) == GlStatus::Works;
                 },
                 read});
}

/// Options place the camera in units of the model: if any is set, the rest is converted, too.
void placeCamera(RenderRequest& request, ModelDocument& document) {
    startCamera(document, request.state, ViewGeometry(request.width, request.height));
    if (request.distance || request.centre) {
        document.CameraDistance /= std::exchange(request.state.scaleFactor, 1.0F);
    }
    document.CameraDistance = request.distance.value_or(document.CameraDistance);
    document.CameraCenter = request.centre.value_or(document.CameraCenter);
}

/// Throws Refusal for a file that ends early. That takes a reading of its own.
void refuseEarlyEnd(const QString& file) {
    for (const Finding& finding : checkInput(file, {.hazards = false}).findings) {
        if (finding.id == FindingId::EndedEarly) {
            throw Refusal(file, QString::fromStdString(finding.text));
        }
    }
}

/// Takes the request by value: placing the camera changes it.
void renderModel(RenderRequest request, const Job& job,
                 const std::shared_ptr<TextureStore>& store) {
    if (request.strict) {
        refuseEarlyEnd(job.in);
    }
    ModelInput model(job.in, request.base, store);
    placeCamera(request, model.document);
    QString reason = whyNothingShows(model.document, request.state);
    if (request.strict && !request.plane && !reason.isEmpty()) {
        reason.chop(1); // other reasons have no full stop
        throw Refusal(job.in, reason);
    }
    if (request.plane) {
        renderPlane(request, job, model.document);
    } else if (request.state.api == DrawApi::OpenGL) {
        renderByOpenGl(request, job, model.document);
    } else {
        renderBySoftware(request, job, model.document);
    }
}

void addOptions(CommandLine& line) {
    addFolderOption(line);
    addRenderOptions(line);
    addFormatOption(line);
    addBaseOption(line);
    addRepeatOption(line, "Draw N times, and print the median time in milliseconds and the number "
                          "of pixels that differ from the background.");
}

ExitStatus render(const CommandLine& line) {
    const std::vector<Job> jobs = jobsOf(line, ".png");
    checkModelInputs(line, inputsOf(jobs));
    checkPictureOutput(line, jobs.front().out);
    RenderRequest request = renderRequest(line);
    request.base = line.value("base");
    if (inputsOf(jobs).contains(QLatin1String("-"))) {
        line.forbid({"strict"}, QStringLiteral("cannot be used with \"-\""));
    }
    request.repeat = repeatCount(line, jobs.front());
    const InputFiles inputs(inputsOf(jobs));
    constexpr std::size_t keptPixels = std::size_t{64} << 20U;
    const auto store = std::make_shared<TextureStore>(keptPixels);
    return doJobs(jobs, [&](const Job& job) {
        inputs.refuseOverwriting(job.out);
        renderModel(request, job, store);
    });
}

} // namespace

const Command renderCommand = {
    "render",
    "draw pictures of models",
    "Usage: korvane-tool render [OPTION...] IN OUT.png\n"
    "       korvane-tool render [OPTION...] --out-dir DIR IN...",
    "Draws models (.xsi, .x) as the views of the editor show them just after opening.\n"
    "\"-\" is standard input or output.",
    addOptions,
    render};

} // namespace korvane::tool
