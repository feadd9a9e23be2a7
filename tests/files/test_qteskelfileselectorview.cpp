// SPDX-License-Identifier: MIT
#include "files/dictionarylistitem.h"
#include "files/qteskelfileselectorview.h"
#include "platform/qcopchannel.h"
#include "tests/files/stagedstorage.h"

#include <QFile>
#include <QHeaderView>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

QStringList texts(const QTeskelFileSelectorView& view)
{
    QStringList list;
    for (int row = 0; row < view.topLevelItemCount(); ++row)
        list.append(view.topLevelItem(row)->text(0));
    return list;
}

/// Records the keys that a child leaves to it.
class KeyParent : public QWidget
{
public:
    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys.append(event->key()); }
};

} // namespace

/// The selector's list over staged directories.
class QTeskelFileSelectorViewTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsEmptyWithOneHiddenColumn();
    void appendAddsEveryEntrySortedByName();
    void appendOfAMissingDirectoryAddsNothing();
    void linksAreNotFiltered();
    void hostileNameIsShownAsItIs();
    void rereadEmptiesTheList();
    void settingTheFilterEmptiesTheList();
    void cardMessageEmptiesTheList();
    void otherMessagesAreIgnored_data();
    void otherMessagesAreIgnored();
    void spaceAndReturnChooseTheCurrentItem_data();
    void spaceAndReturnChooseTheCurrentItem();
    void spaceWithoutACurrentItemReportsNone();
    void lettersTravelToTheParent_data();
    void lettersTravelToTheParent();
    void searchingByLettersDoesNothing();
    void cursorKeysMoveInTheList();
    void everyMouseButtonIsReported_data();
    void everyMouseButtonIsReported();
    void releaseElsewhereIsNoClick();
    void clickBesideTheItemsReportsNone();
    void clickBesideTheTextMeetsTheItem();
    void listEmptiedUnderThePointerReportsNoItem();
    void receiverMayDeleteTheView();

private:
    QPoint rowPosition(int row) const;

    std::unique_ptr<StagedStorage> _storage;
    std::unique_ptr<KeyParent> _parent;
    QTeskelFileSelectorView* _view = nullptr;
};

void QTeskelFileSelectorViewTest::init()
{
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s));
    _storage = std::make_unique<StagedStorage>();
    for (const char* name : {"b.PDB", "A.PDB", "c.old.PDB"})
        StagedStorage::addFile(_storage->internalDirectory(), QString::fromUtf8(name));
    _parent = std::make_unique<KeyParent>();
    auto* layout = new QVBoxLayout(_parent.get());
    _view = new QTeskelFileSelectorView(_parent.get(), "fileview");
    layout->addWidget(_view);
    _view->append(_storage->internalDirectory());
    _parent->resize(200, 200);
    _parent->show();
    QVERIFY(QTest::qWaitForWindowExposed(_parent.get()));
}

void QTeskelFileSelectorViewTest::cleanup()
{
    _parent.reset();
    _storage.reset();
}

QPoint QTeskelFileSelectorViewTest::rowPosition(int row) const
{
    return _view->visualItemRect(_view->topLevelItem(row)).center();
}

void QTeskelFileSelectorViewTest::startsEmptyWithOneHiddenColumn()
{
    const QTeskelFileSelectorView view(nullptr, "fileview");
    QCOMPARE(view.objectName(), u"fileview"_s);
    QCOMPARE(view.topLevelItemCount(), 0);
    QCOMPARE(view.columnCount(), 1);
    QCOMPARE(view.headerItem()->text(0), u"Name"_s);
    QVERIFY(view.isHeaderHidden());
    QVERIFY(view.allColumnsShowFocus());
    QCOMPARE(view.fileCount(), 0);
    QCOMPARE(view.getMediaFilter(), MediaFilter::AllFiles);
}

void QTeskelFileSelectorViewTest::appendAddsEveryEntrySortedByName()
{
    StagedStorage::addFile(_storage->addCard(u"card"_s), u"aa.PDB"_s);
    _view->append(_storage->path(u"card/QtPalmtop/teskel"_s));
    QCOMPARE(texts(*_view), (QStringList{u"A"_s, u"aa"_s, u"b"_s, u"c"_s}));
    const auto* item = dynamic_cast<DictionaryListItem*>(_view->topLevelItem(3));
    QVERIFY(item != nullptr);
    QCOMPARE(item->url(), _storage->internalDirectory() + u"/c.old.PDB"_s);
    QCOMPARE(_view->fileCount(), 0);
}

void QTeskelFileSelectorViewTest::appendOfAMissingDirectoryAddsNothing()
{
    _view->append(u"/nowhere/at all"_s);
    QCOMPARE(_view->topLevelItemCount(), 3);
}

