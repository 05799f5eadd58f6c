#pragma once

#include <QLabel>

namespace korvane {

/// A line of plain text that shows as much of it as there is room for, and the whole text in a tool
/// tip where that is not all. It can be made as narrow as its layout wants.
class ElidedLabel : public QLabel {
    Q_OBJECT
  public:
    explicit ElidedLabel(QWidget* parent);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QString shownText() const;
};

} // namespace korvane
