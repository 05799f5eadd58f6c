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

/// What a view is besides its picture and the mouse: its keys, the mark of the focus, and its menu,
/// which comes with the Menu key, Shift+F10 or a small button in the corner, since the right mouse
/// button is the tools'.
class ViewControls : public QObject {
    Q_OBJECT
  public:
    struct Handlers {
        std::function<void(ViewKey)> key;
        std::function<void()> leave;          ///< the view has lost the focus
        std::function<QString()> pictureName; ///< the path that "Save Picture..." offers
        std::function<QString()> sentence;    ///< what the view shows, for screen readers
    };

    /// `view` has the focus, `image` shows the picture; both may be the same. The view owns this
    /// object.
    ViewControls(PictureWidget& view, TImage& image, Handlers handlers);

    /// A menu of what else the view can do, before the commands for the picture.
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

/// The path that a picture of a model is offered under: beside the model, with its name and the
/// view's.
QString pictureName(const QString& model, QStringView view);

/// The meaning of a key press in a view, none for others.
std::optional<ViewKey> viewKey(const QKeyEvent& event);

} // namespace korvane