void QTeskelFileSelectorViewTest::linksAreNotFiltered()
{
    QVERIFY(QFile::link(_storage->internalDirectory() + u"/b.PDB"_s,
                        _storage->internalDirectory() + u"/link.PDB"_s));
    _view->reread();
    _view->append(_storage->internalDirectory());
    QCOMPARE(texts(*_view).last(), u"link"_s);
}

void QTeskelFileSelectorViewTest::hostileNameIsShownAsItIs()
{
    StagedStorage::addFile(_storage->internalDirectory(), u"<b>x&y.PDB"_s);
    _view->reread();
    _view->append(_storage->internalDirectory());
    QCOMPARE(texts(*_view).first(), u"<b>x&y"_s);
}

void QTeskelFileSelectorViewTest::rereadEmptiesTheList()
{
    _view->reread();
    QCOMPARE(_view->topLevelItemCount(), 0);
    QVERIFY(_view->currentItem() == nullptr);
}

void QTeskelFileSelectorViewTest::settingTheFilterEmptiesTheList()
{
    _view->setMediaFilter(MediaFilter::RemovableMedia);
    QCOMPARE(_view->topLevelItemCount(), 0);
    QCOMPARE(_view->getMediaFilter(), MediaFilter::RemovableMedia);
}

void QTeskelFileSelectorViewTest::cardMessageEmptiesTheList()
{
    QVERIFY(QCopChannel::send("QPE/Card", "mtabChanged()"));
    QTRY_COMPARE(_view->topLevelItemCount(), 0);
}

void QTeskelFileSelectorViewTest::otherMessagesAreIgnored_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("null") << QByteArray();
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("other case") << QByteArray("MtabChanged()");
    QTest::newRow("longer") << QByteArray("mtabChanged()x");
    QTest::newRow("followed by zero") << QByteArray("mtabChanged()\0x", 15);
    QTest::newRow("shorter") << QByteArray("mtabChanged(");
}

void QTeskelFileSelectorViewTest::otherMessagesAreIgnored()
{
    QFETCH(const QByteArray, message);
    _view->cardMessage(message, "mtabChanged()");
    QCOMPARE(_view->topLevelItemCount(), 3);
}

void QTeskelFileSelectorViewTest::spaceAndReturnChooseTheCurrentItem_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("consumed");
    QTest::newRow("Space") << static_cast<int>(Qt::Key_Space) << true;
    QTest::newRow("Return") << static_cast<int>(Qt::Key_Return) << false;
    QTest::newRow("Enter") << static_cast<int>(Qt::Key_Enter) << false;
}

void QTeskelFileSelectorViewTest::spaceAndReturnChooseTheCurrentItem()
{
    QFETCH(const int, key);
    QFETCH(const bool, consumed);
    _view->setCurrentItem(_view->topLevelItem(1));
    const QSignalSpy chosen(_view, &QTeskelFileSelectorView::returnPressed);
    QTest::keyClick(_view, static_cast<Qt::Key>(key));
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen.first().first().value<QTreeWidgetItem*>(), _view->topLevelItem(1));
    QCOMPARE(_parent->keys.isEmpty(), consumed);
}

void QTeskelFileSelectorViewTest::spaceWithoutACurrentItemReportsNone()
{
    _view->setCurrentItem(nullptr);
    const QSignalSpy chosen(_view, &QTeskelFileSelectorView::returnPressed);
    QTest::keyClick(_view, Qt::Key_Space);
    QCOMPARE(chosen.count(), 1);
    QVERIFY(chosen.first().first().value<QTreeWidgetItem*>() == nullptr);
}

void QTeskelFileSelectorViewTest::lettersTravelToTheParent_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("letter") << static_cast<int>(Qt::Key_C) << u"c"_s;
    QTest::newRow("exclamation mark") << static_cast<int>(Qt::Key_Exclam) << u"!"_s;
    QTest::newRow("asterisk") << static_cast<int>(Qt::Key_Asterisk) << u"*"_s;
    QTest::newRow("umlaut") << static_cast<int>(Qt::Key_Adiaeresis) << u"ä"_s;
    QTest::newRow("without a code") << 0 << u"ж"_s;
}

void QTeskelFileSelectorViewTest::lettersTravelToTheParent()
{
    QFETCH(const int, key);
    QFETCH(const QString, text);
    _view->setCurrentItem(_view->topLevelItem(0));
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(_view, &press);
    QCOMPARE(_parent->keys, QList<int>{key});
    QVERIFY(_view->currentItem() == _view->topLevelItem(0));
}

void QTeskelFileSelectorViewTest::searchingByLettersDoesNothing()
{
    _view->setCurrentItem(_view->topLevelItem(0));
    _view->keyboardSearch(u"c"_s);
    QVERIFY(_view->currentItem() == _view->topLevelItem(0));
}

