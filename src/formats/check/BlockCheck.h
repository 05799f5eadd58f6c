#pragma once

#include "formats/check/Repeated.h"
#include "formats/check/TextLines.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace korvane {

/// Reports blocks of a file that the reader skips or takes for something else.
class BlockCheck {
  public:
    BlockCheck(std::string_view bytes, FindingList& findings)
        : bytes_(bytes), findings_(findings) {}

    /// A block that is not read begins in the line. With `closingLost`, a closing brace in the same
    /// line does not count. Returns true if the block ends elsewhere than it seems to.
    bool takeSkippedBlock(const TextLine& line, bool closingLost);
    /// The same at the top level, where the reader skips a block line by line.
    void takeLooseBlock(const TextLine& line);
    /// The line declares no frame, but is read as the declaration of one with this name.
    void takeFalseFrame(const TextLine& line, std::string_view frameName);
    /// Reports the findings that may occur several times.
    void finish();

  private:
    [[nodiscard]] TextLine naming(const TextLine& line) const;
    void leaveOut(std::string_view name, TextPlace place);

    struct FalseFrames {
        Repeated lines; ///< lines with the same first word
        std::string frameName;
    };

    std::string_view bytes_;
    FindingList& findings_;
    TextPlace looseEnd_ = 0;
    std::map<std::string, Repeated, std::less<>> leftOut_; ///< by name, in lower case
    std::map<std::string, FalseFrames, std::less<>> falseFrames_;
};

} // namespace korvane
