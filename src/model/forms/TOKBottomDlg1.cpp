#include "model/forms/TOKBottomDlg1.h"

#include "app/widgets/Hints.h"
#include "app/widgets/ModalCall.h"
#include "model/records/ModelText.h"
#include "ui_TOKBottomDlg1.h"

#include <QLocale>

#include <limits>

namespace korvane {

namespace {

/// Converts the text to lower case and one line: a line break would end the name in a file.
QString nameFrom(const QString& text) {
    QString name = QLocale::c().toLower(text);
    name.removeIf([](QChar c) {
        return c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
               c == QChar::ParagraphSeparator;
    });
    return name;
}

} // namespace

TOKBottomDlg1::TOKBottomDlg1(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::TOKBottomDlg1>()) {
    ui_->setupUi(this);
    setHints(*this);
    ui_->NameEdit->setMaxLength(std::numeric_limits<int>::max()); // or the initial name is cut
    // textEdited: the initial name stays as it is, only the user's input is converted
    connect(ui_->NameEdit, &QLineEdit::textEdited, this, &TOKBottomDlg1::NameEditChange);
}

TOKBottomDlg1::~TOKBottomDlg1() = default;

std::optional<QString> TOKBottomDlg1::rename(const QString& name, const NameUse& use) {
    use_ = use;
    ui_->NameEdit->setText(name);
    ui_->NameEdit->selectAll();
    ui_->NameEdit->setFocus();
    showHint(name);
    if (execModal(*this) != Accepted) {
        return std::nullopt;
    }
    return ui_->NameEdit->text();
}

void TOKBottomDlg1::NameEditChange(const QString& text) {
    const QString name = nameFrom(text);
    if (name != text) {
        const int cursor = ui_->NameEdit->cursorPosition();
        ui_->NameEdit->setText(name);
        ui_->NameEdit->setCursorPosition(cursor);
    }
    showHint(name);
}

void TOKBottomDlg1::showHint(const QString& name) {
    const QString reason = lostNameReason(modelText(name), use_);
    const QString hint =
        QStringLiteral("A saved file will not fully restore this frame: its name %1.");
    ui_->HintLabel->setText(reason.isEmpty() ? reason : hint.arg(reason));
    // an empty hint takes no room
    ui_->HintLabel->setVisible(!reason.isEmpty());
}

} // namespace korvane
