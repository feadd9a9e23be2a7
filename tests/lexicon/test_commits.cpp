// SPDX-License-Identifier: MIT
#include "lexicon/exports/commits.h"
#include "lexicon/file/pendingfile.h"
#include "tests/support/palmwriter.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using teskel::PendingFile;
using teskel::test::writeFile;

/// Files that belong together are replaced together.
class TestCommits : public QObject
{
    Q_OBJECT

private slots:
    void takeTheirPlaces();
    void failureLeavesTheOldOnes_data();
    void failureLeavesTheOldOnes();
};

namespace
{

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

} // namespace

void TestCommits::takeTheirPlaces()
{
    const QTemporaryDir directory;
    const QString articles = directory.filePath(u"a.dict"_s);
    const QString index = directory.filePath(u"a.index"_s);
    QVERIFY(writeFile(index, "old"));
    PendingFile first(articles.toStdString());
    PendingFile last(index.toStdString());
    first.write("articles");
    last.write("index");
    std::string error;
    QVERIFY2(teskel::commitTogether({&first, &last}, error), error.c_str());
    QCOMPARE(contentOf(articles), QByteArray("articles"));
    QCOMPARE(contentOf(index), QByteArray("index"));
    QCOMPARE(QDir(directory.path()).entryList(QDir::Files).size(), 2);
}

void TestCommits::failureLeavesTheOldOnes_data()
{
    QTest::addColumn<bool>("wasThere");
    QTest::newRow("there were some") << true;
    QTest::newRow("there was only the last") << false;
}

/// The second of three files cannot take its place any more.
void TestCommits::failureLeavesTheOldOnes()
{
    QFETCH(bool, wasThere);
    const QTemporaryDir directory;
    const QString articles = directory.filePath(u"a.dict"_s);
    const QString index = directory.filePath(u"a.idx"_s);
    const QString info = directory.filePath(u"a.ifo"_s);
    if (wasThere)
        QVERIFY(writeFile(articles, "old articles"));
    QVERIFY(writeFile(info, "old info"));
    PendingFile first(articles.toStdString());
    PendingFile second(index.toStdString());
    PendingFile last(info.toStdString());
    for (PendingFile* file : {&first, &second, &last})
        file->write("new");
    QVERIFY(QDir().mkdir(index));
    std::string error;
    QVERIFY(!teskel::commitTogether({&first, &second, &last}, error));
    QVERIFY2(error.ends_with("a.idx: Is a directory"), error.c_str());
    QCOMPARE(contentOf(articles), QByteArray(wasThere ? "old articles" : "(missing)"));
    QCOMPARE(contentOf(info), QByteArray("old info"));
    QCOMPARE(QDir(directory.path()).entryList(QDir::Files).size(), wasThere ? 2 : 1);
}

QTEST_GUILESS_MAIN(TestCommits)
#include "test_commits.moc"
