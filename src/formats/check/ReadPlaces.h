#pragma once

#include "formats/check/FindingList.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace korvane {

/// Where the parts of a frame are; `nowhere` for those that it lacks.
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
    bool broken = false;     ///< its lists end early or are misread, as reported
    bool braceFault = false; ///< a block in it does not end where it seems to, as reported
};

/// Where the parts of a model are in its text.
struct ReadPlaces {
    std::vector<FramePlaces> frames;                     ///< in pre-order
    std::vector<TextPlace> materials;                    ///< by index in the material table
    std::unordered_map<std::string, TextPlace> textures; ///< by name
};

} // namespace korvane
