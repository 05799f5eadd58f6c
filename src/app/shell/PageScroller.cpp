#include "app/shell/PageScroller.h"

#include <QEvent>
#include <QToolButton>
#include <QWheelEvent>

#include <algorithm>

namespace korvane {

PageScroller::PageScroller(QWidget* parent)
    : QWidget(parent), viewport_(new QWidget(this)),
      back_(makeButton(QStringLiteral("ScrollBack"), tr("Scroll back"), Qt::LeftArrow, -1)),
      forth_(makeButton(QStringLiteral("ScrollForth"), tr("Scroll forward"), Qt::RightArrow, 1)) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QToolButton* PageScroller::makeButton(const QString& name, const QString& says, Qt::ArrowType arrow,
                                      int direction) {
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setAccessibleName(says);
    button->setArrowType(arrow);
    button->setAutoRaise(true);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QToolButton::clicked, this,
            [this, direction] { scrollTo(offset_ + direction * viewport_->width() / 2); });
    return button;
}

void PageScroller::setWidget(QWidget* shown) {
    shown_ = shown;
    shown->setParent(viewport_);
    shown->installEventFilter(this);
    shown->show();
    arrange();
}

QSize PageScroller::sizeHint() const {
    return shown_ != nullptr ? shown_->sizeHint() : QSize();
}

QSize PageScroller::minimumSizeHint() const {
    return {2 * back_->sizeHint().width(), sizeHint().height()};
}

void PageScroller::resizeEvent(QResizeEvent* /*event*/) {
    arrange();
}

void PageScroller::wheelEvent(QWheelEvent* event) {
    const QPoint turned = event->angleDelta();
    scrollTo(offset_ - (turned.x() != 0 ? turned.x() : turned.y()) / 2);
}

bool PageScroller::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::StyleChange) {
        updateGeometry();
        arrange();
    }
    return QWidget::eventFilter(watched, event);
}

void PageScroller::scrollTo(int offset) {
    offset_ = offset;
    arrange();
}

void PageScroller::arrange() {
    if (shown_ == nullptr) {
        return;
    }
    const int wanted = shown_->sizeHint().width();
    const bool scrolls = wanted > width();
    const int buttonWidth = scrolls ? back_->sizeHint().width() : 0;
    const int seen = std::max(width() - 2 * buttonWidth, 0);
    offset_ = std::clamp(offset_, 0, std::max(wanted - seen, 0));
    back_->setVisible(scrolls);
    forth_->setVisible(scrolls);
    back_->setEnabled(offset_ > 0);
    forth_->setEnabled(offset_ < wanted - seen);
    back_->setGeometry(0, 0, buttonWidth, height());
    forth_->setGeometry(width() - buttonWidth, 0, buttonWidth, height());
    viewport_->setGeometry(buttonWidth, 0, seen, height());
    shown_->setGeometry(-offset_, 0, std::max(wanted, seen), height());
}

} // namespace korvane
