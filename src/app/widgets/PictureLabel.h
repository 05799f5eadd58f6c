#pragma once

#include "render/picture/Bitmap.h"

class QLabel;

namespace korvane {

// Labels in the corner of a picture.

/// Passes mouse events through to the picture and gives the label the size of its text.
void layOver(QLabel& label);
/// Makes the text black or white, whichever is readable on the background.
void setInkFor(QLabel& label, BitmapPixel background);

} // namespace korvane
