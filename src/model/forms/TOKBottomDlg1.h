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

/// The rename dialog: the new name of a frame, in lower case.
class TOKBottomDlg1 : public QDialog {
    Q_OBJECT
  public:
    explicit TOKBottomDlg1(QWidget* parent);
    ~TOKBottomDlg1() override;

    /// Shows the dialog with a name to begin with; the new name, or nothing if the user cancelled.
    /// It warns of names that would be lost in a file where the frame is used like this.
    std::optional<QString> rename(const QString& name, const NameUse& use);

  private:
    void NameEditChange(const QString& text);
    void showHint(const QString& name);

    std::unique_ptr<Ui::TOKBottomDlg1> ui_;
    NameUse use_;
};

} // namespace korvane
