#pragma once

#include <QLabel>

namespace korvane {

/// A line of plain text that shows as much as fits, and has the whole text as tool tip if some is
/// cut off. It does not limit how narrow its layout can be.
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
