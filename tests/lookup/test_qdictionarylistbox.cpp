// SPDX-License-Identifier: MIT
#include "dictionary/qtdictionary.h"
#include "lookup/qdictionarylistbox.h"
#include "lookup/qdictionarylistboxitem.h"
#include "tests/lookup/lexicons.h"
#include "tests/support/warningcapture.h"
#include "widgets/listbox/qteskellistboxtext.h"
#include "widgets/scrolling/qteskelscrollbar.h"

#include <QMouseEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;
using namespace teskel::test;

namespace
{

/// Where something deletes the list.
enum class Cause { Selection, Scroll, BarValue, Start, Finish };

/// Notes what the list tells its parent, and how its selection changes in between.
class Parent : public QWidget
{
public:
    QStringList log;
    std::function<void()> onStart = [] {};
    std::function<void()> onFinish = [] {};

protected:
    void customEvent(QEvent* event) override
    {
        if (event->type() == 3000) {
            log.append(u"start"_s);
            onStart();
        } else if (event->type() == 3001) {
            log.append(u"finish"_s);
            onFinish();
        }
    }
};

/// A list of `rows` rows over a dictionary of numbered words. Rows for which there is no word hold
/// something left over from another one.
class Bench
{
public:
    explicit Bench(int words, int rows = 20, int perRecord = 7)
    {
        const QString path = _dir.filePath(u"Words.PDB"_s);
        if (!DictionaryWriter().addEntries(numberedEntries(words), perRecord).write(path) ||
            dictionary.open(path) != 0)
            qFatal("no dictionary");
        list = new QDictionaryListBox(&dictionary, &parent);
        parent.resize(200, 500);
        list->resize(200, 500);
        const std::unique_ptr<DictionaryIterator> iterator(dictionary.createIterator());
        CursorPosition position = iterator->begin();
        for (int row = 0; row < rows; ++row) {
            const bool valid = iterator->isValid(position);
            list->insertItem(new QDictionaryListBoxItem(
                valid ? QString::fromLatin1(iterator->getWord()) : u"left over"_s,
                valid ? position : iterator->begin()));
            position = iterator->move(position, 1);
        }
        QObject::connect(list, qOverload<QTeskelListBoxItem*>(&QTeskelListBox::selectionChanged),
                         &parent,
                         [this](QTeskelListBoxItem* item) { parent.log.append(item->text()); });
    }

    CursorPosition position(int number)
    {
        return dictionary.findWord(numberedWord(number).toLatin1().constData(),
                                   CursorPosition::invalid(), false);
    }

    QDictionaryListBoxItem* row(int index) const
    {
        return static_cast<QDictionaryListBoxItem*>(list->item(index));
    }

    QStringList rows() const
    {
        QStringList texts;
        for (int index = 0; index < list->count(); ++index)
            texts.append(list->item(index)->text());
        return texts;
    }

    /// Makes the view a few rows high.
    void showSmall()
    {
        list->resize(200, 100);
        parent.show();
    }

    bool isCurrentWhollyInView() const
    {
        const QRect row = list->itemRect(list->item(list->currentItem()));
        return row.isValid() && list->viewport()->rect().contains(row);
    }

    QStringList takeLog() { return std::exchange(parent.log, {}); }

    /// Puts the current row at `number` in a list whose top row is `top`.
    void show(int top, int number)
    {
        list->fill(position(top));
        list->setSelected(number - top, true);
        takeLog();
    }

private:
    QTemporaryDir _dir;

public:
    QtDictionary dictionary;
    Parent parent;
    QDictionaryListBox* list = nullptr;
};

/// A row that counts how often it is measured and painted.
class MeasuredRow : public QDictionaryListBoxItem
{
public:
    using QDictionaryListBoxItem::QDictionaryListBoxItem;

    int height(const QTeskelListBox* list) const override
    {
        ++measurements;
        return QDictionaryListBoxItem::height(list);
    }

    void paint(QPainter* painter) override
    {
        ++paintings;
        QDictionaryListBoxItem::paint(painter);
    }

