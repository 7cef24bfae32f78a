// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestLoadingDialog.h"

#include "KestDialog.h"
#include "KestWindow.h"

#include <QtCore/QMetaEnum>
#include <QtCore/QPointer>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtGui/QAccessible>
#include <QtGui/QFocusEvent>
#include <QtGui/QMovie>
#include <QtGui/QWindow>
#include <QtGui/qpa/qwindowsysteminterface.h>
#include <QtTest/QTest>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <functional>
#include <memory>

Q_DECLARE_METATYPE(QMargins)

namespace {

const char LoadingGif[] = ":/KestWidgets/Resources/loading.gif";

// Runs the overlay and does something once its loop runs.
KestLoadingDialog::Result execAnd(KestLoadingDialog *overlay, const std::function<void()> &action)
{
    QTimer::singleShot(0, overlay, action);
    return overlay->exec();
}

class Window : public QWidget
{
public:
    Window() { resize(400, 300); }
};

// Three inputs, one below the other.
class Form : public Window
{
public:
    Form()
    {
        for (int i = 0; i < 3; ++i) {
            edits[i] = new QLineEdit(this);
            edits[i]->move(0, 40 * i);
        }
    }

    bool activate()
    {
        show();
        activateWindow();
        return QTest::qWaitForWindowActive(this);
    }

    QLineEdit *edits[3];
};

// A shell's margins are its shadow. Where the system draws that there are none: any will do.
void giveMargins(QWidget *shell)
{
#ifdef Q_OS_WIN
    shell->setContentsMargins(7, 6, 5, 4);
#endif
    QVERIFY(shell->contentsRect() != shell->rect());
}

} // namespace

class tst_KestLoadingDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metaObject();
    void newOverlayIsHidden();
    void overlayBelongsToTheTopLevelWindow();
    void formIsBuiltAsDesigned();
    void animationIsShownAndRunsWhileVisible();

    void doneReturnsDone();
    void cancelReturnsCanceled();
    void endIsAsynchronous();
    void endComesAfterWhatWasTimedBefore();
    void lastCallBeforeTheEndWins();
    void overlayIsHiddenAfterwards();
    void endIsNoClosing();
    void inputThatCameBeforeTheEndIsHandled();
    void runsAgainFromTheBeginning();
    void doneWithoutExecIsForgotten();
    void execWhileRunningReturnsAtOnce();
    void doneFromAnotherThread();

    void hidingEndsIt();
    void hidingEndsItOverAWindowThatWasNeverShown_data();
    void hidingEndsItOverAWindowThatWasNeverShown();
    void hidingTheWindowEndsIt();
    void closingEndsIt();
    void closeEventEndsItByItself();
    void closingTheWindowEndsIt();
    void deletingTheOverlayEndsIt();
    void deletingTheWindowEndsIt();
    void deletingTheWindowRightAfterTheEnd();

    void escapeCancelsWhenEnabled();
    void otherKeysDoNotCancel();
    void focusComesAndGoesForNoKey();
    void escapeDoesNothingWhenDisabled();
    void otherKeysAreSwallowed();
    void focusStaysOnTheOverlay();
    void screenReaderIsToldToWait();
    void focusGoesBackToTheWidgetThatHadIt_data();
    void focusGoesBackToTheWidgetThatHadIt();
    void focusMovesOnWhereItCannotGoBack_data();
    void focusMovesOnWhereItCannotGoBack();
    void focusThatTheHostMovesStays();
    void focusGoesBackInAWindowThatIsNotActive();
    void focusGoesBackAfterTheWindowWasHidden();

    void overlayIsPolishedBeforeItIsCreated();
    void overlayCoversTheWindow();
    void hiddenOverlayFollowsTheWindowToo();
    void everyShowCoversTheWindowAnew();
    void overlayIsWhereTheHostPutsItUntilTheWindowIsResized();
    void overlayFollowsNoWindowThatItIsNotIn();
    void overlayLiesAboveItsSiblings();
    void overlayKeepsInsideOfAShellsMargins_data();
    void overlayKeepsInsideOfAShellsMargins();
    void overlayFollowsAShellsMargins();
    void overlayFillsAnyOtherWindow();
    void windowShowsThrough();

    void movieIsReplaced();
    void newMovieRunsWhileVisible();
    void sameMovieIsKept();
    void nullMovieShowsNone();
    void movieWithAParentKeepsIt();
    void sharedMovieRunsWhileOneOverlayShowsIt();
    void pausedMovieRunsOnWhenItIsShown();

    void withoutAWindowItCoversNothing();
};

void tst_KestLoadingDialog::metaObject()
{
    const QMetaObject &meta = KestLoadingDialog::staticMetaObject;
    for (const char *slot : { "done()", "cancel()", "exec()" })
        QVERIFY2(meta.indexOfSlot(slot) >= meta.methodOffset(), slot);
    Window window;
    KestLoadingDialog overlay(&window);
    QVERIFY(!overlay.cancelEnable());
    QVERIFY(overlay.setProperty("cancelEnable", true));
    QVERIFY(overlay.cancelEnable());
    const QMetaEnum results = QMetaEnum::fromType<KestLoadingDialog::Result>();
    QCOMPARE(results.keyToValue("Canceled"), 0);
    QCOMPARE(results.keyToValue("Done"), 1);
}

