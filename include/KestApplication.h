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
        if (app.checkOtherProcess(QStringLiteral("my-editor")))
            return 0; // the running instance has come to the front
        app.loadTranslator(QString());
        KestWindow window;
        window.show();
        return app.exec();
    }
    \endcode

    Create it once, before any widget.
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
    ~KestApplication() override;

    /*!
        Returns whether another process already runs under \a serverName, and claims the name for
        this one where none does.

        The name is that of a local socket and is the host's to choose. If a process serves it,
        this one is told within 100 milliseconds and the other one shows its visible windows
        again and raises its hidden ones, which stay hidden. A name that can neither be reached
        nor claimed counts as taken. With an empty name nothing is done and false returned.
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
