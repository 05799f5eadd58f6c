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
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace korvane {
namespace {

using test::blockBytes;
using test::Bytes;

/// The bytes of each listing in the description of the format.
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

CopiedFrame decodedFrame(const Bytes& block) {
    auto item = decodeBlock(block);
    EXPECT_TRUE(item.has_value());
    return item ? std::move(std::get<CopiedFrame>(*item)) : CopiedFrame();
}

Bytes frameBlock(const FrameRecord& frame, const std::vector<MaterialRecord>& table) {
    return blockBytes(encodeFrame(frame, table));
}

TEST(ClipboardBlock, ExamplesOfTheDescription) {
    MaterialRecord material = colored(1, 0, 1);
    material.HasTexture = true;
    material.TextureFile = "a.tga";
    material.TextureImage = std::make_shared<TextureImage>(
        TextureImage{2, 1, {{255, 0, 0, 255}, {0, 0, 255, 128}}, true});
    const MaterialRecord* const one[] = {&material};
    // a triangle with the first and the fourth of five materials, with an empty child frame
    FrameRecord wing = test::named("wing", {test::named("tip")});
    wing.HasMesh = wing.Mesh.HasMaterials = true;
    wing.Mesh.Vertices = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    const std::uint32_t corners[] = {0, 1, 2};
    wing.Mesh.Faces.push_back(corners);
    wing.Mesh.MaterialSlotList = {0, 3};
    wing.Mesh.FaceSlotIndex = {1};
    const std::vector<MaterialRecord> table = {colored(1, 0, 1), colored(0, 0, 1), colored(0, 0, 1),
                                               colored(0, 1, 0.5F), colored(0, 0, 1)};

    const std::vector<Bytes> documented = documentedBlocks();
    ASSERT_EQ(documented.size(), 2U);
    EXPECT_EQ(blockBytes(encodeMaterials(one)), documented[0]);
    EXPECT_EQ(documented[0].size(), 12U + 236 + 5 + (4 + 4 + 1 + 8));
    EXPECT_EQ(frameBlock(wing, table), documented[1]);
    // the fuzzer's seeds
    EXPECT_EQ(test::seedFile("materials.clipboard"), documented[0]);
    EXPECT_EQ(test::seedFile("frame.clipboard"), documented[1]);

    const auto item = decodeBlock(documented[0]);
    ASSERT_TRUE(item.has_value());
    const auto& materials = std::get<CopiedMaterials>(*item);
    ASSERT_EQ(materials.size(), 1U);
    EXPECT_EQ(*materials[0].TextureImage, *material.TextureImage);
    EXPECT_TRUE(sameMaterial(materials[0], material));
}

TEST(ClipboardBlock, UsedMaterialsComeAlong) {
    const struct {
        std::vector<std::int32_t> slots;
        std::vector<std::int32_t> childSlots;
        std::size_t materials;
        std::vector<std::int32_t> remap; ///< followed by the number of copied materials
        std::vector<std::int32_t> readSlots;
    } rows[] = {{{3, 0, 3}, {1}, 5, {0, 1, -1, 2, -1, 3}, {2, 0, 2}},
                {{4, 4}, {4}, 5, {-1, -1, -1, -1, 0, 1}, {0, 0}},
                {{}, {}, 0, {0}, {}},
                {{-1, 5, 2}, {}, 3, {-1, -1, 0, 1}, {-1, -1, 0}}};
    for (const auto& row : rows) {
        FrameRecord frame = test::named("", {FrameRecord()});
        frame.Mesh.MaterialSlotList = row.slots; // even with the mesh switched off
        frame.Children[0].Mesh.MaterialSlotList = row.childSlots;
        // after an undo, the slot last shown may be gone
        frame.Mesh.CurrentSlot = static_cast<std::int32_t>(row.slots.size());
        const Bytes block = frameBlock(frame, std::vector<MaterialRecord>(row.materials));
        for (std::size_t i = 0; i < row.remap.size(); ++i) {
            EXPECT_EQ(test::wordAt(block, 12 + 4 * i), row.remap[i]);
        }
        const CopiedFrame copied = decodedFrame(block);
        EXPECT_EQ(copied.materials.size(), static_cast<std::size_t>(row.remap.back()));
        EXPECT_EQ(copied.frame.Mesh.MaterialSlotList, row.readSlots);
        EXPECT_EQ(copied.frame.Mesh.CurrentSlot, 0);
    }
    const Bytes none = blockBytes(encodeMaterials({}));
    EXPECT_EQ(none, (Bytes{8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(std::get<CopiedMaterials>(decodeBlock(none).value()).size(), 0U);
}

/// Replaces invalid indices as a block does: the model may hold any numbers.
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

/// The frame as it comes out of a block, given the used materials.
FrameRecord expectedCopy(FrameRecord top, const std::set<std::int32_t>& used) {
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
            slot = static_cast<std::int32_t>(std::distance(used.begin(), used.find(slot)));
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
        CopiedFrame copied = decodedFrame(frameBlock(source, document.Materials));
        std::set<std::int32_t> used;
        for (FrameWalk walk(source); !walk.done(); walk.next()) {
            ++frames;
            const std::vector<std::int32_t>& slots = walk.frame().Mesh.MaterialSlotList;
            used.insert(slots.begin(), slots.end());
        }
        std::vector<MaterialRecord> materials;
        materials.reserve(used.size());
        for (const std::int32_t number : used) {
            materials.push_back(document.Materials[static_cast<std::size_t>(number)]);
        }
        for (MaterialRecord& material : copied.materials) {
            EXPECT_EQ(*material.TextureImage, *blankTextureImage());
            material.TextureImage = blankTextureImage();
        }
        EXPECT_EQ(copied.materials, materials) << seed;
        FrameRecord expected = expectedCopy(source, used);
        test::dropOddNormals(expected);
        test::dropOddNormals(copied.frame);
        ASSERT_EQ(copied.frame, expected) << "seed " << seed;
    }
    EXPECT_GT(frames, 1000U);
}

/// Whether the block can be read. No count in it may allocate more than its bytes can fill.
bool accepts(const Bytes& block) {
    const test::AllocationWatch watch;
    const bool read = decodeBlock(block).has_value();
    EXPECT_LT(watch.largest(), 16 * block.size());
    return read;
}

/// Replaces a word of the block.
Bytes damaged(Bytes block, std::size_t offset, std::int32_t value) {
    test::setWord(block, offset, value);
    return block;
}

TEST(ClipboardBlock, NumbersComeBackBitByBitAndHaveToBeFinite) {
    using Limits = std::numeric_limits<float>;
    std::vector<MaterialRecord> table(1);
    FrameRecord frame;
    frame.Mesh.Vertices.resize(1);
    frame.Mesh.Faces.push_back(std::vector<std::uint32_t>{0});
    frame.Mesh.Normals.resize(1);
    frame.Mesh.TexCoords.resize(1);
    frame.Mesh.VertexColors.resize(1);
    frame.AnimationKeys = {{7, {1, 2}}};
    frame.Mesh.MaterialSlotList = {0};
    const Bytes block = frameBlock(frame, table);
    // a word that accepts 1 but not infinity is read as a number; read as counts, all of these are
    // huge
    std::size_t numbers = 0;
    for (std::size_t at = 0; at + 4 <= block.size(); ++at) {
        const auto takes = [&](float number) {
            return accepts(damaged(block, at, std::bit_cast<std::int32_t>(number)));
        };
        if (takes(1) && !takes(Limits::infinity())) {
            ++numbers;
            EXPECT_FALSE(takes(-Limits::infinity()) || takes(Limits::quiet_NaN())) << at;
            for (const float kept : {Limits::max(), -0.0F, Limits::denorm_min()}) {
                const Bytes given = damaged(block, at, std::bit_cast<std::int32_t>(kept));
                const CopiedFrame read = decodedFrame(given);
                EXPECT_EQ(frameBlock(read.frame, read.materials), given) << at << ' ' << kept;
            }
        }
    }
    // matrices, elements of lists, keys and the material: all but integers and counts
    EXPECT_EQ(numbers, 2 * 16 + 3 + 3 + 2 + 4 + 2 + 34 + 7);
}

TEST(ClipboardBlock, ABlockCutAnywhereIsRefused) {
    for (const char* name : {"materials.clipboard", "frame.clipboard"}) {
        const Bytes block = test::seedFile(name);
        for (std::size_t size = 0; size < block.size(); ++size) {
            Bytes cut(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(size));
            ASSERT_FALSE(decodeBlock(cut).has_value()) << name << " cut to " << size;
            if (size >= 12) { // with a matching payload size
                test::setWord(cut, 4, static_cast<std::int32_t>(size) - 12);
                const bool whole = decodeBlock(cut).has_value();
                // neither the slack nor the last word of the frame holds anything; four of the
                // remaining bytes lie beyond the payload size
                const std::size_t spare = name[0] == 'f' ? 22 + 4 - 4 : 11 - 4;
                ASSERT_EQ(whole, size + spare >= block.size()) << name << size;
            }
        }
        Bytes longer = block;
        longer.resize(block.size() + 100); // a clipboard may round the size up
        EXPECT_TRUE(decodeBlock(longer).has_value());
    }
}

/// Damages the frame of the description at the offset of a word.
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
        {"a frame marked as materials", 0, 8, false},
        {"count of the source", 8, 4, false},
        {"a huge count", 8, -1, false},
        {"used material marked as unused", remap + 12, -1, false},
        {"remap out of order", remap, 1, false},
        {"remap beyond the copied", remap + 12, 2, false},
        {"one more remapped", remap + 16, 2, false},
        {"fewer copied", remap + 20, 1, false},
        {"a flag that is neither", frame + 128, 2, false},
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
        {"end of the frame", children + 4 + 213, 1, true}, // may lie beyond the payload size
    };
    for (const auto& row : rows) {
        EXPECT_EQ(accepts(damaged(block, row.offset, row.value)), row.accepted) << row.what;
    }
}

TEST(ClipboardBlock, TexturesThatDoNotFitAreRefused) {
    const Bytes textured = test::seedFile("materials.clipboard");
    constexpr std::size_t fileName = 12 + 61 + 4;
    constexpr std::size_t image = 12 + 225 + 5;
    EXPECT_FALSE(accepts(damaged(textured, 8, 1 << 30))) << "a huge count";
    EXPECT_TRUE(accepts(damaged(textured, fileName, 0x67740a61)));
    EXPECT_FALSE(accepts(damaged(textured, fileName, 0x67740a22)))
        << "a quote that ends the name, then a new line";
    ASSERT_EQ(test::wordAt(textured, image), 2);
    using Size = std::pair<std::int32_t, std::int32_t>;
    for (const auto& [width, height] :
         {Size{0, 1}, {2, 0}, {-1, -1}, {-2, 1}, {1 << 30, 1 << 30}, {3, 2}, {0x7fffffff, 2}}) {
        EXPECT_FALSE(accepts(damaged(damaged(textured, image, width), image + 4, height)))
            << width << " x " << height;
    }
}

TEST(ClipboardBlock, DepthIsLimited) {
    const auto nested = [](std::size_t depth) {
        FrameRecord top;
        test::chainBelow(top, depth);
        return frameBlock(top, {});
    };
    // the copy is below a root at least
    EXPECT_TRUE(accepts(nested(maxFrameDepth - 1)));
    EXPECT_FALSE(accepts(nested(maxFrameDepth)));
}

TEST(ClipboardBlock, CountsOnEveryLevelTakeNoMoreMemoryThanTheBytes) {
    // a chain of frames, each claiming as many children as the rest can hold
    FrameRecord top;
    test::chainBelow(top, 500);
    Bytes block = frameBlock(top, {});
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