void tst_KestLoadingDialog::newOverlayIsHidden()
{
    Window window;
    KestLoadingDialog overlay(&window);
    window.show();
    QVERIFY(!overlay.isVisible());
    QCOMPARE(overlay.focusPolicy(), Qt::StrongFocus);
    QVERIFY(overlay.movie());
    QCOMPARE(overlay.movie()->state(), QMovie::NotRunning);
}

void tst_KestLoadingDialog::overlayBelongsToTheTopLevelWindow()
{
    Window window;
    auto *inner = new QWidget(&window);
    auto *innermost = new QPushButton(inner);
    KestLoadingDialog overlay(innermost);
    QCOMPARE(overlay.parentWidget(), &window);
    QVERIFY(!overlay.isWindow());
}

void tst_KestLoadingDialog::formIsBuiltAsDesigned()
{
    Window window;
    KestLoadingDialog overlay(&window);
    QCOMPARE(overlay.objectName(), QStringLiteral("KestLoadingDialog"));
    QCOMPARE(overlay.size(), QSize(594, 169));
    QCOMPARE(overlay.windowTitle(), QStringLiteral("LoadingDialog"));
    QCOMPARE(overlay.styleSheet(),
             QStringLiteral("#widget\n{\n\tbackground: rgba(255,255,255,100);\n}\n"));
    auto *row = qobject_cast<QHBoxLayout *>(overlay.layout());
    QVERIFY(row);
    QCOMPARE(row->objectName(), QStringLiteral("horizontalLayout"));
    QCOMPARE(row->spacing(), 6);
    QCOMPARE(row->contentsMargins(), QMargins());
    QWidget *const inner = row->itemAt(0)->widget();
    QCOMPARE(inner->objectName(), QStringLiteral("widget"));
    auto *grid = qobject_cast<QGridLayout *>(inner->layout());
    QVERIFY(grid);
    QCOMPARE(grid->objectName(), QStringLiteral("gridLayout"));
    QCOMPARE(grid->spacing(), 6);
    QCOMPARE(grid->contentsMargins(), QMargins(11, 11, 11, 11));
    auto *label = qobject_cast<QLabel *>(grid->itemAtPosition(1, 2)->widget());
    QVERIFY(label);
    QCOMPARE(label->objectName(), QStringLiteral("label"));
    QCOMPARE(label->text(), QString());
    QCOMPARE(label->movie(), overlay.movie());
    const QPoint spacers[] = { { 1, 3 }, { 0, 0 }, { 1, 0 }, { 2, 0 } };
    for (const QPoint &cell : spacers) {
        QSpacerItem *const spacer = grid->itemAtPosition(cell.x(), cell.y())->spacerItem();
        QVERIFY(spacer);
        const bool horizontal = cell.x() == 1;
        QCOMPARE(spacer->sizeHint(), horizontal ? QSize(40, 20) : QSize(20, 40));
        QCOMPARE(spacer->expandingDirections(),
                 Qt::Orientations(horizontal ? Qt::Horizontal : Qt::Vertical));
    }
    QCOMPARE(grid->count(), 5);
}

void tst_KestLoadingDialog::animationIsShownAndRunsWhileVisible()
{
    Window window;
    KestLoadingDialog overlay(&window);
    QCOMPARE(overlay.movie()->fileName(), QString::fromLatin1(LoadingGif));
    QVERIFY(overlay.movie()->isValid());
    window.show();
    QMovie::MovieState state = QMovie::NotRunning;
    execAnd(&overlay, [&] {
        state = overlay.movie()->state();
        overlay.done();
    });
    QCOMPARE(state, QMovie::Running);
    QCOMPARE(overlay.movie()->state(), QMovie::NotRunning);
}

void tst_KestLoadingDialog::doneReturnsDone()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    QCOMPARE(execAnd(&overlay, [&] { overlay.done(); }), KestLoadingDialog::Done);
}

void tst_KestLoadingDialog::cancelReturnsCanceled()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    QCOMPARE(execAnd(&overlay, [&] { overlay.cancel(); }), KestLoadingDialog::Canceled);
}

void tst_KestLoadingDialog::endIsAsynchronous()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    bool visible = false;
    execAnd(&overlay, [&] {
        overlay.done();
        visible = overlay.isVisible();
    });
    QVERIFY(visible);
}

void tst_KestLoadingDialog::endComesAfterWhatWasTimedBefore()
{
    Window window;
    window.show();
    for (const bool done : { false, true }) {
        KestLoadingDialog overlay(&window);
        bool visible = false;
        execAnd(&overlay, [&] {
            QTimer::singleShot(0, &overlay, [&] { visible = overlay.isVisible(); });
            if (done)
                overlay.done();
            else
                overlay.cancel();
        });
        QVERIFY(visible);
    }
}

