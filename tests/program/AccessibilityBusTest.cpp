// Tests what a screen reader learns about the program, and whether the keyboard reaches everything.
// The program runs in its own process; these tests only use the accessibility bus.

#include "program/AccessibleNode.h"
#include "support/Display.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <set>
#include <string>

namespace korvane::test {
namespace {

enum Key : unsigned {
    Tab = 0xff09,
    Return = 0xff0d,
    Escape = 0xff1b,
    Home = 0xff50,
    Right = 0xff53,
    Down = 0xff54,
    End = 0xff57,
};

class AccessibilityBus : public ::testing::Test {
  protected:
    void SetUp() override {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
        environment.insert(QStringLiteral("XDG_STATE_HOME"), state_.path());
        editor_.setProcessEnvironment(environment);
        editor_.setProcessChannelMode(QProcess::ForwardedChannels);
        editor_.start(QStringLiteral(KORVANE_EDITOR),
                      {QStringLiteral(KORVANE_SAMPLES "/windmill.xsi")});
        ASSERT_TRUE(editor_.waitForStarted());
        ASSERT_TRUE(eventually([&] { return !find("tree", "Structure of the model").empty(); }));
        ASSERT_TRUE(eventually([&] {
            const auto trees = find("tree", "Structure of the model");
            return !trees.empty() && trees.front().is(AccessibleNode::Focused);
        }));
    }
    void TearDown() override {
        editor_.terminate();
        EXPECT_TRUE(editor_.waitForFinished());
        EXPECT_EQ(editor_.exitCode(), SIGTERM) << "ended otherwise";
    }

    static bool eventually(const std::function<bool()>& holds) {
        constexpr int patience = 20000;
        for (const QDeadlineTimer deadline(patience); !holds(); QThread::msleep(50)) {
            if (deadline.hasExpired()) {
                return false;
            }
        }
        return true;
    }

    /// Returns all visible nodes of the program that pass.
    [[nodiscard]] std::vector<AccessibleNode>
    all(const std::function<bool(const AccessibleNode&)>& passes) const {
        for (const AccessibleNode& program : desktop_.children()) {
            if (program.name().startsWith(QLatin1String("Korvane"))) {
                return program.all(passes);
            }
        }
        return {};
    }
    [[nodiscard]] std::vector<AccessibleNode> find(const char* role, const char* name) const {
        return all([role, name](const AccessibleNode& node) {
            return node.name() == QLatin1String(name) && node.role() == QLatin1String(role);
        });
    }
    /// Returns the only visible node of a role and name.
    AccessibleNode one(const char* role, const char* name) const {
        const auto found = find(role, name);
        EXPECT_EQ(found.size(), 1U) << role << ' ' << name;
        return found.empty() ? desktop_ : found.front();
    }
    void expectDescription(const char* role, const char* name, const char* description) const {
        EXPECT_EQ(one(role, name).description().toStdString(), description) << name;
    }

    void press(std::initializer_list<Key> keys) const {
        constexpr int settled = 150;
        for (const Key key : keys) {
            desktop_.press(key);
            QThread::msleep(settled);
        }
    }
    /// Waits for a dialog, runs the checks of `look` and closes it with Escape.
    void inDialog(const char* name, const std::function<void()>& look) const {
        SCOPED_TRACE(name);
        ASSERT_TRUE(eventually([&] { return !find("dialog", name).empty(); }));
        expectAllTold();
        look();
        press({Escape});
        ASSERT_TRUE(eventually([&] { return find("dialog", name).empty(); }));
    }
    void chooseInMenu(const char* menu, const char* command) const {
        one("menu item", menu).act();
        ASSERT_TRUE(eventually([&] { return !find("menu item", command).empty(); }));
        one("menu item", command).act();
    }
    /// Expects a name for everything focusable, and a sentence for each picture.
    void expectAllTold() const {
        for (const AccessibleNode& node : all([](const AccessibleNode& node) {
                 return node.is(AccessibleNode::Focusable) && node.name().isEmpty();
             })) {
            ADD_FAILURE() << "without a name: " << node.role().toStdString() << ' '
                          << node.description().toStdString();
        }
        for (const AccessibleNode& node : all([](const AccessibleNode& node) {
                 return node.role() == QLatin1String("graphic") &&
                        node.name() != QLatin1String("Program icon") &&
                        node.description().isEmpty();
             })) {
            ADD_FAILURE() << "without a sentence: " << node.name().toStdString();
        }
    }
    /// Returns the names of everything that gets the focus while a key is pressed this many times.
    [[nodiscard]] std::set<std::string> reachedBy(Key key, int presses) const {
        std::set<std::string> names;
        for (; presses > 0; --presses) {
            press({key});
            for (const AccessibleNode& node :
                 all([](const AccessibleNode& node) { return node.is(AccessibleNode::Focused); })) {
                names.insert(node.name().toStdString());
            }
        }
        return names;
    }
    static void expectAmong(const std::set<std::string>& reached,
                            std::initializer_list<const char*> names) {
        for (const char* name : names) {
            EXPECT_TRUE(reached.contains(name)) << name;
        }
    }

