// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// Maximised windows on Windows, in whichever way they came to be so: what is seen is the contents,
// to the last pixel of what the task bar leaves of the screen, and nothing of a frame.

#include "KestApplication.h"
#include "KestDialog.h"
#include "KestLoadingDialog.h"
#include "KestTitleBar.h"
#include "KestWindow.h"
#include "NativeWindow.h"
#include "RealInput.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QtMath>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>

#include <functional>
#include <memory>

namespace {

const unsigned BarColor = 0x2040c0;
const unsigned ContentsColor = 0x20c040;

// In Qt's pixels, whatever the scale.
const QRect WindowRect(150, 100, 300, 200);

template <class Shell>
std::unique_ptr<Shell> coloredShell()
{
    auto shell = std::make_unique<Shell>();
    shell->titleBar()->setIconVisible(false);
    shell->titleBar()->setFocusPolicy(Qt::NoFocus); // which themes show
    shell->setCentralWidget(new QWidget);
    const auto fill = [](QWidget *widget, unsigned color) {
        widget->setStyleSheet(
            QStringLiteral(".%1 { background: %2; }")
                .arg(QLatin1String(widget->metaObject()->className()), QColor(color).name()));
    };
    fill(shell->titleBar(), BarColor);
    fill(shell->centralWidget(), ContentsColor);
    return shell;
}

QPoint toPixels(const QPoint &point)
{
    return point * qApp->devicePixelRatio();
}

// What of a part of the \a screen is not of \a color, as text to be compared with nothing.
QString othersIn(const QRect &part, unsigned color, const QImage &screen)
{
    int others = 0;
    QString text;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            const unsigned pixel = screen.pixel(x, y) & 0xffffff;
            if (pixel != color && ++others == 1)
                text = QStringLiteral("from %1,%2 on 0x%3").arg(x).arg(y).arg(pixel, 6, 16);
        }
    }
    return others ? QStringLiteral("%1 pixels %2; ").arg(others).arg(text) : QString();
}

// What is wrong with what is seen of a maximised shell.
template <class Shell>
QString flawsNow(const Shell *shell)
{
    const QRect work = workArea(shell);
    QString flaws;
    if (clientRect(shell) != work)
        flaws += QStringLiteral("the contents are not where the work area is; ");

    // The title bar reaches from the left to the right, the central widget from it to the bottom.
    const QImage screen = screenshot();
    const KestTitleBar *const bar = shell->titleBar();
    const int barHeight = toPixels(QPoint(0, bar->height())).y();
    flaws += othersIn(QRect(work.left(), work.top(), 100, barHeight), BarColor, screen);
    flaws += othersIn(work.adjusted(0, barHeight, 0, 0), ContentsColor, screen);

    // The close button is in the corner, as far as Qt's pixels tell.
    const QWidget *const close = childNamed(bar, "closeBtn");
    const QPoint corner = close->mapToGlobal(close->rect().topRight() + QPoint(1, 0));
    const QPoint missing = toPixels(corner) - work.topRight() - QPoint(1, 0);
    if (missing.manhattanLength() >= 2 * qApp->devicePixelRatio())
        flaws += QStringLiteral("the close button ends at %1,%2; ")
                     .arg(toPixels(corner).x())
                     .arg(toPixels(corner).y());

    // Nothing lies over the task bar.
    for (const QPoint &beyond :
         { work.topLeft() - QPoint(1, 0), work.topLeft() - QPoint(0, 1),
           work.bottomRight() + QPoint(1, 0), work.bottomRight() + QPoint(0, 1) }) {
        if (!screen.rect().contains(beyond))
            continue;
        const unsigned pixel = screen.pixel(beyond) & 0xffffff;
        if (pixel == BarColor || pixel == ContentsColor)
            flaws += QStringLiteral("it covers %1,%2; ").arg(beyond.x()).arg(beyond.y());
    }
    return flaws;
}

// What stays wrong: the system may take a while until all is painted.
template <class Shell>
QString flaws(const Shell *shell)
{
    QElapsedTimer waiting;
    waiting.start();
    QString now;
    do {
        RealInput::settle(100);
        now = flawsNow(shell);
    } while (!now.isEmpty() && waiting.elapsed() < 3000);
    return now;
}

} // namespace

