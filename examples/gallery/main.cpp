// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "ContactSheet.h"
#include "GalleryWindow.h"
#include "Screenshots.h"

#include "KestApplication.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QSettings>

#include <cstring>

namespace {

const char ScreenshotsOption[] = "screenshots";
const char ContactSheetOption[] = "contact-sheet";

// The platform is chosen before there is an application that could parse its arguments.
void preferOffscreenForPictures(int argc, char *argv[])
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    if (qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
        || qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        return;
    }
    for (int i = 1; i < argc; ++i) {
        if (std::strstr(argv[i], ScreenshotsOption) || std::strstr(argv[i], ContactSheetOption))
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
    preferOffscreenForPictures(argc, argv);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0) // Qt 6 does so without being asked
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    KestApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("KestWidgets"));
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
    const QCommandLineOption sheetFile(
        QString::fromLatin1(ContactSheetOption),
        QStringLiteral("Write a picture of every widget in every state to <file> and exit."),
        QStringLiteral("file"));
    const QCommandLineOption theme(QStringLiteral("theme"),
                                   QStringLiteral("The theme at first: default, tool or "
                                                  "\"kest blue\"."),
                                   QStringLiteral("name"), QStringLiteral("default"));
    const QCommandLineOption sheet(QStringLiteral("sheet"),
                                   QStringLiteral("A style sheet to use in place of a theme; "
                                                  "several are joined."),
                                   QStringLiteral("file"));
    const QCommandLineOption scale(QStringLiteral("scale"),
                                   QStringLiteral("The scale at first, in percent."),
                                   QStringLiteral("percent"), QStringLiteral("100"));
    parser.addOptions({ screenshots, sheetFile, theme, sheet, scale });
    parser.process(app);

    const int percent = parser.value(scale).toInt();
    const Theme look = parser.isSet(sheet) ? Theme::fromFiles(parser.values(sheet))
                                           : Theme::named(parser.value(theme));
    if (parser.isSet(sheetFile)) {
        const double rate = percent / 100.0;
        look.apply(rate);
        return contactSheet(rate).save(parser.value(sheetFile)) ? 0 : 1;
    }

    GalleryWindow window;
    const bool chosen = parser.isSet(theme) || parser.isSet(sheet) || parser.isSet(scale);
    if (chosen)
        window.setLook(look, percent);
    if (parser.isSet(screenshots)) {
        window.resize(window.size() * percent / 100);
        window.show();
        const QString folder = parser.value(screenshots);
        return (chosen ? writePages(&window, folder) : writeScreenshots(&window, folder)) ? 0 : 1;
    }
    QSettings settings;
    window.restorePlace(settings);
    window.show();
    const int result = QCoreApplication::exec();
    window.savePlace(&settings);
    return result;
}
