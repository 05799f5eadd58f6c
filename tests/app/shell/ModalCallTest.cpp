#include "app/widgets/ModalCall.h"

#include "support/MainFormTest.h"
#include "support/TextModel.h"

namespace korvane::test {
namespace {

/// Clicks the control and presses Space in it, like input that was pending.
void press(QWidget& control, QPoint at = {8, 8}) {
    QTest::mouseClick(&control, Qt::LeftButton, Qt::NoModifier, at);
    QTest::keyClick(&control, Qt::Key_Space);
}

/// Delivers the input of an impatient user after the dialog has hidden and before the call that
/// shows it has returned.
class ModalCalls : public MainFormTest {
  protected:
    ModalCalls() {
        start({write("m.xsi", smallModel())});
        select(bodyNode + "/Frame frm-wing");
    }
    /// Ends the next dialog while input is pending.
    void answerWithMoreInput(int result, const QString& typed = {}) {
        answer<QDialog>([this, result, typed](QDialog& dialog) {
            if (!typed.isEmpty()) {
                child<QLineEdit>(dialog, "NameEdit").setText(typed);
            }
            dialog.done(result);
            for (QWidget* control : dialog.findChildren<QWidget*>()) {
                press(*control);
            }
            press(*tree().viewport(), tree().visualRect(node(bodyNode)).center());
            press(button("RenameButton"));
            // assistive programs press buttons and close windows without any input
            for (const char* name : {"EditButton", "DeleteButton", "AddButton"}) {
                press(button(name));
                button(name).click();
            }
            for (const char* command : {"FileNew1", "FileOpen1", "HelpAbout1"}) {
                action(command).trigger();
            }
            document().Modified = false; // otherwise closing would ask
            window().close();
            form().close();
        });
    }
    /// Uses a command or a button, and waits until it is done.
    void use(const char* name) const {
        if (auto* command = form().findChild<QAction*>(QString::fromLatin1(name))) {
            command->trigger();
        } else {
            button(name).click();
        }
        settle();
        EXPECT_TRUE(form().isVisible() && !ModalCall::running()) << name;
        ASSERT_EQ(form().documents().size(), 1) << name;
    }
};

TEST_F(ModalCalls, DropInputForCoveredWindowsUntilTheCallReturns) {
    const std::string before = writeText(document());
    const std::pair<const char*, int> dialogs[] = {
        {"EditButton", QDialog::Accepted},         {"EditButton", QDialog::Rejected},
        {"RenameButton", QDialog::Rejected},       {"HelpAbout1", QDialog::Rejected},
        {"ColorOptionsAction", QDialog::Rejected}, {"FileOpen1", QDialog::Rejected},
        {"FileSaveAs", QDialog::Rejected},         {"FileClose1", QMessageBox::Cancel}};
    for (const auto& [name, result] : dialogs) {
        document().Modified = true; // for the close question
        answerWithMoreInput(result);
        use(name);
        EXPECT_EQ(writeText(document()), before) << name;
        EXPECT_EQ(tree().currentIndex(), node(bodyNode + "/Frame frm-wing")) << name;
        EXPECT_FALSE(window().canUndo()) << name;
    }
    // the dialog's own input counts, for the frame that it was opened for
    answerWithMoreInput(QDialog::Accepted, QStringLiteral("fin"));
    use("RenameButton");
    EXPECT_EQ(document().Root.Name, "body");
    ASSERT_EQ(document().Root.Children.size(), 1U);
    EXPECT_EQ(document().Root.Children[0].Name, "fin");
    // afterwards everything works again
    use("AddButton");
    EXPECT_EQ(document().Root.Children[0].Children.size(), 2U);
}

TEST_F(ModalCalls, MaterialEditorAndItsDialogsBlockOtherInput) {
    select("Materials/Material 2");
    answer([&](QWidget& editor) {
        auto& close = child<QPushButton>(editor, "Button2");
        answer<QDialog>([&](QDialog& chooser) {
            press(close);
            EXPECT_TRUE(editor.isVisible()) << "it is covered";
            child<QAction>(editor, "mopen").trigger(); // no other dialog over this one
            chooser.accept();
            child<QAction>(editor, "ambientchng").trigger(); // no second chooser
            press(close);
            press(button("AddButton"));
        });
        QTest::mouseClick(&child<QWidget>(editor, "diffuse"), Qt::LeftButton);
        EXPECT_TRUE(editor.isVisible());
        close.click();
        press(button("AddButton"));
    });
    use("EditButton");
    EXPECT_EQ(document().Materials.size(), 2U);
}

} // namespace
} // namespace korvane::test
