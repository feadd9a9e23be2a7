// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cstddef>
#include <memory>
#include <span>

class QIODevice;

/// The bytes of one record. Whoever got it from QtRecords::getData() frees it: see RecordDeleter.
struct Record {
    quint32 size = 0;     ///< bytes
    char* data = nullptr; ///< from new[]; spareBytes NULs follow that are none of the record

    static constexpr quint32 spareBytes = 8;
};

/// Frees a record with its bytes.
struct RecordDeleter {
    void operator()(Record* record) const
    {
        if (record)
            delete[] record->data;
        delete record;
    }
};
using RecordPointer = std::unique_ptr<Record, RecordDeleter>;

/// One entry of a database's record list.
struct RecordMetaData {
    quint32 offset = 0;        ///< of the record's data from the start of the file
    quint8 attributes[4] = {}; ///< attributes and unique id as they stand in the file
};

/// Where the bytes of a record stand as the record list tells it, which may lie: the size may be
/// negative, and run past the end of the file.
struct RecordExtent {
    qint64 offset = 0; ///< from the start of the file
    qint64 size = 0;   ///< bytes up to the next record, or to the end of the file
};

/// The record list of a Palm database, read from the file at each request.
///
/// A card may be pulled out and files may lie: nothing is read ahead or kept, and offsets are
/// checked against the file's size before memory is taken. Records above 64 MiB are not read.
class QtRecords final
{
public:
    QtRecords() = default;
    Q_DISABLE_COPY_MOVE(QtRecords)
    ~QtRecords() = default;

    /// Reads record `index` whole: a new record that the caller frees, or null on failure.
    virtual Record* getData(unsigned short index);
    virtual unsigned short getCount();
    /// As getData(), with the first `most` bytes alone. A record of which the file has not every
    /// byte fails all the same.
    Record* getBeginning(unsigned short index, qint64 most);

    static constexpr int entryBytes = 8; ///< of one entry of the record list in the file
    /// Larger records are not read: twice the largest word index there can be.
    static constexpr qint64 maxRecordSize = qint64{64} << 20;

    /// Reads one entry of the record list.
    bool getRecordMetaData(RecordMetaData* data, unsigned short index);
    /// Reads where record `index` stands; false, with a warning, when the list cannot be read.
    bool locate(unsigned short index, RecordExtent& extent);
    /// Binds the list to an open device, which is borrowed. Meant to be called once.
    void setIOInfo(QIODevice* device, int firstRecordOffset, unsigned short recordCount);
    /// Lets go of a device that is gone: every read fails from then on.
    void forgetDevice() { _device = nullptr; }

private:
    std::size_t readEntries(std::span<RecordMetaData> entries, unsigned short index);

    QIODevice* _device = nullptr;
    qint32 _firstRecordOffset = -1;
    quint16 _recordCount = 0;
};
