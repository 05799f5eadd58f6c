#include "model/document/StructureTreeModel.h"
#include "support/FrameMaking.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

/// A root with a child that has all mesh parts and a child of its own, and a table of materials.
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

TEST(StructureTree, NodesSayWhatTheCommandsMayDo) {
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

TEST(StructureTreeModel, DescribesARowBeyondItsText) {
    ModelDocument document = example(1, 1);
    document.Root.Children[0].ViewFlags[2] = false; // its mesh
    document.Root.Name = std::string(10'000, 'x');
    StructureTreeModel model;
    model.setTree(StructureTree(document));
    const auto told = [&](std::int32_t node, int role) {
        return model.data(model.indexOf(node), role).toString().toStdString();
    };
    EXPECT_EQ(told(1, Qt::ToolTipRole), "Frame frm-body") << "no source";
    EXPECT_FALSE(model.data(model.indexOf(1), StructureTreeModel::sampleRole).isValid());
    model.setSource({[](const NodeData& node) {
                         return QStringLiteral("kind %1").arg(static_cast<int>(node.NodeKind));
                     },
                     [](const NodeData& node) {
                         return node.NodeKind == NodeKind::Mesh ? std::optional(0xff010203U)
                                                                : std::nullopt;
                     }});
    const struct {
        std::int32_t node;
        const char* spoken;
        const char* details;
        bool sample;
    } rows[] = {{1, "Frame frm-body", "kind 1", false},
                {2, "Mesh body, hidden", "kind 4", true},
                {3, "MeshMaterialList", "kind 5", false}};
    for (const auto& [node, spoken, details, sample] : rows) {
        EXPECT_EQ(told(node, Qt::AccessibleTextRole), spoken);
        EXPECT_EQ(told(node, Qt::AccessibleDescriptionRole), details);
        EXPECT_EQ(told(node, Qt::ToolTipRole), std::string(spoken) + "\n" + details);
        EXPECT_EQ(model.data(model.indexOf(node), StructureTreeModel::sampleRole).isValid(),
                  sample);
    }
    EXPECT_EQ(told(0, Qt::DisplayRole).size(), 10'010U);
    EXPECT_LT(told(0, Qt::ToolTipRole).size(), 5'000U) << "a tip that long could not be laid out";
    document.Root.Children[0].ViewFlags[0] = false;
    model.markHidden(document.Root.Children[0]);
    EXPECT_EQ(told(1, Qt::AccessibleTextRole), "Frame frm-body, hidden");
}

} // namespace
} // namespace korvane
