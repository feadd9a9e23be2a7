// SPDX-License-Identifier: MIT
#include "tests/widgets/plainitem.h"
#include "widgets/listbox/listboxmodel.h"

#include <QTest>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

using teskel::ListBoxModel;
using teskel::test::PlainItem;

namespace
{
/// A model without a window, and the owner of its items.
struct Fixture {
    ListBoxModel model{nullptr};
    std::vector<std::unique_ptr<PlainItem>> items;

    PlainItem* add(const char* text, int index = -1)
    {
        items.push_back(std::make_unique<PlainItem>(QString::fromLatin1(text)));
        model.insert(items.back().get(), index);
        return items.back().get();
    }
    QString texts() const
    {
        QStringList all;
        for (int index = 0; index < model.count(); ++index)
            all << model.item(index)->text();
        return all.join(u' ');
    }
};
} // namespace

class TestListBoxModel : public QObject
{
    Q_OBJECT

private slots:
    void insertsAtAnyPlace();
    void indexesFollowChanges();
    void foreignItemsHaveNoIndex();
    void sortsStably();
    void findsBeginningsInAnyCase();
    void sortedIndexIsBehindEqualTexts();
    void watchNoticesWhatWasRemoved();
    void watchOutlivesTheModel();
    void watchStopsWhenItsItemGoes();
};

void TestListBoxModel::insertsAtAnyPlace()
{
    Fixture f;
    f.add("b");
    f.add("c", 99);
    f.add("a", 0);
    f.add("d", -1);
    QCOMPARE(f.texts(), u"a b c d"_s);
    QCOMPARE(f.model.item(4), nullptr);
    QCOMPARE(f.model.item(-1), nullptr);
}

void TestListBoxModel::indexesFollowChanges()
{
    Fixture f;
    PlainItem* a = f.add("a");
    PlainItem* b = f.add("b");
    PlainItem* c = f.add("c");
    f.add("x", 0);
    QCOMPARE(f.model.index(c), 3);
    QVERIFY(f.model.take(a));
    QVERIFY(!f.model.take(a));
    QCOMPARE(f.model.index(a), -1);
    QCOMPARE(f.model.index(b), 1);
    QCOMPARE(f.model.index(c), 2);
}

void TestListBoxModel::foreignItemsHaveNoIndex()
{
    Fixture f;
    Fixture other;
    f.add("a");
    QCOMPARE(f.model.index(other.add("a")), -1);
    QCOMPARE(f.model.index(nullptr), -1);
    PlainItem loose;
    QCOMPARE(f.model.index(&loose), -1);
}

void TestListBoxModel::sortsStably()
{
    Fixture f;
    PlainItem* first = f.add("b");
    f.add("a");
    PlainItem* second = f.add("b");
    f.model.sort(true);
    QCOMPARE(f.texts(), u"a b b"_s);
    QVERIFY(f.model.index(first) < f.model.index(second));
    f.model.sort(false);
    QCOMPARE(f.texts(), u"b b a"_s);
    QVERIFY(f.model.index(first) < f.model.index(second));
}

void TestListBoxModel::findsBeginningsInAnyCase()
{
    Fixture f;
    f.add("Hound");
    PlainItem* house = f.add("House");
    f.add("household");
    QCOMPARE(f.model.findPrefix(u"hous"_s), house);
    QCOMPARE(f.model.findPrefix(u"x"_s), nullptr);
    QCOMPARE(f.model.findPrefix(QString()), nullptr);
}

void TestListBoxModel::sortedIndexIsBehindEqualTexts()
{
    Fixture f;
    f.add("a");
    f.add("b");
    f.add("c");
    QCOMPARE(f.model.sortedIndex(u"b"_s), 2);
    QCOMPARE(f.model.sortedIndex(u""_s), 0);
    QCOMPARE(f.model.sortedIndex(u"z"_s), 3);
}

void TestListBoxModel::watchNoticesWhatWasRemoved()
{
    Fixture f;
    PlainItem* a = f.add("a");
    const auto onA = f.model.watch(a);
    const auto onB = f.model.watch(f.add("b"));
    const auto onAll = f.model.watch();
    f.model.take(a);
    QVERIFY(!onA.isAlive());
    QVERIFY(onB.isAlive() && onAll.isAlive());
}

void TestListBoxModel::watchOutlivesTheModel()
{
    PlainItem item;
    auto model = std::make_unique<ListBoxModel>(nullptr);
    model->insert(&item, -1);
    const auto onItem = model->watch(&item);
    const auto onAll = model->watch();
    model->take(&item);
    model.reset();
    QVERIFY(!onItem.isAlive());
    QVERIFY(!onAll.isAlive());
}

void TestListBoxModel::watchStopsWhenItsItemGoes()
{
    Fixture f;
    PlainItem* a = f.add("a");
    QStringList called;
    const auto first = [&] { called << u"first"_s; };
    const auto removing = [&] { f.model.take(a); };
    const auto last = [&] { called << u"last"_s; };
    QVERIFY(f.model.watch(a).run(first, last));
    QCOMPARE(called, (QStringList{u"first"_s, u"last"_s}));
    called.clear();
    QVERIFY(!f.model.watch(a).run(first, removing, last));
    QCOMPARE(called, QStringList{u"first"_s});
}

QTEST_APPLESS_MAIN(TestListBoxModel)
#include "test_listboxmodel.moc"
