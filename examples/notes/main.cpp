// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "NotesWindow.h"

#include <KestApplication.h>

#include <QtCore/QDir>
#include <QtCore/QStandardPaths>
#include <QtGui/QIcon>

int main(int argc, char *argv[])
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0) // Qt 6 does so without being asked
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    KestApplication app(argc, argv); // brings the look
    QCoreApplication::setOrganizationName(QStringLiteral("KestWidgets"));
    QCoreApplication::setApplicationName(
        QStringLiteral("notes")); // of the settings, and catalogues
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/notes.png")));

    // Two of them would write the same files. The one that is there shows its window.
    if (app.checkOtherProcess(QStringLiteral("kest-notes-") + QDir::home().dirName()))
        return 0;

    app.loadTranslator(NotesWindow::language()); // this program's texts, the library's and Qt's

    const QDir data(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    NotesWindow window(data.filePath(QStringLiteral("notes")));
    window.show();
    return QCoreApplication::exec();
}
