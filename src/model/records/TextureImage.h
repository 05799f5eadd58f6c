#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace korvane {

/// One pixel: red, green, blue and alpha bytes in this order.
struct Rgba8 {
    std::uint8_t red = 255;
    std::uint8_t green = 255;
    std::uint8_t blue = 255;
    std::uint8_t alpha = 255;

    bool operator==(const Rgba8&) const = default;
};

/// A decoded texture. Row 0 is the top of the picture; pixels are stored row by row. A new image is
/// 1 x 1 and opaque white, so that a material whose texture is missing shows its plain colours.
struct TextureImage {
    std::int32_t width = 1;
    std::int32_t height = 1;
    std::vector<Rgba8> pixels = {Rgba8{}};
    bool HasAlpha = false; ///< some loaded alpha byte differs from 255

    bool operator==(const TextureImage&) const = default;
};

/// Gives the image of a texture as a model names it; never null.
using TextureSource = std::function<std::shared_ptr<const TextureImage>(const std::string& name)>;

/// The one 1 x 1 image that every material without a texture of its own shares.
const std::shared_ptr<const TextureImage>& blankTextureImage();

} // namespace korvane
