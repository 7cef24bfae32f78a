// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "GalleryWindow.h"
#include "Pixels.h"
#include "Themes.h"

#include <QtCore/QSet>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

namespace {

const double MarkContrast = 3;
const int MarkPixels = 32; // so many pixels at least make a mark that one finds
const int Around = 4; // pixels around a widget in which its mark may be
const int MostStops = 100; // of a page and the bars

QImage pictureOf(QWidget *widget)
{
    QWidget *const window = widget->window();
    const QRect place(widget->mapTo(window, QPoint(0, 0)), widget->size());
    return window->grab(place.adjusted(-Around, -Around, Around, Around) & window->rect())
        .toImage()
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

class tst_Gallery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyStopOfTheKeyboardIsSeen_data();
    void everyStopOfTheKeyboardIsSeen();
    void keyboardReachesEveryPage();
    void keyboardOpensTheMenus();
};

void tst_Gallery::everyStopOfTheKeyboardIsSeen_data()
{
    QTest::addColumn<int>("theme");
    QTest::addColumn<int>("page");
    const GalleryWindow window;
    for (int theme = 0; theme < window.themeCount(); ++theme) {
        for (int page = 0; page < window.pageCount(); ++page) {
            QTest::addRow("%s: %s", qPrintable(window.themeName(theme)),
                          qPrintable(window.page(page)->windowTitle()))
                << theme << page;
        }
    }
}

void tst_Gallery::everyStopOfTheKeyboardIsSeen()
{
    QFETCH(int, theme);
    QFETCH(int, page);
    GalleryWindow window;
    window.setTheme(theme);
    window.setCurrentPage(page);
    window.resize(1100, 760);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    QStringList unseen;
    QSet<QWidget *> stops;
    while (stops.size() < MostStops) {
        QWidget *const from = QApplication::focusWidget();
        QTest::keyClick(from ? from : &window, Qt::Key_Tab);
        QWidget *const stop = QApplication::focusWidget();
        QVERIFY(stop);
        if (stops.contains(stop))
            break;
        stops.insert(stop);
        const QImage with = pictureOf(stop);
        stop->clearFocus();
        const QImage without = pictureOf(stop);
        stop->setFocus(Qt::TabFocusReason);
        const int seen = Pixels::changedWithContrast(without, with, MarkContrast);
        if (seen < MarkPixels) {
            unseen.append(
                QStringLiteral("%1 %2: %3")
                    .arg(QString::fromLatin1(stop->metaObject()->className()), stop->objectName())
                    .arg(seen));
        }
    }
    // The list of pages, what is on the page, and the entries of the bars.
    QVERIFY2(stops.size() > 5 && stops.size() < MostStops,
             qPrintable(QString::number(stops.size())));
    QVERIFY2(unseen.isEmpty(), qPrintable(unseen.join(QStringLiteral("; "))));
}

void tst_Gallery::keyboardReachesEveryPage()
{
    GalleryWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    for (int i = 0; i < MostStops && !qobject_cast<QListWidget *>(QApplication::focusWidget()); ++i)
        QTest::keyClick(&window, Qt::Key_Tab);
    QWidget *const list = QApplication::focusWidget();
    QVERIFY(qobject_cast<QListWidget *>(list));
    QTest::keyClick(list, Qt::Key_Home);
    for (int i = 0; i < window.pageCount(); ++i) {
        for (int other = 0; other < window.pageCount(); ++other)
            QCOMPARE(window.page(other)->isVisible(), other == i);
        QTest::keyClick(list, Qt::Key_Down);
    }
}

void tst_Gallery::keyboardOpensTheMenus()
{
    GalleryWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_F, Qt::AltModifier);
    const QList<QAction *> menus = window.menuBar()->actions();
    QVERIFY(!menus.isEmpty());
    QTRY_VERIFY(menus.constFirst()->menu()->isVisible());
    QTest::keyClick(menus.constFirst()->menu(), Qt::Key_Escape);
    QTRY_VERIFY(!menus.constFirst()->menu()->isVisible());
}

THEME_TEST_MAIN(tst_Gallery)
#include "tst_gallery.moc"
