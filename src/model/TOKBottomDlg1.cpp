#include "model/TOKBottomDlg1.h"

#include "ui_TOKBottomDlg1.h"

#include <QLocale>

#include <array>

namespace korvane {

namespace {

/// Why a model file could not give the name back; empty if it could.
QString hintAbout(const QString& name) {
    constexpr std::array<const char*, 4> lost = {"frame", " ", "{", "__"};
    for (const char* part : lost) {
        const QString text = QString::fromLatin1(part);
        if (name.contains(text)) {
            return QStringLiteral("A file would not give this name back, because it holds %1.")
                .arg(text == QStringLiteral(" ") ? QStringLiteral("a blank")
                                                 : QStringLiteral("\"%1\"").arg(text));
        }
    }
    return {};
}

} // namespace

TOKBottomDlg1::TOKBottomDlg1(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::TOKBottomDlg1>()) {
    ui_->setupUi(this);
    connect(ui_->NameEdit, &QLineEdit::textChanged, this, &TOKBottomDlg1::NameEditChange);
}

TOKBottomDlg1::~TOKBottomDlg1() = default;

std::optional<QString> TOKBottomDlg1::rename(const QString& name) {
    ui_->NameEdit->setText(name);
    ui_->NameEdit->selectAll();
    ui_->NameEdit->setFocus();
    NameEditChange(ui_->NameEdit->text());
    if (exec() != Accepted) {
        return std::nullopt;
    }
    return ui_->NameEdit->text();
}

void TOKBottomDlg1::NameEditChange(const QString& text) {
    const QString lower = QLocale::c().toLower(text);
    if (lower != text) {
        const int cursor = ui_->NameEdit->cursorPosition();
        ui_->NameEdit->setText(lower);
        ui_->NameEdit->setCursorPosition(cursor);
    }
    ui_->HintLabel->setText(hintAbout(lower));
    // the hint needs room, and gives it back
    ui_->HintLabel->setVisible(!ui_->HintLabel->text().isEmpty());
}

} // namespace korvane
