#include "render/forms/ViewControls.h"

#include "app/widgets/DialogStart.h"
#include "app/widgets/MessageBox.h"
#include "app/widgets/ModalCall.h"
#include "formats/files/AtomicFile.h"
#include "formats/files/FileNames.h"
#include "render/forms/TImage.h"

#include <QBuffer>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QToolButton>

#include <string_view>
#include <utility>

namespace korvane {

namespace {

/// Writes a picture as PNG. Returns false if that fails.
bool writePicture(const QImage& picture, const QString& fileName) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return buffer.open(QIODevice::WriteOnly) && picture.save(&buffer, "PNG") &&
           replaceFile(fileName, [&bytes](const TextSink& sink) {
               return sink({bytes.constData(), static_cast<std::size_t>(bytes.size())});
           });
}

} // namespace

QString pictureName(const QString& model, QStringView view) {
    return QStringLiteral("%1%2-%3.png")
        .arg(folderOf(model), QFileInfo(model).completeBaseName(), view);
}

std::optional<ViewKey> viewKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    const bool plain = held == Qt::NoModifier;
    const bool shifted = held == Qt::ShiftModifier; // many keyboards need it for the plus
    switch (event.key()) {
    case Qt::Key_Left:
        return plain ? std::optional(ViewKey::Left) : std::nullopt;
    case Qt::Key_Right:
        return plain ? std::optional(ViewKey::Right) : std::nullopt;
    case Qt::Key_Up:
        return plain ? std::optional(ViewKey::Up) : std::nullopt;
    case Qt::Key_Down:
        return plain ? std::optional(ViewKey::Down) : std::nullopt;
    case Qt::Key_Plus:
        return plain || shifted ? std::optional(ViewKey::ZoomIn) : std::nullopt;
    case Qt::Key_Minus:
        return plain ? std::optional(ViewKey::ZoomOut) : std::nullopt;
    case Qt::Key_Home:
        return plain     ? std::optional(ViewKey::ShowModel)
               : shifted ? std::optional(ViewKey::ShowFrame)
                         : std::nullopt;
    default:
        return std::nullopt;
    }
}

ViewControls::ViewControls(PictureWidget& view, TImage& image, Handlers handlers)
    : QObject(&view), view_(view), image_(image), handlers_(std::move(handlers)),
      menu_(*new QMenu(&image)), button_(new QToolButton(&image)) {
    view.setSentence(handlers_.sentence);
    image.setSentence(handlers_.sentence);
    menu_.setObjectName(image.objectName() + QStringLiteral("Menu"));
    menu_.setAccessibleName(QStringLiteral("Menu of the view"));
    button_->setObjectName(image.objectName() + QStringLiteral("MenuButton"));
    button_->setAccessibleName(QStringLiteral("Menu of the view"));
    button_->setToolTip(QStringLiteral("Menu of the view (Shift+F10)"));
    button_->setStatusTip(QStringLiteral("Show the menu of the view"));
    button_->setArrowType(Qt::DownArrow);
    button_->setFocusPolicy(Qt::NoFocus); // keys open the menu as well
    button_->setCursor(Qt::ArrowCursor);
    connect(button_, &QToolButton::clicked, this, &ViewControls::showMenu);
    addCommands();
    image.installEventFilter(this);
    if (&view != &image) {
        view.installEventFilter(this);
    }
    placeButton();
}

