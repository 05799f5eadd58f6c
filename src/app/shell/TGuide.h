#pragma once

#include <QObject>
#include <QPointer>
#include <QTextBrowser>

namespace korvane {

/// The guide in a window of its own, from the program's own resources and without its pictures.
class TGuide : public QTextBrowser {
    Q_OBJECT
  public:
    explicit TGuide(QWidget* parent);

    /// Shows the guide from that heading on, which is given as links in it give it; from its
    /// beginning where there is none.
    void showSection(const QString& section);
    /// The heading as a link to it: in lower case, with "-" for blanks and without punctuation.
    [[nodiscard]] static QString linkOf(const QString& heading);

  protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void scrollToHeading(const QString& link);
};

/// Shows the guide at the section of what has the focus when the user presses F1, also in a dialog.
class GuideKey : public QObject {
  public:
    /// The frame must outlive this object.
    explicit GuideKey(QWidget& frame);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void putOver(QWidget& window);
    /// The dialog below the guide goes away; the guide stays, over what the dialog lay over.
    void leave(const QWidget& dialog);

    QWidget& frame_;
    QPointer<TGuide> guide_; ///< what it lies over owns it
};

} // namespace korvane
