// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestWindow.h"

#include "KestNavigationBar.h"
#include "KestTitleBar.h"
#include "MoveBarProbe.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDesktopWidget>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QVBoxLayout>

namespace {

QVBoxLayout *rowOf(const KestWindow &window, const char *name)
{
    return window.findChild<QVBoxLayout *>(QLatin1String(name));
}

void deleteDeferred()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QStringList debugLines;

void collectLine(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtDebugMsg)
        debugLines.append(text);
}

QIcon redIcon()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    return QIcon(pixmap);
}

} // namespace

class tst_KestWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newWindowHasANameAndASize();
    void windowIsTopLevelWithAndWithoutParent();
    void windowOffersAllWindowButtons();
    void metaObjectHasOneSlotOnly();
    void layoutsStandInOrder();
    void newWindowHasATitleBarAndAnEmptyCentralWidget();
    void newWindowHasNeitherNavigationNorStatusBar();
    void rowsFollowOneAnotherOnTheShownWindow();

    void titleBarIsCreatedWhereThereIsNone();
    void titleBarIsCreatedAnewAfterItWasDeleted();
    void navigationBarIsCreatedOnRequest();
    void statusBarIsCreatedOnRequest();
    void replacedBarsAreHiddenAndDeletedLater();
    void settingTheSameBarAgainChangesNothing();
    void clearedBarsLeaveNothingBehind();
    void menuBarIsTheTitleBars();
    void menuBarIsNullWithoutTitleBar();
    void menuBarIsIgnoredWithoutTitleBar();

    void centralWidgetGivesTitleIconAndSize();
    void centralWidgetOnAWindowWithoutTitleBarCreatesOne();
    void centralWidgetsTitleIsFollowed();
    void hiddenCentralWidgetsSizeIsFollowedWithItsTitle();
    void shownCentralWidgetsSizeIsNotFollowed();
    void replacedCentralWidgetIsNotFollowed();
    void clearedCentralWidgetIsDeletedLater();
    void centralWidgetDeletedByItsOwnerIsForgotten();

    void titleBarMovesTheWindow();
    void navigationBarMovesTheWindowBeforeItIsShown();
    void navigationBarDoesNotMoveTheShownWindow();
    void hiddenTitleBarHandsOverToTheNavigationBar();
    void closedTitleBarHandsOverToTheNavigationBar();
    void clearedTitleBarHandsOverToTheNavigationBar();
    void newTitleBarMovesTheWindowOnceItIsShown();
    void replacedNavigationBarNoLongerMovesTheWindow();
    void furtherMoveBarsMoveTheWindow();

    void walkScalesBarsAndContents();
    void walkWithRateOneBringsTheSheetsBack();
    void savedSizesAreThoseOfBarsAndContents();
    void nullObjectsAreIgnored();

    void burstOfResizesEndsInOneScreenCheck();
    void screenChangeIsWrittenOncePerFilteredObject();
    void filteredEventsAreNotConsumed();
    void autoScalingChangesNothing();

    void barsMayDieInAnyOrder();
    void windowDiesWithItsParent();
};

void tst_KestWindow::newWindowHasANameAndASize()
{
    KestWindow window;
    QCOMPARE(window.objectName(), QStringLiteral("KestWindow"));
    QCOMPARE(window.size(), QSize(160, 160));
    QVERIFY(!window.isVisible());
}

void tst_KestWindow::windowIsTopLevelWithAndWithoutParent()
{
    QWidget parent;
    KestWindow alone;
    auto *child = new KestWindow(&parent);
    for (KestWindow *window : { &alone, child }) {
        QVERIFY(window->isWindow());
        QCOMPARE(window->windowType(), Qt::Window);
        QVERIFY(window->windowFlags().testFlag(Qt::FramelessWindowHint));
    }
    QCOMPARE(child->parentWidget(), &parent);
    parent.show();
    child->show();
    QVERIFY(child->windowHandle());
    QVERIFY(child->windowHandle()->isTopLevel());
}

