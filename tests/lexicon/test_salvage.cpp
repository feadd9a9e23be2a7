// SPDX-License-Identifier: MIT
#include "lexicon/build/lexiconbuilder.h"
#include "lexicon/repair/salvagesource.h"
#include "lexicon/verify/lexiconverifier.h"
#include "tests/lexicon/damagedlexicons.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel;
using namespace teskel::test;

/// Whatever is wrong with a file, nothing that is read of it is false.
class TestSalvage : public QObject
{
    Q_OBJECT

private slots:
    void wrongByteLosesWhatItStandsInAlone_data();
    void wrongByteLosesWhatItStandsInAlone();
    void cutFileKeepsTheRecordsBeforeTheCut();
    void damagedFilesBuildSoundLexicons();

private:
    /// Entries as "headword=article"; what was read must be all of it from the sound lexicon.
    QStringList salvaged(const QByteArray& bytes, Salvage& salvage) const;

    QTemporaryDir _directory;
};

QStringList TestSalvage::salvaged(const QByteArray& bytes, Salvage& salvage) const
{
    const QString path = _directory.filePath(u"a.PDB"_s);
    std::string error;
    if (!writeFile(path, bytes) || !salvage.read(path.toStdString(), error))
        return {u"cannot be read"_s};
    QStringList entries;
    const auto stream = salvage.entries();
    teskel::LexiconEntry entry;
    while (stream->next(entry)) {
        const std::string text = std::string(entry.headword()).append("=").append(entry.article());
        entries += QString::fromLatin1(QByteArray::fromStdString(text));
    }
    return entries;
}

void TestSalvage::wrongByteLosesWhatItStandsInAlone_data()
{
    QTest::addColumn<char>("value");
    QTest::newRow("zero") << '\0';
    QTest::newRow("all bits") << '\xFF';
    QTest::newRow("a letter") << 'x';
}

void TestSalvage::wrongByteLosesWhatItStandsInAlone()
{
    QFETCH(char, value);
    const QByteArray good = soundBytes();
    const QStringList all = {u"ant=Ameise"_s, u"Bee=Biene"_s, u"cat=Katze"_s, u"dog=Hund"_s};
    const qsizetype firstWords = offsetOf(good, 5);
    const qsizetype lastWords = offsetOf(good, 6);
    for (qsizetype place = 0; place < good.size(); ++place) {
        Salvage salvage;
        const QStringList entries = salvaged(withByte(good, place, value), salvage);
        const auto where = QByteArray::number(place);
        for (const QString& entry : entries)
            QVERIFY2(all.contains(entry), where.constData());
        if (place < firstWords || place >= lastWords)
            QVERIFY2(entries.contains(all[0]) && entries.contains(all[1]), where.constData());
        if (place < lastWords)
            QVERIFY2(entries.contains(all[2]) && entries.contains(all[3]), where.constData());
        if (entries.size() < all.size())
            QVERIFY2(!salvage.losses().empty(), where.constData());
    }
}

void TestSalvage::cutFileKeepsTheRecordsBeforeTheCut()
{
    const QByteArray good = soundBytes();
    for (qsizetype size = 0; size < good.size(); ++size) {
        Salvage salvage;
        const QStringList entries = salvaged(good.left(size), salvage);
        const qsizetype expected = size < offsetOf(good, 6) ? 0 : 2;
        QVERIFY2(entries.size() >= expected, QByteArray::number(size).constData());
        QVERIFY2(!salvage.losses().empty(), QByteArray::number(size).constData());
    }
}

void TestSalvage::damagedFilesBuildSoundLexicons()
{
    const QByteArray good = soundBytes();
    const QString output = _directory.filePath(u"b.PDB"_s);
    for (qsizetype place = 0; place < good.size(); place += 7) {
        Salvage salvage;
        if (salvaged(withByte(good, place, '\x81'), salvage).isEmpty())
            continue;
        SalvageSource source(salvage);
        BuildOptions options;
        options.output = output.toStdString();
        options.force = true;
        std::string error;
        QVERIFY2(LexiconBuilder(options).build(source, error), error.c_str());
        LexiconVerifier verifier;
        QVERIFY(verifier.run(options.output, error));
        QVERIFY2(verifier.findings().empty(), QByteArray::number(place).constData());
    }
}

QTEST_APPLESS_MAIN(TestSalvage)
#include "test_salvage.moc"
