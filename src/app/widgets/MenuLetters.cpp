#include "app/widgets/MenuLetters.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>

namespace korvane {

namespace {

bool isMnemonic(const QString& text, QChar letter) {
    const QKeySequence mnemonic = QKeySequence::mnemonic(text);
    return !mnemonic.isEmpty() && mnemonic == QKeySequence::mnemonic(u'&' + QString(letter));
}

bool beginsWith(const QString& text, QChar letter) {
    const qsizetype first = text.startsWith(u'&') ? 1 : 0;
    return text.size() > first && text.at(first).toCaseFolded() == letter.toCaseFolded();
}

/// Filters the keys of a menu.
class MenuLetters : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* menu = qobject_cast<QMenu*>(watched);
        if (menu != nullptr && event->type() == QEvent::KeyPress) {
            const auto& key = dynamic_cast<const QKeyEvent&>(*event);
            // letters with Alt are for the menu bar
            const bool plain = (key.modifiers() & ~Qt::KeyboardModifiers(Qt::ShiftModifier)) == 0;
            if (plain && key.text().size() == 1 && key.text().front().isLetterOrNumber()) {
                return take(*menu, key.text().front());
            }
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    /// Returns false if the menu should handle the letter.
    static bool take(QMenu& menu, QChar letter) {
        const QList<QAction*> actions = menu.actions();
        std::vector<MenuItem> items;
        for (const QAction* action : actions) {
            items.push_back({action->isVisible() ? action->text() : QString(),
                             action->isEnabled() && !action->isSeparator()});
        }
        const qsizetype at = actions.indexOf(menu.activeAction());
        const auto current = at < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(at));
        const auto target = menuLetterTarget(items, current, letter);
        if (!target) {
            return false;
        }
        menu.setActiveAction(actions[static_cast<qsizetype>(target->item)]);
        if (target->carriedOut) {
            QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
            QCoreApplication::sendEvent(&menu, &enter);
        }
        return true;
    }
};

} // namespace

std::optional<MenuLetterTarget> menuLetterTarget(const std::vector<MenuItem>& items,
                                                 std::optional<std::size_t> current, QChar letter) {
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (isMnemonic(items[i].text, letter)) {
            return std::nullopt;
        }
        if (items[i].enabled && beginsWith(items[i].text, letter)) {
            found.push_back(i);
        }
    }
    if (found.empty()) {
        return std::nullopt;
    }
    std::size_t next = found.front();
    for (std::size_t i = found.size(); i-- > 0 && current && found[i] > *current;) {
        next = found[i];
    }
    return MenuLetterTarget{next, found.size() == 1};
}

void actOnFirstLetters(QWidget& window) {
    for (QMenu* menu : window.findChildren<QMenu*>()) {
        menu->installEventFilter(new MenuLetters(menu));
    }
}

} // namespace korvane
