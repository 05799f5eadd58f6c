#pragma once

#include "formats/check/Finding.h"
#include "formats/textures/TextureLoader.h"
#include "formats/xsi/XsiReader.h"
#include "model/document/ModelDocument.h"

#include <QString>

#include <string_view>
#include <vector>

namespace korvane {

/// What to look for beside what reading and saving lose.
struct CheckRequest {
    bool hazards = true;
    TextureLoader* textures = nullptr; ///< looks for the textures; without one they are not told of
};

/// A model as it is read, and what there is to say of it.
struct ModelCheck {
    ReadStatus status = ReadStatus::NotValid; ///< that of readXsi
    /// Why the bytes are refused, if their header tells it ("DirectX 0303 text: only 0302 is
    /// read"); empty otherwise, then the words of failureCaption hold.
    QString refusal;
    ModelDocument document;        ///< as Open makes it, without pictures
    std::vector<Finding> findings; ///< in the order of lines; those of no line come last
};

/// Reads the bytes of a model as Open does, and tells what a user would not see otherwise. Nothing
/// is thrown.
ModelCheck checkModel(std::string_view bytes, const CheckRequest& request = {});

} // namespace korvane
