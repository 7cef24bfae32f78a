// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// Where the frame on Windows has a maximised window and its contents, as far as it takes no
// Windows.

#include "AnotherScreen.h"
#include "FakeWindows.h"
#include "KestWinFramelessDelegate.h"

#include <QtCore/QScopeGuard>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtGui/QWindowStateChangeEvent>
#include <QtTest/QTest>
#include <QtWidgets/QVBoxLayout>
#include <QtWidgets/QWidget>

#include <qpa/qwindowsysteminterface.h>

namespace {

const QRect WorkArea(60, 40, 1220, 760);
const int Frame = 8; // of the system's
const QRect Covering = WorkArea.adjusted(-Frame, -Frame, Frame, Frame);

} // namespace

class tst_WinFrame_Placing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void maximizedWindowCoversTheWorkArea_data();
    void maximizedWindowCoversTheWorkArea();
    void halfOfAPlaceIsCompleted_data();
    void halfOfAPlaceIsCompleted();
    void otherPlacesAreLeftAlone_data();
    void otherPlacesAreLeftAlone();
    void eachDirectionHasItsFrame_data();
    void eachDirectionHasItsFrame();
    void otherWindowsAreLeftAlone();
    void windowWithoutAFrameCoversTheWorkAreaOnly();
    void zoomedWindowIsNotMoved();
    void newWorkAreaIsTaken_data();
    void newWorkAreaIsTaken();
    void otherSettingsChangeNothing();
    void workAreaHoldsUntilThereIsAnother();
    void restoredWindowIsMovedOnAScreenElsewhere();
    void restoredWindowIsWithinReachOnAnyScreen();
    void menuOpensInPixelsOfTheFinestScreen();

    void normalGeometryIsNotedWithTheFrameOfANormalWindow();
    void otherStatesAreNotedAsTheyAre();
    void windowThatStartsInFullScreenLeavesItAsOthersDo_data();
    void windowThatStartsInFullScreenLeavesItAsOthersDo();

    void layoutCoversAMaximizedWindow();
    void layoutKeepsToTheMarginsElse_data();
    void layoutKeepsToTheMarginsElse();

private:
    // What is said of the contents around the news of another state, and the news.
    QStringList saidWithAState();
    // What is left of a window of \a outside for its contents.
    QRect contentsOf(const QRect &outside);
    // What \a message does; whether it was consumed is in the result.
    bool send(UINT message, WPARAM wParam = 0);
    // Where a window ends up that is to be placed at \a wanted.
    QRect place(const QRect &wanted, UINT flags = 0);

    FakeWindows m_windows;
    QWidget *m_window = nullptr;
    QWidget *m_contents = nullptr;
    KestWinFramelessDelegate *m_delegate = nullptr;
    WINDOWPOS m_pos = {};
};

void tst_WinFrame_Placing::init()
{
    m_windows = FakeWindows();
    FakeWindows::current = &m_windows;
    m_window = new QWidget;
    m_delegate = new KestWinFramelessDelegate(m_window, nullptr);
    m_contents = new QWidget(m_window);
    auto *layout = new QVBoxLayout(m_window);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_contents);

    m_windows.window = reinterpret_cast<HWND>(m_window->winId());
    m_windows.zoomed = true;
    m_windows.monitor = reinterpret_cast<HMONITOR>(quintptr(1));
    m_windows.workAreas[m_windows.monitor] = WorkArea;
    m_windows.metrics = { { SM_CXFRAME, 4 }, { SM_CYFRAME, 5 }, { SM_CXPADDEDBORDER, 3 } };
}

void tst_WinFrame_Placing::cleanup()
{
    delete m_window;
}

QRect tst_WinFrame_Placing::place(const QRect &wanted, UINT flags)
{
    m_pos = { m_windows.window, nullptr,         wanted.x(), wanted.y(),
              wanted.width(),   wanted.height(), flags };
    MSG msg = { m_windows.window, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&m_pos) };
    KestNativeResult result = 7;
    const bool consumed = m_delegate->nativeEvent(QByteArray(), &msg, &result);
    // Qt and the system have their part in it.
    return consumed || result != 7 ? QRect() : QRect(m_pos.x, m_pos.y, m_pos.cx, m_pos.cy);
}

