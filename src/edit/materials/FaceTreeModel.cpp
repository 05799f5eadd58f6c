#include "edit/materials/FaceTreeModel.h"

#include "model/records/PolygonList.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

namespace korvane {

namespace {

// The id of an index identifies its parent: this for a face, the face's row for a vertex.
constexpr quintptr ofTopLevel = std::numeric_limits<quintptr>::max();

int rows(std::size_t size) {
    constexpr std::size_t most = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(size, most));
}

} // namespace

void FaceTreeModel::setFaces(Faces faces, std::optional<std::vector<std::size_t>> only) {
    beginResetModel();
    faces_ = std::move(faces);
    only_ = std::move(only);
    endResetModel();
}

std::optional<FacePart> FaceTreeModel::partOf(const QModelIndex& index) const {
    if (!index.isValid()) {
        return std::nullopt;
    }
    const auto row = static_cast<std::size_t>(index.row());
    const bool ofFace = index.internalId() == ofTopLevel;
    const std::size_t top = ofFace ? row : static_cast<std::size_t>(index.internalId());
    if (only_ && top >= only_->size()) {
        return std::nullopt;
    }
    return FacePart{only_ ? (*only_)[top] : top, ofFace ? 0 : row + 1};
}

QModelIndex FaceTreeModel::indexOf(const FacePart& part) const {
    std::size_t row = part.face;
    if (only_) {
        const auto found = std::lower_bound(only_->begin(), only_->end(), part.face);
        if (found == only_->end() || *found != part.face) {
            return {};
        }
        row = static_cast<std::size_t>(found - only_->begin());
    }
    const QModelIndex face = index(rows(row), 0, {});
    return part.vertex == 0 || !face.isValid() ? face : index(rows(part.vertex - 1), 0, face);
}

QModelIndex FaceTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || column != 0 || row >= rowCount(parent)) {
        return {};
    }
    return createIndex(row, 0, parent.isValid() ? static_cast<quintptr>(parent.row()) : ofTopLevel);
}

QModelIndex FaceTreeModel::parent(const QModelIndex& child) const {
    if (!child.isValid() || child.internalId() == ofTopLevel) {
        return {};
    }
    return createIndex(static_cast<int>(child.internalId()), 0, ofTopLevel);
}

int FaceTreeModel::rowCount(const QModelIndex& parent) const {
    const PolygonList* faces = this->faces();
    if (faces == nullptr) {
        return 0;
    }
    if (!parent.isValid()) {
        return rows(only_ ? only_->size() : faces->size());
    }
    const auto part = partOf(parent);
    const bool ofFace = part && part->vertex == 0 && part->face < faces->size();
    return ofFace ? rows((*faces)[part->face].size()) : 0;
}

int FaceTreeModel::columnCount(const QModelIndex& /*parent*/) const {
    return 1;
}

QVariant FaceTreeModel::data(const QModelIndex& index, int role) const {
    const auto part = partOf(index);
    const PolygonList* faces = this->faces();
    if (!part || faces == nullptr || part->face >= faces->size() ||
        (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)) {
        return {};
    }
    if (part->vertex == 0) {
        return QStringLiteral("face %1").arg(part->face + 1);
    }
    const auto corners = (*faces)[part->face];
    return part->vertex <= corners.size()
               ? QStringLiteral("vertice %1").arg(quint64{corners[part->vertex - 1]} + 1)
               : QVariant();
}

} // namespace korvane