    mutable int measurements = 0;
    int paintings = 0;
};

QStringList words(int first, int last)
{
    return numberedWords(first, last);
}

} // namespace

class TestQDictionaryListBox : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void slotsStandInOrder();
    void scrollBarsAreSetUp();

    void fillPutsAWordWithSuccessorsInTheTopRow();
    void fillAtTheLastWordShowsTheLastRowsWithTheLastCurrent();
    void fillNearTheEndShowsTheLastWords_data();
    void fillNearTheEndShowsTheLastWords();
    void fillWithAnInvalidStartWarnsAndEmptiesTheRows();
    void fillOfFewerWordsThanRowsLeavesSurplusRowsEmpty();
    void fillOfAsManyWordsAsRowsShowsThemAll();
    void fillStoresThePositionOfEachRow();
    void fillAgainAtTheSameWordReportsNothing();
    void fillOfAnEmptyListDoesNothing();

    void fillShowsTheCurrentRowAtOnce();
    void refillingLaysOutOnce_data();
    void refillingLaysOutOnce();
    void fillWithTheWordsThatStandTherePaintsNothing();

    void moveShowsTheCurrentRowAtOnce();
    void moveForwardKeepsTheCurrentRowAndReportsIt();
    void moveByNothingReportsNothing();
    void moveStopsAtTheEnds_data();
    void moveStopsAtTheEnds();
    void moveAtTheEndStillReports();
    void moveWithoutACurrentRowReportsNothing();
    void moveOfASingleWordPastTheEndEmptiesTheRowAndBackRefillsIt();
    void moveOfFewerWordsThanRowsKeepsSurplusRowsEmpty();
    void moveOfAnEmptyListDoesNothing();
    void rowsOfAnotherKindAreLeftAlone();

    void nextLineWithinTheRowsMovesTheSelection();
    void nextLineOnTheLastRowScrollsBetweenTheEvents();
    void nextLineWithoutACurrentRowScrollsWithoutEvents();
    void prevLineOnTheFirstRowScrollsWithoutEvents();
    void prevLineOnAnotherRowOnlyMovesTheSelection();
    void prevLineWithoutACurrentRowChangesNothing();
    void linesShowTheCurrentRowAtOnce();
    void scrollBarControlsStepTheList();
    void lineStepIsARow();

    void downOnTheLastRowScrollsOnRelease();
    void upOnTheFirstRowOfTheDictionaryReportsTheSameWordAgain();
    void homeSelectsTheFirstRowAndScrollsOnRelease();
    void endSelectsTheLastRowAndScrollsOnRelease();
    void pageDownMovesByTheVisibleRows();
    void pageKeysScrollOnlyWhenTheyEndOnTheEdge();
    void keysInTheMiddleDoNotScroll();
    void repeatedKeysScrollAtEachRelease();
    void otherKeysSendNoEventsAndAreIgnoredOnRelease_data();
    void otherKeysSendNoEventsAndAreIgnoredOnRelease();
    void keysOfAnEmptyListAreHarmless();
    void listWithoutAParentIsHarmless();
    void deletingInASlotIsSafe_data();
    void deletingInASlotIsSafe();
};

void TestQDictionaryListBox::init()
{
    failOnUnexpectedWarnings();
}

void TestQDictionaryListBox::slotsStandInOrder()
{
    const QMetaObject& meta = QDictionaryListBox::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), "nextLine()");
    QCOMPARE(meta.method(meta.methodOffset() + 1).methodSignature(), "prevLine()");
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Slot);
}

void TestQDictionaryListBox::scrollBarsAreSetUp()
{
    const Bench bench(50);
    QVERIFY(!bench.list->verticalScrollBar()->hasTracking());
    QCOMPARE(bench.list->hScrollBarMode(), QTeskelListBox::AlwaysOff);
    QCOMPARE(bench.list->vScrollBarMode(), QTeskelListBox::AlwaysOn);
}

void TestQDictionaryListBox::fillPutsAWordWithSuccessorsInTheTopRow()
{
    Bench bench(50);
    bench.list->fill(bench.position(29));
    QCOMPARE(bench.rows(), words(29, 48));
    QCOMPARE(bench.list->currentItem(), 0);
    QVERIFY(bench.row(0)->selected());
}