void tst_KestWindow::windowOffersAllWindowButtons()
{
    KestWindow window;
    for (const Qt::WindowType hint : { Qt::WindowMinimizeButtonHint, Qt::WindowMaximizeButtonHint,
                                       Qt::WindowCloseButtonHint }) {
        QVERIFY(window.windowFlags().testFlag(hint));
    }
    window.show();
    for (const char *name : { "minimumSizeBtn", "maximumSizeBtn", "closeBtn" }) {
        const auto *button = window.titleBar()->findChild<QWidget *>(QLatin1String(name));
        QVERIFY2(button && button->isVisible(), name);
    }
}

void tst_KestWindow::metaObjectHasOneSlotOnly()
{
    const QMetaObject &meta = KestWindow::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    const QMetaMethod slot = meta.method(meta.methodOffset());
    QCOMPARE(slot.methodSignature(), QByteArray("adaptScreenDPI()"));
    QCOMPARE(slot.methodType(), QMetaMethod::Slot);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    KestWindow window;
    QVERIFY(QMetaObject::invokeMethod(&window, "adaptScreenDPI"));
}

void tst_KestWindow::layoutsStandInOrder()
{
    KestWindow window;
    auto *grid = qobject_cast<QGridLayout *>(window.layout());
    QVERIFY(grid);
    QCOMPARE(grid->objectName(), QStringLiteral("gridLayout"));
    QCOMPARE(grid->spacing(), 0);
    QCOMPARE(grid->contentsMargins(), QMargins());
    QCOMPARE(grid->count(), 1);

    auto *rows = qobject_cast<QVBoxLayout *>(grid->itemAtPosition(0, 0)->layout());
    QVERIFY(rows);
    QCOMPARE(rows->objectName(), QStringLiteral("verticalLayout"));
    QCOMPARE(rows->spacing(), 0);
    QCOMPARE(rows->alignment(), Qt::AlignLeft | Qt::AlignTop);
    QCOMPARE(rows->count(), 4);

    const char *names[] = { "titleLayout", "menuBarLayout", "contentLayout", "statusBarLayout" };
    const QLayout::SizeConstraint constraints[] = { QLayout::SetMinimumSize,
                                                    QLayout::SetMinimumSize,
                                                    QLayout::SetDefaultConstraint,
                                                    QLayout::SetMinimumSize };
    const int stretches[] = { 0, 0, 1, 0 };
    for (int i = 0; i < 4; ++i) {
        auto *row = qobject_cast<QVBoxLayout *>(rows->itemAt(i)->layout());
        QVERIFY(row);
        QCOMPARE(row->objectName(), QLatin1String(names[i]));
        QCOMPARE(row->sizeConstraint(), constraints[i]);
        QCOMPARE(rows->stretch(i), stretches[i]);
    }
}

void tst_KestWindow::newWindowHasATitleBarAndAnEmptyCentralWidget()
{
    KestWindow window;
    auto *bar = window.findChild<KestTitleBar *>();
    QVERIFY(bar);
    QCOMPARE(window.titleBar(), bar);
    QCOMPARE(window.findChildren<KestTitleBar *>().size(), 1);
    QCOMPARE(rowOf(window, "titleLayout")->itemAt(0)->widget(), bar);

    QWidget *const central = window.centralWidget();
    QVERIFY(central);
    QCOMPARE(central->metaObject()->className(), "QWidget");
    QCOMPARE(rowOf(window, "contentLayout")->itemAt(0)->widget(), central);
    QVERIFY(!central->autoFillBackground());
}

void tst_KestWindow::newWindowHasNeitherNavigationNorStatusBar()
{
    KestWindow window;
    QVERIFY(!window.findChild<KestNavigationBar *>());
    QVERIFY(!window.findChild<QStatusBar *>());
    QCOMPARE(rowOf(window, "menuBarLayout")->count(), 0);
    QCOMPARE(rowOf(window, "statusBarLayout")->count(), 0);
}

void tst_KestWindow::rowsFollowOneAnotherOnTheShownWindow()
{
    KestWindow window;
    auto *central = new QLabel;
    window.setCentralWidget(central);
    QWidget *const rows[] = { window.titleBar(), window.navigationBar(), central,
                              window.statusBar() };
    window.resize(600, 400);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    const QRect inner = window.contentsRect();
    int top = inner.top();
    for (QWidget *row : rows) {
        QCOMPARE(row->geometry().top(), top);
        QCOMPARE(row->geometry().left(), inner.left());
        QCOMPARE(row->geometry().right(), inner.right());
        top = row->geometry().bottom() + 1;
    }
    QCOMPARE(top, inner.bottom() + 1);
    // All spare height goes to the central widget.
    const int height = central->height();
    window.resize(600, 450);
    QCOMPARE(central->height(), height + 50);
}

