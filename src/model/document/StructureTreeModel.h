#pragma once

#include "model/document/StructureTree.h"

#include <QAbstractItemModel>

#include <cstdint>

namespace korvane {

/// The structure tree as an item model of one column; an index's internal id is its node number.
class StructureTreeModel : public QAbstractItemModel {
  public:
    using QAbstractItemModel::QAbstractItemModel;

    /// Whether the views leave out what the node stands for, as a bool.
    static constexpr int hiddenRole = Qt::UserRole;

    /// Shows another snapshot of the model.
    void setTree(StructureTree tree);
    [[nodiscard]] const StructureTree& tree() const { return tree_; }
    /// A frame of the tree, or its mesh, is hidden or shown again.
    void markHidden(const FrameRecord& frame);

    [[nodiscard]] QModelIndex indexOf(std::int32_t node) const;
    /// The node number of a valid index.
    [[nodiscard]] static std::int32_t nodeOf(const QModelIndex& index);

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  private:
    StructureTree tree_;
};

} // namespace korvane
