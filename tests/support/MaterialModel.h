#pragma once

#include "edit/history/EditHistory.h"
#include "support/EditLadder.h"

#include <memory>

namespace korvane::test {

/// A document for editing materials: frame 1 of the root has a mesh of three faces, the last one
/// without texture coordinates, with slots for the first two of three materials. Material 1 has a
/// texture of 300 x 200 pixels.
struct MaterialModel {
    MaterialModel() {
        TextureImage image;
        image.width = 300;
        image.height = 200;
        image.pixels.assign(300 * 200, Rgba8{200, 100, 50, 255});
        document.Materials.resize(3);
        MaterialRecord& first = document.Materials[0];
        first.TextureImage = std::make_shared<const TextureImage>(image);
        first.TextureFile = "skins\\body.tga";
        first.HasTexture = true;
        document.Root.Children.resize(1);
        document.Root.Children[0].HasMesh = true;
        mesh().HasMaterials = mesh().HasTexCoords = true;
        mesh().Vertices.resize(4);
        for (const auto& face : {std::vector<std::uint32_t>{0, 1, 2}, {0, 2, 3}, {3, 2, 1}}) {
            mesh().Faces.push_back(face);
        }
        mesh().TexCoordFaces.push_back(std::vector<std::uint32_t>{0, 1, 2});
        mesh().TexCoordFaces.push_back(std::vector<std::uint32_t>{0, 2, 3});
        mesh().TexCoords = {{0.1F, 0.9F}, {0.5F, 0.9F}, {0.5F, 0.5F}, {0.1F, 0.5F}};
        mesh().MaterialSlotList = {0, 1};
        mesh().FaceSlotIndex = {0, 1, 1};
        document.computeDerivedData();
        document.Modified = false;
    }

    [[nodiscard]] MeshRecord& mesh() { return document.Root.Children[0].Mesh; }
    [[nodiscard]] MaterialRecord& material() { return document.Materials[0]; }
    [[nodiscard]] static FramePath framePath() { return FramePath().child(1); }

    /// What undo restores: not the slot shown, nor the images, which are loaded again.
    [[nodiscard]] EditSnapshot snapshot() const {
        EditSnapshot taken(document);
        taken.root.Children[0].Mesh.CurrentSlot = 0;
        taken.materials[0].TextureImage = blankTextureImage();
        return taken;
    }

    ModelDocument document;
    EditHistory history;
};

} // namespace korvane::test