class tst_WinFrame_Maximized : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void contentsFillTheWorkArea_data();
    void contentsFillTheWorkArea();
    void contentsFillTheWorkAreaFromTheStart_data();
    void contentsFillTheWorkAreaFromTheStart();
    void contentsOfADialogFillTheWorkArea();
    void overlayCoversTheWorkArea();
    void clickIntoTheCornerCloses();
    void windowHiddenAtOnceStaysHidden();
    void windowRestoredAtOnceStaysRestored();
    void windowHiddenNormalComesBackNormal();

private:
    std::unique_ptr<KestWindow> m_window;
};

using Way = std::function<void(KestWindow *)>;
Q_DECLARE_METATYPE(Way)

void tst_WinFrame_Maximized::initTestCase()
{
    const QScreen *const screen = QGuiApplication::primaryScreen();
    qInfo() << "ratio" << qApp->devicePixelRatio() << "screen" << screen->geometry() << "work area"
            << screen->availableGeometry() << "frame" << GetSystemMetrics(SM_CXFRAME)
            << GetSystemMetrics(SM_CXPADDEDBORDER);
}

void tst_WinFrame_Maximized::init()
{
    RealInput::moveTo(QPoint(400, 400));
    m_window = coloredShell<KestWindow>();
}

void tst_WinFrame_Maximized::cleanup()
{
    m_window.reset();
    RealInput::settle();
}

void tst_WinFrame_Maximized::contentsFillTheWorkArea_data()
{
    QTest::addColumn<Way>("maximize");

    QTest::newRow("button") << Way([](KestWindow *window) {
        const QWidget *const button = childNamed(window->titleBar(), "maximumSizeBtn");
        RealInput::click(toPixels(centerOf(button)));
    });
    QTest::newRow("double click") << Way(
        [](KestWindow *window) { RealInput::doubleClick(toPixels(centerOf(window->titleBar()))); });
    QTest::newRow("system menu") << Way([](KestWindow *window) {
        RealInput::moveTo(toPixels(centerOf(window->titleBar())));
        // The entry for maximising has the mnemonic x.
        RealInput::keysLater({ QStringLiteral("x") });
        PostMessageW(handleOf(window), WM_NCRBUTTONUP, HTCAPTION, 0);
    });
    // As at the end of a drag to the top of the screen, or by a key of the system.
    QTest::newRow("system") << Way(
        [](KestWindow *window) { ShowWindow(handleOf(window), SW_MAXIMIZE); });
    QTest::newRow("program") << Way([](KestWindow *window) { window->showMaximized(); });
    QTest::newRow("after being minimised") << Way([](KestWindow *window) {
        window->showMaximized();
        RealInput::settle(100);
        ShowWindow(handleOf(window), SW_MINIMIZE);
        QTRY_VERIFY(window->isMinimized());
        ShowWindow(handleOf(window), SW_RESTORE);
        QTRY_VERIFY(!window->isMinimized());
    });
    QTest::newRow("after being hidden") << Way([](KestWindow *window) {
        window->showMaximized();
        RealInput::settle(100);
        window->hide();
        RealInput::settle(100);
        window->show();
    });
    QTest::newRow("after full screen") << Way([](KestWindow *window) {
        window->showMaximized();
        RealInput::settle(100);
        window->showFullScreen();
        RealInput::settle(100);
        window->showMaximized();
    });
    QTest::newRow("again") << Way([](KestWindow *window) {
        window->showMaximized();
        RealInput::settle(100);
        window->showNormal();
        RealInput::settle(100);
        window->showMaximized();
    });
}

void tst_WinFrame_Maximized::contentsFillTheWorkArea()
{
    QFETCH(Way, maximize);
    m_window->setGeometry(WindowRect);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_window->setGeometry(WindowRect);
    RealInput::settle(50);
    const QRect before = m_window->geometry();

    maximize(m_window.get());
    QTRY_VERIFY(IsZoomed(handleOf(m_window.get())));
    QTRY_VERIFY(m_window->isMaximized());
    QCOMPARE(flaws(m_window.get()), QString());

    // The margins are there for what lays itself out by them.
    if (m_window->windowState() == Qt::WindowMaximized) {
        const int padding = GetSystemMetrics(SM_CXPADDEDBORDER);
        const int x = GetSystemMetrics(SM_CXFRAME) + padding;
        const int y = GetSystemMetrics(SM_CYFRAME) + padding;
        QCOMPARE(m_window->contentsMargins(), QMargins(0, 0, 2 * x, 2 * y));
    }

    // And back by the button.
    RealInput::click(toPixels(centerOf(childNamed(m_window->titleBar(), "maximumSizeBtn"))));
    QTRY_VERIFY(!IsZoomed(handleOf(m_window.get())));
    QTRY_VERIFY(!m_window->isMaximized());
    // Of full screen Qt and Wine disagree where the window was before it.
    QTRY_COMPARE(m_window->size(), before.size());
    QCOMPARE(m_window->contentsMargins(), QMargins());
    QTRY_COMPARE(m_window->titleBar()->width(), before.width());
}

