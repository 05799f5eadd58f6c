// Copying and pasting in the document window.

#include "edit/ClipboardEdit.h"
#include "formats/TextureLoader.h"
#include "model/TMDIChild.h"

#include <QFileInfo>

#include <utility>

namespace korvane {

bool TMDIChild::canCopy() const {
    return model_ && korvane::canCopy(model_->Selected.NodeKind);
}

QByteArray TMDIChild::copy() const {
    return model_ ? copySelection(*model_) : QByteArray();
}

bool TMDIChild::canPaste(ClipboardContent content) const {
    return acceptsEdits() && korvane::canPaste(model_->Selected.NodeKind, content);
}

void TMDIChild::paste(const QByteArray& block) {
    std::optional<ClipboardItem> item =
        decodeBlock({reinterpret_cast<const std::uint8_t*>(block.data()),
                     static_cast<std::size_t>(block.size())});
    if (!acceptsEdits() || !item) {
        return;
    }
    TextureLoader textures(QFileInfo(model_->FileName).path());
    if (pasteIntoSelection(*model_, history_, std::move(*item),
                           [&textures](const std::string& name) { return textures.load(name); })) {
        rebuildTree();
        render3d();
    }
}

} // namespace korvane