void tst_KestLoadingDialog::lastCallBeforeTheEndWins()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    // Both are posted, and the first ends the loop: the second is worked off on the way out.
    const KestLoadingDialog::Result result = execAnd(&overlay, [&] {
        overlay.cancel();
        overlay.done();
    });
    QCOMPARE(result, KestLoadingDialog::Done);
    // Escape is such a call.
    overlay.setCancelEnable(true);
    QCOMPARE(execAnd(&overlay,
                     [&] {
                         overlay.done();
                         QTest::keyClick(&overlay, Qt::Key_Escape);
                     }),
             KestLoadingDialog::Canceled);
}

void tst_KestLoadingDialog::overlayIsHiddenAfterwards()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    bool visible = false;
    execAnd(&overlay, [&] {
        visible = overlay.isVisible();
        overlay.done();
    });
    QVERIFY(visible);
    QVERIFY(!overlay.isVisible());
    QVERIFY(overlay.isHidden());
}

void tst_KestLoadingDialog::endIsNoClosing()
{
    Window window;
    window.show();
    const QPointer<KestLoadingDialog> overlay(new KestLoadingDialog(&window));
    overlay->setAttribute(Qt::WA_DeleteOnClose);
    QCOMPARE(execAnd(overlay, [&] { overlay->done(); }), KestLoadingDialog::Done);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!overlay.isNull());
}

void tst_KestLoadingDialog::inputThatCameBeforeTheEndIsHandled()
{
    // Types a letter when the overlay is hidden.
    class Typist : public QObject
    {
    public:
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() == QEvent::Hide) {
                QWindow *const window = static_cast<QWidget *>(watched)->window()->windowHandle();
                for (const QEvent::Type type : { QEvent::KeyPress, QEvent::KeyRelease })
                    QWindowSystemInterface::handleKeyEvent(window, type, Qt::Key_X, Qt::NoModifier,
                                                           QStringLiteral("x"));
            }
            return false;
        }
    };
    Form form;
    QVERIFY(form.activate());
    form.edits[1]->setFocus();
    KestLoadingDialog overlay(&form);
    Typist typist;
    overlay.installEventFilter(&typist);
    execAnd(&overlay, [&] { overlay.done(); });
    QCOMPARE(form.edits[1]->text(), QStringLiteral("x"));
}

void tst_KestLoadingDialog::runsAgainFromTheBeginning()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    QCOMPARE(execAnd(&overlay, [&] { overlay.done(); }), KestLoadingDialog::Done);
    QCOMPARE(execAnd(&overlay, [&] { overlay.hide(); }), KestLoadingDialog::Canceled);
    QCOMPARE(execAnd(&overlay, [&] { overlay.done(); }), KestLoadingDialog::Done);
}

void tst_KestLoadingDialog::doneWithoutExecIsForgotten()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    for (int i = 0; i < 10; ++i) {
        overlay.done();
        QCoreApplication::processEvents(); // which are all that it takes
        bool ran = false;
        QTimer::singleShot(5, &overlay, [&] {
            ran = true;
            overlay.hide();
        });
        QCOMPARE(overlay.exec(), KestLoadingDialog::Canceled);
        QVERIFY(ran);
    }
}

void tst_KestLoadingDialog::execWhileRunningReturnsAtOnce()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    KestLoadingDialog::Result inner = KestLoadingDialog::Done;
    const KestLoadingDialog::Result outer = execAnd(&overlay, [&] {
        inner = overlay.exec();
        QTimer::singleShot(20, &overlay, &KestLoadingDialog::done);
    });
    QCOMPARE(inner, KestLoadingDialog::Canceled);
    QCOMPARE(outer, KestLoadingDialog::Done);
}

void tst_KestLoadingDialog::doneFromAnotherThread()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    const QScopedPointer<QThread> worker(QThread::create([] { QThread::msleep(20); }));
    connect(worker.data(), &QThread::finished, &overlay, &KestLoadingDialog::done,
            Qt::QueuedConnection);
    worker->start();
    QCOMPARE(overlay.exec(), KestLoadingDialog::Done);
    worker->wait();

    const QScopedPointer<QThread> invoker(QThread::create(
        [&overlay] { QMetaObject::invokeMethod(&overlay, "cancel", Qt::QueuedConnection); }));
    invoker->start();
    QCOMPARE(overlay.exec(), KestLoadingDialog::Canceled);
    invoker->wait();
}

void tst_KestLoadingDialog::hidingEndsIt()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    QCOMPARE(execAnd(&overlay, [&] { overlay.hide(); }), KestLoadingDialog::Canceled);
}

void tst_KestLoadingDialog::hidingEndsItOverAWindowThatWasNeverShown_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : { "hide", "close", "delete" })
        QTest::newRow(way) << QString::fromLatin1(way);
}

void tst_KestLoadingDialog::hidingEndsItOverAWindowThatWasNeverShown()
{
    QFETCH(QString, way);
    Window window;
    const QPointer<KestLoadingDialog> overlay(new KestLoadingDialog(&window));
    QTimer::singleShot(5000, overlay, &KestLoadingDialog::done);
    QCOMPARE(execAnd(overlay,
                     [&] {
                         if (way == QLatin1String("hide"))
                             overlay->hide();
                         else if (way == QLatin1String("close"))
                             overlay->close();
                         else
                             QTimer::singleShot(0, &window, [&] { delete overlay; });
                     }),
             KestLoadingDialog::Canceled);
    if (way == QLatin1String("delete")) {
        QVERIFY(overlay.isNull());
        return;
    }
    // Hidden before its window is shown, it stays so, and runs again.
    window.show();
    QVERIFY(!overlay->isVisible());
    QCOMPARE(execAnd(overlay, [&] { overlay->done(); }), KestLoadingDialog::Done);
}

