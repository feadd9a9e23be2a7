// SPDX-License-Identifier: MIT
#include "tests/hostile/environmentnumber.h"
#include "tests/hostile/hangguard.h"
#include "tests/hostile/windowuse.h"
#include "tests/support/damage/damagerule.h"
#include "tests/support/sanitized.h"
#include "tests/support/warningcapture.h"

#include <QDir>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <ctime>

using namespace Qt::StringLiterals;
using namespace teskel::test;

namespace
{

constexpr int usualFiles = 500; // of all kinds together
constexpr int mostPages = 30;
/// Processor time for one file, from its opening until the window is closed. A good one takes a
/// tenth of it.
constexpr double mostSeconds = isSanitized ? 10 : 1;
constexpr unsigned hangSeconds = 300; // of wall time

double processorSeconds()
{
    timespec time = {};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

} // namespace

/// Damaged dictionaries of every kind in the whole window.
///
/// TESKEL_DAMAGED_FILES sets how many files there are. A file that fails is named by its kind and
/// its number, from which damagedLexicon() makes it again.
class TestDamagedDictionaries : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void kindsHaveNamesOfTheirOwn();
    void everyKindDamages_data();
    void everyKindDamages();
    void walksAGoodDictionaryToItsEnds();
    void windowSurvives_data();
    void windowSurvives();

private:
    QString good() const { return _dir.filePath(u"teskel/Eng2Ger.PDB"_s); }
    QString damaged() const { return _dir.filePath(u"teskel/Ger2Eng.PDB"_s); }
    void useEverything(WindowUse& use) const;

    QTemporaryDir _dir;
    double _slowestSeconds = 0;
    QByteArray _slowest;
};

void TestDamagedDictionaries::initTestCase()
{
    qputenv("QPEDIR", _dir.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", _dir.filePath(u"config"_s).toUtf8());
    QVERIFY(QDir(_dir.path()).mkpath(u"teskel"_s));
    QVERIFY(DictionaryWriter()
                .addRecord({{"ant", "Ameise"}, {"home", "Heim"}, {"house", "Haus"}})
                .write(good()));
}

void TestDamagedDictionaries::cleanupTestCase()
{
    if (_slowestSeconds > 0)
        qInfo("slowest: %s, %.3f s of processor time", _slowest.constData(), _slowestSeconds);
}

void TestDamagedDictionaries::kindsHaveNamesOfTheirOwn()
{
    QSet<QByteArray> names;
    for (const DamageRule& rule : damageRules())
        names.insert(rule.name);
    QCOMPARE(names.size(), damageRules().size());
    QVERIFY2(names.size() >= 60, qPrintable(QString::number(names.size())));
}

void TestDamagedDictionaries::everyKindDamages_data()
{
    QTest::addColumn<int>("rule");
    const QList<DamageRule> rules = damageRules();
    for (int rule = 0; rule < rules.size(); ++rule)
        QTest::newRow(rules.at(rule).name) << rule;
}

void TestDamagedDictionaries::everyKindDamages()
{
    QFETCH(int, rule);
    const DamageRule kind = damageRules().at(rule);
    bool isDamaged = false;
    for (int number = 0; number < 8 && !isDamaged; ++number) {
        QRandomGenerator generator = damageGenerator(kind, number);
        isDamaged = damagedLexicon(kind, number) != LexiconDraft(generator).file();
    }
    QVERIFY(isDamaged);
    QCOMPARE(damagedLexicon(kind, 3), damagedLexicon(kind, 3));
}

/// What the walk below is worth.
void TestDamagedDictionaries::walksAGoodDictionaryToItsEnds()
{
    QRandomGenerator generator(1);
    QVERIFY(writeFile(damaged(), LexiconDraft(generator).file()));
    WindowUse use;
    use.open(damaged());
    QCOMPARE(use.title(), u"Teskel-Ger2Eng"_s);
    QCOMPARE(use.walkDown(mostPages), u"w059"_s);
    QCOMPARE(use.walkUp(mostPages), u"Ameise"_s);
    use.type(u"Haus"_s);
    QCOMPARE(use.articleText(), u"Haus\n1. house\n2. home"_s);
    use.type(u"Ameise"_s);
    use.crossLookup();
    QCOMPARE(use.title(), u"Teskel-Eng2Ger"_s);
}

void TestDamagedDictionaries::windowSurvives_data()
{
    everyKindDamages_data();
}

void TestDamagedDictionaries::useEverything(WindowUse& use) const
{
    use.open(damaged());
    use.type(u"Haus"_s);
    use.type(u"w03"_s);
    use.walkDown(mostPages);
    use.walkUp(mostPages);
    use.scroll();
    use.randomWords(5);
    use.copyAndPaste();
    use.crossLookup();
    use.open(good());
    use.type(u"house"_s);
    use.crossLookup(); // to the damaged one
    use.open(damaged());
    use.type(u"zz"_s);
}

void TestDamagedDictionaries::windowSurvives()
{
    QFETCH(int, rule);
    const QList<DamageRule> rules = damageRules();
    const DamageRule& kind = rules.at(rule);
    const auto kinds = static_cast<int>(rules.size());
    const int files = (environmentNumber("TESKEL_DAMAGED_FILES", usualFiles) + kinds - 1) / kinds;
    for (int number = 0; number < files; ++number) {
        const QByteArray name = QByteArray(kind.name) + ", number " + QByteArray::number(number);
        const HangGuard guard(name, hangSeconds);
        const WarningCapture warnings; // as many as there are
        QVERIFY(writeFile(damaged(), damagedLexicon(kind, number)));
        const double begin = processorSeconds();
        {
            WindowUse use;
            useEverything(use);
            // Nothing of it is left in the window.
            use.open(good());
            use.type(u"house"_s);
            QVERIFY2(use.articleText() == u"house\nHaus"_s, name.constData());
            QVERIFY2(use.currentWord() == u"house"_s, name.constData());
        }
        const double seconds = processorSeconds() - begin;
        if (seconds > _slowestSeconds) {
            _slowestSeconds = seconds;
            _slowest = name;
        }
        const QByteArray spent = name + ": " + QByteArray::number(seconds) + " s";
        QVERIFY2(seconds < mostSeconds, spent.constData());
    }
}

QTEST_MAIN(TestDamagedDictionaries)
#include "test_damageddictionaries.moc"
