#pragma once

#include <QDialog>

namespace korvane {

/// The material editor. It has no controls yet and no command shows it.
class TMaterial : public QDialog {
  public:
    explicit TMaterial(QWidget* parent);
};

} // namespace korvane
