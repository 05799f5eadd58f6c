#pragma once

#include "edit/clipboard/ClipboardBlock.h"
#include "edit/history/EditHistory.h"
#include "model/document/ModelDocument.h"

#include <QByteArray>

namespace korvane {

/// Whether Copy takes something from a selection of this kind.
bool canCopy(NodeKind selected);

/// Whether Paste puts such content into a selection of this kind.
bool canPaste(NodeKind selected, ClipboardContent content);

/// The block of what the document has selected; empty if there is nothing that Copy takes. Throws
/// as encoding does.
QByteArray copySelection(const ModelDocument& document);

/// Pastes into what the document has selected, as one entry of the history. False if nothing was
/// changed: it does not fit the selection, or there is nothing to paste. `textures` gives the image
/// of a texture that is switched off, which does not travel with its material.
bool pasteIntoSelection(ModelDocument& document, EditHistory& history, ClipboardItem item,
                        const TextureSource& textures);

} // namespace korvane
