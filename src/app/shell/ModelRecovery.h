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

/// The recovery copies of the open models, and those that other runs of the program have left.
class ModelRecovery : public QObject {
    Q_OBJECT
  public:
    ModelRecovery();

    [[nodiscard]] const RecoveryFolder& folder() const { return folder_; }
    /// Makes the copies of the windows' models that are due, or all. What the user has to be told;
    /// empty where there is nothing, or it was told before.
    QString keep(const QList<TMDIChild*>& windows, RecoveryKeeper::When when);
    /// That a window closed whose model is neither in a file nor in a copy.
    [[nodiscard]] QString lostText(const QString& model) const;
    /// Offers the user what ended programs have left, over the window; `open` opens a copy. What
    /// the user has to be told besides.
    QString offer(QWidget& window, const std::function<void(LeftCopy&)>& open);

  Q_SIGNALS:
    /// A copy is due, and no event has come that would have made it.
    void due();

  private:
    /// That a copy could not be made; empty where it was told before.
    QString failure();

    RecoveryFolder folder_ = RecoveryFolder::ofUser();
    QTimer wake_;
    bool told_ = false;
};

} // namespace korvane
