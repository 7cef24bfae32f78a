// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// The native frame as a user handles it on Windows: real windows, the real pointer and keyboard,
// and what the system sends and shows.

#include "KestApplication.h"
#include "KestDialog.h"
#include "KestNavigationBar.h"
#include "KestTitleBar.h"
#include "KestWindow.h"
#include "NativeWindow.h"
#include "RealInput.h"

#include <QAction>
#include <QtCore/QAbstractNativeEventFilter>
#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtGui/QFocusEvent>
#include <QtGui/QScreen>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <functional>
#include <memory>

#include <windows.h>

#include <dwmapi.h>

namespace {

const QRect WindowRect(300, 200, 520, 360);

bool hasComposition()
{
    BOOL enabled = FALSE;
    return SUCCEEDED(DwmIsCompositionEnabled(&enabled)) && enabled;
}

// What the system is told when it asks \a window about \a point on the screen.
int hitTest(const QWidget *window, const QPoint &point)
{
    SetCursorPos(point.x(), point.y());
    return int(SendMessageW(handleOf(window), WM_NCHITTEST, 0, MAKELPARAM(point.x(), point.y())));
}

// Sends a message to the window's handler; whether it was consumed is what the tests ask.
bool consumes(QWidget *window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0,
              KestNativeResult *result = nullptr)
{
    struct Access : public QWidget
    {
        using QWidget::nativeEvent;
    };
    MSG msg = {};
    msg.hwnd = handleOf(window);
    msg.message = message;
    msg.wParam = wParam;
    msg.lParam = lParam;
    KestNativeResult unused = 0;
    return (window->*&Access::nativeEvent)(QByteArrayLiteral("windows_generic_MSG"), &msg,
                                           result ? result : &unused);
}

// What the system menu was like when it was opened.
struct OpenMenu
{
    QPoint pos;
    QHash<UINT, UINT> states; // of the commands, as far as they are disabled or grayed
    UINT defaultItem = 0;
};

// Looks at the states of a window's system menu when it is about to open: the system sets some anew
// on its way to the screen.
class MenuRecorder : public QAbstractNativeEventFilter
{
public:
    explicit MenuRecorder(const QWidget *window, OpenMenu *menu) : m_window(window), m_menu(menu)
    {
        qApp->installNativeEventFilter(this);
    }
    ~MenuRecorder() override { qApp->removeNativeEventFilter(this); }

    bool nativeEventFilter(const QByteArray &, void *message, KestNativeResult *) override
    {
        const auto *msg = static_cast<MSG *>(message);
        if (msg->message != WM_INITMENU || msg->hwnd != handleOf(m_window))
            return false;
        const auto menu = reinterpret_cast<HMENU>(msg->wParam);
        for (UINT command : { SC_RESTORE, SC_MOVE, SC_SIZE, SC_MINIMIZE, SC_MAXIMIZE, SC_CLOSE }) {
            m_menu->states[command] =
                GetMenuState(menu, command, MF_BYCOMMAND) & (MF_GRAYED | MF_DISABLED);
        }
        m_menu->defaultItem = GetMenuDefaultItem(menu, FALSE, 0);
        return false;
    }

private:
    const QWidget *m_window;
    OpenMenu *m_menu;
};

// The end of a right click on the caption. Wine makes another message of the release, so this one
// is sent by hand.
void releaseRightButton(const QWidget *window, const QPoint &point)
{
    RealInput::moveTo(point);
    PostMessageW(handleOf(window), WM_NCRBUTTONUP, HTCAPTION, MAKELPARAM(point.x(), point.y()));
    RealInput::settle();
}

// Opens the system menu of \a window by \a open, looks at it, and types \a keys into it.
OpenMenu systemMenu(const QWidget *window, const std::function<void()> &open,
                    const QStringList &keys = { QStringLiteral("Escape") })
{
    OpenMenu seen;
    const MenuRecorder recorder(window, &seen);
    // The menu has a loop of its own, in which this timer is served.
    QTimer watch;
    QElapsedTimer waiting;
    waiting.start();
    QObject::connect(&watch, &QTimer::timeout, [&] {
        const HWND popup = FindWindowW(L"#32768", nullptr);
        if (!popup || !IsWindowVisible(popup)) {
            if (waiting.elapsed() > 5000)
                watch.stop();
            return;
        }
        watch.stop();
        RECT rect = {};
        GetWindowRect(popup, &rect);
        seen.pos = QPoint(rect.left, rect.top);
        RealInput::keysLater(keys);
    });
    watch.start(20);
    open();
    while (watch.isActive())
        RealInput::settle();
    RealInput::settle();
    return seen;
}

class FocusRecorder : public QObject
{
public:
    explicit FocusRecorder(QWidget *widget) { widget->installEventFilter(this); }

