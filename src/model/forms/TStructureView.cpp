#include "model/forms/TStructureView.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace korvane {

namespace {

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

} // namespace

TStructureView::TStructureView(QTreeView& view, StructureTreeModel& model)
    : view_(view), model_(model) {
    view_.setModel(&model_);
    view_.setItemDelegate(new HiddenRows(&view_));
    // A release over another row than the press selects that row and leaves the keyboard where it
    // was.
    connect(view_.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection& selected) {
                if (!selected.isEmpty()) {
                    view_.selectionModel()->setCurrentIndex(selected.indexes().first(),
                                                            QItemSelectionModel::NoUpdate);
                }
            });
    // 0: only the rows in sight are measured
    view_.header()->setResizeContentsPrecision(0);
    // behind those of the view, which have forgotten all when the other tree is there
    connect(&model_, &QAbstractItemModel::modelAboutToBeReset, this, &TStructureView::remember);
    connect(&model_, &QAbstractItemModel::modelReset, this, &TStructureView::restore);
    fitSoon_.setSingleShot(true);
    fitSoon_.setInterval(0);
    const auto fitSoon = [this] { fitSoon_.start(); };
    // later: measuring lays the view out, which must not happen for each of many nodes
    connect(&view_, &QTreeView::expanded, &fitSoon_, fitSoon);
    connect(&view_, &QTreeView::collapsed, &fitSoon_, fitSoon);
    connect(view_.verticalScrollBar(), &QScrollBar::valueChanged, &fitSoon_, fitSoon);
    connect(&fitSoon_, &QTimer::timeout, &fitSoon_, [this] { fitColumn(); });
}

TStructureView::~TStructureView() {
    view_.setModel(nullptr);
}

void TStructureView::remember() {
    before_ = model_.tree();
    expanded_.assign(before_.nodes().size(), false);
    for (std::size_t node = 0; node < expanded_.size(); ++node) {
        expanded_[node] = view_.isExpanded(model_.indexOf(static_cast<std::int32_t>(node)));
    }
    scroll_ = view_.verticalScrollBar()->value();
}

void TStructureView::restore() {
    {
        const QSignalBlocker silent(view_);
        expandAgain();
    }
    before_ = StructureTree();
    expanded_.clear();
    view_.doItemsLayout();
    view_.verticalScrollBar()->setValue(scroll_);
    fitColumn();
}

void TStructureView::expandAgain() {
    constexpr std::int32_t noNode = -1;
    constexpr std::int32_t topLevel = -1;
    const StructureTree& tree = model_.tree();
    const auto follow = [&](std::int32_t from, std::int32_t to) {
        if (from != noNode && to != noNode && expanded_[static_cast<std::size_t>(from)]) {
            view_.expand(model_.indexOf(to));
        }
    };
    for (std::size_t i = 0; i < tree.nodes().size(); ++i) {
        const std::int32_t then = tree.nodes()[i].previous;
        if (then < 0 || static_cast<std::size_t>(then) >= expanded_.size()) {
            continue; // no frame, or a new one
        }
        const auto now = static_cast<std::int32_t>(i);
        follow(then, now);
        const std::int32_t mesh = tree.childOfKind(now, NodeKind::Mesh);
        const std::int32_t meshThen = before_.childOfKind(then, NodeKind::Mesh);
        if (mesh != noNode && meshThen != noNode) {
            follow(meshThen, mesh);
            follow(before_.childOfKind(meshThen, NodeKind::MeshMaterialList),
                   tree.childOfKind(mesh, NodeKind::MeshMaterialList));
        }
    }
    follow(before_.childOfKind(topLevel, NodeKind::MaterialTable),
           tree.childOfKind(topLevel, NodeKind::MaterialTable));
}

void TStructureView::select(const NodeData& data) {
    view_.setAutoScroll(false);
    view_.setCurrentIndex(model_.indexOf(model_.tree().nearestNode(data)));
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
