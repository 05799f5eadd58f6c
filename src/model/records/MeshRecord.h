#pragma once

#include "model/records/Color.h"
#include "model/records/MeshRevision.h"
#include "model/records/PolygonList.h"
#include "render/math/VectorMath.h"

#include <cstdint>
#include <vector>

namespace korvane {

/// The mesh of a frame, in the frame's own space. Files are read as they are, so the lists may not
/// match and indices may point anywhere: check before indexing.
struct MeshRecord {
    std::vector<Vec3> Vertices;
    PolygonList Faces;          ///< corners index Vertices
    std::vector<bool> FaceBits; ///< copied with the frame, in no file
    /// One normal per entry of NormalFaces; computed, in no file.
    std::vector<Vec3> FaceNormals;

    bool HasMaterials = false;
    std::int32_t CurrentSlot = 0;               ///< the slot that the material editor works on
    std::vector<std::int32_t> FaceSlotIndex;    ///< per face, an index into MaterialSlotList
    std::vector<std::int32_t> MaterialSlotList; ///< per slot, an index into the material table

    bool HasNormals = false;
    std::vector<Vec3> Normals;
    PolygonList NormalFaces; ///< runs parallel to Faces; corners index Normals

    bool HasTexCoords = false;
    std::vector<Vec2> TexCoords;
    PolygonList TexCoordFaces; ///< runs parallel to Faces; corners index TexCoords

    bool HasVertexColors = false;
    std::vector<ColorRGBA> VertexColors;
    PolygonList VertexColorFaces; ///< runs parallel to Faces; corners index VertexColors

    /// Call shapeChanged() or surfaceChanged() after changing a mesh that a view may have drawn.
    MeshRevision ListRevision;

    bool operator==(const MeshRecord&) const = default;
};

} // namespace korvane