void tst_KestLoadingDialog::hidingTheWindowEndsIt()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    QTimer::singleShot(5000, &overlay, &KestLoadingDialog::done);
    QCOMPARE(execAnd(&overlay, [&] { window.hide(); }), KestLoadingDialog::Canceled);
    window.show();
    QVERIFY(!overlay.isVisible());
}

void tst_KestLoadingDialog::closingEndsIt()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    QCOMPARE(execAnd(&overlay, [&] { overlay.close(); }), KestLoadingDialog::Canceled);
}

void tst_KestLoadingDialog::closeEventEndsItByItself()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    QTimer::singleShot(5000, &overlay, &KestLoadingDialog::done);
    bool accepted = false;
    bool visible = false;
    const KestLoadingDialog::Result result = execAnd(&overlay, [&] {
        QCloseEvent event;
        event.ignore();
        QCoreApplication::sendEvent(&overlay, &event);
        accepted = event.isAccepted();
        visible = overlay.isVisible();
    });
    QCOMPARE(result, KestLoadingDialog::Canceled);
    QVERIFY(accepted);
    QVERIFY(visible); // until the loop is left
}

void tst_KestLoadingDialog::closingTheWindowEndsIt()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    QCOMPARE(execAnd(&overlay, [&] { window.close(); }), KestLoadingDialog::Canceled);
}

void tst_KestLoadingDialog::deletingTheOverlayEndsIt()
{
    Window window;
    window.show();
    QPointer<KestLoadingDialog> overlay(new KestLoadingDialog(&window));
    QTimer::singleShot(0, &window, [&] { delete overlay; });
    QCOMPARE(overlay->exec(), KestLoadingDialog::Canceled);
    QVERIFY(overlay.isNull());
}

void tst_KestLoadingDialog::deletingTheWindowEndsIt()
{
    auto *window = new Window;
    window->show();
    QPointer<KestLoadingDialog> overlay(new KestLoadingDialog(window));
    QTimer::singleShot(0, qApp, [window] { delete window; });
    QCOMPARE(overlay->exec(), KestLoadingDialog::Canceled);
    QVERIFY(overlay.isNull());
}

void tst_KestLoadingDialog::deletingTheWindowRightAfterTheEnd()
{
    // While the overlay, hidden already, lets the pending events be handled.
    auto *window = new Window;
    window->show();
    QPointer<KestLoadingDialog> overlay(new KestLoadingDialog(window));
    bool hidden = false;
    const auto deleteWindow = [&] {
        hidden = overlay->isHidden();
        delete window;
    };
    const auto end = [&] {
        overlay->done();
        QTimer::singleShot(0, qApp, [&] { QTimer::singleShot(0, qApp, deleteWindow); });
    };
    QTimer::singleShot(0, qApp, end);
    QCOMPARE(overlay->exec(), KestLoadingDialog::Canceled);
    QVERIFY(hidden);
    QVERIFY(overlay.isNull());
}

void tst_KestLoadingDialog::escapeCancelsWhenEnabled()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    overlay.setCancelEnable(true);
    bool still = false;
    QCOMPARE(execAnd(&overlay,
                     [&] {
                         QTest::keyClick(&overlay, Qt::Key_Escape);
                         still = overlay.isVisible();
                     }),
             KestLoadingDialog::Canceled);
    QVERIFY(still); // it ends once the key is through
    // Whatever is held down with it.
    QCOMPARE(execAnd(&overlay,
                     [&] {
                         QTest::keyClick(&overlay, Qt::Key_Escape, Qt::ShiftModifier);
                         QTimer::singleShot(30, &overlay, &KestLoadingDialog::done);
                     }),
             KestLoadingDialog::Canceled);
}

void tst_KestLoadingDialog::escapeDoesNothingWhenDisabled()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    const KestLoadingDialog::Result result = execAnd(&overlay, [&] {
        QTest::keyClick(&overlay, Qt::Key_Escape);
        QTimer::singleShot(30, &overlay, [&] { overlay.done(); });
    });
    QCOMPARE(result, KestLoadingDialog::Done);
}

void tst_KestLoadingDialog::otherKeysAreSwallowed()
{
    class Counting : public Window
    {
    public:
        int keys = 0;

    protected:
        void keyPressEvent(QKeyEvent *) override { ++keys; }
    };
    Counting window;
    window.show();
    KestLoadingDialog overlay(&window);
    overlay.setCancelEnable(true);
    bool running = false;
    execAnd(&overlay, [&] {
        for (const Qt::Key key : { Qt::Key_A, Qt::Key_Return, Qt::Key_Space, Qt::Key_Tab })
            QTest::keyClick(&overlay, key);
        overlay.setCancelEnable(false);
        QTest::keyClick(&overlay, Qt::Key_Escape);
        QCoreApplication::processEvents();
        running = overlay.isVisible();
        overlay.done();
    });
    QVERIFY(running);
    overlay.setCancelEnable(true);
    execAnd(&overlay, [&] { QTest::keyClick(&overlay, Qt::Key_Escape); });
    QCOMPARE(window.keys, 0);
}

