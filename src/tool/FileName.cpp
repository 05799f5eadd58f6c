#include "tool/FileName.h"

#include "formats/files/FileNames.h"
#include "model/records/ModelText.h"

#include <QUtf8StringView>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <filesystem>
#include <system_error>

namespace korvane::tool {

namespace {

constexpr unsigned strayByte = 0xdc00; ///< added to a byte that is not UTF-8

bool isControl(QChar c) {
    return c.category() == QChar::Other_Control;
}

bool hasControl(const QString& text) {
    return std::any_of(text.begin(), text.end(), isControl);
}

QString escaped(const QString& text) {
    if (!hasControl(text)) {
        return text;
    }
    QString safe;
    for (const QChar c : text) {
        safe += isControl(c) ? QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'))
                             : QString(c);
    }
    return safe;
}

/// Returns the length in bytes of the first UTF-8 character; 0 if there is none.
std::size_t characterLength(std::string_view bytes) {
    const auto ones =
        static_cast<std::size_t>(std::countl_one(static_cast<unsigned char>(bytes.front())));
    const std::size_t length = std::max<std::size_t>(ones, 1);
    const QUtf8StringView character(bytes.data(),
                                    static_cast<qsizetype>(std::min(length, bytes.size())));
    return length <= bytes.size() && character.isValidUtf8() ? length : 0;
}

/// Returns the code point of a UTF-8 character.
char32_t codePoint(std::string_view character) {
    const auto lead = static_cast<unsigned char>(character.front());
    char32_t code = character.size() == 1 ? lead : lead & (0x7fU >> character.size());
    for (const char c : character.substr(1)) {
        code = code << 6U | (static_cast<unsigned char>(c) & 0x3fU);
    }
    return code;
}

} // namespace

QString nameFromBytes(std::string_view bytes) {
    QString name;
    while (!bytes.empty()) {
        const std::size_t length = characterLength(bytes);
        if (length == 0) {
            name += QChar(static_cast<char16_t>(strayByte + static_cast<unsigned char>(bytes[0])));
        } else {
            // one character at a time: a whole text would lose a byte order mark at its beginning
            for (const char16_t unit : QChar::fromUcs4(codePoint(bytes.substr(0, length)))) {
                name += QChar(unit);
            }
        }
        bytes.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return name;
}

std::string nameBytes(const QString& name) {
    std::string bytes;
    for (qsizetype i = 0; i < name.size(); ++i) {
        const bool pair = name[i].isHighSurrogate() && i + 1 < name.size();
        if (name[i].isLowSurrogate()) {
            bytes += static_cast<char>(name[i].unicode() - strayByte);
        } else {
            bytes += name.mid(i, pair ? 2 : 1).toStdString();
            i += pair ? 1 : 0;
        }
    }
    return bytes;
}

bool isPlainName(const QString& name) {
    if (name.startsWith(u'/')) {
        return name.isValidUtf16();
    }
    std::error_code unknown;
    const std::string current = std::filesystem::current_path(unknown).string();
    return name.isValidUtf16() && nameFromBytes(current).isValidUtf16();
}

bool isStandardStream(const QString& name) {
    return name == QLatin1String("-");
}

QString baseName(const QString& name) {
    const QString file = name.mid(name.lastIndexOf(u'/') + 1);
    return file.chopped(upperExtension(file).isEmpty() ? 0 : file.size() - file.lastIndexOf(u'.'));
}

std::string printable(std::string_view text) {
    const QString shown = shownText(text);
    return hasControl(shown) ? escaped(shown).toStdString() : std::string(text);
}

std::string printable(const QString& name) {
    return nameBytes(escaped(name));
}

} // namespace korvane::tool