    QVector<Qt::FocusReason> reasons;

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn)
            reasons.append(static_cast<QFocusEvent *>(event)->reason());
        return false;
    }
};

} // namespace

Q_DECLARE_METATYPE(QMargins)

class tst_WinFrame_Window : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void edgesAnswer();
    void titleBarAnswers();
    void maximizedWindowHasNoEdges();
    void fullScreenWindowHasNoEdges();
    void fixedSizeHasNoEdges();
    void navigationBarIsTheCaptionOnceTheTitleBarIsHidden();
    void cursorTellsTheEdge_data();
    void cursorTellsTheEdge();
    void nativeChildIsTransparent();

    void contentsCoverTheWindow();
    void clientAreaMessage();
    void frameMessages();

    void titleBarMovesTheWindow();
    void nativeChildOnTheTitleBarMovesTheWindow();
    void navigationBarMovesTheWindow();
    void edgesResize_data();
    void edgesResize();
    void minimumSizeIsKept();

    void doubleClickMaximizesAndRestores();
    void limitedWindowIsNotMaximizedByDoubleClick();
    void maximizeButton();
    void frameOfAMaximizedWindowIsBeyondTheWorkArea();
    void minimizeButton();
    void closeButton();
    void icon_data();
    void icon();
    void maximizedPlacementSurvivesHiding();

    void styleOfTheWindow();
    void styleOfANewNativeWindow();
    void styleOfALimitedWindow();

    void rightClickOpensTheSystemMenu();
    void altSpaceOpensTheSystemMenu();
    void systemMenuOfAMaximizedWindow();
    void systemMenuOfAFixedWindow();
    void systemMenuOfALimitedWindow();
    void systemMenuOfAMinimizedWindow();
    void chosenCommandReachesTheWindow();

    void focusReasons();

    void dialogIsMovedAndClosed();
    void libraryCarriesItsVersion();

private:
    std::unique_ptr<KestWindow> m_window;
};

void tst_WinFrame_Window::init()
{
    RealInput::moveTo(QPoint(5, 5));
    m_window.reset(new KestWindow);
    m_window->setWindowTitle(QStringLiteral("Frame"));
    QPixmap icon(32, 32);
    icon.fill(Qt::red);
    m_window->setWindowIcon(icon);
    m_window->setMinimumSize(260, 180);
    m_window->navigationBar()->addAction(QStringLiteral("Action"), KestNavigationBar::Left);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_window->setGeometry(WindowRect);
    QTRY_COMPARE(m_window->geometry(), WindowRect);
}

void tst_WinFrame_Window::cleanup()
{
    m_window.reset();
    RealInput::settle();
}

void tst_WinFrame_Window::edgesAnswer()
{
    const QRect rect = m_window->geometry();
    const QPoint middle = rect.center();
    const struct
    {
        QPoint point;
        int answer;
    } rows[] = {
        { rect.topLeft(), HTTOPLEFT },
        { rect.topLeft() + QPoint(5, 5), HTTOPLEFT },
        { QPoint(middle.x(), rect.top() + 5), HTTOP },
        { rect.topRight() + QPoint(-5, 5), HTTOPRIGHT },
        { QPoint(rect.left() + 5, middle.y()), HTLEFT },
        { QPoint(rect.right() - 5, middle.y()), HTRIGHT },
        { rect.bottomLeft() + QPoint(5, -5), HTBOTTOMLEFT },
        { QPoint(middle.x(), rect.bottom() - 5), HTBOTTOM },
        { rect.bottomRight() + QPoint(-5, -5), HTBOTTOMRIGHT },
        { QPoint(rect.left() - 1, middle.y()), HTNOWHERE },
        { QPoint(rect.right() + 1, middle.y()), HTNOWHERE },
        { QPoint(middle.x(), rect.top() + 6), HTCAPTION },
        { QPoint(middle.x(), rect.bottom() - 6), HTCLIENT },
        { QPoint(rect.left() + 6, middle.y()), HTCLIENT },
        { QPoint(rect.right() - 6, middle.y()), HTCLIENT },
    };
    for (const auto &row : rows)
        QCOMPARE(hitTest(m_window.get(), row.point), row.answer);
}

