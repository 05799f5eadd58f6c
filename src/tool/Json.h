#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <initializer_list>
#include <span>
#include <string_view>

namespace korvane::tool {

// How the documents of all commands tell what they hold.

/// A number that reads back as the same float; null where it is not finite.
QJsonValue jsonNumber(float number);
/// A list of such numbers.
QJsonArray jsonNumbers(std::span<const float> numbers);
QJsonArray jsonNumbers(std::initializer_list<float> numbers);

/// Adds bytes as `key`, shown as the editor shows them. Where they are no UTF-8 they follow in
/// hexadecimal as `key` with "Bytes" behind it.
void addName(QJsonObject& object, const QString& key, std::string_view bytes);
/// The same for the name of a file.
void addFileName(QJsonObject& object, const QString& key, const QString& name);

/// Prints a document that tells several files, each on a line as it comes:
/// {"version": 1, "files": [...]}.
class JsonFiles {
  public:
    explicit JsonFiles(int version);
    void add(const QJsonObject& file);
    /// Ends the document.
    void finish();

  private:
    bool first_ = true;
};

} // namespace korvane::tool
