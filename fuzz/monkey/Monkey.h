#pragma once

#include "Dice.h"
#include "Input.h"
#include "Ledger.h"
#include "app/shell/EditorForms.h"

#include <QDialog>
#include <QFileDialog>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTreeView>

#include <cstdint>
#include <string>
#include <vector>

class QAbstractItemView;
class QColorDialog;
class QMessageBox;

namespace korvane::monkey {

/// One story: an editor of its own, used at random. All choices come from the seed, and each action
/// waits until the program is idle, so that the same seed gives the same story.
class Monkey {
  public:
    /// Reads and writes only in the folder, which holds models and textures.
    Monkey(std::uint32_t seed, const QString& folder);
    ~Monkey();
    /// Returns how many steps the checks undid and redid.
    std::size_t live(int actions);

  private:
    using Action = void (Monkey::*)();
    struct Choice {
        int weight;
        const char* name;
        Action action;
    };

    // The story.
    void act();
    void choose(const std::vector<Choice>& choices, const char* indent);
    void endBurst();
    /// Lets the program run until it is idle.
    void settle();
    /// Runs periodically in whatever event loop is active, and handles a new dialog.
    void watch();
    [[nodiscard]] bool open() const { return forms_.mainForm.isVisible(); }
    [[nodiscard]] TMDIChild* active() const { return forms_.mainForm.activeDocument(); }

    // What can be used (MonkeyChoice.cpp).
    [[nodiscard]] static std::vector<QWidget*> controls(const QWidget& in);
    [[nodiscard]] QWidget* control(const char* name) const;
    [[nodiscard]] QPoint anyPlace(const QWidget& in);
    void anyKey(const QWidget& in);
    void randomClick(const QWidget& in);
    void dragIn(QWidget& view);
    void interruptDrag(QWidget& view);
    [[nodiscard]] QModelIndex anyNode(const QAbstractItemView& view);
    void triggerAny(const QObject& in);
    [[nodiscard]] QString anyFile();

    // Actions on the main form and its windows (MonkeyWindows.cpp).
    void command();
    void menu();
    void toolButton();
    void undoSome();
    void copyAndPaste();
    void newWindow();
    void openFile();
    void closeWindow();
    void leave();
    void dropFile();
    void arrange();
    void switchWindow();
    void key();
    void clickAnywhere();
    void handlePopup();

    // Actions in a document window (MonkeyWindows.cpp).
    void node();
    void clickNode(QTreeView& tree, const QModelIndex& index);
    void expandNode();
    void treeKey();
    void pageButton();
    void pressButton();
    void editNode();
    void editMesh();
    void tool();
    void page();
    void dragPlane();
    void disturbDrag(const QPointer<TMDIChild>& window, const std::string& before);
    void dragModel();
    void wheel();

    // Dialogs (MonkeyDialogs.cpp and MonkeyMaterial.cpp), closed in the end.
    void answer(QWidget& dialog);
    void use(QWidget& dialog);
    void end(QWidget& dialog);
    void useAnything();
    void answerBox(QMessageBox& box);
    void answerFiles(QFileDialog& dialog);
    void answerColor(QColorDialog& dialog);

    void typeName();
    void chooseTexture();
    /// Queues events that wait while the dialog is open and are delivered while it closes.
    void queueBehind();
    void queueOne();

    void swatch();
    void materialMenu();
    void opacity();
    void power();
    void slot();
    void checkMaterial();
    void face();
    void dragTexture();
    void textureButton();

    QString folder_;
    Dice dice_;
    Mouse mouse_;
    EditorForms forms_;
    Ledger ledger_;
    QObject context_;         ///< context of all queued calls; goes with the story
    QList<QWidget*> dialogs_; ///< being answered, the innermost last
};

} // namespace korvane::monkey
