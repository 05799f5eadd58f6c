#pragma once

#include "edit/history/EditHistory.h"

#include <cstddef>
#include <memory>
#include <string>

namespace korvane {

// Records of the values of a material, by its number in the table. Each makes its change, as one
// entry of the history; what leads nowhere in the model is left alone.

/// `image` is that of the name where it is loaded already, else null.
void setTextureFile(EditHistory& history, ModelDocument& document, std::size_t material,
                    std::string name, std::shared_ptr<const TextureImage> image = nullptr);
void setTextureOn(EditHistory& history, ModelDocument& document, std::size_t material, bool on);
void setAmbient(EditHistory& history, ModelDocument& document, std::size_t material,
                const ColorRGB& color);
/// The opacity stays.
void setFaceColor(EditHistory& history, ModelDocument& document, std::size_t material,
                  const ColorRGB& color);
void setSpecular(EditHistory& history, ModelDocument& document, std::size_t material,
                 const ColorRGB& color);
void setEmissive(EditHistory& history, ModelDocument& document, std::size_t material,
                 const ColorRGB& color);
/// The model already holds `after`, as it followed the user's hand.
void recordOpacity(EditHistory& history, ModelDocument& document, std::size_t material,
                   float before, float after);
void recordPower(EditHistory& history, ModelDocument& document, std::size_t material, float before,
                 float after);

} // namespace korvane
