#include "edit/history/MaterialEdits.h"

#include "edit/history/EditSteps.h"

#include <array>
#include <utility>

namespace korvane {

namespace {

/// Records a new value and the old one, which `before` returns for the material.
template <class Before, class Value>
void recordValue(EditHistory& history, ModelDocument& document, EditKind kind, std::size_t material,
                 Before before, Value after) {
    if (material < document.Materials.size()) {
        EditAction action = materialAction(kind, material);
        action.before = before(document.Materials[material]);
        action.after = std::move(after);
        history.record(document, std::move(action));
    }
}

/// Writes the step's value to the member that `place` returns.
template <class Value, class Place>
void writeValue(const EditStep& step, Place place) {
    const Value* value = step.value<Value>();
    MaterialRecord* material = step.material();
    if (value != nullptr && material != nullptr) {
        place(*material) = *value;
    }
}

void stepTextureFile(EditStep& step) {
    const auto* name = step.value<std::string>();
    MaterialRecord* material = step.material();
    if (name != nullptr && material != nullptr) {
        std::string file = *name;
        material->TextureImage = step.textures ? step.textures(file) : blankTextureImage();
        material->TextureFile = std::move(file);
    }
}

template <ColorRGB MaterialRecord::*color>
void stepColor(EditStep& step) {
    writeValue<ColorRGB>(step, [](MaterialRecord& m) -> ColorRGB& { return m.*color; });
}

void stepFaceColor(EditStep& step) {
    const auto* color = step.value<ColorRGB>();
    MaterialRecord* material = step.material();
    if (color != nullptr && material != nullptr) {
        material->FaceColor = {color->red, color->green, color->blue, material->FaceColor.alpha};
    }
}

void stepOpacity(EditStep& step) {
    writeValue<float>(step, [](MaterialRecord& m) -> float& { return m.FaceColor.alpha; });
}

void stepPower(EditStep& step) {
    writeValue<float>(step, [](MaterialRecord& m) -> float& { return m.Power; });
}

void stepTextureOn(EditStep& step) {
    writeValue<bool>(step, [](MaterialRecord& m) -> bool& { return m.HasTexture; });
}

constexpr std::array<EditKindRow, 8> rows = {{
    {EditKind::TextureFile, "choose texture", false, refresh::materials, stepTextureFile},
    {EditKind::Ambient, "change ambient color", false, refresh::materials,
     stepColor<&MaterialRecord::Ambient>},
    {EditKind::FaceColor, "change diffuse color", false, refresh::materials, stepFaceColor},
    {EditKind::Specular, "change specular color", false, refresh::materials,
     stepColor<&MaterialRecord::Specular>},
    {EditKind::Emissive, "change emissive color", false, refresh::materials,
     stepColor<&MaterialRecord::Emissive>},
    {EditKind::Opacity, "change opacity", false, refresh::materials, stepOpacity},
    {EditKind::TextureOn, "switch texture on or off", false, refresh::materials, stepTextureOn},
    {EditKind::Power, "change shininess", false, refresh::materials, stepPower},
}};

} // namespace

std::span<const EditKindRow> materialKinds() {
    return rows;
}

void setTextureFile(EditHistory& history, ModelDocument& document, std::size_t material,
                    std::string name, std::shared_ptr<const TextureImage> image) {
    if (material >= document.Materials.size()) {
        return;
    }
    EditAction action = materialAction(EditKind::TextureFile, material);
    action.before = document.Materials[material].TextureFile;
    action.after = std::move(name);
    if (image == nullptr) {
        history.record(document, std::move(action));
    } else {
        history.record(document, std::move(action), [&image](const std::string&) { return image; });
    }
}

void setTextureOn(EditHistory& history, ModelDocument& document, std::size_t material, bool on) {
    recordValue(
        history, document, EditKind::TextureOn, material,
        [](const MaterialRecord& m) { return m.HasTexture; }, on);
}

void setAmbient(EditHistory& history, ModelDocument& document, std::size_t material,
                const ColorRGB& color) {
    recordValue(
        history, document, EditKind::Ambient, material,
        [](const MaterialRecord& m) { return m.Ambient; }, color);
}

void setFaceColor(EditHistory& history, ModelDocument& document, std::size_t material,
                  const ColorRGB& color) {
    const auto withoutAlpha = [](const MaterialRecord& m) {
        return ColorRGB{m.FaceColor.red, m.FaceColor.green, m.FaceColor.blue};
    };
    recordValue(history, document, EditKind::FaceColor, material, withoutAlpha, color);
}

void setSpecular(EditHistory& history, ModelDocument& document, std::size_t material,
                 const ColorRGB& color) {
    recordValue(
        history, document, EditKind::Specular, material,
        [](const MaterialRecord& m) { return m.Specular; }, color);
}

void setEmissive(EditHistory& history, ModelDocument& document, std::size_t material,
                 const ColorRGB& color) {
    recordValue(
        history, document, EditKind::Emissive, material,
        [](const MaterialRecord& m) { return m.Emissive; }, color);
}

void recordOpacity(EditHistory& history, ModelDocument& document, std::size_t material,
                   float before, float after) {
    recordValue(
        history, document, EditKind::Opacity, material,
        [before](const MaterialRecord&) { return before; }, after);
}

void recordPower(EditHistory& history, ModelDocument& document, std::size_t material, float before,
                 float after) {
    recordValue(
        history, document, EditKind::Power, material,
        [before](const MaterialRecord&) { return before; }, after);
}

} // namespace korvane