void QTeskelFileSelectorViewTest::cursorKeysMoveInTheList()
{
    _view->setCurrentItem(_view->topLevelItem(0));
    QTest::keyClick(_view, Qt::Key_Down);
    QVERIFY(_view->currentItem() == _view->topLevelItem(1));
    QTest::keyClick(_view, Qt::Key_End);
    QVERIFY(_view->currentItem() == _view->topLevelItem(2));
    QTest::keyClick(_view, Qt::Key_Home);
    QVERIFY(_view->currentItem() == _view->topLevelItem(0));
    QVERIFY(_parent->keys.isEmpty());
}

void QTeskelFileSelectorViewTest::everyMouseButtonIsReported_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left") << 1;
    QTest::newRow("right") << 2;
    QTest::newRow("middle") << 4;
}

void QTeskelFileSelectorViewTest::everyMouseButtonIsReported()
{
    QFETCH(const int, button);
    const QSignalSpy pressed(_view, &QTeskelFileSelectorView::mouseButtonPressed);
    const QSignalSpy clicked(_view, &QTeskelFileSelectorView::mouseButtonClicked);
    QTest::mouseClick(_view->viewport(), static_cast<Qt::MouseButton>(button), {}, rowPosition(1));
    const QPoint where = _view->viewport()->mapToGlobal(rowPosition(1));
    for (const QSignalSpy* spy : {&pressed, &clicked}) {
        QCOMPARE(spy->count(), 1);
        QCOMPARE(spy->first().at(0).toInt(), button);
        QCOMPARE(spy->first().at(1).value<QTreeWidgetItem*>(), _view->topLevelItem(1));
        QCOMPARE(spy->first().at(2).toPoint(), where);
        QCOMPARE(spy->first().at(3).toInt(), 0);
    }
}

void QTeskelFileSelectorViewTest::releaseElsewhereIsNoClick()
{
    const QSignalSpy clicked(_view, &QTeskelFileSelectorView::mouseButtonClicked);
    QTest::mousePress(_view->viewport(), Qt::LeftButton, {}, rowPosition(0));
    QTest::mouseRelease(_view->viewport(), Qt::LeftButton, {}, rowPosition(2));
    QTest::mousePress(_view->viewport(), Qt::LeftButton, {}, rowPosition(0));
    QTest::mouseRelease(_view->viewport(), Qt::LeftButton, {}, QPoint(-1, -1));
    QTest::mouseRelease(_view->viewport(), Qt::LeftButton, {}, rowPosition(0));
    QCOMPARE(clicked.count(), 0);
}

void QTeskelFileSelectorViewTest::clickBesideTheItemsReportsNone()
{
    const QSignalSpy clicked(_view, &QTeskelFileSelectorView::mouseButtonClicked);
    QTest::mouseClick(_view->viewport(), Qt::LeftButton, {},
                      _view->viewport()->rect().bottomRight());
    QCOMPARE(clicked.count(), 1);
    QVERIFY(clicked.first().at(1).value<QTreeWidgetItem*>() == nullptr);
    QCOMPARE(clicked.first().at(3).toInt(), -1);
}

void QTeskelFileSelectorViewTest::clickBesideTheTextMeetsTheItem()
{
    _parent->resize(400, 200);
    QTRY_VERIFY(_view->viewport()->width() > 300);
    const QPoint right(_view->viewport()->width() - 2, rowPosition(1).y());
    QTRY_VERIFY(_view->itemAt(right) == _view->topLevelItem(1));
}

void QTeskelFileSelectorViewTest::listEmptiedUnderThePointerReportsNoItem()
{
    const QSignalSpy clicked(_view, &QTeskelFileSelectorView::mouseButtonClicked);
    const QPoint place = rowPosition(0);
    QTest::mousePress(_view->viewport(), Qt::LeftButton, {}, place);
    _view->reread();
    _view->append(_storage->internalDirectory());
    QTest::mouseRelease(_view->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(clicked.count(), 0);
}

void QTeskelFileSelectorViewTest::receiverMayDeleteTheView()
{
    const auto deleteView = [this] { delete std::exchange(_view, nullptr); };
    connect(_view, &QTeskelFileSelectorView::mouseButtonClicked, this, deleteView);
    QTest::mouseClick(_view->viewport(), Qt::LeftButton, {}, rowPosition(0));
    QVERIFY(_view == nullptr);

    _view = new QTeskelFileSelectorView(_parent.get(), "fileview");
    _view->append(_storage->internalDirectory());
    _view->setCurrentItem(_view->topLevelItem(0));
    connect(_view, &QTeskelFileSelectorView::returnPressed, this, deleteView);
    QTest::keyPress(_view, Qt::Key_Return);
    QVERIFY(_view == nullptr);
}

QTEST_MAIN(QTeskelFileSelectorViewTest)
#include "test_qteskelfileselectorview.moc"
