#pragma once

#include "formats/text/LineReader.h"
#include "model/records/FrameRecord.h"

#include <cstdint>
#include <string_view>
#include <unordered_map>

namespace korvane {

/// Reads animation sections and adds their keys to the frames that they name.
class XsiAnimationReader {
  public:
    XsiAnimationReader(LineReader& lines, FrameRecord& root)
        : lines_(lines), root_(root), target_{&root} {}

    /// Call when the frames are replaced: drops all pointers into the old tree.
    void forgetFrames();
    /// Reads one section; the current line is the one that opens it.
    void readSection();

  private:
    void skipUnknownBlock();
    void readAnimation();
    void chooseTarget();
    void readKeys();
    bool readKey(AnimationKeyRecord& key);

    struct Target {
        FrameRecord* frame = nullptr;
        std::int32_t number = 0; ///< in pre-order
    };

    LineReader& lines_;
    FrameRecord& root_;
    /// The frame that receives keys. It stays the target until another animation names one.
    Target target_;
    /// For each name the first frame in pre-order; empty until the first look-up.
    std::unordered_map<std::string_view, Target> framesByName_;
    Target lastFrame_; ///< the last in pre-order, once framesByName_ is filled
};

} // namespace korvane
