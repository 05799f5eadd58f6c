#include "app/shell/Logout.h"

#include "app/shell/EditorApplication.h"
#include "app/shell/TMainForm.h"
#include "app/widgets/ModalCall.h"

#include <QEvent>
#include <QSessionManager>

#include <cstdlib>
#include <exception>
#include <utility>

namespace korvane {

Logout::Logout(TMainForm& frame, std::function<void()> keepAll)
    : frame_(frame), keepAll_(std::move(keepAll)) {
    // A desktop that restores its session would start the editor without its models, and wait for
    // a program that ignores the session options on its command line.
    const auto startNoMore = [](QSessionManager& desktop) {
        desktop.setRestartHint(QSessionManager::RestartNever);
    };
    connect(qApp, &QGuiApplication::saveStateRequest, this, startNoMore);
    connect(qApp, &QGuiApplication::commitDataRequest, this, &Logout::commitData);
}

void Logout::commitData(QSessionManager& desktop) {
    try {
        if (mayEnd([&desktop] { return desktop.allowsInteraction(); })) {
            desktop.release();
        } else {
            desktop.cancel();
        }
    } catch (const std::exception&) {
        // memory ran out while a model was saved; the caller cannot handle exceptions
        end_ = End::AsUsual;
        desktop.cancel();
        EditorApplication::tellMemoryFailure();
    }
}

bool Logout::mayEnd(const std::function<bool()>& mayAsk) {
    qApp->installEventFilter(this);
    // first of all: the desktop may end the program while the user still thinks
    end_ = End::Kept;
    keep();
    if (ModalCall::running() || (frame_.needsCloseQuestion() && !mayAsk())) {
        return true;
    }
    const bool agreed = questionsAnswered();
    end_ = agreed ? End::Asked : End::AsUsual;
    return agreed;
}

bool Logout::questionsAnswered() {
    if (!frame_.needsCloseQuestion()) {
        return true;
    }
    frame_.setWindowState(frame_.windowState() & ~Qt::WindowMinimized);
    frame_.raise();
    frame_.activateWindow();
    return frame_.documentsMayClose();
}

void Logout::keep() const {
    try {
        if (keepAll_) {
            keepAll_();
        }
    } catch (const std::exception&) {
        // memory ran out: earlier copies must suffice
    }
}

bool Logout::eventFilter(QObject* watched, QEvent* event) {
    // if the frame is closed, the program itself has quit
    if (watched != qApp || event->type() != QEvent::Quit || end_ == End::AsUsual ||
        !frame_.isVisible()) {
        return false;
    }
    if (end_ == End::Kept || ModalCall::running()) {
        keep();
        std::_Exit(EXIT_SUCCESS);
    }
    frame_.closeDocuments();
    return false;
}

} // namespace korvane
