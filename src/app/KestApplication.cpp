// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestApplication.h"

#include "KestPlatformDelegate.h"
#include "KestStyleSheet.h"

#include <QtCore/QDebug>
#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>
#include <QtCore/QPointer>
#include <QtCore/QTranslator>
#include <QtGui/QWindow>
#include <QtNetwork/QLocalServer>
#include <QtNetwork/QLocalSocket>

#include <climits>

namespace {

const int ProbeTimeoutMs = 100;

// Called in the first instance when a later one announces itself. A visible window is shown once
// more, which brings back what the window system took away; a hidden one is only raised, so that
// nothing the host has hidden pops up.
void presentWindows()
{
    // A window that comes back may delete others.
    const QWindowList all = QGuiApplication::topLevelWindows();
    const QList<QPointer<QWindow>> windows(all.cbegin(), all.cend());
    for (const QPointer<QWindow> &window : windows) {
        if (!window)
            continue;
        if (window->isVisible())
            window->show();
        else
            window->raise();
    }
}

} // namespace

class KestApplicationPrivate
{
public:
    KestApplicationPrivate();

    QLocalServer server;
    QLocalSocket socket;
    QTranslator qtTranslator;
    QTranslator appTranslator;
    int loads = 0; // calls of loadTranslator()
};

KestApplicationPrivate::KestApplicationPrivate()
{
    // Connections are never taken, and the server stops listening once too many are pending.
    server.setMaxPendingConnections(INT_MAX);
}

KestApplication::KestApplication(int &argc, char **argv, int flags, bool useDefaultStyle)
    : QApplication(argc, argv, flags), d(new KestApplicationPrivate)
{
    setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    if (useDefaultStyle)
        setStyleSheet(KestStyleSheet::defaultStyleSheet());
    installPlatformEventFilter();
}

KestApplication::~KestApplication()
{
    delete d;
}

bool KestApplication::checkOtherProcess(const QString &serverName)
{
    if (serverName.isEmpty())
        return false;

    // The connection itself is the message: it is never taken from the server nor read.
    connect(&d->server, &QLocalServer::newConnection, this, presentWindows);

    d->socket.connectToServer(serverName, QIODevice::ReadWrite);
    if (d->socket.waitForConnected(ProbeTimeoutMs))
        return true;
    return !d->server.listen(serverName);
}

bool KestApplication::loadTranslator(const QString &lang)
{
    const int load = ++d->loads;
    const QLocale locale = lang.isEmpty() ? QLocale::system() : QLocale(lang);
    const QString separator = QStringLiteral("_");

    if (d->qtTranslator.load(locale, QStringLiteral("qt"), separator,
                             QLibraryInfo::location(QLibraryInfo::TranslationsPath))) {
        installTranslator(&d->qtTranslator);
    } else {
        removeTranslator(&d->qtTranslator);
        qWarning() << "translator system load error!!!";
    }
    // Whoever heard of the change may have loaded another language by now.
    if (d->loads != load)
        return true;

    if (d->appTranslator.load(locale, applicationName(), separator, QStringLiteral(":/i18n"))) {
        installTranslator(&d->appTranslator);
    } else {
        qWarning() << "app translator load error!!! lang=" << lang << ", local=" << locale;
        removeTranslator(&d->appTranslator);
    }
    return true;
}
