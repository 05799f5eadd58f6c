#pragma once

#include "render/picture/Bitmap.h"

class QLabel;

namespace korvane {

// Labels that lie in the corner of a picture.

/// Lets the mouse through to the picture and gives the label the size of its text.
void layOver(QLabel& label);
/// Gives the label a colour that can be read on the background of the picture.
void setInkFor(QLabel& label, BitmapPixel background);

} // namespace korvane