void tst_WinFrame_Window::titleBarAnswers()
{
    KestTitleBar *const bar = m_window->titleBar();
    bar->addAction(new QAction(QStringLiteral("Find"), bar));
    QLabel label(bar); // no button, and no part of the caption either
    label.setGeometry(150, 8, 20, 20);
    label.show();
    RealInput::settle();

    QCOMPARE(hitTest(m_window.get(), bar->mapToGlobal(QPoint(24, bar->height() / 2))), HTSYSMENU);
    bar->setIconVisible(false);
    QCOMPARE(hitTest(m_window.get(), bar->mapToGlobal(QPoint(24, bar->height() / 2))), HTCAPTION);

    // The buttons, an action's among them, are contents to the system: it neither paints nor
    // presses them.
    int buttons = 0;
    const QList<QAbstractButton *> children = bar->findChildren<QAbstractButton *>();
    for (const QAbstractButton *button : children) {
        if (!button->isVisible())
            continue;
        QCOMPARE(hitTest(m_window.get(), centerOf(button)), HTCLIENT);
        ++buttons;
    }
    QCOMPARE(buttons, 4);
    QCOMPARE(hitTest(m_window.get(), label.mapToGlobal(QPoint(5, 5))), HTCLIENT);
    QCOMPARE(hitTest(m_window.get(), centerOf(m_window->centralWidget())), HTCLIENT);
    QCOMPARE(hitTest(m_window.get(), centerOf(m_window->navigationBar())), HTCLIENT);
}

void tst_WinFrame_Window::maximizedWindowHasNoEdges()
{
    m_window->showMaximized();
    QTRY_VERIFY(IsZoomed(handleOf(m_window.get())));
    RealInput::settle(50);
    const QRect rect = m_window->geometry();
    QCOMPARE(hitTest(m_window.get(), QPoint(rect.center().x(), rect.top())), HTCAPTION);
    QCOMPARE(hitTest(m_window.get(), QPoint(rect.left(), rect.center().y())), HTCLIENT);
    QCOMPARE(
        hitTest(m_window.get(),
                m_window->titleBar()->mapToGlobal(QPoint(24, m_window->titleBar()->height() / 2))),
        HTSYSMENU);
}

void tst_WinFrame_Window::fullScreenWindowHasNoEdges()
{
    m_window->showFullScreen();
    QTRY_COMPARE(m_window->width(), QGuiApplication::primaryScreen()->geometry().width());
    RealInput::settle(50);
    const QRect rect = m_window->geometry();
    QCOMPARE(hitTest(m_window.get(), QPoint(rect.center().x(), rect.top())), HTCAPTION);
    QCOMPARE(hitTest(m_window.get(), QPoint(rect.left(), rect.center().y())), HTCLIENT);
    QCOMPARE(m_window->contentsMargins(), QMargins());
}

void tst_WinFrame_Window::fixedSizeHasNoEdges()
{
    m_window->setFixedSize(m_window->size());
    RealInput::settle();
    const QRect rect = m_window->geometry();
    QCOMPARE(hitTest(m_window.get(), QPoint(rect.center().x(), rect.top())), HTCAPTION);
    QCOMPARE(hitTest(m_window.get(), QPoint(rect.left(), rect.center().y())), HTCLIENT);
    QCOMPARE(hitTest(m_window.get(), rect.bottomRight() - QPoint(1, 1)), HTCLIENT);
}

void tst_WinFrame_Window::navigationBarIsTheCaptionOnceTheTitleBarIsHidden()
{
    KestNavigationBar *const bar = m_window->navigationBar();
    const QPoint free = bar->mapToGlobal(QPoint(bar->width() - 30, bar->height() / 2));
    QCOMPARE(hitTest(m_window.get(), free), HTCLIENT);
    m_window->titleBar()->hide();
    RealInput::settle(50);
    const QPoint later = bar->mapToGlobal(QPoint(bar->width() - 30, bar->height() / 2));
    QCOMPARE(hitTest(m_window.get(), later), HTCAPTION);
}

void tst_WinFrame_Window::cursorTellsTheEdge_data()
{
    QTest::addColumn<QPoint>("fraction"); // of the window, in halves
    QTest::addColumn<quintptr>("cursor");
    // The names of the system's cursors are numbers.
    const auto id = [](const void *name) { return quintptr(name); };
    QTest::newRow("top left") << QPoint(0, 0) << id(IDC_SIZENWSE);
    QTest::newRow("top") << QPoint(1, 0) << id(IDC_SIZENS);
    QTest::newRow("top right") << QPoint(2, 0) << id(IDC_SIZENESW);
    QTest::newRow("left") << QPoint(0, 1) << id(IDC_SIZEWE);
    QTest::newRow("right") << QPoint(2, 1) << id(IDC_SIZEWE);
    QTest::newRow("bottom left") << QPoint(0, 2) << id(IDC_SIZENESW);
    QTest::newRow("bottom") << QPoint(1, 2) << id(IDC_SIZENS);
    QTest::newRow("bottom right") << QPoint(2, 2) << id(IDC_SIZENWSE);
}

