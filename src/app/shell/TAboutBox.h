#pragma once

#include <QDialog>

#include <memory>

namespace korvane {

namespace Ui {
class TAboutBox;
}

/// The product, its version and what a report of a fault needs to tell of the machine.
class TAboutBox : public QDialog {
    Q_OBJECT
  public:
    explicit TAboutBox(QWidget* parent);
    ~TAboutBox() override;

    /// What the box shows and its copy button copies, a line each.
    [[nodiscard]] QString report() const;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void CopyButtonClick();

    std::unique_ptr<Ui::TAboutBox> ui_;
};

} // namespace korvane
