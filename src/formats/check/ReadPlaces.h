#pragma once

#include "formats/check/FindingList.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace korvane {

/// Where the parts of a frame stand, for those that it has.
struct FramePlaces {
    TextPlace frame = nowhere;
    TextPlace matrix = nowhere;
    TextPlace mesh = nowhere;
    TextPlace materials = nowhere;
    TextPlace normals = nowhere;
    TextPlace texCoords = nowhere;
    TextPlace vertexColors = nowhere;
    TextPlace keys = nowhere;
    std::size_t keyLists = 0;
    bool namedMaterials = false; ///< a slot only names its material
    bool secondMesh = false;
    bool broken = false;     ///< its lists break off or went astray, which is told
    bool braceFault = false; ///< a block in it is not closed where it seems, which is told
};

/// Where the parts of a model stand in the text that it was read from.
struct ReadPlaces {
    std::vector<FramePlaces> frames;                     ///< in pre-order
    std::vector<TextPlace> materials;                    ///< by place in the material table
    std::unordered_map<std::string, TextPlace> textures; ///< by name
};

} // namespace korvane
