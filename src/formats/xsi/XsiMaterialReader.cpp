#include "formats/xsi/XsiMaterialReader.h"

#include "model/records/Color.h"
#include "model/records/PolygonList.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane {

namespace {

/// Returns true if the line holds only a name in braces: it refers to a material elsewhere in the
/// file. A remark may follow.
bool isReference(std::string_view line) {
    constexpr std::string_view blanks = " \t\v\f\r";
    const std::size_t open = line.find_first_not_of(blanks);
    const std::size_t close = line.find('}');
    return open != std::string_view::npos && close != std::string_view::npos && line[open] == '{' &&
           line.find_first_of("{}", open + 1) == close &&
           line.find_first_of("{}", close + 1) == std::string_view::npos &&
           line.find_first_not_of(blanks, open + 1) != close;
}

} // namespace

XsiMaterialReader::XsiMaterialReader(LineReader& lines, std::vector<MaterialRecord>& table,
                                     const TextureSource& textures)
    : lines_(lines), table_(table), textures_(textures), known_(0, Hash{&table}, Same{&table}) {}

void XsiMaterialReader::readList(FrameRecord& frame) {
    TextScanner& in = lines_.numbers();
    frame.Mesh.HasMaterials = true;
    lines_.note(NoteKind::MaterialList);
    std::int32_t materials = 0;
    std::int32_t faces = 0;
    if (!(in.integer(materials) && in.separator() && in.integer(faces) && in.separator())) {
        return;
    }
    std::vector<std::int32_t>& slots = frame.Mesh.FaceSlotIndex;
    reserveMore(slots, credible(faces, in.remaining() / 2));
    for (std::int32_t i = 0; i < faces; ++i) {
        std::int32_t slot = 0;
        if (!in.integer(slot)) {
            return;
        }
        slots.push_back(slot);
        in.separator();
    }
    lines_.note(NoteKind::ListEnd);
    for (std::int32_t i = 0; i < materials && !in.ended(); ++i) {
        readListEntry(frame);
    }
    lines_.note(NoteKind::MaterialListEnd);
    lines_.skipBlock(); // up to the list's own closing line
}

void XsiMaterialReader::readListEntry(FrameRecord& frame) {
    const std::size_t before = frame.Mesh.MaterialSlotList.size();
    int depth = 1;
    while (depth > 0 && lines_.next()) {
        if (depth == 1 && isReference(lines_.line())) {
            lines_.note(NoteKind::MaterialName);
            return;
        }
        // Each material leaves its closing line as the current one, so that it closes the entry
        // too.
        if (lines_.holds("si_material")) {
            readDotXsiMaterial(frame);
        }
        if (lines_.holds("material")) {
            readDirectXMaterial(frame);
        }
        lines_.countUnread(depth);
    }
    if (frame.Mesh.MaterialSlotList.size() == before) {
        lines_.note(NoteKind::MaterialMissing);
    }
}

void XsiMaterialReader::readDotXsiMaterial(FrameRecord& frame) {
    TextScanner& in = lines_.numbers();
    MaterialRecord material;
    lines_.note(NoteKind::Material);
    if (readSurface(material, frame.Emissive) && in.integer(material.ShadingModel) &&
        in.separator()) {
        readColor(material.Ambient, frame.Emissive);
    }
    lines_.note(NoteKind::ListEnd);
    int depth = 1;
    while (depth > 0 && lines_.next()) {
        if (lines_.holds("si_texture2d") || lines_.holds("texturefilename")) {
            readTextureReference(material);
        }
        lines_.countUnread(depth);
    }
    addToTable(std::move(material), frame.Mesh);
}

void XsiMaterialReader::readDirectXMaterial(FrameRecord& frame) {
    MaterialRecord material;
    lines_.note(NoteKind::Material);
    readSurface(material, frame.Emissive);
    lines_.note(NoteKind::ListEnd);
    int depth = 1;
    while (depth > 0 && lines_.next()) {
        if (lines_.holds("texturefilename")) {
            readTextureReference(material);
        }
        lines_.countUnread(depth);
    }
    addToTable(std::move(material), frame.Mesh);
}

/// Reads the values that both kinds of material begin with, up to the two separators after the
/// emissive colour.
bool XsiMaterialReader::readSurface(MaterialRecord& material, bool emissiveFrame) {
    TextScanner& in = lines_.numbers();
    return readColor(material.FaceColor, emissiveFrame) && in.separator() &&
           in.real(material.FaceColor.alpha) && in.separator() && in.separator() &&
           in.real(material.Power) && in.separator() &&
           readColor(material.Specular, emissiveFrame) && in.separator() && in.separator() &&
           readColor(material.Emissive, emissiveFrame) && in.separator() && in.separator();
}

/// Reads three channels with a separator between them. In files, colours of glowing frames with
/// blue 0 have red and green exchanged; the writer exchanges them again.
template <class Color>
bool XsiMaterialReader::readColor(Color& color, bool emissiveFrame) {
    TextScanner& in = lines_.numbers();
    ColorRGB read;
    if (!(in.real(read.red) && in.separator() && in.real(read.green) && in.separator() &&
          in.real(read.blue))) {
        return false;
    }
    if (emissiveFrame && read.blue == 0.0F) {
        std::swap(read.red, read.green);
    }
    color.red = read.red;
    color.green = read.green;
    color.blue = read.blue;
    return true;
}

void XsiMaterialReader::readTextureReference(MaterialRecord& material) {
    TextScanner& in = lines_.numbers();
    lines_.note(NoteKind::Texture);
    in.until('"');
    if (const auto name = in.until('"')) {
        material.HasTexture = true;
        material.TextureFile = name->substr(name->rfind('/') + 1);
    }
    lines_.skipToClosingBrace();
    lines_.next();
}

void XsiMaterialReader::addToTable(MaterialRecord material, MeshRecord& mesh) {
    table_.push_back(std::move(material));
    const auto [entry, isNew] = known_.insert(static_cast<std::int32_t>(table_.size()) - 1);
    if (!isNew) {
        table_.pop_back();
    } else if (table_.back().HasTexture && textures_) {
        table_.back().TextureImage = textures_(table_.back().TextureFile);
    }
    mesh.MaterialSlotList.push_back(*entry);
    lines_.note(NoteKind::MaterialEnd, *entry);
}

} // namespace korvane
