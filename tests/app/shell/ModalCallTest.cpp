#include "app/widgets/ModalCall.h"

#include "support/MainFormTest.h"
#include "support/TextModel.h"

#include <QCheckBox>
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

void postKey(QWidget& widget, int key, const QString& text = {}) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QCoreApplication::postEvent(&widget, new QKeyEvent(type, key, Qt::NoModifier, text));
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

    /// Ends the dialog that comes up next with events waiting behind it.
    void answerWithMoreInput(int result, const std::function<void(QWidget&)>& before = {}) {
        answer([this, result, before](QWidget& dialog) {
            if (before) {
                before(dialog);
            }
            static_cast<QDialog&>(dialog).done(result);
            for (QWidget* widget : dialog.findChildren<QWidget*>()) {
                if (widget->inherits("QCheckBox") || widget->inherits("QLineEdit")) {
                    postClick(*widget, QPoint(8, widget->height() / 2));
                    postKey(*widget, Qt::Key_Z, QStringLiteral("z"));
                    postKey(*widget, Qt::Key_Space, QStringLiteral(" "));
                }
            }
            postClick(*tree().viewport(), tree().visualRect(node(bodyNode)).center());
            for (const char* button : {"EditButton", "RenameButton", "DeleteButton", "AddButton"}) {
                auto& found = child<QPushButton>(window(), button);
                postClick(found, found.rect().center());
                postKey(found, Qt::Key_Space, QStringLiteral(" "));
            }
            // assistive programs press buttons and close windows without any input
            QMetaObject::invokeMethod(
                &form(),
                [this] {
                    EXPECT_TRUE(ModalCall::running());
                    for (const char* button : {"EditButton", "DeleteButton", "AddButton"}) {
                        child<QPushButton>(window(), button).click();
                    }
                    for (const char* command : {"FileNew1", "FileOpen1", "HelpAbout1"}) {
                        action(command).trigger();
                    }
                    window().close();
                    form().close();
                },
                Qt::QueuedConnection);
            QCoreApplication::processEvents();
        });
    }
    /// Presses the button whose dialog has been announced.
    void press(const char* button) const {
        child<QPushButton>(window(), button).click();
        settle();
        EXPECT_FALSE(ModalCall::running());
        EXPECT_TRUE(allAnswered());
        EXPECT_EQ(form().documents().size(), 1);
        EXPECT_TRUE(form().isVisible());
    }
};

TEST_F(ModalCalls, InputBehindADialogReachesNobodyBeforeItsCallHasReturned) {
    const std::string before = bytes();
    const auto selected = tree().currentIndex();
    const std::pair<const char*, int> dialogs[] = {{"EditButton", QDialog::Accepted},
                                                   {"EditButton", QDialog::Rejected},
                                                   {"RenameButton", QDialog::Rejected}};
    for (const auto& [button, result] : dialogs) {
        answerWithMoreInput(result);
        press(button);
        EXPECT_EQ(bytes(), before) << button;
        EXPECT_EQ(tree().currentIndex(), selected) << button;
        EXPECT_FALSE(window().canUndo()) << button;
    }
    // what the dialog itself was told counts, for the frame that it was shown for
    answerWithMoreInput(QDialog::Accepted, [](QWidget& dialog) {
        child<QLineEdit>(dialog, "NameEdit").setText(QStringLiteral("fin"));
    });
    press("RenameButton");
    EXPECT_EQ(document().Root.Name, "body");
    ASSERT_EQ(document().Root.Children.size(), 1U);
    EXPECT_EQ(document().Root.Children[0].Name, "fin");
    // from then on all is as before
    press("AddButton");
    EXPECT_EQ(document().Root.Children[0].Children.size(), 2U);
}

TEST_F(ModalCalls, TheDialogsOfTheMainFrameAreNoDifferent) {
    document().Modified = true; // for the close question
    const std::string before = bytes();
    for (const char* command :
         {"HelpAbout1", "ColorOptionsAction", "FileOpen1", "FileSaveAs", "FileClose1"}) {
        const bool question = std::string(command) == "FileClose1";
        answerWithMoreInput(question ? int{QMessageBox::Cancel} : int{QDialog::Rejected});
        action(command).trigger();
        settle();
        EXPECT_TRUE(allAnswered()) << command;
        EXPECT_FALSE(ModalCall::running()) << command;
        ASSERT_EQ(form().documents().size(), 1) << command;
        EXPECT_EQ(bytes(), before) << command;
        EXPECT_FALSE(window().canUndo()) << command;
    }
}

TEST_F(ModalCalls, TheMaterialEditorAndItsDialogsKeepTheRestOut) {
    select("Materials/Material 2");
    answer([&](QWidget& editor) {
        // a colour chooser within, with input waiting for the editor and the frame behind it
        answer([&](QWidget& chooser) {
            static_cast<QDialog&>(chooser).accept();
            auto& ok = child<QPushButton>(editor, "Button2");
            postClick(ok, ok.rect().center());
            auto& add = child<QPushButton>(window(), "AddButton");
            postClick(add, add.rect().center());
            QCoreApplication::processEvents();
        });
        QTest::mouseClick(&child<QWidget>(editor, "diffuse"), Qt::LeftButton);
        EXPECT_TRUE(editor.isVisible());
        EXPECT_TRUE(allAnswered());
        child<QPushButton>(editor, "Button2").click();
        auto& add = child<QPushButton>(window(), "AddButton");
        postClick(add, add.rect().center());
        QCoreApplication::processEvents();
    });
    press("EditButton");
    EXPECT_EQ(document().Materials.size(), 2U);
    EXPECT_TRUE(window().canUndo());
}

TEST_F(ModalCalls, WhatCameOutOfDateBehindADialogIsDropped) {
    // no input can do this; a command that forgot to ask would
    const auto changed = [this](QWidget& dialog) {
        ++document().Revision;
        document().Root.Children.clear();
        static_cast<QDialog&>(dialog).accept();
    };
    answer(changed);
    press("RenameButton");
    EXPECT_FALSE(window().canUndo());
    EXPECT_EQ(document().Root.Name, "body");
    // nor is anything written for a box that was clicked too late
    select(bodyNode);
    answer([this](QWidget& dialog) {
        ++document().Revision;
        child<QCheckBox>(dialog, "MeshBox").click();
        static_cast<QDialog&>(dialog).accept();
    });
    press("EditButton");
    EXPECT_TRUE(document().Root.HasMesh);
    EXPECT_FALSE(window().canUndo());
}

} // namespace
} // namespace korvane::test