QRect tst_WinFrame_Placing::contentsOf(const QRect &outside)
{
    NCCALCSIZE_PARAMS params = {};
    params.rgrc[0] = { outside.left(), outside.top(), outside.right() + 1, outside.bottom() + 1 };
    MSG msg = { m_windows.window, WM_NCCALCSIZE, TRUE, reinterpret_cast<LPARAM>(&params) };
    KestNativeResult result = 7;
    if (!m_delegate->nativeEvent(QByteArray(), &msg, &result))
        return QRect();
    const RECT &contents = params.rgrc[0];
    return QRect(QPoint(contents.left, contents.top),
                 QPoint(contents.right - 1, contents.bottom - 1));
}

bool tst_WinFrame_Placing::send(UINT message, WPARAM wParam)
{
    MSG msg = { m_windows.window, message, wParam, 0 };
    KestNativeResult result = 0;
    return m_delegate->nativeEvent(QByteArray(), &msg, &result);
}

void tst_WinFrame_Placing::workAreaHoldsUntilThereIsAnother()
{
    QCOMPARE(contentsOf(Covering), WorkArea);
    send(WM_DISPLAYCHANGE);
    m_windows.monitor = nullptr;
    QCOMPARE(contentsOf(Covering), WorkArea);
}

void tst_WinFrame_Placing::restoredWindowIsMovedOnAScreenElsewhere()
{
    // Runs at the ratios 1 and 1.5.
    QScreen *const screen = QGuiApplication::primaryScreen();
    const QRect before = screen->geometry();
    const auto reset = qScopeGuard([screen, before] {
        const QRect native(before.topLeft(), before.size() * screen->devicePixelRatio());
        QWindowSystemInterface::handleScreenGeometryChange(screen, native, native);
        QCoreApplication::processEvents();
    });
    QWindowSystemInterface::handleScreenGeometryChange(screen, QRect(100, 50, 900, 600),
                                                       QRect(100, 80, 900, 570));
    QCoreApplication::processEvents();
    QCOMPARE(screen->geometry().topLeft(), QPoint(100, 50));
    m_windows.zoomed = false;
    m_window->show();
    m_windows.rect = QRect(133, 40, 400, 300);
    QWindowStateChangeEvent changed(Qt::WindowMaximized);
    QCoreApplication::sendEvent(m_window, &changed);
    // The system counts in pixels from the screen's corner on.
    const qreal ratio = screen->devicePixelRatio();
    QCOMPARE(m_window->pos(), QPoint(100 + qRound(33 / ratio), 50 + qRound(30 / ratio)));
}

void tst_WinFrame_Placing::restoredWindowIsWithinReachOnAnyScreen()
{
    const AnotherScreen another(QRect(800, 100, 700, 500), 1);
    QCOMPARE(QGuiApplication::primaryScreen()->availableGeometry().top(), 100);
    m_windows.zoomed = false;
    m_window->setGeometry(200, 150, 400, 300);
    m_window->show();
    m_windows.rect = QRect(200, 50, 400, 300);
    QWindowStateChangeEvent changed(Qt::WindowMaximized);
    QCoreApplication::sendEvent(m_window, &changed);
    QCOMPARE(m_window->pos(), QPoint(200, 150));
}

void tst_WinFrame_Placing::menuOpensInPixelsOfTheFinestScreen()
{
    const AnotherScreen another(QRect(800, 0, 700, 500), 2);
    QCOMPARE(m_window->devicePixelRatioF(), 1.0);
    m_delegate->showSystemMenu(QPoint(10, 20));
    QCOMPARE(m_windows.takeCalls().last(), QStringLiteral("popup 20,40"));
}

void tst_WinFrame_Placing::maximizedWindowCoversTheWorkArea_data()
{
    QTest::addColumn<QRect>("wanted");
    QTest::newRow("by Qt") << WorkArea;
    QTest::newRow("by Qt, rounded") << WorkArea.adjusted(1, -1, -1, 2);
    QTest::newRow("by the system") << Covering;
    QTest::newRow("restored onto the screen") << QRect(WorkArea.topLeft(), Covering.size());
    QTest::newRow("farthest") << QRect(Covering.topLeft(),
                                       WorkArea.size() - QSize(2 * Frame, 2 * Frame));
}

