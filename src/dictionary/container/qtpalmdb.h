// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/container/filestamp.h"
#include "dictionary/container/palmdatabase.h"
#include "dictionary/container/qtrecords.h"

#include <QFile>
#include <QString>

#include <memory>

/// What is read of the header of a Palm database, in host byte order.
struct PalmHeader {
    quint16 version = 0;
    char type[4] = {};
    char creator[4] = {};
    quint16 recordCount = 0;
};

/// A Palm database file opened for reading: its header and its records.
class QtPalmDatabase : public PalmDatabase
{
public:
    static constexpr int headerBytes = 78; ///< of the file's header; the record list follows

    QtPalmDatabase() = default;
    Q_DISABLE_COPY_MOVE(QtPalmDatabase)
    ~QtPalmDatabase() override;

    QtRecords* getRecords() override { return &_records; }
    /// The path is Latin-1.
    int load(const char* fileName) override;
    /// The same for any path.
    int load(const QString& fileName);
    /// Bytes of the file, 0 when there is none.
    [[nodiscard]] qint64 fileSize() const { return _device ? _device->size() : 0; }
    /// Of the file as it is now.
    [[nodiscard]] teskel::FileStamp stamp() const
    {
        return _device ? teskel::FileStamp(*_device) : teskel::FileStamp();
    }
    int save(const char* fileName) override;
    const char* getCreator() const override;
    const char* getType() const override;
    unsigned short getNumRecords() const override;
    short getVersion() const override;
    quint32 getCreationDate() const override;
    quint32 getModificationDate() const override;
    quint32 getLastBackupDate() const override;

private:
    bool readHeader();
    void verifyOpen(int line) const;
    void clean();
    void closeFile();

    std::unique_ptr<QFile> _device;
    QString _url; // null when closed
    PalmHeader _header;
    QtRecords _records;
    mutable char _creatorText[5] = {};
    mutable char _typeText[5] = {};
};
