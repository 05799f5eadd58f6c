#include "support/GuiTest.h"

#include <QApplication>
#include <QEventLoop>
#include <QFileDialog>
#include <QLineEdit>
#include <QMouseEvent>

namespace korvane::test {

void settle() {
    QEventLoop loop;
    QTimer::singleShot(30, &loop, &QEventLoop::quit);
    loop.exec();
}

void moveHolding(QWidget& widget, QPoint at, Qt::MouseButtons held) {
    QMouseEvent event(QEvent::MouseMove, QPointF(at), QPointF(widget.mapToGlobal(at)), Qt::NoButton,
                      held, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

GuiTest::GuiTest() {
    // separates recovery copies of a test from the next one's and from the user's
    qputenv("XDG_STATE_HOME", state_.path().toLocal8Bit());
    QObject::connect(&poll_, &QTimer::timeout, &poll_, [this] { handleModalWindow(); });
    poll_.start(10);
}

GuiTest::~GuiTest() {
    EXPECT_TRUE(allAnswered()) << answers_.size() << " expected modal windows did not come up";
}

void GuiTest::handleModalWindow() {
    handled_.removeIf(
        [](const QPointer<QWidget>& window) { return !window || !window->isVisible(); });
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible() || handled_.contains(modal)) {
        return;
    }
    handled_.push_back(modal);
    if (answers_.empty()) {
        ADD_FAILURE() << "unexpected window " << modal->windowTitle().toStdString();
        modal->close();
        return;
    }
    const auto handle = [modal, handler = std::move(answers_.front())] {
        try {
            handler(*modal);
        } catch (const std::exception& failure) {
            ADD_FAILURE() << failure.what();
        }
        if (modal->isVisible()) {
            ADD_FAILURE() << "left open: " << modal->windowTitle().toStdString();
            modal->close();
        }
    };
    answers_.pop_front();
    // queued: the handler may open another window, which needs the timer
    QMetaObject::invokeMethod(modal, handle, Qt::QueuedConnection);
}

void GuiTest::answer(std::function<void(QWidget&)> handler) {
    answers_.push_back(std::move(handler));
}

void GuiTest::answerBox(const QString& name, const QString& text, const QString& title, int buttons,
                        int reply) {
    answer<QMessageBox>([=](QMessageBox& box) {
        EXPECT_EQ(box.objectName(), name);
        EXPECT_EQ(box.text(), text);
        EXPECT_EQ(box.windowTitle(), title);
        EXPECT_EQ(static_cast<int>(box.standardButtons()), buttons);
        box.done(reply);
    });
}

void GuiTest::answerCloseQuestion(const QString& fileName, int reply) {
    answerBox(QStringLiteral("CloseQuestion"), fileName,
              QStringLiteral("File is not saved.  Save?"),
              QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, reply);
}

void GuiTest::answerFileDialog(const QString& name, const QString& path) {
    answer<QFileDialog>([=](QFileDialog& dialog) {
        EXPECT_EQ(dialog.objectName(), name);
        settle(); // listing the folder sets the name, too
        child<QLineEdit>(dialog, "fileNameEdit").setText(path);
        auto& base = static_cast<QDialog&>(dialog); // its accept() is public
        path.isEmpty() ? base.reject() : base.accept();
    });
}

} // namespace korvane::test
