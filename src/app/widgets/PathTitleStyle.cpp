#include "app/widgets/PathTitleStyle.h"

#include "app/widgets/WidgetText.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOptionTitleBar>

namespace korvane {

PathTitleStyle::PathTitleStyle() : QProxyStyle(QApplication::style()->name()) {}

void PathTitleStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                        QPainter* painter, const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
    if (control != CC_TitleBar || bar == nullptr || widget == nullptr) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    QStyleOptionTitleBar fitting(*bar);
    // styles cut off the end of a text that does not fit within their own margin
    constexpr int margin = 16;
    const QRect label = subControlRect(CC_TitleBar, bar, SC_TitleBarLabel, widget);
    fitting.text = painter->fontMetrics().elidedText(textOfTitle(widget->windowTitle()),
                                                     Qt::ElideLeft, label.width() - margin);
    QProxyStyle::drawComplexControl(control, &fitting, painter, widget);
}

} // namespace korvane
