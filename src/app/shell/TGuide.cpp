#include "app/shell/TGuide.h"

#include "app/widgets/Hints.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTextBlock>

// a library's resources must be requested, outside of any namespace
static void initGuide() {
    Q_INIT_RESOURCE(guide);
}

namespace korvane {

TGuide::TGuide(QWidget* parent) : QTextBrowser(parent) {
    initGuide();
    setWindowFlag(Qt::Window);
    setObjectName(QStringLiteral("Guide"));
    setAccessibleName(QStringLiteral("Guide"));
    setWindowTitle(QStringLiteral("Guide"));
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(fontMetrics().height());
    // about 80 letters per line
    resize(fontMetrics().averageCharWidth() * 90, fontMetrics().height() * 40);
}

void TGuide::showSection(const QString& section) {
    QUrl url(QStringLiteral("qrc:/docs/guide.md"));
    url.setFragment(section.isEmpty() ? QString() : section);
    setSource(url);
}

QString TGuide::linkOf(const QString& heading) {
    QString link;
    for (const QChar letter : heading.toLower()) {
        if (letter.isLetterOrNumber() || letter == u'-') {
            link += letter;
        } else if (letter.isSpace()) {
            link += u'-';
        }
    }
    return link;
}

QVariant TGuide::loadResource(int type, const QUrl& name) {
    QVariant loaded = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::MarkdownResource) {
        return loaded;
    }
    QStringList lines = QString::fromUtf8(loaded.toByteArray()).split(u'\n');
    lines.removeIf([](const QString& line) { return line.startsWith(u"!["); });
    return lines.join(u'\n');
}

void TGuide::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
    if (url.scheme() != u"qrc") {
        return;
    }
    QTextBrowser::doSetSource(url, type);
    if (url.hasFragment()) {
        scrollToHeading(url.fragment());
    }
}

void TGuide::scrollToHeading(const QString& link) {
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0 && linkOf(block.text()) == link) {
            setTextCursor(QTextCursor(block)); // the keyboard continues from here
            const QRectF place = document()->documentLayout()->blockBoundingRect(block);
            verticalScrollBar()->setValue(static_cast<int>(place.top()));
            return;
        }
    }
}

void TGuide::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QTextBrowser::keyPressEvent(event);
}

GuideKey::GuideKey(QWidget& frame) : frame_(frame) {
    qApp->installEventFilter(this);
}

void GuideKey::moveTo(QWidget& window) {
    const QRect place = guide_->geometry();
    guide_->setParent(&window, Qt::Window); // hides it
    guide_->setGeometry(place);
}

void GuideKey::leave(const QWidget& dialog) {
    const bool shown = guide_->isVisible();
    moveTo(dialog.parentWidget() != nullptr ? *dialog.parentWidget()->window() : frame_);
    guide_->setAttribute(Qt::WA_ShowWithoutActivating);
    guide_->setVisible(shown);
    guide_->setAttribute(Qt::WA_ShowWithoutActivating, false);
}

bool GuideKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide && !event->spontaneous() && guide_ != nullptr &&
        watched == guide_->parentWidget()) {
        leave(*guide_->parentWidget());
        return false;
    }
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) {
        return false;
    }
    const auto& key = dynamic_cast<const QKeyEvent&>(*event);
    if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier ||
        QApplication::activePopupWidget() != nullptr) {
        return false;
    }
    const QWidget* focus = QApplication::focusWidget();
    const QString section = guideSection(focus != nullptr ? focus : QApplication::activeWindow());
    QWidget* over =
        QApplication::activeModalWidget() != nullptr ? QApplication::activeModalWidget() : &frame_;
    if (guide_.isNull()) {
        guide_ = new TGuide(over);
    } else if (guide_->parentWidget() != over) {
        moveTo(*over); // a dialog takes no input from elsewhere
    } else if (focus == guide_) {
        return true;
    }
    guide_->show(); // first: a heading has a position only once the text is laid out
    guide_->showSection(section);
    guide_->raise();
    guide_->activateWindow();
    return true;
}

} // namespace korvane
