// Recovery copies of a document's work.

#include "edit/session/DocumentSession.h"
#include "formats/textures/TextureLoader.h"

#include <QFileInfo>

#include <exception>
#include <optional>
#include <string>
#include <utility>

namespace korvane {

namespace {

struct RecoveryCancelled {};

} // namespace

void DocumentSession::keepCopiesIn(const RecoveryFolder& folder, KeeperClock clock) {
    keeper_.emplace(folder, std::move(clock));
}

bool DocumentSession::hasUnsavedWork() const {
    return fileRevision_ != model_.Revision || planeDrag_.moves(model_) ||
           (materials_ && materials_->dragMoves());
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
    if (givenUp_ == model_.Revision) {
        fileRevision_ = model_.Revision; // counts as saved
    }
    const KeepOutcome outcome = keepCopy(RecoveryKeeper::When::Now);
    if (keeper_) {
        keeper_->leave();
    }
    return outcome;
}

OpenOutcome DocumentSession::recover(LeftCopy& copy, const ReadProgress& progress) {
    TextureLoader textures(QFileInfo(copy.head.model).path());
    std::optional<ModelDocument> read;
    try {
        read = copy.place.read([&](const std::string& name) {
            // only pictures can take long
            if (progress && !progress(0, 1)) {
                throw RecoveryCancelled();
            }
            return textures.load(name);
        });
    } catch (const RecoveryCancelled&) {
        return {ReadStatus::Cancelled, {}};
    } catch (const std::exception&) {
        return {ReadStatus::CannotOpen, {}}; // out of memory
    }
    if (!read) {
        return {ReadStatus::NotValid, {}};
    }
    OpenOutcome outcome = {ReadStatus::Done, takeModel(std::move(*read))};
    fileRevision_.reset();
    file_.reset();
    if (keeper_) {
        keeper_->adopt(std::move(copy.place));
    }
    outcome.changes |= setText(message_, recoveredText(model_, textures.unseen()));
    return outcome;
}

} // namespace korvane
