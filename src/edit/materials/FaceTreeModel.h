#pragma once

#include "edit/materials/FacePart.h"

#include <QAbstractItemModel>

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace korvane {

class PolygonList;

/// The faces of a mesh with their vertices as an item model of one column. Unless it shows only
/// some faces it stores nothing: rows are made on demand, so that a large mesh costs no more than a
/// small one.
class FaceTreeModel : public QAbstractItemModel {
  public:
    using QAbstractItemModel::QAbstractItemModel;

    using Faces = std::function<const PolygonList*()>;

    /// Shows the faces that `faces` returns, with `only` just those listed there in ascending
    /// order. As a mesh may move, `faces` is called for each row; it must return the same faces, or
    /// null, until the next setFaces().
    void setFaces(Faces faces, std::optional<std::vector<std::size_t>> only = {});
    /// Those faces, or null if all show.
    [[nodiscard]] const std::vector<std::size_t>* only() const { return only_ ? &*only_ : nullptr; }

    /// The part that a row shows; nothing for an invalid index.
    [[nodiscard]] std::optional<FacePart> partOf(const QModelIndex& index) const;
    /// The row of a face or vertex; invalid if the face does not show.
    [[nodiscard]] QModelIndex indexOf(const FacePart& part) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  private:
    [[nodiscard]] const PolygonList* faces() const { return faces_ ? faces_() : nullptr; }

    Faces faces_;
    std::optional<std::vector<std::size_t>> only_;
};

} // namespace korvane
