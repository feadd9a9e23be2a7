// SPDX-License-Identifier: MIT
#include "tests/hostile/windowuse.h"

#include "lookup/qdictionarylistbox.h"
#include "widgets/article/qteskeledit.h"
#include "widgets/qteskelcombobox.h"

#include <QLineEdit>
#include <QTest>

namespace teskel::test
{

WindowUse::WindowUse()
    : _window(std::make_unique<TeskelMainWindow>())
    , _entry(_window->findChild<QTeskelComboBox*>())
    , _list(_window->findChild<QDictionaryListBox*>())
    , _article(_window->findChild<QTeskelEdit*>())
{
    _window->resize(240, 320);
    _window->show();
    QCoreApplication::processEvents();
}

WindowUse::~WindowUse()
{
    _window->close();
}

void WindowUse::open(const QString& path)
{
    _window->openFile(path);
    QCoreApplication::processEvents();
}

void WindowUse::type(const QString& text)
{
    _entry->lineEdit()->selectAll();
    press(Qt::Key_Delete);
    QTest::keyClicks(_entry, text);
    press(Qt::Key_Return);
}

QString WindowUse::walkDown(int mostPages)
{
    return walk(Qt::Key_PageDown, Qt::Key_End, mostPages);
}

QString WindowUse::walkUp(int mostPages)
{
    return walk(Qt::Key_PageUp, Qt::Key_Home, mostPages);
}

QString WindowUse::walk(Qt::Key page, Qt::Key end, int mostPages)
{
    QString before;
    QString word = currentWord();
    for (int pages = 0; pages < mostPages && (pages == 0 || word != before); ++pages) {
        before = word;
        press(page);
        press(end);
        word = currentWord();
    }
    return word;
}

void WindowUse::scroll()
{
    press(Qt::Key_Down, 3);
    press(Qt::Key_Up, 5);
    for (int times = 0; times < 40; ++times)
        emit _list->verticalScrollBar()->nextLine();
    for (int times = 0; times < 60; ++times)
        emit _list->verticalScrollBar()->prevLine();
}

void WindowUse::randomWords(int times)
{
    for (int time = 0; time < times; ++time)
        _window->lexiconRandomWord();
    QCoreApplication::processEvents();
}

void WindowUse::crossLookup()
{
    _article->selectAll();
    _window->crossLookup();
    QCoreApplication::processEvents();
}

void WindowUse::copyAndPaste()
{
    _window->editCopy();
    _window->editCopyTranslation();
    _window->editPaste();
}

QString WindowUse::articleText() const
{
    return _article->toPlainText();
}

QString WindowUse::currentWord() const
{
    return _list->text(_list->currentItem());
}

void WindowUse::press(Qt::Key key, int times)
{
    for (int time = 0; time < times; ++time)
        QTest::keyClick(_entry, key);
}

} // namespace teskel::test
