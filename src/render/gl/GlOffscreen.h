#pragma once

#include "render/gl/GlContext.h"
#include "render/gl/GlView.h"

#include <cstdint>
#include <memory>
#include <optional>

class QOpenGLFramebufferObject;

namespace korvane {

class Bitmap;

/// An OpenGL view off the screen, with a context of its own. A driver that loses the context gets
/// another try with a new one. Needs a QGuiApplication.
class GlOffscreen {
  public:
    /// Tries to make the context; see status(). The driver must outlive the view.
    explicit GlOffscreen(GlDriver& driver = GlDriver::standard());
    ~GlOffscreen();
    GlOffscreen(const GlOffscreen&) = delete;
    GlOffscreen& operator=(const GlOffscreen&) = delete;

    /// What became of the context, or of the last redraw.
    [[nodiscard]] GlStatus status() const { return status_; }
    /// Draws the model at the size in device pixels, of which a side of 0 counts as 1, and waits
    /// until that is done. Returns the status.
    GlStatus redraw(ModelDocument& document, ViewState& state, std::int32_t width,
                    std::int32_t height);
    /// Draws likewise, and reads the picture.
    GlStatus redraw(ModelDocument& document, ViewState& state, std::int32_t width,
                    std::int32_t height, Bitmap& picture);
    /// Reads what was drawn last into the picture, which gets its size. Returns the status; only
    /// where it works there is a picture.
    GlStatus read(Bitmap& picture);
    /// The same of what was drawn last with that state, with pixels of value 0 where nothing covers
    /// the background. That takes another drawing.
    GlStatus readCovered(ModelDocument& document, ViewState& state, Bitmap& picture);
    [[nodiscard]] const GlView& view() const { return view_; }

  private:
    GlStatus draw(ModelDocument& document, ViewState& state, std::int32_t width,
                  std::int32_t height);
    void release();

    GlDriver& driver_;
    std::optional<GlContext> gl_; ///< made with the next redraw where there is none
    std::unique_ptr<QOpenGLFramebufferObject> framebuffer_;
    GlView view_;
    bool setUp_ = false;    ///< the view in the context
    bool covering_ = false; ///< draw where something is, in white, instead of what
    GlStatus status_;
};

} // namespace korvane
