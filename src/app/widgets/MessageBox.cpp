#include "app/widgets/MessageBox.h"

#include "app/widgets/ModalCall.h"
#include "app/widgets/WidgetText.h"

#include <QGridLayout>

namespace korvane {

QMessageBox::StandardButton showMessageBox(QWidget* window, const QString& objectName,
                                           QMessageBox::Icon icon, const QString& title,
                                           const QString& text,
                                           QMessageBox::StandardButtons buttons) {
    QMessageBox box(icon, title, text, buttons, window);
    box.setObjectName(objectName);
    box.setTextFormat(Qt::PlainText);
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout())) {
        grid->addItem(new QSpacerItem(widthForTitle(box, title), 0), grid->rowCount(), 0, 1,
                      grid->columnCount());
    }
    return static_cast<QMessageBox::StandardButton>(execModal(box));
}

bool replacingAgreed(QWidget* window, const QString& fileName) {
    return showMessageBox(window, QStringLiteral("ReplaceQuestion"), QMessageBox::Warning,
                          QStringLiteral("File exists.  Replace?"), fileName,
                          QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

} // namespace korvane
