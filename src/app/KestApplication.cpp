// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestApplication.h"

#include "KestPlatformDelegate.h"
#include "KestStyleSheet.h"
#include "QtVersions.h"

#include <QtCore/QDebug>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>
#include <QtCore/QPointer>
#include <QtCore/QTranslator>
#include <QtGui/QWindow>
#include <QtNetwork/QLocalServer>
#include <QtNetwork/QLocalSocket>

namespace {

const int ProbeTimeoutMs = 100;

// Other processes stay connected until they end, but not so many that this one runs out of
// descriptors: the server would give up its name then.
const int MaxConnections = 64;

// Whether something has a name that is too long for a socket: the server would remove it when it
// fails to listen there. Any other file makes a socket "refused" and not "not found".
bool isFileBeyondSockets(const QString &serverName, QLocalSocket::LocalSocketError error)
{
#ifdef Q_OS_UNIX
    const QFileInfo file(QDir::temp().absoluteFilePath(serverName));
    return error == QLocalSocket::ServerNotFoundError && (file.exists() || file.isSymLink());
#else
    Q_UNUSED(serverName)
    Q_UNUSED(error)
    return false;
#endif
}

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

    void keepConnection();

    QLocalServer server;
    QLocalSocket socket;
    QTranslator qtTranslator;
    QTranslator appTranslator;
    int loads = 0; // calls of loadTranslator()
};

KestApplicationPrivate::KestApplicationPrivate()
{
    QObject::connect(&server, &QLocalServer::newConnection, &server, [this] { keepConnection(); });
}

// The connection itself is the message: nothing is read from it nor written to it, and it stays
// open until the other process ends, or until too many others have come.
void KestApplicationPrivate::keepConnection()
{
    QLocalSocket *const connection = server.nextPendingConnection();
    // Qt reads ahead all that it is sent, otherwise.
    connection->setReadBufferSize(1);
    QObject::connect(connection, &QLocalSocket::disconnected, connection, &QObject::deleteLater);
    const QList<QLocalSocket *> connections =
        server.findChildren<QLocalSocket *>(QString(), Qt::FindDirectChildrenOnly);
    if (connections.size() > MaxConnections)
        connections.first()->abort();
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

    connect(&d->server, &QLocalServer::newConnection, this, presentWindows);

    d->socket.connectToServer(serverName, QIODevice::ReadWrite);
    if (d->socket.waitForConnected(ProbeTimeoutMs))
        return true;
    if (isFileBeyondSockets(serverName, d->socket.error()))
        return true;
    return !d->server.listen(serverName);
}

bool KestApplication::loadTranslator(const QString &lang)
{
    const int load = ++d->loads;
    const QLocale locale = lang.isEmpty() ? QLocale::system() : QLocale(lang);

    if (loadCatalogue(&d->qtTranslator, locale, QStringLiteral("qt"),
                      QLibraryInfo::location(QLibraryInfo::TranslationsPath))) {
        installTranslator(&d->qtTranslator);
    } else {
        removeTranslator(&d->qtTranslator);
        qWarning() << "translator system load error!!!";
    }
    // Whoever heard of the change may have loaded another language by now.
    if (d->loads != load)
        return true;

    if (loadCatalogue(&d->appTranslator, locale, applicationName(), QStringLiteral(":/i18n"))) {
        installTranslator(&d->appTranslator);
    } else {
        qWarning() << "app translator load error!!! lang=" << lang << ", local=" << locale;
        removeTranslator(&d->appTranslator);
    }
    return true;
}
