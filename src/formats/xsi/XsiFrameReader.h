#pragma once

#include "formats/text/LineReader.h"
#include "formats/xsi/XsiMeshReader.h"
#include "model/records/FrameRecord.h"
#include "model/records/MaterialRecord.h"
#include "model/records/TextureImage.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// What the declaration line of a frame says.
struct FrameDeclaration {
    std::string name;
    bool emissive = false;
    bool renderBackwards = false;
    bool kv2Animated = false;
    bool gFlag = false;
};

/// Parses a declaration line, folded to lower case, that holds "frame". The name is found by
/// counting characters from there, ten where the line holds "frm-" and six otherwise, and runs up
/// to a space, an opening brace or the "__" before the flag letters.
FrameDeclaration parseFrameDeclaration(std::string_view line);

/// Reads frames with all that they hold.
class XsiFrameReader {
  public:
    XsiFrameReader(LineReader& lines, std::vector<MaterialRecord>& table,
                   const TextureSource& textures);

    /// Reads the top-level frame that the current line declares into `root`, up to and including
    /// its closing line. An earlier top-level frame's children, vertices and faces are dropped; its
    /// other lists stay, and may not fit.
    void readTopLevel(FrameRecord& root);

  private:
    void readBody(FrameRecord& frame, const FrameDeclaration& declaration, std::size_t depth);
    void readChild(FrameRecord& parent, std::size_t depth);
    void readMatrix(Matrix4& matrix);

    LineReader& lines_;
    XsiMeshReader meshes_;
};

} // namespace korvane
