#pragma once

#include <QLabel>
#include <QList>
#include <QMainWindow>
#include <QStringList>

#include <memory>

namespace korvane {

class TMDIChild;

namespace Ui {
class TMainForm;
}

/// The main frame: menu, tool bar, status bar and the open document windows. It keeps no model data
/// of its own; every command works on the active document window.
class TMainForm : public QMainWindow {
    Q_OBJECT
  public:
    /// `paths` are opened at the first activation, as far as their extension is that of a text
    /// model.
    explicit TMainForm(QStringList paths);
    ~TMainForm() override;

    /// The document window that commands work on, or null if none is open.
    [[nodiscard]] TMDIChild* activeDocument() const;
    /// All open document windows in the order in which they were opened.
    [[nodiscard]] QList<TMDIChild*> documents() const;

  Q_SIGNALS:
    /// The frame has been activated for the first time, or idle without having been.
    void firstActivated();

  protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void FileNew1Execute();
    void FileOpen1Execute();
    void FileClose1Execute();
    void ChildSave();
    void ChildSaveAs();
    void FileExit1Execute();
    void FileClose1Update();
    void Filesaveupdate();
    void Filesaveasupdate();
    void MainFormActivate();

    void connectActions();
    /// Runs whenever the event loop is about to wait.
    void idle();
    void scheduleFirstActivation();
    void createDocument(const QString& name);
    void showSummary();

    std::unique_ptr<Ui::TMainForm> ui_;
    QStringList paths_;
    bool activated_ = false; ///< the first activation has been handled or is about to be
    /// What was read into the active window; hints of menu items cover it for as long as they show.
    QLabel* statusPanel_;
};

} // namespace korvane
