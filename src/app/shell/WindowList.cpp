#include "app/shell/WindowList.h"

#include "app/shell/TMainForm.h"
#include "app/widgets/WidgetText.h"
#include "model/forms/TMDIChild.h"

#include <QMdiArea>
#include <QMenu>

namespace korvane {

namespace {

QAction* addItem(QMenu& menu, int number, TMDIChild& document) {
    constexpr int widest = 480;
    constexpr int lastDigit = 9; // a digit is the mnemonic of the first nine
    const QString text = elidedText(menu, document.document()->FileName, widest);
    const QString mnemonic = number <= lastDigit ? QStringLiteral("&") : QString();
    QAction* item = menu.addAction(mnemonic + QString::number(number) + u' ' + captionOf(text));
    item->setObjectName(QStringLiteral("WindowItem%1").arg(number));
    item->setStatusTip(QStringLiteral("Go to this window"));
    item->setCheckable(true);
    QObject::connect(item, &QAction::triggered, &document, [&document] {
        if (document.isMinimized()) {
            document.showNormal();
        }
        document.mdiArea()->setActiveSubWindow(&document);
    });
    return item;
}

} // namespace

void WindowList::refresh(const TMainForm& frame, QMenu& menu) {
    qDeleteAll(items_);
    items_.clear();
    const QList<TMDIChild*> open = frame.documents();
    if (!open.isEmpty()) {
        items_.push_back(menu.addSeparator());
    }
    int number = 0;
    for (TMDIChild* document : open) {
        QAction* item = addItem(menu, ++number, *document);
        item->setChecked(document == frame.activeDocument());
        items_.push_back(item);
    }
}

} // namespace korvane