    const AccessibleNode desktop_ = AccessibleNode::desktop();

  private:
    QTemporaryDir state_;
    QProcess editor_;
};

TEST_F(AccessibilityBus, DescribesTheWindowTheViewsAndTheRows) {
    expectAllTold();
    one("menu bar", "Main menu");
    one("tool bar", "Tool bar");
    one("status bar", "Status bar");
    expectDescription("push button", "Open", "Open (Ctrl+O)");
    expectDescription("push button", "Add Frame",
                      "Add a frame below the selected one, or a material");
    expectDescription("tree item", "Frame frm-mill", "A frame without a mesh\nChild frames: 4");

    press({Down});
    expectDescription("tree item", "Frame frm-meadow",
                      "A frame with a mesh of 191 faces and 223 vertices");
    for (const char* view : {"XY view", "XZ view", "ZY view", "3D view"}) {
        EXPECT_TRUE(eventually([&] {
            return one("graphic", view).description().contains(QLatin1String("frame meadow is "));
        })) << one("graphic", view).description().toStdString();
    }

    // hidden frames say so
    const auto tools = find("page tab", "Tools");
    ASSERT_EQ(tools.size(), 1U);
    tools.front().act();
    ASSERT_TRUE(eventually([&] { return !find("check box", "Frame Visible").empty(); }));
    EXPECT_TRUE(one("radio button", "Zoom").is(AccessibleNode::Checked));
    EXPECT_FALSE(one("radio button", "Pan View").is(AccessibleNode::Checked));
    one("check box", "Frame Visible").act();
    ASSERT_TRUE(
        eventually([&] { return !one("check box", "Frame Visible").is(AccessibleNode::Checked); }));
    one("page tab", "Structure").act();
    ASSERT_TRUE(eventually([&] { return !find("tree", "Structure of the model").empty(); }));
    one("tree item", "Frame frm-meadow, hidden");
}

TEST_F(AccessibilityBus, DescribesTheMaterialEditor) {
    press({Down, Right, Down, Right, Down, Return});
    inDialog("Material Editor", [&] {
        expectDescription("push button", "Diffuse", "#f2e5d6");
        EXPECT_EQ(one("slider", "Opacity").value(), 100);
        EXPECT_EQ(one("text", "Shininess").text().toStdString(), "0");
        EXPECT_EQ(one("graphic", "Texture with the faces over it").description().toStdString(),
                  "The texture rock.tga with the faces over it.");
        one("tree", "Faces");
        one("check box", "Only faces of this material");
        expectAmong(reachedBy(Tab, 24),
                    {"Material 1", "Ambient", "Diffuse", "Specular", "Opacity", "Shininess",
                     "Materials of the mesh", "Faces", "Only faces of this material", "Texture",
                     "Zoom out", "Zoom in", "Redraw", "Selected", "Inactive", "OK"});
    });
}

TEST_F(AccessibilityBus, DescribesTheOtherDialogs) {
    press({Down, Return});
    inDialog("Frame Options", [&] {
        EXPECT_TRUE(one("check box", "Normals").is(AccessibleNode::Checked));
        one("push button", "OK");
    });
    one("push button", "Rename Frame").act();
    inDialog("Rename Frame",
             [&] { EXPECT_EQ(one("text", "Name of the frame").text().toStdString(), "meadow"); });
    chooseInMenu("Options", "Colors...");
    inDialog("ColorOptions", [&] { expectDescription("push button", "WorldAxes", "#008080"); });
    chooseInMenu("Help", "About...");
    inDialog("About Korvane II Model Editor", [&] { one("graphic", "Program icon"); });
}

TEST_F(AccessibilityBus, KeyboardReachesEverything) {
    expectAmong(reachedBy(Tab, 12),
                {"Structure of the model", "Edit", "Rename Frame", "Add Frame", "XZ view",
                 "3D view", "XY view", "ZY view", "Width of the pages"});
    // the other page, via its tab
    int presses = 20;
    while (!one("page tab list", "Structure").is(AccessibleNode::Focused)) {
        ASSERT_GT(--presses, 0);
        press({Tab});
    }
    press({Right});
    ASSERT_TRUE(eventually([&] { return !find("radio button", "Zoom").empty(); }));
    expectAmong(reachedBy(Tab, 4), {"Zoom", "Frame Visible", "Mesh Visible", "2D Windows Visible"});
}

} // namespace
} // namespace korvane::test

int main(int argc, char** argv) {
    return korvane::test::runTestsOnDisplay<QCoreApplication>(argc, argv);
}
