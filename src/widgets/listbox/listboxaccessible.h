// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

class QTeskelListBoxItem;
class QTeskelScrollView;

namespace teskel
{

class ListBoxActions;
class ListBoxChoice;
class ListBoxGrid;
class ListBoxModel;
class ListBoxSelection;

/// The parts of a list box that assistive technology asks.
struct ListBoxAccessibleParts {
    QTeskelScrollView& view;
    const ListBoxModel& model;
    const ListBoxSelection& selection;
    ListBoxGrid& grid;
    ListBoxActions& actions;
    ListBoxChoice& choice;
};

/// Shows a list box to assistive technology as a list whose children are its items.
class ListBoxAccessible : public QAccessibleWidget
{
public:
    /// Takes the events instead of the accessibility framework, which is silent while no assistive
    /// technology runs; for tests.
    using Reporter = void (*)(QAccessibleEvent* event);
    static void setReporter(Reporter reporter);
    /// Whether anybody listens; the announcements cost nothing otherwise.
    static bool isHeard();
    /// Reports that an item became current, became selected, or got another text.
    static void announceCurrent(QWidget* list, int index);
    static void announceSelected(QWidget* list, int index);
    static void announceText(QWidget* list, int index);
    /// Reports that the selection changed in more than one item.
    static void announceSelection(QWidget* list);

    explicit ListBoxAccessible(const ListBoxAccessibleParts& parts);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessible::State state() const override;

private:
    ListBoxAccessibleParts _parts;
};

/// Shows one item of a list box to assistive technology. Lives as long as the item is in its list.
class ListBoxItemAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    ListBoxItemAccessible(const ListBoxAccessibleParts& parts, QTeskelListBoxItem* item)
        : _parts(parts)
        , _item(item)
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
    ListBoxAccessibleParts _parts;
    QTeskelListBoxItem* _item;
};

} // namespace teskel
