#include "support/SizedModel.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace korvane::test {

namespace {

constexpr std::size_t cells = 1000; ///< squares a mesh, two triangles each
constexpr std::size_t columns = 40;
constexpr std::int32_t slots = 4;

/// Rounds as exporters do.
float sixDigits(double value) {
    return static_cast<float>(std::round(value * 1e5) / 1e5);
}

FrameRecord makeFrame(std::size_t number) {
    FrameRecord frame;
    frame.Name = "part" + std::to_string(number);
    frame.Matrix[12] = static_cast<float>(number % 10) * 4;
    frame.HasMesh = true;
    MeshRecord& mesh = frame.Mesh;
    mesh.HasNormals = mesh.HasTexCoords = mesh.HasMaterials = true;
    constexpr std::size_t rows = cells / columns;
    for (std::size_t y = 0; y <= rows; ++y) {
        for (std::size_t x = 0; x <= columns; ++x) {
            const double u = static_cast<double>(x) / columns;
            const double v = static_cast<double>(y) / rows;
            const double height =
                std::sin(9 * u + static_cast<double>(number)) * std::cos(7 * v) * 0.37;
            mesh.Vertices.push_back({sixDigits(3 * u), sixDigits(height), sixDigits(3 * v)});
            mesh.Normals.push_back(Normalize({sixDigits(-height), 1, sixDigits(height * u)}));
            mesh.TexCoords.push_back({sixDigits(u), sixDigits(v)});
        }
    }
    for (std::uint32_t cell = 0; cell < cells; ++cell) {
        const auto corner =
            static_cast<std::uint32_t>(cell / columns * (columns + 1) + cell % columns);
        const auto below = static_cast<std::uint32_t>(corner + columns + 1);
        const std::array<std::uint32_t, 3> first = {corner, below, corner + 1};
        const std::array<std::uint32_t, 3> second = {corner + 1, below, below + 1};
        mesh.Faces.push_back(first);
        mesh.Faces.push_back(second);
        mesh.FaceSlotIndex.insert(mesh.FaceSlotIndex.end(), 2,
                                  static_cast<std::int32_t>(cell % slots));
    }
    mesh.NormalFaces = mesh.TexCoordFaces = mesh.Faces;
    for (std::int32_t slot = 0; slot < slots; ++slot) {
        mesh.MaterialSlotList.push_back(slot);
    }
    return frame;
}

/// Collects formatted text.
class Text {
  public:
    void add(const char* plain) { text_ += plain; }
    template <class First, class... Rest>
    void add(const char* format, First first, Rest... rest) {
        std::array<char, 256> line{};
        const int size = std::snprintf(line.data(), line.size(), format, first, rest...);
        text_.append(line.data(), static_cast<std::size_t>(size));
    }
    void addTriples(const std::vector<Vec3>& list) {
        add("%zu;\n", list.size());
        for (std::size_t i = 0; i < list.size(); ++i) {
            add("%f;%f;%f;%s\n", double{list[i].x}, double{list[i].y}, double{list[i].z},
                i + 1 == list.size() ? ";" : ",");
        }
    }
    void addTriangles(const PolygonList& list) {
        add("%zu;\n", list.size());
        for (std::size_t i = 0; i < list.size(); ++i) {
            add("3;%u,%u,%u;%s\n", list[i][0], list[i][1], list[i][2],
                i + 1 == list.size() ? ";" : ",");
        }
    }
    std::string take() { return std::move(text_); }

  private:
    std::string text_;
};

void addMesh(Text& text, const MeshRecord& mesh, const std::vector<MaterialRecord>& table) {
    text.add("Mesh {\n");
    text.addTriples(mesh.Vertices);
    text.addTriangles(mesh.Faces);
    text.add("MeshMaterialList {\n%zu;\n%zu;\n", mesh.MaterialSlotList.size(),
             mesh.FaceSlotIndex.size());
    for (std::size_t i = 0; i < mesh.FaceSlotIndex.size(); ++i) {
        text.add("%d%s\n", mesh.FaceSlotIndex[i], i + 1 == mesh.FaceSlotIndex.size() ? ";;" : ",");
    }
    for (const MaterialRecord& material : table) {
        text.add("Material {\n%f;%f;%f;1.000000;;\n20.000000;\n0.5;0.5;0.5;;\n0.0;0.0;0.0;;\n}\n",
                 double{material.FaceColor.red}, double{material.FaceColor.green},
                 double{material.FaceColor.blue});
    }
    text.add("}\nMeshNormals {\n");
    text.addTriples(mesh.Normals);
    text.addTriangles(mesh.NormalFaces);
    text.add("}\nMeshTextureCoords {\n%zu;\n", mesh.TexCoords.size());
    for (std::size_t i = 0; i < mesh.TexCoords.size(); ++i) {
        text.add("%f;%f;%s\n", double{mesh.TexCoords[i].u}, 1.0 - double{mesh.TexCoords[i].v},
                 i + 1 == mesh.TexCoords.size() ? ";" : ",");
    }
    text.add("}\n}\n");
}

} // namespace

ModelDocument gridModel(std::size_t faces) {
    ModelDocument document;
    document.Root.Name = "scene";
    for (std::int32_t slot = 0; slot < slots; ++slot) {
        document.Materials.emplace_back().FaceColor.red = static_cast<float>(slot) / slots;
    }
    for (std::size_t i = 0; i < std::max<std::size_t>(faces / (2 * cells), 1); ++i) {
        document.Root.Children.push_back(makeFrame(i));
    }
    return document;
}

ModelDocument groupedFrames(std::size_t count) {
    ModelDocument document;
    document.Root.Name = "root";
    for (std::size_t i = 0; i < count; ++i) {
        if (i % 100 == 0) {
            document.Root.Children.emplace_back().Name = "group" + std::to_string(i / 100);
        }
        std::vector<FrameRecord>& parts = document.Root.Children.back().Children;
        (i % 2 == 0 ? parts : parts.back().Children).emplace_back().Name =
            "part" + std::to_string(i);
    }
    document.computeDerivedData();
    return document;
}

std::string directXText(const ModelDocument& document) {
    Text text;
    text.add("xof 0302txt 0032\n\nFrame scene {\n");
    for (const FrameRecord& frame : document.Root.Children) {
        text.add("Frame %s {\n", frame.Name.c_str());
        addMesh(text, frame.Mesh, document.Materials);
        text.add("}\n");
    }
    text.add("}\n");
    return text.take();
}

} // namespace korvane::test
