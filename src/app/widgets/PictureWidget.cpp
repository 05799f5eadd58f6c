#include "app/widgets/PictureWidget.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace korvane {

namespace {

class Graphic : public QAccessibleWidget {
  public:
    explicit Graphic(PictureWidget& picture)
        : QAccessibleWidget(&picture, QAccessible::Graphic), picture_(picture) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Description ? picture_.sentence()
                                                : QAccessibleWidget::text(kind);
    }

  private:
    PictureWidget& picture_; ///< the toolkit destroys this interface together with it
};

QAccessibleInterface* graphicOf(const QString& /*className*/, QObject* object) {
    auto* picture = qobject_cast<PictureWidget*>(object);
    return picture != nullptr ? new Graphic(*picture) : nullptr;
}

} // namespace

PictureWidget::PictureWidget(QWidget* parent) : QWidget(parent) {
    // here, because setting the accessible name already creates the interface; Qt ignores repeated
    // installation
    QAccessible::installFactory(graphicOf);
}

void PictureWidget::sentenceChanged() {
    QAccessibleEvent event(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}

} // namespace korvane
