#include "render/gl/GlOffscreen.h"
#include "render/planes/PlaneView.h"
#include "render/scene/StartCamera.h"
#include "render/software/SoftwareView.h"
#include "tool/PictureOutput.h"
#include "tool/Timing.h"

#include <QCommandLineParser>

#include <cmath>
#include <cstdio>
#include <optional>
#include <utility>

namespace korvane::tool {

namespace {

/// What was asked for; what was not is left to the start camera.
struct RenderRequest {
    QString in;
    QString out;
    ViewState state;
    std::int32_t width = 1024;
    std::int32_t height = 768;
    std::optional<float> distance;
    std::optional<Vec3> centre;
    std::optional<int> repeat;
    std::optional<ViewPlane> plane; ///< of a 2D view instead of the 3D one
};

std::optional<float> number(const QString& text) {
    bool valid = false;
    const float value = text.toFloat(&valid);
    return valid && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// Turns the options into a request, one after the other; the first one that makes no sense is
/// remembered.
class RenderOptions {
  public:
    RenderOptions() {
        for (const char* name :
             {"api", "mode", "view", "size", "pitch", "yaw", "distance", "center", "repeat"}) {
            parser_.addOption({QString::fromLatin1(name), {}, QStringLiteral("value")});
        }
        addFormatOption(parser_);
        parser_.addOption(QCommandLineOption(QStringLiteral("no-transparent")));
        parser_.addOption(QCommandLineOption(QStringLiteral("no-hidden-transparent")));
    }

    /// The reason why the words are no request, or an empty text.
    QString parse(const QStringList& words, RenderRequest& request) {
        if (!parser_.parse(QStringList(QStringLiteral("render")) + words)) {
            return parser_.errorText();
        }
        const QStringList files = parser_.positionalArguments();
        if (files.size() != 2) {
            return QStringLiteral("render needs IN and OUT.png");
        }
        request.in = files[0];
        request.out = files[1];
        if (QString fault = pictureOutputFault(parser_, request.out); !fault.isEmpty()) {
            return fault;
        }
        request.state.allowTransparent = !parser_.isSet(QStringLiteral("no-transparent"));
        request.state.showHiddenTransparent =
            !parser_.isSet(QStringLiteral("no-hidden-transparent"));
        readChoices(request);
        readNumbers(request);
        if (request.repeat && isStandardOutput(request.out)) {
            return QStringLiteral("--repeat prints where the picture would go");
        }
        return wrong_.isEmpty() ? QString()
                                : QStringLiteral("\"%1\" is no value for --%2")
                                      .arg(parser_.value(wrong_), wrong_);
    }

  private:
    /// Where the option's value stands among the words, or nothing if it was not given.
    std::optional<int> choice(const char* name, const QStringList& known) {
        const QString option = QString::fromLatin1(name);
        if (!parser_.isSet(option)) {
            return std::nullopt;
        }
        const auto index = static_cast<int>(known.indexOf(parser_.value(option)));
        check(option, index >= 0);
        return index;
    }
    /// As many numbers with the separator between them as asked for, or nothing.
    QList<float> numbers(const char* name, qsizetype count, QChar separator) {
        const QString option = QString::fromLatin1(name);
        QList<float> values;
        if (!parser_.isSet(option)) {
            return values;
        }
        const QStringList texts = parser_.value(option).split(separator);
        for (const QString& text : texts) {
            const std::optional<float> value = number(text);
            check(option, value.has_value());
            values.push_back(value.value_or(0.0F));
        }
        check(option, values.size() == count);
        return values.size() == count ? values : QList<float>();
    }
    void check(const QString& option, bool valid) {
        if (!valid && wrong_.isEmpty()) {
            wrong_ = option;
        }
    }

    void readChoices(RenderRequest& request) {
        request.state.api = DrawApi::Software;
        if (const auto api =
                choice("api", {QStringLiteral("software"), QStringLiteral("opengl")})) {
            request.state.api = *api == 0 ? DrawApi::Software : DrawApi::OpenGL;
        }
        if (const auto mode = choice("mode", {QStringLiteral("wireframe"), QStringLiteral("flat"),
                                              QStringLiteral("smooth")})) {
            request.state.mode = static_cast<RenderMode>(*mode);
        }
        if (const auto view = choice("view", {QStringLiteral("3d"), QStringLiteral("xy"),
                                              QStringLiteral("xz"), QStringLiteral("zy")})) {
            request.plane = *view > 0 ? std::optional(viewPlanes[*view - 1]) : std::nullopt;
        }
    }
    void readNumbers(RenderRequest& request) {
        if (const auto size = numbers("size", 2, u'x'); !size.isEmpty()) {
            constexpr float largest = 8192.0F;
            check(QStringLiteral("size"),
                  size[0] >= 1 && size[1] >= 1 && size[0] <= largest && size[1] <= largest &&
                      size[0] == std::floor(size[0]) && size[1] == std::floor(size[1]));
            if (wrong_.isEmpty()) {
                request.width = static_cast<std::int32_t>(size[0]);
                request.height = static_cast<std::int32_t>(size[1]);
            }
        }
        if (const auto pitch = numbers("pitch", 1, u','); !pitch.isEmpty()) {
            request.state.angles.pitch = pitch[0];
        }
        if (const auto yaw = numbers("yaw", 1, u','); !yaw.isEmpty()) {
            request.state.angles.yaw = yaw[0];
        }
        if (const auto distance = numbers("distance", 1, u','); !distance.isEmpty()) {
            check(QStringLiteral("distance"), distance[0] >= 0);
            request.distance = distance[0];
        }
        if (const auto centre = numbers("center", 3, u','); !centre.isEmpty()) {
            request.centre = Vec3{centre[0], centre[1], centre[2]};
        }
        if (const auto repeat = numbers("repeat", 1, u','); !repeat.isEmpty()) {
            check(QStringLiteral("repeat"),
                  repeat[0] >= 1 && repeat[0] < 1e6F && repeat[0] == std::floor(repeat[0]));
            request.repeat = wrong_.isEmpty() ? static_cast<int>(repeat[0]) : 1;
        }
    }

    QCommandLineParser parser_;
    QString wrong_; ///< the first option with a value that makes no sense
};

/// Draws the document as asked for and saves the picture. `redraw` draws once and tells whether it
/// could, `picture` gives what was drawn over the background, or a null image.
template <class Redraw, class Picture>
ExitStatus drawAndSave(const RenderRequest& request, const Redraw& redraw, const Picture& picture,
                       BitmapPixel background) {
    const QString failure = QStringLiteral("no OpenGL here");
    if (!redraw()) {
        return refuse(request.in, failure);
    }
    std::vector<double> times;
    for (int round = 0; round < request.repeat.value_or(0); ++round) {
        const Clock::time_point start = Clock::now();
        redraw();
        times.push_back(millisecondsSince(start));
    }
    const QImage image = picture();
    if (image.isNull()) {
        return refuse(request.in, failure);
    }
    if (request.repeat) {
        printMedian("frame", std::move(times));
        std::printf("pixels %zu\n", countOtherThan(image, background));
    }
    return savePng(image, request.out);
}

ExitStatus renderPlane(const RenderRequest& request, ModelDocument& document) {
    PlaneView view(*request.plane);
    view.resize(request.width, request.height);
    startPlanes(document, request.width, request.height);
    return drawAndSave(
        request,
        [&] {
            view.draw(document);
            return true;
        },
        [&] { return imageOf(view.bitmap()); }, view.colors().frames.background);
}

/// What is given of the camera is in units of the model, and so is then all of it.
void placeCamera(RenderRequest& request, ModelDocument& document) {
    startCamera(document, request.state, ViewGeometry(request.width, request.height));
    if (request.distance || request.centre) {
        document.CameraDistance /= std::exchange(request.state.scaleFactor, 1.0F);
    }
    document.CameraDistance = request.distance.value_or(document.CameraDistance);
    document.CameraCenter = request.centre.value_or(document.CameraCenter);
}

ExitStatus renderByOpenGl(RenderRequest& request, ModelDocument& document) {
    GlOffscreen offscreen;
    Bitmap picture;
    return drawAndSave(
        request,
        [&] {
            return offscreen.redraw(document, request.state, request.width, request.height) ==
                   GlStatus::Works;
        },
        [&] { return offscreen.read(picture) == GlStatus::Works ? imageOf(picture) : QImage(); },
        request.state.colors.background);
}

} // namespace

ExitStatus render(const QStringList& words) {
    RenderRequest request;
    RenderOptions options;
    if (const QString reason = options.parse(words, request); !reason.isEmpty()) {
        return wrongCall(reason);
    }
    if (isSameFile(request.in, request.out)) {
        return refuseInput(request.out);
    }
    ModelDocument document;
    if (!open(request.in, document)) {
        return ExitStatus::Refused;
    }
    placeCamera(request, document);
    if (request.plane) {
        return renderPlane(request, document);
    }
    if (request.state.api == DrawApi::OpenGL) {
        return renderByOpenGl(request, document);
    }
    SoftwareView view;
    view.resize(request.width, request.height);
    return drawAndSave(
        request,
        [&] {
            view.redraw(document, request.state);
            return true;
        },
        [&] { return imageOf(view.bitmap()); }, request.state.colors.background);
}

} // namespace korvane::tool
