#include "edit/clipboard/ClipboardEdit.h"

#include "edit/clipboard/ClipboardReader.h"
#include "support/ClipboardBytes.h"
#include "support/EditLadder.h"
#include "support/FrameMaking.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace korvane {
namespace {

using test::path;

/// A document with its history: a root with a mesh of slots 2, 0, 2, a child without a mesh, and
/// three materials that differ in power.
struct Model {
    explicit Model(float firstPower = 1) {
        document.Root.Name = "root";
        document.Root.HasMesh = document.Root.Mesh.HasMaterials = true;
        document.Root.Mesh.MaterialSlotList = {2, 0, 2};
        document.Root.Children.resize(1);
        document.Root.Children[0].Name = "leaf";
        document.Materials.resize(3);
        for (MaterialRecord& material : document.Materials) {
            material.Power = firstPower++;
        }
        document.computeDerivedData();
        document.Modified = false;
    }

    void select(NodeKind kind, std::int32_t item = 0, const FramePath& frame = {}) {
        document.selectFrame(frame);
        document.Selected.NodeKind = kind;
        document.Selected.ItemIndex = item;
        if (kind == NodeKind::MaterialTable || kind == NodeKind::TableMaterial) {
            document.Selected.Frame.reset();
        }
    }
    [[nodiscard]] test::Bytes copied() const { return test::blockBytes(copySelection(document)); }
    bool paste(const test::Bytes& block) {
        std::optional<ClipboardItem> item = decodeBlock(block);
        return item && pasteIntoSelection(document, history, std::move(*item), textures);
    }
    [[nodiscard]] std::string powers() const { return powersOf(document.Materials); }
    static std::string powersOf(const std::vector<MaterialRecord>& materials) {
        std::string text;
        for (const MaterialRecord& material : materials) {
            text += std::to_string(static_cast<int>(material.Power)) + ' ';
        }
        return text;
    }
    [[nodiscard]] EditKind lastKind() const { return history.entries().back().kind; }

