#include "app/widgets/PictureLabel.h"

#include <QLabel>

namespace korvane {

void layOver(QLabel& label) {
    label.setAttribute(Qt::WA_TransparentForMouseEvents);
    label.adjustSize();
}

void setInkFor(QLabel& label, BitmapPixel background) {
    constexpr int half = 128;
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText,
                     QColor::fromRgb(background).lightness() < half ? Qt::white : Qt::black);
    label.setPalette(palette);
}

} // namespace korvane