void tst_WinFrame_Placing::maximizedWindowCoversTheWorkArea()
{
    QFETCH(QRect, wanted);
    QCOMPARE(place(wanted), Covering);
    // Which the system's frame leaves the work area of.
    QCOMPARE(contentsOf(Covering), WorkArea);
}

void tst_WinFrame_Placing::halfOfAPlaceIsCompleted_data()
{
    QTest::addColumn<UINT>("flags");
    QTest::addColumn<QRect>("wanted");
    QTest::newRow("moved") << UINT(SWP_NOSIZE) << QRect(WorkArea.topLeft(), QSize(0, 0));
    QTest::newRow("resized") << UINT(SWP_NOMOVE) << QRect(QPoint(0, 0), WorkArea.size());
}

void tst_WinFrame_Placing::halfOfAPlaceIsCompleted()
{
    QFETCH(UINT, flags);
    QFETCH(QRect, wanted);
    m_windows.rect = Covering;
    QCOMPARE(place(wanted, flags | SWP_FRAMECHANGED), Covering);
    QCOMPARE(m_pos.flags, UINT(SWP_FRAMECHANGED));
}

void tst_WinFrame_Placing::otherPlacesAreLeftAlone_data()
{
    QTest::addColumn<QRect>("wanted");
    QTest::newRow("limited size") << QRect(WorkArea.topLeft(), QSize(900, 700));
    QTest::newRow("limited height") << QRect(WorkArea.topLeft(), QSize(WorkArea.width(), 700));
    QTest::newRow("limited width") << QRect(WorkArea.topLeft(), QSize(900, WorkArea.height()));
    QTest::newRow("too far left") << WorkArea.translated(-Frame - 1, 0);
    QTest::newRow("too far down") << WorkArea.translated(0, Frame + 1);
    QTest::newRow("another monitor") << WorkArea.translated(2000, 0);
    QTest::newRow("too large") << WorkArea.adjusted(0, 0, 2 * Frame + 1, 0);
    QTest::newRow("too high") << WorkArea.adjusted(0, 0, 0, 2 * Frame + 1);
    QTest::newRow("too narrow") << WorkArea.adjusted(0, 0, -2 * Frame - 1, 0);
    QTest::newRow("too low") << WorkArea.adjusted(0, 0, 0, -2 * Frame - 1);
}

void tst_WinFrame_Placing::eachDirectionHasItsFrame_data()
{
    QTest::addColumn<QRect>("wanted");
    QTest::addColumn<bool>("covers");
    QTest::newRow("left") << WorkArea.translated(-6, 0) << true;
    QTest::newRow("too far left") << WorkArea.translated(-7, 0) << false;
    QTest::newRow("up") << WorkArea.translated(0, -9) << true;
    QTest::newRow("too far up") << WorkArea.translated(0, -10) << false;
    QTest::newRow("wide") << WorkArea.adjusted(0, 0, 12, 0) << true;
    QTest::newRow("too wide") << WorkArea.adjusted(0, 0, 13, 0) << false;
    QTest::newRow("high") << WorkArea.adjusted(0, 0, 0, 18) << true;
    QTest::newRow("too high") << WorkArea.adjusted(0, 0, 0, 19) << false;
}

void tst_WinFrame_Placing::eachDirectionHasItsFrame()
{
    QFETCH(QRect, wanted);
    QFETCH(bool, covers);
    m_windows.frame = QMargins(6, 31, 7, 9);
    QCOMPARE(place(wanted), covers ? WorkArea.adjusted(-6, -9, 7, 9) : wanted);
}

void tst_WinFrame_Placing::otherPlacesAreLeftAlone()
{
    QFETCH(QRect, wanted);
    QCOMPARE(place(wanted), wanted);
    QCOMPARE(m_pos.flags, 0U);
}

