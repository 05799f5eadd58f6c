#pragma once

#include "model/records/FrameRecord.h"
#include "model/records/MaterialRecord.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

// The order of the fields in a clipboard block, defined once for both directions: `Stream` is the
// writer with constant records, or the reader with records to fill.

namespace korvane::clipboard {

/// The header: content, payload size, count.
inline constexpr std::size_t headerSize = 12;
/// A material record without its file name and its image.
inline constexpr std::size_t materialSize = 225;
/// The payload size deliberately counts each material this much larger than written.
inline constexpr std::size_t materialSlack = 11;
/// A frame record without name, lists and children.
inline constexpr std::size_t leastFrameSize = 210;

/// The index written for one that leads nowhere; -1 as a signed number.
inline constexpr std::uint32_t nowhere = 0xffffffff;

/// The words of a number or a struct of numbers, in the order of its members.
template <class Value>
using Words = std::array<std::uint32_t, sizeof(Value) / sizeof(std::uint32_t)>;

template <class Value>
Words<Value> wordsOf(const Value& value) {
    return std::bit_cast<Words<Value>>(value);
}

template <class Stream, class Material>
void transferMaterial(Stream& stream, Material& material) {
    stream.value(material.FaceColor);
    stream.value(material.Power);
    stream.value(material.Specular);
    stream.value(material.Emissive);
    stream.value(material.ShadingModel);
    stream.value(material.Ambient);
    stream.flag(material.HasTexture);
    stream.fileName(material.TextureFile);
    for (auto* number :
         {&material.MappingType, &material.ImageWidth, &material.ImageHeight, &material.CropUMin,
          &material.CropUMax, &material.CropVMin, &material.CropVMax, &material.UVSwap,
          &material.RepeatU, &material.RepeatV, &material.AlternateU, &material.AlternateV}) {
        stream.value(*number);
    }
    for (auto* number :
         {&material.ScaleU, &material.ScaleV, &material.OffsetU, &material.OffsetV}) {
        stream.value(*number);
    }
    stream.value(material.Projection);
    stream.value(material.BlendingType);
    for (auto* number :
         {&material.Blending, &material.TexAmbient, &material.TexDiffuse, &material.TexSpecular,
          &material.Transparency, &material.Reflectivity, &material.Roughness}) {
        stream.value(*number);
    }
    if (material.HasTexture) {
        stream.image(material.TextureImage);
    }
}

template <class Stream, class Mesh>
void transferMesh(Stream& stream, Mesh& mesh) {
    stream.list(mesh.Vertices);
    stream.polygons(mesh.Faces, mesh.Vertices.size());
    stream.flags(mesh.FaceBits);

    // the slots come before the indices into them
    stream.flag(mesh.HasMaterials);
    stream.materialSlots(mesh.MaterialSlotList);
    stream.currentSlot(mesh.CurrentSlot, mesh.MaterialSlotList.size());
    // a mesh without slots may have face slots: files may list nothing but material names
    const std::size_t slots = mesh.MaterialSlotList.size();
    stream.indices(mesh.FaceSlotIndex, slots > 0 ? slots : nowhere);

    stream.flag(mesh.HasNormals);
    stream.list(mesh.Normals);
    stream.polygons(mesh.NormalFaces, mesh.Normals.size());

    stream.flag(mesh.HasTexCoords);
    stream.list(mesh.TexCoords);
    stream.polygons(mesh.TexCoordFaces, mesh.TexCoords.size());

    stream.flag(mesh.HasVertexColors);
    stream.list(mesh.VertexColors);
    stream.polygons(mesh.VertexColorFaces, mesh.VertexColors.size());
}

/// The frame without its children and without the zero that ends its record.
template <class Stream, class Frame>
void transferFrame(Stream& stream, Frame& frame) {
    stream.value(frame.Matrix);
    stream.value(frame.BasePose);
    for (auto* flag : {&frame.HasBasePose, &frame.RenderBackwards, &frame.Emissive,
                       &frame.KV2Animated, &frame.GFlag}) {
        stream.flag(*flag);
    }
    stream.name(frame.Name);
    stream.flag(frame.HasMesh);
    for (auto& flag : frame.ViewFlags) {
        stream.flag(flag);
    }
    transferMesh(stream, frame.Mesh);
    stream.flag(frame.HasAnimation);
    stream.value(frame.AnimationKeyType);
    stream.keys(frame.AnimationKeys);
}

} // namespace korvane::clipboard
