#pragma once

#include "formats/xsi/XsiReader.h"
#include "model/records/FrameWalk.h"
#include "render/scene/StartCamera.h"
#include "render/software/SoftwareView.h"

#include <QImage>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

namespace korvane::test {

inline void addFace(MeshRecord& mesh, const std::vector<std::uint32_t>& corners) {
    mesh.Faces.push_back(corners);
    mesh.ListRevision.shapeChanged();
}

/// Adds a face to the mesh: a square of this half side across the z axis, facing +z or -z, with the
/// material slot.
inline void addSquare(MeshRecord& mesh, float half, float z, std::int32_t slot = 0,
                      bool away = false) {
    const auto first = static_cast<std::uint32_t>(mesh.Vertices.size());
    mesh.Vertices.insert(mesh.Vertices.end(),
                         {{-half, -half, z}, {half, -half, z}, {half, half, z}, {-half, half, z}});
    addFace(mesh, {first, first + (away ? 3 : 1), first + 2, first + (away ? 1 : 3)});
    mesh.FaceSlotIndex.push_back(slot);
}

/// Returns a material that shows its colour where it faces the light, and little else.
inline MaterialRecord plain(float red, float green, float blue, float alpha = 1.0F) {
    MaterialRecord material;
    material.FaceColor = {red, green, blue, alpha};
    material.Power = 0;
    return material;
}

/// Gives the material a texture of this width with these pixels.
inline void setTexture(MaterialRecord& material, std::int32_t width,
                       const std::vector<Rgba8>& pixels) {
    auto image = std::make_shared<TextureImage>();
    image->width = width;
    image->height = static_cast<std::int32_t>(pixels.size()) / width;
    image->pixels = pixels;
    material.HasTexture = true;
    material.TextureImage = image;
}

/// A way to draw a document as a picture.
using Draw = std::function<QImage(ModelDocument&, ViewState&)>;

inline Draw bySoftware(std::int32_t width = 200, std::int32_t height = 200) {
    const auto view = std::make_shared<SoftwareView>();
    view->resize(width, height);
    return [view](ModelDocument& document, ViewState& state) {
        view->redraw(document, state);
        return imageOf(view->bitmap()).copy();
    };
}

/// A document whose root has a mesh with materials, seen by a camera at (0, 0, 10) that looks along
/// -z, with x to the right and y up.
struct Scene {
    explicit Scene(std::vector<MaterialRecord> materials, Draw by = bySoftware())
        : draw(std::move(by)) {
        document.Root.HasMesh = true;
        document.Root.Mesh.HasMaterials = true;
        for (std::size_t i = 0; i < materials.size(); ++i) {
            document.Root.Mesh.MaterialSlotList.push_back(static_cast<std::int32_t>(i));
        }
        document.Materials = std::move(materials);
        state.angles = {0, viewPi, 0};
    }

    /// Opens a sample instead, seen as just after opening in a view of this size.
    void open(const char* sample, const QSize& size = {200, 200}) {
        document = ModelDocument();
        const QString name = QStringLiteral(KORVANE_SAMPLES "/") + QString::fromLatin1(sample);
        ASSERT_EQ(FileOpenXSI(name, document), ReadStatus::Done);
        startCamera(document, state, ViewGeometry(size.width(), size.height()));
        state.angles = CameraAngles();
    }
    /// Empties the mesh except for its material slots.
    void clearMesh() {
        MeshRecord fresh;
        fresh.HasMaterials = true;
        fresh.MaterialSlotList = mesh().MaterialSlotList;
        mesh() = fresh;
    }
    MeshRecord& mesh() { return document.Root.Mesh; }
    /// Draws the meshes as they are, with every revision counted up.
    void redraw() {
        for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
            walk.frame().Mesh.ListRevision.shapeChanged();
        }
        picture = draw(document, state);
    }
    /// Returns the pixels per unit at z = 0.
    [[nodiscard]] float unit() const {
        return ViewGeometry(picture.width(), picture.height()).f / 10;
    }
    /// Returns the pixel of a point at z = 0, as the camera of a new scene sees it.
    [[nodiscard]] BitmapPixel at(float x, float y) const {
        const QPoint centre(picture.width() / 2, picture.height() / 2);
        return picture.pixel(centre + QPointF(x * unit() - 0.5F, -y * unit() - 0.5F).toPoint());
    }
    BitmapPixel shown(float x = 0, float y = 0) {
        redraw();
        return at(x, y);
    }
    /// Returns how many pixels of the last picture have the colour.
    [[nodiscard]] int count(BitmapPixel color) const {
        return picture.width() * picture.height() -
               static_cast<int>(countOtherThan(picture, color));
    }
    [[nodiscard]] int drawn() const {
        return picture.width() * picture.height() - count(state.colors.background);
    }

    ModelDocument document;
    ViewState state;
    Draw draw;
    QImage picture; ///< of the last redraw
};

/// Returns the largest difference of two pixels in a channel.
inline int difference(BitmapPixel a, BitmapPixel b) {
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b))});
}

/// Returns the share of pixels of two pictures that differ by more than `levels`.
inline double differing(const QImage& a, const QImage& b, int levels) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            count += difference(a.pixel(x, y), b.pixel(x, y)) > levels ? 1 : 0;
        }
    }
    return static_cast<double>(count) / (a.width() * a.height());
}

} // namespace korvane::test
