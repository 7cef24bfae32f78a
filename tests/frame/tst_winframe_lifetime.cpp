// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// What the frame on Windows does when a window, a bar or the frame itself goes away at a bad time:
// inside of a call to the system, or before what was put off for later.

#include "FakeWindows.h"
#include "KestWinFramelessDelegate.h"

#include <QtCore/QPointer>
#include <QtGui/QCloseEvent>
#include <QtGui/QCursor>
#include <QtGui/QFocusEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtGui/qpa/qwindowsysteminterface.h>
#include <QtTest/QTest>
#include <QtWidgets/QWidget>

#include <memory>

namespace {

const QRect WindowRect(200, 150, 400, 300);

// A window that can be deleted while the system still has it.
class Window : public QWidget
{
    Q_OBJECT

public:
    Window() : bar(new QWidget(this)), delegate(new KestWinFramelessDelegate(this, bar))
    {
        setGeometry(WindowRect);
        bar->setGeometry(0, 0, WindowRect.width(), 40);
    }

    // Makes the system know it.
    void useHandle()
    {
        FakeWindows::current->window = reinterpret_cast<HWND>(winId());
        FakeWindows::current->rect = WindowRect;
    }

    // Gives it another native window.
    void recreate()
    {
        destroy();
        create();
    }

    // Whether a native message is consumed.
    bool consumes(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        MSG msg = { FakeWindows::current->window, message, wParam, lParam };
        KestNativeResult result = 0;
        return delegate->nativeEvent(QByteArrayLiteral("windows_generic_MSG"), &msg, &result);
    }

    bool isCaption(const QPoint &point)
    {
        QCursor::setPos(mapToGlobal(point));
        MSG msg = { FakeWindows::current->window, WM_NCHITTEST, 0, 0 };
        KestNativeResult result = 0;
        return delegate->onNCTitTest(&msg, &result) && result == HTCAPTION;
    }

    QWidget *bar;
    QPointer<KestWinFramelessDelegate> delegate;
    std::function<void()> onFocus;
    std::function<void()> onMove;
    std::function<void()> onState;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn && onFocus) {
            onFocus();
            return true;
        }
        if (event->type() == QEvent::WindowStateChange && onState) {
            onState();
            return true;
        }
        return QWidget::event(event);
    }
    void moveEvent(QMoveEvent *) override
    {
        if (onMove)
            onMove();
    }
};

// Puts a task bar at the top of the screen as long as it lives.
class TaskBarAtTheTop
{
public:
    TaskBarAtTheTop() { setAvailable(m_before.adjusted(0, 30, 0, 0)); }
    ~TaskBarAtTheTop() { setAvailable(m_before); }

private:
    static void setAvailable(const QRect &rect)
    {
        QScreen *const screen = QGuiApplication::primaryScreen();
        QWindowSystemInterface::handleScreenGeometryChange(screen, screen->geometry(), rect);
        QCoreApplication::processEvents();
    }

    const QRect m_before = QGuiApplication::primaryScreen()->availableGeometry();
};

// Counts the news of states.
class StateCounter : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        states += event->type() == QEvent::WindowStateChange;
        return false;
    }

    int states = 0;
};

QString restored(int left, int showCmd = SW_SHOWMAXIMIZED)
{
    return QStringLiteral("SetWindowPlacement length 44 showCmd %1 left %2").arg(showCmd).arg(left);
}

} // namespace

