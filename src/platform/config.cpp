// SPDX-License-Identifier: MIT
#include "platform/config.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSet>

#include <cerrno>
#include <cstring>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

// Settings are a few hundred bytes; anything near this size is not a settings file.
constexpr qint64 largestFile = 1'048'576;

QString userFileName(const QString& name)
{
    QString directory = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (!QDir::isAbsolutePath(directory))
        directory = QDir::homePath() + "/.config"_L1;
    return directory + "/teskel/"_L1 + name + ".conf"_L1;
}

QString handheldFileName(const QString& name)
{
    return QDir::homePath() + "/Settings/"_L1 + name + ".conf"_L1;
}

bool makeDirectory(const QString& path)
{
    const QFileInfo directory(path);
    if (directory.isDir())
        return true;
    const QDir parent = directory.dir();
    return QDir().mkpath(parent.path()) &&
           parent.mkdir(directory.fileName(),
                        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

// A disk that fills up takes a part of the bytes first, and says why only when asked for the rest.
bool writeAll(QFileDevice& file, const QByteArray& text)
{
    for (qint64 done = 0; done < text.size();) {
        const qint64 written = file.write(text.constData() + done, text.size() - done);
        if (written <= 0)
            return false;
        done += written;
    }
    return true;
}

// Returns why `file` cannot be made to last, or nothing.
QString makeLasting(const QFileDevice& file)
{
    int result = 0;
    do {
        result = ::fsync(file.handle());
    } while (result != 0 && errno == EINTR);
    // Some file systems know no such thing.
    return result == 0 || errno == EINVAL ? QString()
                                          : QString::fromLocal8Bit(std::strerror(errno));
}

// Puts `text` in the place of the file `path`, or leaves that as it is and returns why.
//
// QSaveFile::commit() takes no notice of bytes that could not be flushed or synchronised, it would
// put an empty file in place of the settings when the disk is full. So everything is on the disk
// before it is called.
QString replaceFile(const QString& path, const QByteArray& text)
{
    if (text.size() > largestFile)
        return u"they would be too large to be read again"_s;
    if (!makeDirectory(QFileInfo(path).absolutePath()))
        return u"the directory cannot be made"_s;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !writeAll(file, text))
        return file.errorString();
    if (QString reason = makeLasting(file); !reason.isEmpty())
        return reason;
    return file.commit() ? QString() : file.errorString();
}

// The settings are written several times in a session; one complaint about a file is enough.
QSet<QString>& complainedAbout()
{
    static QSet<QString> files;
    return files;
}

} // namespace

Config::Config(const QString& name, Domain domain)
    : _fileName(domain == User ? userFileName(name) : name)
{
    if (QFileInfo::exists(_fileName)) {
        _replaceable = read(_fileName);
        return;
    }
    if (domain == User) {
        read(handheldFileName(name));
        _changed = !_text.isEmpty();
    }
}

Config::~Config()
{
    write();
}

bool Config::read(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return true;
    // A pipe or a device in the file's place could keep the reader waiting.
    if (!info.isFile() || info.size() > largestFile)
        return false;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray text = file.read(largestFile);
    if (file.error() != QFileDevice::NoError)
        return false;
    _text = teskel::ConfigText(text);
    return true;
}

void Config::setGroup(const QString& group)
{
    _group = teskel::ConfigText::groupName(group);
    if (_text.hasGroup(*_group))
        return;
    _text.addGroup(*_group);
    _changed = true;
}

bool Config::hasSelectedGroup() const
{
    if (!_group)
        qWarning("Config: no group is selected in %s", qPrintable(_fileName));
    return _group.has_value();
}

bool Config::hasKey(const QString& key) const
{
    return _group && _text.value(*_group, teskel::ConfigText::keyName(key));
}

QString Config::readEntry(const QString& key, const QString& def) const
{
    return _group ? _text.value(*_group, teskel::ConfigText::keyName(key)).value_or(def) : def;
}

int Config::readNumEntry(const QString& key, int def) const
{
    const QString text = readEntry(key);
    return text.isEmpty() ? def : text.toInt();
}

bool Config::readBoolEntry(const QString& key, bool def) const
{
    return readNumEntry(key, def ? 1 : 0) != 0;
}

void Config::writeEntry(const QString& key, const QString& value)
{
    if (hasSelectedGroup() && _text.setValue(*_group, teskel::ConfigText::keyName(key),
                                             teskel::ConfigText::valueText(value)))
        _changed = true;
}

void Config::writeEntry(const QString& key, int value)
{
    writeEntry(key, QString::number(value));
}

void Config::writeEntry(const QString& key, bool value)
{
    writeEntry(key, value ? 1 : 0);
}

void Config::removeEntry(const QString& key)
{
    if (hasSelectedGroup() && _text.removeKey(*_group, teskel::ConfigText::keyName(key)))
        _changed = true;
}

void Config::clearGroup()
{
    if (hasSelectedGroup() && _text.clearGroup(*_group))
        _changed = true;
}

bool Config::write()
{
    if (!_changed)
        return true;

    const QString reason =
        _replaceable ? replaceFile(_fileName, _text.toUtf8()) : u"what is there cannot be read"_s;
    if (reason.isEmpty()) {
        _changed = false;
        complainedAbout().remove(_fileName);
        return true;
    }
    if (!complainedAbout().contains(_fileName)) {
        complainedAbout().insert(_fileName);
        qWarning("The settings cannot be written to %s: %s", qPrintable(_fileName),
                 qPrintable(reason));
    }
    return false;
}
