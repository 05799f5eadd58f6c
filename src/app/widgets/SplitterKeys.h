#pragma once

#include <QObject>

class QSplitter;
class QSplitterHandle;

namespace korvane {

/// Lets the keyboard move the handle between the first two panes of a horizontal splitter: Tab
/// reaches it, Left and Right move it. Owned by the splitter.
class SplitterKeys : public QObject {
    Q_OBJECT
  public:
    explicit SplitterKeys(QSplitter& splitter);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void move(int pixels);

    QSplitter& splitter_;
    QSplitterHandle& handle_;
};

} // namespace korvane
