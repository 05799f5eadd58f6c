#pragma once

#include "tool/OutputFile.h"

#include <QImage>

namespace korvane::tool {

/// Adds the option that lets a picture go under a name that does not say what it is.
void addFormatOption(CommandLine& line);

/// Throws WrongCall where no picture can go to `out` with the options given. A picture goes under a
/// name that ends in .png, under any name with "--format png", or to "-": a call that names models
/// only must never write over one of them.
void checkPictureOutput(const CommandLine& line, const QString& out);

/// Writes a picture as PNG. Throws Refusal or OutputFailure.
void savePng(const QImage& picture, const QString& out);

} // namespace korvane::tool
