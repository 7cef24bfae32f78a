// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include <KestApplication>
#include <KestTitleBar>
#include <KestWindow>

#include <QtCore/QDebug>
#include <QtCore/QTranslator>

// The arguments are what is expected: a language, a text of the program's in it, one of the
// library's; and where there is a fourth, a folder with the library's catalogues alone.
int main(int argc, char *argv[])
{
    KestApplication app(argc, argv);
#ifdef LIBRARY_ALONE
    QCoreApplication::setApplicationName(QStringLiteral("another-name"));
#endif
    const QStringList expected = QCoreApplication::arguments();
    QTranslator translator;
    if (expected.size() > 4) {
        if (!translator.load(QLocale(expected.at(1)), QStringLiteral("kestwidgets"),
                             QStringLiteral("_"), expected.at(4)))
            return 2;
        QCoreApplication::installTranslator(&translator);
    } else {
        app.loadTranslator(expected.at(1));
    }

    KestWindow window;
    const auto *close = window.titleBar()->findChild<QWidget *>(QStringLiteral("closeBtn"));
    const QStringList found = { QCoreApplication::translate("Host", "Cream"),
                                close->accessibleName() };
    qDebug() << found;
    return found == QStringList(expected.mid(2, 2)) ? 0 : 1;
}
