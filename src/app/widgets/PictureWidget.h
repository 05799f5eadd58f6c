#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <utility>

namespace korvane {

/// A widget that is a picture: to a screen reader a graphic, with a sentence that says what it
/// shows.
class PictureWidget : public QWidget {
    Q_OBJECT
  public:
    explicit PictureWidget(QWidget* parent);

    /// The sentence is made whenever a screen reader asks for it.
    void setSentence(std::function<QString()> sentence) { sentence_ = std::move(sentence); }
    /// Without one, the description that the widget has as any other.
    [[nodiscard]] QString sentence() const {
        return sentence_ ? sentence_() : accessibleDescription();
    }
    /// Tells screen readers that the sentence is another one now.
    void sentenceChanged();

  private:
    std::function<QString()> sentence_;
};

} // namespace korvane
