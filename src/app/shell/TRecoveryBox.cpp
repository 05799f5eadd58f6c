#include "app/shell/TRecoveryBox.h"

#include "app/widgets/Hints.h"
#include "app/widgets/MessageBox.h"
#include "app/widgets/WidgetText.h"
#include "formats/files/FileNames.h"
#include "ui_TRecoveryBox.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QPushButton>
#include <QTreeWidget>

namespace korvane {

TRecoveryBox::TRecoveryBox(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::TRecoveryBox>()) {
    ui_->setupUi(this);
    setHints(*this);
    connect(ui_->OpenButton, &QPushButton::clicked, this, [this] { choose(CopyChoice::Open); });
    connect(ui_->ThrowAwayButton, &QPushButton::clicked, this, [this] {
        if (confirmThrowAway()) {
            choose(CopyChoice::ThrowAway);
        }
    });
    connect(ui_->LaterButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->CopyList, &QTreeWidget::itemChanged, this, &TRecoveryBox::enableButtons);
}

TRecoveryBox::~TRecoveryBox() = default;

void TRecoveryBox::list(const std::vector<LeftCopy>& copies, const QString& notice) {
    choices_.assign(copies.size(), CopyChoice::Later);
    for (std::size_t i = 0; i < copies.size(); ++i) {
        const CopyHead& head = copies[i].head;
        const QString time = QDateTime::fromMSecsSinceEpoch(head.time).toString(
            QStringLiteral("yyyy-MM-dd hh:mm:ss"));
        auto* item =
            new QTreeWidgetItem(ui_->CopyList, {QFileInfo(head.model).fileName(),
                                                QDir::cleanPath(folderOf(head.model)), time});
        item->setToolTip(0, toolTipOf(head.model));
        item->setToolTip(1, toolTipOf(head.model));
        item->setData(0, Qt::UserRole, QVariant::fromValue(static_cast<qulonglong>(i)));
        item->setCheckState(0, Qt::Checked);
    }
    for (int column = 0; column < ui_->CopyList->columnCount(); ++column) {
        ui_->CopyList->resizeColumnToContents(column);
    }
    ui_->NoticeLabel->setText(notice);
    ui_->NoticeLabel->setVisible(!notice.isEmpty());
    ui_->OpenButton->setFocus();
    enableButtons();
}

std::vector<QTreeWidgetItem*> TRecoveryBox::ticked() const {
    std::vector<QTreeWidgetItem*> items;
    for (int row = 0; row < ui_->CopyList->topLevelItemCount(); ++row) {
        QTreeWidgetItem* item = ui_->CopyList->topLevelItem(row);
        if (item->checkState(0) == Qt::Checked) {
            items.push_back(item);
        }
    }
    return items;
}

bool TRecoveryBox::confirmThrowAway() {
    const std::size_t models = ticked().size();
    const QString what = models == 1 ? QStringLiteral("copy of ") + ticked().front()->text(0)
                                     : QStringLiteral("copies of %1 models").arg(models);
    return showMessageBox(this, QStringLiteral("ThrowAwayQuestion"), QMessageBox::Question,
                          QStringLiteral("Throw Away"),
                          QStringLiteral("Throw away the recovery %1 for good?").arg(what),
                          QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

void TRecoveryBox::choose(CopyChoice choice) {
    for (QTreeWidgetItem* item : ticked()) {
        choices_[item->data(0, Qt::UserRole).toULongLong()] = choice;
        delete item; // the destructor takes it off the list
    }
    if (ui_->CopyList->topLevelItemCount() == 0) {
        accept();
    }
    enableButtons();
}

void TRecoveryBox::enableButtons() {
    const bool any = !ticked().empty();
    ui_->OpenButton->setEnabled(any);
    ui_->ThrowAwayButton->setEnabled(any);
}

} // namespace korvane
