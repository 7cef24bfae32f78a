// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestWinFramelessDelegate.h"

#include "FakeWindows.h"
#include "KestTitleBar.h"
#include "TestedQt.h"

#include <QtCore/QPointer>
#include <QtCore/QScopeGuard>
#include <QtGui/QCloseEvent>
#include <QtGui/QCursor>
#include <QtGui/QFocusEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindowStateChangeEvent>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QWidget>

namespace {

const QRect WindowRect(200, 150, 400, 300);
const QRect NativeRect(210, 160, 400, 300); // as the system tells it, which Qt may not know yet
const int Untouched = -77;

const int CyFrame = 5;
const int CxFrame = 4;
const int PaddedBorder = 3;

HMONITOR monitorNumber(quintptr number)
{
    return reinterpret_cast<HMONITOR>(number);
}

class Bar : public KestTitleBar
{
public:
    using KestTitleBar::doIconRect;
    using KestTitleBar::KestTitleBar;
};

// A window with a title bar, as the shells have one, and the system that it lives in.
class Host : public QWidget
{
    Q_OBJECT

public:
    explicit Host(Qt::WindowFlags flags = Qt::WindowFlags())
        : QWidget(nullptr, flags),
          bar(new Bar(this)),
          delegate(new KestWinFramelessDelegate(this, bar))
    {
        bar->setGeometry(0, 0, WindowRect.width(), 40);
        setGeometry(WindowRect);
        windows.rect = NativeRect;
        windows.metrics = { { 32, CxFrame }, { 33, CyFrame }, { 92, PaddedBorder } };
        useHandle();
    }

    // The system goes before the window does.
    ~Host() override { delete delegate; }

    // Makes the system know the window.
    void useHandle() { windows.window = reinterpret_cast<HWND>(winId()); }

    // Shows it in \a state, with nothing of it recorded.
    void showIn(Qt::WindowStates state = Qt::WindowNoState)
    {
        show();
        setWindowState(state);
        if (state == Qt::WindowNoState)
            setGeometry(WindowRect);
        windows.takeCalls();
    }

    // Asks what \a point, in the window's coordinates, is to the system; Untouched if it does not
    // get to know. Whether it was answered is in \a answered.
    int hitTest(const QPoint &point)
    {
        QCursor::setPos(mapToGlobal(point));
        MSG msg = { windows.window, WM_NCHITTEST, 0, 0 };
        KestNativeResult result = Untouched;
        answered = delegate->onNCTitTest(&msg, &result);
        return int(result);
    }

    // Sends a native message; whether it was consumed is in \a answered.
    int send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        MSG msg = { windows.window, message, wParam, lParam };
        KestNativeResult result = Untouched;
        answered = delegate->nativeEvent(QByteArrayLiteral("windows_generic_MSG"), &msg, &result);
        return int(result);
    }

    // Asks for the client area; whether that was answered is in \a answered.
    int calculate(NCCALCSIZE_PARAMS *params)
    {
        return send(0x0083, TRUE, reinterpret_cast<LPARAM>(params));
    }

    // Makes it a maximised window to the system, on a monitor with a task bar at its top.
    void zoom()
    {
        windows.zoomed = true;
        windows.monitor = monitorNumber(1);
        windows.workAreas[windows.monitor] = QRect(0, 30, 1000, 670);
    }

    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn)
            focusReasons.append(static_cast<QFocusEvent *>(event)->reason());
        return QWidget::event(event);
    }

    FakeWindows windows;
    Bar *bar;
    QPointer<KestWinFramelessDelegate> delegate;
    bool answered = false;
    QVector<Qt::FocusReason> focusReasons;
};

QString toString(const RECT &rect)
{
    return QStringLiteral("%1,%2 %3,%4")
        .arg(rect.left)
        .arg(rect.top)
        .arg(rect.right)
        .arg(rect.bottom);
}

// The rectangles that come with WM_NCCALCSIZE, each telling its place.
NCCALCSIZE_PARAMS calcParams()
{
    return { { { 0, 1, 1000, 701 }, { 10, 11, 110, 111 }, { 20, 21, 120, 121 } }, nullptr };
}

void sendEvent(QObject *receiver, QEvent::Type type)
{
    // A widget asks this one for the state before.
    QWindowStateChangeEvent stateChange(Qt::WindowNoState);
    QEvent other(type);
    QCoreApplication::sendEvent(receiver,
                                type == QEvent::WindowStateChange ? &stateChange : &other);
}

// What a point is by the rules of the edges, one after the other; Untouched where none says.
int edgeByTheRules(const QPoint &p, const QRect &r)
{
    const int b = 5;
    const int x = p.x();
    const int y = p.y();
    const int left = r.x();
    const int top = r.y();
    const int right = r.x() + r.width() - 1;
    const int bottom = r.y() + r.height() - 1;
    if (left <= x && x <= left + b) {
        if (top <= y && y <= top + b)
            return 13;
        if (top + b < y && y < bottom - b)
            return 10;
        if (bottom - b <= y && y <= bottom)
            return 16;
    }
    if (left + b < x && x < right - b) {
        if (top <= y && y <= top + b)
            return 12;
        if (bottom - b <= y && y <= bottom)
            return 15;
    }
    if (right - b <= x && x <= right) {
        if (top <= y && y <= top + b)
            return 14;
        if (top + b < y && y < bottom - b)
            return 11;
        if (bottom - b <= y && y <= bottom)
            return 17;
    }
    return x < left || x > right ? 0 : Untouched;
}

} // namespace

