#pragma once

#include "formats/check/Finding.h"
#include "formats/textures/TextureLoader.h"
#include "formats/xsi/XsiReader.h"
#include "model/document/ModelDocument.h"

#include <QString>

#include <string_view>
#include <vector>

namespace korvane {

/// What to check besides losses on reading and saving.
struct CheckRequest {
    bool hazards = true;
    TextureLoader* textures = nullptr; ///< finds the textures; null skips their check
};

/// A model as read, with the findings about it.
struct ModelCheck {
    ReadStatus status = ReadStatus::NotValid; ///< that of readXsi
    /// The reason if the header shows why the bytes are refused ("DirectX 0303 text: only 0302 is
    /// read"). If empty, show failureCaption() instead.
    QString refusal;
    ModelDocument document;        ///< as Open reads it, without images
    std::vector<Finding> findings; ///< in line order, those without a line last
};

/// Reads the bytes of a model as Open does, and reports what a user would not notice otherwise.
/// Does not throw: if memory runs out, the status is CannotOpen.
ModelCheck checkModel(std::string_view bytes, const CheckRequest& request = {});

} // namespace korvane
