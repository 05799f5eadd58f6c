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
    std::int32_t previous = -1; ///< the frame's node in the previous tree, or -1
    bool deletable = false;
    bool hidden = false; ///< the views do not show this frame or mesh
    std::string text;    ///< bytes as in the model
};

/// The content of the "Structure" page: the frames with their mesh parts, then the material table.
/// A snapshot, to be rebuilt after each edit. Nodes are numbered in the order shown.
class StructureTree {
  public:
    StructureTree() = default;
    /// Builds the tree and sets every frame's TreeNode.
    explicit StructureTree(ModelDocument& document);

    [[nodiscard]] const std::vector<StructureNode>& nodes() const { return nodes_; }
    /// The numbers of a node's children in order, or of the top-level nodes for -1.
    [[nodiscard]] std::span<const std::int32_t> children(std::int32_t node) const;
    /// The node's data for commands; `node` must be an index into nodes().
    [[nodiscard]] NodeData nodeData(std::int32_t node) const;
    /// The last child of a kind whose `item` is at most the given one, or -1.
    [[nodiscard]] std::int32_t childOfKind(std::int32_t parent, NodeKind kind,
                                           std::int32_t item = 0) const;
    /// The node for the same thing as `data`. Replaces a missing slot or material by the last one
    /// before it, or else by the node above, and a missing frame by the root.
    [[nodiscard]] std::int32_t nearestNode(const NodeData& data) const;
    /// Updates whether a frame and its mesh are hidden. The rest of the frame must be as when the
    /// tree was built.
    void markHidden(const FrameRecord& frame);

  private:
    std::int32_t add(StructureNode node);
    void addMesh(const FrameRecord& frame, std::int32_t frameNode);
    void addMaterialTable(const ModelDocument& document);
    void linkChildren();

    std::vector<StructureNode> nodes_;
    std::vector<std::int32_t> children_;     ///< node numbers, grouped by parent, top level first
    std::vector<std::size_t> childrenBegin_; ///< begin of the group, by parent + 1; then the end
};

} // namespace korvane
