#pragma once

#include "formats/xsi/FrameNames.h"

#include <QDialog>
#include <QString>

#include <memory>
#include <optional>

namespace korvane {

namespace Ui {
class TOKBottomDlg1;
}

/// The rename dialog for a frame. It converts what the user types to lower case.
class TOKBottomDlg1 : public QDialog {
    Q_OBJECT
  public:
    explicit TOKBottomDlg1(QWidget* parent);
    ~TOKBottomDlg1() override;

    /// Shows the dialog with an initial name. Returns the new name, or nothing if the user cancels.
    /// Warns of names that a saved file would lose for a frame of this use.
    std::optional<QString> rename(const QString& name, const NameUse& use);

  private:
    void NameEditChange(const QString& text);
    void showHint(const QString& name);

    std::unique_ptr<Ui::TOKBottomDlg1> ui_;
    NameUse use_;
};

} // namespace korvane
