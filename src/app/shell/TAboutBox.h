#pragma once

#include <QDialog>

#include <memory>

namespace korvane {

namespace Ui {
class TAboutBox;
}

/// Shows the product, its version and what a bug report needs to say about the machine.
class TAboutBox : public QDialog {
    Q_OBJECT
  public:
    explicit TAboutBox(QWidget* parent);
    ~TAboutBox() override;

    /// Returns the lines that the box shows and its copy button copies.
    [[nodiscard]] QString report() const;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void CopyButtonClick();

    std::unique_ptr<Ui::TAboutBox> ui_;
};

} // namespace korvane
