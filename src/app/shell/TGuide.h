#pragma once

#include <QObject>
#include <QPointer>
#include <QTextBrowser>

namespace korvane {

/// Shows the guide in a window of its own, from the program's resources and without its pictures.
class TGuide : public QTextBrowser {
    Q_OBJECT
  public:
    explicit TGuide(QWidget* parent);

    /// Scrolls to the heading with this link, or to the beginning of the guide if it is empty.
    void showSection(const QString& section);
    /// Returns the link to a heading: its text in lower case, with "-" for spaces and without
    /// punctuation.
    [[nodiscard]] static QString linkOf(const QString& heading);

  protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void scrollToHeading(const QString& link);
};

/// Shows the guide's section for the focused control when the user presses F1, even in a dialog.
class GuideKey : public QObject {
  public:
    /// The frame must outlive this object.
    explicit GuideKey(QWidget& frame);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void moveTo(QWidget& window);
    /// Keeps the guide when the dialog below it hides: moves it over the dialog's parent window.
    void leave(const QWidget& dialog);

    QWidget& frame_;
    QPointer<TGuide> guide_; ///< the window below it owns it
};

} // namespace korvane
