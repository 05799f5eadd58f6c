#pragma once

#include <string>

namespace korvane::test {

/// Returns a model of three frames: "body" with a mesh of two triangles, two material slots and
/// normals, below it "wing", and below that "tip", both without a mesh.
inline std::string smallModel() {
    const auto material = [](const char* color) {
        return std::string("SI_Material {\n") + color +
               ";1;;\n200;\n0.5;0.5;0.5;;\n0;0;0;;\n2;\n0;0;0;;\n}\n";
    };
    return "xsi 0101txt 0032\n\n"
           "Frame frm-body {\n"
           "FrameTransformMatrix {\n1,0,0,0,\n0,1,0,0,\n0,0,1,0,\n0,0,0,1;;\n}\n"
           "Mesh body {\n4;\n0;0;0;,\n1;0;0;,\n1;1;0;,\n0;1;0;;\n2;\n3;0,1,2;,\n3;0,2,3;;\n"
           "MeshMaterialList {\n2;\n2;\n0,\n1;\n" +
           material("1;0;0") + material("0;1;0") +
           "}\n"
           "SI_MeshNormals {\n1;\n0;0;1;;\n2;\n0;3;0,0,0;,\n1;3;0,0,0;;\n}\n"
           "}\n"
           "Frame frm-wing {\nFrame frm-tip {\n}\n}\n"
           "}\n";
}

} // namespace korvane::test
