// SPDX-License-Identifier: MIT
#include "dictionary/articleformatter.h"
#include "lexicon/file/lexiconreader.h"
#include "tests/support/childprocess.h"
#include "tests/support/sanitized.h"
#include "widgets/article/viewtext.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace teskel;

/// Every article of real dictionaries, through the limits of the reader's view.
class TestRealArticles : public QObject
{
    Q_OBJECT

private slots:
    void everyArticleIsShownWhole_data();
    void everyArticleIsShownWhole();
};

void TestRealArticles::everyArticleIsShownWhole_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<qsizetype>("longest"); // characters of rich text that there are at least
    if (!test::isSanitized)                 // its build alone takes minutes there
        QTest::newRow("gcide") << u"gcide"_s << qsizetype(25'000);
    QTest::newRow("jargon") << u"jargon"_s << qsizetype(10'000);
    QTest::newRow("wn") << u"wn"_s << qsizetype(12'000);
}

void TestRealArticles::everyArticleIsShownWhole()
{
    QFETCH(QString, name);
    QFETCH(qsizetype, longest);
    const QString source = u"/usr/share/dictd/"_s + name + u".index"_s;
    QVERIFY2(QFile::exists(source), qPrintable("install dict-"_L1 + name));
    const QTemporaryDir directory;
    const QString file = directory.filePath(u"real.PDB"_s);
    QProcess process;
    const auto built = test::runToEnd(process, QStringLiteral(TESKEL_LEXICON),
                                      {u"build"_s, u"--quiet"_s, source, u"-o"_s, file,
                                       u"--invalid-utf8"_s, u"replace"_s}); // GCIDE has three
    QCOMPARE(built.code, 0);

    LexiconReader reader;
    std::string error;
    QCOMPARE(reader.open(file.toStdString(), error), LexiconReader::Status::Ok);
    // Where sanitizers watch, the long ones and some of the others.
    constexpr int step = test::isSanitized ? 20 : 1;
    constexpr qsizetype isLong = 3000;
    int number = 0;
    qsizetype longestSeen = 0;
    QStringList cut;
    const auto show = [&](std::string_view headword, std::string_view article) {
        const auto text = [](std::string_view latin1) {
            return QString::fromLatin1(latin1.data(), static_cast<qsizetype>(latin1.size()));
        };
        const QString markup =
            ArticleFormatter::headword(text(headword)) + ArticleFormatter::format(text(article));
        longestSeen = std::max(longestSeen, markup.size());
        if (number++ % step != 0 && markup.size() < isLong)
            return true;
        const ViewText shown = ViewText::of(markup, Qt::RichText);
        if (!shown.isRich || shown.percentLacking > 0)
            cut += text(headword);
        return true;
    };
    QCOMPARE(reader.visitFrom({}, show, error), LexiconReader::Status::Ok);
    QCOMPARE(cut, QStringList());
    QVERIFY(longestSeen >= longest);
}

QTEST_MAIN(TestRealArticles)
#include "test_realarticles.moc"
