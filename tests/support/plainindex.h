// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <cstddef>

namespace teskel::test
{

/// A word index that is searched key by key from the front, by the simplest code that gives the
/// required results.
class PlainIndex
{
public:
    /// @param bytes  of the index record
    explicit PlainIndex(const QByteArray& bytes);

    [[nodiscard]] const QByteArrayList& keys() const { return _keys; }
    /// The record of the last key before the first one that does not compare below `word` in its
    /// first `length` bytes; 0 when there is none.
    [[nodiscard]] int recordFor(const QByteArray& word, std::size_t length) const;

private:
    QByteArrayList _keys;
};

} // namespace teskel::test
