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

/// What the user wants with a recovery copy.
enum class CopyChoice { Later, Open, ThrowAway };

/// Lists the models that programs have left unsaved. What is chosen for those that are ticked takes
/// them off the list, and the box closes when that is empty.
class TRecoveryBox : public QDialog {
    Q_OBJECT
  public:
    explicit TRecoveryBox(QWidget* parent);
    ~TRecoveryBox() override;

    /// `notice` is what else there is to tell, if anything.
    void list(const std::vector<LeftCopy>& copies, const QString& notice);
    /// What the user has chosen for one of them.
    [[nodiscard]] CopyChoice choice(std::size_t copy) const { return choices_[copy]; }

  private:
    /// Asks, as nothing brings them back.
    [[nodiscard]] bool throwingAwayAgreed();
    void choose(CopyChoice choice);
    void enableButtons();
    [[nodiscard]] std::vector<QTreeWidgetItem*> ticked() const;

    std::unique_ptr<Ui::TRecoveryBox> ui_;
    std::vector<CopyChoice> choices_;
};

} // namespace korvane
