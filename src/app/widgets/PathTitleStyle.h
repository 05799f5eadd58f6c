#pragma once

#include <QProxyStyle>

namespace korvane {

/// The program's style, except that a title too long for its bar keeps its end: titles of document
/// windows are paths.
class PathTitleStyle : public QProxyStyle {
  public:
    PathTitleStyle();

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
};

} // namespace korvane