void TestQDictionaryListBox::fillAtTheLastWordShowsTheLastRowsWithTheLastCurrent()
{
    Bench bench(50);
    bench.list->fill(bench.position(49));
    QCOMPARE(bench.rows(), words(30, 49));
    QCOMPARE(bench.list->currentItem(), 19);
    QVERIFY(bench.row(19)->selected());
}

void TestQDictionaryListBox::fillNearTheEndShowsTheLastWords_data()
{
    QTest::addColumn<int>("start");
    QTest::newRow("the last page exactly") << 30;
    QTest::newRow("one short of a page") << 31;
    QTest::newRow("the last but one") << 48;
}

void TestQDictionaryListBox::fillNearTheEndShowsTheLastWords()
{
    QFETCH(int, start);
    Bench bench(50);
    bench.list->fill(bench.position(start));
    QCOMPARE(bench.rows(), words(30, 49));
    QCOMPARE(bench.list->currentItem(), start - 30);
}

void TestQDictionaryListBox::fillWithAnInvalidStartWarnsAndEmptiesTheRows()
{
    Bench bench(50);
    bench.show(10, 13);
    QTest::ignoreMessage(QtWarningMsg,
                         "ASSERT: \"iterator->isValid(start)\" in qdictionarylistbox.cpp (134)");
    bench.list->fill(CursorPosition::invalid());
    QCOMPARE(bench.rows().join(QString()), QString());
    QCOMPARE(bench.row(19)->getCursorPosition().value(), 0xFFFFFFFFU);
    QCOMPARE(bench.list->currentItem(), 3);
}

void TestQDictionaryListBox::fillOfFewerWordsThanRowsLeavesSurplusRowsEmpty()
{
    Bench bench(5);
    bench.list->fill(bench.position(3));
    QCOMPARE(bench.rows().first(5), words(0, 4));
    QCOMPARE(bench.list->currentItem(), 3);
    for (int row = 5; row < 20; ++row) {
        QCOMPARE(bench.row(row)->text(), QString());
        QCOMPARE(bench.row(row)->getCursorPosition().value(), 0xFFFFFFFFU);
    }
}

void TestQDictionaryListBox::fillOfAsManyWordsAsRowsShowsThemAll()
{
    Bench bench(5, 5);
    bench.list->fill(bench.position(4));
    QCOMPARE(bench.rows(), words(0, 4));
    QCOMPARE(bench.list->currentItem(), 4);
}

void TestQDictionaryListBox::fillStoresThePositionOfEachRow()
{
    Bench bench(50);
    bench.list->fill(bench.position(12));
    for (int row = 0; row < 20; ++row)
        QCOMPARE(bench.row(row)->getCursorPosition(), bench.position(12 + row));
}

void TestQDictionaryListBox::fillAgainAtTheSameWordReportsNothing()
{
    Bench bench(50);
    bench.list->fill(bench.position(12));
    QSignalSpy spy(bench.list, qOverload<QTeskelListBoxItem*>(&QTeskelListBox::selectionChanged));
    bench.list->fill(bench.position(12));
    bench.list->fill(bench.position(13));
    QCOMPARE(spy.count(), 0);
}

void TestQDictionaryListBox::fillOfAnEmptyListDoesNothing()
{
    Bench bench(50, 0);
    bench.list->fill(bench.position(12));
    QCOMPARE(bench.list->count(), 0);
    QCOMPARE(bench.list->currentItem(), -1);
}

void TestQDictionaryListBox::fillShowsTheCurrentRowAtOnce()
{
    Bench bench(50);
    bench.showSmall();
    bench.list->fill(bench.position(49));
    QCOMPARE(bench.list->currentItem(), 19);
    QVERIFY(bench.isCurrentWhollyInView());
    bench.list->fill(bench.position(3));
    QCOMPARE(bench.list->currentItem(), 0);
    QVERIFY(bench.isCurrentWhollyInView());
}

