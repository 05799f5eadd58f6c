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

/// A decoded texture, stored row by row from the top. A new image is 1 x 1 and opaque white, so
/// that a material with a missing texture shows its plain colours.
struct TextureImage {
    std::int32_t width = 1;
    std::int32_t height = 1;
    std::vector<Rgba8> pixels = {Rgba8{}};
    bool HasAlpha = false; ///< some alpha byte in the file differs from 255

    bool operator==(const TextureImage&) const = default;
};

/// Returns the image of a texture named as in a model; never null.
using TextureSource = std::function<std::shared_ptr<const TextureImage>(const std::string& name)>;

/// The 1 x 1 image that all materials without a texture share.
const std::shared_ptr<const TextureImage>& blankTextureImage();

} // namespace korvane
