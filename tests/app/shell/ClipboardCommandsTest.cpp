#include "app/shell/ModelClipboard.h"
#include "support/MainFormTest.h"
#include "support/TextModel.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMdiArea>
#include <QMessageBox>
#include <QMimeData>

namespace korvane::test {
namespace {

const QString blockFormat = QStringLiteral("Korvane II Model Editor, String");

/// What another program may offer; it counts how often its formats and its block are asked for.
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

/// Two windows, each with the small model; the first one is active and its root is selected.
class ClipboardCommands : public MainFormTest {
  protected:
    ClipboardCommands() {
        QApplication::clipboard()->clear();
        start({write("a.xsi", smallModel()), write("b.xsi", smallModel())});
        activate(0);
    }

    void activate(qsizetype window) const {
        child<QMdiArea>(form(), "MDIArea").setActiveSubWindow(form().documents().at(window));
        select(bodyNode);
    }
    [[nodiscard]] std::string enabled() const {
        return namesOf("EditCut EditCopy EditPaste", &QAction::isEnabled);
    }
    static QByteArray copied() { return QApplication::clipboard()->mimeData()->data(blockFormat); }
    /// Offers a block and its content, but for those that are empty.
    static const Offered& offer(const QByteArray& block, const QByteArray& content) {
        auto* data = new Offered; // the clipboard takes it over
        const QString formats[] = {blockFormat, blockFormat + QStringLiteral(", Content")};
        for (const auto& [format, bytes] : {std::pair(0, block), std::pair(1, content)}) {
            if (!bytes.isEmpty()) {
                data->setData(formats[format], bytes);
            }
        }
        QApplication::clipboard()->setMimeData(data);
        settle();
        data->questions = 0; // the platform may ask on its own, on behalf of others
        return *data;
    }
};

TEST_F(ClipboardCommands, FramesAndMaterialsGoFromWindowToWindow) {
    EXPECT_EQ(enabled(), "EditCopy ") << "there is nothing to paste yet";
    run("EditCopy");
    EXPECT_EQ(enabled(), "EditCopy EditPaste ");
    select("Materials");
    EXPECT_EQ(enabled(), "EditCopy ") << "no place for a frame";
    select(bodyMesh);
    EXPECT_EQ(enabled(), "");
    activate(1);
    select(bodyNode + "/Frame frm-wing");
    run("EditPaste");
    select(bodyNode + "/Frame frm-wing/" + bodyMaterials + "/Material 4"); // the tree shows it
    run("EditUndo1");
    EXPECT_EQ(document().Materials.size(), 2U);
    run("EditRedo1");
    EXPECT_EQ(document().Materials.size(), 4U);
    activate(0);
    EXPECT_FALSE(document().Modified);
    select("Materials");
    run("EditCopy");
    run("FileClose1"); // what was copied outlives its window
    select(bodyMaterials);
    run("EditPaste");
    EXPECT_EQ(document().Root.Mesh.MaterialSlotList, (std::vector<std::int32_t>{0, 1, 4, 5}));
    window().closeUnasked();
    EXPECT_EQ(enabled(), "");
}

TEST_F(ClipboardCommands, WhatOtherProgramsOfferIsAskedForOnceAndTakenAsFarAsItIsSound) {
    run("EditCopy");
    const QByteArray block = copied();
    const std::string before = writeText(document());
    const Offered& offered = offer(block, block.first(4));
    ModelClipboard clipboard;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(clipboard.content(), ClipboardContent::Frame);
        EXPECT_EQ(enabled(), "EditCopy EditPaste ");
    }
    EXPECT_EQ(offered.questions, 1) << "the frame had asked before";
    EXPECT_EQ(offered.fetched, 0);
    run("EditPaste");
    EXPECT_EQ(offered.fetched, 1);
    run("EditUndo1");
    const std::tuple<QByteArray, QByteArray, const char*> rows[] = {
        {block.first(3), {}, "EditCopy "},
        {{}, block.first(4), "EditCopy "},
        {block.chopped(1), {}, "EditCopy EditPaste "}};
    for (const auto& [bytes, content, expected] : rows) {
        offer(bytes, content);
        EXPECT_EQ(enabled(), expected) << bytes.size();
    }
    answerBox(QStringLiteral("PasteFailure"),
              QStringLiteral("The clipboard gives nothing that can be pasted."),
              QStringLiteral("Unable to paste"), QMessageBox::Ok, QMessageBox::Ok);
    run("EditPaste");
    EXPECT_EQ(writeText(document()), before);
    QApplication::clipboard()->setText(QStringLiteral("text"));
    EXPECT_EQ(enabled(), "EditCopy ");
}

TEST_F(ClipboardCommands, KeysWorkInTheTreeAndBelongToATextFieldThatHasTheFocus) {
    const auto press = [](QWidget& widget, char key) {
        settle();
        QTest::keyClick(&widget, key, Qt::ControlModifier);
    };
    tree().setFocus();
    press(tree(), 'c');
    const QByteArray block = copied();
    EXPECT_FALSE(block.isEmpty());
    press(tree(), 'v');
    EXPECT_EQ(document().Root.Children.size(), 2U);
    select(bodyMesh); // which cannot be copied: neither is its text
    press(tree(), 'c');
    EXPECT_EQ(copied(), block);

    select(bodyNode);
    QLineEdit field(QStringLiteral("some text"), window().widget());
    field.show();
    field.setFocus();
    settle();
    ASSERT_TRUE(field.hasFocus());
    EXPECT_EQ(enabled(), "EditCopy EditPaste ");
    for (const char key : {'a', 'x', 'v', 'v', 'a', 'c'}) {
        press(field, key);
    }
    EXPECT_EQ(field.text(), QStringLiteral("some textsome text"));
    EXPECT_EQ(QApplication::clipboard()->text(), field.text());
    EXPECT_EQ(document().Root.Children.size(), 2U);
}

} // namespace
} // namespace korvane::test
