#include "edit/forms/TOKBottomDlg.h"

#include "support/GuiTest.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace korvane::test {
namespace {

/// A picture of one colour and 24 bits.
std::string tga(int width, int height) {
    std::string bytes(18, '\0');
    bytes[2] = 2;
    bytes[12] = static_cast<char>(width);
    bytes[14] = static_cast<char>(height);
    bytes[16] = 24;
    return bytes + std::string(static_cast<std::size_t>(width * height * 3), 'a');
}

class TOKBottomDlgTest : public GuiTest {
  protected:
    TOKBottomDlgTest() {
        for (const auto& [name, content] : {std::pair<const char*, std::string>{"a.tga", tga(3, 2)},
                                            {"b.TGA", tga(5, 4)},
                                            {"broken.pic", "no picture"},
                                            {"notes.txt", "text"},
                                            {"more/c.bmp", "nothing"}}) {
            write(name, content);
        }
    }

    int show(const std::function<void()>& steps) {
        answer([this, steps](QWidget& shown) {
            ASSERT_EQ(&shown, &dialog);
            // the lists are filled from the disk in the background
            EXPECT_TRUE(QTest::qWaitFor([&] { return !files().empty(); }));
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog)); // only then is a control entered
            try {
                steps();
            } catch (const std::exception& failure) {
                ADD_FAILURE() << failure.what();
            }
            if (dialog.isVisible()) {
                ADD_FAILURE() << "the dialog is still open";
                dialog.reject();
            }
        });
        settle(); // the one shown before is seen to be gone
        dialog.reset(QFileInfo(path("a.tga")).path());
        return dialog.exec();
    }
    [[nodiscard]] QAbstractItemView& list() const {
        return child<QAbstractItemView>(dialog, "FileListBox1");
    }
    [[nodiscard]] std::string files() const {
        std::string names;
        for (int row = 0; row < list().model()->rowCount(list().rootIndex()); ++row) {
            names += item(row).data().toString().toStdString() + ' ';
        }
        return names;
    }
    [[nodiscard]] QModelIndex item(int row) const {
        return list().model()->index(row, 0, list().rootIndex());
    }
    void waitForFiles(const std::string& names) const {
        EXPECT_TRUE(QTest::qWaitFor([&] { return files() == names; })) << files();
    }
    void click(const char* button) const { child<QPushButton>(dialog, button).click(); }
    void type(const QString& text) const {
        auto& edit = child<QLineEdit>(dialog, "Edit1");
        edit.selectAll();
        QTest::keyClicks(&edit, text);
        QTest::keyClick(&edit, Qt::Key_Return);
    }
    [[nodiscard]] QString edit() const { return child<QLineEdit>(dialog, "Edit1").text(); }
    [[nodiscard]] QLabel& preview() const { return child<QLabel>(dialog, "Image1"); }

    TOKBottomDlg dialog{nullptr};
};

TEST_F(TOKBottomDlgTest, PreviewsEachFileAndHandsTheLastOneOver) {
    const auto& size = child<QLabel>(dialog, "PreviewSize");
    const QString cannotShow = QStringLiteral("This file cannot be shown.");
    const auto previews = [&] {
        waitForFiles("a.tga b.TGA broken.pic "); // sorted a little later
        list().setCurrentIndex(item(0));
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Load Texture - [a.tga]"));
        EXPECT_EQ(edit(), QStringLiteral("a.tga"));
        EXPECT_EQ(preview().pixmap(Qt::ReturnByValue).toImage().pixelColor(1, 1),
                  QColor('a', 'a', 'a'));
        EXPECT_EQ(size.text(), QStringLiteral("( 3 x 2 )"));
        list().setCurrentIndex(item(2));
        EXPECT_EQ(size.text(), QString());
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Load Texture - [broken.pic]"));
        EXPECT_TRUE(preview().text().startsWith(cannotShow));
        EXPECT_NE(dialog.loadedImage(), nullptr) << "it can be loaded all the same";
        list().setCurrentIndex(item(1));
        click("OKBtn");
    };
    EXPECT_EQ(show(previews), QDialog::Accepted);
    EXPECT_EQ(dialog.fileName(), path("b.TGA"));
    ASSERT_NE(dialog.loadedImage(), nullptr);
    EXPECT_EQ(dialog.loadedImage()->width, 5);
    // the next time nothing is chosen, in the folder where it was left
    const auto nothing = [&] {
        EXPECT_EQ(dialog.loadedImage(), nullptr);
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Load Texture"));
        EXPECT_EQ(edit(), QStringLiteral("*.bmp;*.tga;*.pic"));
        EXPECT_FALSE(list().currentIndex().isValid());
        EXPECT_FALSE(child<QPushButton>(dialog, "OKBtn").isEnabled());
        dialog.accept();
        EXPECT_TRUE(dialog.isVisible()) << "there is nothing to load";
        dialog.reject();
    };
    EXPECT_EQ(show(nothing), QDialog::Rejected);
    EXPECT_TRUE(dialog.fileName().isEmpty());
    const auto typed = [&] {
        type(path("more/c.bmp"));
        EXPECT_TRUE(preview().text().startsWith(cannotShow));
        EXPECT_TRUE(dialog.isVisible()) << "warned";
        click("OKBtn");
    };
    EXPECT_EQ(show(typed), QDialog::Accepted);
    EXPECT_EQ(dialog.fileName(), path("more/c.bmp"));
}

