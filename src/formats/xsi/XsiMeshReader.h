#pragma once

#include "formats/text/LineReader.h"
#include "formats/xsi/XsiMaterialReader.h"
#include "model/records/FrameRecord.h"
#include "model/records/MaterialRecord.h"
#include "model/records/PolygonList.h"
#include "model/records/TextureImage.h"

#include <cstddef>
#include <vector>

namespace korvane {

/// Reads the meshes of frames.
class XsiMeshReader {
  public:
    XsiMeshReader(LineReader& lines, std::vector<MaterialRecord>& table,
                  const TextureSource& textures);

    /// Reads a mesh into the frame, up to and including its closing line; the current line is the
    /// one that opens it. Appends to the lists of an earlier mesh of the frame.
    void read(FrameRecord& frame);

  private:
    /// Reads a block of elements and the polygons that index them, up to its closing line.
    template <class Element>
    void readParallelList(std::vector<Element>& elements, PolygonList& polygons);
    void readDirectXTexCoords(MeshRecord& mesh);

    LineReader& lines_;
    XsiMaterialReader materials_;
    /// Limits the corners and polygons in all further copies of face lists, so that a text that
    /// asks for the same copy over and over cannot fill the memory.
    std::size_t copiesLeft_;
};

} // namespace korvane
