// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QPointer>
#include <QStringList>

class QDialog;

namespace teskel
{
class DocumentService;
}

/// The application object: the main widget, requests to open a document, and the end of it all.
///
/// When the environment has no QPEDIR, construction sets it to `$XDG_DATA_HOME` (by default
/// `~/.local/share`). SIGTERM, SIGINT and SIGHUP close all windows as their close buttons do.
class QPEApplication : public QApplication
{
    Q_OBJECT

public:
    enum StylusMode {
        LeftOnly = 0,    ///< the pen is the left button
        RightOnHold = 1, ///< the pen held still for half a second is the right button
    };

    QPEApplication(int& argc, char** argv);
    ~QPEApplication() override;
    QPEApplication(const QPEApplication&) = delete;
    QPEApplication& operator=(const QPEApplication&) = delete;

    /// Makes `widget` the receiver of document requests, delivers those that came before, the ones
    /// that made the desktop start this program among them, then shows it maximised. The caller
    /// keeps the widget. Requests from the desktop come only to a
    /// widget with the slot `setDocument(const QString&)`.
    void showMainWidget(QWidget* widget);
    /// The widget given to showMainWidget() while it lives.
    QWidget* mainWidget() const { return _mainWidget; }

    /// Sets what a held pen means on `widget`; on a scroll area set it on the viewport, and after
    /// the area has been constructed.
    static void setStylusOperation(QWidget* widget, StylusMode mode);
    static StylusMode stylusOperation(const QWidget* widget);

    /// Runs `dialog` modally in a frame with OK and Cancel at its lower edge, shown maximised
    /// unless it is shown already.
    /// @return QDialog::Accepted or QDialog::Rejected
    static int execDialog(QDialog* dialog);

public slots:
    /// Hands a document to the slot `setDocument(const QString&)` of the main widget and raises
    /// its window; kept until there is a main widget.
    void openDocument(const QString& path);
    /// Brings the main window to the front.
    void activateMainWidget();
    /// Closes open dialogs and menus, then every window as by its close button.
    void closeMainWidget();

private:
    void deliverDocuments();

    teskel::DocumentService* _service = nullptr;
    QPointer<QWidget> _mainWidget;
    QStringList _documents;
    bool _delivering = false;
    bool _endRequested = false;
};