void TestQDictionaryListBox::refillingLaysOutOnce_data()
{
    using Act = void (*)(Bench&);
    QTest::addColumn<Act>("act");
    QTest::addRow("fill") << Act([](Bench& bench) { bench.list->fill(bench.position(17)); });
    QTest::addRow("move") << Act([](Bench& bench) { bench.list->move(3); });
}

void TestQDictionaryListBox::refillingLaysOutOnce()
{
    using Act = void (*)(Bench&);
    QFETCH(Act, act);
    Bench bench(50);
    auto* const row = new MeasuredRow(u"row"_s, bench.position(0));
    bench.list->insertItem(row, 0);
    bench.list->setSelected(0, true);
    bench.showSmall();
    QVERIFY(QTest::qWaitForWindowExposed(&bench.parent));
    const auto* const update = bench.list->findChild<QTimer*>(u"listbox update timer"_s);
    QTRY_VERIFY(!update->isActive());
    row->measurements = 0;
    act(bench);
    QTRY_VERIFY(!update->isActive());
    QCOMPARE(row->measurements, 1);
}

void TestQDictionaryListBox::fillWithTheWordsThatStandTherePaintsNothing()
{
    Bench bench(50);
    auto* const row = new MeasuredRow(u"row"_s, bench.position(0));
    bench.list->insertItem(row, 0);
    bench.list->fill(bench.position(12));
    bench.parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bench.parent));
    const auto* const update = bench.list->findChild<QTimer*>(u"listbox update timer"_s);
    QTRY_VERIFY(!update->isActive() && row->paintings > 0);

    const QStringList shown = bench.rows();
    row->paintings = 0;
    bench.list->fill(bench.position(12));
    QVERIFY(!update->isActive());
    QCoreApplication::processEvents();
    QCOMPARE(row->paintings, 0);
    QCOMPARE(bench.rows(), shown);

    bench.list->fill(bench.position(13));
    QTRY_COMPARE(row->paintings, 1);
    QCOMPARE(row->text(), numberedWord(13));
}

void TestQDictionaryListBox::moveShowsTheCurrentRowAtOnce()
{
    Bench bench(50);
    bench.showSmall();
    bench.show(5, 20);
    bench.list->setContentsPos(0, 0);
    QVERIFY(!bench.isCurrentWhollyInView());
    bench.list->move(1);
    QVERIFY(bench.isCurrentWhollyInView());
    bench.list->setContentsPos(0, 0);
    bench.list->move(-1);
    QVERIFY(bench.isCurrentWhollyInView());
}

void TestQDictionaryListBox::linesShowTheCurrentRowAtOnce()
{
    Bench bench(50);
    bench.showSmall();
    bench.show(5, 20);
    bench.list->setContentsPos(0, 0);
    bench.list->nextLine();
    QCOMPARE(bench.list->currentItem(), 16);
    QVERIFY(bench.isCurrentWhollyInView());
    bench.list->setContentsPos(0, 0);
    bench.list->prevLine();
    QCOMPARE(bench.list->currentItem(), 15);
    QVERIFY(bench.isCurrentWhollyInView());
}

void TestQDictionaryListBox::lineStepIsARow()
{
    Bench bench(50);
    bench.list->fill(bench.position(3));
    QCOMPARE(bench.list->verticalScrollBar()->lineStep(), bench.list->itemHeight());
    QFont font = bench.list->font();
    font.setPixelSize(40);
    bench.list->setFont(font);
    bench.list->adjustItems();
    QVERIFY(bench.list->itemHeight() >= 40);
    QCOMPARE(bench.list->verticalScrollBar()->lineStep(), bench.list->itemHeight());
}

void TestQDictionaryListBox::moveForwardKeepsTheCurrentRowAndReportsIt()
{
    Bench bench(50);
    bench.show(5, 8);
    bench.list->move(2);
    QCOMPARE(bench.rows(), words(7, 26));
    QCOMPARE(bench.list->currentItem(), 3);
    QCOMPARE(bench.takeLog(), QStringList{u"w010"_s});
    bench.list->move(-3);
    QCOMPARE(bench.rows(), words(4, 23));
    QCOMPARE(bench.takeLog(), QStringList{u"w007"_s});
}

