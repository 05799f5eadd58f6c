#pragma once

#include <QAbstractButton>
#include <QColor>

namespace korvane {

/// A panel that shows a colour and can be clicked: with the mouse, Space or Enter.
class ColorSwatch : public QAbstractButton {
  public:
    explicit ColorSwatch(QWidget* parent);

    [[nodiscard]] QColor color() const { return color_; }
    void setColor(const QColor& color);
    /// Lets the user choose another colour; whether that was confirmed.
    bool choose();

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QColor color_ = Qt::black;
};

} // namespace korvane
