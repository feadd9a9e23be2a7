// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxkeycontroller.h"

#include <QTest>

class TestListBoxKeyController : public QObject
{
    Q_OBJECT

private slots:
    void target_data();
    void target();
};

void TestListBoxKeyController::target_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("expected"); // -1: the key does not move
    QTest::addRow("Down") << int(Qt::Key_Down) << 3 << 1 << 4;
    QTest::addRow("Down at the end") << int(Qt::Key_Down) << 9 << 1 << 9;
    QTest::addRow("Up") << int(Qt::Key_Up) << 3 << 1 << 2;
    QTest::addRow("Up at the beginning") << int(Qt::Key_Up) << 0 << 1 << 0;
    QTest::addRow("Page Down") << int(Qt::Key_PageDown) << 3 << 1 << 7;
    QTest::addRow("Page Down near the end") << int(Qt::Key_PageDown) << 8 << 1 << 9;
    QTest::addRow("Page Up") << int(Qt::Key_PageUp) << 6 << 1 << 2;
    QTest::addRow("Page Up near the beginning") << int(Qt::Key_PageUp) << 2 << 1 << 0;
    QTest::addRow("Home") << int(Qt::Key_Home) << 6 << 1 << 0;
    QTest::addRow("End") << int(Qt::Key_End) << 6 << 1 << 9;
    QTest::addRow("Left in one column") << int(Qt::Key_Left) << 6 << 1 << -1;
    QTest::addRow("Right in one column") << int(Qt::Key_Right) << 6 << 1 << -1;
    QTest::addRow("Left") << int(Qt::Key_Left) << 6 << 3 << 2;
    QTest::addRow("Left in the first column") << int(Qt::Key_Left) << 2 << 3 << 2;
    QTest::addRow("Right") << int(Qt::Key_Right) << 1 << 3 << 5;
    QTest::addRow("Right into a shorter column") << int(Qt::Key_Right) << 7 << 3 << 9;
    QTest::addRow("Right in the last column") << int(Qt::Key_Right) << 8 << 3 << 8;
    QTest::addRow("other") << int(Qt::Key_A) << 6 << 3 << -1;
}

void TestListBoxKeyController::target()
{
    QFETCH(int, key);
    QFETCH(int, current);
    QFETCH(int, columns);
    QFETCH(int, expected);
    const int rows = columns == 1 ? 10 : 4;
    const auto found = teskel::ListBoxKeyController::target(key, {current, 10, rows, columns, 4});
    QCOMPARE(found.value_or(-1), expected);
}

QTEST_APPLESS_MAIN(TestListBoxKeyController)
#include "test_listboxkeycontroller.moc"
