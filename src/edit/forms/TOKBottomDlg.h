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

/// The choice of a texture file, with a preview of the file that the list stands on. It stays in
/// the folder where it was left for the whole run.
class TOKBottomDlg : public QDialog {
    Q_OBJECT
  public:
    explicit TOKBottomDlg(QWidget* parent);
    ~TOKBottomDlg() override;

    /// Forgets the choice before the dialog is shown again; `folder` is where it begins the first
    /// time.
    void reset(const QString& folder);

    /// The user has gone to a file or loaded one and not cancelled since; whether the dialog was
    /// left by "Load" is its result alone.
    [[nodiscard]] bool isAccepted() const { return accepted_; }
    /// The full path of the chosen file and its image; empty and null if none was chosen. The image
    /// of a file that cannot be decoded is the 1 x 1 one.
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
    /// Brings the folder shown into sight, unless the user has moved the tree since.
    void scrollToFolder();
    void folderChanged();
    void fileChanged();
    void setMask(const QString& mask);
    /// Takes what was typed: another mask, a folder or a file. False if it chooses no file, or one
    /// that cannot be shown.
    bool takeTypedName();
    void choose(const QString& fileName);
    void clearChoice();
    [[nodiscard]] QString folder() const;

    std::unique_ptr<Ui::TOKBottomDlg> ui_;
    QFileSystemModel* folders_ = nullptr; ///< these two are made when the dialog is first needed
    QFileSystemModel* files_ = nullptr;
    QString mask_;
    QString fileName_;
    std::shared_ptr<const TextureImage> image_;
    bool accepted_ = false;
    bool following_ = false; ///< the tree keeps the folder shown in sight
    bool placing_ = false;   ///< the tree is moved and opened, but not by the user
    bool filling_ = false;   ///< the lists follow something else, not the user
};

} // namespace korvane
