#pragma once

#include "app/widgets/PictureWidget.h"

#include <QImage>

#include <functional>
#include <utility>

namespace korvane {

/// An image control: shows each pixel of its picture as one device pixel, whatever the scale
/// factor. Mouse events go to its parent.
///
/// A control with a drawing function calls it when it is about to paint and the picture is stale:
/// several requests to redraw are one drawing, and an invisible control needs none.
class TImage : public PictureWidget {
    Q_OBJECT
  public:
    explicit TImage(QWidget* parent = nullptr);

    /// The function draws a picture of the control's current size and passes it to showPicture(),
    /// or does nothing. Its exceptions are rethrown from the event loop after the paint.
    void setDrawing(std::function<void()> draw) { draw_ = std::move(draw); }
    /// Has the picture drawn again at the next paint.
    void redraw();

    /// Shows a picture of the control's size in device pixels, and over it an optional, partly
    /// transparent overlay of the same size. Does not copy their memory, which must stay valid
    /// until other pictures are shown.
    void showPicture(const QImage& picture, const QImage& overlay = {});
    /// Returns the picture without the overlay and the marks.
    [[nodiscard]] const QImage& picture() const { return picture_; }

    /// Sets whether a thin line at the right and lower edges separates it from its neighbours.
    void setEdged(bool edged);
    /// The function paints over the picture at each paint, in device pixels, without changing it.
    void setMarks(std::function<void(QPainter&)> paint) { marks_ = std::move(paint); }
    /// Sets whether a frame inside the control shows that it has the focus.
    void setFocusMark(bool marked);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void drawIfStale();
    void paintMarks(QPainter& painter);
    void paintFocusMark(QPainter& painter) const;

    std::function<void()> draw_;
    bool stale_ = true; ///< the picture is out of date
    bool drawing_ = false;
    QSize drawnSize_; ///< the control's size at the last drawing, in device pixels
    QImage picture_;
    QImage overlay_;
    bool edged_ = false;
    bool focusMark_ = false;
    std::function<void(QPainter&)> marks_;
};

} // namespace korvane
