#pragma once

#include <QProxyStyle>
#include <QString>
#include <QWidget>

namespace korvane {

/// How wide a window has to be to show all of its title, beside the buttons of its frame.
inline int widthForTitle(const QWidget& window, const QString& title) {
    constexpr int buttons = 140;
    return window.fontMetrics().horizontalAdvance(title) * 5 / 4 + buttons; // often bold
}

/// The style of the program, but where a title bar is too narrow for its title it shows the end of
/// it: titles of document windows are paths.
class PathTitleStyle : public QProxyStyle {
  public:
    PathTitleStyle();

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
};

} // namespace korvane
