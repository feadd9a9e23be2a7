// SPDX-License-Identifier: MIT
#include "files/qteskelfileselector.h"
#include "files/qteskelfileselectorview.h"
#include "files/qteskelselectormenu.h"
#include "platform/application/qpeapplication.h"
#include "platform/toolbar/qpemenubar.h"
#include "tests/files/stagedstorage.h"

#include <QAction>
#include <QLayout>
#include <QPointer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QStyle>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

/// The selector panel as a user of it sees it.
class QTeskelFileSelectorTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void panelHasMenuCloseButtonAndList();
    void leftClickReportsThePathThenAsksToBeClosed();
    void rightClickDoesNotChoose();
    void heldStylusDoesNotChoose();
    void clickBesideTheItemsDoesNothing();
    void spaceAndReturnChoose_data();
    void spaceAndReturnChoose();
    void keysWithoutACurrentItemDoNothing();
    void letterDoesNotMoveTheSelection();
    void pressingAloneDoesNotChoose();
    void removableMediaMovesTheMarkAndEmptiesTheList();
    void closeButtonAsksToBeClosed();
    void closeButtonStandsInTheUpperOuterCorner();
    void keysReachTheMenuAndThenTheCloseButton();
    void selectedIsThePathOfTheCurrentItem();
    void rereadEmptiesTheList();
    void receiverMayDeleteThePanel_data();
    void receiverMayDeleteThePanel();

private:
    QPoint rowPosition(int row) const;
    QString file(const char* name) const;

    std::unique_ptr<StagedStorage> _storage;
    std::unique_ptr<QTeskelFileSelector> _panel;
    QStringList _log;
};

void QTeskelFileSelectorTest::init()
{
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s));
    _storage = std::make_unique<StagedStorage>();
    for (const char* name : {"b.PDB", "A.PDB", "c.PDB"})
        StagedStorage::addFile(_storage->internalDirectory(), QString::fromUtf8(name));
    _panel = std::make_unique<QTeskelFileSelector>(nullptr, "selector");
    _panel->view()->append(_storage->internalDirectory());
    _panel->resize(240, 320);
    _panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(_panel.get()));
    _log.clear();
    connect(_panel.get(), &QTeskelFileSelector::fileSelected, this,
            [this](const QString& path) { _log.append(path); });
    connect(_panel.get(), &QTeskelFileSelector::closeMe, this, [this] { _log.append(u"close"_s); });
}

void QTeskelFileSelectorTest::cleanup()
{
    _panel.reset();
    _storage.reset();
}

QPoint QTeskelFileSelectorTest::rowPosition(int row) const
{
    return _panel->view()->visualItemRect(_panel->view()->topLevelItem(row)).center();
}

QString QTeskelFileSelectorTest::file(const char* name) const
{
    return _storage->internalDirectory() + u'/' + QString::fromUtf8(name);
}

void QTeskelFileSelectorTest::panelHasMenuCloseButtonAndList()
{
    QCOMPARE(_panel->objectName(), u"selector"_s);
    QCOMPARE(_panel->layout()->contentsMargins(), QMargins());
    QCOMPARE(_panel->layout()->spacing(), 0);
    const auto* bar = _panel->findChild<QPEMenuBar*>();
    QVERIFY(bar != nullptr);
    QCOMPARE(bar->actions().size(), 1);
    QCOMPARE(bar->actions().first()->text(), u"View"_s);
    QVERIFY(bar->actions().first()->menu() == _panel->menu());
    const auto* button = _panel->findChild<QToolButton*>();
    QCOMPARE(button->size(), QSize(18, 20));
    QVERIFY(button->autoRaise());
    QVERIFY(!button->icon().isNull());
    QCOMPARE(button->toolTip(), u"Close the Dictionary Selector"_s);
    QCOMPARE(_panel->view()->objectName(), u"fileview"_s);
    QCOMPARE(QPEApplication::stylusOperation(_panel->view()->viewport()),
             QPEApplication::RightOnHold);
}

