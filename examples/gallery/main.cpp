// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "GalleryWindow.h"
#include "Screenshots.h"

#include "KestApplication.h"

#include <QtCore/QCommandLineParser>

#include <cstring>

namespace {

const char ScreenshotsOption[] = "screenshots";

// The platform is chosen before there is an application that could parse its arguments.
void preferOffscreenForScreenshots(int argc, char *argv[])
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    if (qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
        || qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        return;
    }
    for (int i = 1; i < argc; ++i) {
        if (std::strstr(argv[i], ScreenshotsOption))
            qputenv("QT_QPA_PLATFORM", "offscreen");
    }
#else
    Q_UNUSED(argc)
    Q_UNUSED(argv)
#endif
}

} // namespace

int main(int argc, char *argv[])
{
    preferOffscreenForScreenshots(argc, argv);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    KestApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kest-gallery"));
    QCoreApplication::setApplicationVersion(QStringLiteral("2.0.6.1"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows the widgets of KestWidgets."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption screenshots(
        QString::fromLatin1(ScreenshotsOption),
        QStringLiteral("Write pictures of everything into <folder> and exit."),
        QStringLiteral("folder"));
    parser.addOption(screenshots);
    parser.process(app);

    GalleryWindow window;
    window.show();
    if (parser.isSet(screenshots))
        return writeScreenshots(&window, parser.value(screenshots)) ? 0 : 1;
    return QCoreApplication::exec();
}