class tst_KestWinFramelessDelegate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isAChildOfTheWindow();
    void flagsAreAdded();
    void nullMoveBarsAreSkipped();

    void style_data();
    void style();
    void frameIsExtendedOnlyWithComposition();
    void styleIsAppliedAtTheFirstShow();
    void styleIsAppliedAnewToANewNativeWindow();
    void styleIsAppliedToANativeWindowThatIsThereAlready();
    void showKeepsQtFromChoosingASize();

    void placementIsRestoredAfterAMaximizedShow();
    void hidingReadsThePlacementOnce();
    void placementIsNotRestoredWhenShownNormal();
    void minimizedPlacementIsNotRestored();
    void placementOfAWindowNeverHidden();
    void placementIsNotRestoredWithoutTheDelegate();
    void closeSavesThePlacementOfWindowsOnly_data();
    void closeSavesThePlacementOfWindowsOnly();

    void restoredWindowIsMovedIntoTheWorkArea();
    void restoredWindowBelowTheTopStays();
    void maximizedWindowGetsMargins();
    void otherStatesHaveNoMargins_data();
    void otherStatesHaveNoMargins();
    void screenChangeRefreshesTheFrame();
    void eventsOfOthersAreIgnored();
    void eventsAreNeverConsumed();

    void edges_data();
    void edges();
    void edgesOfATinyWindow();
    void noEdges_data();
    void noEdges();
    void edgesWithOneLimitEqual();

    void captionAndIcon();
    void iconOfAPlainBar();
    void buttonsOfTheTitleBar_data();
    void buttonsOfTheTitleBar();
    void otherChildren_data();
    void otherChildren();
    void grandchildrenAreNotTheBars();
    void emptyPlacesAreNotAnswered();
    void barsAreTriedInOrder();
    void hitTestFollowsTheCursorNotTheMessage();
    void moveBarsAreAddedAndRemoved();
    void deadMoveBarIsForgotten();

    void hitTestMessage();
    void contentsFillAWindowThatIsNotZoomed();
    void contentsFillTheWorkAreaWhenZoomed();
    void workAreaIsReadOncePerMonitor();
    void emptyWorkAreaIsIgnored();
    void withoutWorkAreaTheSystemDecides();
    void answerOfTheSystemIsPassedOn();
    void plainClientAreaMessage();
    void classicFrameIsNotPainted_data();
    void classicFrameIsNotPainted();
    void doubleClick_data();
    void doubleClick();
    void rightClickOpensTheMenuAtTheCursor();
    void altSpace();
    void otherSystemCommandsPass();
    void focus_data();
    void focus();
    void otherMessagesPass();

    void menu_data();
    void menu();
    void menuWithoutHandle();
    void menuOpensInPixels();
    void chosenCommandIsPosted();

    void windowWithoutHandleIsLeftAlone();
};

void tst_KestWinFramelessDelegate::isAChildOfTheWindow()
{
    Host host;
    QCOMPARE(host.delegate->parent(), &host);
}

void tst_KestWinFramelessDelegate::flagsAreAdded()
{
    for (Qt::WindowFlags flags : { Qt::WindowFlags(Qt::Tool | Qt::WindowStaysOnTopHint),
                                   Qt::WindowFlags(Qt::Popup | Qt::FramelessWindowHint) }) {
        QWidget window(nullptr, flags);
        const Qt::WindowFlags before = window.windowFlags();
        const KestWinFramelessDelegate delegate(&window, nullptr);
        QCOMPARE(window.windowFlags(), before | Qt::WindowFlags(0xE801));
    }
}

void tst_KestWinFramelessDelegate::nullMoveBarsAreSkipped()
{
    Host host;
    static int warnings;
    warnings = 0;
    const QtMessageHandler before =
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &) {
            warnings += type == QtWarningMsg;
        });
    const auto reset = qScopeGuard([before] { qInstallMessageHandler(before); });
    const KestWinFramelessDelegate other(&host, QList<QWidget *> { nullptr, host.bar });
    host.delegate->addMoveBar(nullptr);
    host.delegate->removeMoveBar(nullptr);
    host.showIn();
    QCOMPARE(warnings, 0);
    // Over no child at all, where a null bar would match.
    QCOMPARE(host.hitTest(QPoint(200, 200)), Untouched);
    QVERIFY(!host.answered);
}

void tst_KestWinFramelessDelegate::style_data()
{
    QTest::addColumn<Qt::WindowFlags>("withoutFlags");
    QTest::addColumn<QSize>("maximum");
    QTest::addColumn<QString>("style");

    const QSize unlimited(16777215, 16777215);
    const Qt::WindowFlags none;
    QTest::newRow("free") << none << unlimited << QStringLiteral("0x96c70001");
    QTest::newRow("limited width")
        << none << QSize(16777214, 16777215) << QStringLiteral("0x96c50001");
    QTest::newRow("limited height") << none << QSize(16777215, 800) << QStringLiteral("0x96c50001");
    QTest::newRow("no minimise button") << Qt::WindowFlags(Qt::WindowMinimizeButtonHint)
                                        << unlimited << QStringLiteral("0x96c50001");
    QTest::newRow("no maximise button") << Qt::WindowFlags(Qt::WindowMaximizeButtonHint)
                                        << unlimited << QStringLiteral("0x96c60001");
    QTest::newRow("neither button")
        << Qt::WindowFlags(Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint) << unlimited
        << QStringLiteral("0x96c40001");
    QTest::newRow("limited, no maximise button") << Qt::WindowFlags(Qt::WindowMaximizeButtonHint)
                                                 << QSize(800, 600) << QStringLiteral("0x96c40001");
}

void tst_KestWinFramelessDelegate::style()
{
    QFETCH(Qt::WindowFlags, withoutFlags);
    QFETCH(QSize, maximum);
    QFETCH(QString, style);

    Host host;
    host.setWindowFlags(host.windowFlags() & ~withoutFlags);
    host.setMaximumSize(maximum);
    host.useHandle();
    host.windows.style = LONG(0x960F0001U | 0xC80000U); // among them the ones to be cleared
    host.windows.takeCalls();
    host.delegate->setWindowLong();
    QCOMPARE(
        host.windows.takeCalls(),
        QStringList({ QStringLiteral("SetWindowLongW ") + style, QStringLiteral("extend 1 1 1 1"),
                      QStringLiteral("SetWindowPos 210,160 400x300 0x23") }));
}

void tst_KestWinFramelessDelegate::frameIsExtendedOnlyWithComposition()
{
    Host host;
    const QStringList calls { QStringLiteral("SetWindowLongW 0xc70000"),
                              QStringLiteral("SetWindowPos 210,160 400x300 0x23") };
    host.windows.composition = false;
    host.delegate->setWindowLong();
    QCOMPARE(host.windows.takeCalls(), calls);
    host.windows.composition = true;
    host.windows.compositionFails = true;
    host.delegate->setWindowLong();
    QCOMPARE(host.windows.takeCalls(), calls);
}

void tst_KestWinFramelessDelegate::styleIsAppliedAtTheFirstShow()
{
    Host host;
    QCOMPARE(host.windows.takeCalls(), QStringList());
    host.show();
    QCOMPARE(host.windows.takeCalls().value(0), QStringLiteral("SetWindowLongW 0xc70000"));
    host.hide();
    host.show();
    QCOMPARE(host.windows.takeCalls(), QStringList());
    host.close();
    host.show();
    QCOMPARE(!host.windows.takeCalls().isEmpty(), ClosedWindowsAreMadeAnew);
    // One that is new while it is shown waits for the next time.
    sendEvent(&host, QEvent::WinIdChange);
    QCOMPARE(host.windows.takeCalls(), QStringList());
}