void tst_WinFrame_Window::cursorTellsTheEdge()
{
    QFETCH(QPoint, fraction);
    QFETCH(quintptr, cursor);
    const QRect rect = m_window->geometry();
    const QPoint point(rect.left() + 2 + fraction.x() * (rect.width() - 5) / 2,
                       rect.top() + 2 + fraction.y() * (rect.height() - 5) / 2);
    const auto shown = [] { return quintptr(RealInput::cursorHash()); };
    const auto handle = quintptr(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(cursor)));
    RealInput::moveTo(rect.center());
    QTRY_VERIFY(shown() != handle);
    RealInput::moveTo(point);
    QTRY_COMPARE(shown(), handle);
}

void tst_WinFrame_Window::nativeChildIsTransparent()
{
    QLabel video(m_window->titleBar());
    video.setAttribute(Qt::WA_NativeWindow);
    video.setGeometry(150, 8, 60, 20);
    video.show();
    // As part of the caption: the child of a bar that is one.
    m_window->addMoveBar(&video);
    m_window->removeMoveBar(m_window->titleBar());
    RealInput::settle(50);
    QVERIFY(handleOf(&video));
    QCOMPARE(hitTest(&video, centerOf(&video)), HTTRANSPARENT);
    QCOMPARE(hitTest(m_window.get(), centerOf(&video)), HTCAPTION);
    m_window->removeMoveBar(&video);
    QCOMPARE(hitTest(&video, centerOf(&video)), HTCLIENT);
}

void tst_WinFrame_Window::contentsCoverTheWindow()
{
    // But for one pixel more at the bottom, which keeps the frame known to the system.
    const QRect window = nativeRect(m_window.get());
    QCOMPARE(clientRect(m_window.get()), window.adjusted(0, 0, 0, 1));
    QCOMPARE(clientRect(m_window.get()), WindowRect);
}

void tst_WinFrame_Window::clientAreaMessage()
{
    const HWND window = handleOf(m_window.get());
    NCCALCSIZE_PARAMS params = {};
    params.rgrc[0] = { 10, 20, 110, 120 };
    params.rgrc[1] = { 1, 2, 3, 4 };
    const LRESULT result =
        SendMessageW(window, WM_NCCALCSIZE, TRUE, reinterpret_cast<LPARAM>(&params));
    QCOMPARE(int(result), 0x300);
    QCOMPARE(int(params.rgrc[0].bottom), 121);
    QCOMPARE(int(params.rgrc[1].left), 10);
    QCOMPARE(int(params.rgrc[2].left), 1);

    RECT rect = { 10, 20, 110, 120 };
    QCOMPARE(int(SendMessageW(window, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&rect))), 0);
    QCOMPARE(int(rect.top), 20);

    m_window->showMaximized();
    QTRY_VERIFY(IsZoomed(window));
    params.rgrc[0] = { -10, -10, 5000, 5000 };
    QCOMPARE(int(SendMessageW(window, WM_NCCALCSIZE, TRUE, reinterpret_cast<LPARAM>(&params))), 0);
    const QRect work = workArea(m_window.get());
    QCOMPARE(int(params.rgrc[0].top), work.top());
    QCOMPARE(int(params.rgrc[0].bottom), work.bottom() + 1);
    QVERIFY(params.rgrc[0].left > -10); // the system took its frame off
    QVERIFY(params.rgrc[0].right < 5000);
}

void tst_WinFrame_Window::frameMessages()
{
    // The test is run with and without composition.
    QCOMPARE(hasComposition(), qgetenv("KEST_WINE_VERSION") != "win7");
    for (UINT message : { UINT(WM_NCPAINT), UINT(WM_NCACTIVATE) }) {
        KestNativeResult result = 7;
        QCOMPARE(consumes(m_window.get(), message, TRUE, 0, &result), !hasComposition());
        QCOMPARE(result, hasComposition() ? 7L : 1L);
    }
    QVERIFY(!consumes(m_window.get(), WM_NCLBUTTONDBLCLK, HTCAPTION));
    QVERIFY(consumes(m_window.get(), WM_SYSKEYDOWN, VK_SPACE));
    QVERIFY(!consumes(m_window.get(), WM_SYSKEYDOWN, VK_F4));
}

