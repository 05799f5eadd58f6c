#pragma once

#include "formats/text/LineReader.h"
#include "model/records/FrameRecord.h"
#include "model/records/MaterialRecord.h"
#include "model/records/MeshRecord.h"
#include "model/records/TextureImage.h"

#include <cstddef>
#include <cstdint>
#include <unordered_set>
#include <vector>

namespace korvane {

/// Reads the material lists of meshes into the document's material table, and merges equal
/// materials.
class XsiMaterialReader {
  public:
    XsiMaterialReader(LineReader& lines, std::vector<MaterialRecord>& table,
                      const TextureSource& textures);

    /// Reads a material list into the frame's mesh; the current line is the one that opens it.
    void readList(FrameRecord& frame);

  private:
    void readListEntry(FrameRecord& frame);
    void readDotXsiMaterial(FrameRecord& frame);
    void readDirectXMaterial(FrameRecord& frame);
    bool readSurface(MaterialRecord& material, bool emissiveFrame);
    template <class Color>
    bool readColor(Color& color, bool emissiveFrame);
    void readTextureReference(MaterialRecord& material);
    /// Adds the material to the table, unless an equal one is there, and to the mesh's slots.
    void addToTable(MaterialRecord material, MeshRecord& mesh);

    struct Hash {
        const std::vector<MaterialRecord>* table;
        std::size_t operator()(std::int32_t i) const {
            return materialHash((*table)[static_cast<std::size_t>(i)]);
        }
    };
    struct Same {
        const std::vector<MaterialRecord>* table;
        bool operator()(std::int32_t a, std::int32_t b) const {
            return sameMaterial((*table)[static_cast<std::size_t>(a)],
                                (*table)[static_cast<std::size_t>(b)]);
        }
    };

    LineReader& lines_;
    std::vector<MaterialRecord>& table_;
    const TextureSource& textures_;
    std::unordered_set<std::int32_t, Hash, Same> known_; ///< the table's indices by content
};

} // namespace korvane
