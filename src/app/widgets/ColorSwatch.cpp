#include "app/widgets/ColorSwatch.h"

#include "app/widgets/ModalCall.h"

#include <QColorDialog>
#include <QKeyEvent>
#include <QPainter>

namespace korvane {

ColorSwatch::ColorSwatch(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void ColorSwatch::setColor(const QColor& color) {
    color_ = color;
    setAccessibleDescription(color.name());
    update();
}

bool ColorSwatch::choose() {
    if (ModalCall::covers(*this)) {
        return false;
    }
    QColorDialog dialog(color_, this);
    dialog.setObjectName(QStringLiteral("ColorDialog1"));
    dialog.setWindowTitle(accessibleName());
    if (execModal(dialog) != QDialog::Accepted) {
        return false;
    }
    setColor(dialog.selectedColor());
    return true;
}

QSize ColorSwatch::sizeHint() const {
    const int height = fontMetrics().height();
    return {4 * height, height + 8};
}

void ColorSwatch::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect frame = rect().adjusted(2, 2, -3, -3);
    painter.setPen(palette().color(QPalette::Text));
    painter.setBrush(color_);
    painter.drawRect(frame);
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

void ColorSwatch::keyPressEvent(QKeyEvent* event) {
    // otherwise Enter would press the dialog's default button
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

} // namespace korvane
