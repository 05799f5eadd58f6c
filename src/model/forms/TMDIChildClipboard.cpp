// Copying and pasting in the document window.

#include "edit/clipboard/ClipboardEdit.h"
#include "edit/clipboard/ClipboardReader.h"
#include "formats/files/ByteReader.h"
#include "formats/textures/TextureLoader.h"
#include "model/forms/TMDIChild.h"

#include <QFileInfo>

#include <utility>
#include <variant>

namespace korvane {

bool TMDIChild::canCopy() const {
    return acceptsEdits() && korvane::canCopy(model_->Selected.NodeKind);
}

QByteArray TMDIChild::copy() const {
    return acceptsEdits() ? copySelection(*model_) : QByteArray();
}

bool TMDIChild::canPaste(ClipboardContent content) const {
    return acceptsEdits() && korvane::canPaste(model_->Selected.NodeKind, content);
}

void TMDIChild::paste(const QByteArray& block) {
    if (!mayEdit()) {
        return;
    }
    std::optional<ClipboardItem> item = decodeBlock(bytesOf(block));
    const bool frameToFrame = item && std::holds_alternative<CopiedFrame>(*item) &&
                              model_->Selected.NodeKind == NodeKind::Frame;
    TextureLoader textures(QFileInfo(model_->FileName).path());
    if (item &&
        pasteIntoSelection(*model_, history_, std::move(*item),
                           [&textures](const std::string& name) { return textures.load(name); })) {
        rebuildTree();
        render3d();
    } else {
        showPasteFailure(frameToFrame
                             ? QStringLiteral("Frames cannot be nested any deeper.")
                             : QStringLiteral("The clipboard gives nothing that can be pasted."));
    }
}

} // namespace korvane
