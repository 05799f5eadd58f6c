#include "Monkey.h"

#include "Journal.h"
#include "app/shell/TMainForm.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QEventLoop>
#include <QTimer>

#include <numeric>

namespace korvane::monkey {

Monkey::Monkey(std::uint32_t seed, const QString& folder)
    : folder_(folder), dice_(seed),
      forms_(dice_.chance(70) ? QStringList{anyFile()} : QStringList()) {
    QApplication::clipboard()->clear();
    watch();
    forms_.mainForm.show();
    waitForActive(forms_.mainForm);
    settle();
    ledger_.follow(forms_.mainForm);
}

Monkey::~Monkey() = default;

std::size_t Monkey::live(int actions) {
    constexpr int burst = 20;
    for (int i = 0; i < actions && open(); ++i) {
        act();
        if (i % burst == burst - 1 && open()) {
            endBurst();
        }
    }
    if (open()) {
        endBurst();
        note(QStringLiteral("the end"));
        for (TMDIChild* window : forms_.mainForm.documents()) {
            ledger_.check(*window);
        }
    } else {
        expect(forms_.mainForm.documents().isEmpty(), "models are left after leaving");
    }
    return ledger_.stepsTaken();
}

void Monkey::settle() {
    constexpr int idle = 1; // milliseconds in which the update handlers run
    QEventLoop loop;
    QTimer::singleShot(idle, &loop, &QEventLoop::quit);
    loop.exec();
}

void Monkey::watch() {
    constexpr int often = 2;
    // first, as what follows may wait in a dialog of its own
    QTimer::singleShot(often, &context_, [this] { watch(); });
    if (QWidget* menu = QApplication::activePopupWidget(); menu != nullptr && inputWaits()) {
        note(QStringLiteral("    leave menu"));
        menu->close();
    }
    QWidget* dialog = QApplication::activeModalWidget();
    // the progress dialog of a reading closes by itself
    if (dialog == nullptr || !dialog->isVisible() || dialogs_.contains(dialog) ||
        dialog->objectName() == QStringLiteral("ReadProgress")) {
        return;
    }
    expect(dialogs_.isEmpty() || dialogs_.last()->isVisible(),
           "a dialog has come up before the last one's call returned");
    dialogs_.push_back(dialog);
    answer(*dialog);
    dialogs_.removeLast();
}

void Monkey::choose(const std::vector<Choice>& choices, const char* indent) {
    const int all = std::accumulate(choices.begin(), choices.end(), 0,
                                    [](int sum, const Choice& c) { return sum + c.weight; });
    int number = dice_.below(all);
    for (const Choice& choice : choices) {
        number -= choice.weight;
        if (number < 0) {
            note(QString::fromLatin1(indent) + QString::fromLatin1(choice.name));
            (this->*choice.action)();
            return;
        }
    }
}

void Monkey::act() {
    static const std::vector<Choice> choices = {{10, "command", &Monkey::command},
                                                {2, "menu", &Monkey::menu},
                                                {3, "tool button", &Monkey::toolButton},
                                                {6, "undo and redo", &Monkey::undoSome},
                                                {6, "copy and paste", &Monkey::copyAndPaste},
                                                {2, "new", &Monkey::newWindow},
                                                {2, "open", &Monkey::openFile},
                                                {2, "close", &Monkey::closeWindow},
                                                {1, "leave", &Monkey::leave},
                                                {1, "drop", &Monkey::dropFile},
                                                {3, "arrange", &Monkey::arrange},
                                                {3, "switch window", &Monkey::switchWindow},
                                                {5, "key", &Monkey::key},
                                                {3, "click anywhere", &Monkey::clickAnywhere},
                                                {12, "select node", &Monkey::node},
                                                {4, "expand node", &Monkey::expandNode},
                                                {5, "tree key", &Monkey::treeKey},
                                                {10, "page button", &Monkey::pageButton},
                                                {4, "press button", &Monkey::pressButton},
                                                {30, "edit node", &Monkey::editNode},
                                                {10, "edit mesh", &Monkey::editMesh},
                                                {5, "tool", &Monkey::tool},
                                                {2, "page", &Monkey::page},
                                                {9, "drag in a plane", &Monkey::dragPlane},
                                                {3, "drag the model", &Monkey::dragModel},
                                                {2, "wheel", &Monkey::wheel}};
    const bool wasActive = forms_.mainForm.isActiveWindow();
    choose(choices, "");
    settle();
    handlePopup();
    // closed windows are deleted only in the program's outermost loop
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (open()) {
        if (wasActive && !forms_.mainForm.isActiveWindow() &&
            QApplication::activePopupWidget() == nullptr) {
            waitForActive(forms_.mainForm);
        }
        ledger_.follow(forms_.mainForm);
    }
}

void Monkey::endBurst() {
    while (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
    }
    mouse_.letGo(forms_.mainForm);
    typeKey(forms_.mainForm, Qt::Key_Escape);
    settle();
    const QList<TMDIChild*> windows = forms_.mainForm.documents();
    if (windows.isEmpty()) {
        return;
    }
    note(QStringLiteral("check"));
    TMDIChild* const current = active();
    if (current != nullptr) {
        ledger_.check(*current);
    }
    TMDIChild* const other = dice_.of(windows);
    if (other != current) {
        ledger_.check(*other);
    }
    settle();
}

} // namespace korvane::monkey
