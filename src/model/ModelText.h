#pragma once

#include <QString>

#include <string_view>

namespace korvane {

/// Text of a model as the user sees it. Models hold bytes of unknown origin: UTF-8 where they are
/// valid as that, one character a byte (Latin-1) otherwise.
QString shownText(std::string_view bytes);

} // namespace korvane
