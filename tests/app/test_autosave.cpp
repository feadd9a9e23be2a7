// SPDX-License-Identifier: MIT
#include "app/teskelmainwindow.h"
#include "platform/configtext.h"
#include "tests/support/dictionarywriter.h"
#include "tests/support/replacementcount.h"
#include "widgets/qteskelcombobox.h"

#include <QDir>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

using teskel::test::DictionaryWriter;
using teskel::test::ReplacementCount;

/// What a window that never gets to its end leaves in the settings file.
class AutosaveTest : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void openedFileIsStoredWhileTheWindowLives();
    void lookedUpWordIsStoredWhileTheWindowLives();
    void toggledViewIsStoredWhileTheWindowLives();
    void typingIsNotStoredKeyByKey();

private:
    QString path() const { return _home->filePath(u"teskel/Letters.PDB"_s); }
    QString settings() const { return _home->filePath(u"config/teskel"_s); }
    QString stored(const QString& group, const QString& key) const;

    std::unique_ptr<QTemporaryDir> _home;
};

void AutosaveTest::init()
{
    _home = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(_home->path()).mkpath(u"teskel"_s));
    qputenv("QPEDIR", QFile::encodeName(_home->path()));
    qputenv("HOME", QFile::encodeName(_home->path()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(_home->filePath(u"config"_s)));
    // Every beginning of the longest word is a word, so every letter changes the history.
    QList<teskel::test::Entry> entries;
    for (int length = 1; length <= 40; ++length)
        entries.append(teskel::test::Entry(QByteArray(length, 'a'), "article"));
    QVERIFY(DictionaryWriter().addEntries(entries, 7).write(path()));
}

QString AutosaveTest::stored(const QString& group, const QString& key) const
{
    QFile file(settings() + u"/Teskel.conf"_s);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return teskel::ConfigText(file.readAll()).value(group, key).value_or(QString());
}

void AutosaveTest::openedFileIsStoredWhileTheWindowLives()
{
    TeskelMainWindow window;
    window.openFile(path());
    QVERIFY(stored(u"ViewPreferences"_s, u"LastOpenFile"_s).isEmpty());
    QTRY_COMPARE(stored(u"ViewPreferences"_s, u"LastOpenFile"_s), path());
}

void AutosaveTest::lookedUpWordIsStoredWhileTheWindowLives()
{
    TeskelMainWindow window;
    window.openFile(path());
    window.findChild<QTeskelComboBox*>()->lineEdit()->setText(u"aaa"_s);
    QTRY_COMPARE(stored(u"MRU List"_s, u"List0"_s), u"aaa"_s);
}

void AutosaveTest::toggledViewIsStoredWhileTheWindowLives()
{
    TeskelMainWindow window;
    window.toggleView(false);
    QTRY_COMPARE(stored(u"ViewPreferences"_s, u"ViewType"_s), u"0"_s);
}

void AutosaveTest::typingIsNotStoredKeyByKey()
{
    TeskelMainWindow window;
    window.show();
    window.openFile(path());
    QTRY_COMPARE(stored(u"ViewPreferences"_s, u"LastOpenFile"_s), path());
    const ReplacementCount writes(settings());
    constexpr int keys = 40;
    for (int key = 0; key < keys; ++key) {
        QTest::keyClick(window.findChild<QTeskelComboBox*>(), Qt::Key_A);
        QCoreApplication::processEvents();
    }
    const QString last(keys, u'a');
    QTRY_COMPARE(stored(u"MRU List"_s, u"List0"_s), last);
    // One, and on a machine that takes its time for the keys a few more.
    QVERIFY(writes.count() >= 1);
    QVERIFY2(writes.count() <= keys / 4, qPrintable(QString::number(writes.count())));
}

QTEST_MAIN(AutosaveTest)
#include "test_autosave.moc"