void tst_WinFrame_Window::titleBarMovesTheWindow()
{
    const QPoint start = centerOf(m_window->titleBar());
    RealInput::drag(start, start + QPoint(90, 70));
    QTRY_COMPARE(m_window->geometry(), WindowRect.translated(90, 70));
    RealInput::drag(centerOf(m_window->titleBar()),
                    centerOf(m_window->titleBar()) + QPoint(-150, -60));
    QTRY_COMPARE(m_window->geometry(), WindowRect.translated(-60, 10));
}

void tst_WinFrame_Window::nativeChildOnTheTitleBarMovesTheWindow()
{
    QLabel video(m_window->titleBar());
    video.setAttribute(Qt::WA_NativeWindow);
    video.setGeometry(150, 8, 60, 20);
    video.show();
    m_window->addMoveBar(&video);
    m_window->removeMoveBar(m_window->titleBar());
    RealInput::settle(50);
    RealInput::drag(centerOf(&video), centerOf(&video) + QPoint(40, 30));
    QTRY_COMPARE(m_window->geometry(), WindowRect.translated(40, 30));
}

void tst_WinFrame_Window::navigationBarMovesTheWindow()
{
    m_window->titleBar()->hide();
    RealInput::settle(50);
    KestNavigationBar *const bar = m_window->navigationBar();
    const QPoint start = bar->mapToGlobal(QPoint(bar->width() - 30, bar->height() / 2));
    RealInput::drag(start, start + QPoint(40, 30));
    QTRY_COMPARE(m_window->geometry(), WindowRect.translated(40, 30));
}

void tst_WinFrame_Window::edgesResize_data()
{
    QTest::addColumn<QPoint>("fraction"); // of the window, in halves
    QTest::addColumn<QMargins>("growth"); // by a drag of (-20, -10)
    QTest::newRow("top left") << QPoint(0, 0) << QMargins(20, 10, 0, 0);
    QTest::newRow("top") << QPoint(1, 0) << QMargins(0, 10, 0, 0);
    QTest::newRow("top right") << QPoint(2, 0) << QMargins(0, 10, -20, 0);
    QTest::newRow("left") << QPoint(0, 1) << QMargins(20, 0, 0, 0);
    QTest::newRow("right") << QPoint(2, 1) << QMargins(0, 0, -20, 0);
    QTest::newRow("bottom left") << QPoint(0, 2) << QMargins(20, 0, 0, -10);
    QTest::newRow("bottom") << QPoint(1, 2) << QMargins(0, 0, 0, -10);
    QTest::newRow("bottom right") << QPoint(2, 2) << QMargins(0, 0, -20, -10);
}

void tst_WinFrame_Window::edgesResize()
{
    QFETCH(QPoint, fraction);
    QFETCH(QMargins, growth);
    const QPoint point(WindowRect.left() + 2 + fraction.x() * (WindowRect.width() - 5) / 2,
                       WindowRect.top() + 2 + fraction.y() * (WindowRect.height() - 5) / 2);
    RealInput::drag(point, point + QPoint(-20, -10));
    QTRY_COMPARE(m_window->geometry(), WindowRect.marginsAdded(growth));
}

void tst_WinFrame_Window::minimumSizeIsKept()
{
    const QPoint point(WindowRect.right() - 2, WindowRect.bottom() - 2);
    RealInput::drag(point, WindowRect.topLeft() + QPoint(20, 20));
    QTRY_VERIFY(m_window->geometry() != WindowRect);
    RealInput::settle(50);
    QCOMPARE(m_window->pos(), WindowRect.topLeft());
    QCOMPARE(m_window->width(), m_window->minimumWidth());
}

void tst_WinFrame_Window::doubleClickMaximizesAndRestores()
{
    RealInput::doubleClick(centerOf(m_window->titleBar()));
    QTRY_VERIFY(m_window->isMaximized());
    QVERIFY(IsZoomed(handleOf(m_window.get())));
    RealInput::settle(600); // no third click
    RealInput::doubleClick(centerOf(m_window->titleBar()));
    QTRY_VERIFY(!m_window->isMaximized());
    QTRY_COMPARE(m_window->geometry(), WindowRect);
    QCOMPARE(m_window->contentsMargins(), QMargins());
}

void tst_WinFrame_Window::limitedWindowIsNotMaximizedByDoubleClick()
{
    m_window->setMaximumSize(900, 700);
    RealInput::doubleClick(centerOf(m_window->titleBar()));
    RealInput::settle(100);
    QVERIFY(!m_window->isMaximized());
    QCOMPARE(m_window->geometry(), WindowRect);
}

