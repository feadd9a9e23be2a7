// SPDX-License-Identifier: MIT
#pragma once

#include <QLayout>
#include <QList>

namespace teskel
{

/// Places widgets side by side and starts a new row where the width ends.
///
/// Lets a group of captions stand in one line on a wide screen and one under the other on a narrow
/// one. Owns its items, as every layout does.
class WrapLayout : public QLayout
{
public:
    explicit WrapLayout(QWidget* parent);
    ~WrapLayout() override;
    Q_DISABLE_COPY_MOVE(WrapLayout)

    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    enum class Mode { Measure, Place };
    int arrange(const QRect& rect, Mode mode) const;

    QList<QLayoutItem*> _items;
};

} // namespace teskel
