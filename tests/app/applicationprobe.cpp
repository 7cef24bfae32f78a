// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// A process that makes a KestApplication and prints what comes of it:
//   applicationprobe defaults        "sheet=<default|none|other> siblings=<0|1>", default arguments
//   applicationprobe style <0|1>     the same, with useDefaultStyle as said
//   applicationprobe check NAME      "taken=<0|1> ms=<milliseconds>"
//   applicationprobe foreign NAME    the same as another user, where this one is root
//   applicationprobe serve NAME      as check, then runs until its standard input ends, with
//                                    "presented=<times so far>" whenever its window is presented
//   applicationprobe again NAME      as serve, after a second call with another name
//   applicationprobe race NAME       as serve, after "ready" and a line from its standard input

#include "KestApplication.h"
#include "KestStyleSheet.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QScopedPointer>
#include <QtCore/QThread>
#include <QtGui/QWindow>

#include <cstdio>
#include <iostream>

#ifdef Q_OS_UNIX
#    include <unistd.h>
#endif

namespace {

int describe(const KestApplication &app)
{
    const QString sheet = app.styleSheet();
    const char *const kind = sheet.isEmpty()           ? "none"
        : sheet == KestStyleSheet::defaultStyleSheet() ? "default"
                                                       : "other";
    std::printf("sheet=%s siblings=%d\n", kind,
                int(!QCoreApplication::testAttribute(Qt::AA_DontCreateNativeWidgetSiblings)));
    return 0;
}

// The offscreen platform cannot raise windows and says so each time.
void countRaised(QtMsgType, const QMessageLogContext &, const QString &text)
{
    static int raised = 0;
    if (text != QLatin1String("This plugin does not support raise()"))
        return;
    std::printf("presented=%d\n", ++raised);
    std::fflush(stdout);
}

// Runs until the standard input ends, with one hidden window.
void serve(KestApplication *app)
{
    qInstallMessageHandler(countRaised);
    QWindow window;
    window.create();
    const QScopedPointer<QThread> reader(QThread::create([] {
        std::string line;
        while (std::getline(std::cin, line)) { }
    }));
    QObject::connect(reader.data(), &QThread::finished, app, &QCoreApplication::quit);
    reader->start();
    QCoreApplication::exec();
    reader->wait();
}

} // namespace

int main(int argc, char *argv[])
{
    const QByteArray mode(argc > 1 ? argv[1] : "");
    const QByteArray argument(argc > 2 ? argv[2] : "");
    QScopedPointer<KestApplication> app;
    if (mode == "race") {
        app.reset(new KestApplication(argc, argv, QCoreApplication::ApplicationFlags, false));
        std::printf("ready\n");
        std::fflush(stdout);
        std::string line;
        std::getline(std::cin, line);
    } else if (mode == "style") {
        app.reset(
            new KestApplication(argc, argv, QCoreApplication::ApplicationFlags, argument == "1"));
    } else {
        app.reset(new KestApplication(argc, argv));
    }

    if (mode == "defaults" || mode == "style")
        return describe(*app);

#ifdef Q_OS_UNIX
    const uid_t nobody = 65534;
    if (mode == "foreign" && getuid() == 0 && setuid(nobody) != 0)
        return 1;
#endif
    QElapsedTimer timer;
    timer.start();
    const bool taken = app->checkOtherProcess(QString::fromUtf8(argument));
    std::printf("taken=%d ms=%d\n", int(taken), int(timer.elapsed()));
    std::fflush(stdout);
    if (mode == "again") {
        std::printf("again=%d\n", int(app->checkOtherProcess(QStringLiteral("another"))));
        std::fflush(stdout);
    }
    if (mode == "serve" || mode == "again" || mode == "race")
        serve(app.data());
    return 0;
}
