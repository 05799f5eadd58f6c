#pragma once

#include <QSize>
#include <QString>
#include <QWidget>

namespace korvane {

/// Converts a text to a window title: Qt replaces a single "[*]" by a mark for unsaved changes.
inline QString titleOf(QString text) {
    return text.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

/// Converts a plain text to a tool tip that wraps long lines.
inline QString toolTipOf(const QString& text) {
    return text.isEmpty() ? text
                          : QStringLiteral("<p style='white-space:pre-wrap'>") +
                                text.toHtmlEscaped() + QStringLiteral("</p>");
}

/// Returns the text that a title of titleOf() shows.
inline QString textOfTitle(QString title) {
    return title.replace(QStringLiteral("[*][*]"), QStringLiteral("[*]"));
}

/// Converts a text to a caption or menu item, where a single "&" underlines the next letter.
inline QString captionOf(QString text) {
    return text.replace(u'&', QStringLiteral("&&"));
}

/// Shortens a text in the middle if it is wider, in the widget's font, than `room` pixels.
inline QString elidedText(const QWidget& widget, const QString& text, int room) {
    return widget.fontMetrics().elidedText(text, Qt::ElideMiddle, room);
}

/// Returns the text for a picture's size in pixels.
inline QString sizeText(QSize size) {
    return QStringLiteral("( %1 x %2 )").arg(size.width()).arg(size.height());
}

/// Returns how wide a window must be to show its whole title beside the buttons of its frame.
inline int widthForTitle(const QWidget& window, const QString& title) {
    constexpr int buttons = 140;
    return window.fontMetrics().horizontalAdvance(title) * 5 / 4 + buttons; // titles may be bold
}

} // namespace korvane
