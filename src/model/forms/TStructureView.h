#pragma once

#include "model/document/ModelDocument.h"
#include "model/document/StructureTreeModel.h"

#include <QTimer>
#include <QTreeView>

#include <cstdint>
#include <vector>

namespace korvane {

/// Shows the structure of a document in a tree view. What is expanded and how far the view is
/// scrolled stays from one tree of the model to the next, wherever the frames have moved.
class TStructureView : public QObject {
    Q_OBJECT
  public:
    /// View and model must outlive this object.
    TStructureView(QTreeView& view, StructureTreeModel& model);
    ~TStructureView() override;

    /// Selects the node that stands for the same thing; of a slot or material that is gone the last
    /// one there is, else the node above it; the root at the worst. Does not scroll.
    void select(const NodeData& data);
    /// Brings the selected node into sight, opening what it lies in.
    void scrollToSelection();
    /// The record of a node of the view, empty for an invalid index.
    [[nodiscard]] NodeData nodeData(const QModelIndex& index) const;

  private:
    /// The model is about to have another tree.
    void remember();
    void restore();
    void expandAgain();
    /// Makes room for the widest of the rows in sight.
    void fitColumn();
    /// Brings the text of the current row into sight, as far as there is room.
    void scrollSideways();
    void showCurrentText();

    QTreeView& view_;
    StructureTreeModel& model_;
    QTimer fitSoon_;      ///< other rows have come into sight
    QTimer showTextSoon_; ///< the current row is another one

    // while the model changes its tree
    StructureTree before_;
    std::vector<bool> expanded_; ///< by node of that tree
    int scroll_ = 0;
};

} // namespace korvane