void tst_WinFrame_Maximized::contentsFillTheWorkAreaFromTheStart_data()
{
    QTest::addColumn<Way>("show");
    QTest::newRow("shown so") << Way([](KestWindow *window) { window->showMaximized(); });
    QTest::newRow("state set before") << Way([](KestWindow *window) {
        window->setWindowState(Qt::WindowMaximized);
        window->show();
    });
    QTest::newRow("with a size") << Way([](KestWindow *window) {
        window->setGeometry(WindowRect);
        window->winId();
        window->showMaximized();
    });
}

void tst_WinFrame_Maximized::contentsFillTheWorkAreaFromTheStart()
{
    QFETCH(Way, show);
    show(m_window.get());
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QTRY_VERIFY(IsZoomed(handleOf(m_window.get())));
    QCOMPARE(flaws(m_window.get()), QString());
}

void tst_WinFrame_Maximized::contentsOfADialogFillTheWorkArea()
{
    const auto dialog = coloredShell<KestDialog>();
    dialog->showMaximized();
    QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    QTRY_VERIFY(IsZoomed(handleOf(dialog.get())));
    QCOMPARE(flaws(dialog.get()), QString());
}

void tst_WinFrame_Maximized::overlayCoversTheWorkArea()
{
    m_window->showMaximized();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QCOMPARE(flaws(m_window.get()), QString());
    KestLoadingDialog overlay(m_window.get());
    overlay.show();
    RealInput::settle(200);
    const QRect work = workArea(m_window.get());
    const QImage screen = screenshot();
    // A veil over the contents, from edge to edge.
    const QRgb veiled = screen.pixel(work.bottomRight());
    QVERIFY((veiled & 0xffffff) != ContentsColor);
    QCOMPARE(screen.pixel(work.bottomLeft()), veiled);
    QCOMPARE(screen.pixel(work.bottomRight() - QPoint(20, 20)), veiled);
    QVERIFY((screen.pixel(work.topLeft()) & 0xffffff) != BarColor);
}

void tst_WinFrame_Maximized::clickIntoTheCornerCloses()
{
    m_window->showMaximized();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    RealInput::settle(200);
    // Qt itself rounds the outermost pixels of a scaled window to a place outside of it.
    const int inner = qCeil(qApp->devicePixelRatio()) - 1;
    RealInput::click(workArea(m_window.get()).topRight() + QPoint(-inner, inner));
    QTRY_VERIFY(!m_window->isVisible());
}

void tst_WinFrame_Maximized::windowHiddenAtOnceStaysHidden()
{
    m_window->showMaximized();
    RealInput::settle(100);
    m_window->hide();
    m_window->show();
    m_window->hide();
    RealInput::settle(200);
    QVERIFY(!m_window->isVisible());
    QVERIFY(!IsWindowVisible(handleOf(m_window.get())));
}

void tst_WinFrame_Maximized::windowRestoredAtOnceStaysRestored()
{
    m_window->showMaximized();
    RealInput::settle(100);
    m_window->hide();
    m_window->show();
    m_window->showNormal();
    RealInput::settle(200);
    QVERIFY(!m_window->isMaximized());
    QVERIFY(!IsZoomed(handleOf(m_window.get())));
}

void tst_WinFrame_Maximized::windowHiddenNormalComesBackNormal()
{
    // What it was when it was hidden is restored.
    m_window->show();
    RealInput::settle(100);
    m_window->hide();
    m_window->showMaximized();
    RealInput::settle(200);
    QVERIFY(!IsZoomed(handleOf(m_window.get())));
    QVERIFY(!m_window->isMaximized());
    m_window->showMaximized();
    QCOMPARE(flaws(m_window.get()), QString());
}

int main(int argc, char *argv[])
{
    KestApplication app(argc, argv);
    tst_WinFrame_Maximized test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_winframe_maximized.moc"
