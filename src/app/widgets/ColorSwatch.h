#pragma once

#include <QAbstractButton>
#include <QColor>

namespace korvane {

/// A panel that shows a colour. The mouse, Space and Enter click it.
class ColorSwatch : public QAbstractButton {
  public:
    explicit ColorSwatch(QWidget* parent);

    [[nodiscard]] QColor color() const { return color_; }
    void setColor(const QColor& color);
    /// Lets the user choose another colour. Returns true if the user confirmed.
    bool choose();

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QColor color_ = Qt::black;
};

} // namespace korvane
