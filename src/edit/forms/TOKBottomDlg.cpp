#include "edit/forms/TOKBottomDlg.h"

#include "app/widgets/DialogStart.h"
#include "app/widgets/Hints.h"
#include "app/widgets/WidgetText.h"
#include "edit/materials/TextureFolders.h"
#include "formats/textures/TextureLoader.h"
#include "formats/textures/TexturePicture.h"
#include "ui_TOKBottomDlg.h"

#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace korvane {

TOKBottomDlg::TOKBottomDlg(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::TOKBottomDlg>()) {
    ui_->setupUi(this);
    setHints(*this);
    setWindowFlag(Qt::MSWindowsFixedSizeDialogHint);
    const std::pair<const char*, const char*> filters[] = {
        {"Compatible Files", "*.bmp;*.tga;*.pic"},
        {"BMP Files", "*.bmp"},
        {"TGA Files", "*.tga"},
        {"PIC Files", "*.pic"}};
    for (const auto& [name, mask] : filters) {
        ui_->FilterComboBox1->addItem(QString::fromLatin1(name), QString::fromLatin1(mask));
    }
    mask_ = ui_->Edit1->text();
}

TOKBottomDlg::~TOKBottomDlg() = default;

void TOKBottomDlg::connectControls() {
    connect(ui_->DriveComboBox1, &QComboBox::activated, this,
            [this] { showFolder(ui_->DriveComboBox1->currentData().toString()); });
    connect(ui_->DirectoryListBox1->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &TOKBottomDlg::folderChanged);
    connect(ui_->FileListBox1->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &TOKBottomDlg::fileChanged);
    connectFolderTree();
    connect(ui_->FileListBox1, &QListView::doubleClicked, this, [this](const QModelIndex& file) {
        choose(files_->filePath(file)); // replaces anything typed
        TextureLoad();
        accept();
    });
    connect(ui_->FilterComboBox1, &QComboBox::activated, this,
            [this] { setMask(ui_->FilterComboBox1->currentData().toString()); });
    connect(ui_->OKBtn, &QPushButton::clicked, this, [this] {
        TextureLoad();
        accept();
    });
    connect(ui_->Edit1, &QLineEdit::textEdited, ui_->OKBtn,
            [this] { ui_->OKBtn->setEnabled(true); });
    connect(ui_->CancelBtn, &QPushButton::clicked, this, &TOKBottomDlg::reject);
    ui_->FileListBox1->installEventFilter(this);
    ui_->Edit1->installEventFilter(this);
}

void TOKBottomDlg::connectFolderTree() {
    // the current folder's row moves when its siblings are loaded, and again when they are sorted
    connect(folders_, &QFileSystemModel::directoryLoaded, this, &TOKBottomDlg::scrollToFolder,
            Qt::QueuedConnection);
    connect(folders_, &QFileSystemModel::layoutChanged, this, &TOKBottomDlg::scrollToFolder,
            Qt::QueuedConnection);
    QTreeView& tree = *ui_->DirectoryListBox1;
    connect(tree.header(), &QHeaderView::sectionResized, this, &TOKBottomDlg::scrollToFolder,
            Qt::QueuedConnection);
    const auto leave = [this] { following_ = following_ && placing_; };
    connect(&tree, &QTreeView::expanded, this, leave);
    connect(&tree, &QTreeView::collapsed, this, leave);
    connect(tree.verticalScrollBar(), &QScrollBar::actionTriggered, this, leave);
    connect(tree.horizontalScrollBar(), &QScrollBar::actionTriggered, this, leave);
}

void TOKBottomDlg::reset(const QString& folder) {
    if (folders_ == nullptr) {
        folders_ = new QFileSystemModel(this);
        folders_->setFilter(QDir::AllDirs | QDir::Drives | QDir::NoDotAndDotDot);
        folders_->setRootPath(QDir::rootPath());
        ui_->DirectoryListBox1->setModel(folders_);
        for (int column = 1; column < folders_->columnCount(); ++column) {
            ui_->DirectoryListBox1->hideColumn(column);
        }
        // as wide as its content: otherwise names of deep folders would be cut off
        ui_->DirectoryListBox1->header()->setStretchLastSection(false);
        ui_->DirectoryListBox1->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        files_ = new QFileSystemModel(this);
        files_->setFilter(QDir::Files);
        files_->setNameFilterDisables(false);
        ui_->FileListBox1->setModel(files_);
        connectControls();
        setMask(mask_);
        showFolder(QFileInfo(folder).isDir() ? folder : QDir::currentPath());
    }
    fillDrives();
    clearChoice();
    ui_->FileListBox1->setFocus();
    accepted_ = false;
    following_ = true;
    centreOnScreen(*this);
}

void TOKBottomDlg::fillDrives() {
    ui_->DriveComboBox1->clear();
    for (const QString& drive : driveRoots()) {
        ui_->DriveComboBox1->addItem(QDir::toNativeSeparators(drive), drive);
    }
    showDrive(folder());
}

void TOKBottomDlg::showDrive(const QString& folder) {
    const int place = ui_->DriveComboBox1->findData(driveOf(folder));
    ui_->DriveComboBox1->setCurrentIndex(std::max(place, 0));
}

QString TOKBottomDlg::folder() const {
    return files_->rootPath();
}

