// SPDX-License-Identifier: MIT
#pragma once

#include "lookup/qdictionarylistbox.h"
#include "lookup/qdictionarylistboxitem.h"
#include "lookup/teskelmainwidget.h"
#include "settings/preferences.h"
#include "tests/lookup/lexicons.h"
#include "widgets/article/qteskeledit.h"
#include "widgets/qteskelcombobox.h"

#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <optional>

namespace teskel::test
{

/// A lookup view with settings and dictionaries in a directory of its own.
///
/// `prepare` sees the settings before the view is built from them.
class LookupBench
{
public:
    using Prepare = void (*)(PreferencesData&);

    explicit LookupBench(Prepare prepare = nullptr)
    {
        qputenv("XDG_CONFIG_HOME", _dir.filePath(QStringLiteral("config")).toUtf8());
        start(prepare);
    }

    /// Starts the view; again after stop(), with the settings as they were stored.
    void start(Prepare prepare = nullptr)
    {
        _preferences.emplace();
        if (prepare != nullptr)
            prepare(*_preferences);
        _widget = std::make_unique<TeskelMainWidget>(nullptr, *_preferences);
    }

    void stop()
    {
        _widget.reset();
        _preferences.reset();
    }

    PreferencesData& preferences() { return *_preferences; }
    TeskelMainWidget& widget() { return *_widget; }
    QTeskelComboBox& entry() const { return *_widget->findChild<QTeskelComboBox*>(); }
    QDictionaryListBox& list() const { return *_widget->findChild<QDictionaryListBox*>(); }
    QTeskelEdit& article() const { return *_widget->findChild<QTeskelEdit*>(); }

    QString path(const QString& name) const { return _dir.filePath(name); }

    /// Writes a dictionary and returns its path.
    QString write(const QString& name, const QList<Entry>& entries, int perRecord = 7) const
    {
        QString file = path(name);
        if (!DictionaryWriter().addEntries(entries, perRecord).write(file))
            qFatal("no dictionary");
        return file;
    }

    /// Writes and opens a dictionary.
    void open(const QList<Entry>& entries, int perRecord = 7)
    {
        if (!_widget->fileOpen(write(QStringLiteral("Words.PDB"), entries, perRecord), true))
            qFatal("dictionary does not open");
    }

    /// Replaces the entry's text, letter by letter as a person would.
    void type(const QString& text) const
    {
        entry().lineEdit()->selectAll();
        QTest::keyClick(&entry(), Qt::Key_Delete);
        for (const QChar letter : text)
            typeLetter(letter);
    }

    /// Types one letter, pressed and released.
    void typeLetter(QChar letter) const
    {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(letter));
        QCoreApplication::sendEvent(&entry(), &press);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier, QString(letter));
        QCoreApplication::sendEvent(&entry(), &release);
    }

    QString typed() const { return entry().lineEdit()->text(); }
    QString selectedInEntry() const { return entry().lineEdit()->selectedText(); }
    QString articleText() const { return article().toPlainText(); }

    QStringList rows() const
    {
        QStringList texts;
        for (int row = 0; row < list().count(); ++row)
            texts.append(list().text(row));
        return texts;
    }

    /// The word of the current row, empty if there is none.
    QString currentWord() const { return list().text(list().currentItem()); }

    /// The words that the entry offers.
    QStringList history() const
    {
        QStringList texts;
        for (int index = 0; index < entry().count(); ++index)
            texts.append(entry().text(index));
        return texts;
    }

    /// The words that the settings remember.
    QStringList storedHistory()
    {
        QByteArrayList words;
        _preferences->fillMRUList(words);
        QStringList texts;
        for (const QByteArray& word : std::as_const(words))
            texts.append(QString::fromLatin1(word));
        return texts;
    }

private:
    QTemporaryDir _dir;
    std::optional<PreferencesData> _preferences;
    std::unique_ptr<TeskelMainWidget> _widget;
};

/// A bench with the dictionary of everyday words open.
class EverydayBench : public LookupBench
{
public:
    explicit EverydayBench(Prepare prepare = nullptr)
        : LookupBench(prepare)
    {
        open(everydayEntries());
    }
};

} // namespace teskel::test
