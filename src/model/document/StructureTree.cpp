#include "model/document/StructureTree.h"

#include "model/records/FrameWalk.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace korvane {

namespace {

constexpr std::int32_t noNode = -1;
constexpr std::int32_t topLevel = -1;

/// The index of a node's group of children, or of the top level's for -1.
std::size_t groupOf(std::int32_t parent) {
    return static_cast<std::size_t>(std::int64_t{parent} + 1);
}

} // namespace

StructureTree::StructureTree(ModelDocument& document) {
    for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
        FrameRecord& frame = walk.frame();
        StructureNode node;
        node.kind = NodeKind::Frame;
        node.text = "Frame frm-" + frame.Name;
        node.previous = frame.TreeNode;
        if (walk.depth() > 0) {
            node.item = walk.childNumbers().back();
            node.deletable = true;
            node.parent = walk.parent().TreeNode;
        }
        frame.TreeNode = add(std::move(node));
        if (frame.HasMesh) {
            addMesh(frame, frame.TreeNode);
        }
        markHidden(frame);
    }
    addMaterialTable(document);
    linkChildren();
}

void StructureTree::markHidden(const FrameRecord& frame) {
    const auto node = static_cast<std::size_t>(frame.TreeNode);
    nodes_[node].hidden = !frame.ViewFlags[0];
    // the node of its mesh comes next
    if (frame.HasMesh && node + 1 < nodes_.size() && nodes_[node + 1].kind == NodeKind::Mesh) {
        nodes_[node + 1].hidden = !frame.ViewFlags[0] || !frame.ViewFlags[2];
    }
}

std::span<const std::int32_t> StructureTree::children(std::int32_t node) const {
    const std::size_t group = groupOf(node);
    if (group + 1 >= childrenBegin_.size()) {
        return {};
    }
    const std::size_t begin = childrenBegin_[group];
    return std::span(children_).subspan(begin, childrenBegin_[group + 1] - begin);
}

NodeData StructureTree::nodeData(std::int32_t node) const {
    const StructureNode& shown = nodes_[static_cast<std::size_t>(node)];
    NodeData data;
    data.NodeKind = shown.kind;
    data.CanAdd = data.CanEdit = data.AddByKind =
        shown.kind != NodeKind::Mesh && shown.kind != NodeKind::MeshNormals;
    data.CanDelete = shown.deletable;
    data.ItemIndex = shown.kind == NodeKind::Frame ? 0 : shown.item;

    const StructureNode* up = &shown;
    while (up->kind != NodeKind::Frame && up->parent >= 0) {
        up = &nodes_[static_cast<std::size_t>(up->parent)];
    }
    if (up->kind == NodeKind::Frame) {
        std::vector<std::int32_t> childNumbers;
        for (; up->parent >= 0; up = &nodes_[static_cast<std::size_t>(up->parent)]) {
            childNumbers.push_back(up->item);
        }
        std::reverse(childNumbers.begin(), childNumbers.end());
        data.Frame.emplace(childNumbers);
    }
    return data;
}

std::int32_t StructureTree::childOfKind(std::int32_t parent, NodeKind kind,
                                        std::int32_t item) const {
    std::int32_t found = noNode;
    for (const std::int32_t child : children(parent)) {
        const StructureNode& node = nodes_[static_cast<std::size_t>(child)];
        if (node.kind == kind && node.item <= item) {
            found = child;
        }
    }
    return found;
}

std::int32_t StructureTree::nearestNode(const NodeData& data) const {
    if (!data.Frame) {
        const std::int32_t table = childOfKind(topLevel, NodeKind::MaterialTable);
        const std::int32_t entry = data.NodeKind == NodeKind::TableMaterial
                                       ? childOfKind(table, NodeKind::TableMaterial, data.ItemIndex)
                                       : noNode;
        return std::max(table, entry);
    }
    std::int32_t node = 0;
    for (const std::int32_t number : data.Frame->childNumbers()) {
        const std::int32_t child = childOfKind(node, NodeKind::Frame, number);
        if (child == noNode || nodes_[static_cast<std::size_t>(child)].item != number) {
            return 0;
        }
        node = child;
    }
    // the nodes of a mesh form a chain: go down as far as wanted and possible
    const std::pair<NodeKind, bool> below[] = {
        {NodeKind::Mesh, data.NodeKind != NodeKind::Frame},
        {NodeKind::MeshNormals, data.NodeKind == NodeKind::MeshNormals},
        {NodeKind::MeshMaterialList,
         data.NodeKind == NodeKind::MeshMaterialList || data.NodeKind == NodeKind::MaterialSlot},
        {NodeKind::MaterialSlot, data.NodeKind == NodeKind::MaterialSlot}};
    for (const auto& [kind, wanted] : below) {
        const std::int32_t child = wanted ? childOfKind(node, kind, data.ItemIndex) : noNode;
        node = child != noNode ? child : node;
    }
    return node;
}

std::int32_t StructureTree::add(StructureNode node) {
    nodes_.push_back(std::move(node));
    return static_cast<std::int32_t>(nodes_.size()) - 1;
}

void StructureTree::addMesh(const FrameRecord& frame, std::int32_t frameNode) {
    const std::int32_t mesh =
        add({.parent = frameNode, .kind = NodeKind::Mesh, .text = "Mesh " + frame.Name});
    if (frame.Mesh.HasMaterials) {
        const std::int32_t list =
            add({.parent = mesh, .kind = NodeKind::MeshMaterialList, .text = "MeshMaterialList"});
        const std::vector<std::int32_t>& slots = frame.Mesh.MaterialSlotList;
        for (std::size_t slot = 0; slot < slots.size(); ++slot) {
            add({.parent = list,
                 .kind = NodeKind::MaterialSlot,
                 .item = static_cast<std::int32_t>(slot),
                 .deletable = slots.size() > 1,
                 .text = "Material " + std::to_string(std::int64_t{slots[slot]} + 1)});
        }
    }
    if (frame.Mesh.HasNormals) {
        add({.parent = mesh, .kind = NodeKind::MeshNormals, .text = "MeshNormals"});
    }
}

void StructureTree::addMaterialTable(const ModelDocument& document) {
    const std::int32_t table = add({.kind = NodeKind::MaterialTable, .text = "Materials"});
    const std::size_t count = document.Materials.size();
    for (std::size_t i = 0; i < count; ++i) {
        // deliberately not the test of a mesh's slots, which is "more than one"
        add({.parent = table,
             .kind = NodeKind::TableMaterial,
             .item = static_cast<std::int32_t>(i),
             .deletable = count != 1,
             .text = "Material " + std::to_string(i + 1)});
    }
}

void StructureTree::linkChildren() {
    childrenBegin_.assign(nodes_.size() + 2, 0);
    for (StructureNode& node : nodes_) {
        std::size_t& siblings = childrenBegin_[groupOf(node.parent) + 1];
        node.row = static_cast<std::int32_t>(siblings++);
    }
    for (std::size_t group = 1; group < childrenBegin_.size(); ++group) {
        childrenBegin_[group] += childrenBegin_[group - 1];
    }
    children_.resize(nodes_.size());
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        const std::size_t group = groupOf(nodes_[i].parent);
        children_[childrenBegin_[group] + static_cast<std::size_t>(nodes_[i].row)] =
            static_cast<std::int32_t>(i);
    }
}

} // namespace korvane
