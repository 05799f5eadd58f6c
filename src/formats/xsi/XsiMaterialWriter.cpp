#include "formats/xsi/XsiMaterialWriter.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <utility>

namespace korvane {

namespace {

void writeColor(TextOutput& out, ColorRGB color, bool emissiveFrame) {
    if (emissiveFrame && color.blue == 0.0F) {
        std::swap(color.red, color.green);
    }
    out.real(color.red).text(";").real(color.green).text(";").real(color.blue).text(";");
}

/// Writes a line of integers, each followed by a semicolon.
void writeIntegers(TextOutput& out, std::size_t units, std::initializer_list<std::int32_t> values) {
    out.indent(units);
    for (const std::int32_t value : values) {
        out.integer(value).text(";");
    }
    out.line();
}

/// Writes a line of numbers, each followed by a semicolon.
void writeReals(TextOutput& out, std::size_t units, std::initializer_list<float> values) {
    out.indent(units);
    for (const float value : values) {
        out.real(value).text(";");
    }
    out.line();
}

void writeTexture(TextOutput& out, std::size_t units, const MaterialRecord& m) {
    out.line().indent(units).line("SI_Texture2D  {");
    out.indent(units + 1).text("\"").text(m.TextureFile).line("\";");
    writeIntegers(out, units + 1, {m.MappingType});
    writeIntegers(out, units + 1, {m.ImageWidth, m.ImageHeight});
    writeIntegers(out, units + 1, {m.CropUMin, m.CropUMax, m.CropVMin, m.CropVMax});
    writeIntegers(out, units + 1, {m.UVSwap});
    writeIntegers(out, units + 1, {m.RepeatU, m.RepeatV});
    writeIntegers(out, units + 1, {m.AlternateU, m.AlternateV});
    writeReals(out, units + 1, {m.ScaleU, m.ScaleV});
    writeReals(out, units + 1, {m.OffsetU, m.OffsetV});
    writeMatrixRows(out, units + 1, m.Projection);
    writeIntegers(out, units + 1, {m.BlendingType});
    for (const float factor : {m.Blending, m.TexAmbient, m.TexDiffuse, m.TexSpecular,
                               m.Transparency, m.Reflectivity, m.Roughness}) {
        writeReals(out, units + 1, {factor});
    }
    out.indent(units).line("}");
}

} // namespace

void writeMaterial(TextOutput& out, std::size_t units, const MaterialRecord& material,
                   bool emissiveFrame) {
    const ColorRGBA& face = material.FaceColor;
    out.indent(units).line("SI_Material {");
    out.indent(units + 1);
    writeColor(out, {face.red, face.green, face.blue}, emissiveFrame);
    out.real(face.alpha).line(";;");
    writeReals(out, units + 1, {material.Power});
    out.indent(units + 1);
    writeColor(out, material.Specular, emissiveFrame);
    out.line(";").indent(units + 1);
    writeColor(out, material.Emissive, emissiveFrame);
    out.line(";");
    writeIntegers(out, units + 1, {material.ShadingModel});
    out.indent(units + 1);
    writeColor(out, material.Ambient, emissiveFrame);
    out.line(";");
    if (material.HasTexture) {
        writeTexture(out, units + 1, material);
    }
    out.indent(units).line("}");
}

void writeMatrixRows(TextOutput& out, std::size_t units, const Matrix4& matrix) {
    for (std::size_t row = 0; row < 4; ++row) {
        out.indent(units);
        for (std::size_t column = 0; column < 4; ++column) {
            out.text(column == 0 ? "" : ",").real(matrix[4 * row + column]);
        }
        out.line(row == 3 ? ";;" : ",");
    }
}

} // namespace korvane