void QTeskelFileSelectorTest::leftClickReportsThePathThenAsksToBeClosed()
{
    QTest::mouseClick(_panel->view()->viewport(), Qt::LeftButton, {}, rowPosition(1));
    QCOMPARE(_log, (QStringList{file("b.PDB"), u"close"_s}));
}

void QTeskelFileSelectorTest::rightClickDoesNotChoose()
{
    QTest::mouseClick(_panel->view()->viewport(), Qt::RightButton, {}, rowPosition(1));
    QTest::mouseClick(_panel->view()->viewport(), Qt::MiddleButton, {}, rowPosition(1));
    QVERIFY(_log.isEmpty());
}

void QTeskelFileSelectorTest::heldStylusDoesNotChoose()
{
    const QSignalSpy clicked(_panel->view(), &QTeskelFileSelectorView::mouseButtonClicked);
    const QSignalSpy pressed(_panel->view(), &QTeskelFileSelectorView::mouseButtonPressed);
    QTest::mousePress(_panel->view()->viewport(), Qt::LeftButton, {}, rowPosition(1));
    QTRY_COMPARE(pressed.count(), 2);
    QTest::mouseRelease(_panel->view()->viewport(), Qt::LeftButton, {}, rowPosition(1));
    QTRY_COMPARE(clicked.count(), 1);
    QCOMPARE(clicked.first().first().toInt(), static_cast<int>(Qt::RightButton));
    QVERIFY(_log.isEmpty());
}

void QTeskelFileSelectorTest::clickBesideTheItemsDoesNothing()
{
    QTest::mouseClick(_panel->view()->viewport(), Qt::LeftButton, {},
                      _panel->view()->viewport()->rect().bottomLeft() + QPoint(5, -5));
    _panel->fileClicked(nullptr);
    _panel->fileClicked(1, nullptr, QPoint(), -1);
    QVERIFY(_log.isEmpty());
}

void QTeskelFileSelectorTest::spaceAndReturnChoose_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Space") << static_cast<int>(Qt::Key_Space);
    QTest::newRow("Return") << static_cast<int>(Qt::Key_Return);
    QTest::newRow("Enter") << static_cast<int>(Qt::Key_Enter);
}

void QTeskelFileSelectorTest::spaceAndReturnChoose()
{
    QFETCH(const int, key);
    _panel->view()->setCurrentItem(_panel->view()->topLevelItem(2));
    QTest::keyClick(_panel->view(), static_cast<Qt::Key>(key));
    QCOMPARE(_log, (QStringList{file("c.PDB"), u"close"_s}));
}

void QTeskelFileSelectorTest::keysWithoutACurrentItemDoNothing()
{
    _panel->view()->setCurrentItem(nullptr);
    QTest::keyClick(_panel->view(), Qt::Key_Space);
    QTest::keyClick(_panel->view(), Qt::Key_Return);
    QVERIFY(_log.isEmpty());
}

void QTeskelFileSelectorTest::letterDoesNotMoveTheSelection()
{
    _panel->view()->setCurrentItem(_panel->view()->topLevelItem(0));
    QTest::keyClicks(_panel->view(), u"c"_s);
    QCOMPARE(_panel->selected(), file("A.PDB"));
    QVERIFY(_log.isEmpty());
}

void QTeskelFileSelectorTest::pressingAloneDoesNotChoose()
{
    QTest::mousePress(_panel->view()->viewport(), Qt::LeftButton, {}, rowPosition(1));
    _panel->filePressed(1, _panel->view()->topLevelItem(1), QPoint(), 0);
    QVERIFY(_log.isEmpty());
    QTest::mouseRelease(_panel->view()->viewport(), Qt::LeftButton, {}, QPoint(-5, -5));
    QVERIFY(_log.isEmpty());
}

