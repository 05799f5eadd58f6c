#pragma once

#include "model/records/TextureImage.h"

#include <QDialog>
#include <QString>

#include <memory>

class QFileSystemModel;

namespace korvane {

namespace Ui {
class TOKBottomDlg;
}

/// Lets the user choose a texture file, with a preview of the list's current file. Keeps its folder
/// for the whole run.
class TOKBottomDlg : public QDialog {
    Q_OBJECT
  public:
    explicit TOKBottomDlg(QWidget* parent);
    ~TOKBottomDlg() override;

    /// Clears the choice; call it before each show. The first call opens `folder`, or the current
    /// folder if there is no such folder.
    void reset(const QString& folder);

    /// True once the file list or the name has had the focus or a file was loaded, until the user
    /// cancels. Only the result of the dialog shows whether "Load" has closed it.
    [[nodiscard]] bool isAccepted() const { return accepted_; }
    /// The full path of the chosen file and its image; empty and null if none was chosen. A file
    /// that cannot be decoded has blankTextureImage().
    [[nodiscard]] const QString& fileName() const { return fileName_; }
    [[nodiscard]] const std::shared_ptr<const TextureImage>& loadedImage() const { return image_; }

    void accept() override;
    void reject() override;

  protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void LoadPreview(const QString& fileName);
    void TextureLoad();
    void TextureCancel();

    void connectControls();
    void connectFolderTree();
    void fillDrives();
    void showDrive(const QString& folder);
    void showFolder(const QString& folder);
    /// Scrolls to the current folder unless the user has scrolled or expanded the tree since.
    void scrollToFolder();
    void folderChanged();
    void fileChanged();
    void setMask(const QString& mask);
    /// Applies the typed text: a mask, a folder or a file. Returns false if it chooses no file, or
    /// one that cannot be shown.
    bool takeTypedName();
    void choose(const QString& fileName);
    void clearChoice();
    [[nodiscard]] QString folder() const;

    std::unique_ptr<Ui::TOKBottomDlg> ui_;
    QFileSystemModel* folders_ = nullptr; ///< the first reset() makes both models
    QFileSystemModel* files_ = nullptr;
    QString mask_;
    QString fileName_;
    std::shared_ptr<const TextureImage> image_;
    bool accepted_ = false;
    bool following_ = false; ///< the tree keeps the current folder visible
    bool placing_ = false;   ///< the program scrolls and expands the tree, not the user
    bool filling_ = false;   ///< the program sets the lists, not the user
};

} // namespace korvane
