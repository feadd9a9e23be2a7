// SPDX-License-Identifier: MIT
#include "widgets/listbox/qteskellistbox.h"
#include "widgets/qteskelcombobox.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace
{
/// Notes the keys that it is given and leaves them unaccepted.
class KeySink : public QWidget
{
public:
    using QWidget::QWidget;
    QStringList keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { note(event, u'+'); }
    void keyReleaseEvent(QKeyEvent* event) override { note(event, u'-'); }

private:
    void note(QKeyEvent* event, QChar kind)
    {
        keys << kind + QKeySequence(event->key()).toString();
        event->ignore();
    }
};

/// Counts how often a widget is painted.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
    int paints = 0;
};

/// The combo box's items and what it emits.
struct Combo {
    explicit Combo(const QStringList& items = {}, QWidget* redirector = nullptr)
        : combo(redirector, nullptr, "entry")
    {
        combo.addItems(items);
        combo.show();
        QObject::connect(&combo, &QTeskelComboBox::textChanged, &combo,
                         [this](const QString& text) { log << u"text "_s + text; });
        QObject::connect(&combo, &QComboBox::activated, &combo,
                         [this](int index) { log << u"activated %1"_s.arg(index); });
        QObject::connect(&combo, &QComboBox::textActivated, &combo,
                         [this](const QString& text) { log << u"activated "_s + text; });
        QObject::connect(&combo, &QComboBox::currentIndexChanged, &combo,
                         [this](int index) { indexes << index; });
    }
    QString items() const
    {
        QStringList all;
        for (int index = 0; index < combo.count(); ++index)
            all << combo.text(index);
        return all.join(u' ');
    }
    QTeskelComboBox combo;
    QStringList log;
    QList<int> indexes;
};

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

constexpr int redirected[] = {Qt::Key_Home, Qt::Key_End,    Qt::Key_Up,
                              Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown};
} // namespace

class TestComboBox : public QObject
{
    Q_OBJECT

private slots:
    void standardProperties();
    void slotAndSignal();
    void navigationKeysGoToTheRedirector_data();
    void navigationKeysGoToTheRedirector();
    void ignoredKeysReachTheParentOnlyOnce();
    void upMovesTheListAndNotTheCombo();
    void keysWithoutRedirectorAreDropped_data();
    void keysWithoutRedirectorAreDropped();
    void keysAfterTheRedirectorDiedDoNothing();
    void otherKeysStay();
    void leftAndRightMoveTheCaret();
    void nothingIsCompleted();
    void typingEmitsTextChanged();
    void releaseOfALetterPaintsNothing();
    void releaseOfALetterGoesOnToTheParent();
    void historyInsertion_data();
    void historyInsertion();
    void historyInsertionLeavesTheEntryAlone_data();
    void historyInsertionLeavesTheEntryAlone();
    void historyInsertionIntoAnEmptyCombo();
    void returnRules_data();
    void returnRules();
    void returnOnEmptyTextBringsTheCurrentItemBack();
    void returnOnEmptyHistory();
    void losingFocusChoosesNothing();
    void wheelChoosesNothing();
    void firstItemIsShown();
};

void TestComboBox::standardProperties()
{
    QWidget parent;
    QTeskelComboBox combo(nullptr, &parent, "entry");
    QCOMPARE(combo.objectName(), u"entry"_s);
    QCOMPARE(combo.parentWidget(), &parent);
    QVERIFY(combo.isEditable());
    QCOMPARE(combo.completer(), nullptr);
    QCOMPARE(combo.maxCount(), 6);
    QCOMPARE(combo.insertPolicy(), QComboBox::InsertAtTop);
    QVERIFY(combo.text(0).isEmpty());
}

void TestComboBox::slotAndSignal()
{
    const auto& meta = QTeskelComboBox::staticMetaObject;
    QVERIFY(meta.indexOfSlot("redirectorDestroyed()") >= meta.methodOffset());
    QVERIFY(meta.indexOfSignal("textChanged(QString)") >= meta.methodOffset());
}

