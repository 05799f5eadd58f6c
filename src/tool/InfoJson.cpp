#include "tool/InfoJson.h"

#include "tool/Json.h"

namespace korvane::tool {

namespace {

QJsonArray json(const Vec3& v) {
    return jsonNumbers({v.x, v.y, v.z});
}

QJsonArray json(const ColorRGB& color) {
    return jsonNumbers({color.red, color.green, color.blue});
}

QJsonValue json(const Bounds& bounds) {
    return bounds.empty ? QJsonValue()
                        : QJsonObject{{QStringLiteral("min"), json(bounds.low)},
                                      {QStringLiteral("max"), json(bounds.high)}};
}

qint64 number(std::size_t count) {
    return static_cast<qint64>(count);
}

QJsonObject countsJson(const ModelDocument& document, const ModelFacts& facts) {
    std::size_t keys = 0;
    for (const FrameFacts& row : facts.frames) {
        keys += row.frame->HasAnimation ? row.frame->AnimationKeys.size() : 0;
    }
    return {{QStringLiteral("frames"), number(facts.frames.size())},
            {QStringLiteral("meshes"), number(facts.counts.meshes)},
            {QStringLiteral("vertices"), number(facts.counts.vertices)},
            {QStringLiteral("faces"), number(facts.counts.faces)},
            {QStringLiteral("materials"), number(document.Materials.size())},
            {QStringLiteral("animationKeys"), number(keys)}};
}

QJsonValue meshJson(const FrameFacts& facts) {
    if (!facts.frame->HasMesh) {
        return {};
    }
    const MeshRecord& mesh = facts.frame->Mesh;
    QJsonArray slots;
    for (const std::int32_t slot : mesh.MaterialSlotList) {
        slots.append(slot);
    }
    const auto size = [](bool has, const auto& list) { return has ? number(list.size()) : 0; };
    return QJsonObject{
        {QStringLiteral("bounds"), json(facts.bounds)},
        {QStringLiteral("vertices"), number(mesh.Vertices.size())},
        {QStringLiteral("faces"), number(mesh.Faces.size())},
        {QStringLiteral("normals"), size(mesh.HasNormals, mesh.Normals)},
        {QStringLiteral("textureCoordinates"), size(mesh.HasTexCoords, mesh.TexCoords)},
        {QStringLiteral("vertexColors"), size(mesh.HasVertexColors, mesh.VertexColors)},
        {QStringLiteral("materials"), mesh.HasMaterials ? slots : QJsonArray()}};
}

QJsonValue animationJson(const FrameRecord& frame) {
    if (!frame.HasAnimation) {
        return {};
    }
    QJsonArray keys;
    for (const AnimationKeyRecord& key : frame.AnimationKeys) {
        keys.append(QJsonObject{{QStringLiteral("time"), key.Time},
                                {QStringLiteral("values"), jsonNumbers(key.Values)}});
    }
    return QJsonObject{{QStringLiteral("type"), frame.AnimationKeyType},
                       {QStringLiteral("keys"), keys}};
}

QJsonObject frameJson(const FrameFacts& facts) {
    const FrameRecord& frame = *facts.frame;
    QJsonObject object = {
        {QStringLiteral("parent"), facts.parent ? QJsonValue(number(*facts.parent)) : QJsonValue()},
        {QStringLiteral("matrix"), jsonNumbers(frame.Matrix.m)},
        {QStringLiteral("basePose"),
         frame.HasBasePose ? QJsonValue(jsonNumbers(frame.BasePose.m)) : QJsonValue()},
        {QStringLiteral("emissive"), frame.Emissive},
        {QStringLiteral("renderBackwards"), frame.RenderBackwards},
        {QStringLiteral("kv2Animated"), frame.KV2Animated},
        {QStringLiteral("gFlag"), frame.GFlag},
        {QStringLiteral("mesh"), meshJson(facts)},
        {QStringLiteral("animation"), animationJson(frame)}};
    addName(object, QStringLiteral("name"), frame.Name);
    return object;
}

QJsonValue textureJson(const MaterialRecord& material, const std::optional<TextureFacts>& facts) {
    if (!material.HasTexture) {
        return {};
    }
    const bool decoded = facts && facts->outcome.refusal.empty();
    QJsonObject object = {
        {QStringLiteral("width"), decoded ? QJsonValue(facts->outcome.width) : QJsonValue()},
        {QStringLiteral("height"), decoded ? QJsonValue(facts->outcome.height) : QJsonValue()},
        {QStringLiteral("file"), QJsonValue()}};
    addName(object, QStringLiteral("name"), material.TextureFile);
    if (facts) {
        addFileName(object, QStringLiteral("file"), facts->file);
    }
    return object;
}

QJsonObject materialJson(const MaterialRecord& material,
                         const std::optional<TextureFacts>& texture) {
    const ColorRGBA& face = material.FaceColor;
    return {{QStringLiteral("color"), jsonNumbers({face.red, face.green, face.blue})},
            {QStringLiteral("opacity"), jsonNumber(face.alpha)},
            {QStringLiteral("power"), jsonNumber(material.Power)},
            {QStringLiteral("specular"), json(material.Specular)},
            {QStringLiteral("emissive"), json(material.Emissive)},
            {QStringLiteral("ambient"), json(material.Ambient)},
            {QStringLiteral("shadingModel"), material.ShadingModel},
            {QStringLiteral("texture"), textureJson(material, texture)}};
}

} // namespace

QJsonObject modelJson(const ModelDocument& document, const ModelFacts& facts) {
    QJsonArray frames;
    for (const FrameFacts& frame : facts.frames) {
        frames.append(frameJson(frame));
    }
    QJsonArray materials;
    for (std::size_t i = 0; i < document.Materials.size(); ++i) {
        materials.append(materialJson(document.Materials[i], facts.textures[i]));
    }
    return {{QStringLiteral("counts"), countsJson(document, facts)},
            {QStringLiteral("bounds"), json(facts.bounds)},
            {QStringLiteral("frames"), frames},
            {QStringLiteral("materials"), materials}};
}

} // namespace korvane::tool
