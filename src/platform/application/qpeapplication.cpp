// SPDX-License-Identifier: MIT
#include "platform/application/qpeapplication.h"

#include "platform/application/dialogframe.h"
#include "platform/application/documentservice.h"
#include "platform/application/keyrepeatfilter.h"
#include "platform/application/stylusholdfilter.h"
#include "platform/application/terminationsignals.h"
#include "platform/resource.h"
#include "platform/storage/mountwatcher.h"
#include "platform/storage/storageinfo.h"
#ifdef TESKEL_WITH_BUS
#include "platform/application/busdocumentservice.h"
#endif

#include <QDialog>
#include <QFile>
#include <QMetaObject>
#include <QScopedValueRollback>
#include <QStandardPaths>
#include <QThreadPool>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr int workerPatience = 200; // milliseconds

bool takesDocuments(const QWidget* widget)
{
    return widget->metaObject()->indexOfSlot("setDocument(QString)") >= 0;
}

void setDefaultRoot()
{
    if (qEnvironmentVariableIsSet("QPEDIR"))
        return;
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    qputenv("QPEDIR", QFile::encodeName(data));
}

} // namespace

QPEApplication::QPEApplication(int& argc, char** argv)
    : QApplication(argc, argv)
{
    setDefaultRoot();
    // Qt paints large gradients, such as those of a scroll bar, by threads, and would keep these
    // for half a minute.
    QThreadPool::globalInstance()->setExpiryTimeout(workerPatience);
    // The display name stays empty: the windowing system would add it to every caption.
    setApplicationName(u"teskel"_s);
    setDesktopFileName(teskel::DocumentService::serviceName());
    setWindowIcon(Resource::loadIcon(u"teskel"_s));
    installEventFilter(new teskel::KeyRepeatFilter(this));

    const auto* termination = new teskel::TerminationSignals(this);
    connect(termination, &teskel::TerminationSignals::received, this,
            &QPEApplication::closeMainWidget);
    new teskel::MountWatcher(StorageInfo::roots().mountInfo, this);

#ifdef TESKEL_WITH_BUS
    _service = new teskel::BusDocumentService(this);
#else
    _service = new teskel::DocumentService(this);
#endif

    // Queued: a message about a bad file must not keep the asking program waiting for its answer.
    connect(_service, &teskel::DocumentService::openRequested, this, &QPEApplication::openDocument,
            Qt::QueuedConnection);
    connect(_service, &teskel::DocumentService::activateRequested, this,
            &QPEApplication::activateMainWidget);
}

QPEApplication::~QPEApplication() = default;

void QPEApplication::showMainWidget(QWidget* widget)
{
    const bool documents = takesDocuments(widget);
    if (documents && _service->isStartedByRequest())
        _service->startAndReceive();
    _mainWidget = widget;
    deliverDocuments();
    widget->showMaximized();
    if (documents)
        QTimer::singleShot(0, _service, &teskel::DocumentService::start);
    // The request came while something else than the main window was on the screen.
    if (_endRequested)
        QTimer::singleShot(0, this, &QPEApplication::closeMainWidget);
}

void QPEApplication::openDocument(const QString& path)
{
    _documents.append(path);
    if (_mainWidget == nullptr || _delivering)
        return;
    deliverDocuments();
    activateMainWidget();
}

void QPEApplication::deliverDocuments()
{
    // A message box about a bad file runs the event loop; what comes meanwhile waits its turn.
    const QScopedValueRollback<bool> delivering(_delivering, true);
    while (_mainWidget != nullptr && !_documents.isEmpty()) {
        const QString path = _documents.takeFirst();
        if (takesDocuments(_mainWidget))
            QMetaObject::invokeMethod(_mainWidget, "setDocument", Qt::DirectConnection,
                                      Q_ARG(QString, path));
    }
}

void QPEApplication::activateMainWidget()
{
    if (_mainWidget == nullptr || !_mainWidget->isVisible())
        return;
    _mainWidget->setWindowState(_mainWidget->windowState() & ~Qt::WindowMinimized);
    _mainWidget->raise();
    _mainWidget->activateWindow();
}

void QPEApplication::closeMainWidget()
{
    _endRequested = true;
    while (QWidget* popup = activePopupWidget()) {
        if (!popup->close())
            break;
    }
    closeAllWindows();
    const QWidgetList windows = topLevelWidgets();
    if (std::none_of(windows.cbegin(), windows.cend(),
                     [](const QWidget* window) { return window->isVisible(); }))
        quit();
}

void QPEApplication::setStylusOperation(QWidget* widget, StylusMode mode)
{
    auto* filter = teskel::StylusHoldFilter::of(widget);
    if (mode == LeftOnly)
        delete filter;
    else if (filter == nullptr)
        new teskel::StylusHoldFilter(widget);
}

QPEApplication::StylusMode QPEApplication::stylusOperation(const QWidget* widget)
{
    return teskel::StylusHoldFilter::of(widget) == nullptr ? LeftOnly : RightOnHold;
}

int QPEApplication::execDialog(QDialog* dialog)
{
    teskel::DialogFrame::addTo(dialog);
    if (!dialog->isVisible()) {
        dialog->setModal(true);
        dialog->showMaximized();
    }
    return dialog->exec();
}
