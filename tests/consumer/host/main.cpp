// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include <KestWidgets>

#include <QtCore/QFile>
#include <QtCore/QTimer>

#if KEST_VERSION < KEST_VERSION_CHECK(2, 0, 6, 1)
#    error "The version is not what was installed."
#endif

// What Windows alone tells apart.
#if defined(HOST_LINKS_STATICALLY) != defined(KEST_STATIC)
#    error "The host is not told of the library's kind."
#endif

int main(int argc, char *argv[])
{
    KestApplication app(argc, argv);
    KestWindow window;
    window.setWindowTitle(QStringLiteral("Host"));
    window.navigationBar()->addAction(QStringLiteral("Action"), KestNavigationBar::Left);
    window.setCentralWidget(new KestSwitchButton);
    window.show();
    const bool themed = !app.styleSheet().isEmpty()
        && QFile::exists(QStringLiteral(":/KestWidgets/Resources/loading.gif"));
    // Not quit(), since Qt 6 closes all windows then.
    QTimer::singleShot(0, &app, [] { QCoreApplication::exit(); });
    QCoreApplication::exec();
    return themed && window.titleBar()->isVisible() ? 0 : 1;
}
