#pragma once

#include "model/document/ModelDocument.h"

#include <QCursor>

namespace korvane {

/// Returns the pointer shape over a 2D view, which shows what the tool does. `dragging` is true
/// while a drag runs.
QCursor toolCursor(ViewTool tool, bool dragging);

} // namespace korvane
