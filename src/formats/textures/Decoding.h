#pragma once

#include "model/records/TextureImage.h"

#include <cstddef>
#include <exception>
#include <stdexcept>
#include <string>

namespace korvane {

// Every decoder refuses what it cannot decode, what memory cannot hold or what has more pixels than
// it is told. It allocates no picture that the bytes at hand could not fill, but for small ones of
// the formats whose runs may leave pixels out.

/// The pixels that the pictures of one reading may have together; past that, memory counts as not
/// to be had.
inline constexpr std::size_t mostPicturePixels = std::size_t{256} << 20U;
/// The pixels of one picture that is packed in its file (as runs): few bytes can claim many.
inline constexpr std::size_t mostPackedPixels = std::size_t{64} << 20U;

/// A picture decoded from bytes, or the reason why there is none.
struct DecodedTexture {
    TextureImage image;    ///< the 1 x 1 image where there is no picture
    std::string refusal;   ///< a few words that end a sentence; empty where there is a picture
    bool tooLarge = false; ///< refused for its size alone: allowed more pixels it might be decoded
};

/// Thrown by decoders, within them only.
class TextureRefusal : public std::runtime_error {
  public:
    explicit TextureRefusal(const std::string& reason, bool tooLarge = false)
        : std::runtime_error(reason), tooLarge_(tooLarge) {}
    [[nodiscard]] bool tooLarge() const { return tooLarge_; }

  private:
    bool tooLarge_;
};

inline constexpr char tooManyPixels[] = "it has too many pixels";

/// Refuses a picture of no pixels, or of more than are allowed.
inline void checkPixels(std::size_t pixels, std::size_t mostPixels) {
    if (pixels == 0) {
        throw TextureRefusal("it has no pixels");
    }
    if (pixels > mostPixels) {
        throw TextureRefusal(tooManyPixels, true);
    }
}

/// What `decode` gives, or the reason that it throws.
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
