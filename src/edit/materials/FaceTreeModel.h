#pragma once

#include "edit/materials/FacePart.h"

#include <QAbstractItemModel>

#include <functional>
#include <optional>

namespace korvane {

class PolygonList;

/// The faces of a mesh with their vertices as an item model of one column. It holds nothing of its
/// own: rows are made as they are looked at, so that a large mesh costs no more than a small one.
class FaceTreeModel : public QAbstractItemModel {
  public:
    using QAbstractItemModel::QAbstractItemModel;

    using Faces = std::function<const PolygonList*()>;

    /// Shows the faces that the function leads to, which must stay the same until others are set.
    /// It is asked anew for every row, as a mesh may move; it may answer null.
    void setFaces(Faces faces);

    /// What a row stands for; nothing for an invalid index.
    [[nodiscard]] static std::optional<FacePart> partOf(const QModelIndex& index);

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  private:
    [[nodiscard]] const PolygonList* faces() const { return faces_ ? faces_() : nullptr; }

    Faces faces_;
};

} // namespace korvane
