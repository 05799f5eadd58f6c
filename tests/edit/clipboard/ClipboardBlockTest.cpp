#include "edit/clipboard/ClipboardReader.h"
#include "edit/clipboard/ClipboardWriter.h"
#include "support/AllocationWatch.h"
#include "support/ClipboardBytes.h"
#include "support/FrameMaking.h"
#include "support/RandomModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

namespace korvane {
namespace {

using test::blockBytes;
using test::Bytes;

/// The bytes of the listings in the description of the format, one after the other.
std::vector<Bytes> documentedBlocks() {
    std::ifstream file(KORVANE_DOCS "/clipboard-format.md");
    EXPECT_TRUE(file.is_open());
    std::vector<Bytes> blocks;
    bool listing = false;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("```")) {
            listing = line == "```hex";
            blocks.resize(blocks.size() + (listing ? 1 : 0));
        } else if (listing) {
            std::istringstream pairs(line.substr(0, line.find(';')));
            for (unsigned byte = 0; pairs >> std::hex >> byte;) {
                blocks.back().push_back(static_cast<std::uint8_t>(byte));
            }
        }
    }
    return blocks;
}

MaterialRecord colored(float red, float blue, float alpha) {
    MaterialRecord material;
    material.FaceColor = {red, 0, blue, alpha};
    return material;
}

MaterialRecord texturedMaterial() {
    MaterialRecord material = colored(1, 0, 1);
    material.HasTexture = true;
    material.TextureFile = "a.tga";
    material.TextureImage = std::make_shared<TextureImage>(
        TextureImage{2, 1, {{255, 0, 0, 255}, {0, 0, 255, 128}}, true});
    return material;
}

std::vector<MaterialRecord> fiveMaterials() {
    return {colored(1, 0, 1), colored(0, 0, 1), colored(0, 0, 1), colored(0, 1, 0.5F),
            colored(0, 0, 1)};
}

/// A triangle with the first and the fourth of five materials, and an empty frame below it.
FrameRecord wing() {
    FrameRecord frame;
    frame.Name = "wing";
    frame.HasMesh = frame.Mesh.HasMaterials = true;
    frame.Mesh.Vertices = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    const std::uint32_t corners[] = {0, 1, 2};
    frame.Mesh.Faces.push_back(corners);
    frame.Mesh.MaterialSlotList = {0, 3};
    frame.Mesh.FaceSlotIndex = {1};
    frame.Children.resize(1);
    frame.Children[0].Name = "tip";
    return frame;
}

CopiedFrame decodedFrame(const Bytes& block) {
    auto item = decodeBlock(block);
    EXPECT_TRUE(item.has_value());
    return item ? std::move(std::get<CopiedFrame>(*item)) : CopiedFrame();
}

TEST(ClipboardBlock, ExamplesOfTheDescription) {
    const std::vector<Bytes> documented = documentedBlocks();
    ASSERT_EQ(documented.size(), 2U);
    const MaterialRecord material = texturedMaterial();
    const MaterialRecord* const one[] = {&material};
    EXPECT_EQ(blockBytes(encodeMaterials(one)), documented[0]);
    EXPECT_EQ(documented[0].size(), 12U + 236 + 5 + (4 + 4 + 1 + 8));
    EXPECT_EQ(blockBytes(encodeFrame(wing(), fiveMaterials())), documented[1]);
    // those that the fuzzer starts from
    EXPECT_EQ(test::seedFile("materials.clipboard"), documented[0]);
    EXPECT_EQ(test::seedFile("frame.clipboard"), documented[1]);

    const auto item = decodeBlock(documented[0]);
    ASSERT_TRUE(item.has_value());
    const auto& materials = std::get<CopiedMaterials>(*item);
    ASSERT_EQ(materials.size(), 1U);
    EXPECT_EQ(*materials[0].TextureImage, *material.TextureImage);
    EXPECT_TRUE(sameMaterial(materials[0], material));
    const CopiedFrame copied = decodedFrame(documented[1]);
    EXPECT_EQ(copied.frame.Mesh.MaterialSlotList, (std::vector<std::int32_t>{0, 1}));
    ASSERT_EQ(copied.materials.size(), 2U);
    EXPECT_EQ(copied.materials[1].FaceColor, colored(0, 1, 0.5F).FaceColor);
}

