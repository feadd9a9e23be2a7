// SPDX-License-Identifier: MIT
#include "tests/lookup/lookupbench.h"
#include "tests/lookup/messagewatch.h"
#include "tests/support/warningcapture.h"

#include <QFile>
#include <QTextTable>

#include <functional>

using namespace Qt::StringLiterals;
using namespace teskel::test;

namespace
{

using Damage = std::function<bool(const QString& path)>;

/// Everything a person can do with the view while the dictionary below it is gone.
void useEverything(LookupBench& bench)
{
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_End, Qt::Key_End, Qt::Key_PageDown, Qt::Key_Up,
                              Qt::Key_Home, Qt::Key_Home, Qt::Key_PageUp}) {
        for (int times = 0; times < 3; ++times)
            QTest::keyClick(&bench.entry(), key);
    }
    for (int times = 0; times < 30; ++times)
        emit bench.list().verticalScrollBar()->nextLine();
    for (int times = 0; times < 60; ++times)
        emit bench.list().verticalScrollBar()->prevLine();
    bench.type(u"w017"_s);
    bench.type(u"zebra"_s);
    for (int times = 0; times < 5; ++times)
        bench.widget().randomWord();
    bench.article().setText(u"houseboat"_s);
    bench.article().selectAll();
    bench.widget().transferTranslation2Word(true);
    for (int row = 0; row < bench.list().count(); ++row)
        bench.list().setSelected(row, true);
    bench.widget().editCopy();
    bench.widget().editCopyTranslation();
    bench.widget().editPaste();
    bench.widget().getDictionaryName();
}

} // namespace

Q_DECLARE_METATYPE(Damage)

/// Dictionaries that vanish, lie or attack while they are open.
class TestDamage : public QObject
{
    Q_OBJECT

private slots:
    void pulledCardIsSurvived_data();
    void pulledCardIsSurvived();
    void unreadableArticleIsShownEmpty();
    void damagedRecordInTheMiddleIsPassed();
    void failedOpenOfAnUnusableDictionaryIsSurvived();
    void hostileMarkupIsHarmless_data();
    void hostileMarkupIsHarmless();
};

void TestDamage::pulledCardIsSurvived_data()
{
    QTest::addColumn<Damage>("damage");
    QTest::newRow("file emptied") << Damage(
        [](const QString& path) { return QFile::resize(path, 0); });
    QTest::newRow("file cut") << Damage(
        [](const QString& path) { return QFile::resize(path, 700); });
    QTest::newRow("file deleted") << Damage(
        [](const QString& path) { return QFile::remove(path); });
    QTest::newRow("file overwritten")
        << Damage([](const QString& path) { return writeFile(path, QByteArray(20000, '\xFF')); });
}

void TestDamage::pulledCardIsSurvived()
{
    QFETCH(Damage, damage);
    const WarningCapture warnings;
    LookupBench bench;
    bench.open(everydayEntries(), 3);
    QVERIFY(damage(bench.path(u"Words.PDB"_s)));
    useEverything(bench);

    const QString other = bench.write(u"Other.PDB"_s, everydayEntries());
    QVERIFY(bench.widget().fileOpen(other, true));
    bench.type(u"house"_s);
    QCOMPARE(bench.articleText(), u"house\n1. Haus"_s);
    QCOMPARE(bench.currentWord(), u"house"_s);
}

void TestDamage::unreadableArticleIsShownEmpty()
{
    const WarningCapture warnings;
    LookupBench bench;
    bench.open(everydayEntries(), 3);
    bench.type(u"ant"_s);
    const CursorPosition far =
        static_cast<QDictionaryListBoxItem*>(bench.list().item(18))->getCursorPosition();
    QVERIFY(QFile::resize(bench.path(u"Words.PDB"_s), 0));
    QVERIFY(!bench.article().text().isEmpty());
    // Records beyond those that the dictionary still remembers.
    bench.widget().setEditText(
        CursorPosition::at(static_cast<quint16>(far.compoundPosition.recordNumber + 10), 0));
    QCOMPARE(bench.article().text(), QString());
}

void TestDamage::damagedRecordInTheMiddleIsPassed()
{
    const WarningCapture warnings;
    LookupBench bench;
    const QString path = bench.path(u"Hole.PDB"_s);
    const QList<Entry> words = numberedEntries(40);
    QVERIFY(DictionaryWriter()
                .addEntries(words.first(10), 5)
                .addPackedRecord("w010", "not packed")
                .addEntries(words.mid(15), 5)
                .write(path));
    QVERIFY(bench.widget().fileOpen(path, true));
    QCOMPARE(bench.rows(), numberedWords(0, 9));
    useEverything(bench);
    bench.type(u"w003"_s);
    QCOMPARE(bench.currentWord(), u"w003"_s);
    QCOMPARE(bench.articleText(), u"w003\narticle 00"_s); // the last digit is no sense number
}

void TestDamage::failedOpenOfAnUnusableDictionaryIsSurvived()
{
    const WarningCapture warnings;
    LookupBench bench;
    bench.open(everydayEntries(), 3);
    bench.type(u"house"_s);
    const QString bad = bench.path(u"Bad.PDB"_s);
    QVERIFY(PalmWriter().addRecord("a").addRecord("b").write(bad));
    QVERIFY(!bench.widget().fileOpen(bad, true));
    useEverything(bench);
    bench.widget().setEditFont();
    bench.stop();
}

void TestDamage::hostileMarkupIsHarmless_data()
{
    QTest::addColumn<QByteArray>("article");
    QTest::newRow("unclosed tag") << QByteArray("a < b");
    QTest::newRow("picture") << QByteArray("<img src=\"file:///etc/passwd\"><img src='/dev/zero'>");
    QTest::newRow("style sheet") << QByteArray("<style>@import url(/dev/zero);</style>");
    QTest::newRow("script") << QByteArray("<script>while(true){}</script>x");
    QTest::newRow("deep nesting") << QByteArray("<table><tr><td>").repeated(600);
    QTest::newRow("many fonts") << QByteArray("<font size=+7>").repeated(2000);
    QTest::newRow("wide table") << QByteArray("<table><tr><td colspan=2000000000>x</table>");
    QTest::newRow("bad entities") << QByteArray("&#99999999999; &#-1; &#x; &;&bogus;");
    QTest::newRow("every byte") << [] {
        QByteArray bytes;
        for (int byte = 1; byte < 256; ++byte)
            bytes.append(static_cast<char>(byte));
        return bytes.repeated(100);
    }();
}

void TestDamage::hostileMarkupIsHarmless()
{
    QFETCH(QByteArray, article);
    LookupBench bench;
    bench.widget().resize(240, 320);
    bench.widget().show();
    bench.open({{"<b", "x"}, {"ant", article}, {"zebra", "Zebra"}});
    bench.type(u"ant"_s);
    QVERIFY(bench.article().text().startsWith(u"<p><b>ant</b></p><p>"_s));
    QVERIFY(!bench.widget().grab().isNull());
    bench.type(u"<b"_s);
    bench.type(u"zebra"_s);
    QCOMPARE(bench.articleText(), u"zebra\nZebra"_s);
}

QTEST_MAIN(TestDamage)
#include "test_damage.moc"
