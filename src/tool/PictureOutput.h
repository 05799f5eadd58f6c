#pragma once

#include "tool/Commands.h"

#include <QCommandLineParser>
#include <QImage>

namespace korvane::tool {

/// Adds the option that lets a picture go under a name that does not say what it is.
void addFormatOption(QCommandLineParser& parser);

/// The reason why no picture can go to `out` with the options given, or an empty text. A picture
/// goes under a name that ends in .png, under any name with "--format png", or to "-", which is
/// standard output: a call that names models only must never write over one of them.
QString pictureOutputFault(const QCommandLineParser& parser, const QString& out);

/// Whether the picture goes to standard output.
bool isStandardOutput(const QString& out);

/// Writes a picture as PNG, or refuses if that fails.
ExitStatus savePng(const QImage& picture, const QString& out);

} // namespace korvane::tool
