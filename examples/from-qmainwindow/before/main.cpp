// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "MainWindow.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("KestWidgets"));
    QCoreApplication::setApplicationName(QStringLiteral("from-qmainwindow"));
    MainWindow window;
    window.show();
    return QCoreApplication::exec();
}