class tst_WinFrame_Lifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void barGivenTwiceIsRemovedTwice();
    void deadBarIsForgottenAsOftenAsItWasGiven();
    void barRemovedOnceIsStillForgottenWhenItDies();
    void removedBarIsNotWatchedAnyMore();

    void windowMayDieInItsSystemMenu();
    void windowMayGetANewNativeOneInItsSystemMenu();
    void commandReachesAWindowWhoseFrameDied();
    void frameMayDieWhileTheStyleIsSet();
    void frameMayDieWhenARestoredWindowIsMoved();
    void frameMayDieWhileThePlacementIsRestored();
    void windowMayDieOfTheFocus();
    void windowMayGetANewNativeOneByTheFocus();

    void stateOfEachNativeWindowIsNoted();
    void stateOfAWindowThatWasThereBeforeItsFrameIsNoted();
    void statesReachTheFiltersOfHosts();
    void windowMayDieWhileItsStateIsNoted();
    void windowMayDieOfItsState();
    void frameMayDieWhileAStateIsNoted();
    void frameMayDieAsTheWindowLeavesFullScreen();

    void placementIsNotRestoredOfAWindowHiddenSince();
    void placementIsNotRestoredOfAWindowRestoredSince();
    void placementIsRestoredOnceForTwoShows();
    void placementSavedWhileRestoringIsNotTaken();
    void nothingIsSavedOfAWindowWithoutHandle();
    void windowWithoutHandleIsNotMoved();
    void windowWithoutHandleGetsNoStyle();

private:
    // Tells the native window of a state, as Qt does.
    void tellState();
    // Shows the window maximised, with a placement to be restored by the next event loop.
    void showWithAPlacement(int left);

    FakeWindows m_windows;
    QPointer<Window> m_window;
};

void tst_WinFrame_Lifetime::init()
{
    FakeWindows::current = &m_windows;
    m_window = new Window;
    m_window->useHandle();
    m_windows.takeCalls();
}

void tst_WinFrame_Lifetime::cleanup()
{
    delete m_window;
    QCoreApplication::processEvents();
    m_windows = FakeWindows();
    FakeWindows::current = &m_windows;
}

void tst_WinFrame_Lifetime::showWithAPlacement(int left)
{
    m_windows.placement.showCmd = SW_SHOWMAXIMIZED;
    m_windows.placement.rcNormalPosition.left = left;
    m_window->setWindowState(Qt::WindowMaximized);
    m_window->show();
    QCoreApplication::processEvents();
    m_window->hide();
    m_windows.takeCalls();
    m_window->show();
}

void tst_WinFrame_Lifetime::barGivenTwiceIsRemovedTwice()
{
    delete m_window->delegate;
    m_window->delegate =
        new KestWinFramelessDelegate(m_window, { nullptr, m_window->bar, m_window->bar });
    m_window->useHandle();
    m_window->show();
    const QPoint point(200, 20);
    QVERIFY(m_window->isCaption(point));
    m_window->delegate->removeMoveBar(m_window->bar);
    QVERIFY(m_window->isCaption(point));
    m_window->delegate->removeMoveBar(m_window->bar);
    QVERIFY(!m_window->isCaption(point));
    m_window->delegate->removeMoveBar(nullptr);
    m_window->delegate->addMoveBar(m_window->bar);
    QVERIFY(m_window->isCaption(point));
}

void tst_WinFrame_Lifetime::removedBarIsNotWatchedAnyMore()
{
    class Watched : public QWidget
    {
    public:
        int watchers() const { return receivers(SIGNAL(destroyed(QObject *))); }
    };
    Watched bar;
    const int before = bar.watchers();
    for (int i = 0; i < 3; ++i) {
        m_window->delegate->addMoveBar(&bar);
        m_window->delegate->addMoveBar(&bar);
        QCOMPARE(bar.watchers(), before + 1);
        m_window->delegate->removeMoveBar(&bar);
        QCOMPARE(bar.watchers(), before);
    }
    delete m_window->delegate;
    m_window->delegate = new KestWinFramelessDelegate(m_window, { &bar, &bar });
    QCOMPARE(bar.watchers(), before + 1);
}

void tst_WinFrame_Lifetime::deadBarIsForgottenAsOftenAsItWasGiven()
{
    // Another widget that is made in its place is none.
    alignas(QWidget) char place[sizeof(QWidget)];
    auto *bar = new (place) QWidget(m_window);
    delete m_window->delegate;
    m_window->delegate = new KestWinFramelessDelegate(m_window, { bar, bar });
    bar->~QWidget();
    auto *other = new (place) QWidget(m_window);
    other->setGeometry(m_window->rect());
    m_window->show();
    QVERIFY(!m_window->isCaption(QPoint(200, 200)));
    other->~QWidget();
}

