// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/cursorposition.h"

/// A cursor over the words of one dictionary, which must outlive it.
class DictionaryIterator
{
public:
    /// The current position; invalid until begin(), setPosition() or move() set it.
    virtual CursorPosition getPosition() = 0;
    /// Makes a valid `position` current; otherwise keeps the current one and returns false.
    virtual bool setPosition(CursorPosition position) = 0;
    /// The position `delta` words after (negative: before) `position`, also made current. Running
    /// off either end gives the invalid position. An invalid `position` is handed back and the
    /// current one is kept.
    virtual CursorPosition move(CursorPosition position, int delta) = 0;
    /// The headword at the current position, or null. Valid until the dictionary is used again.
    virtual const char* getWord() = 0;
    /// Makes the first word of the first record current, without checking that there is one.
    virtual CursorPosition begin() = 0;
    /// Whether the dictionary has a word at `position`.
    virtual bool isValid(CursorPosition position) = 0;
    virtual ~DictionaryIterator() = default;

protected:
    DictionaryIterator() = default;
    Q_DISABLE_COPY_MOVE(DictionaryIterator)
};

/// What the rest of a program knows of a dictionary.
///
/// Texts are 8-bit Latin-1 and end with a NUL. A getter that returns false has written nothing to
/// its buffer; buffer sizes are bytes and count the NUL.
class Dictionary
{
public:
    virtual ~Dictionary() = default;

    /// Copies the dictionary's name.
    virtual bool getName(char* buffer, int size) = 0;
    /// Copies the text that describes the dictionary.
    virtual bool getDescription(char* buffer, int size) = 0;
    /// Copies a headword picked by random(), which is never seeded; false when there is none, or
    /// no room for it: random() has then gone on all the same.
    virtual bool getRandomWord(char* buffer, int size) = 0;
    /// Always 0: the total is never computed.
    virtual int getWordCount() = 0;
    /// Copies the headword at `position`.
    virtual bool getWord(CursorPosition position, char* buffer, unsigned int size) = 0;
    /// Copies the article at `position`. `*size` is the buffer's size on entry and the size that
    /// the article needs on return (0 when it cannot be read).
    virtual bool getDescription(CursorPosition position, char* buffer, unsigned int* size) = 0;
    /// The first word that equals `word` without regard to case, or begins with it (`prefix`); the
    /// invalid position when there is none. `position` is not used.
    virtual CursorPosition findWord(const char* word, CursorPosition position, bool prefix) = 0;
    /// Compares without regard to case: negative, 0 or positive.
    virtual int wordCompare(const char* a, const char* b) = 0;
    /// The same on at most `n` bytes.
    virtual int wordNCompare(const char* a, const char* b, unsigned int n) = 0;
    /// A new iterator with an invalid position; the caller deletes it.
    virtual DictionaryIterator* createIterator() = 0;
    /// Opens a dictionary file by a Latin-1 path: 0, or -1 on failure.
    virtual int open(const char* fileName) = 0;

protected:
    Dictionary() = default;
    Q_DISABLE_COPY_MOVE(Dictionary)
};
