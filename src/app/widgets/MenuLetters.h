#pragma once

#include <QString>

#include <cstddef>
#include <optional>
#include <vector>

class QWidget;

namespace korvane {

/// An item of a menu as the keyboard sees it.
struct MenuItem {
    QString text; ///< with "&" before its mnemonic
    bool enabled = true;
};

/// What a letter does in an open menu.
struct MenuLetterTarget {
    std::size_t item = 0;
    bool carriedOut = false; ///< else the item is only made the current one

    bool operator==(const MenuLetterTarget&) const = default;
};

/// The item that a letter means by its first letter: the one enabled item that begins with it,
/// which is carried out, or of several the next one behind the current item. Nothing where no item
/// begins with it, or where it is the mnemonic of one.
std::optional<MenuLetterTarget> menuLetterTarget(const std::vector<MenuItem>& items,
                                                 std::optional<std::size_t> current, QChar letter);

/// Lets letters act like that in all menus that the window has by now.
void actOnFirstLetters(QWidget& window);

} // namespace korvane