void tst_WinFrame_Lifetime::barRemovedOnceIsStillForgottenWhenItDies()
{
    alignas(QWidget) char place[sizeof(QWidget)];
    auto *bar = new (place) QWidget(m_window);
    delete m_window->delegate;
    m_window->delegate = new KestWinFramelessDelegate(m_window, { bar, bar });
    m_window->delegate->removeMoveBar(bar);
    bar->~QWidget();
    auto *other = new (place) QWidget(m_window);
    other->setGeometry(m_window->rect());
    m_window->show();
    QVERIFY(!m_window->isCaption(QPoint(200, 200)));
    other->~QWidget();
}

void tst_WinFrame_Lifetime::windowMayDieInItsSystemMenu()
{
    m_window->show();
    m_windows.chosen = SC_CLOSE;
    m_windows.during[QStringLiteral("TrackPopupMenuEx")] = [this] { delete m_window; };
    QVERIFY(m_window->consumes(WM_NCRBUTTONUP, HTCAPTION));
    QVERIFY(!m_window);
    // Its handle may be another window's by now.
    QVERIFY(m_windows.takeCalls().filter(QStringLiteral("post")).isEmpty());
}

void tst_WinFrame_Lifetime::windowMayGetANewNativeOneInItsSystemMenu()
{
    m_window->show();
    m_windows.chosen = SC_CLOSE;
    m_windows.during[QStringLiteral("TrackPopupMenuEx")] = [this] {
        const WId before = m_window->internalWinId();
        m_window->recreate();
        QVERIFY(m_window->internalWinId() != before);
    };
    QVERIFY(m_window->consumes(WM_SYSCOMMAND, SC_KEYMENU, VK_SPACE));
    QVERIFY(m_windows.takeCalls().filter(QStringLiteral("post")).isEmpty());
}

void tst_WinFrame_Lifetime::commandReachesAWindowWhoseFrameDied()
{
    m_window->show();
    m_windows.chosen = SC_CLOSE;
    m_windows.during[QStringLiteral("TrackPopupMenuEx")] = [this] { delete m_window->delegate; };
    QVERIFY(m_window->consumes(WM_NCRBUTTONUP, HTCAPTION));
    QCOMPARE(m_windows.takeCalls().last(), QStringLiteral("post 0x112 0xf060 0x0"));
}

void tst_WinFrame_Lifetime::frameMayDieWhileTheStyleIsSet()
{
    // It sets no attribute then: those that the window has are the host's.
    m_window->setAttribute(Qt::WA_Resized, false);
    m_windows.during[QStringLiteral("SetWindowPos")] = [this] { delete m_window->delegate; };
    QEvent show(QEvent::Show);
    QCoreApplication::sendEvent(m_window, &show);
    QVERIFY(!m_window->delegate);
    QVERIFY(!m_window->testAttribute(Qt::WA_Resized));
}

void tst_WinFrame_Lifetime::frameMayDieWhenARestoredWindowIsMoved()
{
    m_window->show();
    m_windows.rect.moveTop(-100);
    m_window->setWindowState(Qt::WindowMaximized);
    m_window->setContentsMargins(1, 2, 3, 4);
    m_window->onMove = [this] { delete m_window->delegate; };
    QWindowStateChangeEvent changed(Qt::WindowMaximized);
    m_window->overrideWindowState(Qt::WindowNoState);
    QCoreApplication::sendEvent(m_window, &changed);
    QVERIFY(!m_window->delegate);
    QCOMPARE(m_window->contentsMargins(), QMargins(1, 2, 3, 4));
}