void tst_KestWinFramelessDelegate::styleIsAppliedToANativeWindowThatIsThereAlready()
{
    FakeWindows windows;
    // Its flags are those that the delegate wants, so that Qt does not make another one.
    QWidget window(nullptr, Qt::WindowFlags(0xE801));
    windows.window = reinterpret_cast<HWND>(window.winId());
    const KestWinFramelessDelegate delegate(&window, nullptr);
    QCOMPARE(windows.takeCalls(), QStringList());
    window.show();
    QCOMPARE(windows.takeCalls().value(0), QStringLiteral("SetWindowLongW 0xc70000"));
}

void tst_KestWinFramelessDelegate::styleIsAppliedAnewToANewNativeWindow()
{
    Host host;
    host.show();
    host.windows.takeCalls();
    host.hide();
    sendEvent(&host, QEvent::WinIdChange);
    QCOMPARE(host.windows.takeCalls(), QStringList());
    host.show();
    QCOMPARE(host.windows.takeCalls().value(0), QStringLiteral("SetWindowLongW 0xc70000"));
    host.hide();
    host.show();
    QCOMPARE(host.windows.takeCalls(), QStringList());
}

void tst_KestWinFramelessDelegate::showKeepsQtFromChoosingASize()
{
    Host host;
    host.show();
    host.setAttribute(Qt::WA_Resized, false);
    sendEvent(&host, QEvent::Show);
    QVERIFY(host.testAttribute(Qt::WA_Resized));
}

void tst_KestWinFramelessDelegate::placementIsRestoredAfterAMaximizedShow()
{
    Host host;
    host.showIn(Qt::WindowMaximized);
    QCoreApplication::processEvents();
    host.windows.placement.showCmd = 3;
    host.windows.placement.rcNormalPosition.left = 123;
    host.hide();
    host.windows.placement.rcNormalPosition.left = 456;
    host.windows.takeCalls();
    host.show();
    // Not before Qt has done its own.
    QCOMPARE(host.windows.takeCalls(), QStringList());
    QCoreApplication::processEvents();
    QCOMPARE(host.windows.takeCalls(),
             QStringList(QStringLiteral("SetWindowPlacement length 44 showCmd 3 left 123")));
    // Whatever becomes of the native window meanwhile.
    host.hide();
    host.windows.takeCalls();
    host.show();
    sendEvent(&host, QEvent::WinIdChange);
    QCoreApplication::processEvents();
    QCOMPARE(host.windows.takeCalls().size(), 1);
}

void tst_KestWinFramelessDelegate::hidingReadsThePlacementOnce()
{
    Host host;
    host.showIn();
    host.windows.placementsRead = 0;
    host.hide();
    QCOMPARE(host.windows.placementsRead, 1);
}

void tst_KestWinFramelessDelegate::placementIsNotRestoredWhenShownNormal()
{
    Host host;
    host.showIn();
    host.hide();
    host.show();
    QCoreApplication::processEvents();
    QCOMPARE(host.windows.takeCalls(), QStringList());
}

void tst_KestWinFramelessDelegate::minimizedPlacementIsNotRestored()
{
    Host host;
    host.showIn(Qt::WindowMaximized);
    QCoreApplication::processEvents();
    host.windows.placement.showCmd = 2;
    host.hide();
    host.show();
    host.windows.takeCalls();
    QCoreApplication::processEvents();
    QCOMPARE(host.windows.takeCalls(), QStringList());
}

void tst_KestWinFramelessDelegate::placementOfAWindowNeverHidden()
{
    // It was never read: what is handed on is empty, which the system refuses.
    Host host;
    host.setWindowState(Qt::WindowMaximized);
    host.show();
    host.windows.takeCalls();
    QCoreApplication::processEvents();
    QCOMPARE(host.windows.takeCalls(),
             QStringList(QStringLiteral("SetWindowPlacement length 0 showCmd 0 left 0")));
}

void tst_KestWinFramelessDelegate::placementIsNotRestoredWithoutTheDelegate()
{
    Host host;
    host.setWindowState(Qt::WindowMaximized);
    host.show();
    delete host.delegate;
    host.windows.takeCalls();
    QCoreApplication::processEvents();
    QCOMPARE(host.windows.takeCalls(), QStringList());
}

void tst_KestWinFramelessDelegate::closeSavesThePlacementOfWindowsOnly_data()
{
    QTest::addColumn<Qt::WindowType>("type");
    QTest::addColumn<bool>("saved");

    QTest::newRow("window") << Qt::Window << true;
    QTest::newRow("sheet") << Qt::Sheet << true;
    QTest::newRow("popup") << Qt::Popup << true;
    QTest::newRow("tool tip") << Qt::ToolTip << true;
    QTest::newRow("dialog") << Qt::Dialog << false;
    QTest::newRow("drawer") << Qt::Drawer << false;
    QTest::newRow("tool") << Qt::Tool << false;
    QTest::newRow("splash screen") << Qt::SplashScreen << false;
}

void tst_KestWinFramelessDelegate::closeSavesThePlacementOfWindowsOnly()
{
    QFETCH(Qt::WindowType, type);
    QFETCH(bool, saved);

    Host host(type);
    host.windows.placement.showCmd = 3;
    host.windows.placement.rcNormalPosition.left = 1;
    QCloseEvent close;
    QCoreApplication::sendEvent(&host, &close);
    host.setWindowState(Qt::WindowMaximized);
    sendEvent(&host, QEvent::Show);
    host.windows.takeCalls();
    QCoreApplication::processEvents();
    QCOMPARE(host.windows.takeCalls(),
             QStringList(saved ? QStringLiteral("SetWindowPlacement length 44 showCmd 3 left 1")
                               : QStringLiteral("SetWindowPlacement length 0 showCmd 0 left 0")));
}

void tst_KestWinFramelessDelegate::restoredWindowIsMovedIntoTheWorkArea()
{
    Host host;
    host.showIn(Qt::WindowMaximized);
    host.setContentsMargins(1, 2, 3, 4);
    const int workTop = QGuiApplication::primaryScreen()->availableVirtualGeometry().top();
    const int top = workTop - 1;
    host.windows.rect.moveTopLeft(QPoint(33, top));
    QTest::ignoreMessage(QtDebugMsg,
                         "QRavWinFramelessDelegate::eventFilter QEvent::WindowStateChange "
                         "QFlags<Qt::WindowState>(WindowNoState)");
    QTest::ignoreMessage(
        QtDebugMsg,
        qPrintable(QStringLiteral("rect.top  %1 workRect.top %2").arg(top).arg(workTop)));
    host.setWindowState(Qt::WindowNoState);
    // The system counts in pixels of the screen, also where Qt does not.
    QCOMPARE(host.pos(), QPoint(qRound(33 / qApp->devicePixelRatio()), workTop));
    QCOMPARE(host.contentsMargins(), QMargins());
    // Only the top has to be within reach.
    host.setWindowState(Qt::WindowMaximized);
    host.windows.rect.moveLeft(-33);
    host.setWindowState(Qt::WindowNoState);
    QCOMPARE(host.pos(), QPoint(qRound(-33 / qApp->devicePixelRatio()), workTop));
}