void TestComboBox::navigationKeysGoToTheRedirector_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    for (const int key : redirected) {
        const QByteArray name = QKeySequence(key).toString().toLatin1();
        QTest::addRow("%s", name.constData()) << key << Qt::KeyboardModifiers();
        QTest::addRow("Alt+%s", name.constData()) << key << Qt::KeyboardModifiers(Qt::AltModifier);
        QTest::addRow("keypad %s", name.constData())
            << key << Qt::KeyboardModifiers(Qt::KeypadModifier);
    }
}

void TestComboBox::navigationKeysGoToTheRedirector()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    KeySink sink;
    Combo c(words("one two three"), &sink);
    QTest::keyClick(&c.combo, Qt::Key(key), modifiers);
    const QString name = QKeySequence(key).toString();
    QCOMPARE(sink.keys, (QStringList{u'+' + name, u'-' + name}));
    QCOMPARE(c.log, QStringList());
    QCOMPARE(c.combo.currentIndex(), 0);
    QVERIFY(!c.combo.view()->isVisible());
    QCOMPARE(c.combo.lineEdit()->cursorPosition(), 3);
}

void TestComboBox::ignoredKeysReachTheParentOnlyOnce()
{
    KeySink window;
    auto* list = new QWidget(&window);
    auto* combo = new QTeskelComboBox(list, &window);
    QTest::keyPress(combo, Qt::Key_Down);
    QCOMPARE(window.keys, QStringList{u"+Down"_s});
}

void TestComboBox::upMovesTheListAndNotTheCombo()
{
    QTeskelListBox list;
    list.insertStringList(words("a b c"));
    list.setCurrentItem(2);
    Combo c(words("one two three"), &list);
    c.combo.setCurrentIndex(1);
    c.log.clear();
    QTest::keyClick(&c.combo, Qt::Key_Up);
    QCOMPARE(list.currentItem(), 1);
    QCOMPARE(c.combo.currentIndex(), 1);
    QCOMPARE(c.combo.currentText(), u"two"_s);
    QVERIFY(!c.combo.view()->isVisible());
    QCOMPARE(c.log, QStringList());
}

void TestComboBox::keysWithoutRedirectorAreDropped_data()
{
    QTest::addColumn<int>("key");
    for (const int key : redirected)
        QTest::addRow("%s", QKeySequence(key).toString().toLatin1().constData()) << key;
}

void TestComboBox::keysWithoutRedirectorAreDropped()
{
    QFETCH(int, key);
    Combo c(words("one two three"));
    c.combo.lineEdit()->setCursorPosition(1);
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&c.combo, &event);
        QVERIFY(event.isAccepted());
    }
    QCOMPARE(c.combo.currentIndex(), 0);
    QCOMPARE(c.combo.lineEdit()->cursorPosition(), 1);
    QCOMPARE(c.log, QStringList());
}

void TestComboBox::keysAfterTheRedirectorDiedDoNothing()
{
    auto sink = std::make_unique<KeySink>();
    Combo c(words("one two three"), sink.get());
    sink.reset();
    c.combo.lineEdit()->setCursorPosition(1);
    for (const int key : redirected) {
        QTest::keyClick(&c.combo, Qt::Key(key));
        QCOMPARE(c.combo.lineEdit()->cursorPosition(), 1);
    }
    QCOMPARE(c.combo.currentIndex(), 0);
    QCOMPARE(c.combo.currentText(), u"one"_s);
    QVERIFY(!c.combo.view()->isVisible());
    QCOMPARE(c.log, QStringList());
}

void TestComboBox::otherKeysStay()
{
    KeySink sink;
    Combo c({}, &sink);
    QTest::keyClicks(&c.combo, u"ab"_s);
    QCOMPARE(c.combo.currentText(), u"ab"_s);
    QCOMPARE(sink.keys, QStringList());
}

