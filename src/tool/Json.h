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

// Shared by the JSON documents of all commands.

/// Returns a number that reads back as the same float; null if it is not finite.
QJsonValue jsonNumber(float number);
/// Returns a list of such numbers.
QJsonArray jsonNumbers(std::span<const float> numbers);
QJsonArray jsonNumbers(std::initializer_list<float> numbers);

/// Adds bytes as `key`, as the editor shows them. If they are not UTF-8, also adds them in
/// hexadecimal, as `key` with "Bytes" appended.
void addName(QJsonObject& object, const QString& key, std::string_view bytes);
/// The same for the name of a file.
void addFileName(QJsonObject& object, const QString& key, const QString& name);

/// Prints one document, {"version": 1, "files": [...]}, with what `describe` returns for each file
/// on a line of its own. A refused file has the reason as "error", and is reported as by any other
/// command.
ExitStatus printFiles(int version, const QStringList& files,
                      const std::function<QJsonObject(const QString&)>& describe);

} // namespace korvane::tool
