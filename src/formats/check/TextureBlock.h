#pragma once

#include <string_view>

namespace korvane {

/// The texture block of a file.
struct TextureBlock {
    bool named = false; ///< there is a name in quotation marks
    std::string_view name;
    bool standardValues = true; ///< the numbers begin like those that saving writes
};

/// Reads the text after the line that opens a texture block.
[[nodiscard]] TextureBlock readTextureBlock(std::string_view text);

} // namespace korvane