void TestComboBox::leftAndRightMoveTheCaret()
{
    KeySink sink;
    Combo c(words("word"), &sink);
    c.combo.lineEdit()->setCursorPosition(2);
    QTest::keyClick(&c.combo, Qt::Key_Left);
    QCOMPARE(c.combo.lineEdit()->cursorPosition(), 1);
    QTest::keyClick(&c.combo, Qt::Key_Right);
    QCOMPARE(c.combo.lineEdit()->cursorPosition(), 2);
    QCOMPARE(sink.keys, QStringList());
}

void TestComboBox::nothingIsCompleted()
{
    Combo c(words("household"));
    c.combo.lineEdit()->clear();
    c.log.clear();
    QTest::keyClicks(&c.combo, u"house"_s);
    QCOMPARE(c.combo.currentText(), u"house"_s);
    QCOMPARE(c.log.last(), u"text house"_s);
}

void TestComboBox::typingEmitsTextChanged()
{
    Combo c;
    QTest::keyClicks(&c.combo, u"ab"_s);
    c.combo.lineEdit()->setText(u"set"_s);
    c.combo.lineEdit()->setText(u"set"_s);
    QCOMPARE(c.log, (QStringList{u"text a"_s, u"text ab"_s, u"text set"_s}));
}

void TestComboBox::releaseOfALetterPaintsNothing()
{
    Combo c;
    c.combo.activateWindow();
    c.combo.setFocus();
    QTRY_VERIFY(c.combo.hasFocus());
    PaintCount entry(c.combo.lineEdit());
    QTest::keyPress(&c.combo, Qt::Key_A, Qt::NoModifier);
    QTRY_VERIFY(entry.paints > 0);
    QCOMPARE(c.combo.currentText(), u"a"_s);
    QCoreApplication::processEvents();
    entry.paints = 0;
    QTest::keyRelease(&c.combo, Qt::Key_A, Qt::NoModifier);
    QCoreApplication::processEvents();
    QCOMPARE(entry.paints, 0);
}

void TestComboBox::releaseOfALetterGoesOnToTheParent()
{
    KeySink parent;
    QTeskelComboBox combo(nullptr, &parent);
    QTest::keyRelease(&combo, Qt::Key_A);
    QCOMPARE(parent.keys, QStringList{u"-A"_s});
}

void TestComboBox::historyInsertion_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addRow("empty") << QString() << u"new"_s;
    QTest::addRow("one") << u"a"_s << u"new a"_s;
    QTest::addRow("five") << u"a b c d e"_s << u"new a b c d e"_s;
    QTest::addRow("six") << u"a b c d e f"_s << u"new a b c d e"_s;
}

void TestComboBox::historyInsertion()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    Combo c(before.split(u' ', Qt::SkipEmptyParts));
    c.combo.insertHistoryItem(u"new"_s);
    QCOMPARE(c.items(), after);
    QCOMPARE(c.combo.currentIndex(), 0);
    QVERIFY(!c.combo.signalsBlocked() && !c.combo.lineEdit()->signalsBlocked());
}

void TestComboBox::historyInsertionLeavesTheEntryAlone_data()
{
    QTest::addColumn<int>("items");
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    for (const int items : {1, 5, 6}) {
        for (const int current : {0, items - 1}) {
            QTest::addRow("%d items, %d current, caret", items, current)
                << items << current << 2 << 0;
            QTest::addRow("%d items, %d current, selection", items, current)
                << items << current << 1 << 2;
            QTest::addRow("%d items, %d current, backward selection", items, current)
                << items << current << 3 << -2;
        }
    }
}

void TestComboBox::historyInsertionLeavesTheEntryAlone()
{
    QFETCH(int, items);
    QFETCH(int, current);
    QFETCH(int, start);
    QFETCH(int, length);
    Combo c(words("a b c d e f").mid(0, items));
    c.combo.setCurrentIndex(current);
    QLineEdit* edit = c.combo.lineEdit();
    edit->setText(u"typed"_s);
    edit->setSelection(start, length);
    c.log.clear();
    c.indexes.clear();
    c.combo.insertHistoryItem(u"new"_s);
    QCOMPARE(edit->text(), u"typed"_s);
    QCOMPARE(edit->cursorPosition(), start + length);
    QCOMPARE(edit->selectedText(), length == 0 ? QString() : u"yp"_s);
    QCOMPARE(c.log, QStringList());
    QCOMPARE(c.indexes, QList<int>());
}

