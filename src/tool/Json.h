#pragma once

#include "tool/Report.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <functional>
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

/// Prints one document of what `tell` says of each file, on a line as it comes:
/// {"version": 1, "files": [...]}. A refused file stands there with its reason as "error", and is
/// reported as by any other command.
ExitStatus printFiles(int version, const QStringList& files,
                      const std::function<QJsonObject(const QString&)>& tell);

} // namespace korvane::tool
