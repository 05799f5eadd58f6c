#include "app/widgets/Hints.h"
#include "support/MainFormTest.h"
#include "support/TextModel.h"

#include <QTextBlock>
#include <QToolButton>

namespace korvane::test {
namespace {

using HelpTest = MainFormTest;

QStringList headingsOf(const TGuide& guide) {
    QStringList links;
    for (QTextBlock block = guide.document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0) {
            links += TGuide::linkOf(block.text());
        }
    }
    return links;
}

TEST_F(HelpTest, FocusableControlsHaveAHintAndASectionOfTheGuide) {
    start({write("m.xsi", smallModel())});
    TGuide guide(nullptr);
    guide.showSection({});
    const QStringList headings = headingsOf(guide);
    int controls = 0;
    for (const QWidget* control : QApplication::allWidgets()) {
        const QWidget* window = control->window();
        const bool focus =
            (control->focusPolicy() & Qt::TabFocus) != 0 && control->focusProxy() == nullptr;
        if (!focus || window == &guide || control->inherits("QMdiSubWindow") ||
            control->inherits("QMdiArea") || !control->isEnabledTo(window)) {
            continue;
        }
        bool hinted = control->objectName().startsWith(u"Image"); // the text about the pointer
        for (const QWidget* at = control; at != nullptr && !hinted; at = at->parentWidget()) {
            hinted = !at->statusTip().isEmpty();
        }
        EXPECT_TRUE(hinted) << control->objectName().toStdString();
        EXPECT_TRUE(headings.contains(guideSection(control)))
            << control->objectName().toStdString();
        ++controls;
    }
    EXPECT_GT(controls, 40);
    EXPECT_TRUE(headings.contains(guideSection(&form())));
    for (QTextBlock block = guide.document()->begin(); block.isValid(); block = block.next()) {
        for (const QTextLayout::FormatRange& part : block.textFormats()) {
            const QString link = part.format.anchorHref();
            EXPECT_TRUE(!link.startsWith(u'#') || link == u"#names" ||
                        headings.contains(link.mid(1)))
                << link.toStdString();
        }
    }
}

TEST_F(HelpTest, StatusBarShowsHintsUntilThereIsAMessage) {
    start({write("m.xsi", smallModel())});
    EXPECT_FALSE(child<QLabel>(form(), "BeginHint").isVisible());
    QEnterEvent enter({1, 1}, {1, 1}, {1, 1});
    QApplication::sendEvent(&button("AddButton"), &enter);
    EXPECT_EQ(status(), "Add a frame below the selected one, or a material");
    button("AddButton").click();
    run("EditUndo1");
    EXPECT_EQ(status(), "Undone: add frame");
    answer([&](QWidget& dialog) {
        QApplication::sendEvent(&child<QWidget>(dialog, "MeshBox"), &enter);
        EXPECT_EQ(status(), "Draw and save the mesh of the frame");
        QTest::keyClick(&child<QWidget>(dialog, "MeshBox"), Qt::Key_F1);
        auto& guide = child<TGuide>(dialog, "Guide");
        EXPECT_EQ(guide.source().fragment(), QStringLiteral("the-structure"));
        EXPECT_TRUE(guide.isVisible());
        dialog.close();
    });
    button("EditButton").click();
    settle();
    EXPECT_EQ(status(), "1 mesh, 2 faces") << "a dialog clears its hint";
    const auto& open = child<QToolButton>(form(), "FileOpen1Button");
    EXPECT_EQ(open.toolTip(), QStringLiteral("Open (Ctrl+O)"));
    answer<QMessageBox>([](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_F1);
        EXPECT_TRUE(child<TGuide>(box, "Guide").isVisible());
        box.done(QMessageBox::No);
    });
    run("FileClose1");
    auto* guide = form().findChild<TGuide*>({}, Qt::FindDirectChildrenOnly);
    ASSERT_TRUE(guide != nullptr && guide->isVisible()) << "the guide outlives its dialog";
    QTest::keyClick(guide, Qt::Key_Escape);
    EXPECT_FALSE(guide->isVisible());
    EXPECT_TRUE(child<QLabel>(form(), "BeginHint").isVisible());
}

TEST_F(HelpTest, KeysSwitchAndCloseWindows) {
    start();
    for (int i = 0; i < 3; ++i) {
        run("FileNew1");
    }
    const std::tuple<Qt::KeyboardModifiers, Qt::Key, const char*> keys[] = {
        {Qt::ControlModifier, Qt::Key_F6, "Untitled 1"},
        {Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_F6, "Untitled 3"},
        {Qt::ControlModifier, Qt::Key_F4, "Untitled 1"},
        {Qt::ControlModifier, Qt::Key_W, "Untitled 2"}}; // this desktop's own key
    for (const auto& [held, key, active] : keys) {
        if (key != Qt::Key_F6) {
            answerCloseQuestion(window().windowTitle(), QMessageBox::No);
        }
        QTest::keyClick(QApplication::focusWidget(), key, held);
        settle();
        EXPECT_EQ(window().windowTitle(), QString::fromLatin1(active));
    }
}

} // namespace
} // namespace korvane::test
