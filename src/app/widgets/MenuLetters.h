#pragma once

#include <QString>

#include <cstddef>
#include <optional>
#include <vector>

class QWidget;

namespace korvane {

/// A menu item, as far as keyboard selection needs it.
struct MenuItem {
    QString text; ///< with "&" before its mnemonic
    bool enabled = true;
};

/// What a letter does in an open menu.
struct MenuLetterTarget {
    std::size_t item = 0;
    bool carriedOut = false; ///< if not, the item only becomes the current one

    bool operator==(const MenuLetterTarget&) const = default;
};

/// Returns the item that a letter selects by its first letter. A single enabled item that begins
/// with it is carried out; of several, the next after the current item becomes current. Nothing if
/// no item begins with the letter or if it is the mnemonic of one.
std::optional<MenuLetterTarget> menuLetterTarget(const std::vector<MenuItem>& items,
                                                 std::optional<std::size_t> current, QChar letter);

/// Makes letters act like that in all menus that the window has now.
void actOnFirstLetters(QWidget& window);

} // namespace korvane
