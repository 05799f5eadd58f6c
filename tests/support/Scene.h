#pragma once

#include "render/software/SoftwareView.h"

#include <array>
#include <initializer_list>
#include <vector>

namespace korvane::test {

inline void addFace(MeshRecord& mesh, std::initializer_list<std::uint32_t> corners) {
    const std::vector<std::uint32_t> list(corners);
    mesh.Faces.push_back(list);
    mesh.ListRevision.shapeChanged();
}

/// A square of the given half side across the z axis, facing +z, as a new face of the mesh with the
/// material slot.
inline void addSquare(MeshRecord& mesh, float half, float z, std::int32_t slot = 0) {
    const auto first = static_cast<std::uint32_t>(mesh.Vertices.size());
    mesh.Vertices.insert(mesh.Vertices.end(),
                         {{-half, -half, z}, {half, -half, z}, {half, half, z}, {-half, half, z}});
    addFace(mesh, {first, first + 1, first + 2, first + 3});
    mesh.FaceSlotIndex.push_back(slot);
}

/// A material that shows its colour wherever it faces the light and as little else as possible.
inline MaterialRecord plain(float red, float green, float blue, float alpha = 1.0F) {
    MaterialRecord material;
    material.FaceColor = {red, green, blue, alpha};
    material.Power = 0;
    return material;
}

/// A document whose root has a mesh with materials, seen by a camera at (0, 0, 10) that looks along
/// -z with x to the right and y up.
struct Scene {
    explicit Scene(std::vector<MaterialRecord> materials) {
        document.Root.HasMesh = true;
        document.Root.Mesh.HasMaterials = true;
        for (std::size_t i = 0; i < materials.size(); ++i) {
            document.Root.Mesh.MaterialSlotList.push_back(static_cast<std::int32_t>(i));
        }
        document.Materials = std::move(materials);
        state.angles = {0, viewPi, 0};
        view.resize(200, 200);
    }

    /// Empties the mesh but for its material slots.
    void clearMesh() {
        MeshRecord fresh;
        fresh.HasMaterials = true;
        fresh.MaterialSlotList = mesh().MaterialSlotList;
        mesh() = fresh;
    }
    MeshRecord& mesh() { return document.Root.Mesh; }
    void redraw() { view.redraw(document, state); }
    BitmapPixel at(std::int32_t x, std::int32_t y) const { return view.bitmap().at(x, y); }
    std::size_t drawn() const {
        return countOtherThan(imageOf(view.bitmap()), state.colors.background);
    }

    ModelDocument document;
    ViewState state;
    SoftwareView view;
};

/// The largest difference of a channel of two pixels.
inline int difference(BitmapPixel a, BitmapPixel b) {
    int largest = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const int one = static_cast<int>(a >> shift & 0xffU);
        const int other = static_cast<int>(b >> shift & 0xffU);
        largest = std::max(largest, one > other ? one - other : other - one);
    }
    return largest;
}

} // namespace korvane::test
