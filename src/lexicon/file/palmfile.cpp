// SPDX-License-Identifier: MIT
#include "lexicon/file/palmfile.h"

namespace teskel
{

namespace
{

constexpr size_t creatorOffset = 64;
constexpr size_t creatorBytes = 4;
constexpr size_t countOffset = 76;

uint32_t number(const QByteArray& bytes, qsizetype position, int width)
{
    uint32_t value = 0;
    for (int i = 0; i < width; ++i)
        value = value << 8 | static_cast<unsigned char>(bytes[position + i]);
    return value;
}

} // namespace

bool PalmFile::open(const std::string& path, std::string& error)
{
    _file.setFileName(QFile::decodeName(path.c_str()));
    char byte = 0;
    // Reading a byte tells a directory from a file.
    if (!_file.open(QIODevice::ReadOnly) || _file.read(&byte, 1) < 0 || !_file.seek(0)) {
        error = "cannot read " + path + ": " + _file.errorString().toStdString();
        return false;
    }
    _size = static_cast<uint64_t>(_file.size());
    const QByteArray header = _file.read(static_cast<qint64>(headerBytes));
    _hasHeader = static_cast<uint64_t>(header.size()) == headerBytes;
    if (!_hasHeader)
        return true;
    _creator = header.mid(creatorOffset, creatorBytes).toStdString();
    _recordCount = number(header, countOffset, 2);
    const auto listBytes = static_cast<qint64>(_recordCount * listEntryBytes);
    const QByteArray list = _file.read(listBytes);
    _hasRecordList = list.size() == listBytes;
    for (qsizetype entry = 0; entry + 4 <= list.size(); entry += listEntryBytes)
        _offsets.push_back(number(list, entry, 4));
    return true;
}

uint64_t PalmFile::endOf(unsigned record) const
{
    return record + 1U < _offsets.size() ? _offsets[record + 1U] : _size;
}

std::string PalmFile::record(unsigned index)
{
    const uint64_t begin = _offsets[index];
    const uint64_t end = endOf(index);
    if (begin > end || end > _size || !_file.seek(static_cast<qint64>(begin)))
        return {};
    return _file.read(static_cast<qint64>(end - begin)).toStdString();
}

} // namespace teskel
