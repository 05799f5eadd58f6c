#include "tool/Json.h"

#include "model/records/ModelText.h"
#include "tool/FileName.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QUtf8StringView>

#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace korvane::tool {

QJsonValue jsonNumber(float number) {
    if (!std::isfinite(number)) {
        return {};
    }
    // the toolkit writes doubles: use the one with the same shortest text
    std::array<char, 32> text{};
    const char* end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    double same = 0.0;
    std::from_chars(text.data(), end, same);
    return same;
}

QJsonArray jsonNumbers(std::span<const float> numbers) {
    QJsonArray array;
    for (const float number : numbers) {
        array.append(jsonNumber(number));
    }
    return array;
}

QJsonArray jsonNumbers(std::initializer_list<float> numbers) {
    return jsonNumbers(std::span(numbers.begin(), numbers.size()));
}

void addName(QJsonObject& object, const QString& key, std::string_view bytes) {
    const auto size = static_cast<qsizetype>(bytes.size());
    object.insert(key, shownText(bytes));
    if (!QUtf8StringView(bytes.data(), size).isValidUtf8()) {
        object.insert(key + QLatin1String("Bytes"),
                      QString::fromLatin1(QByteArray(bytes.data(), size).toHex()));
    }
}

void addFileName(QJsonObject& object, const QString& key, const QString& name) {
    addName(object, key, nameBytes(name));
}

ExitStatus printFiles(int version, const QStringList& files,
                      const std::function<QJsonObject(const QString&)>& describe) {
    print("{\n\"version\": " + std::to_string(version) + ",\n\"files\": [");
    bool first = true;
    const auto add = [&](QJsonObject object, const QString& file) {
        addFileName(object, QStringLiteral("file"), file);
        const QByteArray text = QJsonDocument(object).toJson(QJsonDocument::Compact);
        print(first ? "\n" : ",\n");
        print({text.constData(), static_cast<std::size_t>(text.size())});
        first = false;
    };
    const ExitStatus status = forEachInput(files, false, [&](qsizetype i) {
        try {
            add(describe(files[i]), files[i]);
        } catch (const Refusal& refusal) {
            add({{QStringLiteral("error"), refusal.reason}}, files[i]);
            throw;
        }
    });
    print("\n]\n}\n");
    return status;
}

} // namespace korvane::tool
