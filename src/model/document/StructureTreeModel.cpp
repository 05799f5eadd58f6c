#include "model/document/StructureTreeModel.h"

#include "model/records/ModelText.h"

#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <utility>

namespace korvane {

void StructureTreeModel::setTree(StructureTree tree) {
    beginResetModel();
    tree_ = std::move(tree);
    endResetModel();
}

void StructureTreeModel::markHidden(const FrameRecord& frame) {
    const QModelIndex node = indexOf(frame.TreeNode);
    if (!node.isValid()) {
        return;
    }
    tree_.markHidden(frame);
    for (const QModelIndex& shown : {node, indexOf(frame.TreeNode + 1)}) {
        Q_EMIT dataChanged(shown, shown, {hiddenRole, Qt::AccessibleTextRole, Qt::ToolTipRole});
    }
}

QModelIndex StructureTreeModel::indexOf(std::int32_t node) const {
    if (node < 0 || static_cast<std::size_t>(node) >= tree_.nodes().size()) {
        return {};
    }
    return createIndex(tree_.nodes()[static_cast<std::size_t>(node)].row, 0,
                       static_cast<quintptr>(node));
}

std::int32_t StructureTreeModel::nodeOf(const QModelIndex& index) {
    return index.isValid() ? static_cast<std::int32_t>(index.internalId()) : -1;
}

QModelIndex StructureTreeModel::index(int row, int column, const QModelIndex& parent) const {
    const auto children = tree_.children(nodeOf(parent));
    if (row < 0 || column != 0 || static_cast<std::size_t>(row) >= children.size()) {
        return {};
    }
    return indexOf(children[static_cast<std::size_t>(row)]);
}

QModelIndex StructureTreeModel::parent(const QModelIndex& child) const {
    const std::int32_t node = nodeOf(child);
    return node < 0 ? QModelIndex() : indexOf(tree_.nodes()[static_cast<std::size_t>(node)].parent);
}

int StructureTreeModel::rowCount(const QModelIndex& parent) const {
    return static_cast<int>(tree_.children(nodeOf(parent)).size());
}

int StructureTreeModel::columnCount(const QModelIndex& /*parent*/) const {
    return 1;
}

QString StructureTreeModel::spokenText(const StructureNode& node) {
    return node.hidden ? shownText(node.text) + QStringLiteral(", hidden") : shownText(node.text);
}

QString StructureTreeModel::details(std::int32_t node) const {
    return source_.details ? source_.details(tree_.nodeData(node)) : QString();
}

QVariant StructureTreeModel::data(const QModelIndex& index, int role) const {
    constexpr int longestTip = 4096; // a name can be as long as its file
    const std::int32_t node = nodeOf(index);
    if (node < 0) {
        return {};
    }
    const StructureNode& shown = tree_.nodes()[static_cast<std::size_t>(node)];
    switch (role) {
    case hiddenRole:
        return shown.hidden;
    case sampleRole:
        if (source_.sample) {
            const auto color = source_.sample(tree_.nodeData(node));
            return color ? QVariant(quint32{*color}) : QVariant();
        }
        return {};
    case Qt::DisplayRole:
        return shownText(shown.text);
    case Qt::AccessibleTextRole:
        return spokenText(shown);
    case Qt::AccessibleDescriptionRole:
        return details(node);
    case Qt::ToolTipRole:
        return QStringList{spokenText(shown).left(longestTip), details(node).left(longestTip)}
            .join(u'\n')
            .trimmed();
    default:
        return {};
    }
}

} // namespace korvane