void tst_KestLoadingDialog::screenReaderIsToldToWait()
{
    Window window; // without bars, which tell of themselves
    KestLoadingDialog overlay(&window);
    QAccessibleInterface *const found = QAccessible::queryAccessibleInterface(&overlay);
    QCOMPARE(found->role(), QAccessible::Dialog);
    QCOMPARE(found->text(QAccessible::Name), QStringLiteral("Please wait"));
    QVERIFY(found->state().busy);
    QVERIFY(found->state().focusable);
    overlay.setAccessibleName(QStringLiteral("Loading the notes"));
    QCOMPARE(found->text(QAccessible::Name), QStringLiteral("Loading the notes"));
}

void tst_KestLoadingDialog::focusStaysOnTheOverlay()
{
    Window window;
    auto *button = new QPushButton(&window);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    button->setFocus();
    KestLoadingDialog overlay(&window);
    QWidget *atFirst = nullptr;
    QWidget *afterTab = nullptr;
    QWidget *afterBacktab = nullptr;
    execAnd(&overlay, [&] {
        atFirst = QApplication::focusWidget();
        QTest::keyClick(&overlay, Qt::Key_Tab);
        afterTab = QApplication::focusWidget();
        QTest::keyClick(&overlay, Qt::Key_Backtab);
        afterBacktab = QApplication::focusWidget();
        overlay.done();
    });
    QCOMPARE(atFirst, &overlay);
    QCOMPARE(afterTab, &overlay);
    QCOMPARE(afterBacktab, &overlay);
}

void tst_KestLoadingDialog::focusGoesBackToTheWidgetThatHadIt_data()
{
    QTest::addColumn<QString>("end");
    for (const char *end : { "done", "cancel", "hide", "close", "delete", "shown without exec" })
        QTest::newRow(end) << QString::fromLatin1(end);
}

void tst_KestLoadingDialog::focusGoesBackToTheWidgetThatHadIt()
{
    QFETCH(QString, end);
    Form form;
    QVERIFY(form.activate());
    form.edits[1]->setFocus();
    auto *overlay = new KestLoadingDialog(&form);
    const auto finish = [&] {
        if (end == QLatin1String("done"))
            overlay->done();
        else if (end == QLatin1String("cancel"))
            overlay->cancel();
        else if (end == QLatin1String("close"))
            overlay->close();
        else if (end == QLatin1String("delete"))
            delete overlay;
        else
            overlay->hide();
    };
    for (int i = 0; i < (end == QLatin1String("delete") ? 1 : 2); ++i) {
        if (end == QLatin1String("shown without exec")) {
            overlay->show();
            QVERIFY(overlay->hasFocus());
            finish();
        } else {
            execAnd(overlay, finish);
        }
        QCOMPARE(QApplication::focusWidget(), form.edits[1]);
    }
    QTest::keyClick(QApplication::focusWidget(), 'x');
    QCOMPARE(form.edits[1]->text(), QStringLiteral("x"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), form.edits[2]);
}

void tst_KestLoadingDialog::focusMovesOnWhereItCannotGoBack_data()
{
    QTest::addColumn<QString>("fate");
    for (const char *fate : { "never was", "deleted", "disabled", "hidden", "elsewhere" })
        QTest::newRow(fate) << QString::fromLatin1(fate);
}

void tst_KestLoadingDialog::focusMovesOnWhereItCannotGoBack()
{
    QFETCH(QString, fate);
    QWidget other;
    Form form;
    QVERIFY(form.activate());
    QLineEdit *const edit = form.edits[1];
    edit->setFocus();
    if (fate == QLatin1String("never was"))
        edit->clearFocus();
    KestLoadingDialog overlay(&form);
    execAnd(&overlay, [&] {
        if (fate == QLatin1String("deleted"))
            delete edit;
        else if (fate == QLatin1String("disabled"))
            edit->setEnabled(false);
        else if (fate == QLatin1String("hidden"))
            edit->hide();
        else if (fate == QLatin1String("elsewhere"))
            edit->setParent(&other);
        overlay.done();
    });
    QVERIFY(!other.focusWidget());
    // The next one in the order of the Tab key.
    QCOMPARE(QApplication::focusWidget(), form.edits[0]);
    QCOMPARE(form.focusWidget(), form.edits[0]);
}

void tst_KestLoadingDialog::focusThatTheHostMovesStays()
{
    Form form;
    QVERIFY(form.activate());
    form.edits[1]->setFocus();
    KestLoadingDialog overlay(&form);
    execAnd(&overlay, [&] {
        form.edits[2]->setFocus();
        overlay.done();
    });
    QCOMPARE(QApplication::focusWidget(), form.edits[2]);
}