void tst_WinFrame_Placing::otherWindowsAreLeftAlone()
{
    m_windows.rect = WorkArea;
    QCOMPARE(place(WorkArea, SWP_NOSIZE | SWP_NOMOVE), WorkArea);
    QCOMPARE(m_pos.flags, UINT(SWP_NOSIZE | SWP_NOMOVE));
    m_windows.monitor = nullptr;
    m_windows.takeCalls();
    QCOMPARE(place(WorkArea), WorkArea);
    QCOMPARE(m_windows.takeCalls(), QStringList());
    m_windows.monitor = reinterpret_cast<HMONITOR>(quintptr(1));
    QCOMPARE(place(WorkArea), Covering);
    m_windows.zoomed = false;
    m_windows.takeCalls();
    QCOMPARE(place(WorkArea), WorkArea);
    QCOMPARE(m_windows.takeCalls(), QStringList());
}

void tst_WinFrame_Placing::windowWithoutAFrameCoversTheWorkAreaOnly()
{
    m_windows.defaultAnswer = 1; // nothing is taken off
    QCOMPARE(place(WorkArea), WorkArea);
    QCOMPARE(place(Covering), Covering);
}

void tst_WinFrame_Placing::zoomedWindowIsNotMoved()
{
    // It is above the work area by its frame only. Qt says "normal" on its way to maximised.
    m_window->setGeometry(200, 150, 400, 300);
    m_window->show();
    m_windows.rect = QRect(-8, -8, 800, 600);
    QWindowStateChangeEvent changed(Qt::WindowMaximized);
    QCoreApplication::sendEvent(m_window, &changed);
    QCOMPARE(m_window->pos(), QPoint(200, 150));
    m_windows.zoomed = false;
    QCoreApplication::sendEvent(m_window, &changed);
    QVERIFY(m_window->pos() != QPoint(200, 150));
}

void tst_WinFrame_Placing::newWorkAreaIsTaken_data()
{
    QTest::addColumn<UINT>("message");
    QTest::addColumn<WPARAM>("wParam");
    QTest::newRow("task bar") << UINT(WM_SETTINGCHANGE) << WPARAM(SPI_SETWORKAREA);
    QTest::newRow("screen") << UINT(WM_DISPLAYCHANGE) << WPARAM(32);
}

void tst_WinFrame_Placing::newWorkAreaIsTaken()
{
    QFETCH(UINT, message);
    QFETCH(WPARAM, wParam);
    QCOMPARE(contentsOf(Covering), WorkArea);
    const QRect later = WorkArea.adjusted(0, 0, 0, -50);
    m_windows.workAreas[m_windows.monitor] = later;
    m_windows.takeCalls();
    QVERIFY(!send(message, wParam));
    // The system is made to ask.
    QCOMPARE(m_windows.takeCalls(), QStringList(QStringLiteral("SetWindowPos 0,0 0x0 0x37")));
    QCOMPARE(contentsOf(Covering), later);

    // Where the window is not maximised nothing is to be asked for before it is.
    m_windows.zoomed = false;
    m_windows.workAreas[m_windows.monitor] = WorkArea;
    m_windows.takeCalls();
    QVERIFY(!send(message, wParam));
    QCOMPARE(m_windows.takeCalls(), QStringList());
    m_windows.zoomed = true;
    QCOMPARE(contentsOf(Covering), WorkArea);

    m_windows.during[QStringLiteral("SetWindowPos")] = [this] {
        delete m_window;
        m_window = nullptr;
    };
    QVERIFY(send(message, wParam));
}

void tst_WinFrame_Placing::otherSettingsChangeNothing()
{
    QCOMPARE(contentsOf(Covering), WorkArea);
    m_windows.takeCalls();
    QVERIFY(!send(WM_SETTINGCHANGE));
    QVERIFY(!send(WM_SETTINGCHANGE, SPI_SETWORKAREA + 1));
    QCOMPARE(m_windows.takeCalls(), QStringList());
}

QStringList tst_WinFrame_Placing::saidWithAState()
{
    QStringList said;
    m_windows.rect = Covering;
    m_windows.receive = [this, &said](MSG *msg) {
        KestNativeResult result = 0;
        m_delegate->nativeEvent(QByteArray(), msg, &result);
        const RECT &contents = reinterpret_cast<NCCALCSIZE_PARAMS *>(msg->lParam)->rgrc[0];
        const QRect rect(QPoint(contents.left, contents.top),
                         QPoint(contents.right - 1, contents.bottom - 1));
        said.append(rect == Covering.adjusted(0, 0, 0, 1) ? QStringLiteral("all")
                        : rect == WorkArea                ? QStringLiteral("work area")
                                                          : QStringLiteral("?"));
    };
    m_window->show();
    QWindow *const window = m_window->windowHandle();
    connect(window, &QWindow::windowStateChanged, this,
            [&said] { said.append(QStringLiteral("state")); });
    QWindowStateChangeEvent changed(Qt::WindowNoState);
    QCoreApplication::sendEvent(window, &changed);
    // Other events of the window concern nobody.
    QEvent other(QEvent::User);
    QCoreApplication::sendEvent(window, &other);
    m_windows.receive = nullptr;
    return said;
}

