#pragma once

#include "model/document/ModelDocument.h"
#include "model/document/NodeData.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace korvane {

/// One node of the structure tree.
struct StructureNode {
    std::int32_t parent = -1; ///< node number, -1 at the top level
    std::int32_t row = 0;     ///< position among the parent's children, from 0
    NodeKind kind = NodeKind::None;
    std::int32_t item = 0; ///< slot or table index from 0; for a frame its 1-based child number
    std::int32_t previous = -1; ///< the frame's node in the tree before this one; -1 if it had none
    bool deletable = false;
    bool hidden = false; ///< a frame or mesh that the views do not show
    std::string text;    ///< bytes as the model holds them
};

/// What the "Structure" page shows: the frames with their mesh parts, then the material table.
/// A snapshot of the model, to be built anew after every edit. Nodes are numbered in the order in
/// which they are shown.
class StructureTree {
  public:
    StructureTree() = default;
    /// Builds the tree and sets every frame's TreeNode.
    explicit StructureTree(ModelDocument& document);

    [[nodiscard]] const std::vector<StructureNode>& nodes() const { return nodes_; }
    /// The numbers of a node's children in order; of the top-level nodes for -1.
    [[nodiscard]] std::span<const std::int32_t> children(std::int32_t node) const;
    /// The node's record for the commands; `node` must be one of nodes().
    [[nodiscard]] NodeData nodeData(std::int32_t node) const;
    /// The child of a kind; of those with a number the last one up to that, -1 if there is none.
    [[nodiscard]] std::int32_t childOfKind(std::int32_t parent, NodeKind kind,
                                           std::int32_t item = 0) const;
    /// The node that stands for the same thing as the record; for a slot or material that is gone
    /// the last one there is, else the node above it; the root at the worst.
    [[nodiscard]] std::int32_t nearestNode(const NodeData& data) const;
    /// Takes over from a frame, which must be as it was built from in all else, whether the views
    /// show it and its mesh.
    void markHidden(const FrameRecord& frame);

  private:
    std::int32_t add(StructureNode node);
    void addMesh(const FrameRecord& frame, std::int32_t frameNode);
    void addMaterialTable(const ModelDocument& document);
    void linkChildren();

    std::vector<StructureNode> nodes_;
    std::vector<std::int32_t> children_;     ///< node numbers, grouped by parent, top level first
    std::vector<std::size_t> childrenBegin_; ///< by parent + 1: where its group begins; one more
};

} // namespace korvane