void tst_WinFrame_Lifetime::frameMayDieWhileThePlacementIsRestored()
{
    showWithAPlacement(123);
    m_windows.during[QStringLiteral("SetWindowPlacement")] = [this] { delete m_window->delegate; };
    QCoreApplication::processEvents();
    QVERIFY(!m_window->delegate);
    QCOMPARE(m_windows.takeCalls(), QStringList(restored(123)));
}

void tst_WinFrame_Lifetime::windowMayDieOfTheFocus()
{
    m_window->show();
    m_window->onFocus = [this] { delete m_window; };
    // There is no window that could go on with the message.
    QVERIFY(m_window->consumes(WM_SETFOCUS));
    QVERIFY(!m_window);
}

void tst_WinFrame_Lifetime::windowMayGetANewNativeOneByTheFocus()
{
    m_window->show();
    m_window->onFocus = [this] { m_window->recreate(); };
    QVERIFY(m_window->consumes(WM_SETFOCUS));
    m_window->onFocus = nullptr;
    QVERIFY(!m_window->consumes(WM_SETFOCUS));
}

void tst_WinFrame_Lifetime::tellState()
{
    m_windows.zoomed = true;
    QWindowStateChangeEvent changed(Qt::WindowMaximized);
    QCoreApplication::sendEvent(m_window->windowHandle(), &changed);
}

void tst_WinFrame_Lifetime::stateOfEachNativeWindowIsNoted()
{
    for (int i = 0; i < 2; ++i) {
        m_window->show();
        m_windows.takeCalls();
        tellState();
        QCOMPARE(m_windows.takeCalls(),
                 QStringList({ QStringLiteral("send 0x83 0x1"), QStringLiteral("send 0x83 0x1") }));
        m_window->hide();
        m_window->recreate();
        m_window->useHandle();
    }
}

void tst_WinFrame_Lifetime::stateOfAWindowThatWasThereBeforeItsFrameIsNoted()
{
    const WId native = m_window->winId();
    delete m_window->delegate;
    m_window->delegate = new KestWinFramelessDelegate(m_window, m_window->bar);
    QCOMPARE(m_window->winId(), native);
    m_window->useHandle();
    m_windows.takeCalls();
    tellState();
    QCOMPARE(m_windows.takeCalls().filter(QStringLiteral("send")).size(), 2);
}

void tst_WinFrame_Lifetime::statesReachTheFiltersOfHosts()
{
    StateCounter before;
    StateCounter after;
    m_window->recreate();
    m_window->useHandle();
    m_window->windowHandle()->installEventFilter(&before);
    m_window->show();
    m_window->windowHandle()->installEventFilter(&after);
    tellState();
    QCOMPARE(before.states, 1);
    QCOMPARE(after.states, 1);
}

void tst_WinFrame_Lifetime::windowMayDieWhileItsStateIsNoted()
{
    m_window->show();
    m_windows.receive = [this](MSG *) { delete m_window; };
    tellState();
    QVERIFY(!m_window);
    // Nothing more is said of it.
    QCOMPARE(m_windows.takeCalls().filter(QStringLiteral("send")).size(), 1);
}

void tst_WinFrame_Lifetime::windowMayDieOfItsState()
{
    m_window->show();
    m_window->setWindowState(Qt::WindowMaximized);
    // The system restores it, of which the widget is told.
    m_window->windowHandle()->setWindowState(Qt::WindowNoState);
    m_window->onState = [this] { delete m_window; };
    m_windows.takeCalls();
    tellState();
    QVERIFY(!m_window);
    QCOMPARE(m_windows.takeCalls().filter(QStringLiteral("send")).size(), 1);
}

void tst_WinFrame_Lifetime::frameMayDieWhileAStateIsNoted()
{
    m_window->show();
    int states = 0;
    connect(m_window->windowHandle(), &QWindow::windowStateChanged, this, [&states] { ++states; });
    m_windows.receive = [this](MSG *) { delete m_window->delegate; };
    tellState();
    QVERIFY(m_window);
    // Qt gets to know it.
    QCOMPARE(states, 1);
}

