#pragma once

#include "app/EditorForms.h"
#include "model/TMDIChild.h"
#include "support/GuiTest.h"

#include <QAction>

#include <memory>

namespace korvane::test {

/// A test of the running program: the main frame with its dialogs.
class MainFormTest : public GuiTest {
  protected:
    TMainForm& start(const QStringList& paths = {}) {
        forms_ = std::make_unique<EditorForms>(paths);
        forms_->mainForm.show();
        settle();
        return forms_->mainForm;
    }

    [[nodiscard]] TMainForm& form() const { return forms_->mainForm; }
    [[nodiscard]] QAction& action(const char* name) const { return child<QAction>(form(), name); }

    /// Triggers the command as a user can: not while it is disabled.
    void run(const char* name) const {
        settle();
        ASSERT_TRUE(action(name).isEnabled()) << name;
        action(name).trigger();
        settle();
    }

    /// The names of those actions that are as asked, each followed by a blank.
    template <class Holds>
    [[nodiscard]] std::string namesOf(const std::initializer_list<const char*>& names,
                                      Holds holds) const {
        settle();
        std::string found;
        for (const char* name : names) {
            if ((action(name).*holds)()) {
                found += std::string(name) + ' ';
            }
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
