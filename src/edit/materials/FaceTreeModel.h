#pragma once

#include "edit/materials/FacePart.h"

#include <QAbstractItemModel>

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace korvane {

class PolygonList;

/// The faces of a mesh with their vertices as an item model of one column. It holds nothing of its
/// own, unless it shows some of the faces alone: rows are made as they are looked at, so that a
/// large mesh costs no more than a small one.
class FaceTreeModel : public QAbstractItemModel {
  public:
    using QAbstractItemModel::QAbstractItemModel;

    using Faces = std::function<const PolygonList*()>;

    /// Shows the faces that the function leads to, which must stay the same until others are set.
    /// It is asked anew for every row, as a mesh may move; it may answer null.
    /// With `only` just those of them, given in order, are shown.
    void setFaces(Faces faces, std::optional<std::vector<std::size_t>> only = {});
    /// Those faces, or null where all show.
    [[nodiscard]] const std::vector<std::size_t>* only() const { return only_ ? &*only_ : nullptr; }

    /// What a row stands for; nothing for an invalid index.
    [[nodiscard]] std::optional<FacePart> partOf(const QModelIndex& index) const;
    /// The row of a face or vertex; invalid where the face does not show.
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
