#include "render/scene/StartCamera.h"
#include "render/software/SoftwareView.h"

#include <array>
#include <fuzzer/FuzzedDataProvider.h>
#include <limits>

namespace {

using namespace korvane;

/// Makes models, materials and cameras of the input: everyday values mostly, any value at times.
class Source {
  public:
    Source(const std::uint8_t* data, std::size_t size) : data_(data, size) {}

    bool flag() { return data_.ConsumeBool(); }
    int number(int least, int most) { return data_.ConsumeIntegralInRange(least, most); }
    float real() {
        constexpr float infinity = std::numeric_limits<float>::infinity();
        constexpr std::array odd = {std::numeric_limits<float>::quiet_NaN(),
                                    infinity,
                                    -infinity,
                                    3e38F,
                                    -3e38F,
                                    1e16F,
                                    1e-38F,
                                    -0.0F,
                                    0.25F,
                                    5000.0F};
        const int kind = number(0, 40);
        if (kind < static_cast<int>(odd.size())) {
            return odd[static_cast<std::size_t>(kind)];
        }
        return static_cast<float>(number(-1000, 1000)) / 100;
    }
    Vec3 vec3() { return {real(), real(), real()}; }
    ColorRGB color() { return {real(), real(), real()}; }

    /// Polygons with corners that mostly are below the count.
    PolygonList polygons(std::size_t count) {
        PolygonList list;
        const int most = static_cast<int>(count) + 1;
        for (int face = number(0, 12); face > 0; --face) {
            const int corners = number(0, flag() ? 4 : 40);
            for (std::uint32_t& corner : list.openCorners(static_cast<std::size_t>(corners))) {
                corner = static_cast<std::uint32_t>(number(-1, most));
            }
            list.closePolygon();
        }
        return list;
    }

    MaterialRecord material() {
        MaterialRecord material;
        const ColorRGB face = color();
        material.FaceColor = {face.red, face.green, face.blue, flag() ? 1.0F : real()};
        material.Power = real();
        material.Specular = color();
        material.Emissive = color();
        material.Ambient = color();
        if (flag()) {
            auto image = std::make_shared<TextureImage>();
            image->width = number(1, 5);
            image->height = number(1, 5);
            image->pixels.resize(static_cast<std::size_t>(image->width * image->height));
            image->HasAlpha = flag();
            image->pixels[0] = {9, 99, 199, static_cast<std::uint8_t>(number(0, 255))};
            material.HasTexture = true;
            material.TextureImage = image;
        }
        return material;
    }

    void mesh(MeshRecord& mesh) {
        for (int i = number(0, 12); i > 0; --i) {
            mesh.Vertices.push_back(vec3());
        }
        mesh.Faces = polygons(mesh.Vertices.size());
        mesh.HasMaterials = flag();
        for (int i = number(0, 3); i > 0; --i) {
            mesh.MaterialSlotList.push_back(number(-1, 4));
            mesh.FaceSlotIndex.push_back(number(-1, 4));
        }
        mesh.HasNormals = flag();
        for (int i = number(0, 4); i > 0; --i) {
            mesh.Normals.push_back(vec3());
        }
        mesh.NormalFaces = flag() ? mesh.Faces : polygons(mesh.Normals.size());
        mesh.HasTexCoords = flag();
        for (int i = number(0, 6); i > 0; --i) {
            mesh.TexCoords.push_back({real(), real()});
        }
        mesh.TexCoordFaces = flag() ? mesh.Faces : polygons(mesh.TexCoords.size());
    }

    void frame(FrameRecord& frame, int depth) {
        frame.HasMesh = flag();
        frame.RenderBackwards = flag();
        frame.SelectState = static_cast<SelectState>(number(0, 2));
        for (auto& flag : frame.ViewFlags) {
            flag = number(0, 7) != 0;
        }
        for (int i = number(0, 3); i > 0; --i) {
            frame.Matrix[static_cast<std::size_t>(number(0, 15))] = real();
        }
        mesh(frame.Mesh);
        for (int i = depth < 3 ? number(0, 2) : 0; i > 0; --i) {
            this->frame(frame.Children.emplace_back(), depth + 1);
        }
    }

    ViewState state() {
        ViewState state;
        state.mode = static_cast<RenderMode>(number(0, 2));
        state.dots = number(0, 7) == 0;
        state.allowTransparent = flag();
        state.showHiddenTransparent = flag();
        state.angles = {real(), real(), real()};
        if (number(0, 7) == 0) {
            state.light = vec3();
            state.eye = vec3();
        }
        return state;
    }

  private:
    FuzzedDataProvider data_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Source source(data, size);
    SoftwareView view;
    view.resize(source.number(0, 90), source.number(0, 90));
    ViewState state = source.state();
    ModelDocument document;
    const bool placed = source.flag();
    document.CameraDistance = source.real();
    document.CameraCenter = source.vec3();
    for (int i = source.number(0, 3); i > 0; --i) {
        document.Materials.push_back(source.material());
    }
    source.frame(document.Root, 0);
    if (placed) {
        startCamera(document, state, view.geometry());
    }
    view.redraw(document, state);
    state.mode = static_cast<RenderMode>(source.number(0, 2));
    view.resize(view.geometry().width + 1, view.geometry().height);
    view.redraw(document, state);
    return 0;
}
