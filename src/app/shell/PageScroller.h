#pragma once

#include <QWidget>

class QToolButton;

namespace korvane {

/// Shows a widget at no less than its preferred width. If there is too little room, a button at
/// each end and the mouse wheel scroll it.
class PageScroller : public QWidget {
    Q_OBJECT
  public:
    explicit PageScroller(QWidget* parent);

    /// Shows the widget and takes ownership of it.
    void setWidget(QWidget* shown);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QToolButton* makeButton(const QString& name, const QString& says, Qt::ArrowType arrow,
                            int direction);
    void scrollTo(int offset);
    void arrange();

    QWidget* viewport_;
    QToolButton* back_;
    QToolButton* forth_;
    QWidget* shown_ = nullptr;
    int offset_ = 0; ///< how many pixels of the widget are hidden on the left
};

} // namespace korvane
