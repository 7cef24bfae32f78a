// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QProcess>
#include <QtCore/QUuid>
#include <QtNetwork/QLocalSocket>
#include <QtTest/QTest>

// Other processes with an application of the library: see applicationprobe.cpp.

inline QString uniqueName()
{
    return QStringLiteral("kest-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
}

inline QString probeProgram()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/applicationprobe");
}

inline QByteArray runProbe(const QStringList &arguments)
{
    QProcess probe;
    probe.start(probeProgram(), arguments);
    // This process answers meanwhile, as a first instance would.
    while (probe.state() != QProcess::NotRunning)
        QTest::qWait(5);
    return probe.readAllStandardOutput().trimmed();
}

// Whether somebody serves the name, asked with no help of the class under test.
inline bool isServed(const QString &name)
{
    QLocalSocket socket;
    socket.connectToServer(name);
    return socket.waitForConnected(1000);
}

inline int millisecondsIn(const QByteArray &answer)
{
    return answer.mid(answer.indexOf("ms=") + 3).toInt();
}
