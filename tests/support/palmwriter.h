// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

namespace teskel::test
{

/// Writes Palm database files, whole or damaged on purpose.
class PalmWriter
{
public:
    PalmWriter& setName(const QByteArray& name);
    PalmWriter& setType(const QByteArray& type);
    PalmWriter& setCreator(const QByteArray& creator);
    PalmWriter& setVersion(quint16 version);
    /// Dates are seconds since 1904.
    PalmWriter& setDates(quint32 created, quint32 modified, quint32 backedUp);
    PalmWriter& addRecord(const QByteArray& data);
    /// Replaces the record count of the header, which is else the number of records added.
    PalmWriter& claimRecordCount(quint16 count);
    /// Replaces the offset of one record in the record list.
    PalmWriter& claimOffset(int record, quint32 offset);
    /// Bytes after the last record.
    PalmWriter& setTrailer(const QByteArray& bytes);

    [[nodiscard]] QByteArray build() const;
    /// Writes the file; false when that fails.
    [[nodiscard]] bool write(const QString& path) const;

private:
    struct Claim {
        int record;
        quint32 offset;
    };
    QByteArray _name = "Test";
    QByteArray _type = "Dict";
    QByteArray _creator = "TSKL";
    quint16 _version = 0;
    quint32 _dates[3] = {};
    QByteArrayList _records;
    int _claimedCount = -1;
    QList<Claim> _claimedOffsets;
    QByteArray _trailer;
};

/// Writes `bytes` to a file; false when that fails.
[[nodiscard]] bool writeFile(const QString& path, const QByteArray& bytes);

} // namespace teskel::test