void TestQDictionaryListBox::moveByNothingReportsNothing()
{
    Bench bench(50);
    bench.show(5, 8);
    bench.list->move(0);
    QCOMPARE(bench.rows(), words(5, 24));
    QCOMPARE(bench.takeLog(), QStringList());
}

void TestQDictionaryListBox::moveStopsAtTheEnds_data()
{
    QTest::addColumn<int>("top");
    QTest::addColumn<int>("lines");
    QTest::addColumn<int>("expectedTop");
    QTest::newRow("to the last page") << 29 << 1 << 30;
    QTest::newRow("beyond the last page") << 25 << 12 << 30;
    QTest::newRow("at the last page") << 30 << 1 << 30;
    QTest::newRow("to the first word") << 1 << -1 << 0;
    QTest::newRow("beyond the first word") << 3 << -9 << 0;
    QTest::newRow("at the first word") << 0 << -1 << 0;
}

void TestQDictionaryListBox::moveStopsAtTheEnds()
{
    QFETCH(int, top);
    QFETCH(int, lines);
    QFETCH(int, expectedTop);
    Bench bench(50);
    bench.show(top, top + 2);
    bench.list->move(lines);
    QCOMPARE(bench.rows(), words(expectedTop, expectedTop + 19));
    QCOMPARE(bench.list->currentItem(), 2);
}

void TestQDictionaryListBox::moveAtTheEndStillReports()
{
    Bench bench(50);
    bench.show(30, 49);
    bench.list->move(1);
    QCOMPARE(bench.takeLog(), QStringList{u"w049"_s});
}

void TestQDictionaryListBox::moveWithoutACurrentRowReportsNothing()
{
    Bench bench(50);
    bench.list->move(1);
    QCOMPARE(bench.rows(), words(1, 20));
    QCOMPARE(bench.list->currentItem(), -1);
    QCOMPARE(bench.takeLog(), QStringList());
}

void TestQDictionaryListBox::moveOfASingleWordPastTheEndEmptiesTheRowAndBackRefillsIt()
{
    Bench bench(1, 1);
    bench.list->fill(bench.position(0));
    bench.list->move(1);
    QCOMPARE(bench.rows(), QStringList{QString()});
    QVERIFY(bench.row(0)->getCursorPosition().isInvalid());
    bench.list->move(-1);
    QCOMPARE(bench.rows(), words(0, 0));
}

void TestQDictionaryListBox::moveOfFewerWordsThanRowsKeepsSurplusRowsEmpty()
{
    Bench bench(5);
    bench.list->fill(bench.position(0));
    for (const int lines : {1, -1}) {
        bench.list->move(lines);
        QCOMPARE(bench.rows().first(5), words(0, 4));
        QCOMPARE(bench.rows().mid(5).join(QString()), QString());
        QVERIFY(bench.row(5)->getCursorPosition().isInvalid());
    }
}

void TestQDictionaryListBox::moveOfAnEmptyListDoesNothing()
{
    Bench bench(50, 0);
    bench.list->move(1);
    bench.list->move(-1);
    QCOMPARE(bench.takeLog(), QStringList());
}

void TestQDictionaryListBox::rowsOfAnotherKindAreLeftAlone()
{
    const Bench bench(50, 3);
    bench.list->insertItem(u"title"_s, 0);
    bench.list->move(1);
    QCOMPARE(bench.rows(), QStringList(u"title"_s) + words(1, 3));
    bench.list->setSelected(0, true);
    bench.list->move(-1);
    QCOMPARE(bench.rows(), QStringList(u"title"_s) + words(0, 2));
    bench.list->clear();
    bench.list->insertItem(u"title"_s);
    bench.list->move(1);
    QCOMPARE(bench.rows(), QStringList(u"title"_s));
}

