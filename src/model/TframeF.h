#pragma once

#include <QDialog>

namespace korvane {

/// The flags of a frame. It has no controls yet and no command shows it.
class TframeF : public QDialog {
  public:
    explicit TframeF(QWidget* parent);
};

} // namespace korvane