void ViewControls::addCommands() {
    const std::tuple<const char*, const char*, ViewKey> shows[] = {
        {"Show Whole Model\tHome", "Show the whole model", ViewKey::ShowModel},
        {"Show Selected Frame\tShift+Home", "Show the selected frame with all below it",
         ViewKey::ShowFrame}};
    for (const auto& [caption, hint, key] : shows) {
        QAction* action = menu_.addAction(QString::fromLatin1(caption));
        action->setStatusTip(QString::fromLatin1(hint));
        connect(action, &QAction::triggered, this, [this, key = key] { carryOut(key); });
    }
    pictureCommands_ = menu_.addSeparator();
    QAction* copy = menu_.addAction(QStringLiteral("Copy Picture"));
    copy->setStatusTip(QStringLiteral("Copy the picture of the view to the clipboard"));
    connect(copy, &QAction::triggered, this, &ViewControls::copyPicture);
    QAction* save = menu_.addAction(QStringLiteral("Save Picture..."));
    save->setStatusTip(QStringLiteral("Save the picture of the view as a PNG file"));
    connect(save, &QAction::triggered, this, &ViewControls::savePicture);
}

void ViewControls::insert(QMenu& submenu) {
    menu_.insertMenu(pictureCommands_, &submenu);
}

void ViewControls::showMenu() {
    if (!ModalCall::running()) {
        menu_.popup(button_->mapToGlobal(button_->rect().bottomLeft()));
        menu_.setActiveAction(menu_.actions().constFirst());
    }
}

bool ViewControls::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &image_ && event->type() == QEvent::Resize) {
        placeButton();
    }
    if (watched != &view_) {
        return false;
    }
    switch (event->type()) {
    case QEvent::KeyPress:
        return keyEvent(dynamic_cast<const QKeyEvent&>(*event));
    case QEvent::ContextMenu:
        return true; // keyEvent() has handled its keys
    case QEvent::FocusIn:
        image_.setFocusMark(true);
        break;
    case QEvent::FocusOut:
        // an open menu only borrows the focus
        image_.setFocusMark(dynamic_cast<const QFocusEvent&>(*event).reason() ==
                            Qt::PopupFocusReason);
        handlers_.leave();
        break;
    default:
        break;
    }
    return false;
}

bool ViewControls::keyEvent(const QKeyEvent& event) {
    const bool menuKey = event.key() == Qt::Key_Menu ||
                         (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
    if (menuKey) {
        showMenu();
        return true;
    }
    const std::optional<ViewKey> key = viewKey(event);
    if (key && !ModalCall::running()) {
        carryOut(*key);
    }
    return key.has_value();
}

void ViewControls::carryOut(ViewKey key) {
    handlers_.key(key);
    view_.sentenceChanged();
}

void ViewControls::placeButton() {
    constexpr int side = 16;
    constexpr int margin = 4;
    button_->setGeometry(image_.width() - side - margin, margin, side, side);
}

void ViewControls::copyPicture() const {
    if (!image_.picture().isNull()) {
        QGuiApplication::clipboard()->setImage(image_.picture().copy());
    }
}

void ViewControls::savePicture() {
    const QImage picture = image_.picture().copy(); // the view may change during the dialog
    if (picture.isNull() || ModalCall::running()) {
        return;
    }
    const QString offered = handlers_.pictureName();
    const QPointer<ViewControls> alive(this);
    QFileDialog dialog(view_.window());
    dialog.setObjectName(QStringLiteral("SavePictureDialog"));
    dialog.setWindowTitle(QStringLiteral("Save Picture"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(QStringLiteral("png"));
    dialog.setNameFilters({QStringLiteral("PNG picture (*.png)")});
    startIn(dialog, folderOf(offered));
    dialog.selectFile(QFileInfo(offered).fileName());
    if (execModal(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty() || !alive) {
        return;
    }
    QString name = dialog.selectedFiles().constFirst();
    if (!name.endsWith(QLatin1String(".png"), Qt::CaseInsensitive)) {
        name += QLatin1String(".png"); // a picture must not replace a model
        if (QFileInfo::exists(name) && !replacingAgreed(&view_, name)) {
            return;
        }
    }
    if (!writePicture(picture, name)) {
        showMessageBox(&view_, QStringLiteral("PictureFailure"), QMessageBox::Critical,
                       QStringLiteral("Unable to save picture"), name);
    }
}

} // namespace korvane