void QTeskelFileSelectorTest::removableMediaMovesTheMarkAndEmptiesTheList()
{
    QTeskelSelectorMenu* menu = _panel->menu();
    menu->actions().at(1)->trigger();
    QVERIFY(!menu->actions().at(0)->isChecked());
    QVERIFY(menu->actions().at(1)->isChecked());
    QCOMPARE(_panel->view()->topLevelItemCount(), 0);
    QCOMPARE(_panel->view()->getMediaFilter(), MediaFilter::RemovableMedia);
    _panel->view()->append(_storage->internalDirectory());
    QCOMPARE(_panel->view()->topLevelItemCount(), 3);
}

void QTeskelFileSelectorTest::closeButtonAsksToBeClosed()
{
    QTest::mouseClick(_panel->findChild<QToolButton*>(), Qt::LeftButton);
    QCOMPARE(_log, QStringList{u"close"_s});
}

void QTeskelFileSelectorTest::closeButtonStandsInTheUpperOuterCorner()
{
    const auto place = [this](const QWidget* widget) {
        return QStyle::visualRect(_panel->layoutDirection(), _panel->rect(),
                                  QRect(widget->mapTo(_panel.get(), QPoint()), widget->size()));
    };
    const QRect button = place(_panel->findChild<QToolButton*>());
    const QRect menu = place(_panel->findChild<QPEMenuBar*>());
    QCOMPARE(button.right(), _panel->rect().right());
    QCOMPARE(menu.left(), 0);
    QVERIFY(menu.right() < button.left());
    QVERIFY(std::max(menu.bottom(), button.bottom()) < place(_panel->view()).top());
}

void QTeskelFileSelectorTest::keysReachTheMenuAndThenTheCloseButton()
{
    _panel->view()->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(_panel.get()));
    QTest::keyClick(_panel->view(), Qt::Key_F10);
    QCOMPARE(QApplication::focusWidget(), _panel->findChild<QPEMenuBar*>());
    const auto forward = _panel->isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
    QTest::keyClick(QApplication::focusWidget(), forward);
    QCOMPARE(QApplication::focusWidget(), _panel->findChild<QToolButton*>());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(_log, QStringList{u"close"_s});
    QCOMPARE(QApplication::focusWidget(), _panel->view());
}

void QTeskelFileSelectorTest::selectedIsThePathOfTheCurrentItem()
{
    _panel->view()->setCurrentItem(_panel->view()->topLevelItem(0));
    QCOMPARE(_panel->selected(), file("A.PDB"));
    _panel->view()->setCurrentItem(nullptr);
    QVERIFY(_panel->selected().isEmpty());
}

void QTeskelFileSelectorTest::rereadEmptiesTheList()
{
    _panel->view()->setCurrentItem(_panel->view()->topLevelItem(0));
    _panel->reread();
    QCOMPARE(_panel->view()->topLevelItemCount(), 0);
    QVERIFY(_panel->selected().isEmpty());
}

void QTeskelFileSelectorTest::receiverMayDeleteThePanel_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("click") << 0;
    QTest::newRow("Return") << static_cast<int>(Qt::Key_Return);
    QTest::newRow("Space") << static_cast<int>(Qt::Key_Space);
}

void QTeskelFileSelectorTest::receiverMayDeleteThePanel()
{
    QFETCH(const int, key);
    const QString wanted = file("A.PDB");
    connect(_panel.get(), &QTeskelFileSelector::fileSelected, this, [this] { _panel.reset(); });
    _panel->view()->setCurrentItem(_panel->view()->topLevelItem(0));
    if (key == 0)
        QTest::mouseClick(_panel->view()->viewport(), Qt::LeftButton, {}, rowPosition(0));
    else
        QTest::keyPress(_panel->view(), static_cast<Qt::Key>(key));
    QVERIFY(_panel == nullptr);
    QCOMPARE(_log, QStringList{wanted});
}

QTEST_MAIN(QTeskelFileSelectorTest)
#include "test_qteskelfileselector.moc"
