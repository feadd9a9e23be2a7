// SPDX-License-Identifier: MIT
#include "app/teskelmainwindow.h"
#include "lookup/teskelmainwidget.h"
#include "platform/storage/storageinfo.h"
#include "tests/support/dictionarywriter.h"
#include "widgets/article/qteskeledit.h"
#include "widgets/qteskelcombobox.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <functional>
#include <limits>

#include <malloc.h>

using namespace Qt::StringLiterals;

using teskel::test::DictionaryWriter;

namespace
{

constexpr int rounds = 300;
/// Bytes that one round may leave behind: less than the smallest object that could.
constexpr qint64 allowedPerRound = 16;

qint64 bytesInUse()
{
    const struct mallinfo2 usage = ::mallinfo2();
    return static_cast<qint64>(usage.uordblks + usage.hblkhd);
}

qsizetype openDescriptors()
{
    return QDir(u"/proc/self/fd"_s).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).size();
}

void repeat(const std::function<void(int)>& round)
{
    for (int number = 0; number < rounds; ++number)
        round(number);
    QApplication::processEvents();
}

/// What `rounds` more rounds leave in use, the least of several: caches fill in steps.
qint64 growth(const std::function<void(int)>& round)
{
    qint64 least = std::numeric_limits<qint64>::max();
    for (int attempt = 0; attempt < 3; ++attempt) {
        const qint64 before = bytesInUse();
        repeat(round);
        least = std::min(least, bytesInUse() - before);
    }
    return least;
}

} // namespace

/// What a person does all day must not pile up in memory.
class SoakTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void useLeavesNothingBehind_data();
    void useLeavesNothingBehind();

private:
    QString path(const QString& name) const { return _home.filePath(u"teskel/"_s + name); }

    QTemporaryDir _home;
};

void SoakTest::initTestCase()
{
    qputenv("QPEDIR", QFile::encodeName(_home.path()));
    qputenv("HOME", QFile::encodeName(_home.path()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(_home.filePath(u"config"_s)));
    QVERIFY(QDir(_home.path()).mkpath(u"teskel"_s));
    QVERIFY(DictionaryWriter()
                .addRecord({{"house", "1. Haus"}, {"tree", "Baum"}})
                .write(path(u"Eng2Ger.PDB"_s)));
    QVERIFY(DictionaryWriter()
                .addRecord({{"Baum", "tree"}, {"Haus", "house"}})
                .write(path(u"Ger2Eng.PDB"_s)));
    if (bytesInUse() == 0)
        QSKIP("A sanitizer's memory is not counted.");
}

void SoakTest::useLeavesNothingBehind_data()
{
    using Use = std::function<void(TeskelMainWindow&, int)>;
    QTest::addColumn<Use>("use");
    const auto entry = [](TeskelMainWindow& window) {
        return window.findChild<QTeskelComboBox*>()->lineEdit();
    };
    QTest::newRow("switching dictionaries") << Use([this](TeskelMainWindow& window, int number) {
        window.openFile(path(number % 2 == 0 ? u"Eng2Ger.PDB"_s : u"Ger2Eng.PDB"_s));
    });
    QTest::newRow("switching dictionaries, painted")
        << Use([this](TeskelMainWindow& window, int number) {
               window.openFile(path(number % 2 == 0 ? u"Eng2Ger.PDB"_s : u"Ger2Eng.PDB"_s));
               QApplication::processEvents();
           });
    QTest::newRow("looking up") << Use([entry](TeskelMainWindow& window, int number) {
        entry(window)->setText(number % 2 == 0 ? u"house"_s : u"tree"_s);
    });
    QTest::newRow("random words") << Use(
        [](TeskelMainWindow& window, int) { window.lexiconRandomWord(); });
    QTest::newRow("crossing over") << Use([entry](TeskelMainWindow& window, int) {
        entry(window)->setText(entry(window)->text().startsWith(u'H') ? u"Haus"_s : u"house"_s);
        auto* const article = window.findChild<QTeskelEdit*>();
        article->moveCursor(QTextCursor::End);
        article->moveCursor(QTextCursor::WordLeft, QTextCursor::KeepAnchor);
        window.crossLookup();
    });
    QTest::newRow("walking through the words") << Use([](TeskelMainWindow& window, int number) {
        QTest::keyClick(window.findChild<QTeskelComboBox*>(),
                        number % 2 == 0 ? Qt::Key_Down : Qt::Key_Up);
    });
    QTest::newRow("toggling the view")
        << Use([](TeskelMainWindow& window, int number) { window.toggleView(number % 2 == 0); });
}

void SoakTest::useLeavesNothingBehind()
{
    using Use = std::function<void(TeskelMainWindow&, int)>;
    QFETCH(Use, use);
    TeskelMainWindow window;
    window.resize(320, 320);
    window.show();
    window.openFile(path(u"Eng2Ger.PDB"_s));
    const auto round = [&](int number) { use(window, number); };
    repeat(round); // what is made once
    const auto descriptors = openDescriptors();
    const qint64 grown = growth(round);
    QVERIFY2(grown <= rounds * allowedPerRound,
             qPrintable(u"%1 bytes a round"_s.arg(static_cast<double>(grown) / rounds)));
    QCOMPARE(openDescriptors(), descriptors);
}

QTEST_MAIN(SoakTest)
#include "test_soak.moc"
