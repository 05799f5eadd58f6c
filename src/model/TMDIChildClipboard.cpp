// Copying and pasting in the document window.

#include "edit/ClipboardEdit.h"
#include "formats/ByteReader.h"
#include "formats/TextureLoader.h"
#include "model/TMDIChild.h"

#include <QFileInfo>

#include <utility>

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
    if (!acceptsEdits()) {
        return;
    }
    std::optional<ClipboardItem> item = decodeBlock(bytesOf(block));
    if (!item) {
        showPasteFailure(QStringLiteral("The clipboard gives nothing that can be pasted."));
        return;
    }
    const bool isFrame = std::holds_alternative<CopiedFrame>(*item);
    TextureLoader textures(QFileInfo(model_->FileName).path());
    if (pasteIntoSelection(*model_, history_, std::move(*item),
                           [&textures](const std::string& name) { return textures.load(name); })) {
        rebuildTree();
        render3d();
    } else if (isFrame) {
        showPasteFailure(QStringLiteral("Frames cannot be nested any deeper."));
    }
}

} // namespace korvane
