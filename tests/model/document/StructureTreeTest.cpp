#include "model/document/StructureTree.h"

#include "support/FrameMaking.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

/// A root with one meshed child that has all parts and one grandchild, and a table of materials.
ModelDocument example(std::size_t slots, std::size_t materials) {
    ModelDocument document;
    document.Root = test::named("root", {test::named("body", {test::named("")})});
    FrameRecord& child = document.Root.Children[0];
    child.HasMesh = child.Mesh.HasMaterials = child.Mesh.HasNormals = true;
    for (std::size_t i = 0; i < slots; ++i) {
        child.Mesh.MaterialSlotList.push_back(static_cast<std::int32_t>(slots - 1 - i));
    }
    document.Materials.resize(materials);
    return document;
}

std::string shown(const StructureTree& tree, std::int32_t parent = -1, int depth = 0) {
    std::string text;
    for (const std::int32_t node : tree.children(parent)) {
        text += std::string(static_cast<std::size_t>(depth), '-') +
                tree.nodes()[static_cast<std::size_t>(node)].text + "\n";
        text += shown(tree, node, depth + 1);
    }
    return text;
}

TEST(StructureTree, ShowsFramesMeshPartsAndTheTable) {
    ModelDocument document = example(2, 2);
    const StructureTree tree(document);
    EXPECT_EQ(shown(tree), "Frame frm-root\n"
                           "-Frame frm-body\n"
                           "--Mesh body\n"
                           "---MeshMaterialList\n"
                           "----Material 2\n"
                           "----Material 1\n"
                           "---MeshNormals\n"
                           "--Frame frm-\n"
                           "Materials\n"
                           "-Material 1\n"
                           "-Material 2\n");
    EXPECT_EQ(document.Root.Children[0].TreeNode, 1);
}

TEST(StructureTree, MeshPartsNeedTheirFlags) {
    ModelDocument document = example(1, 0);
    document.Root.Children[0].Mesh.HasMaterials = false;
    document.Root.Children[0].Mesh.HasNormals = false;
    EXPECT_EQ(StructureTree(document).nodes().size(), 5U);
    document.Root.Children[0].HasMesh = false;
    EXPECT_EQ(StructureTree(document).nodes().size(), 4U);
}

TEST(StructureTree, NodesTellWhatTheCommandsMayDo) {
    ModelDocument document = example(2, 2);
    const StructureTree tree(document);
    const FramePath body = test::path({1});
    const struct {
        std::int32_t node;
        NodeData expected;
    } rows[] = {
        {0, {FramePath(), true, false, true, true, NodeKind::Frame, 0}},
        {1, {body, true, true, true, true, NodeKind::Frame, 0}},
        {2, {body, false, false, false, false, NodeKind::Mesh, 0}},
        {3, {body, true, false, true, true, NodeKind::MeshMaterialList, 0}},
        {5, {body, true, true, true, true, NodeKind::MaterialSlot, 1}},
        {6, {body, false, false, false, false, NodeKind::MeshNormals, 0}},
        {8, {std::nullopt, true, false, true, true, NodeKind::MaterialTable, 0}},
        {10, {std::nullopt, true, true, true, true, NodeKind::TableMaterial, 1}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(tree.nodeData(row.node), row.expected) << row.node;
    }
}

TEST(StructureTree, OneSlotAndOneMaterialCannotBeDeleted) {
    ModelDocument document = example(1, 1);
    const StructureTree tree(document);
    for (const StructureNode& node : tree.nodes()) {
        const bool part =
            node.kind == NodeKind::MaterialSlot || node.kind == NodeKind::TableMaterial;
        EXPECT_FALSE(part && node.deletable) << node.text;
    }
}

} // namespace
} // namespace korvane
