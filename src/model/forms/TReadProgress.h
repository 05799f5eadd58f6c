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

/// Shows the progress of reading a file if it takes long, and lets the user cancel it. While it is
/// visible, it processes events, but blocks the user's input to other windows.
class TReadProgress {
  public:
    /// Shows nothing until the delay has passed.
    TReadProgress(QWidget& parent, QString fileName, std::chrono::milliseconds delay);
    ~TReadProgress();
    TReadProgress(const TReadProgress&) = delete;
    TReadProgress& operator=(const TReadProgress&) = delete;

    /// `done` of `size` bytes are read. Returns false once the user has cancelled.
    bool report(std::size_t done, std::size_t size);

  private:
    QWidget& parent_;
    QString fileName_;
    std::chrono::milliseconds delay_;
    QElapsedTimer sinceStart_;
    QElapsedTimer sincePump_;
    std::unique_ptr<QProgressDialog> dialog_;
    std::unique_ptr<ModalCall> call_; ///< while there is a dialog, even a cancelled one
};

} // namespace korvane