void tst_WinFrame_Lifetime::frameMayDieAsTheWindowLeavesFullScreen()
{
    m_window->showFullScreen();
    m_windows.during[QStringLiteral("SetWindowPos")] = [this] { delete m_window->delegate; };
    m_window->setWindowState(Qt::WindowNoState);
    QVERIFY(m_window);
    QVERIFY(!m_window->delegate);
}

void tst_WinFrame_Lifetime::placementIsNotRestoredOfAWindowHiddenSince()
{
    // The system would show it.
    showWithAPlacement(123);
    m_window->hide();
    QCoreApplication::processEvents();
    QCOMPARE(m_windows.takeCalls(), QStringList());
}

void tst_WinFrame_Lifetime::placementIsNotRestoredOfAWindowRestoredSince()
{
    // The system would maximise it.
    showWithAPlacement(123);
    m_window->showNormal();
    m_windows.takeCalls();
    QCoreApplication::processEvents();
    QCOMPARE(m_windows.takeCalls(), QStringList());
}

void tst_WinFrame_Lifetime::placementIsRestoredOnceForTwoShows()
{
    showWithAPlacement(123);
    m_window->hide();
    m_windows.placement.rcNormalPosition.left = 456;
    m_window->hide();
    m_window->show();
    QCoreApplication::processEvents();
    QCOMPARE(m_windows.takeCalls(), QStringList(restored(123)));
}

void tst_WinFrame_Lifetime::placementSavedWhileRestoringIsNotTaken()
{
    showWithAPlacement(123);
    m_windows.during[QStringLiteral("SetWindowPlacement")] = [this] {
        m_windows.placement.rcNormalPosition.left = 456;
        m_window->hide();
    };
    QCoreApplication::processEvents();
    QCOMPARE(m_windows.takeCalls(), QStringList(restored(123)));
    m_window->show();
    QCoreApplication::processEvents();
    QCOMPARE(m_windows.takeCalls(), QStringList(restored(456)));
}

void tst_WinFrame_Lifetime::nothingIsSavedOfAWindowWithoutHandle()
{
    // Restoring it would hide the window, or make it empty: what is handed on is nothing that the
    // system takes.
    delete m_window;
    m_window = new Window;
    m_windows.window = nullptr;
    QCloseEvent close;
    QCoreApplication::sendEvent(m_window, &close);
    m_window->setWindowState(Qt::WindowMaximized);
    m_window->useHandle();
    m_window->show();
    m_windows.takeCalls();
    QCoreApplication::processEvents();
    QCOMPARE(m_windows.takeCalls(),
             QStringList(QStringLiteral("SetWindowPlacement length 0 showCmd 0 left 0")));
}

void tst_WinFrame_Lifetime::windowWithoutHandleIsNotMoved()
{
    // There is no native window that could be above the work area.
    const TaskBarAtTheTop taskBar;
    QCOMPARE(QGuiApplication::primaryScreen()->availableVirtualGeometry().top(), 30);
    delete m_window;
    m_window = new Window;
    m_windows.window = nullptr;
    m_windows.rect = QRect(0, 0, 1, 1); // what is said of none
    QWindowStateChangeEvent changed(Qt::WindowMaximized);
    QCoreApplication::sendEvent(m_window, &changed);
    QCOMPARE(m_window->pos(), WindowRect.topLeft());

    // One that there is goes down to it.
    m_window->useHandle();
    m_windows.rect.moveTopLeft(QPoint(33, 29));
    QCoreApplication::sendEvent(m_window, &changed);
    QCOMPARE(m_window->pos(), QPoint(33, 30));
}

void tst_WinFrame_Lifetime::windowWithoutHandleGetsNoStyle()
{
    delete m_window;
    m_window = new Window;
    m_windows.window = nullptr;
    m_windows.takeCalls();
    m_window->delegate->setWindowLong();
    QCOMPARE(m_windows.takeCalls(), QStringList());
    QVERIFY(!m_window->internalWinId());
}

QTEST_MAIN(tst_WinFrame_Lifetime)
#include "tst_winframe_lifetime.moc"
