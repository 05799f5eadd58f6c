#include "model/records/ModelText.h"

#include <QUtf8StringView>

namespace korvane {

QString shownText(std::string_view bytes) {
    const auto size = static_cast<qsizetype>(bytes.size());
    const QUtf8StringView text(bytes.data(), size);
    if (!text.isValidUtf8()) {
        return QString::fromLatin1(bytes.data(), size);
    }
    // the conversion drops a leading byte order mark, but that is part of a name
    constexpr std::string_view mark = "\xef\xbb\xbf";
    return bytes.starts_with(mark) ? QChar(QChar::ByteOrderMark) + text.toString()
                                   : text.toString();
}

std::string modelText(const QString& text) {
    return text.toStdString();
}

} // namespace korvane
