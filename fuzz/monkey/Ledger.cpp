#include "Ledger.h"

#include "Journal.h"
#include "app/shell/TMainForm.h"
#include "formats/files/FileNames.h"
#include "formats/xsi/XsiWriter.h"
#include "model/document/StructureTree.h"
#include "model/records/FrameWalk.h"
#include "model/records/ModelText.h"

#include <QApplication>
#include <QFile>
#include <QTreeView>

#include <algorithm>
#include <string_view>

namespace korvane::monkey {

namespace {

std::string written(const ModelDocument& document) {
    std::string text;
    writeXsi(document, [&text](std::string_view piece) {
        text += piece;
        return true;
    });
    return text;
}

/// Returns the text around the first difference.
QString difference(const std::string& is, const std::string& should) {
    const auto [at, other] = std::mismatch(is.begin(), is.end(), should.begin(), should.end());
    const auto offset = static_cast<std::size_t>(at - is.begin());
    const auto around = [offset](const std::string& text) {
        constexpr std::size_t before = 120;
        constexpr std::size_t length = 240;
        return QString::fromStdString(text.substr(offset > before ? offset - before : 0, length));
    };
    return QStringLiteral(" (byte %1 of %2, was %3)\n--- is\n%4\n--- should be\n%5\n---")
        .arg(offset)
        .arg(is.size())
        .arg(should.size())
        .arg(around(is), around(should));
}

void expectSame(const std::string& is, const std::string& should, const char* fault) {
    if (is != should) {
        fail(QString::fromLatin1(fault) + difference(is, should));
    }
}

/// Adds the texts of a tree as it is shown, each indented by its depth.
void addTexts(const QAbstractItemModel& model, const QModelIndex& parent, const QString& indent,
              QStringList& texts) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        texts += indent + index.data().toString();
        addTexts(model, index, indent + u' ', texts);
    }
}

/// Checks that the window's tree shows the current model.
void checkTree(const TMDIChild& window) {
    ModelDocument copy = *window.document();
    StructureTreeModel fresh;
    fresh.setTree(StructureTree(copy));
    const auto* view = window.findChild<QTreeView*>(QStringLiteral("TreeView1"));
    QStringList shown;
    QStringList should;
    addTexts(*view->model(), {}, {}, shown);
    addTexts(fresh, {}, {}, should);
    for (qsizetype i = 0; i < std::min(shown.size(), should.size()); ++i) {
        if (shown[i] != should[i]) {
            fail(QStringLiteral("the tree shows \"%1\" for \"%2\"").arg(shown[i], should[i]));
        }
    }
    expect(shown.size() == should.size(), "the tree shows another number of nodes");
    expect(view->currentIndex().isValid() || copy.Selected.NodeKind == NodeKind::None,
           "nothing is selected in the tree");
    const NodeData selected = copy.Selected;
    const std::int32_t node = fresh.tree().nearestNode(selected);
    expect(selected.NodeKind == NodeKind::None || fresh.tree().nodeData(node).isSameNode(selected),
           "the selection leads nowhere");
    if (const QString wanted = fresh.indexOf(node).data().toString(),
        chosen = view->currentIndex().data().toString();
        selected.NodeKind != NodeKind::None && chosen != wanted) {
        fail(QStringLiteral("the tree has \"%1\" selected, not \"%2\"").arg(chosen, wanted));
    }
}

/// Checks that every frame knows its path, and that the selected one is marked.
void checkFrames(const ModelDocument& document) {
    for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
        expect(walk.frame().Path == FramePath(walk.childNumbers()), "a frame has another path");
    }
    const FrameRecord* selected = document.selectedFrame();
    expect(!document.Selected.Frame || selected != nullptr, "the selected frame is not there");
    expect(selected == nullptr || selected->SelectState == SelectState::Selected,
           "the selected frame is not marked");
}

void checkShown(const TMDIChild& window) {
    checkTree(window);
    checkFrames(*window.document());
}

/// Takes all available steps and returns their number.
int walkAll(TMDIChild& window, bool (TMDIChild::*can)() const, void (TMDIChild::*step)()) {
    constexpr int most = 20'000;
    int steps = 0;
    for (; (window.*can)(); ++steps) {
        expect(steps < most, "undo or redo does nothing");
        (window.*step)();
    }
    return steps;
}

} // namespace