void tst_WinFrame_Window::maximizeButton()
{
    QWidget *const button = childNamed(m_window->titleBar(), "maximumSizeBtn");
    QCOMPARE(button->property("maximumsized").toBool(), false);
    RealInput::click(centerOf(button));
    QTRY_VERIFY(IsZoomed(handleOf(m_window.get())));
    QTRY_VERIFY(button->property("maximumsized").toBool());
    RealInput::click(centerOf(button));
    QTRY_VERIFY(!IsZoomed(handleOf(m_window.get())));
    QTRY_VERIFY(!button->property("maximumsized").toBool());
    QTRY_COMPARE(m_window->geometry(), WindowRect);
}

void tst_WinFrame_Window::frameOfAMaximizedWindowIsBeyondTheWorkArea()
{
    const int x = GetSystemMetrics(SM_CXFRAME) + GetSystemMetrics(SM_CXPADDEDBORDER);
    const int y = GetSystemMetrics(SM_CYFRAME) + GetSystemMetrics(SM_CXPADDEDBORDER);
    const QRect work = workArea(m_window.get());
    for (bool byQt : { true, false }) {
        if (byQt)
            m_window->showMaximized();
        else
            ShowWindow(handleOf(m_window.get()), SW_MAXIMIZE);
        QTRY_VERIFY(IsZoomed(handleOf(m_window.get())));
        QTRY_COMPARE(nativeRect(m_window.get()), work.marginsAdded(QMargins(x, y, x, y)));
        QCOMPARE(clientRect(m_window.get()), work);
        QTRY_COMPARE(m_window->geometry(), work);
        m_window->showNormal();
        QTRY_COMPARE(m_window->geometry(), WindowRect);
    }
}

void tst_WinFrame_Window::minimizeButton()
{
    RealInput::click(centerOf(childNamed(m_window->titleBar(), "minimumSizeBtn")));
    QTRY_VERIFY(IsIconic(handleOf(m_window.get())));
    QVERIFY(m_window->isMinimized());
    ShowWindow(handleOf(m_window.get()), SW_RESTORE);
    QTRY_VERIFY(!m_window->isMinimized());
    QTRY_COMPARE(m_window->geometry(), WindowRect);
}

void tst_WinFrame_Window::closeButton()
{
    RealInput::click(centerOf(childNamed(m_window->titleBar(), "closeBtn")));
    QTRY_VERIFY(!m_window->isVisible());
}

void tst_WinFrame_Window::icon_data()
{
    QTest::addColumn<QSize>("maximum");
    QTest::addColumn<bool>("closes");
    QTest::newRow("of a window") << QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX) << true;
    QTest::newRow("of a window of limited size") << QSize(900, 700) << false;
}

void tst_WinFrame_Window::icon()
{
    QFETCH(QSize, maximum);
    QFETCH(bool, closes);
    m_window->setMaximumSize(maximum);
    RealInput::settle(50);
    const QPoint point =
        m_window->titleBar()->mapToGlobal(QPoint(24, m_window->titleBar()->height() / 2));
    QCOMPARE(hitTest(m_window.get(), point), HTSYSMENU);
    // A press opens no menu: there is no system menu in the window's style.
    RealInput::click(point);
    RealInput::settle(100);
    const HWND popup = FindWindowW(L"#32768", nullptr);
    QVERIFY(!popup || !IsWindowVisible(popup));
    RealInput::settle(600); // no double click
    RealInput::doubleClick(point);
    RealInput::settle(200);
    QCOMPARE(!m_window->isVisible(), closes);
    QVERIFY(!m_window->isMaximized());
}

void tst_WinFrame_Window::maximizedPlacementSurvivesHiding()
{
    const HWND window = handleOf(m_window.get());
    m_window->showMaximized();
    QTRY_VERIFY(IsZoomed(window));
    WINDOWPLACEMENT before = {};
    before.length = sizeof(before);
    GetWindowPlacement(window, &before);
    m_window->hide();
    RealInput::settle();
    m_window->show();
    QTRY_VERIFY(IsWindowVisible(window));
    RealInput::settle(50);
    QVERIFY(IsZoomed(window));
    WINDOWPLACEMENT after = {};
    after.length = sizeof(after);
    GetWindowPlacement(window, &after);
    QCOMPARE(int(after.showCmd), SW_SHOWMAXIMIZED);
    QCOMPARE(int(after.rcNormalPosition.left), int(before.rcNormalPosition.left));
    QCOMPARE(int(after.rcNormalPosition.bottom), int(before.rcNormalPosition.bottom));
    m_window->showNormal();
    QTRY_COMPARE(m_window->geometry(), WindowRect);
}

