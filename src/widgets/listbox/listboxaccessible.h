// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

class QTeskelListBox;
class QTeskelListBoxItem;

namespace teskel
{

/// Shows a list box to assistive technology as a list whose children are its items.
class ListBoxAccessible : public QAccessibleWidget
{
public:
    /// Makes every list box be shown this way from now on.
    static void install();
    /// Takes the events instead of the accessibility framework, which is silent while no assistive
    /// technology runs; for tests.
    using Reporter = void (*)(QAccessibleEvent* event);
    static void setReporter(Reporter reporter);
    /// Reports that an item became current, became selected, or got another text. Costs nothing
    /// while nobody listens.
    static void announceCurrent(QTeskelListBox* list, int index);
    static void announceSelected(QTeskelListBox* list, int index);
    static void announceText(QTeskelListBox* list, int index);
    /// Reports that the selection changed in more than one item.
    static void announceSelection(QTeskelListBox* list);

    explicit ListBoxAccessible(QTeskelListBox* list);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessible::State state() const override;

private:
    QTeskelListBox* list() const;
};

/// Shows one item of a list box to assistive technology. Lives as long as the item is in its list.
class ListBoxItemAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    explicit ListBoxItemAccessible(QTeskelListBoxItem* item)
        : _item(item)
    {
    }

    const QTeskelListBoxItem* item() const { return _item; }

    bool isValid() const override { return true; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QTeskelListBoxItem* _item;
};

} // namespace teskel
