// SPDX-License-Identifier: MIT
#include "lexicon/commands/enginemessages.h"

#include <QString>

#include <algorithm>
#include <iostream>
#include <iterator>
#include <string_view>

namespace teskel::commands::enginemessages
{

namespace
{

struct Message {
    std::string_view beginning;
    const char* reason = ""; ///< why the file is no lexicon, when the engine stops with it
};

constexpr Message known[] = {
    {"ASSERT: "},
    {"Cannot get first record", "its word index cannot be read"},
    {"Cannot get record meta data"},
    {"Cannot open file "},
    {"Cannot read Record Meta data"},
    {"Cannot read record"},
    {"Decompressed record is null"},
    {"Invalid database. Records are less than 5", "it has fewer than 5 records"},
    {"No support for topic dictionaries yet", "it is a dictionary of topics"},
    {"bytes to read "},
};

const Message* last = nullptr;

void take(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    const std::string message = text.toStdString();
    const auto* const found =
        std::find_if(std::begin(known), std::end(known), [&message](const Message& each) {
            return message.starts_with(each.beginning);
        });
    if (type == QtWarningMsg && found != std::end(known))
        last = found;
    else
        std::cerr << "teskel-lexicon: " << message << '\n';
}

} // namespace

void keepBack()
{
    qInstallMessageHandler(take);
}

std::string reason()
{
    return last ? last->reason : "";
}

} // namespace teskel::commands::enginemessages
