#include "model/forms/TStructureView.h"

#include "app/widgets/WidgetText.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QToolTip>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace korvane {

namespace {

/// Returns a small square of the colour, with a rim to distinguish it from the row.
QPixmap colorSample(QRgb color, const QStyleOptionViewItem& option) {
    const int side = option.fontMetrics.ascent();
    const double ratio = option.widget != nullptr ? option.widget->devicePixelRatioF() : 1.0;
    QPixmap sample((QSizeF(side, side) * ratio).toSize());
    sample.setDevicePixelRatio(ratio);
    sample.fill(Qt::transparent);
    QPainter painter(&sample);
    painter.setPen(option.palette.color(QPalette::Text));
    painter.setBrush(QColor::fromRgb(color));
    painter.drawRect(0, 0, side - 1, side - 1);
    return sample;
}

/// Greys the rows of what the views hide, and adds colour samples to those of materials.
class StructureRows : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        if (event->type() != QEvent::ToolTip) {
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        }
        const QString text = index.data(Qt::ToolTipRole).toString();
        QToolTip::showText(event->globalPos(), toolTipOf(text), view, view->visualRect(index));
        return true;
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index.data(StructureTreeModel::hiddenRole).toBool()) {
            option->palette.setBrush(QPalette::Text,
                                     option->palette.brush(QPalette::Disabled, QPalette::Text));
        }
        const QVariant color = index.data(StructureTreeModel::sampleRole);
        if (color.isValid()) {
            const QPixmap sample = colorSample(color.value<quint32>(), *option);
            option->features |= QStyleOptionViewItem::HasDecoration;
            option->icon = QIcon(sample);
            option->decorationSize = sample.deviceIndependentSize().toSize();
        }
    }
};

} // namespace

TStructureView::TStructureView(QTreeView& view, StructureTreeModel& model)
    : view_(view), model_(model) {
    view_.setModel(&model_);
    view_.setItemDelegate(new StructureRows(&view_));
    // If the mouse is released over another row than pressed, Qt selects that row, but does not
    // make it current. With Ctrl, Qt would leave no row selected.
    connect(view_.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection& selected, const QItemSelection& deselected) {
                QItemSelectionModel& rows = *view_.selectionModel();
                if (!selected.isEmpty()) {
                    rows.setCurrentIndex(selected.indexes().first(), QItemSelectionModel::NoUpdate);
                } else if (deselected.contains(rows.currentIndex())) {
                    rows.select(rows.currentIndex(), QItemSelectionModel::Select);
                }
            });
    // 0: only measure visible rows
    view_.header()->setResizeContentsPrecision(0);
    // after the view's own slots, which discard its state when the tree is replaced
    connect(&model_, &QAbstractItemModel::modelAboutToBeReset, this, &TStructureView::remember);
    connect(&model_, &QAbstractItemModel::modelReset, this, &TStructureView::restore);
    fitSoon_.setSingleShot(true);
    fitSoon_.setInterval(0);
    const auto fitSoon = [this] { fitSoon_.start(); };
    // later: measuring lays the view out, which is too slow for each of many nodes
    connect(&view_, &QTreeView::expanded, &fitSoon_, fitSoon);
    connect(&view_, &QTreeView::collapsed, &fitSoon_, fitSoon);
    connect(view_.verticalScrollBar(), &QScrollBar::valueChanged, &fitSoon_, fitSoon);
    connect(&fitSoon_, &QTimer::timeout, &fitSoon_, [this] { fitColumn(); });
    // not for the mouse: the row must not move away from the pointer
    connect(view_.selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        if (view_.hasAutoScroll()) {
            scrollSideways();
        }
    });
    showTextSoon_.setSingleShot(true);
    showTextSoon_.setInterval(0);
    connect(&showTextSoon_, &QTimer::timeout, &showTextSoon_, [this] { showCurrentText(); });
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
            continue; // not a frame, or a new one
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
    scrollSideways();
}

void TStructureView::scrollSideways() {
    // rows that have become visible may need a wider column, which the view lays out later
    fitColumn();
    showTextSoon_.start();
}

void TStructureView::showCurrentText() {
    const QModelIndex current = view_.currentIndex();
    if (!current.isValid()) {
        return;
    }
    QScrollBar& bar = *view_.horizontalScrollBar();
    const int text = view_.visualRect(current).left();
    const int wanted = text + view_.sizeHintForIndex(current).width() - view_.viewport()->width();
    // if the text is wider than the view, its beginning is more important
    bar.setValue(bar.value() + (text < 0 ? text : std::clamp(wanted, 0, text)));
}

NodeData TStructureView::nodeData(const QModelIndex& index) const {
    return index.isValid() ? model_.tree().nodeData(StructureTreeModel::nodeOf(index)) : NodeData();
}

void TStructureView::fitColumn() {
    // The column fills the view, so that the selection does too, but cuts no text off: deep trees
    // scroll sideways.
    const QAbstractItemView& rows = view_;
    view_.header()->setMinimumSectionSize(rows.sizeHintForColumn(0));
}

} // namespace korvane
