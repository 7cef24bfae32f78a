// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Fuzzer.h"

#include <QtCore/QEvent>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace {

// Qt says what it makes of bad input. What it says of misuse of itself is an error of the library.
void handleMessage(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    const char *const misuse[] = { "QPainter::", "QObject::", "QLayout", "QTextLayout" };
    bool fatal = type == QtFatalMsg;
    for (const char *name : misuse)
        fatal = fatal || (type != QtDebugMsg && message.startsWith(QLatin1String(name)));
    if (!fatal)
        return;
    std::fprintf(stderr, "%s\n", qPrintable(message));
    std::abort();
}

} // namespace

int FuzzInput::integer()
{
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    const int limits[] = { least,  least + 1, most,      most - 1,        most / 2, least / 2,
                           -65536, 65535,     -1,        QWIDGETSIZE_MAX, 1 << 30,  -(1 << 30),
                           5760,   -5760,     most / 16, most / 5 };
    const int kind = byte();
    if (kind < 128)
        return kind;
    if (kind < 160)
        return limits[kind % 16];
    if (kind < 192)
        return kind - 192;
    if (kind < 224)
        return int(word() % 2048);
    return int(word());
}

double FuzzInput::number()
{
    const double limits[] = { 0.0,
                              -0.0,
                              1.0,
                              1.5,
                              -1.0,
                              std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::max(),
                              std::numeric_limits<double>::denorm_min(),
                              1e300,
                              1e9 };
    const int kind = byte();
    if (kind < 64)
        return kind / 16.0;
    if (kind < 128)
        return limits[size_t(kind) % (sizeof limits / sizeof *limits)];
    if (kind < 192)
        return int(word()) / 65536.0;
    float bits = 0;
    const quint32 value = word();
    std::memcpy(&bits, &value, sizeof bits);
    return double(bits);
}

QSize FuzzInput::size()
{
    const int width = integer();
    return { width, integer() };
}

QString FuzzInput::text(int length)
{
    QByteArray bytes;
    for (int left = below(length + 1); left > 0 && !atEnd(); --left)
        bytes += char(byte());
    return QString::fromUtf8(bytes);
}

QByteArray FuzzInput::rest()
{
    const QByteArray bytes(reinterpret_cast<const char *>(m_next), int(m_end - m_next));
    m_next = m_end;
    return bytes;
}

quint32 FuzzInput::word()
{
    quint32 value = 0;
    for (int i = 0; i < 4; ++i)
        value = value << 8 | quint32(byte());
    return value;
}

void fuzzFailed(const char *file, int line, const QString &what)
{
    std::fprintf(stderr, "%s:%d: %s\n", file, line, qPrintable(what));
    std::abort();
}

void settle()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

// The two functions below are libFuzzer's interface, and called by replay.cpp too.

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(handleMessage);
    // Ends with the process: libFuzzer has nothing to call in the end.
    static char name[] = "fuzzer";
    static char *arguments[] = { name, nullptr };
    static int count = 1;
    static QApplication *const application = new QApplication(count, arguments);
    application->setQuitOnLastWindowClosed(false);
    // The menu of a button waits in a loop of its own for somebody who chooses.
    auto *const popups = new QTimer(application);
    QObject::connect(popups, &QTimer::timeout, application, [] {
        if (QWidget *const popup = QApplication::activePopupWidget())
            popup->close();
    });
    popups->start(0);
    Q_UNUSED(argc)
    Q_UNUSED(argv)
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzInput input(data, size);
    fuzz(input);
    settle();
    return 0;
}
