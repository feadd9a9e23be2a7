// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/listbox/qteskellistbox.h"

#include <QMetaMethod>
#include <QObject>
#include <QStringList>

namespace teskel::test
{

/// The own and inherited signals or slots of a class, in the order of the meta-object.
inline QStringList methodsOf(const QMetaObject& meta, QMetaMethod::MethodType type, bool own = true)
{
    QStringList names;
    for (int index = own ? meta.methodOffset() : 0; index < meta.methodCount(); ++index) {
        if (meta.method(index).methodType() == type)
            names << QString::fromLatin1(meta.method(index).methodSignature());
    }
    return names;
}

/// Notes every signal of a list box that reports a choice, in the order of its emission.
class SignalLog
{
public:
    explicit SignalLog(QTeskelListBox* list)
    {
        using List = QTeskelListBox;
        using Item = QTeskelListBoxItem*;
        const auto named = [](Item item) {
            return item == nullptr ? QStringLiteral("-") : item->text();
        };
        const auto onItem = [this, named, list](auto signal, const char* name) {
            QObject::connect(list, signal, list,
                             [this, named, name](Item item) { add(name, named(item)); });
        };
        const auto onItemAt = [this, named, list](auto signal, const char* name) {
            QObject::connect(list, signal, list, [this, named, name](Item item, const QPoint&) {
                add(name, named(item) + QStringLiteral(",pos"));
            });
        };
        const auto onIndex = [this, list](auto signal, const char* name) {
            QObject::connect(list, signal, list,
                             [this, name](int index) { add(name, QString::number(index)); });
        };
        const auto onText = [this, list](auto signal, const char* name) {
            QObject::connect(list, signal, list,
                             [this, name](const QString& text) { add(name, u'"' + text + u'"'); });
        };
        const auto onButton = [this, named, list](auto signal, const char* name) {
            QObject::connect(list, signal, list,
                             [this, named, name](int button, Item item, const QPoint&) {
                                 add(name, QString::number(button) + u',' + named(item));
                             });
        };
        onIndex(qOverload<int>(&List::highlighted), "highlighted");
        onIndex(qOverload<int>(&List::selected), "selected");
        onText(qOverload<const QString&>(&List::highlighted), "highlighted");
        onText(qOverload<const QString&>(&List::selected), "selected");
        onItem(qOverload<Item>(&List::highlighted), "highlighted");
        onItem(qOverload<Item>(&List::selected), "selected");
        QObject::connect(list, qOverload<>(&List::selectionChanged), list,
                         [this] { add("selectionChanged", QString()); });
        onItem(qOverload<Item>(&List::selectionChanged), "selectionChanged");
        onItem(&List::currentChanged, "currentChanged");
        onItem(qOverload<Item>(&List::clicked), "clicked");
        onItemAt(qOverload<Item, const QPoint&>(&List::clicked), "clicked");
        onItem(qOverload<Item>(&List::pressed), "pressed");
        onItemAt(qOverload<Item, const QPoint&>(&List::pressed), "pressed");
        onItem(&List::doubleClicked, "doubleClicked");
        onItem(&List::returnPressed, "returnPressed");
        onItemAt(&List::rightButtonClicked, "rightButtonClicked");
        onItemAt(&List::rightButtonPressed, "rightButtonPressed");
        onButton(&List::mouseButtonPressed, "mouseButtonPressed");
        onButton(&List::mouseButtonClicked, "mouseButtonClicked");
        onItem(&List::onItem, "onItem");
        QObject::connect(list, &List::onViewport, list, [this] { add("onViewport", QString()); });
    }

    /// What was noted since the last call.
    QStringList take() { return std::exchange(_entries, {}); }

private:
    void add(const char* name, const QString& argument)
    {
        _entries << QString::fromLatin1(name) + u'(' + argument + u')';
    }

    QStringList _entries;
};

} // namespace teskel::test
