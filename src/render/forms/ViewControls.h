#pragma once

#include "render/drags/ViewKey.h"

#include <QMenu>
#include <QPointer>
#include <QString>

#include <functional>
#include <optional>

class QKeyEvent;
class QToolButton;

namespace korvane {

class PictureWidget;
class TImage;

/// The keys, the focus mark and the menu of a view. The menu opens with the Menu key, Shift+F10 or
/// a small button in the corner: the tools use the right mouse button.
class ViewControls : public QObject {
    Q_OBJECT
  public:
    struct Handlers {
        std::function<void(ViewKey)> key;
        std::function<void()> leave;          ///< the view has lost the focus
        std::function<QString()> pictureName; ///< the path that "Save Picture..." offers
        std::function<QString()> sentence;    ///< describes the view for screen readers
    };

    /// `view` takes the focus, `image` shows the picture; both may be the same. The view owns this
    /// object.
    ViewControls(PictureWidget& view, TImage& image, Handlers handlers);

    /// Inserts a submenu before the commands for the picture.
    void insert(QMenu& submenu);
    void showMenu();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void addCommands();
    bool keyEvent(const QKeyEvent& event);
    void carryOut(ViewKey key);
    void placeButton();
    void copyPicture() const;
    void savePicture();

    PictureWidget& view_;
    TImage& image_;
    Handlers handlers_;
    QMenu& menu_;
    QAction* pictureCommands_ = nullptr; ///< the separator before them
    QToolButton* button_;
};

/// Returns the path to offer for a picture of a model: beside the model, with its name and the
/// view's.
QString pictureName(const QString& model, QStringView view);

/// Returns the meaning of a key press in a view; none for other keys.
std::optional<ViewKey> viewKey(const QKeyEvent& event);

} // namespace korvane
