#include "model/forms/TStructureView.h"

#include "model/records/FrameWalk.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace korvane {

namespace {

constexpr std::int32_t noNode = -1;
constexpr std::int32_t topLevel = -1;

const StructureNode& nodeAt(const StructureTree& tree, std::int32_t node) {
    return tree.nodes()[static_cast<std::size_t>(node)];
}

/// The child of a kind; of those with a number that of the number, else the last one.
std::int32_t childOfKind(const StructureTree& tree, std::int32_t parent, NodeKind kind,
                         std::int32_t item = 0) {
    std::int32_t found = noNode;
    for (const std::int32_t child : tree.children(parent)) {
        const StructureNode& node = nodeAt(tree, child);
        if (node.kind == kind && node.item <= item) {
            found = child;
        }
    }
    return found;
}

/// Greys the rows of what the views leave out.
class HiddenRows : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index.data(StructureTreeModel::hiddenRole).toBool()) {
            option->palette.setBrush(QPalette::Text,
                                     option->palette.brush(QPalette::Disabled, QPalette::Text));
        }
    }
};

/// The node of each frame in pre-order, before the snapshot of the tree is taken anew; no node for
/// frames that are new.
std::vector<std::int32_t> nodesOfFrames(ModelDocument& document) {
    std::vector<std::int32_t> nodes;
    for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
        nodes.push_back(walk.frame().TreeNode);
    }
    return nodes;
}

} // namespace

TStructureView::TStructureView(QTreeView& view) : view_(view) {
    view_.setModel(&model_);
    view_.setItemDelegate(new HiddenRows(&view_));
    // 0: only the rows in sight are measured
    view_.header()->setResizeContentsPrecision(0);
    fitSoon_.setSingleShot(true);
    fitSoon_.setInterval(0);
    const auto fitSoon = [this] { fitSoon_.start(); };
    // later: measuring lays the view out, which must not happen for each of many nodes
    QObject::connect(&view_, &QTreeView::expanded, &fitSoon_, fitSoon);
    QObject::connect(&view_, &QTreeView::collapsed, &fitSoon_, fitSoon);
    QObject::connect(view_.verticalScrollBar(), &QScrollBar::valueChanged, &fitSoon_, fitSoon);
    QObject::connect(&fitSoon_, &QTimer::timeout, &fitSoon_, [this] { fitColumn(); });
}

TStructureView::~TStructureView() {
    view_.setModel(nullptr);
}

void TStructureView::rebuild(ModelDocument& document) {
    const StructureTree& shown = model_.tree();
    std::vector<bool> expanded(shown.nodes().size());
    for (std::size_t node = 0; node < expanded.size(); ++node) {
        expanded[node] = view_.isExpanded(model_.indexOf(static_cast<std::int32_t>(node)));
    }
    const int scroll = view_.verticalScrollBar()->value();
    const std::vector<std::int32_t> frameNodes = nodesOfFrames(document);
    const StructureTree before = shown;
    model_.setTree(StructureTree(document));
    {
        const QSignalBlocker silent(view_);
        expandAgain(expanded, before, frameNodes);
    }
    view_.doItemsLayout();
    view_.verticalScrollBar()->setValue(scroll);
    fitColumn();
}

void TStructureView::expandAgain(const std::vector<bool>& expanded, const StructureTree& before,
                                 const std::vector<std::int32_t>& frameNodes) {
    const StructureTree& tree = model_.tree();
    const auto follow = [&](std::int32_t from, std::int32_t to) {
        if (from != noNode && to != noNode && expanded[static_cast<std::size_t>(from)]) {
            view_.expand(model_.indexOf(to));
        }
    };
    auto frame = frameNodes.begin();
    for (std::size_t i = 0; i < tree.nodes().size(); ++i) {
        if (tree.nodes()[i].kind != NodeKind::Frame) {
            continue;
        }
        const auto now = static_cast<std::int32_t>(i);
        const std::int32_t then = *frame++;
        if (then < 0 || static_cast<std::size_t>(then) >= expanded.size()) {
            continue;
        }
        follow(then, now);
        const std::int32_t mesh = childOfKind(tree, now, NodeKind::Mesh);
        const std::int32_t meshThen = childOfKind(before, then, NodeKind::Mesh);
        if (mesh != noNode && meshThen != noNode) {
            follow(meshThen, mesh);
            follow(childOfKind(before, meshThen, NodeKind::MeshMaterialList),
                   childOfKind(tree, mesh, NodeKind::MeshMaterialList));
        }
    }
    follow(childOfKind(before, topLevel, NodeKind::MaterialTable),
           childOfKind(tree, topLevel, NodeKind::MaterialTable));
}

std::int32_t TStructureView::nodeOf(const NodeData& data) const {
    const StructureTree& tree = model_.tree();
    if (!data.Frame) {
        const std::int32_t table = childOfKind(tree, topLevel, NodeKind::MaterialTable);
        const std::int32_t entry =
            data.NodeKind == NodeKind::TableMaterial
                ? childOfKind(tree, table, NodeKind::TableMaterial, data.ItemIndex)
                : noNode;
        return std::max(table, entry);
    }
    std::int32_t node = 0;
    for (const std::int32_t number : data.Frame->childNumbers()) {
        const std::int32_t child = childOfKind(tree, node, NodeKind::Frame, number);
        if (child == noNode || nodeAt(tree, child).item != number) {
            return 0;
        }
        node = child;
    }
    // the nodes of a mesh stand one below the other: go as far down as asked for and possible
    const std::pair<NodeKind, bool> below[] = {
        {NodeKind::Mesh, data.NodeKind != NodeKind::Frame},
        {NodeKind::MeshNormals, data.NodeKind == NodeKind::MeshNormals},
        {NodeKind::MeshMaterialList,
         data.NodeKind == NodeKind::MeshMaterialList || data.NodeKind == NodeKind::MaterialSlot},
        {NodeKind::MaterialSlot, data.NodeKind == NodeKind::MaterialSlot}};
    for (const auto& [kind, wanted] : below) {
        const std::int32_t child = wanted ? childOfKind(tree, node, kind, data.ItemIndex) : noNode;
        node = child != noNode ? child : node;
    }
    return node;
}

void TStructureView::select(const NodeData& data) {
    view_.setAutoScroll(false);
    view_.setCurrentIndex(model_.indexOf(nodeOf(data)));
    view_.setAutoScroll(true);
}

void TStructureView::scrollToSelection() {
    view_.scrollTo(view_.currentIndex());
}

NodeData TStructureView::nodeData(const QModelIndex& index) const {
    return index.isValid() ? model_.tree().nodeData(StructureTreeModel::nodeOf(index)) : NodeData();
}

void TStructureView::fitColumn() {
    // the column fills the view, so that the selection does, but never cuts a text off: deep trees
    // scroll sideways
    const QAbstractItemView& rows = view_;
    view_.header()->setMinimumSectionSize(rows.sizeHintForColumn(0));
}

} // namespace korvane
