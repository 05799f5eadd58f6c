#pragma once

#include <QString>

namespace korvane {

/// A text as a window title: "[*]" in one is the place of a mark for unsaved changes, unless it is
/// doubled.
inline QString titleOf(QString text) {
    return text.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
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

} // namespace korvane
