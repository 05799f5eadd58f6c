#pragma once

#include <QSize>
#include <QString>
#include <QWidget>

namespace korvane {

/// A text as a window title: "[*]" in one is the place of a mark for unsaved changes, unless it is
/// doubled.
inline QString titleOf(QString text) {
    return text.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

/// A text as a tool tip: as it stands, broken into lines where it is long.
inline QString toolTipOf(const QString& text) {
    return text.isEmpty() ? text
                          : QStringLiteral("<p style='white-space:pre-wrap'>") +
                                text.toHtmlEscaped() + QStringLiteral("</p>");
}

/// The text that such a title shows.
inline QString textOfTitle(QString title) {
    return title.replace(QStringLiteral("[*][*]"), QStringLiteral("[*]"));
}

/// A text as a caption or menu item: "&" would underline the letter behind it, unless it is
/// doubled.
inline QString captionOf(QString text) {
    return text.replace(u'&', QStringLiteral("&&"));
}

/// A text in the widget's font with its middle left out where it is wider than the room in pixels.
inline QString elidedText(const QWidget& widget, const QString& text, int room) {
    return widget.fontMetrics().elidedText(text, Qt::ElideMiddle, room);
}

/// The size of a picture in pixels.
inline QString sizeText(QSize size) {
    return QStringLiteral("( %1 x %2 )").arg(size.width()).arg(size.height());
}

/// How wide a window has to be to show all of its title, beside the buttons of its frame.
inline int widthForTitle(const QWidget& window, const QString& title) {
    constexpr int buttons = 140;
    return window.fontMetrics().horizontalAdvance(title) * 5 / 4 + buttons; // often bold
}

} // namespace korvane
