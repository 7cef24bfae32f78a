// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "WindowsEventFilter.h"

#include "FakeWindows.h"
#include "KestWinFramelessDelegate.h"

#include <QtCore/QPointer>
#include <QtGui/QCursor>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QVBoxLayout>
#include <QtWidgets/QWidget>

namespace {

const int Untouched = -77;

// A window whose bar is a native window of its own, as one is that shows a video.
class Host : public QWidget
{
    Q_OBJECT

public:
    Host()
    {
        setGeometry(200, 150, 400, 300);
        bar->setGeometry(0, 0, 400, 40);
        video->setGeometry(0, 100, 400, 100);
        delegate = new KestWinFramelessDelegate(this, bar);
        show();
        setGeometry(200, 150, 400, 300);
    }

    // The system goes before the window does.
    ~Host() override { delete delegate; }

    // Sends a message for \a widget's native window, with the cursor at \a point of this window.
    int send(QWidget *widget, const QPoint &point, UINT message = WM_NCHITTEST)
    {
        QCursor::setPos(mapToGlobal(point));
        MSG msg = { reinterpret_cast<HWND>(widget->winId()), message, 0, 0 };
        KestNativeResult result = Untouched;
        consumed =
            filter.nativeEventFilter(QByteArrayLiteral("windows_generic_MSG"), &msg, &result);
        return int(result);
    }

    FakeWindows windows;
    QWidget *bar = new QWidget(this);
    QWidget *video = new QWidget(this);
    QPointer<KestWinFramelessDelegate> delegate;
    WindowsEventFilter filter;
    bool consumed = false;
};

} // namespace

class tst_WindowsEventFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void moveBarIsTransparent();
    void edgeIsTransparent();
    void otherPlacesAreNot();
    void topLevelWindowIsNot();
    void otherMessagesPass();
    void unknownWindowPasses();
    void windowsWithoutDelegatePass();
};

void tst_WindowsEventFilter::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
}

void tst_WindowsEventFilter::moveBarIsTransparent()
{
    Host host;
    QCOMPARE(host.send(host.bar, QPoint(100, 20)), -1);
    QVERIFY(host.consumed);
}

void tst_WindowsEventFilter::edgeIsTransparent()
{
    Host host;
    QCOMPARE(host.send(host.video, QPoint(2, 150)), -1);
    QVERIFY(host.consumed);
}

void tst_WindowsEventFilter::otherPlacesAreNot()
{
    Host host;
    QCOMPARE(host.send(host.video, QPoint(100, 150)), Untouched);
    QVERIFY(!host.consumed);
}

void tst_WindowsEventFilter::topLevelWindowIsNot()
{
    Host host;
    QCOMPARE(host.send(&host, QPoint(100, 20)), Untouched);
    QVERIFY(!host.consumed);
}

void tst_WindowsEventFilter::otherMessagesPass()
{
    Host host;
    for (UINT message : { WM_NCCALCSIZE, WM_NCPAINT, WM_NCACTIVATE, WM_SETFOCUS }) {
        QCOMPARE(host.send(host.bar, QPoint(100, 20), message), Untouched);
        QVERIFY(!host.consumed);
    }
}

void tst_WindowsEventFilter::unknownWindowPasses()
{
    Host host;
    QCursor::setPos(host.mapToGlobal(QPoint(100, 20)));
    MSG msg = { nullptr, WM_NCHITTEST, 0, 0 };
    KestNativeResult result = Untouched;
    QVERIFY(!host.filter.nativeEventFilter(QByteArray(), &msg, &result));
    QCOMPARE(result, KestNativeResult(Untouched));
}

void tst_WindowsEventFilter::windowsWithoutDelegatePass()
{
    Host host;
    delete host.delegate;
    QCOMPARE(host.send(host.bar, QPoint(100, 20)), Untouched);
    QVERIFY(!host.consumed);
}

QTEST_MAIN(tst_WindowsEventFilter)
#include "tst_windowseventfilter.moc"
