#pragma once

#include "edit/recovery/RecoveryFolder.h"

#include <QDialog>
#include <QString>

#include <cstddef>
#include <memory>
#include <vector>

class QTreeWidgetItem;

namespace korvane {

namespace Ui {
class TRecoveryBox;
}

/// What to do with a recovery copy.
enum class CopyChoice { Later, Open, ThrowAway };

/// Lists models that ended programs have left unsaved. A choice applies to the ticked ones and
/// takes them off the list; the box closes when the list is empty.
class TRecoveryBox : public QDialog {
    Q_OBJECT
  public:
    explicit TRecoveryBox(QWidget* parent);
    ~TRecoveryBox() override;

    /// Shows `notice` below the list unless it is empty.
    void list(const std::vector<LeftCopy>& copies, const QString& notice);
    /// Returns the choice for the copy of this index in `list`.
    [[nodiscard]] CopyChoice choice(std::size_t copy) const { return choices_[copy]; }

  private:
    /// Asks the user: copies cannot be restored.
    [[nodiscard]] bool confirmThrowAway();
    void choose(CopyChoice choice);
    void enableButtons();
    [[nodiscard]] std::vector<QTreeWidgetItem*> ticked() const;

    std::unique_ptr<Ui::TRecoveryBox> ui_;
    std::vector<CopyChoice> choices_;
};

} // namespace korvane
