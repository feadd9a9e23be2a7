// SPDX-License-Identifier: MIT
#include "selectorowner.h"

#include "files/dictionarydirectories.h"
#include "files/qteskelfileselector.h"
#include "files/qteskelfileselectorview.h"
#include "files/qteskelselectormenu.h"
#include "platform/qcopchannel.h"

SelectorOwner::SelectorOwner(QTeskelFileSelector* selector)
    : _selector(selector)
{
    // Both connections are younger than the selector's own, so the list is empty by then.
    connect(_selector->menu(), &QTeskelSelectorMenu::filterChanged, this, &SelectorOwner::fill);
    auto* cards = new QCopChannel("QPE/Card", this);
    connect(cards, &QCopChannel::received, this, &SelectorOwner::cardMessage);
    fill(_selector->view()->getMediaFilter());
}

void SelectorOwner::fill(MediaFilter filter)
{
    const QList<teskel::DictionaryDirectory> directories =
        teskel::dictionaryDirectories(filter == MediaFilter::RemovableMedia);
    for (const teskel::DictionaryDirectory& directory : directories)
        _selector->view()->append(directory.path);
}

void SelectorOwner::cardMessage(const QByteArray& message)
{
    if (message == "mtabChanged()")
        fill(_selector->view()->getMediaFilter());
}
