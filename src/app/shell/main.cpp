#include "app/shell/ClipboardHandOver.h"
#include "app/shell/CommandLine.h"
#include "app/shell/EditorApplication.h"
#include "app/shell/EditorForms.h"
#include "app/shell/EndSignals.h"
#include "app/shell/Logout.h"
#include "formats/files/FileNames.h"

#include <cstdio>
#include <functional>

int main(int argc, char** argv) {
    const QStringList words = korvane::commandLineWords(argc, argv);
    if (const auto answer = korvane::commandLineAnswer(words)) {
        std::fputs(qPrintable(*answer), stdout);
        return 0;
    }
    const auto application = korvane::EditorApplication::onDisplay(argc, argv);
    korvane::EditorForms forms(words);
    const std::function<void()> keepAll = [&forms] { forms.mainForm.keepAll(); };
    const korvane::EndSignals endSignals(keepAll);
    const korvane::Logout logout(forms.mainForm, keepAll);
    forms.mainForm.show();
    const int status = korvane::EditorApplication::exec();
    korvane::handOverClipboard();
    return status;
}
