#include "app/shell/TAboutBox.h"

#include "app/widgets/Hints.h"
#include "render/gl/GlInfo.h"
#include "ui_TAboutBox.h"

#include <QApplication>
#include <QClipboard>
#include <QSysInfo>

#include <optional>

namespace korvane {

namespace {

QString glDescription() {
    const std::optional<GlInfo> gl = probeGl();
    if (!gl) {
        return QStringLiteral("not available");
    }
    return QStringLiteral("%1, %2, %3").arg(gl->vendor, gl->renderer, gl->version);
}

} // namespace

TAboutBox::TAboutBox(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::TAboutBox>()) {
    ui_->setupUi(this);
    setHints(*this);
    setWindowFlag(Qt::MSWindowsFixedSizeDialogHint);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    QFont title = ui_->ProductName->font();
    title.setBold(true);
    title.setPointSizeF(title.pointSizeF() * 1.4);
    ui_->ProductName->setFont(title);
    ui_->ProductName->setText(QApplication::applicationName());
    ui_->Version->setText(QStringLiteral("Version %1").arg(QApplication::applicationVersion()));
    connect(ui_->CopyButton, &QPushButton::clicked, this, &TAboutBox::CopyButtonClick);
}

TAboutBox::~TAboutBox() = default;

void TAboutBox::showEvent(QShowEvent* event) {
    if (ui_->Details->text().isEmpty()) {
        // not earlier: querying the driver takes a moment
        constexpr int icon = 64;
        ui_->ProgramIcon->setPixmap(
            QApplication::windowIcon().pixmap(QSize(icon, icon), devicePixelRatio()));
        ui_->Details->setText(QStringLiteral("Qt %1\n%2, %3, %4\nOpenGL: %5")
                                  .arg(QString::fromLatin1(qVersion()),
                                       QSysInfo::prettyProductName(),
                                       QSysInfo::currentCpuArchitecture(),
                                       QApplication::platformName(), glDescription()));
    }
    QDialog::showEvent(event);
}

QString TAboutBox::report() const {
    return QStringList({ui_->ProductName->text(), ui_->Version->text(), ui_->Details->text()})
        .join(u'\n');
}

void TAboutBox::CopyButtonClick() {
    QApplication::clipboard()->setText(report());
}

} // namespace korvane
