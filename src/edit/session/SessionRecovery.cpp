// How the work of a document outlives the program.

#include "edit/session/DocumentSession.h"
#include "formats/textures/TextureLoader.h"

#include <QFileInfo>

#include <utility>

namespace korvane {

void DocumentSession::keepCopiesIn(const RecoveryFolder& folder, KeeperClock clock) {
    keeper_.emplace(folder, std::move(clock));
}

bool DocumentSession::hasUnsavedWork() const {
    return fileRevision_ != model_.Revision || planeDrag_.moves(model_) ||
           (materials_ && materials_->dragging());
}

KeepOutcome DocumentSession::keepCopy(RecoveryKeeper::When when) {
    if (!keeper_) {
        return {};
    }
    if (!hasUnsavedWork()) {
        keeper_->drop();
        return {};
    }
    return keeper_->keep(model_, when);
}

KeepOutcome DocumentSession::endWork() {
    cancelPlaneDrag();
    if (givenUp_) {
        fileRevision_ = model_.Revision; // it is as good as saved
    }
    const KeepOutcome outcome = keepCopy(RecoveryKeeper::When::Now);
    if (keeper_) {
        keeper_->leave();
    }
    return outcome;
}

std::optional<Changes> DocumentSession::recover(LeftCopy& copy) {
    TextureLoader textures(QFileInfo(copy.head.model).path());
    std::optional<ModelDocument> read =
        copy.place.read([&textures](const std::string& name) { return textures.load(name); });
    if (!read) {
        return std::nullopt;
    }
    Changes changes = takeModel(std::move(*read));
    fileRevision_.reset();
    file_.reset();
    if (keeper_) {
        keeper_->adopt(std::move(copy.place), model_);
    }
    return changes | setText(message_, recoveredText(model_, textures.unseen()));
}

} // namespace korvane
