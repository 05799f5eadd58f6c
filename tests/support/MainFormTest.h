#pragma once

#include "app/shell/EditorForms.h"
#include "model/forms/TMDIChild.h"
#include "support/GuiTest.h"
#include "support/Words.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include <memory>

namespace korvane::test {

// Nodes of the small model.
inline const std::string bodyNode = "Frame frm-body";
inline const std::string bodyMesh = bodyNode + "/Mesh body";
inline const std::string bodyMaterials = bodyMesh + "/MeshMaterialList";

/// A test of the running program: the main frame with its dialogs.
class MainFormTest : public GuiTest {
  protected:
    TMainForm& start(const QStringList& paths = {}) {
        forms_ = std::make_unique<EditorForms>(paths);
        forms_->mainForm.show();
        // showing opens the models
        constexpr int patience = 30'000; // the window manager may be slow on a busy machine
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&forms_->mainForm, patience));
        const auto isActive = [this] {
            return forms_->mainForm.isActiveWindow() ||
                   QApplication::activeModalWidget() != nullptr;
        };
        EXPECT_TRUE(QTest::qWaitFor(isActive, patience));
        settle();
        return forms_->mainForm;
    }

    [[nodiscard]] TMainForm& form() const { return forms_->mainForm; }
    /// The active document window.
    [[nodiscard]] TMDIChild& window() const { return *form().activeDocument(); }
    [[nodiscard]] ModelDocument& document() const { return window().session()->model(); }
    [[nodiscard]] QTreeView& tree() const { return child<QTreeView>(window(), "TreeView1"); }
    [[nodiscard]] QPushButton& button(const char* name) const {
        return child<QPushButton>(window(), name);
    }
    [[nodiscard]] std::string status() const {
        return child<QLabel>(form(), "StatusPanel").text().toStdString();
    }

    /// Returns the tree node at a path of texts with "/" between them, from the top level.
    [[nodiscard]] QModelIndex node(const std::string& path) const {
        QModelIndex at;
        for (const QString& text : QString::fromStdString(path).split(u'/')) {
            const QModelIndexList found = tree().model()->match(
                tree().model()->index(0, 0, at), Qt::DisplayRole, text, 1, Qt::MatchExactly);
            if (found.isEmpty()) {
                throw std::runtime_error("no node " + path);
            }
            at = found.front();
        }
        return at;
    }
    void select(const std::string& path) const { tree().setCurrentIndex(node(path)); }

    [[nodiscard]] QAction& action(const char* name) const { return child<QAction>(form(), name); }

    /// Triggers the command as a user can: fails if it is disabled.
    void run(const char* name) const {
        settle();
        ASSERT_TRUE(action(name).isEnabled()) << name;
        action(name).trigger();
        settle();
    }

    /// Returns the names of those actions for which `holds` is true, each followed by a blank.
    template <class Holds>
    [[nodiscard]] std::string namesOf(const char* names, Holds holds) const {
        settle();
        std::string found;
        for (const std::string& name : words(names)) {
            found += (action(name.c_str()).*holds)() ? name + ' ' : "";
        }
        return found;
    }

    [[nodiscard]] QStringList captions() const {
        QStringList captions;
        for (const TMDIChild* document : form().documents()) {
            captions += document->windowTitle();
        }
        return captions;
    }

    std::unique_ptr<EditorForms> forms_;
};

} // namespace korvane::test
