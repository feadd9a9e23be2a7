// SPDX-License-Identifier: MIT
// A small application whose life the tests follow from outside: it reports on standard output.
#include "platform/application/qpeapplication.h"
#ifdef TESKEL_WITH_BUS
#include "platform/application/busdocumentservice.h"
#endif

#include <QCloseEvent>
#include <QDialog>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

void report(const QString& line)
{
    std::fputs(qPrintable(line + u'\n'), stdout);
    std::fflush(stdout);
}

} // namespace

class Window : public QWidget
{
    Q_OBJECT

public:
    explicit Window(const QStringList& modes)
        : _refuse(modes.contains(u"--refuse"_s))
        , _box(modes.contains(u"--box"_s))
    {
    }

public slots:
    void setDocument(const QString& path)
    {
        report(u"document "_s + path);
        if (_box)
            QMessageBox::critical(this, u"Teskel"_s, path);
    }

protected:
    void showEvent(QShowEvent* event) override
    {
        QWidget::showEvent(event);
        report(u"shown"_s);
    }
    void closeEvent(QCloseEvent* event) override
    {
        report(_refuse ? u"refused"_s : u"closed"_s);
        event->setAccepted(!_refuse);
        _refuse = false;
    }

private:
    bool _refuse;
    bool _box;
};

int main(int argc, char** argv)
{
    QPEApplication application(argc, argv);
    const QStringList modes = QPEApplication::arguments();
#ifdef TESKEL_WITH_BUS
    if (modes.contains(u"--impatient"_s))
        application.findChild<teskel::BusDocumentService*>()->setPatience({});
#endif
    report(u"root "_s + qEnvironmentVariable("QPEDIR"));
    Window window(modes);

    if (modes.contains(u"--early"_s))
        application.openDocument(u"/early.PDB"_s);
    if (modes.contains(u"--box-first"_s)) {
        QTimer::singleShot(0, &window, [] { report(u"box"_s); });
        QMessageBox::critical(&window, u"Teskel"_s, u"text"_s);
        report(u"box gone"_s);
    }
    QWidget plain;
    application.showMainWidget(modes.contains(u"--no-documents"_s) ? &plain : &window);
    QTimer::singleShot(0, &window, [] { report(u"running"_s); });

    QDialog dialog(&window);
    if (modes.contains(u"--dialog"_s)) {
        QTimer::singleShot(0, &window, [&dialog] {
            QTimer::singleShot(0, &dialog, [] { report(u"dialog"_s); });
            report(u"dialog result %1"_s.arg(QPEApplication::execDialog(&dialog)));
        });
    }
    QMenu menu(&window);
    menu.addAction(u"entry"_s);
    if (modes.contains(u"--menu"_s)) {
        QTimer::singleShot(0, &window, [&menu] {
            QTimer::singleShot(0, &menu, [] { report(u"menu"_s); });
            menu.exec(QPoint(0, 0));
        });
    }
    const int result = QPEApplication::exec();
    report(u"end"_s);
    return result;
}

#include "probe.moc"