void TestQDictionaryListBox::nextLineWithinTheRowsMovesTheSelection()
{
    Bench bench(50);
    bench.show(5, 8);
    bench.list->nextLine();
    QCOMPARE(bench.rows(), words(5, 24));
    QCOMPARE(bench.list->currentItem(), 4);
    QCOMPARE(bench.takeLog(), (QStringList{u"start"_s, u"w009"_s, u"finish"_s}));
}

void TestQDictionaryListBox::nextLineOnTheLastRowScrollsBetweenTheEvents()
{
    Bench bench(50);
    bench.show(5, 24);
    bench.list->nextLine();
    QCOMPARE(bench.rows(), words(6, 25));
    QCOMPARE(bench.list->currentItem(), 19);
    QCOMPARE(bench.takeLog(), (QStringList{u"start"_s, u"w025"_s, u"finish"_s}));
}

void TestQDictionaryListBox::nextLineWithoutACurrentRowScrollsWithoutEvents()
{
    Bench bench(50);
    bench.list->nextLine();
    QCOMPARE(bench.rows(), words(1, 20));
    QCOMPARE(bench.takeLog(), QStringList());
}

void TestQDictionaryListBox::prevLineOnTheFirstRowScrollsWithoutEvents()
{
    Bench bench(50);
    bench.show(5, 5);
    bench.list->prevLine();
    QCOMPARE(bench.rows(), words(4, 23));
    QCOMPARE(bench.takeLog(), QStringList{u"w004"_s});
}

void TestQDictionaryListBox::prevLineOnAnotherRowOnlyMovesTheSelection()
{
    Bench bench(50);
    bench.show(5, 6);
    bench.list->prevLine();
    QCOMPARE(bench.rows(), words(5, 24));
    QCOMPARE(bench.list->currentItem(), 0);
    QCOMPARE(bench.takeLog(), (QStringList{u"start"_s, u"w005"_s, u"finish"_s}));
}

void TestQDictionaryListBox::prevLineWithoutACurrentRowChangesNothing()
{
    Bench bench(50);
    bench.list->prevLine();
    QCOMPARE(bench.rows(), words(0, 19));
    QCOMPARE(bench.list->currentItem(), -1);
    QCOMPARE(bench.takeLog(), (QStringList{u"start"_s, u"finish"_s}));
}

void TestQDictionaryListBox::scrollBarControlsStepTheList()
{
    Bench bench(50);
    bench.show(5, 5);
    emit bench.list->verticalScrollBar()->nextLine();
    QCOMPARE(bench.takeLog(), (QStringList{u"start"_s, u"w006"_s, u"finish"_s}));
    emit bench.list->verticalScrollBar()->prevLine();
    QCOMPARE(bench.takeLog(), (QStringList{u"start"_s, u"w005"_s, u"finish"_s}));
}

void TestQDictionaryListBox::downOnTheLastRowScrollsOnRelease()
{
    Bench bench(50);
    bench.show(5, 24);
    QTest::keyPress(bench.list, Qt::Key_Down);
    QCOMPARE(bench.takeLog(), QStringList{u"start"_s});
    QTest::keyRelease(bench.list, Qt::Key_Down);
    QCOMPARE(bench.rows(), words(6, 25));
    QCOMPARE(bench.list->currentItem(), 19);
    QCOMPARE(bench.takeLog(), (QStringList{u"w025"_s, u"finish"_s}));
}

void TestQDictionaryListBox::upOnTheFirstRowOfTheDictionaryReportsTheSameWordAgain()
{
    Bench bench(50);
    bench.show(0, 0);
    QTest::keyClick(bench.list, Qt::Key_Up);
    QCOMPARE(bench.rows(), words(0, 19));
    QCOMPARE(bench.takeLog(), (QStringList{u"start"_s, u"w000"_s, u"finish"_s}));
}

void TestQDictionaryListBox::homeSelectsTheFirstRowAndScrollsOnRelease()
{
    Bench bench(50);
    bench.show(5, 9);
    QTest::keyPress(bench.list, Qt::Key_Home);
    QCOMPARE(bench.takeLog(), (QStringList{u"start"_s, u"w005"_s}));
    QTest::keyRelease(bench.list, Qt::Key_Home);
    QCOMPARE(bench.takeLog(), (QStringList{u"w004"_s, u"finish"_s}));
    QCOMPARE(bench.rows(), words(4, 23));
}

