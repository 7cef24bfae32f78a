// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// The gallery in a real window: keys, clicks and places go through the system.

#include "GalleryWindow.h"
#include "KestCircleProgressBar.h"
#include "RealInput.h"

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

namespace {

// The middle of a widget on the screen.
QPoint onScreen(QWidget *widget)
{
    QWidget *const window = widget->window();
    return RealInput::windowPosition(window->winId())
        + widget->mapTo(window, widget->rect().center());
}

QWidget *pageNamed(const GalleryWindow &window, const QString &title)
{
    for (int i = 0; i < window.pageCount(); ++i) {
        if (window.page(i)->windowTitle() == title)
            return window.page(i);
    }
    return nullptr;
}

} // namespace

class tst_Gallery_Window : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void keysAloneFindAPageAndCopyItsSource();
    void pointerRunsAndCancelsTheLongTask();
    void windowComesBackWhereItWas();
};

void tst_Gallery_Window::initTestCase()
{
    RealInput::moveTo(QPoint(0, 0));
}

void tst_Gallery_Window::keysAloneFindAPageAndCopyItsSource()
{
    GalleryWindow window;
    window.resize(1100, 700);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    RealInput::settle(100);
    RealInput::key(QStringLiteral("Control+f"));
    RealInput::type(QStringLiteral("switch"));
    RealInput::key(QStringLiteral("Return"));
    QTRY_VERIFY(pageNamed(window, QStringLiteral("Switch button"))->isVisible());
    // By Tab to the source, and its text to the clipboard.
    auto *const source = window.findChild<QPlainTextEdit *>(QStringLiteral("source"));
    for (int i = 0; i < 60 && !source->hasFocus(); ++i)
        RealInput::key(QStringLiteral("Tab"));
    QVERIFY(source->hasFocus());
    RealInput::key(QStringLiteral("Control+a"));
    RealInput::key(QStringLiteral("Control+c"));
    QTRY_COMPARE(QGuiApplication::clipboard()->text(), source->toPlainText());
    QVERIFY(source->toPlainText().contains(QStringLiteral("SwitchPage")));
}

void tst_Gallery_Window::pointerRunsAndCancelsTheLongTask()
{
    GalleryWindow window;
    window.resize(1100, 700);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QWidget *const page = pageNamed(window, QStringLiteral("Long task"));
    RealInput::key(QStringLiteral("Control+f"));
    RealInput::type(QStringLiteral("long"));
    QTRY_VERIFY(page->isVisible());
    page->findChild<QSpinBox *>()->setValue(100);
    auto *const button = page->findChild<QPushButton *>(QStringLiteral("task"));
    RealInput::click(onScreen(button));
    const auto *const circle = page->findChild<KestCircleProgressBar *>();
    QTRY_VERIFY_WITH_TIMEOUT(circle->value() > 0, 60000);
    RealInput::click(onScreen(button));
    const auto *const result = page->findChild<QLabel *>(QStringLiteral("taskResult"));
    QTRY_VERIFY_WITH_TIMEOUT(result->text().startsWith(QStringLiteral("Cancelled at")), 60000);
    QVERIFY(circle->value() < 100);
}

void tst_Gallery_Window::windowComesBackWhereItWas()
{
    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("gallery.ini")), QSettings::IniFormat);
    QPoint place;
    QSize size;
    for (const bool maximized : { false, true }) {
        {
            GalleryWindow window;
            window.setGeometry(150, 90, 840, 560);
            window.show();
            QVERIFY(QTest::qWaitForWindowActive(&window));
            RealInput::settle(200);
            place = RealInput::windowPosition(window.winId());
            size = window.size();
            if (maximized) {
                window.showMaximized();
                QTRY_VERIFY(window.width() > 1000);
                RealInput::settle(200);
            }
            window.close();
            window.savePlace(&settings);
        }
        GalleryWindow again;
        again.restorePlace(settings);
        again.show();
        QVERIFY(QTest::qWaitForWindowActive(&again));
        RealInput::settle(200);
        QCOMPARE(again.isMaximized(), maximized);
        if (maximized) {
            QTRY_VERIFY(again.width() > 1000);
            again.showNormal();
            RealInput::settle(200);
        }
        QTRY_COMPARE(again.size(), size);
        QTRY_COMPARE(RealInput::windowPosition(again.winId()), place);
    }
}

QTEST_MAIN(tst_Gallery_Window)
#include "tst_gallery_window.moc"
