#pragma once

#include "edit/recovery/RecoveryKeeper.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>

class QWidget;

namespace korvane {

class TMDIChild;

/// Keeps the recovery copies of the open models, and offers those that earlier runs have left.
class ModelRecovery : public QObject {
    Q_OBJECT
  public:
    ModelRecovery();

    [[nodiscard]] const RecoveryFolder& folder() const { return folder_; }
    /// Makes the copies that are due, or all. Returns a message for the user if one failed; empty
    /// if none did or this was reported before.
    QString keep(const QList<TMDIChild*>& windows, RecoveryKeeper::When when);
    /// Returns the message that a window has closed with its work in no file and no copy.
    [[nodiscard]] QString recoveryFailureText(const QString& model) const;
    /// Offers the user the copies of ended programs, in a dialog over the window; `open` opens one.
    /// Returns a message about unreadable copies unless the dialog has shown it.
    QString offer(QWidget& window, const std::function<void(LeftCopy&)>& open);

  Q_SIGNALS:
    /// A copy is due, and no event has caused it to be made.
    void due();

  private:
    /// Returns the message that copies cannot be made; empty after the first call.
    QString failure();

    RecoveryFolder folder_ = RecoveryFolder::ofUser();
    QTimer wake_;
    bool told_ = false;
};

} // namespace korvane