void TestQDictionaryListBox::endSelectsTheLastRowAndScrollsOnRelease()
{
    Bench bench(50);
    bench.show(5, 9);
    QTest::keyPress(bench.list, Qt::Key_End);
    QCOMPARE(bench.takeLog(), (QStringList{u"start"_s, u"w024"_s}));
    QTest::keyRelease(bench.list, Qt::Key_End);
    QCOMPARE(bench.takeLog(), (QStringList{u"w025"_s, u"finish"_s}));
    QCOMPARE(bench.rows(), words(6, 25));
}

void TestQDictionaryListBox::pageDownMovesByTheVisibleRows()
{
    Bench bench(50);
    bench.list->resize(200, 100);
    bench.parent.show();
    bench.show(0, 0);
    const int page = bench.list->numItemsVisible();
    QVERIFY(page > 1 && page < 10);
    QTest::keyClick(bench.list, Qt::Key_PageDown);
    QCOMPARE(bench.list->currentItem(), page);
    QCOMPARE(bench.rows(), words(0, 19));
    QTest::keyClick(bench.list, Qt::Key_PageUp);
    QCOMPARE(bench.list->currentItem(), 0);
}

void TestQDictionaryListBox::pageKeysScrollOnlyWhenTheyEndOnTheEdge()
{
    Bench bench(50);
    bench.list->resize(200, 100);
    bench.parent.show();
    bench.show(5, 23);
    QTest::keyPress(bench.list, Qt::Key_PageDown);
    QCOMPARE(bench.list->currentItem(), 19);
    QCOMPARE(bench.rows(), words(5, 24));
    QTest::keyRelease(bench.list, Qt::Key_PageDown);
    QCOMPARE(bench.rows(), words(6, 25));
    QCOMPARE(bench.list->currentItem(), 19);

    bench.show(5, 6);
    QTest::keyPress(bench.list, Qt::Key_PageUp);
    QCOMPARE(bench.list->currentItem(), 0);
    QTest::keyRelease(bench.list, Qt::Key_PageUp);
    QCOMPARE(bench.rows(), words(4, 23));
}

void TestQDictionaryListBox::keysInTheMiddleDoNotScroll()
{
    Bench bench(50);
    bench.show(5, 9);
    QTest::keyClick(bench.list, Qt::Key_Down);
    QTest::keyClick(bench.list, Qt::Key_Up);
    QCOMPARE(bench.rows(), words(5, 24));
    QCOMPARE(bench.takeLog(),
             (QStringList{u"start"_s, u"w010"_s, u"finish"_s, u"start"_s, u"w009"_s, u"finish"_s}));
}

void TestQDictionaryListBox::repeatedKeysScrollAtEachRelease()
{
    Bench bench(50);
    bench.show(5, 24);
    for (int repeat = 0; repeat < 3; ++repeat) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier, QString(), true);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Down, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(bench.list, &press);
        QCoreApplication::sendEvent(bench.list, &release);
    }
    QCOMPARE(bench.rows(), words(8, 27));
}

void TestQDictionaryListBox::otherKeysSendNoEventsAndAreIgnoredOnRelease_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("left") << int(Qt::Key_Left);
    QTest::newRow("right") << int(Qt::Key_Right);
    QTest::newRow("tab") << int(Qt::Key_Tab);
    QTest::newRow("shift") << int(Qt::Key_Shift);
}