void TOKBottomDlg::showFolder(const QString& folder) {
    {
        const QScopedValueRollback<bool> placing(placing_, true);
        const QModelIndex index = folders_->index(folder);
        ui_->DirectoryListBox1->setCurrentIndex(index);
        ui_->DirectoryListBox1->expand(index);
    }
    following_ = true;
    scrollToFolder();
}

void TOKBottomDlg::scrollToFolder() {
    if (!following_) {
        return;
    }
    const QScopedValueRollback<bool> placing(placing_, true);
    QTreeView& tree = *ui_->DirectoryListBox1;
    const QModelIndex current = tree.currentIndex();
    const QRect place = tree.visualRect(current);
    if (place.isEmpty() || place.top() < 0 || place.bottom() >= tree.viewport()->height()) {
        tree.scrollTo(current, QAbstractItemView::PositionAtCenter);
    }
    QScrollBar& across = *tree.horizontalScrollBar();
    const int left = across.value() + tree.visualRect(current).left();
    const int end = left + tree.sizeHintForIndex(current).width();
    across.setValue(std::min(left, end - tree.viewport()->width()));
}

void TOKBottomDlg::showEvent(QShowEvent* event) {
    scrollToFolder(); // the tree only has its size now
    QDialog::showEvent(event);
}

void TOKBottomDlg::folderChanged() {
    const QString folder = folders_->filePath(ui_->DirectoryListBox1->currentIndex());
    if (folder.isEmpty()) {
        return;
    }
    {
        const QScopedValueRollback<bool> filling(filling_, true);
        ui_->FileListBox1->setRootIndex(files_->setRootPath(folder));
    }
    showDrive(folder);
    clearChoice();
}

void TOKBottomDlg::setMask(const QString& mask) {
    mask_ = mask;
    {
        const QScopedValueRollback<bool> filling(filling_, true);
        static const QRegularExpression between(QStringLiteral("\\s*;\\s*"));
        files_->setNameFilters(mask.split(between, Qt::SkipEmptyParts));
    }
    clearChoice();
}

void TOKBottomDlg::fileChanged() {
    const QModelIndex current = ui_->FileListBox1->currentIndex();
    if (!filling_ && current.isValid() && !files_->isDir(current)) {
        choose(files_->filePath(current));
    }
}

void TOKBottomDlg::choose(const QString& fileName) {
    LoadPreview(fileName);
    ui_->Edit1->setText(QFileInfo(fileName).fileName());
}

void TOKBottomDlg::clearChoice() {
    const QScopedValueRollback<bool> filling(filling_, true);
    ui_->FileListBox1->setCurrentIndex({});
    ui_->FileListBox1->clearSelection();
    ui_->Edit1->setText(mask_);
    ui_->Image1->clear();
    ui_->PreviewSize->clear();
    fileName_.clear();
    image_.reset();
    ui_->OKBtn->setEnabled(false);
    setWindowTitle(QStringLiteral("Load Texture"));
}

void TOKBottomDlg::LoadPreview(const QString& fileName) {
    fileName_ = fileName;
    image_ = loadSharedTexture(fileName);
    ui_->OKBtn->setEnabled(true);
    if (image_ == blankTextureImage()) {
        ui_->PreviewSize->clear();
        ui_->Image1->setText(QStringLiteral("This file cannot be shown.\nIt can still be loaded "
                                            "for use by other programs."));
    } else {
        const qreal ratio = devicePixelRatioF();
        const QSize room = (QSizeF(ui_->Image1->contentsRect().size()) * ratio).toSize();
        QImage picture = texturePicture(*image_);
        if (picture.width() > room.width() || picture.height() > room.height()) {
            picture = picture.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        }
        picture.setDevicePixelRatio(ratio);
        ui_->PreviewSize->setText(sizeText({image_->width, image_->height}));
        ui_->Image1->setPixmap(QPixmap::fromImage(picture));
    }
    setWindowTitle(
        titleOf(QStringLiteral("Load Texture - [%1]").arg(QFileInfo(fileName).fileName())));
}

void TOKBottomDlg::TextureLoad() {
    accepted_ = true;
}

void TOKBottomDlg::TextureCancel() {
    accepted_ = false;
}

bool TOKBottomDlg::takeTypedName() {
    using Kind = TypedName::Kind;
    const auto [kind, text] = typedName(ui_->Edit1->text(), folder());
    ui_->Edit1->setModified(false);
    switch (kind) {
    case Kind::Nothing:
        clearChoice();
        break;
    case Kind::Mask:
        setMask(text);
        break;
    case Kind::Folder:
        showFolder(text);
        break;
    case Kind::Missing:
        clearChoice();
        ui_->Edit1->setText(text);
        ui_->Image1->setText(QStringLiteral("There is no file of this name."));
        break;
    case Kind::File:
        choose(text);
        // the preview warns if the file cannot be shown; a second Load accepts it
        return image_ != blankTextureImage();
    }
    return false;
}

void TOKBottomDlg::accept() {
    if ((!ui_->Edit1->isModified() || takeTypedName()) && image_ != nullptr) {
        QDialog::accept();
    }
}

void TOKBottomDlg::reject() {
    TextureCancel();
    QDialog::reject();
}

bool TOKBottomDlg::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        TextureLoad();
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace korvane