void tst_KestWinFramelessDelegate::restoredWindowBelowTheTopStays()
{
    Host host;
    host.showIn();
    const int workTop = QGuiApplication::primaryScreen()->availableVirtualGeometry().top();
    host.windows.rect.moveTopLeft(QPoint(33, workTop));
    host.setContentsMargins(1, 2, 3, 4);
    sendEvent(&host, QEvent::WindowStateChange);
    QCOMPARE(host.pos(), WindowRect.topLeft());
    QCOMPARE(host.contentsMargins(), QMargins());
}

void tst_KestWinFramelessDelegate::maximizedWindowGetsMargins()
{
    Host host;
    host.showIn();
    QTest::ignoreMessage(QtDebugMsg,
                         "QRavWinFramelessDelegate::eventFilter QEvent::WindowStateChange "
                         "QFlags<Qt::WindowState>(WindowMaximized)");
    QTest::ignoreMessage(QtDebugMsg, "max x 7 max y 8 boarder 3");
    host.setWindowState(Qt::WindowMaximized);
    QCOMPARE(host.contentsMargins(), QMargins(0, 0, 14, 16));
}

void tst_KestWinFramelessDelegate::otherStatesHaveNoMargins_data()
{
    QTest::addColumn<Qt::WindowStates>("state");
    QTest::newRow("full screen") << Qt::WindowStates(Qt::WindowFullScreen);
    QTest::newRow("minimised") << Qt::WindowStates(Qt::WindowMinimized);
    QTest::newRow("minimised, maximised before") << (Qt::WindowMinimized | Qt::WindowMaximized);
}

void tst_KestWinFramelessDelegate::otherStatesHaveNoMargins()
{
    QFETCH(Qt::WindowStates, state);

    Host host;
    host.showIn();
    host.setContentsMargins(1, 2, 3, 4);
    host.windows.rect.moveTop(-100);
    host.setAttribute(Qt::WA_LayoutOnEntireRect);
    host.setWindowState(state);
    QCOMPARE(host.contentsMargins(), QMargins());
    QVERIFY(!host.testAttribute(Qt::WA_LayoutOnEntireRect));
    QVERIFY(host.windowState() == state);
}

void tst_KestWinFramelessDelegate::screenChangeRefreshesTheFrame()
{
    Host host;
    sendEvent(&host, QEvent::ScreenChangeInternal);
    QCOMPARE(host.windows.takeCalls(), QStringList());
    host.showIn();
    sendEvent(&host, QEvent::ScreenChangeInternal);
    QCOMPARE(host.windows.takeCalls(), QStringList(QStringLiteral("SetWindowPos 0,0 0x0 0x23")));
}

void tst_KestWinFramelessDelegate::eventsOfOthersAreIgnored()
{
    Host host;
    for (QEvent::Type type : { QEvent::Show, QEvent::WindowStateChange, QEvent::Hide }) {
        QEvent event(type);
        QVERIFY(!host.delegate->eventFilter(host.bar, &event));
    }
    QCOMPARE(host.windows.takeCalls(), QStringList());
}

void tst_KestWinFramelessDelegate::eventsAreNeverConsumed()
{
    Host host;
    for (QEvent::Type type :
         { QEvent::Show, QEvent::WindowStateChange, QEvent::Hide, QEvent::Close,
           QEvent::WinIdChange, QEvent::ScreenChangeInternal, QEvent::Resize }) {
        QEvent event(type);
        QVERIFY(!host.delegate->eventFilter(&host, &event));
    }
}

void tst_KestWinFramelessDelegate::edges_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<int>("answer");

    const int right = WindowRect.width() - 1;
    const int bottom = WindowRect.height() - 1;
    QTest::newRow("top left corner") << QPoint(0, 0) << 13;
    QTest::newRow("inner top left corner") << QPoint(5, 5) << 13;
    QTest::newRow("left, below the corner") << QPoint(0, 6) << 10;
    QTest::newRow("left, inner") << QPoint(5, 150) << 10;
    QTest::newRow("left, above the corner") << QPoint(5, bottom - 6) << 10;
    QTest::newRow("bottom left corner") << QPoint(0, bottom) << 16;
    QTest::newRow("inner bottom left corner") << QPoint(5, bottom - 5) << 16;
    QTest::newRow("top, after the corner") << QPoint(6, 0) << 12;
    QTest::newRow("top, inner") << QPoint(200, 5) << 12;
    QTest::newRow("top, before the corner") << QPoint(right - 6, 5) << 12;
    QTest::newRow("bottom") << QPoint(200, bottom) << 15;
    QTest::newRow("bottom, inner") << QPoint(200, bottom - 5) << 15;
    QTest::newRow("top right corner") << QPoint(right, 0) << 14;
    QTest::newRow("inner top right corner") << QPoint(right - 5, 5) << 14;
    QTest::newRow("right") << QPoint(right, 150) << 11;
    QTest::newRow("right, inner") << QPoint(right - 5, 150) << 11;
    QTest::newRow("bottom right corner") << QPoint(right, bottom) << 17;
    QTest::newRow("inner bottom right corner") << QPoint(right - 5, bottom - 5) << 17;
    QTest::newRow("left of the window") << QPoint(-1, 150) << 0;
    QTest::newRow("right of the window") << QPoint(right + 1, 150) << 0;
    QTest::newRow("left of and above the window") << QPoint(-1, -1) << 0;
    QTest::newRow("above the window") << QPoint(0, -1) << Untouched;
    QTest::newRow("below the window") << QPoint(right, bottom + 1) << Untouched;
    QTest::newRow("contents, next to the left edge") << QPoint(6, 150) << Untouched;
    QTest::newRow("contents, next to the right edge") << QPoint(right - 6, 150) << Untouched;
    QTest::newRow("contents, next to the bottom") << QPoint(200, bottom - 6) << Untouched;
    QTest::newRow("caption, next to the top") << QPoint(200, 6) << 2;
}

void tst_KestWinFramelessDelegate::edges()
{
    QFETCH(QPoint, point);
    QFETCH(int, answer);

    Host host;
    host.showIn();
    QCOMPARE(host.hitTest(point), answer);
    QCOMPARE(host.answered, answer != Untouched);
}

