#pragma once

#include <string_view>

namespace korvane {

/// What a file says of a texture.
struct TextureBlock {
    bool named = false; ///< there is a name in quotation marks
    std::string_view name;
    bool standardValues = true; ///< the numbers behind the name are those of saved files, or fewer
};

/// Reads the text behind the line that opens a texture block.
[[nodiscard]] TextureBlock readTextureBlock(std::string_view text);

} // namespace korvane
