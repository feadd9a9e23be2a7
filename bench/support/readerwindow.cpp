// SPDX-License-Identifier: MIT
#include "bench/support/readerwindow.h"

#include "lookup/qdictionarylistbox.h"
#include "widgets/article/qteskeledit.h"
#include "widgets/qteskelcombobox.h"

#include <QLineEdit>
#include <QTemporaryDir>

namespace teskel::bench
{

void useOwnSettings()
{
    static const QTemporaryDir directory;
    qputenv("XDG_CONFIG_HOME", directory.path().toLocal8Bit());
}

ReaderWindow::ReaderWindow(const QString& path)
    : _lookup(new TeskelMainWidget(this, _preferences))
{
    setCentralWidget(_lookup);
    if (!_lookup->fileOpen(path, true))
        qFatal("%s is not a dictionary", qUtf8Printable(path));
    _lookup->setFocus();
}

// The lookup view uses the settings until it is gone.
ReaderWindow::~ReaderWindow()
{
    delete takeCentralWidget();
}

QLineEdit* ReaderWindow::entry() const
{
    return _lookup->findChild<QTeskelComboBox*>()->lineEdit();
}

QDictionaryListBox* ReaderWindow::list() const
{
    return _lookup->findChild<QDictionaryListBox*>();
}

View ReaderWindow::view() const
{
    View view;
    const QDictionaryListBox& words = *list();
    for (int row = 0; row < static_cast<int>(words.count()); ++row)
        view.rows.append(words.text(row));
    view.currentRow = words.currentItem();
    view.html = _lookup->findChild<QTeskelEdit*>()->text();
    return view;
}

} // namespace teskel::bench