TEST(ClipboardBlock, RemapTableAndSizes) {
    constexpr std::size_t emptyFrame = 210;
    const struct {
        std::vector<std::int32_t> slots;
        std::vector<std::int32_t> childSlots;
        std::size_t materials;
        std::vector<std::int32_t> remap; ///< with the number of copied materials behind it
        std::vector<std::int32_t> readSlots;
    } rows[] = {{{3, 0, 3}, {1}, 5, {0, 1, -1, 2, -1, 3}, {2, 0, 2}},
                {{4, 4}, {4}, 5, {-1, -1, -1, -1, 0, 1}, {0, 0}},
                {{}, {}, 5, {-1, -1, -1, -1, -1, 0}, {}},
                {{}, {}, 0, {0}, {}},
                {{-1, 5, 2}, {}, 3, {-1, -1, 0, 1}, {-1, -1, 0}}};
    for (const auto& row : rows) {
        FrameRecord frame;
        frame.Mesh.MaterialSlotList = row.slots; // also with the mesh switched off
        frame.Children.resize(1);
        frame.Children[0].Mesh.MaterialSlotList = row.childSlots;
        const std::vector<MaterialRecord> table(row.materials);
        const Bytes block = blockBytes(encodeFrame(frame, table));
        const std::size_t used = static_cast<std::size_t>(row.remap.back());
        const std::size_t payload = 2 * emptyFrame +
                                    4 * (row.slots.size() + row.childSlots.size()) +
                                    4 * (row.materials + 1) + 236 * used;
        EXPECT_EQ(block.size(), payload + 12);
        for (std::size_t i = 0; i < row.remap.size(); ++i) {
            EXPECT_EQ(test::wordAt(block, 12 + 4 * i), row.remap[i]);
        }
        const CopiedFrame copied = decodedFrame(block);
        EXPECT_EQ(copied.materials.size(), used);
        EXPECT_EQ(copied.frame.Mesh.MaterialSlotList, row.readSlots);
    }
    const Bytes none = blockBytes(encodeMaterials({}));
    EXPECT_EQ(none, (Bytes{8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(std::get<CopiedMaterials>(decodeBlock(none).value()).size(), 0U);
}

TEST(ClipboardBlock, FacesKeepTheirSlotsWhereTheMeshKnowsNone) {
    FrameRecord frame = wing();
    frame.Mesh.MaterialSlotList.clear(); // as of a file that only names its materials
    frame.Mesh.FaceSlotIndex = {3, 0, 41};
    const CopiedFrame copied = decodedFrame(blockBytes(encodeFrame(frame, fiveMaterials())));
    EXPECT_EQ(copied.frame.Mesh.FaceSlotIndex, frame.Mesh.FaceSlotIndex);
}

/// Sets what a block says of wild indices: the model's own may be any numbers.
void tame(PolygonList& list, std::size_t limit) {
    PolygonList tamed;
    for (std::size_t i = 0; i < list.size(); ++i) {
        std::vector<std::uint32_t> corners(list[i].begin(), list[i].end());
        for (std::uint32_t& corner : corners) {
            corner = corner < limit ? corner : 0xffffffffU;
        }
        tamed.push_back(corners);
    }
    list = tamed;
}

/// What the frame is after it went through a block.
FrameRecord expectedCopy(FrameRecord top, const std::vector<std::int32_t>& places) {
    for (FrameWalk walk(top); !walk.done(); walk.next()) {
        FrameRecord& frame = walk.frame();
        MeshRecord& mesh = frame.Mesh;
        tame(mesh.Faces, mesh.Vertices.size());
        tame(mesh.NormalFaces, mesh.Normals.size());
        tame(mesh.TexCoordFaces, mesh.TexCoords.size());
        tame(mesh.VertexColorFaces, mesh.VertexColors.size());
        for (std::int32_t& slot : mesh.FaceSlotIndex) {
            const std::size_t slots = mesh.MaterialSlotList.size();
            slot = slots == 0 || static_cast<std::size_t>(slot) < slots ? slot : -1;
        }
        for (std::int32_t& slot : mesh.MaterialSlotList) {
            slot = places[static_cast<std::size_t>(slot)];
        }
        frame.Path = FramePath();
        frame.PathDepth = 0;
        frame.SelectState = SelectState::Other;
        frame.TreeNode = -1;
        ModelDocument::computeMeshData(frame);
    }
    return top;
}

TEST(ClipboardBlock, RandomFramesComeBackWhole) {
    std::size_t frames = 0;
    for (std::uint32_t seed = 1; seed <= 300; ++seed) {
        ModelDocument document = test::RandomModel(seed, 3).make();
        document.computeDerivedData();
        document.markSelection(FramePath());
        for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
            FrameRecord& frame = walk.frame();
            frame.TreeNode = 7;
            frame.HasBasePose = seed % 2 == 0;
            frame.BasePose[5] = 3;
            frame.ViewFlags[seed % 3] = false;
            frame.Mesh.FaceBits.assign(seed % 5, seed % 2 == 0);
            frame.Mesh.CurrentSlot = frame.Mesh.MaterialSlotList.size() > 1 ? 1 : 0;
        }
        const FrameRecord& source = seed % 4 == 0 || document.Root.Children.empty()
                                        ? document.Root
                                        : document.Root.Children.back();
        CopiedFrame copied = decodedFrame(blockBytes(encodeFrame(source, document.Materials)));

        std::vector<std::int32_t> places(document.Materials.size(), -1);
        for (FrameWalk walk(source); !walk.done(); walk.next()) {
            ++frames;
            for (const std::int32_t slot : walk.frame().Mesh.MaterialSlotList) {
                places[static_cast<std::size_t>(slot)] = 0;
            }
        }
        std::int32_t place = 0;
        for (std::size_t i = 0; i < places.size(); ++i) {
            if (places[i] == 0) {
                places[i] = place++;
                const auto at = static_cast<std::size_t>(places[i]);
                ASSERT_LT(at, copied.materials.size());
                MaterialRecord& back = copied.materials[at];
                EXPECT_EQ(*back.TextureImage, *document.Materials[i].TextureImage);
                back.TextureImage = document.Materials[i].TextureImage;
                EXPECT_EQ(back, document.Materials[i]);
            }
        }
        FrameRecord expected = expectedCopy(source, places);
        test::dropOddNormals(expected);
        test::dropOddNormals(copied.frame);
        ASSERT_EQ(copied.frame, expected) << "seed " << seed;
    }
    EXPECT_GT(frames, 1000U);
}

TEST(ClipboardBlock, EveryBitOfANumberIsKept) {
    MaterialRecord material = texturedMaterial();
    material.Power = std::numeric_limits<float>::max();
    material.Blending = -0.0F;
    material.OffsetU = std::numeric_limits<float>::denorm_min();
    material.RepeatU = std::numeric_limits<std::int32_t>::min();
    const MaterialRecord* const one[] = {&material};
    const Bytes block = blockBytes(encodeMaterials(one));
    const auto back = std::get<CopiedMaterials>(decodeBlock(block).value());
    const MaterialRecord* const again[] = {back.data()};
    EXPECT_EQ(blockBytes(encodeMaterials(again)), block);
    EXPECT_EQ(back[0].Power, material.Power);
    EXPECT_EQ(back[0].RepeatU, material.RepeatU);
}

/// A frame with one element in each of its lists.
FrameRecord fullFrame() {
    FrameRecord frame;
    frame.Mesh.Vertices.resize(1);
    frame.Mesh.Normals.resize(1);
    frame.Mesh.TexCoords.resize(1);
    frame.Mesh.VertexColors.resize(1);
    frame.AnimationKeys = {{7, {1, 2}}};
    frame.Mesh.MaterialSlotList = {0};
    return frame;
}

/// All floats of a frame and its material, each group with its name.
using FloatGroup = std::pair<const char*, std::vector<float*>>;
std::vector<FloatGroup> floatsOf(FrameRecord& frame, MaterialRecord& m) {
    const auto elements = [](Matrix4& matrix) {
        std::vector<float*> all;
        for (float& element : matrix.m) {
            all.push_back(&element);
        }
        return all;
    };
    const auto rgb = [](ColorRGB& c) { return std::vector{&c.red, &c.green, &c.blue}; };
    const auto rgba = [](ColorRGBA& c) { return std::vector{&c.red, &c.green, &c.blue, &c.alpha}; };
    const auto xyz = [](Vec3& v) { return std::vector{&v.x, &v.y, &v.z}; };
    Vec2& uv = frame.Mesh.TexCoords[0];
    std::vector<float>& values = frame.AnimationKeys[0].Values;
    return {
        {"matrix", elements(frame.Matrix)},
        {"base pose", elements(frame.BasePose)},
        {"vertex", xyz(frame.Mesh.Vertices[0])},
        {"normal", xyz(frame.Mesh.Normals[0])},
        {"texture coordinate", {&uv.u, &uv.v}},
        {"vertex colour", rgba(frame.Mesh.VertexColors[0])},
        {"key", {values.data(), &values[1]}},
        {"face colour", rgba(m.FaceColor)},
        {"power", {&m.Power}},
        {"specular", rgb(m.Specular)},
        {"emissive", rgb(m.Emissive)},
        {"ambient", rgb(m.Ambient)},
        {"scale and offset", {&m.ScaleU, &m.ScaleV, &m.OffsetU, &m.OffsetV}},
        {"projection", elements(m.Projection)},
        {"factors",
         {&m.Blending, &m.TexAmbient, &m.TexDiffuse, &m.TexSpecular, &m.Transparency,
          &m.Reflectivity, &m.Roughness}},
    };
}

TEST(ClipboardBlock, NumbersThatAreNotFiniteAreRefused) {
    using Limits = std::numeric_limits<float>;
    std::vector<MaterialRecord> table(1);
    FrameRecord frame = fullFrame();
    std::size_t floats = 0;
    for (const auto& [what, numbers] : floatsOf(frame, table[0])) {
        for (float* number : numbers) {
            const float before = std::exchange(*number, Limits::max());
            EXPECT_TRUE(decodeBlock(blockBytes(encodeFrame(frame, table)))) << what;
            for (const float odd : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(),
                                    std::bit_cast<float>(0xff800001U)}) {
                *number = odd;
                EXPECT_FALSE(decodeBlock(blockBytes(encodeFrame(frame, table)))) << what << odd;
            }
            *number = before;
            ++floats;
        }
    }
    // all words of the records but the integers, flags and counts
    EXPECT_EQ(floats, 2 * 16 + 3 + 3 + 2 + 4 + 2 + 34 + 7);
    MaterialRecord integers = table[0];
    integers.CropUMax = std::bit_cast<std::int32_t>(0x7f800000U);
    const MaterialRecord* const one[] = {&integers};
    EXPECT_TRUE(decodeBlock(blockBytes(encodeMaterials(one)))) << "any integer is one";
}

TEST(ClipboardBlock, ABlockCutAnywhereIsRefused) {
    for (const char* name : {"materials.clipboard", "frame.clipboard"}) {
        const Bytes block = test::seedFile(name);
        for (std::size_t size = 0; size < block.size(); ++size) {
            Bytes cut(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(size));
            ASSERT_FALSE(decodeBlock(cut).has_value()) << name << " cut to " << size;
            if (size >= 12) { // one that owns to its size
                test::setWord(cut, 4, static_cast<std::int32_t>(size) - 12);
                const bool whole = decodeBlock(cut).has_value();
                // the slack holds nothing, nor does the last word of the frame; of what is left
                // four bytes are beyond the payload size
                const std::size_t spare = name[0] == 'f' ? 22 + 4 - 4 : 11 - 4;
                ASSERT_EQ(whole, size + spare >= block.size()) << name << size;
            }
        }
        Bytes longer = block;
        longer.resize(block.size() + 100); // a clipboard may round up
        EXPECT_TRUE(decodeBlock(longer).has_value());
    }
}

/// Whether all indices of a frame read from a block lead into it, or say that they lead nowhere.
bool indicesFit(const CopiedFrame& copied) {
    const auto fits = [](std::uint32_t index, std::size_t limit) {
        return index < limit || index == 0xffffffffU;
    };
    const auto allFit = [&fits](const auto& list, std::size_t limit) {
        return std::all_of(list.begin(), list.end(), [&](auto index) {
            return fits(static_cast<std::uint32_t>(index), limit);
        });
    };
    for (FrameWalk walk(copied.frame); !walk.done(); walk.next()) {
        const MeshRecord& mesh = walk.frame().Mesh;
        if (!allFit(mesh.Faces.cornersFrom(0), mesh.Vertices.size()) ||
            !allFit(mesh.NormalFaces.cornersFrom(0), mesh.Normals.size()) ||
            !allFit(mesh.TexCoordFaces.cornersFrom(0), mesh.TexCoords.size()) ||
            !allFit(mesh.VertexColorFaces.cornersFrom(0), mesh.VertexColors.size()) ||
            (!mesh.MaterialSlotList.empty() &&
             !allFit(mesh.FaceSlotIndex, mesh.MaterialSlotList.size())) ||
            !allFit(mesh.MaterialSlotList, copied.materials.size())) {
            return false;
        }
    }
    return true;
}

TEST(ClipboardBlock, EveryBitFlippedIsReadOrRefused) {
    for (const char* name : {"materials.clipboard", "frame.clipboard"}) {
        const Bytes block = test::seedFile(name);
        std::size_t refused = 0;
        for (std::size_t i = 0; i < block.size(); ++i) {
            for (const unsigned flip : {1U, 2U, 4U, 8U, 16U, 32U, 64U, 128U, 255U}) {
                Bytes damaged = block;
                damaged[i] = static_cast<std::uint8_t>(damaged[i] ^ flip);
                const test::AllocationWatch watch;
                const auto item = decodeBlock(damaged);
                ASSERT_LT(watch.largest(), 16 * block.size()) << name << " byte " << i;
                refused += item ? 0U : 1U;
                if (item && std::holds_alternative<CopiedFrame>(*item)) {
                    ASSERT_TRUE(indicesFit(std::get<CopiedFrame>(*item))) << i << ' ' << flip;
                }
            }
        }
        EXPECT_GT(refused, block.size() / 4) << name;
    }
}

/// Damage to the frame of the description, by the offset of a word and its new value.
TEST(ClipboardBlock, WhatDoesNotFitIsRefused) {
    const Bytes block = test::seedFile("frame.clipboard");
    constexpr std::size_t remap = 12;
    constexpr std::size_t records = remap + 6 * 4;
    constexpr std::size_t frame = records + 2 * 225;
    constexpr std::size_t name = frame + 128 + 5;
    constexpr std::size_t vertices = name + 8 + 4;
    constexpr std::size_t faces = vertices + 4 + 36;
    constexpr std::size_t slots = faces + 4 + 16 + 4 + 1;
    constexpr std::size_t children = slots + 12 + 4 + 8 + 3 * 9 + 9;
    ASSERT_EQ(test::wordAt(block, name), 4);
    ASSERT_EQ(test::wordAt(block, vertices), 3);
    ASSERT_EQ(test::wordAt(block, slots + 8), 3);
    ASSERT_EQ(test::wordAt(block, children), 1);
    const struct {
        const char* what;
        std::size_t offset;
        std::int32_t value;
        bool accepted;
    } rows[] = {
        {"unknown content", 0, 2, false},
        {"materials, that are none", 0, 8, false},
        {"count of the source", 8, 4, false},
        {"a huge count", 8, -1, false},
        {"used material told as unused", remap + 12, -1, false},
        {"remap out of order", remap, 1, false},
        {"remap beyond the copied", remap + 12, 2, false},
        {"one more remapped", remap + 16, 2, false},
        {"fewer copied", remap + 20, 1, false},
        {"name longer than the block", name, 5000, false},
        {"line feed in the name", name + 4, 0x0a676e77, false},
        {"any other name", name + 4, 0x0d09ff00, true},
        {"fewer vertices", vertices, 2, false},
        {"more faces", faces, 1 << 30, false},
        {"a corner beyond", faces + 12, 3, false},
        {"a corner that leads nowhere", faces + 12, -1, true},
        {"a corner before", faces + 12, -2, false},
        {"a slot of an unused material", slots + 4, 1, false},
        {"a slot beyond the table", slots + 4, 5, false},
        {"a slot that leads nowhere", slots + 4, -1, true},
        {"current slot", slots + 12, 1, true},
        {"current slot beyond", slots + 12, 2, false},
        {"current slot before", slots + 12, -1, false},
        {"face slot", slots + 20, 2, false},
        {"face slot that leads nowhere", slots + 20, -1, true},
        {"no child", children, 0, true},
        {"more children", children, 2, false},
        {"end of the child", children + 4 + 209, 1, false},
        {"end of the frame", children + 4 + 213, 1, true}, // may be beyond the payload size
    };
    for (const auto& row : rows) {
        Bytes damaged = block;
        test::setWord(damaged, row.offset, row.value);
        EXPECT_EQ(decodeBlock(damaged).has_value(), row.accepted) << row.what;
    }
}

TEST(ClipboardBlock, PicturesThatDoNotFitAreRefused) {
    const Bytes textured = test::seedFile("materials.clipboard");
    constexpr std::size_t image = 12 + 225 + 5;
    ASSERT_EQ(test::wordAt(textured, image), 2);
    const std::pair<std::int32_t, std::int32_t> sizes[] = {
        {0, 1}, {2, 0}, {-1, -1}, {-2, 1}, {1 << 30, 1 << 30}, {3, 2}, {0x7fffffff, 2}};
    for (const auto& [width, height] : sizes) {
        Bytes damaged = textured;
        test::setWord(damaged, image, width);
        test::setWord(damaged, image + 4, height);
        const test::AllocationWatch watch;
        EXPECT_FALSE(decodeBlock(damaged).has_value()) << width << " x " << height;
        EXPECT_LT(watch.largest(), 10000U);
    }
}

TEST(ClipboardBlock, DepthIsLimited) {
    const auto nested = [](std::size_t depth) {
        FrameRecord top;
        test::chainBelow(top, depth);
        return blockBytes(encodeFrame(top, {}));
    };
    // the copy stands below a root at the least
    EXPECT_TRUE(decodeBlock(nested(maxFrameDepth - 1)).has_value());
    EXPECT_FALSE(decodeBlock(nested(maxFrameDepth)).has_value());
}

TEST(ClipboardBlock, CountsThatRepeatOnEveryLevelTakeNoMoreThanTheBytes) {
    // a chain of frames, each of which claims as many children as could just follow
    FrameRecord top;
    test::chainBelow(top, 500);
    Bytes block = blockBytes(encodeFrame(top, {}));
    for (std::size_t level = 0; level < 500; ++level) {
        const std::size_t count =
            16 + level * 206 + 202; // a record begins before its parent's ends
        ASSERT_EQ(test::wordAt(block, count), 1);
        const std::size_t left = block.size() - 4 - (count + 4);
        test::setWord(block, count, static_cast<std::int32_t>(left / 210));
    }
    const test::AllocationWatch watch;
    EXPECT_FALSE(decodeBlock(block).has_value());
    EXPECT_LT(watch.largest(), block.size());
}

} // namespace
} // namespace korvane
