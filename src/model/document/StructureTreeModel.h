#pragma once

#include "model/document/StructureTree.h"

#include <QAbstractItemModel>

#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

namespace korvane {

/// What there is to tell of a row beyond its text. It is asked for when somebody looks at the row.
struct RowSource {
    std::function<QString(const NodeData&)> details; ///< in lines
    /// The colour that stands for a material as 0xffrrggbb; nothing for any other row.
    std::function<std::optional<std::uint32_t>(const NodeData&)> sample;
};

/// The structure tree as an item model of one column; an index's internal id is its node number.
class StructureTreeModel : public QAbstractItemModel {
  public:
    using QAbstractItemModel::QAbstractItemModel;

    /// Whether the views leave out what the node stands for, as a bool.
    static constexpr int hiddenRole = Qt::UserRole;
    /// The colour of a material, as the row source gives it.
    static constexpr int sampleRole = Qt::UserRole + 1;

    /// Without a source, rows have their text alone.
    void setSource(RowSource source) { source_ = std::move(source); }

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
    /// The row's text with a word on whether it is hidden, for those who do not see its colour.
    [[nodiscard]] static QString spokenText(const StructureNode& node);
    [[nodiscard]] QString details(std::int32_t node) const;

    StructureTree tree_;
    RowSource source_;
};

} // namespace korvane