std::string bytesOf(const TMDIChild& window) {
    const ModelDocument& document = *window.document();
    ModelDocument table;
    table.Materials = document.Materials;
    table.Root.Children.resize(1);
    FrameRecord& frame = table.Root.Children.front();
    frame.HasMesh = frame.Mesh.HasMaterials = true;
    for (std::size_t i = 0; i < table.Materials.size(); ++i) {
        frame.Mesh.MaterialSlotList.push_back(static_cast<std::int32_t>(i));
    }
    return written(document) + written(table);
}

void Ledger::open(TMDIChild& window) {
    const int steps = walkAll(window, &TMDIChild::canUndo, &TMDIChild::undo);
    Account account;
    account.window = &window;
    account.first = bytesOf(window);
    for (int i = 0; i < steps; ++i) {
        window.redo();
    }
    account.modified = window.document()->Modified;
    if (!account.modified) {
        account.saved = account.first;
    }
    accounts_.push_back(std::move(account));
}

void Ledger::compareFile(Account& account) {
    const ModelDocument& document = *account.window->document();
    account.saved = bytesOf(*account.window);
    if (modelFileKind(document.FileName) == ModelFileKind::Xsi) {
        QFile file(document.FileName);
        expect(file.open(QIODevice::ReadOnly), "a saved file is not there");
        expectSame(file.readAll().toStdString(), written(document), "the file is another model");
    }
}

void Ledger::follow(const TMainForm& form) {
    const QList<TMDIChild*> open = form.documents();
    for (const Account& account : accounts_) {
        expect(!account.window || open.contains(account.window.data()),
               "a closed window is still there");
    }
    std::erase_if(accounts_, [](const Account& account) { return !account.window; });
    qsizetype windows = 0;
    for (const QWidget* widget : QApplication::allWidgets()) {
        windows += qobject_cast<const TMDIChild*>(widget) != nullptr ? 1 : 0;
    }
    expect(windows == open.size(), "there are more windows than models");
    for (TMDIChild* window : open) {
        const auto found = std::find_if(accounts_.begin(), accounts_.end(),
                                        [&](const Account& a) { return a.window == window; });
        if (found == accounts_.end()) {
            this->open(*window);
            continue;
        }
        const bool modified = window->document()->Modified;
        if (found->modified && !modified) {
            compareFile(*found);
        }
        found->modified = modified;
    }
}

void Ledger::flagsStay(const TMDIChild* window) {
    for (Account& account : accounts_) {
        account.flagsStay = account.flagsStay || (account.window == window && window != nullptr);
    }
}

void Ledger::check(TMDIChild& window) {
    const auto found = std::find_if(accounts_.begin(), accounts_.end(),
                                    [&](const Account& a) { return a.window == &window; });
    if (found == accounts_.end()) {
        return;
    }
    checkShown(window);
    if (found->flagsStay) {
        // entries hold other flags than the model in both directions; they agree again once all
        // steps have been taken
        walkAll(window, &TMDIChild::canRedo, &TMDIChild::redo);
        walkAll(window, &TMDIChild::canUndo, &TMDIChild::undo);
        found->first = bytesOf(window);
        found->flagsStay = false;
        found->saved.reset();
    }
    checkWay(*found);
    found->modified = window.document()->Modified;
}

void Ledger::checkWay(Account& account) {
    TMDIChild& window = *account.window;
    const std::string now = bytesOf(window);
    if (account.saved && !window.document()->Modified) {
        expectSame(now, *account.saved, "changed, but not marked as modified");
    }
    const int down = walkAll(window, &TMDIChild::canUndo, &TMDIChild::undo);
    expectSame(bytesOf(window), account.first, "undoing all does not lead to the first state");
    checkShown(window);
    const int up = walkAll(window, &TMDIChild::canRedo, &TMDIChild::redo);
    checkShown(window);
    expect(up >= down, "redo has lost a step");
    for (int i = down; i < up; ++i) {
        window.undo();
    }
    expectSame(bytesOf(window), now, "undo and redo do not lead back");
    checkShown(window);
    steps_ += static_cast<std::size_t>(down + up);
}

} // namespace korvane::monkey