    ModelDocument document;
    EditHistory history;
    TextureSource textures;
};

TEST(ClipboardEdit, CopyTakesTheSelection) {
    Model model;
    model.document.Root.Mesh.MaterialSlotList.push_back(9); // leads to no material
    using enum NodeKind;
    const struct {
        NodeKind kind;
        std::int32_t item;
        std::string powers;
    } rows[] = {{MeshMaterialList, 0, "3 1 3 "}, {MaterialSlot, 1, "1 "},
                {MaterialSlot, 2, "3 "},         {MaterialSlot, 3, ""},
                {MaterialSlot, 4, ""},           {MaterialTable, 0, "1 2 3 "},
                {TableMaterial, 1, "2 "},        {TableMaterial, 3, ""}};
    for (const auto& row : rows) {
        model.select(row.kind, row.item);
        const auto item = decodeBlock(model.copied());
        ASSERT_TRUE(item.has_value());
        EXPECT_EQ(Model::powersOf(std::get<CopiedMaterials>(*item)), row.powers);
        EXPECT_TRUE(canCopy(row.kind));
    }
    model.select(NodeKind::Frame);
    const auto frame = decodeBlock(model.copied());
    ASSERT_TRUE(frame.has_value());
    EXPECT_EQ(std::get<CopiedFrame>(*frame).frame.Children[0].Name, "leaf");
    EXPECT_EQ(Model::powersOf(std::get<CopiedFrame>(*frame).materials), "1 3 ");
    for (const NodeKind kind : {NodeKind::None, NodeKind::Mesh, NodeKind::MeshNormals}) {
        model.select(kind);
        EXPECT_FALSE(canCopy(kind));
        EXPECT_TRUE(model.copied().empty());
    }
    EXPECT_FALSE(model.document.Modified);
}

TEST(ClipboardEdit, PasteDependsOnTheSelection) {
    Model source;
    source.select(NodeKind::Frame);
    const test::Bytes frame = source.copied();
    source.select(NodeKind::TableMaterial, 1);
    const test::Bytes materials = source.copied();
    using enum NodeKind;
    for (const NodeKind kind : {None, Frame, Mesh, MeshMaterialList, MaterialSlot, MaterialTable,
                                TableMaterial, MeshNormals}) {
        const bool takesFrame = kind == Frame;
        const bool takesMaterials = kind == MeshMaterialList || kind == MaterialSlot ||
                                    kind == MaterialTable || kind == TableMaterial;
        EXPECT_EQ(canPaste(kind, ClipboardContent::Frame), takesFrame);
        EXPECT_EQ(canPaste(kind, ClipboardContent::Materials), takesMaterials);
        Model target;
        target.select(kind);
        EXPECT_EQ(target.paste(frame), takesFrame);
        EXPECT_EQ(target.document.Modified, takesFrame);
        EXPECT_EQ(target.paste(materials), takesMaterials);
        EXPECT_EQ(target.history.position() + 1, takesFrame || takesMaterials ? 1 : 0);
    }
}

TEST(ClipboardEdit, MaterialsGoToTheEndOfTheTableAndToTheSlots) {
    Model source(11);
    source.select(NodeKind::MeshMaterialList);
    const test::Bytes block = source.copied();
    for (const NodeKind kind : {NodeKind::MaterialTable, NodeKind::TableMaterial,
                                NodeKind::MeshMaterialList, NodeKind::MaterialSlot}) {
        const bool ofMesh = kind == NodeKind::MeshMaterialList || kind == NodeKind::MaterialSlot;
        Model target;
        target.select(kind);
        ASSERT_TRUE(target.paste(block));
        EXPECT_EQ(target.powers(), "1 2 3 13 11 13 ");
        EXPECT_EQ(target.document.Root.Mesh.MaterialSlotList,
                  ofMesh ? (std::vector<std::int32_t>{2, 0, 2, 3, 4, 5})
                         : (std::vector<std::int32_t>{2, 0, 2}));
        EXPECT_EQ(target.lastKind(),
                  ofMesh ? EditKind::PasteMeshMaterials : EditKind::PasteMaterials);
    }
}

TEST(ClipboardEdit, AFrameIsTheLastChildWithItsMaterialsRenumbered) {
    Model source(11);
    source.document.Root.Children[0].Mesh.MaterialSlotList = {-1, 2};
    source.select(NodeKind::Frame);
    Model target;
    target.select(NodeKind::Frame, 0, path({1}));
    ASSERT_TRUE(target.paste(source.copied()));
    EXPECT_EQ(target.lastKind(), EditKind::PasteFrame);
    EXPECT_EQ(target.powers(), "1 2 3 11 13 ");
    const FrameRecord& pasted = target.document.Root.Children[0].Children.at(0);
    EXPECT_EQ(pasted.Name, "root");
    EXPECT_EQ(pasted.Mesh.MaterialSlotList, (std::vector<std::int32_t>{4, 3, 4}));
    EXPECT_EQ(pasted.Children[0].Mesh.MaterialSlotList, (std::vector<std::int32_t>{-1, 4}));
    EXPECT_TRUE(test::pathsAreRight(target.document));
    EXPECT_EQ(pasted.Children[0].SelectState, SelectState::Descendant);
    EXPECT_EQ(target.document.Selected.Frame, path({1})); // stays selected

    // pasting into the source adds what was copied
    source.select(NodeKind::Frame, 0, path({1}));
    const test::Bytes leaf = source.copied();
    ASSERT_TRUE(source.paste(leaf) && source.paste(leaf));
    const std::vector<FrameRecord>& copies = source.document.Root.Children[0].Children;
    ASSERT_EQ(copies.size(), 2U);
    EXPECT_TRUE(copies[1].Children.empty());
}

TEST(ClipboardEdit, NothingToPasteChangesNothing) {
    Model model;
    model.select(NodeKind::MaterialSlot, 7);
    const test::Bytes none = model.copied();
    model.select(NodeKind::Frame);
    const test::Bytes frame = model.copied();
    const auto numbers = test::chainBelow(model.document.Root, maxFrameDepth);
    model.select(NodeKind::MaterialTable);
    EXPECT_FALSE(model.paste(none) || model.paste({8, 0, 0, 0}));
    model.select(NodeKind::Frame, 0, path(numbers));
    EXPECT_FALSE(model.paste(frame) || model.document.Modified || model.history.canUndo());
    EXPECT_EQ(model.document.Materials.size(), 3U);
}

std::shared_ptr<const TextureImage> picture(std::uint8_t red) {
    return std::make_shared<TextureImage>(TextureImage{1, 1, {{red, 0, 0, 255}}, false});
}

TEST(ClipboardEdit, EqualPicturesOfOneNameAreShared) {
    Model source;
    for (MaterialRecord& material : source.document.Materials) {
        material.HasTexture = true;
        material.TextureFile = "a.tga";
        material.TextureImage = picture(7);
    }
    source.document.Materials[2].TextureImage = picture(8); // the file had changed
    source.select(NodeKind::MaterialTable);
    Model other;
    other.select(NodeKind::MaterialTable);
    for (Model* target : {&source, &other}) {
        ASSERT_TRUE(target->paste(source.copied()));
        const std::vector<MaterialRecord>& table = target->document.Materials;
        EXPECT_EQ(table[3].TextureImage, table[4].TextureImage);
        EXPECT_NE(table[3].TextureImage, table[5].TextureImage);
        EXPECT_EQ(*table[5].TextureImage, *picture(8));
    }
    EXPECT_EQ(source.document.Materials[3].TextureImage, source.document.Materials[0].TextureImage);
}

TEST(ClipboardEdit, ATextureSwitchedOffIsLoadedByItsName) {
    Model source;
    source.document.Materials[0].TextureFile = "off.tga";
    source.document.Materials[0].TextureImage = picture(7);
    source.select(NodeKind::MaterialTable);
    Model target;
    std::string asked;
    target.textures = [&asked](const std::string& name) {
        asked += name;
        return picture(9);
    };
    target.select(NodeKind::MaterialTable);
    ASSERT_TRUE(target.paste(source.copied()));
    EXPECT_EQ(asked, "off.tga");
    EXPECT_EQ(*target.document.Materials[3].TextureImage, *picture(9));
    EXPECT_EQ(target.document.Materials[4].TextureImage, blankTextureImage());
}

} // namespace
} // namespace korvane
