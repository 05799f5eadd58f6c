#pragma once

#include <QElapsedTimer>
#include <QString>

#include <chrono>
#include <cstddef>
#include <memory>

class QProgressDialog;
class QWidget;

namespace korvane {

class ModalCall;

/// Shows how far the reading of a file has got once it takes long, and lets the user cancel it.
/// While it shows it alone lets events through, and keeps the user from the other windows.
class TReadProgress {
  public:
    /// Shows nothing before the delay has passed.
    TReadProgress(QWidget& parent, QString fileName, std::chrono::milliseconds delay);
    ~TReadProgress();
    TReadProgress(const TReadProgress&) = delete;
    TReadProgress& operator=(const TReadProgress&) = delete;

    /// Takes how many bytes are read; false once the user cancelled.
    bool goOn(std::size_t done, std::size_t size);

  private:
    QWidget& parent_;
    QString fileName_;
    std::chrono::milliseconds delay_;
    QElapsedTimer sinceStart_;
    QElapsedTimer sincePump_;
    std::unique_ptr<QProgressDialog> dialog_;
    std::unique_ptr<ModalCall> call_; ///< as long as there is a dialog, even one that was cancelled
};

} // namespace korvane
