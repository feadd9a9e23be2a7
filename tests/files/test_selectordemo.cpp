// SPDX-License-Identifier: MIT
#include "examples/selectorowner.h"
#include "files/qteskelfileselector.h"
#include "files/qteskelfileselectorview.h"
#include "files/qteskelselectormenu.h"
#include "platform/qcopchannel.h"
#include "tests/files/stagedstorage.h"

#include <QAction>
#include <QDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

/// The selector with an owner that keeps it filled, as the demonstration program runs it.
class SelectorDemoTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void listIsFilledAtStart();
    void filterShowsTheCardsAlone();
    void cardComesAndGoes();
    void appearance_data();
    void appearance();

private:
    QStringList shown() const;

    QPalette _light = QApplication::palette();
    std::unique_ptr<StagedStorage> _storage;
    std::unique_ptr<QTeskelFileSelector> _selector;
    std::unique_ptr<SelectorOwner> _owner;
};

void SelectorDemoTest::init()
{
    _storage = std::make_unique<StagedStorage>();
    StagedStorage::addFile(_storage->internalDirectory(), u"Eng2Ger.PDB"_s);
    StagedStorage::addFile(_storage->addCard(u"a"_s), u"Fr2Eng.PDB"_s);
    _selector = std::make_unique<QTeskelFileSelector>(nullptr, "selector");
    _owner = std::make_unique<SelectorOwner>(_selector.get());
}

void SelectorDemoTest::cleanup()
{
    _owner.reset();
    _selector.reset();
    _storage.reset();
    QApplication::setPalette(_light);
}

QStringList SelectorDemoTest::shown() const
{
    QStringList names;
    for (int row = 0; row < _selector->view()->topLevelItemCount(); ++row)
        names.append(_selector->view()->topLevelItem(row)->text(0));
    return names;
}

void SelectorDemoTest::listIsFilledAtStart()
{
    QCOMPARE(shown(), (QStringList{u"Eng2Ger"_s, u"Fr2Eng"_s}));
}

void SelectorDemoTest::filterShowsTheCardsAlone()
{
    _selector->menu()->actions().at(1)->trigger();
    QCOMPARE(shown(), QStringList{u"Fr2Eng"_s});
    _selector->menu()->actions().at(0)->trigger();
    QCOMPARE(shown().size(), 2);
}

void SelectorDemoTest::cardComesAndGoes()
{
    StagedStorage::addFile(_storage->addCard(u"b"_s), u"It2Eng.PDB"_s);
    QVERIFY(QCopChannel::send("QPE/Card", "mtabChanged()"));
    QTRY_COMPARE(shown().size(), 3);
    _storage->unmount(u"a"_s);
    QVERIFY(QCopChannel::send("QPE/Card", "mtabChanged()"));
    QTRY_COMPARE(shown(), (QStringList{u"Eng2Ger"_s, u"It2Eng"_s}));
}

void SelectorDemoTest::appearance_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("dark");
    QTest::newRow("small light") << QSize(240, 320) << false;
    QTest::newRow("small dark") << QSize(240, 320) << true;
    QTest::newRow("large light") << QSize(640, 480) << false;
    QTest::newRow("large dark") << QSize(640, 480) << true;
}

/// A name too long for the screen scrolls; the rows fill the width. With TESKEL_PICTURES set to a
/// directory, a picture is saved there.
void SelectorDemoTest::appearance()
{
    QFETCH(const QSize, size);
    QFETCH(const bool, dark);
    if (dark)
        QApplication::setPalette(QPalette(QColor(0x35, 0x35, 0x35)));
    const QString longName = u"A rather long name of a dictionary on a small screen"_s;
    StagedStorage::addFile(_storage->internalDirectory(), longName + u".PDB"_s);
    _selector->menu()->actions().at(0)->trigger();
    _selector->view()->setCurrentItem(_selector->view()->topLevelItem(1));
    _selector->resize(size);
    _selector->show();
    QVERIFY(QTest::qWaitForWindowExposed(_selector.get()));
    QCOMPARE(_selector->size(), size);
    if (qEnvironmentVariableIsSet("TESKEL_PICTURES")) {
        const QDir pictures(qEnvironmentVariable("TESKEL_PICTURES"));
        const QString tag = QString::fromUtf8(QTest::currentDataTag());
        QVERIFY(_selector->grab().save(pictures.filePath(u"selector %1.png"_s.arg(tag))));
    }
    const QRect row = _selector->view()->visualItemRect(_selector->view()->topLevelItem(0));
    QTRY_VERIFY(row.width() >= _selector->view()->viewport()->width());
    QVERIFY(row.width() >= _selector->view()->fontMetrics().horizontalAdvance(longName));
}

QTEST_MAIN(SelectorDemoTest)
#include "test_selectordemo.moc"