void tst_KestWindow::titleBarIsCreatedWhereThereIsNone()
{
    KestWindow window;
    const QPointer<KestTitleBar> first(window.titleBar());
    window.setTitleBar(nullptr);
    QVERIFY(first->isHidden());
    KestTitleBar *const second = window.titleBar();
    QVERIFY(second);
    QVERIFY(second != first);
    QCOMPARE(second->parentWidget(), &window);
    deleteDeferred();
    QVERIFY(first.isNull());
    QCOMPARE(rowOf(window, "titleLayout")->count(), 1);
    QCOMPARE(rowOf(window, "titleLayout")->itemAt(0)->widget(), second);
}

void tst_KestWindow::titleBarIsCreatedAnewAfterItWasDeleted()
{
    KestWindow window;
    window.show();
    delete window.titleBar();
    QVERIFY(!window.menuBar());
    KestTitleBar *const bar = window.titleBar();
    QVERIFY(bar);
    QTRY_VERIFY(bar->isVisible());
    QVERIFY(movesItsWindow(bar));
}

void tst_KestWindow::navigationBarIsCreatedOnRequest()
{
    KestWindow window;
    KestNavigationBar *const bar = window.navigationBar();
    QVERIFY(bar);
    QCOMPARE(bar->parentWidget(), &window);
    QCOMPARE(window.navigationBar(), bar);
    QCOMPARE(rowOf(window, "menuBarLayout")->count(), 1);
    QCOMPARE(rowOf(window, "menuBarLayout")->itemAt(0)->widget(), bar);
    delete bar;
    QVERIFY(window.navigationBar());
}

