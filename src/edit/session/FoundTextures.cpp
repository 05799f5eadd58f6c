#include "edit/session/FoundTextures.h"

#include "model/document/ModelDocument.h"
#include "model/records/ModelText.h"

#include <QFileInfo>

namespace korvane {

std::optional<QString> FoundTextures::find(const ModelDocument& model, const std::string& name) {
    const QString folder = QFileInfo(model.FileName).path();
    if (!loader_ || loader_->folder() != folder || revision_ != model.Revision) {
        loader_.emplace(folder);
        revision_ = model.Revision;
        byName_.clear();
    }
    const auto [entry, isNew] = byName_.try_emplace(name);
    if (isNew) {
        entry->second = loader_->find(shownText(name));
    }
    return entry->second;
}

} // namespace korvane
