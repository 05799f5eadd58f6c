#pragma once

#include "model/records/FramePath.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace korvane {

/// What a node of the structure tree represents.
enum class NodeKind : std::int32_t {
    None = 0,
    Frame = 1,
    Mesh = 4,
    MeshMaterialList = 5,
    MaterialSlot = 6,  ///< one slot of a mesh's material list
    MaterialTable = 7, ///< the document's material table
    TableMaterial = 8, ///< one entry of that table
    MeshNormals = 10,
};

/// A node of the structure tree, with what commands need.
struct NodeData {
    std::optional<FramePath> Frame; ///< the frame that the node belongs to, if any
    bool CanAdd = false;
    bool CanDelete = false;
    bool CanEdit = false;
    bool AddByKind = false; ///< the node's kind decides the caption of "Add"
    korvane::NodeKind NodeKind = korvane::NodeKind::None;
    std::int32_t ItemIndex = 0; ///< slot or table index, from 0

    /// Compares what the nodes represent, but not what can be done with them.
    [[nodiscard]] bool isSameNode(const NodeData& other) const {
        return Frame == other.Frame && NodeKind == other.NodeKind && ItemIndex == other.ItemIndex;
    }
    bool operator==(const NodeData&) const = default;
};

/// The caption of "Add" at the node, or nothing to leave it as it was.
inline std::optional<QString> addCaption(const NodeData& node) {
    if (!node.AddByKind) {
        return QStringLiteral("Add");
    }
    switch (node.NodeKind) {
    case NodeKind::Mesh:
    case NodeKind::MeshNormals:
        return std::nullopt;
    case NodeKind::Frame:
        return QStringLiteral("Add Frame");
    default:
        return QStringLiteral("Add Material");
    }
}

} // namespace korvane
