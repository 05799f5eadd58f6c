#include "model/records/ModelText.h"

#include <QUtf8StringView>

namespace korvane {

QString shownText(std::string_view bytes) {
    const auto size = static_cast<qsizetype>(bytes.size());
    const QUtf8StringView text(bytes.data(), size);
    return text.isValidUtf8() ? text.toString() : QString::fromLatin1(bytes.data(), size);
}

std::string modelText(const QString& text) {
    return text.toStdString();
}

} // namespace korvane
