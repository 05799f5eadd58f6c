#include "formats/xsi/XsiFrameReader.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace korvane {

namespace {

/// Sets the flags from the letters after "__", up to a blank or an opening brace.
void parseFlags(std::string_view letters, FrameDeclaration& declaration) {
    for (const char letter : letters.substr(0, letters.find_first_of(" \t{"))) {
        declaration.emissive = declaration.emissive || letter == 'e';
        declaration.renderBackwards = declaration.renderBackwards || letter == '2';
        declaration.kv2Animated = declaration.kv2Animated || letter == 'h';
        declaration.gFlag = declaration.gFlag || letter == 'g';
    }
}

} // namespace

FrameDeclaration parseFrameDeclaration(std::string_view line) {
    FrameDeclaration declaration;
    const bool prefixed = line.find("frm-") != std::string_view::npos;
    const std::size_t start = line.find("frame") + (prefixed ? 10 : 6);
    if (start >= line.size()) {
        return declaration;
    }
    // the first character always belongs to the name
    const std::size_t end = std::min(line.find_first_of(" \t{", start + 1), line.size());
    const std::size_t suffix = std::min(line.find("__", start + 1), end);
    declaration.name = line.substr(start, suffix - start);
    if (suffix < end) {
        parseFlags(line.substr(suffix + 2), declaration);
    }
    return declaration;
}

XsiFrameReader::XsiFrameReader(LineReader& lines, std::vector<MaterialRecord>& table,
                               const TextureSource& textures)
    : lines_(lines), meshes_(lines, table, textures) {}

void XsiFrameReader::readTopLevel(FrameRecord& root) {
    FrameDeclaration declaration = parseFrameDeclaration(lines_.line());
    root.Name = declaration.name;
    lines_.note(NoteKind::TopFrame);
    readBody(root, declaration, 0);
}

void XsiFrameReader::readBody(FrameRecord& frame, const FrameDeclaration& declaration,
                              std::size_t depth) {
    frame.Mesh.Faces.clear();
    frame.Children.clear();
    frame.Mesh.Vertices.clear();
    frame.Mesh.ListRevision.shapeChanged();
    frame.Emissive = declaration.emissive;
    frame.RenderBackwards = declaration.renderBackwards;
    frame.KV2Animated = declaration.kv2Animated;
    frame.GFlag = declaration.gFlag;
    frame.HasMesh = frame.HasBasePose = false;
    frame.Mesh.HasMaterials = frame.Mesh.HasNormals = false;
    frame.Mesh.HasTexCoords = frame.Mesh.HasVertexColors = false;

    // Each test sees the line that the block before it left as the current one.
    while (lines_.next()) {
        bool consumed = false;
        if (lines_.holds("frametransformmatrix")) {
            readMatrix(frame.Matrix);
            consumed = true;
        }
        if (lines_.holds("frame") && depth < maxFrameDepth) {
            readChild(frame, depth);
            consumed = true;
        } else if (lines_.holds("frame") && lines_.holds('{')) {
            lines_.note(NoteKind::TooDeep);
            lines_.skipBlock();
            consumed = true;
        }
        if (lines_.holds("mesh")) {
            meshes_.read(frame);
            consumed = true;
        }
        if (lines_.holds('{')) {
            lines_.note(NoteKind::LeftOut, 1);
            lines_.skipBlock();
            consumed = true;
        }
        if (lines_.holds('}') && !consumed) {
            lines_.note(NoteKind::FrameEnd);
            return;
        }
    }
    lines_.note(NoteKind::Unclosed);
    lines_.note(NoteKind::FrameEnd);
}

void XsiFrameReader::readChild(FrameRecord& parent, std::size_t depth) {
    const FrameDeclaration declaration = parseFrameDeclaration(lines_.line());
    FrameRecord& child = parent.Children.emplace_back();
    child.Name = declaration.name;
    lines_.note(NoteKind::Frame);
    readBody(child, declaration, depth + 1);
}

/// Reads sixteen numbers with a separator between them. An incomplete matrix leaves the frame's
/// unchanged.
void XsiFrameReader::readMatrix(Matrix4& matrix) {
    TextScanner& in = lines_.numbers();
    lines_.note(NoteKind::Matrix);
    Matrix4 read;
    for (std::size_t k = 0; k < 16; ++k) {
        if ((k > 0 && !in.separator()) || !in.real(read[k])) {
            lines_.clear();
            return;
        }
    }
    matrix = read;
    lines_.note(NoteKind::ListEnd);
    in.until('}');
    // The keyword itself holds "frame", which no later test of this pass may find.
    lines_.clear();
}

} // namespace korvane
