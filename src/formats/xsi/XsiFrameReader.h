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

/// The contents of a frame's declaration line.
struct FrameDeclaration {
    std::string name;
    bool emissive = false;
    bool renderBackwards = false;
    bool kv2Animated = false;
    bool gFlag = false;
};

/// Parses a declaration line, folded to lower case, that holds "frame". The name begins ten
/// characters after the start of "frame" if the line holds "frm-", else six, and ends at a blank,
/// an opening brace or the "__" before the flag letters.
FrameDeclaration parseFrameDeclaration(std::string_view line);

/// Reads frames with all their contents.
class XsiFrameReader {
  public:
    XsiFrameReader(LineReader& lines, std::vector<MaterialRecord>& table,
                   const TextureSource& textures);

    /// Reads the top-level frame that the current line declares into `root`, up to and including
    /// its closing line. Drops the children, vertices and faces of an earlier top-level frame; its
    /// other lists stay, and may no longer fit.
    void readTopLevel(FrameRecord& root);

  private:
    void readBody(FrameRecord& frame, const FrameDeclaration& declaration, std::size_t depth);
    void readChild(FrameRecord& parent, std::size_t depth);
    void readMatrix(Matrix4& matrix);

    LineReader& lines_;
    XsiMeshReader meshes_;
};

} // namespace korvane
