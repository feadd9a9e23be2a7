// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/container/filestamp.h"
#include "dictionary/dictionary.h"
#include "dictionary/textrecord.h"
#include "dictionary/wordindex.h"

#include <QCache>
#include <QSet>
#include <QString>

#include <memory>
#include <utility>

class QtPalmDatabase;

/// A dictionary in a Palm database file, unpacked record by record as words are asked for.
///
/// The last 100 unpacked records are kept. A record that turns out to be damaged is warned about
/// once and not read again until its file is opened anew; one that cannot be read, as when a card
/// was pulled out, is read again at each request. Pointers to words and records stay valid until
/// the dictionary is used again. One thread at a time.
class QtDictionary : public Dictionary
{
public:
    /// Walks the words of a QtDictionary.
    class QtDictionaryIterator : public DictionaryIterator
    {
    public:
        explicit QtDictionaryIterator(QtDictionary* dictionary)
            : _dictionary(dictionary)
        {
        }

        CursorPosition getPosition() override { return _position; }
        bool setPosition(CursorPosition position) override;
        CursorPosition move(CursorPosition position, int delta) override;
        const char* getWord() override;
        CursorPosition begin() override;
        bool isValid(CursorPosition position) override;

    private:
        CursorPosition forward(CursorPosition position, qint64 steps);
        CursorPosition backward(CursorPosition position, qint64 steps);

        CursorPosition _position;
        QtDictionary* _dictionary;
    };

    QtDictionary();
    Q_DISABLE_COPY_MOVE(QtDictionary)
    ~QtDictionary() override;

    /// The file's base name: without directory and without everything from its first "." on.
    bool getName(char* buffer, int size) override;
    bool getDescription(char* buffer, int size) override;
    bool getRandomWord(char* buffer, int size) override;
    int getWordCount() override { return 0; }
    bool getWord(CursorPosition position, char* buffer, unsigned int size) override;
    bool getDescription(CursorPosition position, char* buffer, unsigned int* size) override;
    CursorPosition findWord(const char* word, CursorPosition position, bool prefix) override;
    int wordCompare(const char* a, const char* b) override;
    int wordNCompare(const char* a, const char* b, unsigned int n) override;
    QtDictionaryIterator* createIterator() override;

    /// Opens a file by its Latin-1 path: 0, or -1 on failure. A file that is no dictionary is
    /// refused silently and leaves what was open; one that is an unusable dictionary stays
    /// attached. The very file that is open is opened anew, but for its word index, which is not
    /// read again while the file did not change. Of a large index only the beginning is read here,
    /// the whole by the first search, which fails where it cannot be read.
    int open(const char* fileName) override;
    /// The same for any path.
    int open(const QString& fileName);
    /// Detaches the file and forgets its records; always 0.
    virtual int close();
    /// Whether a file is attached.
    virtual bool isOpen();
    /// Whether the file is a Palm database with the creator of dictionaries.
    virtual bool isValidDictionary(const char* fileName);
    bool isValidDictionary(const QString& fileName);

    /// The path as given to open(), empty when closed.
    [[nodiscard]] QString getUrl() const { return _url; }

    /// Without `prefix` as above; with it, 0 when `a` begins with `b`.
    int wordCompare(const char* a, const char* b, bool prefix);
    /// Folds a text in place.
    void toUpper(char* buffer);
    /// The headword at `position` inside the cached record, or null.
    const char* getWordAt(CursorPosition position);

    /// Number of word records.
    unsigned short getWordRecordCount();
    /// Number of entries of a word record, 0 when it cannot be read.
    unsigned short getTotalWordCount(unsigned short recordIndex);
    /// Unpacked records by word record number and by database record number; null when the record
    /// cannot be read or is damaged. Owned by the cache and always followed by terminating NULs.
    const char* getWordRecord(unsigned short recordIndex);
    const char* getDecompressedRecord(unsigned short index);
    /// The same word record with its entries, likewise.
    const teskel::TextRecord* getTextRecord(unsigned short recordIndex);
    /// The number of the last database record that was needed and could not be had, since this was
    /// asked last; -1 when there was none.
    int takeMissedRecord() { return std::exchange(_missedRecord, -1); }
    /// Forgets the unpacked records, and which ones are damaged.
    void clearWordCache();

private:
    bool readIndex(qint64 most);
    /// Unpacks a database record afresh; null when it cannot be read or is damaged, which is
    /// remembered.
    std::unique_ptr<teskel::TextRecord> decompressRecord(int index);
    /// The headword at an iterator's position, which should be valid; null when there is none.
    const char* getWordOf(QtDictionaryIterator& iterator);
    const teskel::TextRecord* cachedRecord(int index);
    const teskel::TextRecord* readRecord(int index);

    std::unique_ptr<QtPalmDatabase> _database;
    QString _url;
    QCache<int, teskel::TextRecord> _wordCache;
    // The record asked for last: the cache drops it last of all. A walk asks for it at each step.
    const teskel::TextRecord* _lastRecord = nullptr;
    int _lastIndex = 0;
    int _missedRecord = -1;
    QSet<int> _damagedRecords; // database record numbers; outside the cache, where they cost room
    teskel::WordIndex _index;
    teskel::FileStamp _indexStamp; // of the file when the index was read
};
