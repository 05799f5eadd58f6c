#include "model/forms/TReadProgress.h"

#include "app/widgets/ModalCall.h"
#include "app/widgets/WidgetText.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressDialog>

#include <algorithm>
#include <utility>

namespace korvane {

TReadProgress::TReadProgress(QWidget& parent, QString fileName, std::chrono::milliseconds delay)
    : parent_(parent), fileName_(std::move(fileName)), delay_(delay) {
    sinceStart_.start();
}

TReadProgress::~TReadProgress() = default;

bool TReadProgress::report(std::size_t done, std::size_t size) {
    constexpr int steps = 1000;
    constexpr qint64 pumpInterval = 40; // smooth enough, and does not slow reading down
    if (!dialog_) {
        if (sinceStart_.elapsed() < delay_.count()) {
            return true;
        }
        constexpr int widest = 400;
        dialog_ = std::make_unique<QProgressDialog>(QString(), QStringLiteral("Cancel"), 0, steps,
                                                    &parent_);
        auto* label =
            new QLabel(QStringLiteral("Reading %1").arg(elidedText(parent_, fileName_, widest)));
        label->setTextFormat(Qt::PlainText);
        dialog_->setLabel(label);
        dialog_->setObjectName(QStringLiteral("ReadProgress"));
        dialog_->setWindowTitle(QCoreApplication::applicationName());
        dialog_->setMinimumWidth(widthForTitle(*dialog_, dialog_->windowTitle()));
        dialog_->setWindowModality(Qt::ApplicationModal);
        dialog_->setAutoReset(false);
        dialog_->setMinimumDuration(0);
        call_ = std::make_unique<ModalCall>(*dialog_);
        dialog_->show();
    } else if (sincePump_.elapsed() < pumpInterval) {
        return true;
    }
    sincePump_.start();
    const double part =
        static_cast<double>(done) / static_cast<double>(std::max<std::size_t>(size, 1));
    dialog_->setValue(std::min(static_cast<int>(part * steps), steps));
    QCoreApplication::processEvents(); // the dialog only does so if its value has changed
    return !dialog_->wasCanceled();
}

} // namespace korvane