void tst_KestWinFramelessDelegate::edgesOfATinyWindow()
{
    // Its bands overlap.
    Host host;
    host.setMinimumSize(1, 1);
    host.showIn();
    host.bar->hide();
    for (const QSize &size : { QSize(8, 8), QSize(11, 11), QSize(12, 12), QSize(3, 20) }) {
        host.resize(size);
        for (int y = -2; y < size.height() + 2; ++y) {
            for (int x = -2; x < size.width() + 2; ++x) {
                const QPoint point(x, y);
                QCOMPARE(host.hitTest(point),
                         edgeByTheRules(host.mapToGlobal(point), host.geometry()));
            }
        }
    }
}

void tst_KestWinFramelessDelegate::noEdges_data()
{
    QTest::addColumn<Qt::WindowStates>("state");
    QTest::addColumn<bool>("fixed");
    QTest::newRow("maximised") << Qt::WindowStates(Qt::WindowMaximized) << false;
    QTest::newRow("full screen") << Qt::WindowStates(Qt::WindowFullScreen) << false;
    QTest::newRow("fixed size") << Qt::WindowStates(Qt::WindowNoState) << true;
}

void tst_KestWinFramelessDelegate::noEdges()
{
    QFETCH(Qt::WindowStates, state);
    QFETCH(bool, fixed);

    Host host;
    if (fixed)
        host.setFixedSize(WindowRect.size());
    host.showIn(state);
    host.bar->resize(host.width(), 40);
    // Caption to the very edge, and nothing where no bar is.
    QCOMPARE(host.hitTest(QPoint(host.bar->width() / 2, 0)), 2);
    QVERIFY(host.answered);
    QCOMPARE(host.hitTest(QPoint(0, host.height() - 1)), Untouched);
    QCOMPARE(host.hitTest(QPoint(-1, 100)), Untouched);
    QVERIFY(!host.answered);
}

void tst_KestWinFramelessDelegate::edgesWithOneLimitEqual()
{
    Host host;
    host.setFixedWidth(WindowRect.width());
    host.showIn();
    QCOMPARE(host.hitTest(QPoint(0, 150)), 10);
    host.setMinimumWidth(0);
    host.setMaximumWidth(QWIDGETSIZE_MAX);
    host.setFixedHeight(WindowRect.height());
    QCOMPARE(host.hitTest(QPoint(0, 150)), 10);
}

void tst_KestWinFramelessDelegate::captionAndIcon()
{
    Host host;
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::red);
    host.setWindowIcon(pixmap);
    host.bar->setIconVisible(true);
    host.showIn(Qt::WindowMaximized);
    const QRect icon = host.bar->doIconRect();
    QVERIFY(icon.width() > 4 && icon.height() > 4);
    host.bar->move(3, 2); // the icon's place is the bar's, not the window's
    const QRect onWindow = icon.translated(3, 2);
    QCOMPARE(host.hitTest(onWindow.topLeft()), 3);
    QVERIFY(host.answered);
    QCOMPARE(host.hitTest(onWindow.bottomRight()), 3);
    QCOMPARE(host.hitTest(onWindow.bottomRight() + QPoint(1, 0)), 2);
    QCOMPARE(host.hitTest(onWindow.topLeft() - QPoint(1, 0)), 2);
    QVERIFY(host.answered);

    host.bar->setIconVisible(false);
    QCOMPARE(host.hitTest(onWindow.center()), 2);
    QVERIFY(host.answered);
}

void tst_KestWinFramelessDelegate::iconOfAPlainBar()
{
    // Only a title bar has an icon.
    Host host;
    QWidget bar(&host);
    bar.setGeometry(0, 100, WindowRect.width(), 40);
    host.delegate->addMoveBar(&bar);
    host.showIn(Qt::WindowMaximized);
    for (int x = 0; x < 60; ++x)
        QCOMPARE(host.hitTest(QPoint(x, 120)), 2);
}

void tst_KestWinFramelessDelegate::buttonsOfTheTitleBar_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("answer");
    QTest::newRow("close") << QStringLiteral("closeBtn") << 20;
    QTest::newRow("minimise") << QStringLiteral("minimumSizeBtn") << 8;
    QTest::newRow("maximise") << QStringLiteral("maximumSizeBtn") << 8;
}

void tst_KestWinFramelessDelegate::buttonsOfTheTitleBar()
{
    QFETCH(QString, name);
    QFETCH(int, answer);

    Host host;
    host.showIn();
    auto *button = host.bar->findChild<QWidget *>(name);
    QCOMPARE(host.hitTest(button->mapTo(&host, button->rect().center())), answer);
    // The button gets the click.
    QVERIFY(!host.answered);
}

void tst_KestWinFramelessDelegate::otherChildren_data()
{
    QTest::addColumn<QWidget *>("child");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("answer");
    QTest::newRow("button") << static_cast<QWidget *>(new QPushButton) << QString() << 1;
    QTest::newRow("named button") << static_cast<QWidget *>(new QPushButton)
                                  << QStringLiteral("closebtn") << 1;
    QTest::newRow("another close button")
        << static_cast<QWidget *>(new QPushButton) << QStringLiteral("closeBtn") << 20;
    QTest::newRow("plain widget") << new QWidget << QStringLiteral("closeBtn") << Untouched;
    QTest::newRow("label") << static_cast<QWidget *>(new QLabel) << QStringLiteral("closeBtn")
                           << Untouched;
}

void tst_KestWinFramelessDelegate::otherChildren()
{
    QFETCH(QWidget *, child);
    QFETCH(QString, name);
    QFETCH(int, answer);

    Host host;
    child->setObjectName(name);
    child->setParent(host.bar);
    child->setGeometry(100, 10, 20, 20);
    host.showIn();
    child->show();
    QCOMPARE(host.hitTest(QPoint(110, 20)), answer);
    QVERIFY(!host.answered);
}

void tst_KestWinFramelessDelegate::grandchildrenAreNotTheBars()
{
    Host host;
    QWidget group(host.bar);
    group.setGeometry(100, 10, 100, 20);
    QPushButton button(&group);
    button.setObjectName(QStringLiteral("closeBtn"));
    button.setGeometry(0, 0, 50, 20);
    host.showIn();
    QCOMPARE(host.hitTest(QPoint(110, 20)), Untouched);
    QVERIFY(!host.answered);
}

void tst_KestWinFramelessDelegate::emptyPlacesAreNotAnswered()
{
    Host host;
    QWidget central(&host);
    central.setGeometry(10, 60, 100, 100);
    host.showIn();
    QCOMPARE(host.hitTest(QPoint(50, 100)), Untouched);
    QCOMPARE(host.hitTest(QPoint(200, 100)), Untouched);
    QVERIFY(!host.answered);
}

