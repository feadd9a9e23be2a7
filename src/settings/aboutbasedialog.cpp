// SPDX-License-Identifier: MIT
#include "settings/aboutbasedialog.h"

#include "settings/aboutpicture.h"
#include "settings/product.h"
#include "widgets/dialogpage.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QScrollArea>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace
{

QLabel* createText(QWidget* parent, const QString& objectName, const QString& text)
{
    auto* label = new QLabel(parent);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setText(text);
    return label;
}

QLabel* createAddress(QWidget* parent, const QString& objectName, const QString& text)
{
    QLabel* label = createText(parent, objectName, text);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

QWidget* createLine(QWidget* parent, const QString& objectName)
{
    auto* line = new QFrame(parent);
    line->setObjectName(objectName);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

} // namespace

AboutBaseDialog::AboutBaseDialog(QWidget* parent, const char* name, bool modal,
                                 Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setObjectName(name != nullptr ? QString::fromUtf8(name) : u"AboutBaseDialog"_s);
    setModal(modal);
    setWindowTitle(tr("About"));

    auto* content = new QWidget(this);
    createControls(content);
    placeControls(content);
    applyTitleFont();
    teskel::fillDialog(this, teskel::scrollWhereNeeded(content, this));
}

void AboutBaseDialog::createControls(QWidget* content)
{
    const QPixmap picture(teskel::aboutPicture);
    _picture = new QLabel(content);
    _picture->setObjectName(u"PixmapLabel1"_s);
    _picture->setPixmap(picture);
    _picture->setScaledContents(true);
    _picture->setFixedSize(picture.size());
    _picture->setAccessibleName(tr("Picture of a dictionary"));
    _web = createAddress(content, u"TextLabel3"_s, QString::fromUtf8(teskel::webAddress));
    _description = createText(content, u"TextLabel2"_s,
                              tr("A reader for bilingual dictionaries that works offline.\n"
                                 "For Linux on handhelds and desktops, with X11, Wayland or a "
                                 "plain framebuffer."));
    _upperLine = createLine(content, u"Line1"_s);
    _copyright = createText(content, u"TextLabel5"_s, tr("Copyright (C) 2026 the Teskel authors"));
    _lowerLine = createLine(content, u"Line1_2"_s);
    _support = createAddress(content, u"TextLabel4"_s, QString::fromUtf8(teskel::supportAddress));
    _title = createText(content, u"TextLabel1"_s,
                        tr("Teskel %1").arg(QString::fromUtf8(teskel::productVersion)));
}

void AboutBaseDialog::placeControls(QWidget* content)
{
    auto* head = new QHBoxLayout;
    head->addWidget(_picture);
    head->addWidget(_title, 1);
    auto* column = new QVBoxLayout(content);
    column->addLayout(head);
    for (QWidget* control :
         {static_cast<QWidget*>(_description), _upperLine, static_cast<QWidget*>(_copyright),
          _lowerLine, static_cast<QWidget*>(_web), static_cast<QWidget*>(_support)})
        column->addWidget(control);
    column->addStretch();
    setTabOrder(_web, _support);
}

void AboutBaseDialog::applyTitleFont()
{
    QFont font = _title->font();
    font.setWeight(QFont::Bold);
    _title->setFont(font);
}

bool AboutBaseDialog::event(QEvent* event)
{
    const bool handled = QDialog::event(event);
    if (event->type() == QEvent::ApplicationFontChange)
        applyTitleFont();
    return handled;
}