void tst_WinFrame_Placing::normalGeometryIsNotedWithTheFrameOfANormalWindow()
{
    const QStringList expected { QStringLiteral("all"), QStringLiteral("state"),
                                 QStringLiteral("work area") };
    QCOMPARE(saidWithAState(), expected);
    QCOMPARE(contentsOf(Covering), WorkArea);
}

void tst_WinFrame_Placing::otherStatesAreNotedAsTheyAre()
{
    m_windows.zoomed = false;
    QCOMPARE(saidWithAState(), QStringList(QStringLiteral("state")));
}

void tst_WinFrame_Placing::windowThatStartsInFullScreenLeavesItAsOthersDo_data()
{
    QTest::addColumn<bool>("starts");
    QTest::addColumn<int>("styles"); // that it is given as it leaves
    QTest::newRow("from the start") << true << 1;
    QTest::newRow("later") << false << 0;
}

void tst_WinFrame_Placing::windowThatStartsInFullScreenLeavesItAsOthersDo()
{
    QFETCH(bool, starts);
    QFETCH(int, styles);
    const QRect before(200, 150, 400, 300);
    m_windows.zoomed = false;
    m_windows.rect = before;
    m_window->setGeometry(before);
    if (!starts)
        m_window->show();
    m_window->showFullScreen();
    QCoreApplication::processEvents();
    m_windows.style = 0; // what Qt gives back
    for (int i = 0; i < 2; ++i) {
        m_windows.takeCalls();
        m_window->setWindowState(Qt::WindowNoState);
        QCoreApplication::processEvents();
        // Once is enough: Qt has the style for the next time then.
        const QStringList set = m_windows.takeCalls().filter(QStringLiteral("SetWindowLongW"));
        QCOMPARE(set.size(), i == 0 ? styles : 0);
        QCOMPARE(m_window->geometry(), before);
        m_window->showFullScreen();
        QCoreApplication::processEvents();
    }
}

void tst_WinFrame_Placing::layoutCoversAMaximizedWindow()
{
    m_window->show();
    m_window->setWindowState(Qt::WindowMaximized);
    QCoreApplication::processEvents();
    QCOMPARE(m_window->contentsMargins(), QMargins(0, 0, 14, 16));
    QCOMPARE(m_contents->geometry(), m_window->rect());

    m_window->setWindowState(Qt::WindowNoState);
    QCoreApplication::processEvents();
    QCOMPARE(m_contents->geometry(), m_window->rect());
    m_window->setWindowState(Qt::WindowMaximized);
    QCoreApplication::processEvents();
    QCOMPARE(m_contents->geometry(), m_window->rect());
}

void tst_WinFrame_Placing::layoutKeepsToTheMarginsElse_data()
{
    QTest::addColumn<Qt::WindowStates>("state");
    QTest::newRow("normal") << Qt::WindowStates(Qt::WindowNoState);
    QTest::newRow("full screen") << Qt::WindowStates(Qt::WindowFullScreen);
}

void tst_WinFrame_Placing::layoutKeepsToTheMarginsElse()
{
    // Those that a host sets.
    QFETCH(Qt::WindowStates, state);
    m_windows.zoomed = false;
    m_window->show();
    m_window->setWindowState(Qt::WindowMaximized);
    m_window->setWindowState(state);
    QCoreApplication::processEvents();
    m_window->setContentsMargins(1, 2, 3, 4);
    QCoreApplication::processEvents();
    QCOMPARE(m_contents->geometry(), m_window->rect().adjusted(1, 2, -3, -4));
}

QTEST_MAIN(tst_WinFrame_Placing)
#include "tst_winframe_placing.moc"
