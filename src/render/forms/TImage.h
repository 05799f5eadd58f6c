#pragma once

#include "app/widgets/PictureWidget.h"

#include <QImage>

#include <functional>
#include <utility>

namespace korvane {

/// An image control: shows a picture pixel by pixel of the screen, whatever the scale factor. It
/// handles no mouse event, so that its parent gets them.
///
/// A control with a drawing function asks for its picture when it is about to paint and the picture
/// is stale: several wishes to redraw are one drawing, and a control that nobody sees costs none.
class TImage : public PictureWidget {
    Q_OBJECT
  public:
    explicit TImage(QWidget* parent = nullptr);

    /// The function draws a picture of the control's size at that moment and shows it, or draws
    /// nothing. What it throws is thrown again once the paint is over.
    void setDrawing(std::function<void()> draw) { draw_ = std::move(draw); }
    /// Has the picture drawn anew with the next paint.
    void redraw();

    /// Shows a picture made for the control's size in device pixels, and over it another one of
    /// that size, if there is one, whose transparent parts let the first be seen. Their memory is
    /// used as it is and must stay in place until others are shown.
    void showPicture(const QImage& picture, const QImage& overlay = {});
    /// The picture alone.
    [[nodiscard]] const QImage& picture() const { return picture_; }

    /// Whether a thin line over the picture's right and lower edge sets it off from its neighbours.
    void setEdged(bool edged);
    /// What is painted over the picture with each paint, in device pixels; it is no part of it.
    void setMarks(std::function<void(QPainter&)> paint) { marks_ = std::move(paint); }
    /// Whether a frame inside the control tells that the keyboard is here.
    void setFocusMark(bool marked);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void drawIfStale();
    void paintMarks(QPainter& painter);
    void paintFocusMark(QPainter& painter) const;

    std::function<void()> draw_;
    bool stale_ = true; ///< the picture is not what it should show
    bool drawing_ = false;
    QSize drawnSize_; ///< of the control, when it was last drawn
    QImage picture_;
    QImage overlay_;
    bool edged_ = false;
    bool focusMark_ = false;
    std::function<void(QPainter&)> marks_;
};

} // namespace korvane
