#pragma once

namespace korvane {

/// A colour of the model: channels 0 to 1.
struct ColorRGB {
    float red = 0.0F;
    float green = 0.0F;
    float blue = 0.0F;

    bool operator==(const ColorRGB&) const = default;
};

/// A colour of the model with opacity: channels 0 to 1, alpha 1 is opaque.
struct ColorRGBA {
    float red = 0.0F;
    float green = 0.0F;
    float blue = 0.0F;
    float alpha = 0.0F;

    bool operator==(const ColorRGBA&) const = default;
};

} // namespace korvane
