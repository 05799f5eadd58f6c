#include "app/widgets/MenuLetters.h"

#include "support/GuiTest.h"

#include <QMenu>
#include <QTest>

namespace korvane::test {
namespace {

/// Items by their texts; a "-" in front disables one.
std::vector<MenuItem> menuOf(const char* texts) {
    std::vector<MenuItem> items;
    for (const QString& text : QString::fromLatin1(texts).split(u'|')) {
        const bool disabled = text.startsWith(u'-');
        items.push_back({disabled ? text.mid(1) : text, !disabled});
    }
    return items;
}

TEST(MenuLetters, MeanTheItemsThatBeginWithThem) {
    const char* file = "&New|&Open File|Save|Save As|-&Close||E&xit";
    const char* fresh = "&New|&Open File|-Save|Save As|-&Close||E&xit";
    const auto none = std::optional<MenuLetterTarget>();
    const auto at = [](std::size_t item) { return std::optional(MenuLetterTarget{item, false}); };
    const auto done = [](std::size_t item) { return std::optional(MenuLetterTarget{item, true}); };
    struct Case {
        const char* items;
        std::optional<std::size_t> current;
        char letter;
        std::optional<MenuLetterTarget> target;
    };
    const Case cases[] = {{file, std::nullopt, 's', at(2)},
                          {file, 2, 's', at(3)},
                          {file, 3, 'S', at(2)},
                          {file, 0, 's', at(2)},
                          {fresh, std::nullopt, 's', done(3)},
                          {fresh, 3, 's', done(3)},
                          {file, std::nullopt, 'e', done(6)},
                          {file, std::nullopt, 'n', none},
                          {file, std::nullopt, 'c', none},
                          {file, std::nullopt, 'x', none},
                          {file, std::nullopt, 'q', none},
                          {"-Cut|Copy|-Undo", std::nullopt, 'c', done(1)},
                          {"-Cut|Copy|-Undo", std::nullopt, 'u', none},
                          {"&1 small.xsi|10 other.xsi", std::nullopt, '1', none}};
    for (const auto& [items, current, letter, target] : cases) {
        EXPECT_EQ(menuLetterTarget(menuOf(items), current, QChar::fromLatin1(letter)), target)
            << items << ' ' << letter << (current ? static_cast<int>(*current) : -1);
    }
}

using MenuLettersTest = GuiTest;

TEST_F(MenuLettersTest, AnOpenMenuActsOnThem) {
    QWidget window;
    auto* menu = new QMenu(&window);
    std::string done;
    for (const char* text : {"Save", "Save As", "Redo"}) {
        menu->addAction(QString::fromLatin1(text), &window, [&done, text] { done += text; });
    }
    actOnFirstLetters(window);
    menu->popup({10, 10});
    QTest::keyClicks(menu, QStringLiteral("ss"));
    EXPECT_EQ(menu->activeAction(), menu->actions().at(1));
    EXPECT_EQ(done, "");
    QTest::keyClick(menu, 'r');
    EXPECT_EQ(done, "Redo");
    EXPECT_FALSE(menu->isVisible());
}

} // namespace
} // namespace korvane::test