void tst_WinFrame_Window::styleOfTheWindow()
{
    const LONG style = GetWindowLongW(handleOf(m_window.get()), GWL_STYLE);
    QCOMPARE(quint32(style & 0xCF0000), 0xC70000U);
}

void tst_WinFrame_Window::styleOfANewNativeWindow()
{
    const HWND before = handleOf(m_window.get());
    m_window->setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    m_window->setParent(nullptr, m_window->windowFlags());
    m_window->show();
    RealInput::settle(50);
    QVERIFY(before);
    QCOMPARE(quint32(GetWindowLongW(handleOf(m_window.get()), GWL_STYLE) & 0xCF0000), 0xC60000U);
}

void tst_WinFrame_Window::styleOfALimitedWindow()
{
    KestWindow window;
    window.setMaximumSize(900, 700);
    window.show();
    RealInput::settle(50);
    QCOMPARE(quint32(GetWindowLongW(handleOf(&window), GWL_STYLE) & 0xCF0000), 0xC50000U);
}

void tst_WinFrame_Window::rightClickOpensTheSystemMenu()
{
    const QPoint point = centerOf(m_window->titleBar());
    const OpenMenu menu =
        systemMenu(m_window.get(), [&] { releaseRightButton(m_window.get(), point); });
    QCOMPARE(menu.pos, point);
    const QHash<UINT, UINT> expected {
        { SC_RESTORE, MF_GRAYED }, { SC_MOVE, 0 },     { SC_SIZE, 0 },
        { SC_MINIMIZE, 0 },        { SC_MAXIMIZE, 0 }, { SC_CLOSE, 0 },
    };
    QCOMPARE(menu.states, expected);
    QCOMPARE(menu.defaultItem, UINT(SC_CLOSE));
}

void tst_WinFrame_Window::altSpaceOpensTheSystemMenu()
{
    const OpenMenu menu =
        systemMenu(m_window.get(), [] { RealInput::key(QStringLiteral("Alt+space")); });
    QCOMPARE(menu.pos, WindowRect.topLeft());
    QCOMPARE(menu.defaultItem, UINT(SC_CLOSE));
}

void tst_WinFrame_Window::systemMenuOfAMaximizedWindow()
{
    m_window->showMaximized();
    QTRY_VERIFY(IsZoomed(handleOf(m_window.get())));
    RealInput::settle(50);
    const QPoint point = centerOf(m_window->titleBar());
    const OpenMenu menu =
        systemMenu(m_window.get(), [&] { releaseRightButton(m_window.get(), point); });
    const QHash<UINT, UINT> expected {
        { SC_RESTORE, 0 },  { SC_MOVE, MF_DISABLED },   { SC_SIZE, MF_DISABLED },
        { SC_MINIMIZE, 0 }, { SC_MAXIMIZE, MF_GRAYED }, { SC_CLOSE, 0 },
    };
    QCOMPARE(menu.states, expected);
    QCOMPARE(menu.defaultItem, UINT(SC_CLOSE));
}

void tst_WinFrame_Window::systemMenuOfAFixedWindow()
{
    m_window->setFixedSize(m_window->size());
    RealInput::settle();
    const QPoint point = centerOf(m_window->titleBar());
    const OpenMenu menu =
        systemMenu(m_window.get(), [&] { releaseRightButton(m_window.get(), point); });
    const QHash<UINT, UINT> expected {
        { SC_RESTORE, MF_GRAYED },  { SC_MOVE, 0 },  { SC_SIZE, MF_DISABLED }, { SC_MINIMIZE, 0 },
        { SC_MAXIMIZE, MF_GRAYED }, { SC_CLOSE, 0 },
    };
    QCOMPARE(menu.states, expected);
}

void tst_WinFrame_Window::systemMenuOfALimitedWindow()
{
    // It has lost the style of a minimise button, not the entry.
    m_window->setMaximumSize(900, 700);
    m_window->setParent(nullptr, m_window->windowFlags() | Qt::WindowStaysOnTopHint);
    m_window->show();
    RealInput::settle(50);
    QVERIFY(!(GetWindowLongW(handleOf(m_window.get()), GWL_STYLE) & WS_MINIMIZEBOX));
    const QPoint point = centerOf(m_window->titleBar());
    const OpenMenu menu =
        systemMenu(m_window.get(), [&] { releaseRightButton(m_window.get(), point); });
    const QHash<UINT, UINT> expected {
        { SC_RESTORE, MF_GRAYED }, { SC_MOVE, 0 },     { SC_SIZE, 0 },
        { SC_MINIMIZE, 0 },        { SC_MAXIMIZE, 0 }, { SC_CLOSE, 0 },
    };
    QCOMPARE(menu.states, expected);
}

