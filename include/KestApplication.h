// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTAPPLICATION_H
#define KESTAPPLICATION_H

#include "KestGlobal.h"

#include <QtWidgets/QApplication>

class KestApplicationPrivate;

/*!
    \class KestApplication
    \brief An application with the library's theme, a guard against a second instance, and
    translations.

    What does a host's main() look like?

    \code
    int main(int argc, char *argv[])
    {
        KestApplication app(argc, argv);
        const QString user = QDir::home().dirName();
        if (app.checkOtherProcess(QStringLiteral("my-editor-") + user))
            return 0; // one is running already, and shows its windows
        app.loadTranslator(QString());
        KestWindow window;
        window.show();
        return app.exec();
    }
    \endcode

    Create it once, before any widget.

    \image html kestapplication.png width=576px
*/
class KEST_EXPORT KestApplication : public QApplication
{
    Q_OBJECT

public:
    /*!
        Constructs the application; \a argc, \a argv and \a flags go to QApplication as they are.

        With \a useDefaultStyle the application's style sheet becomes
        KestStyleSheet::defaultStyleSheet(); without it none is set. Native windows of child
        widgets do not make their siblings native (Qt::AA_DontCreateNativeWidgetSiblings).
    */
    KestApplication(int &argc, char **argv, int flags = ApplicationFlags,
                    bool useDefaultStyle = true);
    /*! Destroys the application; the name that checkOtherProcess() claimed is free again. */
    ~KestApplication() override;

    /*!
        Returns whether another process already runs under \a serverName, and claims the name for
        this one where none does. Call it once, before the first window is shown.

        The name is that of a local socket and is the host's to choose. All users of a machine
        share these names: one that is not meant to be shared should contain the user's, as in
        "my-editor-ann". On Unix it is that of a file in the temporary folder, where separators
        mean folders; on Linux the whole path has 107 bytes at most, with Qt 6 106.

        If a process serves the name, this one is told within 100 milliseconds, and the other one
        calls QWindow::show() for each of its visible top-level windows and QWindow::raise() for
        the hidden ones, which stay hidden. That brings a minimised window back, but also gives a
        maximised one its normal size, and whether a window comes to the front is the window
        system's choice. Every later process is noticed, also while this one shows nothing. Nothing
        is read from those that connect, and the last 64 are kept at most.

        A name that can neither be reached nor claimed counts as taken: one that is too long, that
        is in a folder that does not exist, that another user or a process that does not answer
        has, or that is a file of another kind, which is left alone. On Unix it is also the name of
        a process that was killed, since its socket stays in the file system; a host that expects
        that clears the name where nobody answers:

        \code
        QLocalSocket probe;
        probe.connectToServer(name);
        if (!probe.waitForConnected(100) && probe.error() == QLocalSocket::ConnectionRefusedError)
            QLocalServer::removeServer(name);
        if (app.checkOtherProcess(name))
            return 0;
        \endcode

        With an empty name nothing is done and false returned.
    */
    bool checkOtherProcess(const QString &serverName);

    /*!
        Loads and installs Qt's own catalogue ("qt", from Qt's translations directory) and the
        host's (named after applicationName(), from ":/i18n") for the locale \a lang, or for the
        system's locale where \a lang is empty. Always returns true.

        A catalogue that cannot be found is reported as a warning, and the one that an earlier
        call installed in its place is removed.
    */
    bool loadTranslator(const QString &lang);

private:
    Q_DISABLE_COPY(KestApplication)
    KestApplicationPrivate *d;
};

#endif // KESTAPPLICATION_H
