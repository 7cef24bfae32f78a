// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include <KestApplication.h>
#include <KestNavigationBar.h>
#include <KestTitleBar.h>
#include <KestWindow.h>

#include <QtCore/QFile>
#include <QtCore/QTimer>

int main(int argc, char *argv[])
{
    KestApplication app(argc, argv);
    KestWindow window;
    window.setWindowTitle(QStringLiteral("Consumer"));
    window.navigationBar()->addAction(QStringLiteral("Action"), KestNavigationBar::Left);
    window.show();
    const bool themed = !app.styleSheet().isEmpty()
        && QFile::exists(QStringLiteral(":/KestWidgets/Resources/loading.gif"));
    QTimer::singleShot(0, &app, &QCoreApplication::quit);
    QCoreApplication::exec();
    return themed && window.titleBar()->isVisible() ? 0 : 1;
}