void TestComboBox::historyInsertionIntoAnEmptyCombo()
{
    Combo c;
    c.combo.insertHistoryItem(u"new"_s);
    QVERIFY(c.combo.currentText().isEmpty());
    QCOMPARE(c.log, QStringList());
}

void TestComboBox::returnRules_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("activated");
    QTest::addRow("new text") << u"a b"_s << u"new"_s << u"new a b"_s << 0;
    QTest::addRow("new text in an empty list") << QString() << u"new"_s << u"new"_s << 0;
    QTest::addRow("new text at six items")
        << u"a b c d e f"_s << u"new"_s << u"new a b c d e"_s << 0;
    QTest::addRow("known text") << u"a b c"_s << u"c"_s << u"a b c"_s << 2;
    QTest::addRow("known text at six items") << u"a b c d e f"_s << u"f"_s << u"a b c d e f"_s << 5;
    QTest::addRow("another case is another text") << u"a b"_s << u"B"_s << u"B a b"_s << 0;
}

void TestComboBox::returnRules()
{
    QFETCH(QString, before);
    QFETCH(QString, typed);
    QFETCH(QString, after);
    QFETCH(int, activated);
    Combo c(before.split(u' ', Qt::SkipEmptyParts));
    c.combo.lineEdit()->setText(typed);
    c.log.clear();
    QTest::keyClick(&c.combo, Qt::Key_Return);
    QCOMPARE(c.items(), after);
    QCOMPARE(c.combo.currentIndex(), activated);
    QCOMPARE(c.combo.currentText(), typed);
    QCOMPARE(c.log, (QStringList{u"activated %1"_s.arg(activated), u"activated "_s + typed}));
}

void TestComboBox::returnOnEmptyTextBringsTheCurrentItemBack()
{
    Combo c(words("one two"));
    c.combo.setCurrentIndex(1);
    c.combo.lineEdit()->clear();
    c.log.clear();
    QTest::keyClick(&c.combo, Qt::Key_Return);
    QCOMPARE(c.combo.currentText(), u"two"_s);
    QCOMPARE(c.combo.lineEdit()->selectedText(), u"two"_s);
    QCOMPARE(c.log, QStringList());
    QCOMPARE(c.items(), u"one two"_s);
}

void TestComboBox::returnOnEmptyHistory()
{
    Combo c;
    QTest::keyClick(&c.combo, Qt::Key_Return);
    QCOMPARE(c.log, QStringList());
    QCOMPARE(c.combo.count(), 0);
}

void TestComboBox::losingFocusChoosesNothing()
{
    Combo c(words("one two"));
    QWidget other;
    other.setFocusPolicy(Qt::StrongFocus);
    other.show();
    c.combo.activateWindow();
    c.combo.setFocus();
    QTRY_VERIFY(c.combo.hasFocus());
    c.combo.lineEdit()->setText(u"two"_s);
    c.log.clear();
    QSignalSpy finished(c.combo.lineEdit(), &QLineEdit::editingFinished);
    c.combo.clearFocus();
    QTRY_VERIFY(!c.combo.hasFocus());
    QCOMPARE(finished.count(), 1);
    QCOMPARE(c.combo.currentIndex(), 0);
    QCOMPARE(c.log, QStringList());
}

void TestComboBox::wheelChoosesNothing()
{
    Combo c(words("one two three"));
    QWheelEvent wheel(QPointF(5, 5), c.combo.mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&c.combo, &wheel);
    QVERIFY(!wheel.isAccepted());
    QCOMPARE(c.combo.currentIndex(), 0);
    QCOMPARE(c.log, QStringList());
}

void TestComboBox::firstItemIsShown()
{
    Combo c(words("one two"));
    QCOMPARE(c.combo.currentText(), u"one"_s);
}

QTEST_MAIN(TestComboBox)
#include "test_combobox.moc"
