#include "app/shell/ModelClipboard.h"
#include "support/MainFormTest.h"
#include "support/TextModel.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMdiArea>
#include <QMessageBox>
#include <QMimeData>
#include <QTest>

#include <string>
#include <utility>

namespace korvane::test {
namespace {

const QString blockFormat = QStringLiteral("Korvane II Model Editor, String");

/// Two windows, each with the small model; the first one is active.
class ClipboardCommands : public MainFormTest {
  protected:
    ClipboardCommands() {
        QApplication::clipboard()->clear();
        start({write("a.xsi", smallModel()), write("b.xsi", smallModel())});
        activate(0);
    }

    void activate(qsizetype window) const {
        child<QMdiArea>(form(), "MDIArea").setActiveSubWindow(form().documents().at(window));
    }
    void selectMaterials() const { select("Materials"); }
    [[nodiscard]] std::string enabled() const {
        return namesOf("EditCut EditCopy EditPaste", &QAction::isEnabled);
    }
    [[nodiscard]] std::string bytes() const { return writeText(document()); }
    static QByteArray clipboardBlock() {
        return QApplication::clipboard()->mimeData()->data(blockFormat);
    }
    /// As another program might.
    static void offer(std::initializer_list<std::pair<QString, QByteArray>> formats) {
        auto* data = new QMimeData; // the clipboard takes it over
        for (const auto& [format, content] : formats) {
            data->setData(format, content);
        }
        QApplication::clipboard()->setMimeData(data);
    }
};

TEST_F(ClipboardCommands, AreEnabledBySelectionAndContent) {
    const struct {
        std::string node;
        std::string withFrame;
        std::string withMaterials;
    } rows[] = {{bodyNode, "EditCopy EditPaste ", "EditCopy "},
                {bodyMesh, "", ""},
                {bodyMaterials, "EditCopy ", "EditCopy EditPaste "},
                {"Materials", "EditCopy ", "EditCopy EditPaste "}};
    select(bodyNode);
    EXPECT_EQ(enabled(), "EditCopy "); // there is nothing to paste yet
    run("EditCopy");
    for (const auto& row : rows) {
        select(row.node);
        EXPECT_EQ(enabled(), row.withFrame) << row.node;
    }
    selectMaterials();
    run("EditCopy");
    for (const auto& row : rows) {
        select(row.node);
        EXPECT_EQ(enabled(), row.withMaterials) << row.node;
    }
    for (TMDIChild* document : form().documents()) {
        document->close();
    }
    EXPECT_EQ(enabled(), "");
}

TEST_F(ClipboardCommands, AFrameGoesFromWindowToWindowAndBackOutAgain) {
    select(bodyNode);
    run("EditCopy");
    activate(1);
    const std::string before = bytes();
    select(bodyNode + "/Frame frm-wing");
    run("EditPaste");
    EXPECT_EQ(document().Root.Children[0].Children.size(), 2U);
    EXPECT_EQ(document().Materials.size(), 4U);
    select(bodyNode + "/Frame frm-wing/" + bodyMaterials + "/Material 4"); // the tree shows it
    EXPECT_TRUE(document().Modified);
    const std::string after = bytes();
    run("EditUndo1");
    EXPECT_EQ(bytes(), before);
    run("EditRedo1");
    EXPECT_EQ(bytes(), after);
    activate(0);
    EXPECT_EQ(bytes(), before);
    EXPECT_FALSE(document().Modified);
}

TEST_F(ClipboardCommands, MaterialsOutliveTheWindowTheyCameFrom) {
    selectMaterials();
    run("EditCopy");
    window().close();
    settle();
    select(bodyMaterials);
    run("EditPaste");
    EXPECT_EQ(document().Root.Mesh.MaterialSlotList, (std::vector<std::int32_t>{0, 1, 2, 3}));
    run("EditUndo1");
    EXPECT_EQ(document().Materials.size(), 2U);
    selectMaterials();
    run("EditPaste");
    EXPECT_EQ(document().Materials.size(), 4U);
    EXPECT_EQ(document().Root.Mesh.MaterialSlotList.size(), 2U);
}

TEST_F(ClipboardCommands, DamagedBlocksChangeNothing) {
    select(bodyNode);
    run("EditCopy");
    const QByteArray block = clipboardBlock();
    const std::string before = bytes();
    offer({{blockFormat, block.first(block.size() - 1)}});
    answerBox(QStringLiteral("PasteFailure"),
              QStringLiteral("The clipboard gives nothing that can be pasted."),
              QStringLiteral("Unable to paste"), QMessageBox::Ok, QMessageBox::Ok);
    run("EditPaste");
    EXPECT_EQ(bytes(), before);
    EXPECT_FALSE(window().canUndo());
    offer({{blockFormat, block.first(3)}});
    EXPECT_EQ(enabled(), "EditCopy ");
    offer({{blockFormat + QStringLiteral(", Content"), block.first(4)}}); // without the block
    EXPECT_EQ(enabled(), "EditCopy ");
    offer({{blockFormat, block}}); // by a program that offers the block alone
    run("EditPaste");
    EXPECT_NE(bytes(), before);
    QApplication::clipboard()->setText(QStringLiteral("text"));
    EXPECT_EQ(enabled(), "EditCopy ");
}

/// A clipboard content that counts how often its formats and its bytes are asked for.
class Counting : public QMimeData {
  public:
    explicit Counting(const QByteArray& block) : block_(block) {}
    QStringList formats() const override {
        ++questions;
        return {blockFormat, blockFormat + QStringLiteral(", Content")};
    }
    QVariant retrieveData(const QString& format, QMetaType /*type*/) const override {
        fetched += format == blockFormat ? 1 : 0;
        return format == blockFormat ? block_ : block_.first(4);
    }

