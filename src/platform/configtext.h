// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

/// The text form of a settings file.
namespace teskel
{

using ConfigGroup = QMap<QString, QString>;
using ConfigGroups = QMap<QString, ConfigGroup>;

/// Reads `text` (UTF-8). A text that does not begin with "[" is empty; reading ends at the first
/// line that is neither a group nor a key; a group or key met again replaces the earlier value.
ConfigGroups parseConfig(const QByteArray& text);

/// Writes the groups and their keys in sorted order, as UTF-8. Names and values must have passed
/// through the functions below.
QByteArray formatConfig(const ConfigGroups& groups);

/// `name` as it can stand between brackets on one line.
QString configGroupName(QString name);

/// `key` as it can stand before an equals sign without passing for a group.
QString configKey(QString key);

/// `value` as it can stand after an equals sign.
QString configValue(QString value);

} // namespace teskel
