#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <utility>

namespace korvane {

/// A picture: screen readers see a graphic with a sentence that describes it.
class PictureWidget : public QWidget {
    Q_OBJECT
  public:
    explicit PictureWidget(QWidget* parent);

    /// Calls the function whenever a screen reader asks for the sentence.
    void setSentence(std::function<QString()> sentence) { sentence_ = std::move(sentence); }
    /// Falls back to the accessible description of the widget.
    [[nodiscard]] QString sentence() const {
        return sentence_ ? sentence_() : accessibleDescription();
    }
    /// Tells screen readers that the sentence has changed.
    void sentenceChanged();

  private:
    std::function<QString()> sentence_;
};

} // namespace korvane