void tst_WinFrame_Window::systemMenuOfAMinimizedWindow()
{
    m_window->showMinimized();
    QTRY_VERIFY(IsIconic(handleOf(m_window.get())));
    const OpenMenu menu = systemMenu(m_window.get(), [&] {
        PostMessageW(handleOf(m_window.get()), WM_SYSCOMMAND, SC_KEYMENU, VK_SPACE);
        RealInput::settle();
    });
    QCOMPARE(menu.states.value(SC_MINIMIZE), UINT(MF_GRAYED));
    QCOMPARE(menu.states.value(SC_RESTORE), 0U);
    QCOMPARE(menu.defaultItem, UINT(SC_RESTORE));
}

void tst_WinFrame_Window::chosenCommandReachesTheWindow()
{
    const QPoint point = centerOf(m_window->titleBar());
    // The entry for maximising has the mnemonic x.
    systemMenu(m_window.get(), [&] { releaseRightButton(m_window.get(), point); },
               { QStringLiteral("x") });
    QTRY_VERIFY(m_window->isMaximized());
}

void tst_WinFrame_Window::focusReasons()
{
    const auto reasonNow = [this] {
        const FocusRecorder recorder(m_window.get());
        SendMessageW(handleOf(m_window.get()), WM_SETFOCUS, 0, 0);
        return recorder.reasons.value(0, Qt::NoFocusReason);
    };
    QCOMPARE(reasonNow(), Qt::TabFocusReason);

    keybd_event(VK_SHIFT, 0, 0, 0);
    RealInput::settle();
    QCOMPARE(reasonNow(), Qt::BacktabFocusReason);
    keybd_event(VK_SHIFT, 0, KEYEVENTF_KEYUP, 0);
    RealInput::settle();

    RealInput::moveTo(centerOf(m_window->centralWidget()));
    for (RealInput::Button button : { RealInput::LeftButton, RealInput::RightButton }) {
        RealInput::press(button);
        QCOMPARE(reasonNow(), Qt::MouseFocusReason);
        RealInput::release(button);
    }
    QCOMPARE(reasonNow(), Qt::TabFocusReason);
}

void tst_WinFrame_Window::dialogIsMovedAndClosed()
{
    KestDialog dialog(m_window.get());
    dialog.setWindowTitle(QStringLiteral("Dialog"));
    dialog.resize(300, 200);
    dialog.open();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    RealInput::settle(50);
    const QRect rect = dialog.geometry();
    const QPoint start = centerOf(dialog.titleBar());
    RealInput::drag(start, start + QPoint(40, 30));
    QTRY_COMPARE(dialog.geometry(), rect.translated(40, 30));
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    RealInput::click(centerOf(childNamed(dialog.titleBar(), "closeBtn")));
    QTRY_COMPARE(rejected.count(), 1);
    QVERIFY(!dialog.isVisible());
}

void tst_WinFrame_Window::libraryCarriesItsVersion()
{
    HMODULE library = nullptr;
    const auto *address = reinterpret_cast<LPCWSTR>(&KestWindow::staticMetaObject);
    QVERIFY(GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS
                                   | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                               address, &library));
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(library, path, MAX_PATH);
    QVERIFY(QString::fromWCharArray(path).endsWith(QLatin1String("KestWidgets.dll")));
    QByteArray data(int(GetFileVersionInfoSizeW(path, nullptr)), '\0');
    QVERIFY(GetFileVersionInfoW(path, 0, DWORD(data.size()), data.data()));
    VS_FIXEDFILEINFO *info = nullptr;
    UINT size = 0;
    QVERIFY(VerQueryValueW(data.data(), L"\\", reinterpret_cast<void **>(&info), &size));
    QCOMPARE(info->dwFileVersionMS, DWORD(2 << 16 | 0));
    QCOMPARE(info->dwFileVersionLS, DWORD(6 << 16 | 1));
    QCOMPARE(info->dwProductVersionLS, DWORD(6 << 16 | 1));
    const wchar_t *text = nullptr;
    QVERIFY(VerQueryValueW(data.data(), L"\\StringFileInfo\\040904B0\\ProductVersion",
                           reinterpret_cast<void **>(const_cast<wchar_t **>(&text)), &size));
    QCOMPARE(QString::fromWCharArray(text), QStringLiteral("2.0.6.1"));
}

int main(int argc, char *argv[])
{
    // The application of the library makes native children transparent.
    KestApplication app(argc, argv);
    tst_WinFrame_Window test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_winframe_window.moc"
