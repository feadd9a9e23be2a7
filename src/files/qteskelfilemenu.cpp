// SPDX-License-Identifier: MIT
#include "files/qteskelfilemenu.h"

#include "base/oneline.h"
#include "files/fileloader.h"
#include "files/reversename.h"
#include "platform/resource.h"

#include <QAction>
#include <QIcon>

using namespace Qt::StringLiterals;

namespace
{

/// The name as a menu must be given it to show it: "&" would mark a shortcut, a tab a second
/// column.
QString menuText(const QString& name)
{
    return teskel::oneLine(name).replace(u'&', u"&&"_s);
}

} // namespace

QTeskelFileMenu::QTeskelFileMenu(QWidget* parent, const char* name)
    : QMenu(parent)
{
    setObjectName(QString::fromUtf8(name));
    const QIcon card = Resource::loadIcon(u"teskel-floppy"_s);
    const QIcon internal = Resource::loadIcon(u"teskel-hard"_s);
    const QList<QTeskelFileInfo> files = FileLoader().getFileList(false);
    int id = 0;
    for (const QTeskelFileInfo& file : files) {
        QAction* entry = addAction(file._removable ? card : internal, menuText(file.displayName()));
        entry->setData(id);
        _fileMap.insert(id, file);
        ++id;
    }
    connect(this, &QMenu::triggered, this,
            [this](const QAction* entry) { menuActivated(entry->data().toInt()); });
}

void QTeskelFileMenu::menuActivated(int id)
{
    if (!_fileMap.contains(id))
        return;
    // A copy: the receiver may delete this menu.
    const QTeskelFileInfo info = _fileMap.value(id);
    emit fileSelected(info);
}

QString QTeskelFileMenu::findReverseDictionary(const QString& name) const
{
    return teskel::reverseDictionaryName(name);
}

QString QTeskelFileMenu::findFileName(const QString& name) const
{
    for (const QTeskelFileInfo& file : _fileMap) {
        if (file.displayName() == name)
            return file.path();
    }
    return {};
}