void tst_KestWinFramelessDelegate::barsAreTriedInOrder()
{
    // A button that is a move bar itself: whose it is first decides.
    Host host;
    QPushButton button(host.bar);
    button.setGeometry(100, 10, 50, 20);
    host.delegate->addMoveBar(&button);
    host.showIn();
    QCOMPARE(host.hitTest(QPoint(110, 20)), 1);
    QVERIFY(!host.answered);
    host.delegate->removeMoveBar(host.bar);
    host.delegate->addMoveBar(host.bar);
    QCOMPARE(host.hitTest(QPoint(110, 20)), 2);
    QVERIFY(host.answered);

    // A plain widget leaves the answer to the next bar.
    QWidget inner(host.bar);
    inner.setGeometry(200, 10, 50, 20);
    inner.show();
    host.delegate->addMoveBar(&inner);
    QCOMPARE(host.hitTest(QPoint(210, 20)), 2);
}

void tst_KestWinFramelessDelegate::hitTestFollowsTheCursorNotTheMessage()
{
    Host host;
    host.showIn();
    QCursor::setPos(host.mapToGlobal(QPoint(200, 20)));
    MSG msg = { host.windows.window, WM_NCHITTEST, 0, LPARAM(0) };
    KestNativeResult result = Untouched;
    QVERIFY(host.delegate->onNCTitTest(&msg, &result));
    QCOMPARE(result, 2L);
}

void tst_KestWinFramelessDelegate::moveBarsAreAddedAndRemoved()
{
    Host host;
    QWidget bar(&host);
    bar.setGeometry(0, 100, WindowRect.width(), 40);
    host.showIn();
    QCOMPARE(host.hitTest(QPoint(100, 120)), Untouched);
    host.delegate->addMoveBar(&bar);
    host.delegate->addMoveBar(&bar);
    QCOMPARE(host.hitTest(QPoint(100, 120)), 2);
    // It was added once.
    host.delegate->removeMoveBar(&bar);
    QCOMPARE(host.hitTest(QPoint(100, 120)), Untouched);
    host.delegate->removeMoveBar(&bar);
    QCOMPARE(host.hitTest(QPoint(200, 20)), 2);
}

void tst_KestWinFramelessDelegate::deadMoveBarIsForgotten()
{
    Host host;
    host.showIn();
    delete host.bar;
    QCOMPARE(host.hitTest(QPoint(200, 20)), Untouched);

    // Nor is one taken for it that is made in its place.
    alignas(QWidget) char place[sizeof(QWidget)];
    auto *first = new (place) QWidget(&host);
    host.delegate->addMoveBar(first);
    host.delegate->removeMoveBar(first);
    host.delegate->addMoveBar(first);
    first->~QWidget();
    auto *second = new (place) QWidget(&host);
    second->setGeometry(host.rect());
    second->show();
    QCOMPARE(host.hitTest(QPoint(200, 20)), Untouched);
    second->~QWidget();
}

void tst_KestWinFramelessDelegate::hitTestMessage()
{
    Host host;
    host.showIn();
    QCursor::setPos(host.mapToGlobal(QPoint(200, 20)));
    QCOMPARE(host.send(0x0084), 2);
    QVERIFY(host.answered);
    QCursor::setPos(host.mapToGlobal(QPoint(200, 200)));
    host.send(0x0084);
    QVERIFY(!host.answered);
}

void tst_KestWinFramelessDelegate::contentsFillAWindowThatIsNotZoomed()
{
    Host host;
    NCCALCSIZE_PARAMS params = calcParams();
    QCOMPARE(host.calculate(&params), 0x300);
    QVERIFY(host.answered);
    QCOMPARE(toString(params.rgrc[0]), QStringLiteral("0,1 1000,702"));
    QCOMPARE(toString(params.rgrc[1]), QStringLiteral("0,1 1000,701"));
    QCOMPARE(toString(params.rgrc[2]), QStringLiteral("10,11 110,111"));
    QCOMPARE(host.windows.takeCalls(), QStringList());
}

void tst_KestWinFramelessDelegate::contentsFillTheWorkAreaWhenZoomed()
{
    Host host;
    host.zoom();
    NCCALCSIZE_PARAMS params = calcParams();
    QTest::ignoreMessage(QtDebugMsg, "WM_NCCALCSIZE full  QRect(0,30 1000x670)");
    QCOMPARE(host.calculate(&params), 0);
    QVERIFY(host.answered);
    // Left and right are the system's: its frame is off the screen there.
    QCOMPARE(toString(params.rgrc[0]), QStringLiteral("8,30 992,700"));
    QCOMPARE(toString(params.rgrc[1]), QStringLiteral("0,1 1000,701"));
    QCOMPARE(toString(params.rgrc[2]), QStringLiteral("10,11 110,111"));
    QCOMPARE(host.windows.takeCalls(),
             QStringList({ QStringLiteral("GetMonitorInfoW"), QStringLiteral("DefWindowProcW") }));
}

void tst_KestWinFramelessDelegate::workAreaIsReadOncePerMonitor()
{
    Host host;
    const QString read = QStringLiteral("GetMonitorInfoW");
    const auto clientArea = [&host] {
        host.windows.takeCalls();
        NCCALCSIZE_PARAMS params = calcParams();
        host.calculate(&params);
        return toString(params.rgrc[0]);
    };
    host.zoom();
    host.windows.workAreas[monitorNumber(2)] = QRect(1000, 0, 800, 600);
    clientArea();
    QVERIFY(host.windows.calls.contains(read));
    host.windows.workAreas[monitorNumber(1)] = QRect(0, 50, 1000, 650);
    QCOMPARE(clientArea(), QStringLiteral("8,30 992,700"));
    QVERIFY(!host.windows.calls.contains(read));

    host.windows.monitor = monitorNumber(2);
    QCOMPARE(clientArea(), QStringLiteral("8,0 992,600"));
    QVERIFY(host.windows.calls.contains(read));

    // On no monitor the last work area holds.
    host.windows.monitor = nullptr;
    QCOMPARE(clientArea(), QStringLiteral("8,0 992,600"));
    QVERIFY(!host.windows.calls.contains(read));

    host.windows.monitor = monitorNumber(1);
    QCOMPARE(clientArea(), QStringLiteral("8,50 992,700"));
    QVERIFY(host.windows.calls.contains(read));

    // Also when it is back on the monitor that it was on.
    host.windows.monitor = nullptr;
    clientArea();
    host.windows.workAreas[monitorNumber(1)] = QRect(0, 20, 1000, 680);
    host.windows.monitor = monitorNumber(1);
    QCOMPARE(clientArea(), QStringLiteral("8,20 992,700"));
}

