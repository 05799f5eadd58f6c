#include "app/shell/ModelRecovery.h"

#include "app/shell/TRecoveryBox.h"
#include "app/widgets/ModalCall.h"
#include "model/forms/TMDIChild.h"

#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace korvane {

namespace {

/// Returns a message with the names of these unreadable copies and the reasons; empty for none.
QString unreadable(const std::vector<LeftCopy>& copies) {
    QStringList names;
    for (const LeftCopy& copy : copies) {
        names += QStringLiteral("%1 (%2)").arg(QFileInfo(copy.place.fileName()).fileName(),
                                               copy.head.fault == CopyFault::Damaged
                                                   ? QStringLiteral("damaged")
                                                   : QStringLiteral("of another version"));
    }
    return names.isEmpty()
               ? QString()
               : QStringLiteral("Recovery copies that cannot be read are left in %1: %2")
                     .arg(QFileInfo(copies.front().place.fileName()).path(),
                          names.join(QStringLiteral(", ")));
}

} // namespace

ModelRecovery::ModelRecovery() {
    wake_.setSingleShot(true);
    wake_.setTimerType(Qt::PreciseTimer);
    connect(&wake_, &QTimer::timeout, this, &ModelRecovery::due);
}

QString ModelRecovery::keep(const QList<TMDIChild*>& windows, RecoveryKeeper::When when) {
    bool failed = false;
    std::optional<CopyPace::Time> next;
    for (TMDIChild* window : windows) {
        const KeepOutcome outcome = window->session()->keepCopy(when);
        failed = failed || outcome.failed;
        if (outcome.wait) {
            next = std::min(next.value_or(*outcome.wait), *outcome.wait);
        }
    }
    if (next) {
        const auto wait = std::chrono::ceil<std::chrono::milliseconds>(*next);
        if (!wake_.isActive() || wake_.remainingTimeAsDuration() > wait) {
            wake_.start(wait);
        }
    }
    return failed ? failure() : QString();
}

QString ModelRecovery::failure() {
    return std::exchange(told_, true)
               ? QString()
               : QStringLiteral("No recovery copies can be made in %1: save often")
                     .arg(folder_.path());
}

QString ModelRecovery::recoveryFailureText(const QString& model) const {
    return QStringLiteral("No recovery copy of %1 could be made in %2")
        .arg(QFileInfo(model).fileName(), folder_.path());
}

QString ModelRecovery::offer(QWidget& window, const std::function<void(LeftCopy&)>& open) {
    std::vector<LeftCopy> copies = folder_.claimLeft();
    const auto firstBad =
        std::stable_partition(copies.begin(), copies.end(), [](const LeftCopy& copy) {
            return copy.head.fault == CopyFault::None;
        });
    std::vector<LeftCopy> bad(std::make_move_iterator(firstBad),
                              std::make_move_iterator(copies.end()));
    copies.erase(firstBad, copies.end());
    QString notice = unreadable(bad);
    bad.clear();
    if (copies.empty()) {
        return notice;
    }
    TRecoveryBox box(&window);
    box.list(copies, notice);
    execModal(box);
    for (std::size_t i = 0; i < copies.size(); ++i) {
        if (box.choice(i) == CopyChoice::Open) {
            open(copies[i]);
        } else if (box.choice(i) == CopyChoice::ThrowAway) {
            copies[i].place.remove();
        }
    }
    copies.clear();
    folder_.removeOld(); // all have been offered
    folder_.makeRoom();
    return {};
}

} // namespace korvane
