#pragma once

#include "edit/clipboard/ClipboardBlock.h"
#include "edit/history/EditHistory.h"
#include "model/document/ModelDocument.h"

#include <QByteArray>

namespace korvane {

/// Whether Copy works with a selection of this kind.
bool canCopy(NodeKind selected);

/// Whether Paste accepts the content with a selection of this kind.
bool canPaste(NodeKind selected, ClipboardContent content);

/// Encodes the document's selection; empty if Copy does not work with it. Throws as encoding does.
QByteArray copySelection(const ModelDocument& document);

/// Pastes into the document's selection as one entry of the history. Returns false if nothing
/// changed: the item does not fit the selection or is empty. `textures` loads images of disabled
/// textures, which a block does not contain.
bool pasteIntoSelection(ModelDocument& document, EditHistory& history, ClipboardItem item,
                        const TextureSource& textures);

} // namespace korvane