void tst_KestWinFramelessDelegate::emptyWorkAreaIsIgnored()
{
    Host host;
    host.zoom();
    host.windows.workAreas[monitorNumber(2)] = QRect(1000, 0, 800, 0);
    for (quintptr number : { 1, 2 }) {
        host.windows.monitor = monitorNumber(number);
        NCCALCSIZE_PARAMS params = calcParams();
        host.calculate(&params);
        QCOMPARE(toString(params.rgrc[0]), QStringLiteral("8,30 992,700"));
    }
}

void tst_KestWinFramelessDelegate::withoutWorkAreaTheSystemDecides()
{
    Host host;
    host.windows.zoomed = true;
    NCCALCSIZE_PARAMS params = calcParams();
    QTest::ignoreMessage(QtDebugMsg, "WM_NCCALCSIZE full  QRect(0,0 0x0)");
    QTest::ignoreMessage(QtWarningMsg, "work rect is null");
    QCOMPARE(host.calculate(&params), Untouched);
    QVERIFY(!host.answered);
    QCOMPARE(toString(params.rgrc[0]), QStringLiteral("0,1 1000,701"));
    QCOMPARE(toString(params.rgrc[1]), QStringLiteral("0,1 1000,701"));
    QCOMPARE(toString(params.rgrc[2]), QStringLiteral("10,11 110,111"));
    QCOMPARE(host.windows.takeCalls(), QStringList());
}

void tst_KestWinFramelessDelegate::answerOfTheSystemIsPassedOn()
{
    Host host;
    host.zoom();
    host.windows.defaultAnswer = 0x20;
    NCCALCSIZE_PARAMS params = calcParams();
    QCOMPARE(host.calculate(&params), 0x20);
    QVERIFY(host.answered);
    QCOMPARE(toString(params.rgrc[0]), QStringLiteral("0,1 1000,701"));
}

void tst_KestWinFramelessDelegate::plainClientAreaMessage()
{
    Host host;
    host.windows.zoomed = true;
    NCCALCSIZE_PARAMS params = calcParams();
    QCOMPARE(host.send(0x0083, FALSE, reinterpret_cast<LPARAM>(&params)), 0);
    QVERIFY(host.answered);
    QCOMPARE(toString(params.rgrc[0]), QStringLiteral("0,1 1000,701"));
}

void tst_KestWinFramelessDelegate::classicFrameIsNotPainted_data()
{
    QTest::addColumn<UINT>("message");
    QTest::newRow("paint") << UINT(0x0085);
    QTest::newRow("activate") << UINT(0x0086);
}

void tst_KestWinFramelessDelegate::classicFrameIsNotPainted()
{
    QFETCH(UINT, message);

    Host host;
    QCOMPARE(host.send(message), Untouched);
    QVERIFY(!host.answered);
    host.windows.composition = false;
    QCOMPARE(host.send(message), 1);
    QVERIFY(host.answered);
}

void tst_KestWinFramelessDelegate::doubleClick_data()
{
    QTest::addColumn<bool>("maximizeButton");
    QTest::addColumn<QSize>("maximum");
    QTest::addColumn<bool>("consumed");
    const QSize unlimited(16777215, 16777215);
    QTest::newRow("maximises") << true << unlimited << false;
    QTest::newRow("without the button") << false << unlimited << true;
    QTest::newRow("limited width") << true << QSize(900, 16777215) << true;
    QTest::newRow("limited height") << true << QSize(16777215, 900) << true;
    QTest::newRow("limited, without the button") << false << QSize(900, 900) << true;
}

void tst_KestWinFramelessDelegate::doubleClick()
{
    QFETCH(bool, maximizeButton);
    QFETCH(QSize, maximum);
    QFETCH(bool, consumed);

    Host host;
    host.setWindowFlag(Qt::WindowMaximizeButtonHint, maximizeButton);
    host.setMaximumSize(maximum);
    QCOMPARE(host.send(0x00A3, HTCAPTION), Untouched);
    QCOMPARE(host.answered, consumed);
}

void tst_KestWinFramelessDelegate::rightClickOpensTheMenuAtTheCursor()
{
    Host host;
    host.showIn();
    QCursor::setPos(321, 234);
    QCOMPARE(host.send(0x00A5, HTCAPTION), 0);
    QVERIFY(host.answered);
    const qreal ratio = qGuiApp->devicePixelRatio();
    QCOMPARE(host.windows.takeCalls().last(),
             QStringLiteral("popup %1,%2").arg(int(321 * ratio)).arg(int(234 * ratio)));
}

void tst_KestWinFramelessDelegate::altSpace()
{
    Host host;
    host.showIn();
    QCOMPARE(host.send(0x0104, 0x20), 0);
    QVERIFY(host.answered);
    QCOMPARE(host.windows.takeCalls(), QStringList());
    QCOMPARE(host.send(0x0104, 0x21), Untouched);
    QVERIFY(!host.answered);

    QCOMPARE(host.send(0x0112, 0xF100, 0x20), 0);
    QVERIFY(host.answered);
    const qreal ratio = qGuiApp->devicePixelRatio();
    QCOMPARE(host.windows.takeCalls().last(),
             QStringLiteral("popup %1,%2")
                 .arg(int(WindowRect.x() * ratio))
                 .arg(int(WindowRect.y() * ratio)));
}

void tst_KestWinFramelessDelegate::otherSystemCommandsPass()
{
    Host host;
    QCOMPARE(host.send(0x0112, 0xF100, 0x41), Untouched);
    QVERIFY(!host.answered);
    QCOMPARE(host.send(0x0112, 0xF030, 0x20), Untouched);
    QVERIFY(!host.answered);
    QCOMPARE(host.windows.takeCalls(), QStringList());
}

void tst_KestWinFramelessDelegate::focus_data()
{
    QTest::addColumn<QSet<int>>("keys");
    QTest::addColumn<Qt::FocusReason>("reason");
    QTest::addColumn<QSet<int>>("toggled");
    const QSet<int> all { 0x01, 0x02, 0x10 };
    QTest::newRow("nothing down") << QSet<int>() << Qt::TabFocusReason << QSet<int>();
    QTest::newRow("left button") << QSet<int> { 0x01 } << Qt::MouseFocusReason << QSet<int>();
    QTest::newRow("right button") << QSet<int> { 0x02 } << Qt::MouseFocusReason << QSet<int>();
    QTest::newRow("shift") << QSet<int> { 0x10 } << Qt::BacktabFocusReason << QSet<int>();
    QTest::newRow("left button and shift")
        << QSet<int> { 0x01, 0x10 } << Qt::MouseFocusReason << QSet<int>();
    QTest::newRow("toggled only") << QSet<int>() << Qt::TabFocusReason << all;
    QTest::newRow("toggled and shift") << QSet<int> { 0x10 } << Qt::BacktabFocusReason << all;
    QTest::newRow("another key") << QSet<int> { 0x11 } << Qt::TabFocusReason << QSet<int>();
}

