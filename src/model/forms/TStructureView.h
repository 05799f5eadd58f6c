#pragma once

#include "model/document/ModelDocument.h"
#include "model/document/StructureTreeModel.h"

#include <QTimer>
#include <QTreeView>

#include <cstdint>
#include <vector>

namespace korvane {

/// Shows the structure of a document in a tree view. Keeps expansion and scroll position when the
/// model's tree is rebuilt, even of frames that have moved.
class TStructureView : public QObject {
    Q_OBJECT
  public:
    /// View and model must outlive this object.
    TStructureView(QTreeView& view, StructureTreeModel& model);
    ~TStructureView() override;

    /// Selects the node for `data`, or the nearest one if it is gone. Does not scroll.
    void select(const NodeData& data);
    /// Scrolls to the selected node, and expands the nodes above it.
    void scrollToSelection();
    /// Returns the record of a node of the view; empty for an invalid index.
    [[nodiscard]] NodeData nodeData(const QModelIndex& index) const;

  private:
    /// Saves expansion and scroll position before the model's tree is replaced.
    void remember();
    void restore();
    void expandAgain();
    /// Makes the column as wide as the widest visible row.
    void fitColumn();
    /// Scrolls to the text of the current row once the view knows its width.
    void scrollSideways();
    void showCurrentText();

    QTreeView& view_;
    StructureTreeModel& model_;
    QTimer fitSoon_;      ///< other rows are visible
    QTimer showTextSoon_; ///< the current row has changed

    // only while the model's tree is being replaced
    StructureTree before_;
    std::vector<bool> expanded_; ///< by node of `before_`
    int scroll_ = 0;
};

} // namespace korvane
