// SPDX-License-Identifier: MIT
#include "bench/support/typing.h"

#include "bench/support/readerwindow.h"
#include "bench/support/settle.h"
#include "bench/support/words.h"

#include <QLineEdit>
#include <QTest>
#include <QWindow>

namespace teskel::bench
{

namespace
{
constexpr QSize windowSize(640, 480);
} // namespace

QList<Key> keysOf(const QString& path, int words)
{
    QtDictionary dictionary;
    openOrDie(dictionary, path);
    QList<Key> keys;
    for (const QByteArray& word : sampleWords(dictionary, words)) {
        const QString text = QString::fromLatin1(word);
        for (qsizetype index = 0; index < text.size(); ++index)
            keys.append({text.at(index), index == 0});
    }
    return keys;
}

void showForTyping(QMainWindow& window)
{
    window.resize(windowSize);
    window.show();
    window.activateWindow();
    settle(200);
}

void press(QMainWindow& window, QLineEdit* entry, const Key& key)
{
    if (key.startsWord)
        entry->selectAll();
    QTest::sendKeyEvent(QTest::Click, window.windowHandle(), Qt::Key_unknown, QString(key.letter),
                        Qt::NoModifier);
    settle();
}

QList<View> viewsOf(const QString& path, const QList<Key>& keys)
{
    QList<View> views;
    ReaderWindow window(path);
    showForTyping(window);
    for (const Key& key : keys) {
        press(window, window.entry(), key);
        views.append(window.view());
    }
    return views;
}

} // namespace teskel::bench