void tst_KestLoadingDialog::focusGoesBackInAWindowThatIsNotActive()
{
    Form form;
    QVERIFY(form.activate());
    form.edits[1]->setFocus();
    KestLoadingDialog overlay(&form);
    Form other;
    execAnd(&overlay, [&] {
        other.activate();
        overlay.done();
    });
    QVERIFY(!form.isActiveWindow());
    QCOMPARE(form.focusWidget(), form.edits[1]);
    QVERIFY(form.activate());
    QTRY_COMPARE(QApplication::focusWidget(), form.edits[1]);
}

void tst_KestLoadingDialog::focusGoesBackAfterTheWindowWasHidden()
{
    Form form;
    QVERIFY(form.activate());
    form.edits[1]->setFocus();
    KestLoadingDialog overlay(&form);
    overlay.show();
    // It is to be seen again with its window, and covers it again.
    form.hide();
    QCOMPARE(form.focusWidget(), &overlay);
    form.show();
    QCOMPARE(form.focusWidget(), &overlay);
    overlay.hide();
    QCOMPARE(form.focusWidget(), form.edits[1]);
    // Who had it when the overlay took it the last time has it again.
    overlay.show();
    form.edits[2]->setFocus();
    form.hide();
    form.show();
    QCOMPARE(form.focusWidget(), &overlay);
    overlay.hide();
    QCOMPARE(form.focusWidget(), form.edits[2]);
    form.edits[1]->setFocus();
    // Here the window's hiding ends it.
    execAnd(&overlay, [&] { form.hide(); });
    QCOMPARE(form.focusWidget(), form.edits[1]);
}

void tst_KestLoadingDialog::overlayIsPolishedBeforeItIsCreated()
{
    // Writes down whether a widget was there for the window system when it was polished.
    class Polishings : public QObject
    {
    public:
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() == QEvent::Polish)
                created.append(
                    static_cast<QWidget *>(watched)->testAttribute(Qt::WA_WState_Created));
            return false;
        }
        QList<bool> created;
    };
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    Polishings polishings;
    overlay.installEventFilter(&polishings);
    for (int i = 0; i < 2; ++i)
        execAnd(&overlay, [&] { overlay.done(); });
    QCOMPARE(polishings.created, QList<bool> { false });
}

void tst_KestLoadingDialog::overlayCoversTheWindow()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    QRect atFirst;
    QRect later;
    QRect inner;
    QRect label;
    execAnd(&overlay, [&] {
        atFirst = overlay.geometry();
        window.resize(523, 377);
        QCoreApplication::processEvents();
        later = overlay.geometry();
        inner = overlay.findChild<QWidget *>(QStringLiteral("widget"))->geometry();
        auto *shown = overlay.findChild<QLabel *>();
        label = QRect(shown->mapTo(&overlay, QPoint(0, 0)), shown->size());
        overlay.done();
    });
    QCOMPARE(atFirst, QRect(0, 0, 400, 300));
    QCOMPARE(later, QRect(0, 0, 523, 377));
    QCOMPARE(inner, QRect(0, 0, 523, 377));
    // The animation is in the middle.
    QVERIFY(qAbs(label.center().x() - later.center().x()) <= 4);
    QVERIFY(qAbs(label.center().y() - later.center().y()) <= 1);
}

void tst_KestLoadingDialog::hiddenOverlayFollowsTheWindowToo()
{
    Window window;
    window.show();
    const KestLoadingDialog overlay(&window);
    window.resize(321, 234);
    QVERIFY(overlay.isHidden());
    QCOMPARE(overlay.geometry(), QRect(0, 0, 321, 234));
}

void tst_KestLoadingDialog::everyShowCoversTheWindowAnew()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    for (int i = 0; i < 2; ++i) {
        execAnd(&overlay, [&] { overlay.done(); });
        QCOMPARE(overlay.geometry(), window.rect());
        overlay.move(20, 30);
    }
    overlay.resize(20, 30);
    overlay.show();
    QCOMPARE(overlay.geometry(), window.rect());
}

void tst_KestLoadingDialog::overlayIsWhereTheHostPutsItUntilTheWindowIsResized()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    overlay.show();
    const QRect part(10, 20, 200, 100);
    overlay.setGeometry(part);
    window.setWindowTitle(QStringLiteral("Title"));
    window.move(30, 40);
    window.grab();
    QCoreApplication::processEvents();
    QCOMPARE(overlay.geometry(), part);
    window.resize(400, 301);
    QCOMPARE(overlay.geometry(), window.rect());
}

void tst_KestLoadingDialog::overlayFollowsNoWindowThatItIsNotIn()
{
    Window window;
    Window other;
    window.show();
    other.show();
    KestLoadingDialog overlay(&window);
    overlay.setParent(&other);
    overlay.show();
    QCOMPARE(overlay.geometry(), other.rect());
    const QRect part(10, 20, 200, 100);
    overlay.setGeometry(part);
    window.resize(600, 500);
    QCOMPARE(overlay.geometry(), part);
}

