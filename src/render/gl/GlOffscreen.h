#pragma once

#include "render/gl/GlContext.h"
#include "render/gl/GlView.h"

#include <cstdint>
#include <memory>
#include <optional>

class QOpenGLFramebufferObject;

namespace korvane {

class Bitmap;

/// An OpenGL view off the screen, with a context of its own. After a lost context it tries once
/// more with a new one. Needs a QGuiApplication.
class GlOffscreen {
  public:
    /// Tries to make the context; see status(). The driver must outlive the view.
    explicit GlOffscreen(GlDriver& driver = GlDriver::standard());
    ~GlOffscreen();
    GlOffscreen(const GlOffscreen&) = delete;
    GlOffscreen& operator=(const GlOffscreen&) = delete;

    /// The outcome of making the context, or of the last redraw.
    [[nodiscard]] GlStatus status() const { return status_; }
    /// Draws the model at a size in device pixels, each side taken as at least 1, and waits until
    /// that is done. Returns the status.
    GlStatus redraw(ModelDocument& document, ViewState& state, std::int32_t width,
                    std::int32_t height);
    /// The same, then reads the picture.
    GlStatus redraw(ModelDocument& document, ViewState& state, std::int32_t width,
                    std::int32_t height, Bitmap& picture);
    /// Reads the last drawing into the picture and sets its size. Returns the status; unless that
    /// is Works, the picture holds nothing useful.
    GlStatus read(Bitmap& picture);
    /// The same for a drawing made with that state, with pixels of value 0 where nothing covers the
    /// background. Draws once more to find those.
    GlStatus readWithCoverage(ModelDocument& document, ViewState& state, Bitmap& picture);
    [[nodiscard]] const GlView& view() const { return view_; }

  private:
    GlStatus draw(ModelDocument& document, ViewState& state, std::int32_t width,
                  std::int32_t height);
    void release();

    GlDriver& driver_;
    std::optional<GlContext> gl_; ///< empty after a failure; the next redraw makes it
    std::unique_ptr<QOpenGLFramebufferObject> framebuffer_;
    GlView view_;
    bool setUp_ = false;    ///< whether the view has set up the context
    bool covering_ = false; ///< draw everything in plain white
    GlStatus status_;
};

} // namespace korvane
