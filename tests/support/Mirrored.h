#pragma once

#include "model/records/FrameRecord.h"
#include "render/scene/ViewState.h"
#include "support/Scene.h"

#include <QImage>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace korvane::test {

/// Mirrors whatever hangs below the matrix, and so its world matrix: x runs the other way.
inline void mirror(Matrix4& matrix) {
    for (const std::size_t element : {0U, 4U, 8U, 12U}) {
        matrix[element] = -matrix[element];
    }
}

/// The lists with their corners the other way round, from the same first one.
inline PolygonList turnedRound(const PolygonList& lists) {
    PolygonList turned;
    for (std::size_t i = 0; i < lists.size(); ++i) {
        std::vector<std::uint32_t> corners(lists[i].begin(), lists[i].end());
        if (!corners.empty()) {
            std::reverse(corners.begin() + 1, corners.end());
        }
        turned.push_back(corners);
    }
    return turned;
}

/// Makes a tree that shows as this one does under mirror() of its root's matrix, with matrices that
/// mirror nothing: what is mirrored is in the meshes.
inline void mirrorMeshes(FrameRecord& frame) {
    MeshRecord& mesh = frame.Mesh;
    for (Vec3& vertex : mesh.Vertices) {
        vertex.x = -vertex.x;
    }
    for (Vec3& normal : mesh.Normals) {
        normal.x = -normal.x;
    }
    for (PolygonList* lists : {&mesh.Faces, &mesh.NormalFaces, &mesh.TexCoordFaces}) {
        *lists = turnedRound(*lists);
    }
    mirror(frame.Matrix);
    for (const std::size_t element : {0U, 1U, 2U, 3U}) {
        frame.Matrix[element] = -frame.Matrix[element];
    }
    mesh.ListRevision.shapeChanged();
    for (FrameRecord& child : frame.Children) {
        mirrorMeshes(child);
    }
}

/// What mirrored frames are tried with.
struct MirrorCase {
    const char* name;
    RenderMode mode = RenderMode::SmoothShading;
    bool normals = true;
    float opacity = 1.0F;
    bool showHidden = true;
    bool backwards = false;
    float nearer = 1.0F; ///< the share of the start distance: below 1 faces cross the planes
};

inline constexpr MirrorCase mirrorCases[] = {
    {.name = "smooth"},
    {.name = "flat", .mode = RenderMode::FlatShading},
    {.name = "no normals", .normals = false},
    {.name = "flat, no normals", .mode = RenderMode::FlatShading, .normals = false},
    {.name = "near", .nearer = 0.3F},
    {.name = "translucent", .opacity = 0.5F},
    {.name = "translucent, near sides", .opacity = 0.5F, .showHidden = false},
    {.name = "backwards", .backwards = true},
};

inline void apply(const MirrorCase& setting, FrameRecord& frame) {
    frame.RenderBackwards = setting.backwards;
    frame.Mesh.HasNormals = frame.Mesh.HasNormals && setting.normals;
    for (FrameRecord& child : frame.Children) {
        apply(setting, child);
    }
}

/// Tries all cases with a document whose camera sees the model whole: `picture` draws a document
/// with a state, and at most the share of the pixels may differ between the mirrored model and its
/// plain twin. Where one corner gives a face its colour in flat shading, it may be another one in
/// the twin: only faces without normals are then compared.
template <class Picture>
void expectMirroredShowsAsItsTwin(const ModelDocument& document, const Picture& picture,
                                  double allowedShare, bool colorOfOneCorner = false) {
    for (const MirrorCase& setting : mirrorCases) {
        if (colorOfOneCorner && setting.mode == RenderMode::FlatShading && setting.normals) {
            continue;
        }
        ViewState state;
        state.mode = setting.mode;
        state.showHiddenTransparent = setting.showHidden;
        ModelDocument mirrored = document;
        mirrored.CameraCenter.x = -mirrored.CameraCenter.x;
        mirrored.CameraDistance *= setting.nearer;
        for (MaterialRecord& material : mirrored.Materials) {
            material.FaceColor.alpha = setting.opacity;
        }
        apply(setting, mirrored.Root);
        ModelDocument twin = mirrored;
        mirror(mirrored.Root.Matrix);
        mirrorMeshes(twin.Root);
        const QImage a = picture(mirrored, state);
        const QImage b = picture(twin, state);
        const auto pixels = static_cast<double>(a.width()) * a.height();
        EXPECT_GT(static_cast<double>(countOtherThan(b, state.colors.background)), pixels / 50);
        int differing = 0;
        for (int y = 0; y < a.height(); ++y) {
            for (int x = 0; x < a.width(); ++x) {
                constexpr int levels = 4;
                differing += difference(a.pixel(x, y), b.pixel(x, y)) > levels ? 1 : 0;
            }
        }
        EXPECT_LE(differing / pixels, allowedShare) << setting.name;
    }
}

} // namespace korvane::test
