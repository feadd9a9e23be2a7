// SPDX-License-Identifier: MIT
#include "settings/wordeditorbasedialog.h"

#include "widgets/dialogpage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

WordEditorBaseDialog::WordEditorBaseDialog(QWidget* parent, const char* name, bool modal,
                                           Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setObjectName(name != nullptr ? QString::fromUtf8(name) : u"WordEditorBaseDialog"_s);
    setModal(modal);
    setWindowTitle(tr("Word Editor"));

    auto* form = new QWidget(this);
    auto* wordLabel = new QLabel(tr("Word"), form);
    wordLabel->setObjectName(u"TextLabel1"_s);
    auto* descriptionLabel = new QLabel(tr("Description"), form);
    descriptionLabel->setObjectName(u"TextLabel2"_s);
    _editWord = new QLineEdit(form);
    _editWord->setObjectName(u"editWord"_s);
    _editWord->setAccessibleName(wordLabel->text());
    _btnClear = new QToolButton(form);
    _btnClear->setObjectName(u"btnClear"_s);
    _btnClear->setText(tr("..."));
    _btnClear->setFocusPolicy(Qt::TabFocus);
    _editDescription = new QPlainTextEdit(form);
    _editDescription->setObjectName(u"editDescription"_s);
    _editDescription->setAccessibleName(descriptionLabel->text());
    _editDescription->setTabChangesFocus(true);
    _btnDelete = new QPushButton(tr("&Delete"), form);
    _btnDelete->setObjectName(u"btnDelete"_s);
    _btnDelete->setAutoDefault(false);
    wordLabel->setBuddy(_editWord);
    descriptionLabel->setBuddy(_editDescription);

    auto* wordRow = new QHBoxLayout;
    wordRow->addWidget(_editWord, 1);
    wordRow->addWidget(_btnClear);
    auto* column = new QVBoxLayout(form);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(wordLabel);
    column->addLayout(wordRow);
    column->addWidget(descriptionLabel);
    column->addWidget(_editDescription, 1);
    column->addWidget(_btnDelete, 0, Qt::AlignLeft);

    teskel::fillDialog(this, form);
}
