#pragma once

#include "edit/history/EditHistory.h"

#include <cstddef>
#include <memory>
#include <string>

namespace korvane {

// These set a value of a material, by its number in the table, as one entry of the history. They
// ignore a material that does not exist.

/// `image` is the image of that name if already loaded, else null.
void setTextureFile(EditHistory& history, ModelDocument& document, std::size_t material,
                    std::string name, std::shared_ptr<const TextureImage> image = nullptr);
void setTextureOn(EditHistory& history, ModelDocument& document, std::size_t material, bool on);
void setAmbient(EditHistory& history, ModelDocument& document, std::size_t material,
                const ColorRGB& color);
/// Keeps the opacity.
void setFaceColor(EditHistory& history, ModelDocument& document, std::size_t material,
                  const ColorRGB& color);
void setSpecular(EditHistory& history, ModelDocument& document, std::size_t material,
                 const ColorRGB& color);
void setEmissive(EditHistory& history, ModelDocument& document, std::size_t material,
                 const ColorRGB& color);
/// The model already holds `after`, as it follows the user's input.
void recordOpacity(EditHistory& history, ModelDocument& document, std::size_t material,
                   float before, float after);
void recordPower(EditHistory& history, ModelDocument& document, std::size_t material, float before,
                 float after);

} // namespace korvane
