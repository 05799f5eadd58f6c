#include "app/shell/BeginHint.h"

#include "app/widgets/PictureLabel.h"

#include <QEvent>
#include <QMdiArea>

namespace korvane {

BeginHint::BeginHint(QMdiArea& area) : QLabel(area.viewport()), area_(area) {
    setObjectName(QStringLiteral("BeginHint"));
    setTextFormat(Qt::PlainText);
    setText(
        QStringLiteral("Open a model with File > Open File (Ctrl+O), or drop model files here.\n"
                       "File > New (Ctrl+N) makes an empty one.\n\n"
                       "Sample models are in the folder \"samples\"; the guide says where.\n"
                       "F1 shows the guide."));
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    area.viewport()->installEventFilter(this);
}

void BeginHint::followBackground() {
    setInkFor(*this, area_.background().color().rgb());
}

bool BeginHint::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        setGeometry(area_.viewport()->rect());
    }
    return QLabel::eventFilter(watched, event);
}

} // namespace korvane
