#include "edit/forms/TOKBottomDlg.h"

#include "support/GuiTest.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace korvane::test {
namespace {

class TOKBottomDlgTest : public GuiTest {
  protected:
    TOKBottomDlgTest() {
        QImage picture(3, 2, QImage::Format_RGB32);
        picture.fill(Qt::red);
        EXPECT_TRUE(picture.save(path("a.bmp")) && picture.scaled(5, 4).save(path("b.BMP")));
        for (const char* name : {"broken.pic", "notes.txt", "more/c.tga"}) {
            write(name, "no picture");
        }
    }

    void show(QDialog::DialogCode result, const std::function<void()>& steps) {
        answer([this, steps](QWidget& shown) {
            ASSERT_EQ(&shown, &dialog);
            // the lists are filled in the background, and sorted a little later
            waitForFiles("a.bmp b.BMP broken.pic ");
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog)); // controls get no focus before
            steps();
            if (dialog.isVisible()) {
                ADD_FAILURE() << "the dialog is still open";
                dialog.reject();
            }
        });
        settle(); // until the previous one is hidden
        dialog.reset(folder());
        EXPECT_EQ(dialog.exec(), result);
    }
    [[nodiscard]] QModelIndex item(int row) const {
        return list.model()->index(row, 0, list.rootIndex());
    }
    void choose(int row) const { list.setCurrentIndex(item(row)); }
    void waitForFiles(const std::string& names) const {
        std::string files;
        EXPECT_TRUE(QTest::qWaitFor([&] {
            files.clear();
            for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row) {
                files += item(row).data().toString().toStdString() + ' ';
            }
            return files == names;
        })) << files;
    }
    void click(const char* button) const { child<QPushButton>(dialog, button).click(); }
    void type(const QString& text) const {
        edit.selectAll();
        QTest::keyClicks(&edit, text);
        QTest::keyClick(&edit, Qt::Key_Return);
    }
    /// Chooses an item of a combo box like a user.
    void choose(const char* name, const QString& item) const {
        auto& box = child<QComboBox>(dialog, name);
        const int place = box.findData(item);
        ASSERT_GE(place, 0);
        box.setCurrentIndex(place);
        Q_EMIT box.activated(place);
    }
    [[nodiscard]] QString title() const { return dialog.windowTitle(); }

    TOKBottomDlg dialog{nullptr};
    QAbstractItemView& list = child<QAbstractItemView>(dialog, "FileListBox1");
    QLineEdit& edit = child<QLineEdit>(dialog, "Edit1");
    QLabel& preview = child<QLabel>(dialog, "Image1");
};

TEST_F(TOKBottomDlgTest, PreviewsEachFileAndReturnsTheLastOne) {
    const auto& size = child<QLabel>(dialog, "PreviewSize");
    show(QDialog::Accepted, [&] {
        choose(0);
        EXPECT_EQ(title() + edit.text() + size.text(),
                  QStringLiteral("Load Texture - [a.bmp]a.bmp( 3 x 2 )"));
        EXPECT_EQ(preview.pixmap(Qt::ReturnByValue).toImage().pixelColor(1, 1), Qt::red);
        choose(2);
        EXPECT_EQ(title() + size.text(), QStringLiteral("Load Texture - [broken.pic]"));
        EXPECT_TRUE(preview.text().startsWith(u"This file cannot be shown."));
        const QPoint at = list.visualRect(item(1)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, at);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, at);
    });
    EXPECT_EQ(dialog.fileName(), path("b.BMP"));
    EXPECT_EQ(dialog.loadedImage()->width, 5);
    // the next time it is in the same folder, without a choice
    show(QDialog::Accepted, [&] {
        EXPECT_EQ(dialog.loadedImage(), nullptr);
        EXPECT_EQ(title() + edit.text(), QStringLiteral("Load Texture*.bmp;*.tga;*.pic"));
        EXPECT_FALSE(list.currentIndex().isValid());
        EXPECT_FALSE(child<QPushButton>(dialog, "OKBtn").isEnabled());
        dialog.accept();
        EXPECT_TRUE(dialog.isVisible()) << "nothing to load";
        type(path("more/c.tga"));
        EXPECT_TRUE(preview.text().startsWith(u"This file cannot be shown."));
        EXPECT_TRUE(dialog.isVisible()) << "only warns the first time";
        click("OKBtn");
    });
    EXPECT_EQ(dialog.fileName(), path("more/c.tga"));
    EXPECT_TRUE(dialog.isAccepted());
    show(QDialog::Rejected, [&] {
        EXPECT_TRUE(dialog.isAccepted()) << "the list had the focus";
        dialog.reset(QString());
        EXPECT_FALSE(dialog.isAccepted());
        edit.setFocus();
        EXPECT_TRUE(dialog.isAccepted()) << "the name had the focus";
        choose(0);
        click("CancelBtn");
    });
    EXPECT_FALSE(dialog.isAccepted());
}

TEST_F(TOKBottomDlgTest, FiltersAndFoldersControlTheList) {
    const auto& folders = child<QAbstractItemView>(dialog, "DirectoryListBox1");
    const auto expectFolder = [&](const QString& name) {
        EXPECT_EQ(folders.currentIndex().data().toString(), name);
    };
    show(QDialog::Accepted, [&] {
        choose(0);
        choose("FilterComboBox1", QStringLiteral("*.pic"));
        waitForFiles("broken.pic ");
        EXPECT_EQ(edit.text(), QStringLiteral("*.pic"));
        EXPECT_EQ(dialog.loadedImage(), nullptr) << "the chosen file is no longer listed";
        expectFolder(folder().section(u'/', -1));
        type(QStringLiteral("more"));
        expectFolder(QStringLiteral("more"));
        type(QStringLiteral("*.t*"));
        waitForFiles("c.tga ");
        type(QStringLiteral("none.tga"));
        EXPECT_EQ(preview.text(), QStringLiteral("There is no file of this name."));
        dialog.accept();
        EXPECT_TRUE(dialog.isVisible()) << "still nothing to load";
        choose("DriveComboBox1", QStringLiteral("/"));
        expectFolder(QStringLiteral("/"));
        type(path("a.bmp"));
    });
    EXPECT_EQ(dialog.fileName(), path("a.bmp"));
}

} // namespace
} // namespace korvane::test
