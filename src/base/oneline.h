// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace teskel
{

/// Whether `character` would break the line, turn the writing round, or show as garbage.
inline bool disturbsLine(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        break;
    }
    switch (character.direction()) {
    case QChar::DirLRE:
    case QChar::DirLRO:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirPDF:
    case QChar::DirLRI:
    case QChar::DirRLI:
    case QChar::DirFSI:
    case QChar::DirPDI:
        return true;
    default:
        return false;
    }
}

/// A name as a person is shown it: one line, with a blank for each character that disturbs it.
///
/// A file system allows any character in a name. For showing only: the file is not found by it.
inline QString oneLine(QString name)
{
    for (QChar& character : name) {
        if (disturbsLine(character))
            character = u' ';
    }
    return name;
}

} // namespace teskel
