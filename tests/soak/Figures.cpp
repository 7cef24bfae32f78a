// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Figures.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QMutex>
#include <QtCore/QSet>
#include <QtCore/QThread>
#include <QtWidgets/QApplication>
#include <private/qhooks_p.h>

#ifdef Q_OS_WIN
#    include <qt_windows.h>

#    include <psapi.h>
#else
#    include <malloc.h>
#endif

namespace {

struct Objects
{
    QMutex mutex;
    QSet<QObject *> all;
};

// Never destroyed: Qt's plugins have objects that die after whatever is the program's own.
Objects &objects()
{
    static auto *const objects = new Objects;
    return *objects;
}

void addObject(QObject *object)
{
    const QMutexLocker locker(&objects().mutex);
    objects().all.insert(object);
}

void removeObject(QObject *object)
{
    const QMutexLocker locker(&objects().mutex);
    objects().all.remove(object);
}

int timers()
{
    const QMutexLocker locker(&objects().mutex);
    const QAbstractEventDispatcher *const dispatcher = QAbstractEventDispatcher::instance();
    int count = 0;
    for (QObject *object : qAsConst(objects().all)) {
        if (object->thread() == QThread::currentThread())
            count += dispatcher->registeredTimers(object).size();
    }
    return count;
}

#ifndef Q_OS_WIN
// Memory that is no file's: pages of libraries become resident whenever they are first used.
qint64 ownKilobytes()
{
    QFile maps(QStringLiteral("/proc/self/smaps_rollup"));
    if (!maps.open(QIODevice::ReadOnly))
        qFatal("soak: no /proc/self/smaps_rollup");
    const QList<QByteArray> lines = maps.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("Anonymous:"))
            return line.simplified().split(' ').at(1).toLongLong();
    }
    qFatal("soak: no anonymous memory in /proc/self/smaps_rollup");
}
#endif

} // namespace

QStringList figureNames()
{
    return {
#ifdef Q_OS_WIN
        QStringLiteral("resident kB"), QStringLiteral("private kB"), QStringLiteral("handles"),
        QStringLiteral("GDI"),         QStringLiteral("USER"),
#else
        QStringLiteral("own kB"),  QStringLiteral("heap kB"), QStringLiteral("descriptors"),
#endif
        QStringLiteral("widgets"),     QStringLiteral("objects"),    QStringLiteral("timers"),
    };
}

bool isMemory(const QString &name)
{
    return name.endsWith(QLatin1String(" kB"));
}

void countObjects()
{
    objects(); // outlives whatever is counted
    qtHookData[QHooks::AddQObject] = reinterpret_cast<quintptr>(&addObject);
    qtHookData[QHooks::RemoveQObject] = reinterpret_cast<quintptr>(&removeObject);
}

Figures figures()
{
    Figures result;
#ifdef Q_OS_WIN
    PROCESS_MEMORY_COUNTERS_EX memory {};
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS *>(&memory),
                         sizeof(memory));
    DWORD handles = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handles);
    result << qint64(memory.WorkingSetSize / 1024) << qint64(memory.PrivateUsage / 1024) << handles
           << GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)
           << GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
#else
    // What is free goes back at once: when the allocator does it by itself depends on what lies at
    // the end of its memory, and one image of a window more or less is 3 MB.
    malloc_trim(0);
    const qint64 own = ownKilobytes();
    const QDir descriptors(QStringLiteral("/proc/self/fd"));
    const struct mallinfo2 heap = mallinfo2();
    result << own << qint64((heap.uordblks + heap.hblkhd) / 1024)
           << descriptors.entryList(QDir::Files | QDir::System).size();
#endif
    const int widgets = QApplication::allWidgets().size();
    const int pending = timers();
    const QMutexLocker locker(&objects().mutex);
    result << widgets << objects().all.size() << pending;
    return result;
}
