#include "app/ClipboardHandOver.h"
#include "app/CommandLine.h"
#include "app/EditorApplication.h"
#include "app/EditorForms.h"

#include <cstddef>
#include <cstdio>
#include <span>

int main(int argc, char** argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (!arguments.empty()) {
        if (const auto answer = korvane::commandLineAnswer(arguments.subspan(1))) {
            std::fputs(qPrintable(*answer), stdout);
            return 0;
        }
    }
    const korvane::EditorApplication application(argc, argv);
    korvane::EditorForms forms(korvane::EditorApplication::arguments().mid(1));
    forms.mainForm.show();
    const int status = korvane::EditorApplication::exec();
    korvane::handOverClipboard();
    return status;
}
