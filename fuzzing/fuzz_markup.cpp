// SPDX-License-Identifier: MIT
// Any bytes as an article in the view.
#include "dictionary/articleformatter.h"
#include "fuzzing/fuzzapplication.h"
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"
#include "widgets/article/qteskeledit.h"

#include <QAbstractTextDocumentLayout>
#include <QPixmap>

using namespace Qt::StringLiterals;
using namespace teskel::fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    startApplication();
    static auto* const view = new QTeskelEdit;
    view->resize(240, 200);
    const QString article =
        QString::fromLatin1(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString text =
        teskel::ArticleFormatter::headword(u"fuzz"_s) + teskel::ArticleFormatter::format(article);
    view->setText(text);
    require(view->text() == text);
    const QSizeF extent = view->document()->documentLayout()->documentSize();
    require(extent.width() >= 0 && extent.height() >= 0 && extent.height() < 1 << 23);
    view->selectAll();
    require(view->markedText().size() <= 64 * (text.size() + 64));
    view->grab();
    return 0;
}
