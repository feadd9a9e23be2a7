// SPDX-License-Identifier: MIT
#include "lexicon/commands/jsonline.h"

#include <QByteArray>
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
    QByteArray line = QJsonDocument(object).toJson(QJsonDocument::Compact);
    // JSON lets them stand as they are, but programs that read lines end one there.
    line.replace("\xC2\x85", "\\u0085");
    line.replace("\xE2\x80\xA8", "\\u2028");
    line.replace("\xE2\x80\xA9", "\\u2029");
    std::cout << line.toStdString() << '\n';
}

} // namespace teskel::commands
