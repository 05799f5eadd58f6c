#include "edit/materials/FaceTreeModel.h"

#include "model/records/PolygonList.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

namespace korvane {

namespace {

// The id of an index tells its parent: this for a face, the number of the face for a vertex.
constexpr quintptr ofTopLevel = std::numeric_limits<quintptr>::max();

int rows(std::size_t size) {
    constexpr std::size_t most = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(size, most));
}

} // namespace

void FaceTreeModel::setFaces(Faces faces) {
    beginResetModel();
    faces_ = std::move(faces);
    endResetModel();
}

std::optional<FacePart> FaceTreeModel::partOf(const QModelIndex& index) {
    if (!index.isValid()) {
        return std::nullopt;
    }
    const auto row = static_cast<std::size_t>(index.row());
    if (index.internalId() == ofTopLevel) {
        return FacePart{row, 0};
    }
    return FacePart{static_cast<std::size_t>(index.internalId()), row + 1};
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
        return rows(faces->size());
    }
    const auto face = static_cast<std::size_t>(parent.row());
    const bool ofFace = parent.internalId() == ofTopLevel && face < faces->size();
    return ofFace ? rows((*faces)[face].size()) : 0;
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
