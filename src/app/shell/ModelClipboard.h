#pragma once

#include "edit/clipboard/ClipboardBlock.h"

#include <QByteArray>
#include <QObject>

#include <optional>

namespace korvane {

/// The system clipboard as far as it holds frames or materials. Whoever has filled it may answer
/// slowly or not at all: what it holds is asked for once after a change, when somebody wants to
/// know.
class ModelClipboard : public QObject {
  public:
    ModelClipboard();

    /// Puts a block, which must be one, on the clipboard, from where other programs can take it as
    /// well. When this program ends it is handed over to the desktop, where that keeps what was
    /// copied.
    static void put(const QByteArray& block);
    /// What block there is; nothing if there is none.
    [[nodiscard]] std::optional<ClipboardContent> content();
    /// The bytes of the block; empty if there is none or its owner does not answer.
    [[nodiscard]] static QByteArray block();

  private:
    void ask();

    bool asked_ = false;
    bool answered_ = false; ///< there was something on the clipboard
    std::optional<ClipboardContent> content_;
};

} // namespace korvane
