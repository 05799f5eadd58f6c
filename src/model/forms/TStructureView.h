#pragma once

#include "model/document/ModelDocument.h"
#include "model/document/StructureTreeModel.h"

#include <QTimer>
#include <QTreeView>

#include <cstdint>
#include <vector>

namespace korvane {

/// Shows the structure of a document in a tree view. What is expanded and how far the view is
/// scrolled stays from one snapshot of the model to the next, wherever the frames have moved.
class TStructureView {
  public:
    /// The view must outlive this object.
    explicit TStructureView(QTreeView& view);
    ~TStructureView();
    TStructureView(const TStructureView&) = delete;
    TStructureView& operator=(const TStructureView&) = delete;

    /// Shows the document as it is now, with nothing selected.
    void rebuild(ModelDocument& document);
    /// Greys a frame of the document shown, and its mesh, as far as they are hidden.
    void markHidden(const FrameRecord& frame) { model_.markHidden(frame); }
    /// Selects the node that stands for the same thing; of a slot or material that is gone the last
    /// one there is, else the node above it; the root at the worst. Does not scroll.
    void select(const NodeData& data);
    /// Brings the selected node into sight, opening what it lies in.
    void scrollToSelection();
    /// The record of a node of the view, empty for an invalid index.
    [[nodiscard]] NodeData nodeData(const QModelIndex& index) const;

  private:
    /// Makes room for the widest of the rows in sight.
    void fitColumn();
    [[nodiscard]] std::int32_t nodeOf(const NodeData& data) const;
    void expandAgain(const std::vector<bool>& expanded, const StructureTree& before,
                     const std::vector<std::int32_t>& frameNodes);

    QTreeView& view_;
    StructureTreeModel model_;
    QTimer fitSoon_; ///< other rows have come into sight
};

} // namespace korvane