void tst_KestLoadingDialog::overlayLiesAboveItsSiblings()
{
    Window window;
    KestLoadingDialog overlay(&window);
    auto *later = new QPushButton(&window);
    later->setGeometry(100, 100, 100, 40);
    window.show();
    QWidget *top = nullptr;
    execAnd(&overlay, [&] {
        top = window.childAt(120, 110);
        overlay.done();
    });
    QVERIFY(top != later);
    QVERIFY(top == &overlay || overlay.isAncestorOf(top));
    // What the host puts above it stays there, whatever becomes of the window.
    execAnd(&overlay, [&] {
        later->raise();
        window.resize(500, 350);
        top = window.childAt(120, 110);
        overlay.done();
    });
    QCOMPARE(top, later);
}

void tst_KestLoadingDialog::overlayKeepsInsideOfAShellsMargins_data()
{
    QTest::addColumn<bool>("dialog");
    QTest::addColumn<QMargins>("own"); // what the host set on the overlay
    for (const bool dialog : { false, true }) {
        const char *const shell = dialog ? "dialog" : "window";
        QTest::addRow("%s", shell) << dialog << QMargins();
        QTest::addRow("%s, margins of its own", shell) << dialog << QMargins(1, 2, 3, 4);
    }
}

void tst_KestLoadingDialog::overlayKeepsInsideOfAShellsMargins()
{
    QFETCH(bool, dialog);
    QFETCH(QMargins, own);
    const std::unique_ptr<QWidget> window(dialog ? static_cast<QWidget *>(new KestDialog)
                                                 : new KestWindow);
    window->resize(400, 300);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    giveMargins(window.get());
    KestLoadingDialog overlay(window.get());
    overlay.setContentsMargins(own);
    for (int i = 0; i < 2; ++i) {
        QRect geometry;
        QRect inner;
        execAnd(&overlay, [&] {
            QCoreApplication::processEvents();
            geometry = overlay.geometry();
            inner = overlay.findChild<QWidget *>(QStringLiteral("widget"))->geometry();
            overlay.done();
        });
        QCOMPARE(geometry, QRect(0, 0, 400, 300));
        // The window's shadow is not painted on.
        QCOMPARE(inner, window->contentsRect().marginsRemoved(own));
        QCOMPARE(overlay.contentsMargins(), own);
    }
}

void tst_KestLoadingDialog::overlayFollowsAShellsMargins()
{
    KestWindow window;
    window.resize(400, 300);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    giveMargins(&window);
    KestLoadingDialog overlay(&window);
    overlay.show();
    auto *inner = overlay.findChild<QWidget *>(QStringLiteral("widget"));
    QTRY_COMPARE(inner->geometry(), window.contentsRect());
    QVERIFY(inner->geometry() != window.rect());
#ifndef Q_OS_WIN
    window.showMaximized();
    QTRY_VERIFY(window.isMaximized() && window.contentsRect() == window.rect());
    QTRY_COMPARE(inner->geometry(), window.rect());
    window.showNormal();
    QTRY_VERIFY(window.contentsRect() != window.rect());
    QTRY_COMPARE(inner->geometry(), window.contentsRect());
#endif
    // The window's contents may lie on all of it all the same.
    window.setAttribute(Qt::WA_LayoutOnEntireRect);
    window.resize(450, 350);
    QTRY_COMPARE(inner->geometry(), QRect(0, 0, 450, 350));
}

void tst_KestLoadingDialog::overlayFillsAnyOtherWindow()
{
    Window window;
    window.setContentsMargins(30, 20, 10, 5);
    window.show();
    KestLoadingDialog overlay(&window);
    auto *inner = overlay.findChild<QWidget *>(QStringLiteral("widget"));
    overlay.show();
    QTRY_COMPARE(inner->geometry(), window.rect());
    overlay.hide();
    overlay.setContentsMargins(1, 2, 3, 4);
    overlay.show();
    QTRY_COMPARE(inner->geometry(), window.rect().adjusted(1, 2, -3, -4));
    QCOMPARE(overlay.contentsMargins(), QMargins(1, 2, 3, 4));
}

void tst_KestLoadingDialog::windowShowsThrough()
{
    Window window;
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0, 0, 0));
    window.setPalette(palette);
    window.show();
    KestLoadingDialog overlay(&window);
    QColor color;
    execAnd(&overlay, [&] {
        color = window.grab().toImage().pixelColor(20, 20);
        overlay.done();
    });
    QCOMPARE(color, QColor(100, 100, 100));
}

void tst_KestLoadingDialog::movieIsReplaced()
{
    Window window;
    KestLoadingDialog overlay(&window);
    const QPointer<QMovie> first(overlay.movie());
    const QPointer<QMovie> second(new QMovie(QString::fromLatin1(LoadingGif)));
    overlay.setMovie(second);
    QVERIFY(first.isNull());
    QCOMPARE(overlay.movie(), second);
    auto *third = new QMovie(QString::fromLatin1(LoadingGif));
    overlay.setMovie(third);
    QVERIFY(second.isNull());
    QCOMPARE(overlay.findChild<QLabel *>()->movie(), third);
}