void tst_KestWinFramelessDelegate::focus()
{
    QFETCH(QSet<int>, keys);
    QFETCH(Qt::FocusReason, reason);

    QFETCH(QSet<int>, toggled);

    Host host;
    // It is the window that is told, whichever of its children gets the focus.
    QLineEdit child(&host);
    child.setFocus();
    host.windows.keysDown = keys;
    host.windows.keysToggled = toggled;
    QCOMPARE(host.send(0x0007), Untouched);
    QVERIFY(!host.answered);
    QCOMPARE(host.focusReasons, QVector<Qt::FocusReason> { reason });
}

void tst_KestWinFramelessDelegate::otherMessagesPass()
{
    Host host;
    host.windows.composition = false;
    const QSet<UINT> handled { 0x0083, 0x0084, 0x0085, 0x0086, 0x00A5 };
    for (UINT message = 1; message < 0x400; ++message) {
        if (handled.contains(message))
            continue;
        QCOMPARE(host.send(message), Untouched);
        QVERIFY2(!host.answered, qPrintable(QString::number(message, 16)));
    }
    QCOMPARE(host.windows.takeCalls(), QStringList());
    QCOMPARE(host.focusReasons.size(), 1);
}

void tst_KestWinFramelessDelegate::menu_data()
{
    QTest::addColumn<Qt::WindowStates>("state");
    QTest::addColumn<int>("showCmd");
    QTest::addColumn<bool>("fixed");
    QTest::addColumn<Qt::WindowFlags>("withoutFlags");
    QTest::addColumn<QStringList>("calls");

    const auto lines = [](const char *text) {
        return QString::fromLatin1(text).split(QLatin1Char('|'));
    };
    const Qt::WindowStates normal = Qt::WindowNoState;
    const Qt::WindowStates maximized = Qt::WindowMaximized;
    const Qt::WindowFlags none;
    QTest::newRow("normal") << normal << 1 << false << none
                            << lines("position 0xf000 2|position 0xf010 2|item 0xf120 1"
                                     "|default 0xf060");
    QTest::newRow("fixed size") << normal << 1 << true << none
                                << lines("item 0xf000 2|position 0xf010 2|item 0xf030 1"
                                         "|item 0xf120 1|default 0xf060");
    QTest::newRow("without maximise button")
        << normal << 1 << false << Qt::WindowFlags(Qt::WindowMaximizeButtonHint)
        << lines("position 0xf000 2|position 0xf010 2|item 0xf030 1|item 0xf120 1"
                 "|default 0xf060");
    QTest::newRow("without minimise button")
        << normal << 1 << false << Qt::WindowFlags(Qt::WindowMinimizeButtonHint)
        << lines("position 0xf000 2|position 0xf010 2|item 0xf020 1|item 0xf120 1"
                 "|default 0xf060");
    QTest::newRow("fixed size, no buttons")
        << normal << 1 << true
        << Qt::WindowFlags(Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint)
        << lines("item 0xf000 2|position 0xf010 2|item 0xf030 1|item 0xf020 1|item 0xf120 1"
                 "|default 0xf060");
    QTest::newRow("maximised") << maximized << 3 << false << none
                               << lines("item 0xf000 2|item 0xf010 2|item 0xf030 1"
                                        "|default 0xf060");
    QTest::newRow("minimised") << normal << 2 << false << none
                               << lines("position 0xf000 2|position 0xf010 2|item 0xf020 1"
                                        "|default 0xf120");
    QTest::newRow("any other") << normal << 7 << false << none
                               << lines("position 0xf000 2|position 0xf010 2");
}

void tst_KestWinFramelessDelegate::menu()
{
    QFETCH(Qt::WindowStates, state);
    QFETCH(int, showCmd);
    QFETCH(bool, fixed);
    QFETCH(Qt::WindowFlags, withoutFlags);
    QFETCH(QStringList, calls);

    Host host;
    if (fixed)
        host.setFixedSize(300, 200);
    host.setWindowFlags(host.windowFlags() & ~withoutFlags);
    host.useHandle();
    host.setWindowState(state);
    host.windows.placement.showCmd = UINT(showCmd);
    host.windows.takeCalls();
    host.delegate->showSystemMenu(QPoint(0, 0));
    const QStringList first { QStringLiteral("item 0xf120 0"), QStringLiteral("item 0xf030 0"),
                              QStringLiteral("item 0xf020 0") };
    QCOMPARE(host.windows.takeCalls(), first + calls + QStringList(QStringLiteral("popup 0,0")));
}

void tst_KestWinFramelessDelegate::menuWithoutHandle()
{
    Host host;
    host.windows.hasMenu = false;
    host.delegate->showSystemMenu(QPoint(0, 0));
    QCOMPARE(host.windows.takeCalls(), QStringList());
}

void tst_KestWinFramelessDelegate::menuOpensInPixels()
{
    // Runs at the ratios 1 and 1.5.
    Host host;
    const bool scaled = qFuzzyCompare(qGuiApp->devicePixelRatio(), 1.5);
    QVERIFY(scaled || qFuzzyCompare(qGuiApp->devicePixelRatio(), 1.0));
    host.delegate->showSystemMenu(QPoint(101, 51));
    QCOMPARE(host.windows.takeCalls().last(),
             scaled ? QStringLiteral("popup 151,76") : QStringLiteral("popup 101,51"));
    host.delegate->showSystemMenu(QPoint(-101, -51));
    QCOMPARE(host.windows.takeCalls().last(),
             scaled ? QStringLiteral("popup -151,-76") : QStringLiteral("popup -101,-51"));
}

void tst_KestWinFramelessDelegate::chosenCommandIsPosted()
{
    Host host;
    host.windows.chosen = 0xF030;
    host.delegate->showSystemMenu(QPoint(0, 0));
    QCOMPARE(host.windows.takeCalls().last(), QStringLiteral("post 0x112 0xf030 0x0"));
}

void tst_KestWinFramelessDelegate::windowWithoutHandleIsLeftAlone()
{
    // Nothing here is to create a native window.
    FakeWindows windows;
    QWidget window;
    KestWinFramelessDelegate delegate(&window, nullptr);
    for (QEvent::Type type :
         { QEvent::Hide, QEvent::Close, QEvent::WinIdChange, QEvent::ScreenChangeInternal })
        sendEvent(&window, type);
    delegate.showSystemMenu(QPoint(0, 0));
    QVERIFY(!window.internalWinId());
}

QTEST_MAIN(tst_KestWinFramelessDelegate)
#include "tst_kestwinframelessdelegate.moc"