void tst_KestWindow::statusBarIsCreatedOnRequest()
{
    KestWindow window;
    QStatusBar *const bar = window.statusBar();
    QVERIFY(bar);
    QCOMPARE(bar->parentWidget(), &window);
    QCOMPARE(window.statusBar(), bar);
    QCOMPARE(bar->sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
    QCOMPARE(bar->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(bar->sizePolicy().controlType(), QSizePolicy::DefaultType);
    QCOMPARE(rowOf(window, "statusBarLayout")->itemAt(0)->widget(), bar);
    delete bar;
    QVERIFY(window.statusBar());
}

void tst_KestWindow::replacedBarsAreHiddenAndDeletedLater()
{
    KestWindow window;
    window.show();
    const QPointer<QWidget> old[] = { window.titleBar(), window.navigationBar(),
                                      window.statusBar() };
    QTRY_VERIFY(old[1]->isVisible());

    auto *title = new KestTitleBar(&window);
    auto *navigation = new KestNavigationBar;
    auto *status = new QStatusBar;
    window.setTitleBar(title);
    window.setNavigationBar(navigation);
    window.setStatusBar(status);

    for (const QPointer<QWidget> &bar : old) {
        QVERIFY(!bar.isNull());
        QVERIFY(bar->isHidden());
        QCOMPARE(bar->parentWidget(), &window);
    }
    deleteDeferred();
    for (const QPointer<QWidget> &bar : old)
        QVERIFY(bar.isNull());
    QCOMPARE(window.titleBar(), title);
    QCOMPARE(window.navigationBar(), navigation);
    QCOMPARE(window.statusBar(), status);
    QCOMPARE(rowOf(window, "titleLayout")->itemAt(0)->widget(), title);
    QCOMPARE(rowOf(window, "menuBarLayout")->itemAt(0)->widget(), navigation);
    QCOMPARE(rowOf(window, "statusBarLayout")->itemAt(0)->widget(), status);
    QTRY_VERIFY(title->isVisible() && navigation->isVisible() && status->isVisible());
    // A status bar of the host's keeps the size policy it came with.
    QCOMPARE(status->sizePolicy(), QStatusBar().sizePolicy());
}

void tst_KestWindow::settingTheSameBarAgainChangesNothing()
{
    KestWindow window;
    window.show();
    KestTitleBar *const title = window.titleBar();
    KestNavigationBar *const navigation = window.navigationBar();
    QStatusBar *const status = window.statusBar();
    QWidget *const central = window.centralWidget();
    window.setWindowTitle(QStringLiteral("kept"));
    window.setTitleBar(title);
    window.setNavigationBar(navigation);
    window.setStatusBar(status);
    window.setStatusBar(status);
    window.setCentralWidget(central);
    deleteDeferred();
    QCOMPARE(window.titleBar(), title);
    QVERIFY(!title->isHidden());
    QCOMPARE(window.windowTitle(), QStringLiteral("kept"));
    for (const char *row : { "titleLayout", "menuBarLayout", "contentLayout", "statusBarLayout" })
        QCOMPARE(rowOf(window, row)->count(), 1);
}

void tst_KestWindow::clearedBarsLeaveNothingBehind()
{
    KestWindow window;
    window.navigationBar();
    window.statusBar();
    window.setTitleBar(nullptr);
    window.setNavigationBar(nullptr);
    window.setStatusBar(nullptr);
    window.setTitleBar(nullptr);
    window.setNavigationBar(nullptr);
    window.setStatusBar(nullptr);
    deleteDeferred();
    QVERIFY(!window.findChild<KestTitleBar *>());
    QVERIFY(!window.findChild<KestNavigationBar *>());
    QVERIFY(!window.findChild<QStatusBar *>());
    for (const char *row : { "titleLayout", "menuBarLayout", "statusBarLayout" })
        QCOMPARE(rowOf(window, row)->count(), 0);
}

void tst_KestWindow::menuBarIsTheTitleBars()
{
    KestWindow window;
    QVERIFY(!window.findChild<QMenuBar *>());
    QMenuBar *const created = window.menuBar();
    QVERIFY(created);
    QCOMPARE(created, window.titleBar()->menuBar());
    auto *own = new QMenuBar;
    window.setMenuBar(own);
    QCOMPARE(window.menuBar(), own);
    QCOMPARE(own->parentWidget(), window.titleBar());
}

void tst_KestWindow::menuBarIsNullWithoutTitleBar()
{
    KestWindow window;
    window.setTitleBar(nullptr);
    deleteDeferred();
    QVERIFY(!window.menuBar());
    QVERIFY(!window.findChild<KestTitleBar *>());
}

void tst_KestWindow::menuBarIsIgnoredWithoutTitleBar()
{
    KestWindow window;
    window.setTitleBar(nullptr);
    deleteDeferred();
    QMenuBar bar;
    window.setMenuBar(&bar);
    QVERIFY(!bar.parentWidget());
    QVERIFY(!window.findChild<KestTitleBar *>());
}

void tst_KestWindow::centralWidgetGivesTitleIconAndSize()
{
    KestWindow window;
    const QPointer<QWidget> placeholder(window.centralWidget());
    auto *central = new QWidget;
    central->resize(500, 300);
    central->setWindowTitle(QStringLiteral("Report"));
    const QIcon icon = redIcon();
    central->setWindowIcon(icon);

    window.setCentralWidget(central);

    QCOMPARE(window.centralWidget(), central);
    QCOMPARE(central->parentWidget(), &window);
    QVERIFY(central->autoFillBackground());
    QCOMPARE(window.windowTitle(), QStringLiteral("Report"));
    QCOMPARE(window.windowIcon().cacheKey(), icon.cacheKey());
    QCOMPARE(window.size(), QSize(500, 300 + window.titleBar()->height()));
    QVERIFY(placeholder->isHidden());
    deleteDeferred();
    QVERIFY(placeholder.isNull());
    QCOMPARE(rowOf(window, "contentLayout")->count(), 1);
}

void tst_KestWindow::centralWidgetOnAWindowWithoutTitleBarCreatesOne()
{
    KestWindow window;
    window.setTitleBar(nullptr);
    deleteDeferred();
    auto *central = new QWidget;
    central->resize(500, 300);
    window.setCentralWidget(central);
    auto *bar = window.findChild<KestTitleBar *>();
    QVERIFY(bar);
    QCOMPARE(window.height(), 300 + bar->height());
}

void tst_KestWindow::centralWidgetsTitleIsFollowed()
{
    KestWindow window;
    QWidget *const placeholder = window.centralWidget();
    placeholder->setWindowTitle(QStringLiteral("first"));
    QCOMPARE(window.windowTitle(), QStringLiteral("first"));

    auto *central = new QWidget;
    window.setCentralWidget(central);
    QCOMPARE(window.windowTitle(), QString());
    central->setWindowTitle(QStringLiteral("second"));
    QCOMPARE(window.windowTitle(), QStringLiteral("second"));
}

void tst_KestWindow::hiddenCentralWidgetsSizeIsFollowedWithItsTitle()
{
    KestWindow window;
    auto *central = new QWidget;
    window.setCentralWidget(central);
    central->resize(420, 240);
    QVERIFY(central->testAttribute(Qt::WA_PendingResizeEvent));
    central->setWindowTitle(QStringLiteral("sized"));
    QCOMPARE(window.size(), QSize(420, 240));
}

void tst_KestWindow::shownCentralWidgetsSizeIsNotFollowed()
{
    KestWindow window;
    auto *central = new QWidget;
    central->resize(500, 300);
    window.setCentralWidget(central);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QSize size = window.size();
    QVERIFY(!central->testAttribute(Qt::WA_PendingResizeEvent));
    central->setWindowTitle(QStringLiteral("shown"));
    QCOMPARE(window.size(), size);
}

void tst_KestWindow::replacedCentralWidgetIsNotFollowed()
{
    KestWindow window;
    QWidget *const placeholder = window.centralWidget();
    window.setCentralWidget(new QWidget);
    window.setWindowTitle(QStringLiteral("kept"));
    placeholder->setWindowTitle(QStringLiteral("stale"));
    QCOMPARE(window.windowTitle(), QStringLiteral("kept"));
}

void tst_KestWindow::clearedCentralWidgetIsDeletedLater()
{
    KestWindow window;
    const QPointer<QWidget> central(window.centralWidget());
    const QSize size = window.size();
    window.setWindowTitle(QStringLiteral("kept"));
    window.setCentralWidget(nullptr);
    QVERIFY(!window.centralWidget());
    QVERIFY(central->isHidden());
    deleteDeferred();
    QVERIFY(central.isNull());
    QCOMPARE(window.size(), size);
    QCOMPARE(window.windowTitle(), QStringLiteral("kept"));
}

void tst_KestWindow::centralWidgetDeletedByItsOwnerIsForgotten()
{
    KestWindow window;
    delete window.centralWidget();
    QVERIFY(!window.centralWidget());
    auto *central = new QWidget;
    window.setCentralWidget(central);
    QCOMPARE(window.centralWidget(), central);
}

void tst_KestWindow::titleBarMovesTheWindow()
{
    KestWindow window;
    window.resize(500, 300);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(movesItsWindow(window.titleBar()));
    QVERIFY(!movesItsWindow(window.centralWidget()));
}

void tst_KestWindow::navigationBarMovesTheWindowBeforeItIsShown()
{
    KestWindow window;
    window.resize(500, 300);
    window.navigationBar();
    QVERIFY(movesItsWindow(window.navigationBar()));
}

void tst_KestWindow::navigationBarDoesNotMoveTheShownWindow()
{
    KestWindow window;
    window.resize(500, 300);
    window.navigationBar();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(!movesItsWindow(window.navigationBar()));
    QVERIFY(movesItsWindow(window.titleBar()));

    // Nor does one that is set while the title bar is shown.
    window.setNavigationBar(new KestNavigationBar);
    QVERIFY(!movesItsWindow(window.navigationBar()));
}

void tst_KestWindow::hiddenTitleBarHandsOverToTheNavigationBar()
{
    KestWindow window;
    window.resize(500, 300);
    window.navigationBar();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.titleBar()->hide();
    QVERIFY(movesItsWindow(window.navigationBar()));
    QVERIFY(!movesItsWindow(window.titleBar()));
    window.titleBar()->show();
    QVERIFY(!movesItsWindow(window.navigationBar()));
    QVERIFY(movesItsWindow(window.titleBar()));
}

void tst_KestWindow::closedTitleBarHandsOverToTheNavigationBar()
{
    KestWindow window;
    window.resize(500, 300);
    window.navigationBar();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    // A close that is sent without the hiding that goes with one.
    QCloseEvent close;
    QCoreApplication::sendEvent(window.titleBar(), &close);
    QVERIFY(movesItsWindow(window.navigationBar()));
    QVERIFY(!movesItsWindow(window.titleBar()));
}

void tst_KestWindow::clearedTitleBarHandsOverToTheNavigationBar()
{
    KestWindow window;
    window.resize(500, 300);
    window.navigationBar();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.setTitleBar(nullptr);
    QVERIFY(movesItsWindow(window.navigationBar()));

    // Also where the bar was cleared before the window was ever shown.
    KestWindow other;
    other.setTitleBar(nullptr);
    other.navigationBar();
    other.show();
    QVERIFY(QTest::qWaitForWindowExposed(&other));
    QVERIFY(movesItsWindow(other.navigationBar()));
}

void tst_KestWindow::newTitleBarMovesTheWindowOnceItIsShown()
{
    KestWindow window;
    window.resize(500, 300);
    window.navigationBar();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QPointer<KestTitleBar> old(window.titleBar());
    auto *bar = new KestTitleBar(&window);
    window.setTitleBar(bar);
    QVERIFY(!movesItsWindow(window.navigationBar()));
    QVERIFY(!movesItsWindow(old));
    if (!bar->isVisible())
        QVERIFY(!movesItsWindow(bar));
    QTRY_VERIFY(bar->isVisible());
    QVERIFY(movesItsWindow(bar));
}

void tst_KestWindow::replacedNavigationBarNoLongerMovesTheWindow()
{
    KestWindow window;
    window.resize(500, 300);
    window.setTitleBar(nullptr);
    KestNavigationBar *const old = window.navigationBar();
    QVERIFY(movesItsWindow(old));
    window.setNavigationBar(new KestNavigationBar);
    QVERIFY(!movesItsWindow(old));
    QVERIFY(movesItsWindow(window.navigationBar()));
}

void tst_KestWindow::furtherMoveBarsMoveTheWindow()
{
    KestWindow window;
    window.resize(500, 300);
    window.addMoveBar(window.centralWidget());
    QVERIFY(movesItsWindow(window.centralWidget()));
    window.removeMoveBar(window.centralWidget());
    QVERIFY(!movesItsWindow(window.centralWidget()));
    window.addMoveBar(nullptr);
    window.removeMoveBar(nullptr);
}

void tst_KestWindow::walkScalesBarsAndContents()
{
    KestWindow window;
    window.titleBar()->setStyleSheet(QStringLiteral("margin: 2px"));
    window.centralWidget()->setStyleSheet(QStringLiteral("margin: 4px"));
    window.setStyleSheet(QStringLiteral("QLabel { margin: 6px }"));
    window.ChangeObjectSizeAndFontSize(&window, 1.5, 1.0);
    QCOMPARE(window.titleBar()->styleSheet(), QStringLiteral("margin: 3px"));
    QCOMPARE(window.centralWidget()->styleSheet(), QStringLiteral("margin: 6px"));
    QCOMPARE(window.styleSheet(), QStringLiteral("QLabel { margin: 6px }"));
    QCOMPARE(window.titleBar()->property("geoRate"), QVariant(1.5));
    QVERIFY(!window.property("geoRate").isValid());
    // Not even a second time.
    window.ChangeObjectSizeAndFontSize(&window, 2.0, 1.0);
    QCOMPARE(window.titleBar()->styleSheet(), QStringLiteral("margin: 4px"));
}

void tst_KestWindow::walkWithRateOneBringsTheSheetsBack()
{
    KestWindow window;
    auto *button = new QPushButton(window.centralWidget());
    const QString sheet = QStringLiteral("padding: 3px; margin: 1px");
    button->setStyleSheet(sheet);
    window.ChangeObjectSizeAndFontSize(&window, 1.5, 1.5);
    QVERIFY(button->styleSheet() != sheet);
    window.ChangeObjectSizeAndFontSize(&window, 1.0, 1.0);
    QCOMPARE(button->styleSheet(), sheet);
}

void tst_KestWindow::savedSizesAreThoseOfBarsAndContents()
{
    KestWindow window;
    auto *button = new QPushButton(window.centralWidget());
    QFont font = button->font();
    font.setPointSize(31);
    button->setFont(font);
    window.titleBar()->setIconSize(QSize(20, 21));
    window.navigationBar()->setIconSize(QSize(18, 19));

    window.saveObjectSize(&window);

    QCOMPARE(window.titleBar()->property("originIconSize"), QVariant(QSize(20, 21)));
    QCOMPARE(window.titleBar()->property("originFont").value<QFont>(), window.titleBar()->font());
    QCOMPARE(window.navigationBar()->property("originIconSize"), QVariant(QSize(18, 19)));
    QCOMPARE(window.navigationBar()->property("originFont").value<QFont>(),
             window.navigationBar()->font());
    QCOMPARE(window.centralWidget()->property("originFont").value<QFont>(),
             window.centralWidget()->font());
    QCOMPARE(button->property("originFont").value<QFont>().pointSize(), 31);
    QVERIFY(!button->property("originIconSize").isValid());
    // The object itself and what is inside of the bars are left out.
    QVERIFY(!window.property("originFont").isValid());
    for (QWidget *part : window.titleBar()->findChildren<QWidget *>())
        QVERIFY(!part->property("originFont").isValid());
}

void tst_KestWindow::nullObjectsAreIgnored()
{
    KestWindow window;
    window.ChangeObjectSizeAndFontSize(nullptr, 2.0, 2.0);
    window.saveObjectSize(nullptr);
    QVERIFY(window.titleBar()->dynamicPropertyNames().isEmpty());
}

void tst_KestWindow::burstOfResizesEndsInOneScreenCheck()
{
    KestWindow window;
    QTimer *timer = nullptr;
    const auto timers = window.findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    for (QTimer *candidate : timers) {
        if (candidate->isSingleShot())
            timer = candidate;
    }
    QVERIFY(timer);
    QVERIFY(!timer->isActive());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTRY_VERIFY(!timer->isActive());

    QSignalSpy spy(timer, &QTimer::timeout);
    for (int i = 0; i < 5; ++i)
        window.resize(400 + i, 300);
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 10);
    QTRY_COMPARE(spy.count(), 1);
    QTest::qWait(30);
    QCOMPARE(spy.count(), 1);
}

void tst_KestWindow::screenChangeIsWrittenOncePerFilteredObject()
{
    KestWindow window;
    const QString text = QStringLiteral("KestWindow::eventFilter QEvent::ScreenChangeInternal "
                                        "screenNum= %1")
                             .arg(QApplication::desktop()->screenNumber(&window));
    QWidget *const receivers[] = { window.titleBar(), window.centralWidget(), &window };
    const QStringList expected[] = { { text }, { text }, {} }; // the window itself is not filtered
    for (int i = 0; i < 3; ++i) {
        debugLines.clear();
        const QtMessageHandler old = qInstallMessageHandler(collectLine);
        QEvent event(QEvent::ScreenChangeInternal);
        QCoreApplication::sendEvent(receivers[i], &event);
        qInstallMessageHandler(old);
        QCOMPARE(debugLines, expected[i]);
    }
}

void tst_KestWindow::filteredEventsAreNotConsumed()
{
    KestWindow window;
    KestTitleBar *const bar = window.titleBar();
    window.show();
    QVERIFY(bar->testAttribute(Qt::WA_Mapped));
    bar->hide();
    QVERIFY(!bar->isVisible());
    bar->show();
    QVERIFY(bar->isVisible());
}

void tst_KestWindow::autoScalingChangesNothing()
{
    KestWindow window;
    const QSize size = window.size();
    window.autoDPIScale(false);
    window.adaptScreenDPI();
    window.autoDPIScale(true);
    window.adaptScreenDPI();
    QCOMPARE(window.size(), size);
}

void tst_KestWindow::barsMayDieInAnyOrder()
{
    for (int first = 0; first < 4; ++first) {
        KestWindow window;
        window.show();
        QWidget *const parts[] = { window.titleBar(), window.navigationBar(), window.statusBar(),
                                   window.centralWidget() };
        for (int i = 0; i < 4; ++i) {
            delete parts[(first + i) % 4];
            window.resize(window.width() + 1, window.height());
        }
        QVERIFY(window.titleBar());
    }
}

void tst_KestWindow::windowDiesWithItsParent()
{
    auto *parent = new QWidget;
    const QPointer<KestWindow> window(new KestWindow(parent));
    window->navigationBar();
    window->show();
    delete parent;
    QVERIFY(window.isNull());
}

QTEST_MAIN(tst_KestWindow)
#include "tst_kestwindow.moc"
