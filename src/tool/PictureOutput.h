#pragma once

#include "tool/OutputFile.h"

#include <QImage>

namespace korvane::tool {

/// Adds the option to write a picture under a name without ".png".
void addFormatOption(CommandLine& line);

/// Throws WrongCall if no picture may go to `out` with these options. It may go to a name that ends
/// in ".png", to any name with "--format png", or to "-": a call that names only models must never
/// overwrite one of them.
void checkPictureOutput(const CommandLine& line, const QString& out);

/// Writes a picture as PNG. Throws Refusal or OutputFailure.
void savePng(const QImage& picture, const QString& out);

} // namespace korvane::tool
