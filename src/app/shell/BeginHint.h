#pragma once

#include <QLabel>

class QMdiArea;

namespace korvane {

/// Tells the user how to begin, in the middle of an area without windows.
class BeginHint : public QLabel {
    Q_OBJECT
  public:
    /// The area owns the label.
    explicit BeginHint(QMdiArea& area);

    /// Takes a text colour that is readable on the area's background.
    void followBackground();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QMdiArea& area_;
};

} // namespace korvane
