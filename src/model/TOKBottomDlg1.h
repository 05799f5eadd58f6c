#pragma once

#include <QDialog>
#include <QString>

#include <memory>
#include <optional>

namespace korvane {

namespace Ui {
class TOKBottomDlg1;
}

/// The rename dialog: the new name of a frame, in lower case.
class TOKBottomDlg1 : public QDialog {
    Q_OBJECT
  public:
    explicit TOKBottomDlg1(QWidget* parent);
    ~TOKBottomDlg1() override;

    /// Shows the dialog with a name to begin with; the new name, or nothing if the user cancelled.
    std::optional<QString> rename(const QString& name);

  private:
    void NameEditChange(const QString& text);

    std::unique_ptr<Ui::TOKBottomDlg1> ui_;
};

} // namespace korvane