void TestQDictionaryListBox::otherKeysSendNoEventsAndAreIgnoredOnRelease()
{
    QFETCH(int, key);
    Bench bench(50);
    bench.show(5, 5);
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(bench.list, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
    QCoreApplication::sendEvent(bench.list, &release);
    QVERIFY(!release.isAccepted());
    QCOMPARE(bench.rows(), words(5, 24));
    QCOMPARE(bench.takeLog(), QStringList());
}

void TestQDictionaryListBox::keysOfAnEmptyListAreHarmless()
{
    Bench bench(50, 0);
    for (const Qt::Key key :
         {Qt::Key_Home, Qt::Key_End, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown}) {
        QTest::keyClick(bench.list, key);
        QCOMPARE(bench.takeLog(), (QStringList{u"start"_s, u"finish"_s}));
    }
}

void TestQDictionaryListBox::listWithoutAParentIsHarmless()
{
    Bench bench(50);
    bench.list->setParent(nullptr);
    const std::unique_ptr<QDictionaryListBox> list(bench.list);
    list->fill(bench.position(3));
    QTest::keyClick(list.get(), Qt::Key_End);
    QCOMPARE(list->currentItem(), 19);
    QCOMPARE(bench.takeLog().count(u"start"_s), 0);
}

void TestQDictionaryListBox::deletingInASlotIsSafe_data()
{
    using Act = void (*)(Bench&);
    QTest::addColumn<Act>("act");
    QTest::addColumn<Cause>("cause");
    const auto row = [](const char* name, std::initializer_list<Cause> causes, Act act) {
        for (const Cause cause : causes) {
            QTest::addRow("%s, %s", name,
                          cause == Cause::Selection  ? "selection"
                          : cause == Cause::Scroll   ? "scrolled"
                          : cause == Cause::BarValue ? "bar's value"
                          : cause == Cause::Start    ? "navigation starts"
                                                     : "navigation ends")
                << act << cause;
        }
    };
    using enum Cause;
    row("fill", {Selection, Scroll, BarValue}, [](Bench& b) { b.list->fill(b.position(49)); });
    row("move", {Selection, Scroll, BarValue}, [](Bench& b) { b.list->move(1); });
    row("next line", {Selection, Scroll, BarValue, Start, Finish},
        [](Bench& b) { b.list->nextLine(); });
    row("previous line", {Selection, Scroll, BarValue, Start, Finish},
        [](Bench& b) { b.list->prevLine(); });
    row("tap", {Selection, Scroll, BarValue, Start, Finish}, [](Bench& b) {
        QTeskelScrollBar* const bar = b.list->verticalScrollBar();
        const QPointF arrow(bar->width() / 2.0, bar->height() - 2.0);
        QMouseEvent press(QEvent::MouseButtonPress, arrow, bar->mapToGlobal(arrow), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(bar, &press);
    });
    row("key", {Selection, Scroll, BarValue, Start}, [](Bench& b) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_PageUp, Qt::NoModifier);
        QCoreApplication::sendEvent(b.list, &press);
    });
    row("key release", {Selection, Scroll, BarValue, Finish}, [](Bench& b) {
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Down, Qt::NoModifier);
        QCoreApplication::sendEvent(b.list, &release);
    });
}

void TestQDictionaryListBox::deletingInASlotIsSafe()
{
    using Act = void (*)(Bench&);
    QFETCH(Act, act);
    QFETCH(Cause, cause);
    Bench bench(50);
    bench.showSmall();
    // On the last row a released key scrolls, too.
    bench.show(5, QByteArray(QTest::currentDataTag()).startsWith("key release") ? 24 : 15);
    bench.list->setContentsPos(0, 0);
    const QPointer<QDictionaryListBox> alive(bench.list);
    const auto remove = [&bench] { delete bench.list; };
    switch (cause) {
    case Cause::Selection:
        connect(bench.list, qOverload<>(&QTeskelListBox::selectionChanged), this, remove);
        connect(bench.list, qOverload<QTeskelListBoxItem*>(&QTeskelListBox::selectionChanged), this,
                remove);
        break;
    case Cause::Scroll:
        connect(bench.list, &QTeskelListBox::contentsMoving, this, remove);
        break;
    case Cause::BarValue:
        connect(bench.list->verticalScrollBar(), &QScrollBar::valueChanged, this, remove);
        break;
    case Cause::Start:
        bench.parent.onStart = remove;
        break;
    case Cause::Finish:
        bench.parent.onFinish = remove;
        break;
    }
    act(bench);
    QVERIFY(alive.isNull());
}

QTEST_MAIN(TestQDictionaryListBox)
#include "test_qdictionarylistbox.moc"
