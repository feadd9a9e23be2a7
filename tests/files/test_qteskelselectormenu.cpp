// SPDX-License-Identifier: MIT
#include "files/qteskelselectormenu.h"

#include <QAction>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

QList<bool> marks(const QTeskelSelectorMenu& menu)
{
    QList<bool> checked;
    const auto entries = menu.actions();
    for (const QAction* entry : entries)
        checked.append(entry->isChecked());
    return checked;
}

MediaFilter sent(const QSignalSpy& spy, int number)
{
    return spy.at(number).first().value<MediaFilter>();
}

const QList<bool> allFilesMarked{true, false};
const QList<bool> removableMarked{false, true};

} // namespace

/// The selector's filter menu and its check marks.
class QTeskelSelectorMenuTest : public QObject
{
    Q_OBJECT

private slots:
    void startsWithAllFiles();
    void choosingMovesTheMarkAndReports();
    void choosingTheMarkedEntryKeepsItsMark();
    void everyOtherNumberStandsForRemovableMedia();
    void settingTheFilterReportsButMovesNoMark();
};

void QTeskelSelectorMenuTest::startsWithAllFiles()
{
    const QTeskelSelectorMenu menu(nullptr, "filter");
    QCOMPARE(menu.objectName(), u"filter"_s);
    QCOMPARE(menu.actions().size(), 2);
    QCOMPARE(menu.actions().at(0)->text(), u"All files"_s);
    QCOMPARE(menu.actions().at(1)->text(), u"Removable media files"_s);
    QCOMPARE(static_cast<int>(MediaFilter::AllFiles), 0);
    QCOMPARE(static_cast<int>(MediaFilter::RemovableMedia), 1);
    QCOMPARE(menu.getMediaFilter(), MediaFilter::AllFiles);
    QCOMPARE(marks(menu), allFilesMarked);
}

void QTeskelSelectorMenuTest::choosingMovesTheMarkAndReports()
{
    QTeskelSelectorMenu menu(nullptr);
    const QSignalSpy changed(&menu, &QTeskelSelectorMenu::filterChanged);
    menu.actions().at(1)->trigger();
    QCOMPARE(marks(menu), removableMarked);
    QCOMPARE(menu.getMediaFilter(), MediaFilter::RemovableMedia);
    menu.actions().at(0)->trigger();
    QCOMPARE(marks(menu), allFilesMarked);
    QCOMPARE(menu.getMediaFilter(), MediaFilter::AllFiles);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(sent(changed, 0), MediaFilter::RemovableMedia);
    QCOMPARE(sent(changed, 1), MediaFilter::AllFiles);
}

void QTeskelSelectorMenuTest::choosingTheMarkedEntryKeepsItsMark()
{
    QTeskelSelectorMenu menu(nullptr);
    const QSignalSpy changed(&menu, &QTeskelSelectorMenu::filterChanged);
    menu.actions().at(0)->trigger();
    QCOMPARE(marks(menu), allFilesMarked);
    QCOMPARE(changed.count(), 1);
}

void QTeskelSelectorMenuTest::everyOtherNumberStandsForRemovableMedia()
{
    QTeskelSelectorMenu menu(nullptr);
    menu.menuActivated(7);
    QCOMPARE(menu.getMediaFilter(), MediaFilter::RemovableMedia);
    QCOMPARE(marks(menu), (QList<bool>{false, false}));
}

void QTeskelSelectorMenuTest::settingTheFilterReportsButMovesNoMark()
{
    QTeskelSelectorMenu menu(nullptr);
    const QSignalSpy changed(&menu, &QTeskelSelectorMenu::filterChanged);
    menu.setMediaFilter(MediaFilter::RemovableMedia);
    QCOMPARE(menu.getMediaFilter(), MediaFilter::RemovableMedia);
    QCOMPARE(marks(menu), allFilesMarked);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(sent(changed, 0), MediaFilter::RemovableMedia);
}

QTEST_MAIN(QTeskelSelectorMenuTest)
#include "test_qteskelselectormenu.moc"