void tst_KestLoadingDialog::newMovieRunsWhileVisible()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    overlay.setMovie(new QMovie(QString::fromLatin1(LoadingGif)));
    QCOMPARE(overlay.movie()->state(), QMovie::NotRunning);
    overlay.show();
    QCOMPARE(overlay.movie()->state(), QMovie::Running);
    overlay.setMovie(new QMovie(QString::fromLatin1(LoadingGif)));
    QCOMPARE(overlay.movie()->state(), QMovie::Running);
    // It is not seen either while the window is hidden.
    window.hide();
    QCOMPARE(overlay.movie()->state(), QMovie::NotRunning);
    window.show();
    QCOMPARE(overlay.movie()->state(), QMovie::Running);
}

void tst_KestLoadingDialog::sameMovieIsKept()
{
    Window window;
    KestLoadingDialog overlay(&window);
    const QPointer<QMovie> movie(overlay.movie());
    overlay.setMovie(movie);
    QVERIFY(!movie.isNull());
    QCOMPARE(overlay.movie(), movie);
}

void tst_KestLoadingDialog::nullMovieShowsNone()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    overlay.setMovie(nullptr);
    QVERIFY(!overlay.movie());
    QCOMPARE(execAnd(&overlay, [&] { overlay.done(); }), KestLoadingDialog::Done);
}

void tst_KestLoadingDialog::movieWithAParentKeepsIt()
{
    Window window;
    const QPointer<QMovie> shared(
        new QMovie(QString::fromLatin1(LoadingGif), QByteArray(), &window));
    const QPointer<QMovie> own(new QMovie(QString::fromLatin1(LoadingGif)));
    auto *first = new KestLoadingDialog(&window);
    KestLoadingDialog second(&window);
    first->setMovie(shared);
    second.setMovie(shared);
    QCOMPARE(shared->parent(), &window);
    delete first;
    QVERIFY(!shared.isNull());
    QCOMPARE(second.movie(), shared);

    auto *third = new KestLoadingDialog(&window);
    third->setMovie(own);
    QCOMPARE(own->parent(), third);
    delete third;
    QVERIFY(own.isNull());
}

void tst_KestLoadingDialog::sharedMovieRunsWhileOneOverlayShowsIt()
{
    Window window;
    Window other;
    window.show();
    other.show();
    auto *shared = new QMovie(QString::fromLatin1(LoadingGif), QByteArray(), &window);
    KestLoadingDialog first(&window);
    KestLoadingDialog second(&other);
    first.setMovie(shared);
    second.setMovie(shared);
    first.show();
    second.show();
    first.hide();
    QCOMPARE(shared->state(), QMovie::Running);
    second.hide();
    QCOMPARE(shared->state(), QMovie::NotRunning);
    // An overlay of a hidden window shows none.
    first.show();
    second.show();
    other.hide();
    QCOMPARE(shared->state(), QMovie::Running);
    QVERIFY(!second.isHidden());
    first.hide();
    QCOMPARE(shared->state(), QMovie::NotRunning);
}

void tst_KestLoadingDialog::pausedMovieRunsOnWhenItIsShown()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    QMovie *const movie = overlay.movie();
    movie->start();
    for (int i = 0; i < 3; ++i)
        QVERIFY(movie->jumpToNextFrame());
    movie->setPaused(true);
    overlay.show();
    QCOMPARE(movie->state(), QMovie::Running);
    QCOMPARE(movie->currentFrameNumber(), 3); // and not from the beginning
}

void tst_KestLoadingDialog::withoutAWindowItCoversNothing()
{
    KestLoadingDialog overlay(nullptr);
    QCOMPARE(overlay.exec(), KestLoadingDialog::Canceled);
    QVERIFY(!overlay.isVisible());
    const QRect geometry(30, 40, 200, 100);
    overlay.setGeometry(geometry);
    overlay.show();
    QCOMPARE(overlay.geometry(), geometry);
}

void tst_KestLoadingDialog::otherKeysDoNotCancel()
{
    Window window;
    window.show();
    KestLoadingDialog overlay(&window);
    overlay.setCancelEnable(true);
    QTimer::singleShot(0, &overlay, [&overlay] {
        for (const int key : { Qt::Key_A, Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Tab })
            QTest::keyClick(&overlay, Qt::Key(key));
        QTimer::singleShot(20, &overlay, &KestLoadingDialog::done);
    });
    QCOMPARE(overlay.exec(), KestLoadingDialog::Done);
}

void tst_KestLoadingDialog::focusComesAndGoesForNoKey()
{
    class Reasons : public QObject
    {
    public:
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::FocusIn)
                list.append(static_cast<QFocusEvent *>(event)->reason());
            return false;
        }
        QList<Qt::FocusReason> list;
    };
    Window window;
    auto *edit = new QLineEdit(&window);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    edit->setFocus();
    KestLoadingDialog overlay(&window);
    Reasons reasons;
    overlay.installEventFilter(&reasons);
    edit->installEventFilter(&reasons);
    QTimer::singleShot(0, &overlay, &KestLoadingDialog::done);
    overlay.exec();
    QCOMPARE(reasons.list, (QList<Qt::FocusReason> { Qt::OtherFocusReason, Qt::OtherFocusReason }));
}

QTEST_MAIN(tst_KestLoadingDialog)
#include "tst_kestloadingdialog.moc"
