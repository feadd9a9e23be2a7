// SPDX-License-Identifier: MIT
#include "lookup/initialtext.h"

#include "lookup/teskelmainwidget.h"

using namespace Qt::StringLiterals;

namespace teskel
{

QString initialText()
{
    return "<font color=\"#FF0000\">"_L1 +
           TeskelMainWidget::tr(
               "There are no dictionary lexicons installed for Teskel Dictionary Reader. "
               "<p>If you have only installed the shell program, then be advised you must also "
               "install some reference files (lexicons) that the program can take advantage of. "
               "</p>") +
           "</font><font color=\"#0000FF\">"_L1 +
           TeskelMainWidget::tr(
               "<p>Language, scientific and entertainment lexicons can be made from the free "
               "dictionaries of the FreeDict project with the program teskel-lexicon, which comes "
               "with this reader.</p>") +
           "</font>"_L1;
}

} // namespace teskel
