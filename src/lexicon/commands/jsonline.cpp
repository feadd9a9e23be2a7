// SPDX-License-Identifier: MIT
#include "lexicon/commands/jsonline.h"

#include <QJsonDocument>

#include <iostream>

namespace teskel::commands
{

QString jsonText(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

void printJsonLine(const QJsonObject& object)
{
    std::cout << QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString() << '\n';
}

} // namespace teskel::commands