TEST_F(TOKBottomDlgTest, TheAcceptedFlagFollowsItsEvents) {
    const std::pair<std::function<void()>, int> ways[] = {
        {[&] {
             child<QComboBox>(dialog, "FilterComboBox1").setFocus();
             dialog.reset(QString());
             EXPECT_FALSE(dialog.isAccepted());
             child<QLineEdit>(dialog, "Edit1").setFocus();
             EXPECT_TRUE(dialog.isAccepted()) << "the edit was entered";
             list().setCurrentIndex(item(0));
             click("CancelBtn");
         },
         QDialog::Rejected},
        {[&] {
             list().setFocus();
             EXPECT_TRUE(dialog.isAccepted()) << "the list was entered";
             QTest::keyClick(&dialog, Qt::Key_Escape);
         },
         QDialog::Rejected},
        {[&] { list().setCurrentIndex(item(0)), dialog.close(); }, QDialog::Rejected},
        {[&] {
             list().scrollTo(item(1));
             const QPoint at = list().visualRect(item(1)).center();
             QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, at);
             QTest::mouseDClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, at);
         },
         QDialog::Accepted}};
    for (const auto& [way, result] : ways) {
        EXPECT_EQ(show(way), result);
        EXPECT_EQ(dialog.isAccepted(), result == QDialog::Accepted);
    }
    EXPECT_EQ(dialog.fileName(), path("b.TGA"));
}

TEST_F(TOKBottomDlgTest, FiltersAndFoldersDecideWhatIsListed) {
    show([&] {
        auto& filters = child<QComboBox>(dialog, "FilterComboBox1");
        list().setCurrentIndex(item(0));
        filters.setCurrentIndex(3);
        Q_EMIT filters.activated(3);
        waitForFiles("broken.pic ");
        EXPECT_EQ(edit(), QStringLiteral("*.pic"));
        EXPECT_EQ(dialog.loadedImage(), nullptr) << "what is not in the list is not chosen";
        auto& folders = child<QAbstractItemView>(dialog, "DirectoryListBox1");
        EXPECT_EQ(folders.currentIndex().data().toString(),
                  QFileInfo(path(".")).canonicalFilePath().section(u'/', -1));
        type(QStringLiteral("more"));
        EXPECT_EQ(folders.currentIndex().data().toString(), QStringLiteral("more"));
        type(QStringLiteral("*.b*"));
        waitForFiles("c.bmp ");
        type(QStringLiteral("none.tga"));
        EXPECT_EQ(preview().text(), QStringLiteral("There is no file of this name."));
        EXPECT_EQ(dialog.loadedImage(), nullptr);
        dialog.accept();
        EXPECT_TRUE(dialog.isVisible()) << "there is still nothing to load";
        auto& drives = child<QComboBox>(dialog, "DriveComboBox1");
        EXPECT_GE(drives.findData(QStringLiteral("/")), 0);
        drives.setCurrentIndex(drives.findData(QStringLiteral("/")));
        Q_EMIT drives.activated(drives.currentIndex());
        EXPECT_EQ(folders.currentIndex().data().toString(), QStringLiteral("/"));
        type(path("a.tga"));
    });
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.fileName(), path("a.tga"));
}

} // namespace
} // namespace korvane::test
