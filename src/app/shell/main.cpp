#include "app/shell/ClipboardHandOver.h"
#include "app/shell/CommandLine.h"
#include "app/shell/EditorApplication.h"
#include "app/shell/EditorForms.h"
#include "formats/files/FileNames.h"

#include <cstdio>

int main(int argc, char** argv) {
    const QStringList words = korvane::commandLineWords(argc, argv);
    if (const auto answer = korvane::commandLineAnswer(words)) {
        std::fputs(qPrintable(*answer), stdout);
        return 0;
    }
    const auto application = korvane::EditorApplication::onDisplay(argc, argv);
    korvane::EditorForms forms(words);
    forms.mainForm.show();
    const int status = korvane::EditorApplication::exec();
    korvane::handOverClipboard();
    return status;
}
