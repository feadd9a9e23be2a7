// SPDX-License-Identifier: MIT
#include "lexicon/file/palmdatabasewriter.h"

#include <limits>

namespace teskel
{

namespace
{

constexpr size_t nameBytes = 32;
constexpr uint64_t headerBytes = 78;
constexpr std::string_view type = "DICT";
constexpr std::string_view creator = "TSKL";

void putNumber(std::string& out, uint32_t number, unsigned bytes)
{
    while (bytes-- > 0)
        out.push_back(static_cast<char>(static_cast<unsigned char>(number >> (8 * bytes))));
}

std::string header(std::string_view name, uint16_t recordCount)
{
    std::string bytes(name.substr(0, nameBytes - 1));
    bytes.resize(nameBytes, '\0');
    putNumber(bytes, 0, 2); // attributes
    putNumber(bytes, 0, 2); // version
    putNumber(bytes, 0, 4); // creation date
    putNumber(bytes, 0, 4); // modification date
    putNumber(bytes, 0, 4); // last backup date
    putNumber(bytes, 0, 4); // modification number
    putNumber(bytes, 0, 4); // application info
    putNumber(bytes, 0, 4); // sort info
    bytes += type;
    bytes += creator;
    putNumber(bytes, 0, 4); // unique id seed
    putNumber(bytes, 0, 4); // next record list
    putNumber(bytes, recordCount, 2);
    return bytes;
}

} // namespace

PalmDatabaseWriter::PalmDatabaseWriter(const std::string& path, std::string_view name,
                                       uint16_t recordCount)
    : _file(QFile::decodeName(path.c_str()))
    , _recordCount(recordCount)
{
    // A buffer would only stand between a record and the reason why it cannot be written.
    if (!_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        _error = _file.errorString().toStdString();
    write(header(name, recordCount));
    write(recordList()); // room for the list; the offsets are known in the end
}

void PalmDatabaseWriter::write(std::string_view bytes)
{
    _size += bytes.size();
    // A disk that fills up takes a part of the bytes first, and says why only when asked for the
    // rest.
    while (_error.empty() && !bytes.empty()) {
        const qint64 written = _file.write(bytes.data(), static_cast<qint64>(bytes.size()));
        if (written > 0)
            bytes.remove_prefix(static_cast<size_t>(written));
        else
            _error = _file.errorString().toStdString();
    }
}

void PalmDatabaseWriter::add(std::string_view record)
{
    if (_size + record.size() > std::numeric_limits<uint32_t>::max() && _error.empty())
        _error = "the file would grow beyond 4 GiB";
    _offsets.push_back(static_cast<uint32_t>(_size));
    write(record);
}

std::string PalmDatabaseWriter::recordList() const
{
    std::string list;
    for (uint32_t i = 0; i < _recordCount; ++i) {
        putNumber(list, i < _offsets.size() ? _offsets[i] : 0, 4);
        putNumber(list, 0, 1); // attributes
        putNumber(list, i, 3); // unique id
    }
    return list;
}

std::string PalmDatabaseWriter::finish()
{
    if (_error.empty() && !_file.seek(static_cast<qint64>(headerBytes)))
        _error = _file.errorString().toStdString();
    const uint64_t size = _size;
    write(recordList());
    _size = size;
    _file.close();
    if (_error.empty() && _file.error() != QFileDevice::NoError)
        _error = _file.errorString().toStdString();
    return _error;
}

} // namespace teskel
