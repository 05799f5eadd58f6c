#include "app/widgets/ModalCall.h"

#include "support/MainFormTest.h"
#include "support/TextModel.h"

#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>

namespace korvane::test {
namespace {

void postClick(QWidget& widget, QPoint at) {
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const bool press = type == QEvent::MouseButtonPress;
        QCoreApplication::postEvent(
            &widget,
            new QMouseEvent(type, QPointF(at), QPointF(widget.mapToGlobal(at)), Qt::LeftButton,
                            press ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier));
    }
}

/// A click on the control and a Space for it.
void postPress(QWidget& widget) {
    postClick(widget, QPoint(8, widget.height() / 2));
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QCoreApplication::postEvent(
            &widget, new QKeyEvent(type, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" ")));
    }
}

/// What a user does while the program is slow: all of it is delivered after the dialog has hidden
/// and before the call that shows it has returned.
class ModalCalls : public MainFormTest {
  protected:
    ModalCalls() {
        start({write("m.xsi", smallModel())});
        select(bodyNode + "/Frame frm-wing");
    }
    [[nodiscard]] std::string bytes() const { return writeText(document()); }
    [[nodiscard]] QPushButton& button(const char* name) const {
        return child<QPushButton>(window(), name);
    }

    /// Ends the dialog that comes up next with events waiting behind it.
    void answerWithMoreInput(int result, const QString& typed = {}) {
        answer([this, result, typed](QWidget& dialog) {
            if (!typed.isEmpty()) {
                child<QLineEdit>(dialog, "NameEdit").setText(typed);
            }
            static_cast<QDialog&>(dialog).done(result);
            for (QWidget* widget : dialog.findChildren<QWidget*>()) {
                if (widget->inherits("QCheckBox") || widget->inherits("QLineEdit")) {
                    postPress(*widget);
                }
            }
            postClick(*tree().viewport(), tree().visualRect(node(bodyNode)).center());
            for (const char* name : {"EditButton", "RenameButton", "DeleteButton", "AddButton"}) {
                postPress(button(name));
            }
            // assistive programs press buttons and close windows without any input
            const auto assist = [this] {
                EXPECT_TRUE(ModalCall::running());
                for (const char* name : {"EditButton", "DeleteButton", "AddButton"}) {
                    button(name).click();
                }
                for (const char* command : {"FileNew1", "FileOpen1", "HelpAbout1"}) {
                    action(command).trigger();
                }
                window().close();
                form().close();
            };
            QMetaObject::invokeMethod(&form(), assist, Qt::QueuedConnection);
            QCoreApplication::processEvents();
        });
    }
    /// Waits for the end of what has been asked for.
    void finish(const char* what) const {
        settle();
        EXPECT_FALSE(ModalCall::running()) << what;
        EXPECT_TRUE(allAnswered()) << what;
        ASSERT_EQ(form().documents().size(), 1) << what;
        EXPECT_TRUE(form().isVisible()) << what;
    }
    void press(const char* name) const {
        button(name).click();
        finish(name);
    }
};

TEST_F(ModalCalls, InputBehindADialogReachesNobodyBeforeItsCallHasReturned) {
    document().Modified = true; // for the close question
    const std::string before = bytes();
    const auto selected = tree().currentIndex();
    const std::pair<const char*, int> dialogs[] = {
        {"EditButton", QDialog::Accepted},         {"EditButton", QDialog::Rejected},
        {"RenameButton", QDialog::Rejected},       {"HelpAbout1", QDialog::Rejected},
        {"ColorOptionsAction", QDialog::Rejected}, {"FileOpen1", QDialog::Rejected},
        {"FileSaveAs", QDialog::Rejected},         {"FileClose1", QMessageBox::Cancel}};
    for (const auto& [name, result] : dialogs) {
        answerWithMoreInput(result);
        if (auto* command = form().findChild<QAction*>(QString::fromLatin1(name))) {
            command->trigger();
        } else {
            button(name).click();
        }
        finish(name);
        EXPECT_EQ(bytes(), before) << name;
        EXPECT_EQ(tree().currentIndex(), selected) << name;
        EXPECT_FALSE(window().canUndo()) << name;
    }
    // what the dialog itself was told counts, for the frame that it was shown for
    answerWithMoreInput(QDialog::Accepted, QStringLiteral("fin"));
    press("RenameButton");
    EXPECT_EQ(document().Root.Name, "body");
    ASSERT_EQ(document().Root.Children.size(), 1U);
    EXPECT_EQ(document().Root.Children[0].Name, "fin");
    // from then on all is as before
    press("AddButton");
    EXPECT_EQ(document().Root.Children[0].Children.size(), 2U);
}

TEST_F(ModalCalls, TheMaterialEditorAndItsDialogsKeepTheRestOut) {
    select("Materials/Material 2");
    answer([&](QWidget& editor) {
        // a colour chooser within, with input waiting for the editor and the frame behind it
        answer([&](QWidget& chooser) {
            postPress(child<QPushButton>(editor, "Button2"));
            QCoreApplication::processEvents();
            EXPECT_TRUE(editor.isVisible()) << "it is covered";
            static_cast<QDialog&>(chooser).accept();
            child<QAction>(editor, "ambientchng").trigger(); // no second chooser
            postPress(child<QPushButton>(editor, "Button2"));
            postPress(button("AddButton"));
            QCoreApplication::processEvents();
        });
        QTest::mouseClick(&child<QWidget>(editor, "diffuse"), Qt::LeftButton);
        EXPECT_TRUE(editor.isVisible());
        EXPECT_TRUE(allAnswered());
        child<QPushButton>(editor, "Button2").click();
        postPress(button("AddButton"));
        QCoreApplication::processEvents();
    });
    press("EditButton");
    EXPECT_EQ(document().Materials.size(), 2U);
    EXPECT_TRUE(window().canUndo());
}

} // namespace
} // namespace korvane::test
