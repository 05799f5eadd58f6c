#pragma once

#include "edit/clipboard/ClipboardBlock.h"

#include <QByteArray>
#include <QObject>

#include <optional>

namespace korvane {

/// Puts frames and materials on the system clipboard and reads them. The owner of its content may
/// hang, so the content's kind is queried lazily and cached until the clipboard changes.
class ModelClipboard : public QObject {
  public:
    ModelClipboard();

    /// Puts a valid block on the clipboard, where other programs can read it as well. It survives
    /// the end of this program if the desktop has a clipboard manager.
    static void put(const QByteArray& block);
    /// Returns what the block on the clipboard contains, or nothing if there is none.
    [[nodiscard]] std::optional<ClipboardContent> content();
    /// Returns the bytes of the block; empty if there is none or its owner does not answer.
    [[nodiscard]] static QByteArray block();

  private:
    void ask();

    bool asked_ = false;
    bool answered_ = false; ///< the clipboard had content of any kind
    std::optional<ClipboardContent> content_;
};

} // namespace korvane
