// SPDX-License-Identifier: MIT
#include "tests/lookup/lookupbench.h"

#include <QApplication>

using namespace Qt::StringLiterals;
using namespace teskel::test;

namespace
{

void arrange(LookupBench& bench, int layout, int hand, int view)
{
    bench.preferences().setLayout(static_cast<PreferencesData::PanelViewLayout>(layout));
    bench.preferences().setUserHandType(static_cast<PreferencesData::UserHandType>(hand));
    bench.preferences().setViewType(static_cast<PreferencesData::ViewType>(view));
    bench.widget().resetMainLayout();
}

} // namespace

/// Where the entry and the two panels stand, and how they share the window.
class TestPanelArrangement : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void panelsFollowTheTable_data();
    void panelsFollowTheTable();
    void minimumsOfTheOtherDirectionStay();
    void proportionsHoldInAnyWindow_data();
    void proportionsHoldInAnyWindow();
    void handsStayInARightToLeftLanguage();
    void entryStandsWhereTheSettingsSay();
    void toggleLeavesTheEntryWhereItIs();
    void nothingIsWastedOnMargins();
    void rearrangingKeepsTheKeyboardInTheEntry();
    void longWordsDoNotWidenTheWindow();
    void fitsASmallScreenInEveryArrangement();
};

void TestPanelArrangement::init()
{
    failOnUnexpectedWarnings();
}

void TestPanelArrangement::cleanup()
{
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

void TestPanelArrangement::panelsFollowTheTable_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<int>("hand");
    QTest::addColumn<int>("view");
    QTest::addColumn<bool>("stacked");
    QTest::addColumn<bool>("listOnTheLeft");
    QTest::addColumn<int>("articleMinimum");
    QTest::addColumn<int>("listMinimum");

    QTest::newRow("stacked, toggled") << 0 << 0 << 1 << true << false << 165 << 35;
    QTest::newRow("stacked, toggled, right hand") << 0 << 1 << 1 << true << false << 165 << 35;
    QTest::newRow("stacked, not toggled") << 0 << 0 << 0 << true << false << 50 << 150;
    QTest::newRow("stacked, not toggled, right hand") << 0 << 1 << 0 << true << false << 50 << 150;
    QTest::newRow("left hand, not toggled") << 1 << 0 << 0 << false << true << 160 << 70;
    QTest::newRow("left hand, toggled") << 1 << 0 << 1 << false << true << 100 << 130;
    QTest::newRow("right hand, not toggled") << 1 << 1 << 0 << false << false << 100 << 130;
    QTest::newRow("right hand, toggled") << 1 << 1 << 1 << false << false << 160 << 70;
    QTest::newRow("unknown layout counts as stacked") << 7 << 0 << 1 << true << false << 165 << 35;
    QTest::newRow("unknown view counts as toggled") << 0 << 0 << -3 << true << false << 165 << 35;
    QTest::newRow("unknown hand counts as right") << 1 << 9 << 0 << false << false << 100 << 130;
    QTest::newRow("all unknown") << -1 << -1 << -1 << true << false << 165 << 35;
}

void TestPanelArrangement::panelsFollowTheTable()
{
    QFETCH(int, layout);
    QFETCH(int, hand);
    QFETCH(int, view);
    QFETCH(bool, stacked);
    QFETCH(bool, listOnTheLeft);
    QFETCH(int, articleMinimum);
    QFETCH(int, listMinimum);

    LookupBench bench;
    bench.widget().resize(240, 280);
    bench.widget().show();
    arrange(bench, layout, hand, view);
    QCoreApplication::processEvents();

    const QTeskelEdit& article = bench.article();
    const QDictionaryListBox& list = bench.list();
    QCOMPARE(stacked ? article.minimumHeight() : article.minimumWidth(), articleMinimum);
    QCOMPARE(stacked ? list.minimumHeight() : list.minimumWidth(), listMinimum);
    const QSizePolicy articlePolicy = article.sizePolicy();
    const QSizePolicy listPolicy = list.sizePolicy();
    QCOMPARE(stacked ? articlePolicy.verticalStretch() : articlePolicy.horizontalStretch(),
             articleMinimum);
    QCOMPARE(stacked ? listPolicy.verticalStretch() : listPolicy.horizontalStretch(), listMinimum);
    if (stacked) {
        QVERIFY(article.geometry().bottom() < list.geometry().top());
        QCOMPARE(article.width(), list.width());
    } else if (listOnTheLeft) {
        QVERIFY(list.geometry().right() < article.geometry().left());
    } else {
        QVERIFY(article.geometry().right() < list.geometry().left());
    }
}

void TestPanelArrangement::minimumsOfTheOtherDirectionStay()
{
    LookupBench bench;
    arrange(bench, 0, 0, 0);
    arrange(bench, 1, 0, 0);
    QCOMPARE(bench.article().minimumSize(), QSize(160, 50));
    QCOMPARE(bench.list().minimumSize(), QSize(70, 150));
    arrange(bench, 0, 0, 1);
    QCOMPARE(bench.article().minimumSize(), QSize(160, 165));
    QCOMPARE(bench.list().minimumSize(), QSize(70, 35));
}

