#pragma once

#include <QProxyStyle>

namespace korvane {

/// The style of the program, but where a title bar is too narrow for its title it shows the end of
/// it: titles of document windows are paths.
class PathTitleStyle : public QProxyStyle {
  public:
    PathTitleStyle();

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
};

} // namespace korvane
