#pragma once

#include "formats/check/Repeated.h"
#include "formats/check/TextLines.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace korvane {

/// Tells of the blocks of a file that are left out, or taken for something else.
class BlockCheck {
  public:
    BlockCheck(std::string_view bytes, FindingList& findings)
        : bytes_(bytes), findings_(findings) {}

    /// A block begins in the line, of which nothing is read. `closingLost` tells that a closing
    /// brace in the same line does not count. Returns whether the block ends elsewhere than it
    /// seems.
    bool takeLeftOut(const TextLine& line, bool closingLost);
    /// The same at the top level, where the lines of a block are looked at one by one.
    void takeLoose(const TextLine& line);
    /// The line is read as the declaration of a frame of that name, though it declares none.
    void takeFalseFrame(const TextLine& line, std::string_view frameName);
    /// Tells what was met more than once.
    void finish();

  private:
    [[nodiscard]] TextLine naming(const TextLine& line) const;
    void leaveOut(std::string_view name, TextPlace place);

    struct FalseFrames {
        Repeated lines; ///< by their first word
        std::string frameName;
    };

    std::string_view bytes_;
    FindingList& findings_;
    TextPlace looseEnd_ = 0;
    std::map<std::string, Repeated, std::less<>> leftOut_; ///< by name, in small letters
    std::map<std::string, FalseFrames, std::less<>> falseFrames_;
};

} // namespace korvane
