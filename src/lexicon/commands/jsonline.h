// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QString>

#include <string>

namespace teskel::commands
{

/// A text for an object; what is no UTF-8 becomes U+FFFD.
QString jsonText(const std::string& utf8);

/// Prints an object as one line of JSON Lines (https://jsonlines.org): UTF-8, nothing
/// within that ends a line for any reader of lines.
void printJsonLine(const QJsonObject& object);

} // namespace teskel::commands
