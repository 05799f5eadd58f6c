#pragma once

#include "model/document/ModelDocument.h"

#include <QCursor>

namespace korvane {

/// The shape of the pointer over a 2D view, which tells what the mouse does there; `dragging` while
/// a button is held.
QCursor toolCursor(ViewTool tool, bool dragging);

} // namespace korvane
