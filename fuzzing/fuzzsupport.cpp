// SPDX-License-Identifier: MIT
#include "fuzzing/fuzzsupport.h"

#include "dictionary/qtdictionary.h"

#include <QDir>
#include <QFile>

#include <cstdlib>
#include <cstring>
#include <memory>

#include <sys/mman.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace teskel::fuzz
{

namespace
{
constexpr int maxWords = 2000; // of a walk, so that one input stays quick
constexpr std::size_t maxText = 32767;

void checkEntry(QtDictionary& dictionary, CursorPosition position)
{
    const char* word = dictionary.getWordAt(position);
    require(word && *word != '\0' && std::strlen(word) <= maxText);
    const QByteArray copy(word);
    unsigned int size = 0;
    require(!dictionary.getDescription(position, nullptr, &size));
    require(size >= 1 && size <= maxText + 1);
    QByteArray article(static_cast<qsizetype>(size), '?');
    require(dictionary.getDescription(position, article.data(), &size));
    for (const bool prefix : {false, true}) {
        const CursorPosition found =
            dictionary.findWord(copy.constData(), CursorPosition::invalid(), prefix);
        if (!found.isInvalid())
            require(dictionary.wordCompare(dictionary.getWordAt(found), copy.constData(), prefix) ==
                    0);
    }
}

void walk(QtDictionary& dictionary, CursorPosition start, int step)
{
    const std::unique_ptr<DictionaryIterator> iterator(dictionary.createIterator());
    CursorPosition position = start;
    for (int i = 0; i < maxWords && iterator->setPosition(position); ++i) {
        if (i < 100)
            checkEntry(dictionary, position);
        require(iterator->getWord() != nullptr);
        const CursorPosition next = iterator->move(position, step);
        if (iterator->isValid(next))
            require(iterator->move(next, -step) == position);
        position = next;
    }
}
} // namespace

void silenceMessages()
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
}

void require(bool holds)
{
    if (!holds)
        std::abort();
}

MemoryFile::MemoryFile()
    : _descriptor(memfd_create("teskel-fuzz", MFD_CLOEXEC))
{
    require(_descriptor >= 0);
}

MemoryFile::~MemoryFile()
{
    close(_descriptor);
}

void MemoryFile::setContent(const char* data, std::size_t size) const
{
    require(ftruncate(_descriptor, 0) == 0);
    require(pwrite(_descriptor, data, size, 0) == static_cast<ssize_t>(size));
}

QString MemoryFile::path() const
{
    return u"/proc/self/fd/%1"_s.arg(_descriptor);
}

ScratchFolder::ScratchFolder()
    : _folder((QDir(u"/dev/shm"_s).exists() ? u"/dev/shm"_s : QDir::tempPath()) +
              u"/teskel-fuzz-XXXXXX"_s)
{
    require(_folder.isValid());
}

void ScratchFolder::write(const QString& name, const QByteArray& bytes) const
{
    QFile file(path(name));
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

void exerciseDictionary(const QString& path)
{
    QtDictionary dictionary;
    dictionary.open(path); // a refused one may stay attached and must stand all this, too
    char buffer[512];
    if (dictionary.isOpen()) {
        dictionary.getName(buffer, sizeof buffer);
        dictionary.getDescription(buffer, sizeof buffer);
        dictionary.getRandomWord(buffer, sizeof buffer);
    }
    for (const char* word : {"", "a", "house", "\xFF"}) {
        dictionary.findWord(word, CursorPosition::invalid(), false);
        dictionary.findWord(word, CursorPosition::invalid(), true);
    }
    walk(dictionary, CursorPosition::at(0, 0), 1);
    const int records = dictionary.getWordRecordCount();
    for (int record = 1; record < qMin(records, 50); ++record)
        walk(dictionary, CursorPosition::at(static_cast<quint16>(record), 0), 7);
    if (records > 0) {
        const auto last = static_cast<quint16>(records - 1);
        const int words = dictionary.getTotalWordCount(last);
        walk(dictionary, CursorPosition::at(last, static_cast<quint16>(words - 1)), -1);
    }
}

} // namespace teskel::fuzz