void TestPanelArrangement::proportionsHoldInAnyWindow_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("handheld") << QSize(240, 320);
    QTest::newRow("phone") << QSize(360, 720);
    QTest::newRow("small desktop window") << QSize(640, 480);
    QTest::newRow("full screen") << QSize(1920, 1080);
}

void TestPanelArrangement::proportionsHoldInAnyWindow()
{
    QFETCH(QSize, size);
    LookupBench bench;
    bench.widget().resize(size);
    bench.widget().show();
    for (const int hand : {0, 1}) {
        for (const int view : {0, 1}) {
            arrange(bench, 1, hand, view);
            QCoreApplication::processEvents();
            const double share = hand == view ? 160.0 / 230 : 100.0 / 230;
            QVERIFY(qAbs(bench.article().width() - share * size.width()) <= 6);
            QCOMPARE(bench.article().width() + bench.list().width(), size.width());
        }
    }
    const int panels = size.height() - bench.entry().height();
    for (const int view : {0, 1}) {
        arrange(bench, 0, 0, view);
        QCoreApplication::processEvents();
        const double share = view == 1 ? 165.0 / 200 : 50.0 / 200;
        QVERIFY(qAbs(bench.article().height() - share * panels) <= 6);
        QCOMPARE(bench.article().height() + bench.list().height(), panels);
    }
}

void TestPanelArrangement::handsStayInARightToLeftLanguage()
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    LookupBench bench;
    bench.widget().resize(240, 320);
    bench.widget().show();
    arrange(bench, 1, 0, 0);
    QCoreApplication::processEvents();
    QVERIFY(bench.list().geometry().right() < bench.article().geometry().left());
    arrange(bench, 1, 1, 0);
    QCoreApplication::processEvents();
    QVERIFY(bench.article().geometry().right() < bench.list().geometry().left());
}

void TestPanelArrangement::entryStandsWhereTheSettingsSay()
{
    LookupBench bench;
    bench.widget().show();
    for (const int position : {0, 1, 0, 1, 7}) {
        bench.preferences().setComboPosition(static_cast<PreferencesData::Position>(position));
        bench.widget().resetLayout();
        bench.widget().resize(240, 320);
        QCoreApplication::processEvents();
        QVERIFY(bench.widget().isVisible());
        if (position == 1)
            QCOMPARE(bench.entry().geometry().bottom(), 319);
        else
            QCOMPARE(bench.entry().geometry().top(), 0);
        QCOMPARE(bench.entry().width(), 240);
    }
}

void TestPanelArrangement::toggleLeavesTheEntryWhereItIs()
{
    LookupBench bench;
    bench.widget().resize(240, 320);
    bench.widget().show();
    bench.preferences().setComboPosition(PreferencesData::Bottom);
    arrange(bench, 1, 0, 0);
    QCoreApplication::processEvents();
    QCOMPARE(bench.entry().geometry().top(), 0);
}

void TestPanelArrangement::nothingIsWastedOnMargins()
{
    LookupBench bench;
    bench.widget().resize(240, 320);
    bench.widget().show();
    QCoreApplication::processEvents();
    const QRegion covered =
        QRegion(bench.entry().geometry()) + bench.article().geometry() + bench.list().geometry();
    QCOMPARE(covered, QRegion(bench.widget().rect()));
}

void TestPanelArrangement::rearrangingKeepsTheKeyboardInTheEntry()
{
    LookupBench bench;
    QWidget window;
    QLineEdit other(&window);
    bench.widget().setParent(&window);
    bench.widget().setGeometry(0, 40, 240, 320);
    bench.widget().show();
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    bench.entry().setFocus();
    bench.widget().resetLayout();
    QVERIFY(bench.entry().hasFocus());
    other.setFocus();
    bench.widget().resetLayout();
    QVERIFY(other.hasFocus());
    bench.widget().setParent(nullptr);
}

void TestPanelArrangement::longWordsDoNotWidenTheWindow()
{
    LookupBench bench;
    bench.open({{QByteArray(400, 'a'), QByteArray(4000, 'b')}, {"zebra", "Zebra"}});
    const int before = bench.widget().minimumSizeHint().width();
    bench.type(QString(400, u'a'));
    QCOMPARE(bench.history().size(), 1);
    QCOMPARE(bench.widget().minimumSizeHint().width(), before);
}

void TestPanelArrangement::fitsASmallScreenInEveryArrangement()
{
    LookupBench bench;
    // Minimums of both directions are in force at once after a change of layout.
    for (const int layout : {0, 1, 0, 1}) {
        for (const int hand : {0, 1}) {
            for (const int view : {0, 1}) {
                arrange(bench, layout, hand, view);
                const QSize least = bench.widget().minimumSizeHint();
                QVERIFY2(least.width() <= 240 && least.height() <= 280,
                         qPrintable(u"%1x%2"_s.arg(least.width()).arg(least.height())));
            }
        }
    }
}

QTEST_MAIN(TestPanelArrangement)
#include "test_panelarrangement.moc"
