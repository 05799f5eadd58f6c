#include "formats/xsi/XsiWriter.h"

#include "formats/files/AtomicFile.h"
#include "formats/files/Checksum.h"
#include "formats/xsi/FrameNames.h"
#include "formats/xsi/XsiMaterialWriter.h"
#include "model/records/FrameWalk.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

namespace {

constexpr std::string_view preamble = "xsi 0101txt 0032\n"
                                      "\n"
                                      "SI_CoordinateSystem coord {\n"
                                      "   1;\n"
                                      "   0;\n"
                                      "   1;\n"
                                      "   0;\n"
                                      "   2;\n"
                                      "   5;\n"
                                      "}\n"
                                      "\n"
                                      "\n"
                                      "\n"
                                      "SI_Angle {\n"
                                      "   0;\n"
                                      "}\n"
                                      "\n"
                                      "SI_Camera  Camera1 {\n"
                                      "   1.297981; 2.646989; 3.466687;;\n"
                                      "   -1.766339; 1.376721; 2.805893;;\n"
                                      "   0.000000;\n"
                                      "   60.000031;\n"
                                      "   0.100000;\n"
                                      "   32768.000000;\n"
                                      "}\n"
                                      "\n"
                                      "SI_Ambience {\n"
                                      "   0.500000; 0.500000; 0.500000;;\n"
                                      "}\n"
                                      "\n"
                                      "SI_Fog {\n"
                                      "   0;\n"
                                      "   0;\n"
                                      "   0.500000; 0.500000; 0.500000;;\n"
                                      "   20.000000;\n"
                                      "   100.000000;\n"
                                      "}\n"
                                      "\n"
                                      "SI_Light  light1 {\n"
                                      "   0;\n"
                                      "   1.000000; 1.000000; 1.000000;;\n"
                                      "   0.000000; 5.966998; 0.000000;;\n"
                                      "}\n"
                                      "\n";

void writeComponents(TextOutput& out, const Vec3& v) {
    out.real(v.x).text(";").real(v.y).text(";").real(v.z).text(";");
}
void writeComponents(TextOutput& out, const Vec2& v) {
    out.real(v.u).text(";").real(v.v).text(";");
}
void writeComponents(TextOutput& out, const ColorRGBA& c) {
    out.real(c.red).text(";").real(c.green).text(";").real(c.blue).text(";").real(c.alpha).text(
        ";");
}

/// Returns the end of entry i of a list.
std::string_view entryEnd(std::size_t i, std::size_t size) {
    return i + 1 == size ? ";" : ",";
}

template <class Element>
void writeElements(TextOutput& out, std::size_t units, const std::vector<Element>& list) {
    out.indent(units).count(list.size()).line(";");
    for (std::size_t i = 0; i < list.size(); ++i) {
        out.indent(units);
        writeComponents(out, list[i]);
        out.line(entryEnd(i, list.size()));
    }
}

/// With `numbered`, each polygon begins with its number, as in the lists parallel to the faces.
void writePolygons(TextOutput& out, std::size_t units, const PolygonList& polygons, bool numbered) {
    out.line().indent(units).count(polygons.size()).line(";");
    for (std::size_t i = 0; i < polygons.size(); ++i) {
        const auto corners = polygons[i];
        out.indent(units);
        if (numbered) {
            out.count(i).text(";");
        }
        out.count(corners.size()).text(";");
        for (std::size_t c = 0; c < corners.size(); ++c) {
            out.text(c == 0 ? "" : ",").integer(static_cast<std::int32_t>(corners[c]));
        }
        out.text(";").line(entryEnd(i, polygons.size()));
    }
}

template <class Element>
void writeParallelList(TextOutput& out, std::size_t units, std::string_view keyword,
                       const std::vector<Element>& elements, const PolygonList& polygons) {
    out.line().indent(units).text(keyword).line(" {");
    writeElements(out, units + 1, elements);
    writePolygons(out, units + 1, polygons, true);
    out.indent(units).line("}");
}

void writeMaterialList(TextOutput& out, std::size_t units, const FrameRecord& frame,
                       const std::vector<MaterialRecord>& table) {
    const MeshRecord& mesh = frame.Mesh;
    out.line().indent(units).line("MeshMaterialList {");
    out.indent(units + 1).count(mesh.MaterialSlotList.size()).line(";");
    out.indent(units + 1).count(mesh.FaceSlotIndex.size()).line(";");
    for (std::size_t i = 0; i < mesh.FaceSlotIndex.size(); ++i) {
        out.indent(units + 1).integer(mesh.FaceSlotIndex[i]);
        out.line(entryEnd(i, mesh.FaceSlotIndex.size()));
    }
    out.line();
    const MaterialRecord newMaterial; // for slots that refer to no material
    for (const std::int32_t entry : mesh.MaterialSlotList) {
        const auto index = static_cast<std::size_t>(entry);
        writeMaterial(out, units + 1, index < table.size() ? table[index] : newMaterial,
                      frame.Emissive);
    }
    out.indent(units).line("}");
}

void writeMatrix(TextOutput& out, std::size_t units, std::string_view keyword,
                 const Matrix4& matrix) {
    out.indent(units).text(keyword).line(" {");
    writeMatrixRows(out, units + 1, matrix);
    out.indent(units).line("}").line();
}

void writeMesh(TextOutput& out, std::size_t units, const FrameRecord& frame,
               const std::vector<MaterialRecord>& table) {
    const MeshRecord& mesh = frame.Mesh;
    out.indent(units).text("Mesh ").text(frame.Name).text(flagSuffix(frame)).line(" {");
    writeElements(out, units + 1, mesh.Vertices);
    writePolygons(out, units + 1, mesh.Faces, false);
    if (mesh.HasMaterials) {
        writeMaterialList(out, units + 1, frame, table);
    }
    if (mesh.HasNormals) {
        writeParallelList(out, units + 1, "SI_MeshNormals", mesh.Normals, mesh.NormalFaces);
    }
    if (mesh.HasTexCoords) {
        writeParallelList(out, units + 1, "SI_MeshTextureCoords", mesh.TexCoords,
                          mesh.TexCoordFaces);
    }
    if (mesh.HasVertexColors) {
        writeParallelList(out, units + 1, "SI_MeshVertexColors", mesh.VertexColors,
                          mesh.VertexColorFaces);
    }
    out.indent(units).line("}");
}

/// Closes the frames from depth `from` up to depth `to`.
void closeFrames(TextOutput& out, std::int64_t from, std::int64_t to) {
    for (std::int64_t depth = from; depth >= to; --depth) {
        out.indent(static_cast<std::size_t>(depth)).line("}");
    }
}

void writeFrames(TextOutput& out, const ModelDocument& document) {
    std::int64_t previous = -1;
    for (FrameWalk walk(document.Root); !walk.done() && !out.stopped(); walk.next()) {
        const FrameRecord& frame = walk.frame();
        const std::size_t depth = walk.depth();
        closeFrames(out, previous, static_cast<std::int64_t>(depth));
        out.indent(depth).text("Frame frm-").text(frame.Name);
        out.text(flagSuffix(frame)).line(" {").line();
        writeMatrix(out, depth + 1, "FrameTransformMatrix", frame.Matrix);
        if (frame.HasBasePose) {
            writeMatrix(out, depth + 1, "SI_FrameBasePoseMatrix", frame.BasePose);
        }
        if (frame.HasMesh) {
            writeMesh(out, depth + 1, frame, document.Materials);
        }
        previous = static_cast<std::int64_t>(depth);
    }
    closeFrames(out, previous, 0);
}

void writeAnimation(TextOutput& out, const FrameRecord& frame) {
    const std::string name = frame.Name + flagSuffix(frame);
    out.text("   Animation anim-").text(name).line(" {");
    out.text("      {frm-").text(name).line("}");
    out.line("      SI_AnimationKey {");
    out.indent(3).integer(frame.AnimationKeyType).line(";");
    out.indent(3).count(frame.AnimationKeys.size()).line(";");
    for (std::size_t i = 0; i < frame.AnimationKeys.size(); ++i) {
        const AnimationKeyRecord& key = frame.AnimationKeys[i];
        out.indent(3).integer(key.Time).text("; ").count(key.Values.size()).text("; ");
        for (std::size_t v = 0; v < key.Values.size(); ++v) {
            out.text(v == 0 ? "" : ", ").real(key.Values[v]);
        }
        out.text(";;").line(entryEnd(i, frame.AnimationKeys.size()));
    }
    out.line("      }").line("   }");
}

void writeAnimations(TextOutput& out, const FrameRecord& root) {
    bool opened = false;
    for (FrameWalk walk(root); !walk.done() && !out.stopped(); walk.next()) {
        if (walk.frame().HasAnimation && walk.frame().HasMesh) {
            if (!opened) {
                out.text("\n\n").line("AnimationSet {");
                opened = true;
            }
            writeAnimation(out, walk.frame());
        }
    }
    if (opened) {
        out.line("}");
    }
}

} // namespace

bool writeXsi(const ModelDocument& document, const TextSink& sink) {
    TextOutput out(sink);
    out.text(preamble).line();
    writeFrames(out, document);
    writeAnimations(out, document.Root);
    return out.finish();
}

std::string_view savedPreamble() {
    return preamble;
}

std::optional<FileState> SaveFileXSI(const ModelDocument& document, const QString& fileName) {
    Checksum sum;
    const auto write = [&](const TextSink& sink) {
        sum = Checksum(); // replaceFile() may write a second time, to another place
        return writeXsi(document, [&](std::string_view piece) {
            sum.add(piece);
            return sink(piece);
        });
    };
    if (!replaceFile(fileName, write)) {
        return std::nullopt;
    }
    // if the size differs, another program has replaced the file already, and the stamp is its own
    const std::optional<FileStamp> stamp = stampOf(fileName);
    const bool ours = stamp && stamp->size == static_cast<std::int64_t>(sum.size());
    return FileState{ours ? *stamp : FileStamp(), sum.value()};
}

} // namespace korvane
