#include "app/shell/EditorApplication.h"
#include "support/Display.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (const auto status = korvane::test::statusWithoutDisplay()) {
        return *status;
    }
    // where Qt's own dialogs would keep their settings; a test checks it
    const QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const korvane::EditorApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
