// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// Places that a program keeps from one start to the next on Windows: a shell comes back where it
// was, in whichever state it was closed, however often, and whoever restores it.

#include "KestApplication.h"
#include "KestDialog.h"
#include "KestTitleBar.h"
#include "KestWindow.h"
#include "NativeWindow.h"
#include "RealInput.h"

#include <QtGui/QScreen>
#include <QtTest/QTest>

#include <functional>
#include <memory>

namespace {

// In Qt's pixels, whatever the scale. Odd ones, which no scale makes even.
const QRect WindowRect(151, 101, 303, 203);
const int Starts = 2; // an error adds up

// One that keeps its place as Qt's documentation tells to.
template <class Shell>
class Keeper : public Shell
{
public:
    QByteArray place;

protected:
    void closeEvent(QCloseEvent *event) override
    {
        place = this->saveGeometry();
        Shell::closeEvent(event);
    }
};

template <class Shell>
std::unique_ptr<Keeper<Shell>> keeper()
{
    auto shell = std::make_unique<Keeper<Shell>>();
    shell->setCentralWidget(new QWidget);
    return shell;
}

QPoint toPixels(const QPoint &point)
{
    return point * qApp->devicePixelRatio();
}

QPoint titleOf(const QWidget *shell)
{
    return toPixels(centerOf(shell->findChild<KestTitleBar *>()));
}

} // namespace

using Step = std::function<void(QWidget *)>;
Q_DECLARE_METATYPE(Step)

class tst_WinFrame_Saved : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void windowComesBack_data() { addWays(); }
    void windowComesBack() { comesBack<KestWindow>(); }
    void dialogComesBack_data() { addWays(); }
    void dialogComesBack() { comesBack<KestDialog>(); }
    void normalGeometryIsWhatTheWindowWas_data();
    void normalGeometryIsWhatTheWindowWas();

private:
    static void addWays();
    template <class Shell>
    static void comesBack();
};

void tst_WinFrame_Saved::init()
{
    RealInput::moveTo(QPoint(5, 5));
}

void tst_WinFrame_Saved::addWays()
{
    QTest::addColumn<Step>("leave");
    QTest::addColumn<bool>("comesBackLarge");
    QTest::addColumn<Step>("restore");

    const Step nothing = [](QWidget *) {};
    const Step maximize = [](QWidget *shell) { shell->showMaximized(); };
    const Step restore = [](QWidget *shell) { shell->showNormal(); };
    QTest::newRow("normal") << nothing << false << nothing;
    QTest::newRow("minimised") << Step([](QWidget *shell) {
        shell->showMinimized();
        QTRY_VERIFY(IsIconic(handleOf(shell)));
    }) << false << nothing;
    QTest::newRow("maximised") << maximize << true << restore;
    QTest::newRow("maximised and minimised") << Step([](QWidget *shell) {
        shell->showMaximized();
        QTRY_VERIFY(IsZoomed(handleOf(shell)));
        RealInput::settle(100);
        ShowWindow(handleOf(shell), SW_MINIMIZE);
        QTRY_VERIFY(IsIconic(handleOf(shell)));
    }) << true << restore;
    QTest::newRow("maximised twice") << Step([](QWidget *shell) {
        shell->showMaximized();
        RealInput::settle(100);
        shell->showNormal();
        RealInput::settle(100);
        shell->showMaximized();
    }) << true << restore;
    QTest::newRow("closed as soon as maximised") << Step([](QWidget *shell) {
        shell->showMaximized();
        shell->close();
    }) << true << restore;

    // Without a task bar Qt takes a maximised window for one that is full screen, too, and shows it
    // so: that the system can not restore.
    const QScreen *const screen = QGuiApplication::primaryScreen();
    if (screen->availableGeometry() == screen->geometry())
        return;
    QTest::newRow("maximised by the title bar")
        << Step([](QWidget *shell) { RealInput::doubleClick(titleOf(shell)); }) << true
        << Step([](QWidget *shell) { RealInput::doubleClick(titleOf(shell)); });
    QTest::newRow("maximised by the system")
        << Step([](QWidget *shell) { ShowWindow(handleOf(shell), SW_MAXIMIZE); }) << true
        << Step([](QWidget *shell) {
               // The entry for restoring has the mnemonic r.
               RealInput::moveTo(titleOf(shell));
               RealInput::keysLater({ QStringLiteral("r") });
               PostMessageW(handleOf(shell), WM_NCRBUTTONUP, HTCAPTION, 0);
           });
}

template <class Shell>
void tst_WinFrame_Saved::comesBack()
{
    QFETCH(Step, leave);
    QFETCH(bool, comesBackLarge);
    QFETCH(Step, restore);

    auto shell = keeper<Shell>();
    shell->setGeometry(WindowRect);
    shell->show();
    QVERIFY(QTest::qWaitForWindowActive(shell.get()));
    RealInput::settle(100);
    const QRect before = shell->geometry();
    const QRect nativeBefore = nativeRect(shell.get());

    for (int start = 1; start <= Starts; ++start) {
        leave(shell.get());
        RealInput::settle(150);
        shell->close();
        const QByteArray place = shell->place;
        QVERIFY(!place.isEmpty());
        shell = keeper<Shell>();
        QVERIFY(shell->restoreGeometry(place));
        shell->show();
        QVERIFY(QTest::qWaitForWindowActive(shell.get()));
        RealInput::settle(150);
        QCOMPARE(shell->windowState().testFlag(Qt::WindowMaximized)
                     || shell->windowState().testFlag(Qt::WindowFullScreen),
                 comesBackLarge);
        restore(shell.get());
        RealInput::settle(150);
        QTRY_COMPARE(shell->geometry(), before);
        QCOMPARE(nativeRect(shell.get()), nativeBefore);
    }
}

void tst_WinFrame_Saved::normalGeometryIsWhatTheWindowWas_data()
{
    QTest::addColumn<Step>("leave");
    QTest::newRow("maximised") << Step([](QWidget *shell) { shell->showMaximized(); });
    QTest::newRow("by the system")
        << Step([](QWidget *shell) { ShowWindow(handleOf(shell), SW_MAXIMIZE); });
    QTest::newRow("full screen") << Step([](QWidget *shell) { shell->showFullScreen(); });
}

void tst_WinFrame_Saved::normalGeometryIsWhatTheWindowWas()
{
    QFETCH(Step, leave);
    const auto shell = keeper<KestWindow>();
    for (const QRect &rect : { WindowRect, QRect(180, 140, 420, 307) }) {
        shell->setGeometry(rect);
        shell->show();
        QVERIFY(QTest::qWaitForWindowActive(shell.get()));
        RealInput::settle(100);
        const QRect before = shell->geometry();
        leave(shell.get());
        RealInput::settle(150);
        QCOMPARE(shell->normalGeometry(), before);
        shell->showNormal();
        RealInput::settle(150);
        QCOMPARE(shell->geometry(), before);
    }
}

int main(int argc, char *argv[])
{
    KestApplication app(argc, argv);
    tst_WinFrame_Saved test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_winframe_saved.moc"
