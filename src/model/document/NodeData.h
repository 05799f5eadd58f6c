#pragma once

#include "model/records/FramePath.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace korvane {

/// What a node of the structure tree stands for.
enum class NodeKind : std::int32_t {
    None = 0,
    Frame = 1,
    Mesh = 4,
    MeshMaterialList = 5,
    MaterialSlot = 6,  ///< one slot of a mesh's material list
    MaterialTable = 7, ///< the document's material table
    TableMaterial = 8, ///< one entry of it
    MeshNormals = 10,
};

/// A node of the structure tree as the commands see it.
struct NodeData {
    std::optional<FramePath> Frame; ///< the frame the node belongs to, if it belongs to one
    bool CanAdd = false;
    bool CanDelete = false;
    bool CanEdit = false;
    bool AddByKind = false; ///< "Add" is captioned by the kind of the node
    korvane::NodeKind NodeKind = korvane::NodeKind::None;
    std::int32_t ItemIndex = 0; ///< slot or table index, from 0

    /// Whether both stand for the same thing, whatever can be done with it.
    [[nodiscard]] bool isSameNode(const NodeData& other) const {
        return Frame == other.Frame && NodeKind == other.NodeKind && ItemIndex == other.ItemIndex;
    }
    bool operator==(const NodeData&) const = default;
};

/// The caption of "Add" at the node; nothing where it stays as it was.
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
