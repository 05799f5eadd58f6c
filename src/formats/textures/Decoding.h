#pragma once

#include "model/records/TextureImage.h"

#include <cstddef>
#include <exception>
#include <stdexcept>
#include <string>

namespace korvane {

// Every decoder refuses what it cannot decode, what does not fit into memory and what has more than
// `maxPixels`. It allocates no picture that the given bytes could not fill, except small ones of
// the formats whose runs may skip pixels.

/// The most pixels that the pictures of one reading may have together; beyond that, they count as
/// too large for the memory.
inline constexpr std::size_t maxPicturePixels = std::size_t{256} << 20U;
/// The most pixels of one run-length encoded picture, in which a few bytes can claim many.
inline constexpr std::size_t maxPackedPixels = std::size_t{64} << 20U;

/// A picture decoded from bytes, or the reason why there is none.
struct DecodedTexture {
    TextureImage image;    ///< the 1 x 1 image if there is no picture
    std::string refusal;   ///< a few words that end a sentence; empty if there is a picture
    bool tooLarge = false; ///< refused for its size alone: a higher limit might admit it
};

/// Thrown and caught within decoders only.
class TextureRefusal : public std::runtime_error {
  public:
    explicit TextureRefusal(const std::string& reason, bool tooLarge = false)
        : std::runtime_error(reason), tooLarge_(tooLarge) {}
    [[nodiscard]] bool tooLarge() const { return tooLarge_; }

  private:
    bool tooLarge_;
};

inline constexpr char tooManyPixels[] = "it has too many pixels";

/// Refuses a picture without pixels, or with more than are allowed.
inline void checkPixels(std::size_t pixels, std::size_t maxPixels) {
    if (pixels == 0) {
        throw TextureRefusal("it has no pixels");
    }
    if (pixels > maxPixels) {
        throw TextureRefusal(tooManyPixels, true);
    }
}

/// Returns the result of `decode`, or the reason that it throws.
template <class Decode>
DecodedTexture decodedOrRefused(Decode decode) {
    try {
        return {decode(), {}, false};
    } catch (const TextureRefusal& refusal) {
        return {{}, refusal.what(), refusal.tooLarge()};
    } catch (const std::exception&) {
        return {{}, "it does not fit into memory", true};
    }
}

} // namespace korvane
