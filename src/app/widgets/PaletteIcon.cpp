#include "app/widgets/PaletteIcon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

namespace korvane {

namespace {

/// Draws a picture with its colours replaced: black by that of text, white by that of paper, blue
/// by an accent colour.
class PaletteIconEngine : public QIconEngine {
  public:
    explicit PaletteIconEngine(QByteArray picture) : picture_(std::move(picture)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State /*state*/) override {
        const QPalette palette = QGuiApplication::palette();
        const bool disabled = mode == QIcon::Disabled;
        const QPalette::ColorGroup group = disabled ? QPalette::Disabled : QPalette::Active;
        const QColor line = palette.color(group, mode == QIcon::Selected ? QPalette::HighlightedText
                                                                         : QPalette::WindowText);
        const QColor paper = palette.color(group, mode == QIcon::Selected ? QPalette::Highlight
                                                  : disabled              ? QPalette::Window
                                                                          : QPalette::Base);
        const bool dark = palette.color(QPalette::Window).lightness() < 128;
        const QColor accent = disabled || mode == QIcon::Selected ? line
                              : dark                              ? QColor(0x6c, 0xb2, 0xf7)
                                                                  : QColor(0x1d, 0x5f, 0xb4);
        QByteArray picture = picture_;
        // via placeholders: a colour just written must not be replaced again
        picture.replace("#000000", "LINE").replace("#ffffff", "PAPER").replace("#0000ff", "ACCENT");
        picture.replace("LINE", line.name().toLatin1())
            .replace("PAPER", paper.name().toLatin1())
            .replace("ACCENT", accent.name().toLatin1());
        QSvgRenderer(picture).render(painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return drawn;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new PaletteIconEngine(picture_); }

  private:
    QByteArray picture_;
};

} // namespace

QIcon paletteIcon(const QString& name) {
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QIcon(new PaletteIconEngine(file.readAll()));
}

} // namespace korvane
