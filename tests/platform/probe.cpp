// SPDX-License-Identifier: MIT
// A small application whose life the tests follow from outside: it reports on standard output.
#include "platform/application/qpeapplication.h"

#include <QCloseEvent>
#include <QDialog>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>
#include <cstdio>

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
        : _refuse(modes.contains(QStringLiteral("--refuse")))
        , _box(modes.contains(QStringLiteral("--box")))
    {
    }

public slots:
    void setDocument(const QString& path)
    {
        report(QStringLiteral("document ") + path);
        if (_box)
            QMessageBox::critical(this, QStringLiteral("Teskel"), path);
    }

protected:
    void showEvent(QShowEvent* event) override
    {
        QWidget::showEvent(event);
        report(QStringLiteral("shown"));
    }
    void closeEvent(QCloseEvent* event) override
    {
        report(_refuse ? QStringLiteral("refused") : QStringLiteral("closed"));
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
    report(QStringLiteral("root ") + qEnvironmentVariable("QPEDIR"));
    Window window(modes);

    if (modes.contains(QStringLiteral("--early")))
        application.openDocument(QStringLiteral("/early.PDB"));
    if (modes.contains(QStringLiteral("--box-first"))) {
        QTimer::singleShot(0, &window, [] { report(QStringLiteral("box")); });
        QMessageBox::critical(&window, QStringLiteral("Teskel"), QStringLiteral("text"));
        report(QStringLiteral("box gone"));
    }
    QWidget plain;
    application.showMainWidget(modes.contains(QStringLiteral("--no-documents")) ? &plain : &window);
    QTimer::singleShot(0, &window, [] { report(QStringLiteral("running")); });

    QDialog dialog(&window);
    if (modes.contains(QStringLiteral("--dialog"))) {
        QTimer::singleShot(0, &window, [&dialog] {
            QTimer::singleShot(0, &dialog, [] { report(QStringLiteral("dialog")); });
            report(QStringLiteral("dialog result %1").arg(QPEApplication::execDialog(&dialog)));
        });
    }
    QMenu menu(&window);
    menu.addAction(QStringLiteral("entry"));
    if (modes.contains(QStringLiteral("--menu"))) {
        QTimer::singleShot(0, &window, [&menu] {
            QTimer::singleShot(0, &menu, [] { report(QStringLiteral("menu")); });
            menu.exec(QPoint(0, 0));
        });
    }
    const int result = QPEApplication::exec();
    report(QStringLiteral("end"));
    return result;
}

#include "probe.moc"
