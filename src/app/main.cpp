#include "app/EditorApplication.h"
#include "app/TMainForm.h"

int main(int argc, char** argv) {
    const korvane::EditorApplication application(argc, argv);
    korvane::TMainForm mainForm(korvane::EditorApplication::arguments().mid(1));
    mainForm.show();
    return korvane::EditorApplication::exec();
}
