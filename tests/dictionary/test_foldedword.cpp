// SPDX-License-Identifier: MIT
// Texts compared by eight bytes at once compare as they do byte by byte.
#include "dictionary/foldedword.h"
#include "dictionary/latin1fold.h"

#include <QByteArray>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

using namespace teskel;

namespace
{
/// With the bytes that must be readable.
QByteArray padded(const QByteArray& text)
{
    return text + QByteArray(FoldedHead::bytes, '\0');
}

/// The simplest code for it.
quint64 plainHead(const QByteArray& text)
{
    quint64 head = 0;
    for (qsizetype at = 0; at < qsizetype{FoldedHead::bytes}; ++at) {
        const bool isThere = at < text.indexOf('\0');
        head = head << 8 | (isThere ? foldByte(static_cast<unsigned char>(text[at])) : 0U);
    }
    return head;
}

int sign(int number)
{
    return (number > 0) - (number < 0);
}

QByteArray randomText(QRandomGenerator& generator)
{
    static const char letters[] = "abAB\xE4\xC4\xF7\xD7\xFF\xDF";
    QByteArray text(generator.bounded(13), '\0');
    for (char& letter : text) {
        // Mostly the same letter, or no two texts would begin alike.
        const int choice = generator.bounded(12);
        letter = letters[choice < static_cast<int>(sizeof letters) - 1 ? choice : 0];
        if (generator.bounded(3) > 0)
            letter = 'a';
    }
    return text;
}
} // namespace

class TestFoldedWord : public QObject
{
    Q_OBJECT

private slots:
    void headFoldsEveryByteAtEveryPlace();
    void headEndsWithItsText();
    void textsCompareAsByteByByte();
    void wordIsAboveTextsAsByteByByte();
};

void TestFoldedWord::headFoldsEveryByteAtEveryPlace()
{
    for (qsizetype place = 0; place < qsizetype{FoldedHead::bytes}; ++place) {
        for (int byte = 0; byte < 256; ++byte) {
            for (const char other : {'\x01', 'z', '\x7F', '\x80', '\xFF'}) {
                QByteArray text(FoldedHead::bytes, other);
                text[place] = static_cast<char>(byte);
                QCOMPARE(FoldedHead(text.constData()).value, plainHead(text + '\0'));
            }
        }
    }
}

void TestFoldedWord::headEndsWithItsText()
{
    QCOMPARE(FoldedHead("ab\0cdefg").value, FoldedHead("AB\0\0\0\0\0\0").value);
    QVERIFY(FoldedHead("ab\0cdefg").isWholeText());
    QVERIFY(FoldedHead("\0bcdefgh").isWholeText());
    QVERIFY(!FoldedHead("abcdefgh").isWholeText());
}

void TestFoldedWord::textsCompareAsByteByByte()
{
    QRandomGenerator generator(1);
    for (int run = 0; run < 20'000; ++run) {
        const QByteArray a = padded(randomText(generator));
        const QByteArray b = padded(randomText(generator));
        QCOMPARE(sign(foldedCompare(a.constData(), FoldedHead(a.constData()), b.constData(),
                                    FoldedHead(b.constData()))),
                 sign(foldedCompare(a.constData(), b.constData())));
    }
}

void TestFoldedWord::wordIsAboveTextsAsByteByByte()
{
    QRandomGenerator generator(2);
    for (int run = 0; run < 20'000; ++run) {
        const QByteArray word = randomText(generator); // not padded: it comes from anywhere
        const QByteArray text = padded(randomText(generator));
        const auto prefix = static_cast<std::size_t>(generator.bounded(14));
        for (const std::size_t length : {prefix, wholeText}) {
            QCOMPARE(FoldedWord(word.constData(), length).isAbove(text.constData()),
                     foldedCompare(text.constData(), word.constData(), length) < 0);
        }
    }
}

QTEST_GUILESS_MAIN(TestFoldedWord)
#include "test_foldedword.moc"
