// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QLabel;

/// The controls of the About dialog: a picture, the product's texts, two lines.
class AboutBaseDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AboutBaseDialog(QWidget* parent = nullptr, const char* name = nullptr,
                             bool modal = false, Qt::WindowFlags flags = {});

protected:
    /// Makes the product name bold again when the application's font changes.
    bool event(QEvent* event) override;

private:
    void createControls(QWidget* content);
    void placeControls(QWidget* content);
    void applyTitleFont();

    QLabel* _picture = nullptr;
    QLabel* _web = nullptr;
    QLabel* _description = nullptr;
    QWidget* _upperLine = nullptr;
    QLabel* _copyright = nullptr;
    QWidget* _lowerLine = nullptr;
    QLabel* _support = nullptr;
    QLabel* _title = nullptr;
};