    mutable int questions = 0;
    mutable int fetched = 0;

  private:
    QByteArray block_;
};

TEST_F(ClipboardCommands, TheClipboardIsAskedOnceForEachChange) {
    select(bodyNode);
    run("EditCopy");
    auto* counting = new Counting(clipboardBlock());
    QApplication::clipboard()->setMimeData(counting);
    settle();
    counting->questions = 0; // the platform may ask on its own, on behalf of others
    ModelClipboard clipboard;
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(clipboard.content(), ClipboardContent::Frame);
    }
    EXPECT_EQ(counting->questions, 1);
    EXPECT_EQ(enabled(), "EditCopy EditPaste ");
    const int questions = counting->questions;
    for (int i = 0; i < 10; ++i) {
        settle();
    }
    EXPECT_EQ(counting->questions, questions);
    EXPECT_EQ(counting->fetched, 0);
    run("EditPaste");
    EXPECT_EQ(counting->fetched, 1);
}

TEST_F(ClipboardCommands, KeysWorkInTheTreeAndBelongToATextFieldThatHasTheFocus) {
    select(bodyNode);
    tree().setFocus();
    settle();
    QTest::keyClick(&tree(), Qt::Key_C, Qt::ControlModifier);
    const QByteArray block = clipboardBlock();
    EXPECT_FALSE(block.isEmpty());
    settle();
    QTest::keyClick(&tree(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(document().Root.Children.size(), 2U);
    select(bodyMesh); // which cannot be copied: neither is its text
    settle();
    QTest::keyClick(&tree(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboardBlock(), block);

    select(bodyNode);
    QLineEdit field(QStringLiteral("some text"), window().widget());
    field.show();
    field.setFocus();
    settle();
    ASSERT_TRUE(field.hasFocus());
    EXPECT_EQ(enabled(), "EditCopy EditPaste ");
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(field.text(), QString());
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("some text"));
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field.text(), QStringLiteral("some textsome text"));
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), field.text());
    EXPECT_EQ(document().Root.Children.size(), 2U);
}

} // namespace
} // namespace korvane::test
