// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

class QtRecords;

/// A Palm database file as its users see it.
class PalmDatabase
{
public:
    virtual ~PalmDatabase() = default;

    /// The records, owned by the database; never null.
    virtual QtRecords* getRecords() = 0;
    /// Opens the file and reads its header: 0, or -1 on failure. Meant to be called once.
    virtual int load(const char* fileName) = 0;
    /// Does nothing and returns 0: databases are only read.
    virtual int save(const char* fileName) = 0;
    /// Four characters; the text is overwritten by the next call on the same object.
    virtual const char* getCreator() const = 0;
    virtual const char* getType() const = 0;
    virtual unsigned short getNumRecords() const = 0;
    virtual short getVersion() const = 0;
    /// Always 0: nothing uses dates.
    virtual quint32 getCreationDate() const = 0;
    virtual quint32 getModificationDate() const = 0;
    virtual quint32 getLastBackupDate() const = 0;

protected:
    PalmDatabase() = default;
    Q_DISABLE_COPY_MOVE(PalmDatabase)
};
