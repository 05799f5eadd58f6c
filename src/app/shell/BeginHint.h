#pragma once

#include <QLabel>

class QMdiArea;

namespace korvane {

/// Says in the middle of an area without windows how to begin.
class BeginHint : public QLabel {
    Q_OBJECT
  public:
    /// The area owns the label.
    explicit BeginHint(QMdiArea& area);

    /// Can be read on the area's background again.
    void followBackground();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QMdiArea& area_;
};

} // namespace korvane
