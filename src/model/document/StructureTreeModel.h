#pragma once

#include "model/document/StructureTree.h"

#include <QAbstractItemModel>

#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

namespace korvane {

/// Details of a row beyond its text, queried only when somebody looks at the row.
struct RowSource {
    std::function<QString(const NodeData&)> details; ///< one a line
    /// The sample colour of a material as 0xffrrggbb; nothing for other rows.
    std::function<std::optional<std::uint32_t>(const NodeData&)> sample;
};

/// The structure tree as an item model of one column; an index's internal id is its node number.
class StructureTreeModel : public QAbstractItemModel {
  public:
    using QAbstractItemModel::QAbstractItemModel;

    /// Whether the views hide what the node represents, as a bool.
    static constexpr int hiddenRole = Qt::UserRole;
    /// The colour of a material from the row source.
    static constexpr int sampleRole = Qt::UserRole + 1;

    /// Without a source, rows have only their text.
    void setSource(RowSource source) { source_ = std::move(source); }

    /// Shows another snapshot of the model.
    void setTree(StructureTree tree);
    [[nodiscard]] const StructureTree& tree() const { return tree_; }
    /// Call after hiding or showing a frame of the tree or its mesh.
    void markHidden(const FrameRecord& frame);

    [[nodiscard]] QModelIndex indexOf(std::int32_t node) const;
    /// The node number of an index, -1 for an invalid one.
    [[nodiscard]] static std::int32_t nodeOf(const QModelIndex& index);

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  private:
    /// The row's text, plus "hidden" in words for users who cannot see its colour.
    [[nodiscard]] static QString spokenText(const StructureNode& node);
    [[nodiscard]] QString details(std::int32_t node) const;

    StructureTree tree_;
    RowSource source_;
};

} // namespace korvane
