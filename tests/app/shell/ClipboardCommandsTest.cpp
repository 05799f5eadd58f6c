#include "support/MainFormTest.h"
#include "support/TextModel.h"

#include <QClipboard>
#include <QMimeData>

namespace korvane::test {
namespace {

const QString blockFormat = QStringLiteral("Korvane II Model Editor, String");
const QString contentFormat = blockFormat + QStringLiteral(", Content");

/// Clipboard data of another program. Counts requests for its formats and its block.
class Offered : public QMimeData {
  public:
    QStringList formats() const override {
        ++questions;
        return QMimeData::formats();
    }
    QVariant retrieveData(const QString& format, QMetaType type) const override {
        fetched += format == blockFormat ? 1 : 0;
        return QMimeData::retrieveData(format, type);
    }

    mutable int questions = 0;
    mutable int fetched = 0;
};

/// Two windows with the small model, whose root is selected; the second one is active.
class ClipboardCommands : public MainFormTest {
  protected:
    ClipboardCommands() {
        QApplication::clipboard()->clear();
        start({write("a.xsi", smallModel()), write("b.xsi", smallModel())});
    }
    [[nodiscard]] std::string enabled() const {
        return namesOf("EditCut EditCopy EditPaste", &QAction::isEnabled);
    }
    static void press(QWidget& widget, const char* keys) {
        for (const char key : std::string(keys)) {
            settle();
            QTest::keyClick(&widget, key, Qt::ControlModifier);
        }
    }
    static const Offered& offer(const std::map<QString, QByteArray>& contents) {
        auto* data = new Offered; // the clipboard takes ownership
        for (const auto& [format, bytes] : contents) {
            data->setData(format, bytes);
        }
        QApplication::clipboard()->setMimeData(data);
        settle();
        data->questions = 0; // the platform may query it for other programs
        return *data;
    }
};

TEST_F(ClipboardCommands, CopyFramesAndMaterialsBetweenWindows) {
    EXPECT_EQ(enabled(), "EditCopy ") << "nothing to paste yet";
    press(tree(), "c");
    EXPECT_EQ(enabled(), "EditCopy EditPaste ");
    select("Materials");
    EXPECT_EQ(enabled(), "EditCopy ") << "a frame does not fit here";
    select(bodyMesh);
    EXPECT_EQ(enabled(), "");
    press(tree(), "c"); // must not copy the text of the node
    form().documents()[0]->setFocus();
    press(tree(), "v");
    select(bodyNode + "/" + bodyMaterials + "/Material 4"); // fails unless the tree has the paste
    form().documents()[1]->setFocus();
    EXPECT_FALSE(document().Modified);
    select("Materials");
    run("EditCopy");
    run("FileClose1"); // the copy outlives its window
    select(bodyMaterials);
    run("EditPaste");
    EXPECT_EQ(document().Root.Mesh.MaterialSlotList, (std::vector<std::int32_t>{0, 1, 4, 5}));
    window().closeUnasked();
    EXPECT_EQ(enabled(), "");
}

TEST_F(ClipboardCommands, QueryOtherProgramsOnceAndPasteOnlyValidBlocks) {
    run("EditCopy");
    const QByteArray block = QApplication::clipboard()->mimeData()->data(blockFormat);
    const Offered& offered = offer({{blockFormat, block}, {contentFormat, block.first(4)}});
    EXPECT_EQ(enabled(), "EditCopy EditPaste ");
    EXPECT_EQ(offered.questions, 0) << "the answer is cached";
    EXPECT_EQ(offered.fetched, 0);
    run("EditPaste");
    EXPECT_EQ(offered.fetched, 1);
    const std::string before = writeText(document());
    const std::tuple<QString, QByteArray, const char*> rows[] = {
        {blockFormat, block.first(3), "EditCopy "},
        {contentFormat, block.first(4), "EditCopy "},
        {QStringLiteral("text/plain"), "text", "EditCopy "},
        {blockFormat, block.chopped(1), "EditCopy EditPaste "}};
    for (const auto& [format, bytes, expected] : rows) {
        offer({{format, bytes}});
        EXPECT_EQ(enabled(), expected) << bytes.size();
    }
    answerBox(QStringLiteral("PasteFailure"),
              QStringLiteral("The clipboard contains nothing that can be pasted."),
              QStringLiteral("Unable to paste"), QMessageBox::Ok, QMessageBox::Ok);
    run("EditPaste");
    EXPECT_EQ(writeText(document()), before);
}

TEST_F(ClipboardCommands, LeaveTheirKeysToAFocusedTextField) {
    press(tree(), "c");
    QLineEdit field(QStringLiteral("some text"), window().widget());
    field.show();
    field.setFocus();
    press(field, "axvvac");
    EXPECT_EQ(field.text(), QStringLiteral("some textsome text"));
    EXPECT_EQ(QApplication::clipboard()->text(), field.text());
    EXPECT_EQ(document().Root.Children.size(), 1U);
}

} // namespace
} // namespace korvane::test
