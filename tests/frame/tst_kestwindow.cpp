// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestWindow.h"
#include "TestedQt.h"

#include "AnotherScreen.h"
#include "KestNavigationBar.h"
#include "KestTitleBar.h"
#include "MoveBarProbe.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>
#include <QtCore/QScopedPointer>
#include <QtCore/QTimer>
#include <QtGui/QAccessible>
#include <QtGui/QScreen>
#include <QtGui/QStatusTipEvent>
#include <QtGui/QWindow>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>
#include <QtWidgets/QWidgetAction>

#include <functional>
#include <utility>

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

// Calls back when something happens to a widget, once.
class Once : public QObject
{
    Q_OBJECT

public:
    Once(QObject *watched, QEvent::Type type, std::function<void()> act)
        : m_type(type), m_act(std::move(act))
    {
        watched->installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == m_type && m_act)
            std::exchange(m_act, nullptr)();
        return false;
    }

private:
    QEvent::Type m_type;
    std::function<void()> m_act;
};

bool activate(QWidget *window)
{
    window->show();
    QApplication::setActiveWindow(window);
    if (!QTest::qWaitForWindowActive(window))
        return false;
    // What the system says of it later must not come after what the test does next.
    QCoreApplication::processEvents();
    return true;
}

// The names of the widgets that Tab leads through, from the focus on until it is back there.
QStringList tabRound(bool forward = true)
{
    QStringList names;
    QWidget *const first = QApplication::focusWidget();
    do {
        QWidget *const focus = QApplication::focusWidget();
        if (!focus || names.size() > 20)
            return { QStringLiteral("lost") };
        names.append(focus->objectName());
        QTest::keyClick(focus, forward ? Qt::Key_Tab : Qt::Key_Backtab);
    } while (QApplication::focusWidget() != first);
    return names;
}

template <class Widget = QLineEdit>
Widget *named(const char *name, QWidget *parent = nullptr)
{
    auto *widget = new Widget(parent);
    widget->setObjectName(QLatin1String(name));
    return widget;
}

QWidget *form(const QStringList &names)
{
    auto *widget = new QWidget;
    auto *layout = new QVBoxLayout(widget);
    for (const QString &name : names)
        layout->addWidget(named(name.toLatin1().constData()));
    return widget;
}

// Counts the paints of a window when the pointer enters or leaves it.
int paintsForHover(QWidget *window, QEvent::Type type)
{
    class PaintCounter : public QObject
    {
    public:
        bool eventFilter(QObject *, QEvent *event) override
        {
            paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int paints = 0;
    };
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents();
    PaintCounter counter;
    window->installEventFilter(&counter);
    QHoverEvent event(type, QPointF(60, 60), QPointF(-1, -1));
    QCoreApplication::sendEvent(window, &event);
    QCoreApplication::processEvents();
    return counter.paints;
}

} // namespace

class tst_KestWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newWindowHasANameAndASize();
    void windowIsTopLevelWithAndWithoutParent();
    void windowOffersAllWindowButtons();
    void singleFlagLeavesTheFrame();
    void metaObjectHasOneSlotOnly();
    void layoutsStandInOrder();
    void newWindowHasATitleBarAndAnEmptyCentralWidget();
    void newWindowHasNeitherNavigationNorStatusBar();
    void rowsFollowOneAnotherOnTheShownWindow();
    void adjustedWindowHasRoomForItsContents();

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
    void centralWidgetOfAFormLeavesSizeTitleAndIcon();
    void barsOfAFormTakeTheirPlaces();
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
    void titleBarMovesTheWindowAfterItWasMinimised();
    void closedTitleBarHandsOverToTheNavigationBar();
    void clearedTitleBarHandsOverToTheNavigationBar();
    void newTitleBarMovesTheWindowOnceItIsShown();
    void visibleBarMovesTheWindowAtOnce();
    void barWithoutParentMovesTheWindow();
    void barWithoutParentFollowsTheWindow();
    void replacedNavigationBarNoLongerMovesTheWindow();
    void furtherMoveBarsMoveTheWindow();

    void walkScalesBarsAndContents();
    void walkWithRateOneBringsTheSheetsBack();
    void savedSizesAreThoseOfBarsAndContents();
    void nullObjectsAreIgnored();

    void burstOfResizesEndsInOneScreenCheck();
    void titleBarThatIsNotShownYetTakesTheMoving();
    void barsAreLastInTabOrderOnActivation();
    void screenChangeIsWrittenOncePerFilteredObject();
    void filteredEventsAreNotConsumed();
    void autoScalingChangesNothing();

    void statusTipsReachTheStatusBar();
    void statusTipsOfActionsReachTheStatusBar_data();
    void statusTipsOfActionsReachTheStatusBar();
    void statusTipsCreateNoStatusBar();

    void firstFocusIsThatOfTheContents_data();
    void firstFocusIsThatOfTheContents();
    void focusIsThatOfTheContentsAtEachShow();
    void screenReaderFindsAWindow();
    void focusStaysWhereItIsWhenContentsAreShown();
    void tabVisitsTheBarsLast();
    void tabVisitsTheBarsLastWhateverCameLater();
    void tabOrderOfTheContentsIsKept();
    void windowWithoutContentsGivesTheFocusToItsBar();
    void barWithoutFocusPolicyIsLeftOut();
    void oneBarIsThroughBeforeTheNextOne();
    void widgetThatTakesTheFocusLaterKeepsItsPlace();
    void onlyShowingActivatingAndTabbingOrderTheTabs();
    void orderingTabsLeavesTheWindowsOwnFocusAlone();

    void centralWidgetMayDieWhileItIsSet_data();
    void centralWidgetMayDieWhileItIsSet();
    void laterCentralWidgetWins_data();
    void laterCentralWidgetWins();
    void windowMayDieWhileItIsFilled_data();
    void windowMayDieWhileItIsFilled();
    void laterBarsWin();
    void barsClearedWhileTheyComeAreGone();
    void laterCentralWidgetWinsWhileATitleBarIsMade();
    void centralWidgetIsAllWhereItsTitleBarIsCleared();
    void centralWidgetThatTakesTheFocusHearsOfItsShow();
    void centralWidgetHearsOfItsTitle();
    void centralWidgetMayGoWhileItsTitleIsFollowed();
    void widgetsMayDieWhileTheirSizesAreSaved();
    void closeEventCanBeHandedOn();
    void barsMayDieInAnyOrder();
    void windowDiesWithItsParent();
    void messagesOfTheSystemAreLeftToQt();
    void pointerChangesNothingByItself();
    void hoverRulesAndSubclassesArePaintedAnew();
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

void tst_KestWindow::singleFlagLeavesTheFrame()
{
    KestWindow window;
    const Qt::WindowFlags flags = window.windowFlags();
    window.setWindowFlag(Qt::WindowStaysOnTopHint);
    QCOMPARE(window.windowFlags(), flags | Qt::WindowStaysOnTopHint);
}

void tst_KestWindow::metaObjectHasOneSlotOnly()
{
    const QMetaObject &meta = KestWindow::staticMetaObject;
    // Behind it what forms call by its name, which is no slot.
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    const QMetaMethod forms = meta.method(meta.methodOffset() + 1);
    QCOMPARE(forms.methodSignature(), QByteArray("addFormWidget(QWidget*)"));
    QCOMPARE(forms.methodType(), QMetaMethod::Method);
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

void tst_KestWindow::adjustedWindowHasRoomForItsContents()
{
    // And for its shadow, before it was ever shown.
    KestWindow window;
    auto *contents = new QPlainTextEdit;
    window.setCentralWidget(contents);
    window.adjustSize();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    QCOMPARE(contents->size(), contents->sizeHint());
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

void tst_KestWindow::centralWidgetOfAFormLeavesSizeTitleAndIcon()
{
    KestWindow window;
    const QPointer<QWidget> placeholder(window.centralWidget());
    window.setWindowTitle(QStringLiteral("Form"));
    window.setWindowIcon(redIcon());
    const qint64 icon = window.windowIcon().cacheKey();
    window.resize(500, 400);
    QSignalSpy titles(&window, &QWidget::windowTitleChanged);

    auto *central = new QWidget;
    central->setWindowTitle(QStringLiteral("Page"));
    central->resize(50, 60);
    window.addFormWidget(central);
    QCOMPARE(window.centralWidget(), central);
    QCOMPARE(rowOf(window, "contentLayout")->indexOf(central), 1);
    QVERIFY(central->autoFillBackground());
    QCOMPARE(window.size(), QSize(500, 400));
    QCOMPARE(window.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(window.windowIcon().cacheKey(), icon);
    QCOMPARE(titles.count(), 0);
    deleteDeferred();
    QVERIFY(!placeholder);

    // Neither null nor the same one changes anything.
    window.addFormWidget(nullptr);
    window.addFormWidget(central);
    deleteDeferred();
    QCOMPARE(window.centralWidget(), central);

    // It is a central widget as any other: its later title is the window's.
    central->setWindowTitle(QStringLiteral("Later"));
    QCOMPARE(window.windowTitle(), QStringLiteral("Later"));

    // Forms that are loaded find it by its name.
    auto *next = new QWidget;
    QVERIFY(QMetaObject::invokeMethod(&window, "addFormWidget", Q_ARG(QWidget *, next)));
    QCOMPARE(window.centralWidget(), next);
}

void tst_KestWindow::barsOfAFormTakeTheirPlaces()
{
    KestWindow window;
    QWidget *const central = window.centralWidget();
    auto *menus = new QMenuBar(&window);
    auto *navigation = new KestNavigationBar(&window);
    auto *status = new QStatusBar(&window);
    for (QWidget *bar : { static_cast<QWidget *>(status), static_cast<QWidget *>(menus),
                          static_cast<QWidget *>(navigation) }) {
        window.addFormWidget(bar);
    }
    QCOMPARE(window.menuBar(), menus);
    QCOMPARE(window.navigationBar(), navigation);
    QCOMPARE(window.statusBar(), status);
    QCOMPARE(window.centralWidget(), central);
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
    central->setWindowTitle(QString());
    QCOMPARE(window.windowTitle(), QString());
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

void tst_KestWindow::titleBarMovesTheWindowAfterItWasMinimised()
{
    // Which hides and shows what is in the window, as the system does.
    KestWindow window;
    window.resize(500, 300);
    window.navigationBar();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const auto see = [&window](QEvent &event) {
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(window.titleBar(), &event);
    };
    for (int i = 0; i < 2; ++i) {
        QHideEvent hide;
        see(hide);
        QVERIFY(movesItsWindow(window.navigationBar()));
        QVERIFY(!movesItsWindow(window.titleBar()));
        QShowEvent show;
        see(show);
        QVERIFY(!movesItsWindow(window.navigationBar()));
        QVERIFY(movesItsWindow(window.titleBar()));
    }
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

void tst_KestWindow::visibleBarMovesTheWindowAtOnce()
{
    KestWindow window;
    window.resize(500, 300);
    window.navigationBar();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    auto *bar = new KestTitleBar(&window);
    bar->show();
    QVERIFY(bar->isVisible());
    window.setTitleBar(bar);
    QVERIFY(movesItsWindow(bar));
    QVERIFY(!movesItsWindow(window.navigationBar()));
}

void tst_KestWindow::barWithoutParentMovesTheWindow()
{
    // Hidden, or shown by mistake as a window of its own.
    for (const bool shown : { false, true }) {
        KestWindow window;
        window.resize(500, 300);
        window.navigationBar();
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        auto *bar = new KestTitleBar;
        if (shown)
            bar->show();
        window.setTitleBar(bar);
        QCOMPARE(bar->parentWidget(), &window);
        QTRY_VERIFY(bar->isVisible());
        QVERIFY(movesItsWindow(bar));
        QVERIFY(!movesItsWindow(window.navigationBar()));
        bar->hide();
        QVERIFY(movesItsWindow(window.navigationBar()));
    }
}

void tst_KestWindow::barWithoutParentFollowsTheWindow()
{
    KestWindow window;
    window.setWindowIcon(redIcon());
    auto *bar = new KestTitleBar;
    window.setTitleBar(bar);
    window.resize(500, 300);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const auto *button = bar->findChild<QWidget *>(QStringLiteral("maximumSizeBtn"));
    QCOMPARE(bar->layout()->contentsMargins().left(), 16 + 8 + 16); // icon, position and gap
    window.showMaximized();
    QTRY_VERIFY(button->property("maximumsized").toBool());
    window.showNormal();
    QTRY_VERIFY(!button->property("maximumsized").toBool());
    QPixmap larger(24, 24);
    larger.fill(Qt::blue);
    window.setWindowIcon(QIcon(larger));
    QCOMPARE(bar->layout()->contentsMargins().left(), 24 + 8 + 16);
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

    // Each resize begins the wait anew, in either dimension.
    for (const QSize &size : { QSize(410, 300), QSize(410, 301) }) {
        timer->start(60000);
        window.resize(size);
        QVERIFY(timer->isActive());
        QCOMPARE(timer->interval(), 10);
        QVERIFY(timer->remainingTime() <= 10);
    }
    // What it ends in is the hook.
    QVERIFY(QObject::disconnect(timer, &QTimer::timeout, &window, &KestWindow::adaptScreenDPI));
}

void tst_KestWindow::screenChangeIsWrittenOncePerFilteredObject()
{
    const AnotherScreen another(QRect(800, 0, 800, 600), 1, false);
    KestWindow window;
    window.move(900, 100);
    window.winId();
    window.windowHandle()->setScreen(QGuiApplication::screens().last());
    QCOMPARE(numberOfScreen(&window), 1);
    const QString text = QStringLiteral("KestWindow::eventFilter QEvent::ScreenChangeInternal "
                                        "screenNum= %1")
                             .arg(numberOfScreen(&window));
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

void tst_KestWindow::statusTipsReachTheStatusBar()
{
    KestWindow window;
    auto *button = new QPushButton(window.centralWidget());
    window.statusBar();
    QStatusTipEvent tip(QStringLiteral("Explained"));
    QCoreApplication::sendEvent(button, &tip);
    QCOMPARE(window.statusBar()->currentMessage(), QStringLiteral("Explained"));
    QStatusTipEvent none((QString()));
    QCoreApplication::sendEvent(button, &none);
    QCOMPARE(window.statusBar()->currentMessage(), QString());
    // Also in a bar that replaced the first.
    window.setStatusBar(new QStatusBar);
    QStatusTipEvent again(QStringLiteral("Explained again"));
    QVERIFY(QCoreApplication::sendEvent(&window, &again));
    QCOMPARE(window.statusBar()->currentMessage(), QStringLiteral("Explained again"));
}

void tst_KestWindow::statusTipsOfActionsReachTheStatusBar_data()
{
    QTest::addColumn<QString>("place");
    for (const char *place : { "menu", "title bar", "navigation bar" })
        QTest::newRow(place) << place;
}

void tst_KestWindow::statusTipsOfActionsReachTheStatusBar()
{
    QFETCH(QString, place);
    KestWindow window;
    window.statusBar();
    auto *action = new QAction(QStringLiteral("Do"), &window);
    action->setStatusTip(QStringLiteral("Does it"));
    QMenu *menu = nullptr;
    if (place == QLatin1String("menu")) {
        menu = window.menuBar()->addMenu(QStringLiteral("File"));
        menu->addAction(action);
    } else if (place == QLatin1String("title bar")) {
        window.titleBar()->addAction(action);
    } else {
        window.navigationBar()->addAction(action);
    }
    window.resize(600, 400);
    QVERIFY(activate(&window));

    if (menu) {
        QTest::mouseClick(window.menuBar(), Qt::LeftButton, {},
                          window.menuBar()->actionGeometry(menu->menuAction()).center());
        QTRY_VERIFY(menu->isVisible());
        menu->setActiveAction(action);
        QTRY_COMPARE(window.statusBar()->currentMessage(), QStringLiteral("Does it"));
        menu->hide();
        QTRY_COMPARE(window.statusBar()->currentMessage(), QString());
        return;
    }
    const QList<QWidget *> widgets = action->associatedWidgets();
    QToolButton *button = nullptr;
    for (QWidget *widget : widgets)
        button = button ? button : qobject_cast<QToolButton *>(widget);
    QVERIFY(button);
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(button, &enter);
    QCOMPARE(window.statusBar()->currentMessage(), QStringLiteral("Does it"));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(button, &leave);
    QCOMPARE(window.statusBar()->currentMessage(), QString());
}

void tst_KestWindow::statusTipsCreateNoStatusBar()
{
    QWidget parent;
    auto *window = new KestWindow(&parent);
    QStatusTipEvent tip(QStringLiteral("Explained"));
    QCoreApplication::sendEvent(window->centralWidget(), &tip);
    QVERIFY(!window->findChild<QStatusBar *>());
    QVERIFY(!tip.isAccepted());
}

void tst_KestWindow::firstFocusIsThatOfTheContents_data()
{
    QTest::addColumn<QString>("filled");
    for (const char *filled : { "before it is shown", "after it was shown", "with bars first",
                                "with a new title bar", "into the empty widget" }) {
        QTest::newRow(filled) << filled;
    }
}

void tst_KestWindow::firstFocusIsThatOfTheContents()
{
    QFETCH(QString, filled);
    KestWindow window;
    if (filled == QLatin1String("after it was shown"))
        QVERIFY(activate(&window));
    if (filled == QLatin1String("with bars first")) {
        window.navigationBar()->addAction(QStringLiteral("Go"), KestNavigationBar::Left);
        window.titleBar()->addAction(new QAction(QStringLiteral("Do"), &window));
        named("search", window.titleBar());
    }
    if (filled == QLatin1String("into the empty widget"))
        named("first", window.centralWidget());
    else
        window.setCentralWidget(form({ "first", "second" }));
    if (filled == QLatin1String("with a new title bar"))
        window.setTitleBar(new KestTitleBar(&window));
    QVERIFY(activate(&window));
    auto *edit = window.findChild<QLineEdit *>(QStringLiteral("first"));
    QTRY_COMPARE(QApplication::focusWidget(), edit);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("text"));
    QCOMPARE(edit->text(), QStringLiteral("text"));
    QCOMPARE(window.titleBar()->focusPolicy(), Qt::StrongFocus);
}

void tst_KestWindow::screenReaderFindsAWindow()
{
    class Own : public KestWindow
    {
    };
    Own window;
    window.setWindowTitle(QStringLiteral("Notes"));
    QMainWindow plain;
    QAccessibleInterface *const found = QAccessible::queryAccessibleInterface(&window);
    QCOMPARE(found->role(), QAccessible::queryAccessibleInterface(&plain)->role());
    QCOMPARE(found->role(), QAccessible::Window);
    QCOMPARE(found->text(QAccessible::Name), QStringLiteral("Notes"));
    // Nobody else's widget becomes one.
    QWidget other;
    QCOMPARE(QAccessible::queryAccessibleInterface(&other)->role(), QAccessible::Client);
}

void tst_KestWindow::focusIsThatOfTheContentsAtEachShow()
{
    KestWindow window;
    window.setCentralWidget(form({ "first", "second" }));
    window.resize(400, 300);
    QVERIFY(activate(&window));
    auto *second = window.findChild<QLineEdit *>(QStringLiteral("second"));
    second->setFocus();
    window.hide();
    QVERIFY(activate(&window));
    QTRY_COMPARE(QApplication::focusWidget(), second);
    // A click on the close button gives the focus to the bar.
    auto *close = window.titleBar()->findChild<QWidget *>(QStringLiteral("closeBtn"));
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                      close->mapTo(&window, close->rect().center()));
    QTRY_VERIFY(!window.isVisible());
    QCOMPARE(window.focusWidget(), window.titleBar());
    QVERIFY(activate(&window));
    QTRY_COMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("first"));
}

void tst_KestWindow::focusStaysWhereItIsWhenContentsAreShown()
{
    KestWindow window;
    auto *inBar = new QLineEdit(window.titleBar());
    auto *contents = form({ "first", "second" });
    window.setCentralWidget(contents);
    auto *below = new QLineEdit;
    window.statusBar()->addWidget(below);
    window.resize(400, 300);
    inBar->show();
    QVERIFY(activate(&window));
    for (QWidget *widget : { inBar, below }) {
        widget->setFocus();
        contents->hide();
        contents->show();
        QCOMPARE(QApplication::focusWidget(), widget);
    }
    // The bar itself has it for want of anything else, but not when the window comes back.
    window.titleBar()->setFocus();
    QShowEvent restored;
    QSpontaneKeyEvent::setSpontaneous(&restored);
    qApp->notify(contents, &restored);
    QCOMPARE(QApplication::focusWidget(), window.titleBar());
    QShowEvent shown;
    QCoreApplication::sendEvent(contents, &shown);
    QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("first"));
}

void tst_KestWindow::tabVisitsTheBarsLast()
{
    KestWindow window;
    window.titleBar()->setObjectName(QStringLiteral("title"));
    auto *search = new QWidgetAction(&window);
    search->setDefaultWidget(named("search"));
    search->setObjectName(QStringLiteral("search"));
    window.titleBar()->addAction(search);
    QAction *const go =
        window.navigationBar()->addAction(QStringLiteral("Go"), KestNavigationBar::Left);
    go->setObjectName(QStringLiteral("go"));
    window.setCentralWidget(form({ "first", "second" }));
    QVERIFY(activate(&window));
    const QStringList round { "first", "second", "go", "search", "title" };
    QCOMPARE(tabRound(), round);
    QCOMPARE(tabRound(), round);
    const QStringList back { "first", "title", "search", "go", "second" };
    QCOMPARE(tabRound(false), back);
}

void tst_KestWindow::tabVisitsTheBarsLastWhateverCameLater()
{
    KestWindow window;
    window.titleBar()->setObjectName(QStringLiteral("title"));
    window.setCentralWidget(form({ "first" }));
    QVERIFY(activate(&window));
    QCOMPARE(tabRound(), QStringList({ "first", "title" }));

    window.centralWidget()->layout()->addWidget(named("second"));
    QAction *const go =
        window.navigationBar()->addAction(QStringLiteral("Go"), KestNavigationBar::Left);
    go->setObjectName(QStringLiteral("go"));
    window.statusBar()->addWidget(named("third"));
    QTRY_VERIFY(window.statusBar()->isVisible() && window.navigationBar()->isVisible());
    QCOMPARE(tabRound(), QStringList({ "first", "second", "third", "go", "title" }));

    window.setTitleBar(named<KestTitleBar>("new title", &window));
    window.centralWidget()->layout()->addWidget(named("fourth"));
    QTRY_VERIFY(window.titleBar()->isVisible());
    QCOMPARE(tabRound(), QStringList({ "first", "second", "third", "fourth", "go", "new title" }));

    // The focus of contents that go is not the title bar's.
    window.setCentralWidget(form({ "other" }));
    deleteDeferred();
    QTRY_VERIFY(window.centralWidget()->isVisible());
    QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("third"));
    QCOMPARE(tabRound(), QStringList({ "third", "other", "go", "new title" }));
}

void tst_KestWindow::tabOrderOfTheContentsIsKept()
{
    KestWindow window;
    window.titleBar()->setObjectName(QStringLiteral("title"));
    auto *central = new QWidget;
    auto *layout = new QVBoxLayout(central);
    auto *spin = named<QSpinBox>("spin");
    auto *combo = named<QComboBox>("combo");
    combo->setEditable(true);
    auto *edit = named("edit");
    auto *compound = named<QWidget>("compound");
    compound->setLayout(new QVBoxLayout);
    auto *inner = named("inner");
    compound->layout()->addWidget(inner);
    compound->layout()->addWidget(named("inner second"));
    compound->setFocusPolicy(Qt::StrongFocus);
    compound->setFocusProxy(inner);
    for (QWidget *widget : QList<QWidget *> { spin, combo, edit, compound })
        layout->addWidget(widget);
    window.setCentralWidget(central);
    // An order of the host's own, in which the title bar was given a place.
    QWidget::setTabOrder(window.titleBar(), edit);
    QWidget::setTabOrder(edit, spin);
    QWidget::setTabOrder(spin, compound);
    edit->setFocus();
    QVERIFY(activate(&window));
    const QStringList round = tabRound();
    QCOMPARE(round.indexOf(QStringLiteral("title")), round.size() - 1);
    QStringList contents = round;
    contents.removeLast();

    // As it is without bars.
    QWidget plain;
    auto *plainLayout = new QVBoxLayout(&plain);
    QVERIFY(window.close());
    central->setParent(nullptr);
    plainLayout->addWidget(central);
    QWidget::setTabOrder(edit, spin);
    QWidget::setTabOrder(spin, compound);
    edit->setFocus();
    QVERIFY(activate(&plain));
    QCOMPARE(contents, tabRound());
}

void tst_KestWindow::windowWithoutContentsGivesTheFocusToItsBar()
{
    KestWindow window;
    QVERIFY(activate(&window));
    QTRY_COMPARE(QApplication::focusWidget(), window.titleBar());
}

void tst_KestWindow::barWithoutFocusPolicyIsLeftOut()
{
    KestWindow window;
    window.titleBar()->setFocusPolicy(Qt::NoFocus);
    window.setCentralWidget(form({ "first", "second" }));
    QVERIFY(activate(&window));
    QCOMPARE(tabRound(), QStringList({ "first", "second" }));
}

void tst_KestWindow::oneBarIsThroughBeforeTheNextOne()
{
    // To Qt the title bar's contents come first, and the navigation bar takes the focus itself.
    KestWindow window;
    window.titleBar()->setObjectName(QStringLiteral("title"));
    named("in title", window.titleBar());
    window.setNavigationBar(named<KestNavigationBar>("navigation"));
    window.navigationBar()->setFocusPolicy(Qt::StrongFocus);
    window.setCentralWidget(form({ "first" }));
    named("in navigation", window.navigationBar());
    QVERIFY(activate(&window));
    QTRY_VERIFY(window.navigationBar()->isVisible());
    QCOMPARE(tabRound(),
             QStringList({ "first", "in navigation", "navigation", "in title", "title" }));
}

void tst_KestWindow::widgetThatTakesTheFocusLaterKeepsItsPlace()
{
    KestWindow window;
    window.titleBar()->setFocusPolicy(Qt::NoFocus);
    window.setCentralWidget(form({ "first", "second", "third" }));
    auto *second = window.findChild<QLineEdit *>(QStringLiteral("second"));
    second->setFocusPolicy(Qt::NoFocus);
    named("in title", window.titleBar());
    QVERIFY(activate(&window));
    QCOMPARE(tabRound(), QStringList({ "first", "third", "in title" }));
    second->setFocusPolicy(Qt::StrongFocus);
    QCOMPARE(tabRound(), QStringList({ "first", "second", "third", "in title" }));

    // Nor does it lose its place when others have to be ordered.
    auto *fourth = named("fourth");
    fourth->setFocusPolicy(Qt::NoFocus);
    window.centralWidget()->layout()->addWidget(fourth);
    window.centralWidget()->layout()->addWidget(named("fifth"));
    QTRY_VERIFY(fourth->isVisible());
    QCOMPARE(tabRound(), QStringList({ "first", "second", "third", "fifth", "in title" }));
    fourth->setFocusPolicy(Qt::StrongFocus);
    QCOMPARE(tabRound(),
             QStringList({ "first", "second", "third", "fourth", "fifth", "in title" }));

    // What is in order already is not ordered again.
    auto *later = named("later", window.titleBar());
    later->setFocusPolicy(Qt::NoFocus);
    later->show();
    named("last", window.titleBar())->show();
    QCOMPARE(tabRound(),
             QStringList({ "first", "second", "third", "fourth", "fifth", "in title", "last" }));
    later->setFocusPolicy(Qt::StrongFocus);
    QCOMPARE(tabRound(),
             QStringList(
                 { "first", "second", "third", "fourth", "fifth", "in title", "later", "last" }));
}

void tst_KestWindow::onlyShowingActivatingAndTabbingOrderTheTabs()
{
    const auto isBarFirstAfter = [](QEvent &&event) {
        KestWindow window;
        auto *edit = new QLineEdit;
        window.setCentralWidget(edit);
        QCoreApplication::sendEvent(&window, &event);
        const QWidget *widget = window.nextInFocusChain();
        while (widget != edit && widget != window.titleBar())
            widget = widget->nextInFocusChain();
        return widget == window.titleBar();
    };
    QVERIFY(isBarFirstAfter(QEvent(QEvent::WindowDeactivate)));
    QVERIFY(isBarFirstAfter(QEvent(QEvent::LanguageChange)));
    QVERIFY(isBarFirstAfter(QEvent(QEvent::User)));
    QVERIFY(!isBarFirstAfter(QEvent(QEvent::WindowActivate)));
    QVERIFY(!isBarFirstAfter(QShowEvent()));
}

void tst_KestWindow::orderingTabsLeavesTheWindowsOwnFocusAlone()
{
    KestWindow window;
    window.setCentralWidget(form({ "first", "second", "third" }));
    auto *second = window.findChild<QLineEdit *>(QStringLiteral("second"));
    auto *third = window.findChild<QLineEdit *>(QStringLiteral("third"));
    second->setFocusPolicy(Qt::ClickFocus);
    third->setFocusPolicy(Qt::TabFocus);
    second->setFocusProxy(third);
    window.setFocusProxy(second);
    QVERIFY(activate(&window));
    QTRY_COMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("first"));
    QCOMPARE(window.focusPolicy(), Qt::NoFocus);
    QCOMPARE(window.focusProxy(), second);
    QCOMPARE(second->focusPolicy(), Qt::ClickFocus);
    QCOMPARE(second->focusProxy(), third);
    QCOMPARE(third->focusPolicy(), Qt::TabFocus);
}

void tst_KestWindow::centralWidgetMayDieWhileItIsSet_data()
{
    QTest::addColumn<QString>("moment");
    for (const char *moment : { "title", "icon", "old one hidden", "resize", "parent" })
        QTest::newRow(moment) << moment;
}

void tst_KestWindow::centralWidgetMayDieWhileItIsSet()
{
    QFETCH(QString, moment);
    KestWindow window;
    window.show();
    QPointer<QWidget> central(new QWidget);
    central->resize(300, 200);
    central->setWindowTitle(QStringLiteral("Short"));
    central->setWindowIcon(redIcon());
    const auto die = [&central] { delete central; };
    QScopedPointer<Once> once;
    if (moment == QLatin1String("title"))
        connect(&window, &QWidget::windowTitleChanged, this, die);
    else if (moment == QLatin1String("icon"))
        connect(&window, &QWidget::windowIconChanged, this, die);
    else if (moment == QLatin1String("old one hidden"))
        once.reset(new Once(window.centralWidget(), QEvent::Hide, die));
    else if (moment == QLatin1String("resize"))
        once.reset(new Once(&window, QEvent::Resize, die));
    else
        once.reset(new Once(&window, QEvent::ChildAdded, [&central] { central->deleteLater(); }));

    window.setCentralWidget(central);

    deleteDeferred();
    QVERIFY(central.isNull());
    QVERIFY(!window.centralWidget());
    window.setCentralWidget(new QLabel);
    QVERIFY(window.centralWidget());
}

void tst_KestWindow::laterCentralWidgetWins_data()
{
    centralWidgetMayDieWhileItIsSet_data();
}

void tst_KestWindow::laterCentralWidgetWins()
{
    QFETCH(QString, moment);
    for (const bool cleared : { false, true }) {
        KestWindow window;
        window.show();
        auto *later = cleared ? nullptr : new QWidget;
        if (later) {
            later->resize(410, 310);
            later->setWindowTitle(QStringLiteral("Later"));
        }
        const QPointer<QWidget> first(new QWidget);
        first->resize(300, 200);
        first->setWindowTitle(QStringLiteral("First"));
        first->setWindowIcon(redIcon());
        bool done = false;
        const auto callBack = [&] {
            if (!std::exchange(done, true))
                window.setCentralWidget(later);
        };
        QScopedPointer<Once> once;
        if (moment == QLatin1String("title"))
            connect(&window, &QWidget::windowTitleChanged, this, callBack);
        else if (moment == QLatin1String("icon"))
            connect(&window, &QWidget::windowIconChanged, this, callBack);
        else if (moment == QLatin1String("old one hidden"))
            once.reset(new Once(window.centralWidget(), QEvent::Hide, callBack));
        else if (moment == QLatin1String("resize"))
            once.reset(new Once(&window, QEvent::Resize, callBack));
        else
            once.reset(new Once(first, QEvent::ParentChange, callBack));

        window.setCentralWidget(first);

        QVERIFY(done);
        deleteDeferred();
        QCOMPARE(window.centralWidget(), later);
        QVERIFY(first.isNull());
        QCOMPARE(rowOf(window, "contentLayout")->count(), later ? 1 : 0);
        if (later) {
            QCOMPARE(window.windowTitle(), QStringLiteral("Later"));
            QCOMPARE(window.width(), 410);
            QVERIFY(window.height() > 310);
        }
    }
}

void tst_KestWindow::windowMayDieWhileItIsFilled_data()
{
    QTest::addColumn<QString>("moment");
    for (const char *moment : { "central title", "central icon", "central hidden", "title hidden",
                                "navigation hidden", "status hidden" }) {
        QTest::newRow(moment) << moment;
    }
}

void tst_KestWindow::windowMayDieWhileItIsFilled()
{
    QFETCH(QString, moment);
    // What is hidden lives elsewhere by then: a widget must not die in an event of its own.
    QWidget elsewhere;
    const QPointer<KestWindow> window(new KestWindow);
    auto *central = new QWidget(&elsewhere);
    central->setWindowTitle(QStringLiteral("Short"));
    central->setWindowIcon(redIcon());
    QWidget *const old = moment.startsWith(QLatin1String("central")) ? window->centralWidget()
        : moment.startsWith(QLatin1String("title"))                  ? window->titleBar()
        : moment.startsWith(QLatin1String("nav")) ? static_cast<QWidget *>(window->navigationBar())
                                                  : window->statusBar();
    const auto die = [&window] { delete window; };
    QScopedPointer<Once> once;
    if (moment == QLatin1String("central title")) {
        connect(window, &QWidget::windowTitleChanged, this, die);
    } else if (moment == QLatin1String("central icon")) {
        connect(window, &QWidget::windowIconChanged, this, die);
    } else {
        old->setParent(&elsewhere);
        elsewhere.show();
        old->show();
        once.reset(new Once(old, QEvent::Hide, die));
    }

    if (moment.startsWith(QLatin1String("central")))
        window->setCentralWidget(central);
    else if (moment.startsWith(QLatin1String("title")))
        window->setTitleBar(nullptr);
    else if (moment.startsWith(QLatin1String("nav")))
        window->setNavigationBar(new KestNavigationBar(&elsewhere));
    else
        window->setStatusBar(new QStatusBar(&elsewhere));

    QVERIFY(window.isNull());
}

void tst_KestWindow::laterBarsWin()
{
    KestWindow window;
    window.resize(500, 300);
    window.show();
    window.navigationBar();
    window.statusBar();
    QTRY_VERIFY(window.statusBar()->isVisible());
    auto *title = new KestTitleBar(&window);
    auto *navigation = new KestNavigationBar(&window);
    auto *status = new QStatusBar(&window);
    Once titleOnce(window.titleBar(), QEvent::Hide, [&] { window.setTitleBar(title); });
    Once navigationOnce(window.navigationBar(), QEvent::Hide,
                        [&] { window.setNavigationBar(navigation); });
    Once statusOnce(window.statusBar(), QEvent::Hide, [&] { window.setStatusBar(status); });
    const QPointer<QWidget> lost[] = { new KestTitleBar(&window), new KestNavigationBar(&window),
                                       new QStatusBar(&window) };
    window.setTitleBar(static_cast<KestTitleBar *>(lost[0].data()));
    window.setNavigationBar(static_cast<KestNavigationBar *>(lost[1].data()));
    window.setStatusBar(static_cast<QStatusBar *>(lost[2].data()));
    // The first and the last of each; what came between was never put in.
    for (const char *row : { "titleLayout", "menuBarLayout", "statusBarLayout" })
        QCOMPARE(rowOf(window, row)->count(), 2);
    deleteDeferred();
    QCOMPARE(window.titleBar(), title);
    QCOMPARE(window.navigationBar(), navigation);
    QCOMPARE(window.statusBar(), status);
    for (const char *row : { "titleLayout", "menuBarLayout", "statusBarLayout" })
        QCOMPARE(rowOf(window, row)->count(), 1);
    for (const QPointer<QWidget> &bar : lost)
        QVERIFY(bar.isNull());
    QTRY_VERIFY(title->isVisible());
    QVERIFY(movesItsWindow(title));
    QVERIFY(!movesItsWindow(navigation));
}

void tst_KestWindow::barsClearedWhileTheyComeAreGone()
{
    KestWindow window;
    window.resize(500, 300);
    window.navigationBar();
    auto *title = new KestTitleBar;
    Once titleOnce(title, QEvent::ParentChange, [&] { window.setTitleBar(nullptr); });
    window.setTitleBar(title);
    // What moves the window instead goes on doing so.
    QVERIFY(movesItsWindow(window.navigationBar()));
    QVERIFY(!movesItsWindow(title));

    auto *navigation = new KestNavigationBar;
    Once navigationOnce(navigation, QEvent::ParentChange,
                        [&] { window.setNavigationBar(nullptr); });
    window.setNavigationBar(navigation);
    QVERIFY(!movesItsWindow(navigation));
}

void tst_KestWindow::laterCentralWidgetWinsWhileATitleBarIsMade()
{
    KestWindow window;
    window.setTitleBar(nullptr);
    deleteDeferred();
    auto *first = new QWidget(&window);
    first->resize(300, 200);
    auto *later = new QWidget(&window);
    later->resize(410, 310);
    Once once(&window, QEvent::ChildAdded, [&] { window.setCentralWidget(later); });
    window.setCentralWidget(first);
    QCOMPARE(window.centralWidget(), later);
    QCOMPARE(window.size(), QSize(410, 310 + window.titleBar()->height()));
}

void tst_KestWindow::centralWidgetIsAllWhereItsTitleBarIsCleared()
{
    // The one that is made for it finds another there, and is cleared when that hides.
    KestWindow window;
    window.show();
    window.setTitleBar(nullptr);
    deleteDeferred();
    auto *contents = new QWidget(&window);
    contents->resize(300, 200);
    auto *between = new KestTitleBar;
    Once added(&window, QEvent::ChildAdded, [&] {
        window.setTitleBar(between);
        between->show();
    });
    Once hidden(between, QEvent::Hide, [&] { window.setTitleBar(nullptr); });
    window.setCentralWidget(contents);
    QCOMPARE(window.centralWidget(), contents);
    QCOMPARE(window.size(), QSize(300, 200));
}

void tst_KestWindow::centralWidgetThatTakesTheFocusHearsOfItsShow()
{
    class Listening : public QLineEdit
    {
    public:
        int shows = 0;

    protected:
        void showEvent(QShowEvent *event) override
        {
            ++shows;
            QLineEdit::showEvent(event);
        }
    };
    KestWindow window;
    QVERIFY(activate(&window));
    QTRY_COMPARE(QApplication::focusWidget(), window.titleBar());
    auto *edit = new Listening;
    window.setCentralWidget(edit);
    QTRY_VERIFY(edit->isVisible());
    QCOMPARE(QApplication::focusWidget(), edit);
    QCOMPARE(edit->shows, 1);
}

void tst_KestWindow::centralWidgetHearsOfItsTitle()
{
    class Listening : public QWidget
    {
    public:
        int titles = 0;

    protected:
        void changeEvent(QEvent *event) override
        {
            titles += event->type() == QEvent::WindowTitleChange ? 1 : 0;
        }
    };
    KestWindow window;
    auto *central = new Listening;
    window.setCentralWidget(central);
    central->setWindowTitle(QStringLiteral("Heard"));
    QCOMPARE(window.windowTitle(), QStringLiteral("Heard"));
    QCOMPARE(central->titles, 1);
}

void tst_KestWindow::centralWidgetMayGoWhileItsTitleIsFollowed()
{
    for (QWidget *later : { static_cast<QWidget *>(nullptr), new QWidget }) {
        KestWindow window;
        auto *central = new QWidget;
        window.setCentralWidget(central);
        QSize size;
        connect(&window, &QWidget::windowTitleChanged, this, [&](const QString &title) {
            if (title != QLatin1String("Last"))
                return;
            window.setCentralWidget(later);
            window.resize(333, 222);
            size = window.size();
            if (later)
                later->resize(50, 60);
        });
        central->setWindowTitle(QStringLiteral("Last"));
        QCOMPARE(window.centralWidget(), later);
        QCOMPARE(size, QSize(333, 222));
        QCOMPARE(window.size(), size);
    }
}

void tst_KestWindow::widgetsMayDieWhileTheirSizesAreSaved()
{
    KestWindow window;
    auto *first = new QLabel(window.centralWidget());
    const QPointer<QLabel> second(new QLabel(window.centralWidget()));
    auto *third = new QLabel(window.centralWidget());
    Once once(first, QEvent::DynamicPropertyChange, [second] { delete second; });
    window.saveObjectSize(&window);
    QVERIFY(second.isNull());
    QVERIFY(third->property("originFont").isValid());
}

void tst_KestWindow::closeEventCanBeHandedOn()
{
    // The lines that the header gives for a QMainWindow as central widget.
    class Shell : public KestWindow
    {
    protected:
        void closeEvent(QCloseEvent *event) override
        {
            QCoreApplication::sendEvent(centralWidget(), event);
        }
    };
    class Editor : public QMainWindow
    {
    public:
        bool modified = true;

    protected:
        void closeEvent(QCloseEvent *event) override { event->setAccepted(!modified); }
    };
    Shell shell;
    auto *editor = new Editor;
    shell.setCentralWidget(editor);
    shell.show();
    QVERIFY(!shell.close());
    QVERIFY(shell.isVisible());
    editor->modified = false;
    QVERIFY(shell.close());
    QVERIFY(!shell.isVisible());
    shell.show();
    QVERIFY(editor->isVisible());
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

#ifndef Q_OS_WIN // there the frame does without hover events

void tst_KestWindow::pointerChangesNothingByItself()
{
    KestWindow window;
    for (const char *sheet : { "", "KestWindow { background: white; border: 1px solid gray }",
                               "QPushButton:hover { background: red }" }) {
        window.setStyleSheet(QString::fromLatin1(sheet));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(window.testAttribute(Qt::WA_Hover));
        QVERIFY2(paintsForHover(&window, QEvent::HoverEnter) == 0, sheet);
        QVERIFY2(paintsForHover(&window, QEvent::HoverLeave) == 0, sheet);
        // It is taken all the same.
        QHoverEvent event(QEvent::HoverEnter, QPointF(60, 60), QPointF(-1, -1));
        QVERIFY(QCoreApplication::sendEvent(&window, &event));
    }
}

void tst_KestWindow::hoverRulesAndSubclassesArePaintedAnew()
{
    class Subclass : public KestWindow
    {
    };
    Subclass subclass;
    subclass.show();
    QVERIFY(QTest::qWaitForWindowExposed(&subclass));
    QVERIFY(paintsForHover(&subclass, QEvent::HoverEnter) > 0);
    QVERIFY(paintsForHover(&subclass, QEvent::HoverLeave) > 0);

    for (const char *sheet :
         { "KestWindow:hover { background: red }",
           "KestWindow { background: white } KestWindow:hover { background: red }",
           "KestWindow { border-radius: 9px } KestWindow:hover { border-radius: 4px; background: "
           "red }",
           "KestWindow { border: 1px solid gray } KestWindow:hover { border-color: blue }" }) {
        KestWindow window;
        window.setStyleSheet(QString::fromLatin1(sheet));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY2(paintsForHover(&window, QEvent::HoverEnter) > 0, sheet);
        QVERIFY2(paintsForHover(&window, QEvent::HoverLeave) > 0, sheet);
    }

    // A style may be the end of the window that it is asked about.
    class DeadlyStyle : public QProxyStyle
    {
    public:
        void drawPrimitive(PrimitiveElement, const QStyleOption *, QPainter *,
                           const QWidget *) const override
        {
            delete victim;
        }
        QPointer<QWidget> victim;
    } style;
    style.victim = new KestWindow;
    style.victim->setStyle(&style);
    QHoverEvent event(QEvent::HoverEnter, QPointF(60, 60), QPointF(-1, -1));
    QVERIFY(QCoreApplication::sendEvent(style.victim, &event));
    QVERIFY(style.victim.isNull());
}

#else

void tst_KestWindow::pointerChangesNothingByItself()
{
    KestWindow window;
    QVERIFY(!window.testAttribute(Qt::WA_Hover));
}

void tst_KestWindow::hoverRulesAndSubclassesArePaintedAnew()
{
    KestWindow window;
    window.setAttribute(Qt::WA_Hover);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(paintsForHover(&window, QEvent::HoverEnter) > 0);
}

#endif

void tst_KestWindow::titleBarThatIsNotShownYetTakesTheMoving()
{
    KestWindow window;
    window.resize(500, 300);
    window.setTitleBar(nullptr);
    QVERIFY(movesItsWindow(window.navigationBar()));
    window.setTitleBar(new KestTitleBar);
    QVERIFY(!movesItsWindow(window.navigationBar()));
    QVERIFY(!movesItsWindow(window.titleBar()));
    // Nor one that is the window's already.
    window.setTitleBar(new KestTitleBar(&window));
    QVERIFY(!movesItsWindow(window.titleBar()));
    window.show();
    QVERIFY(movesItsWindow(window.titleBar()));
}

void tst_KestWindow::barsAreLastInTabOrderOnActivation()
{
    KestWindow window;
    window.resize(500, 300);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    auto *edit = new QLineEdit(window.centralWidget());
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window, &activate);
    const QWidget *widget = window.nextInFocusChain();
    while (widget != edit && widget != window.titleBar())
        widget = widget->nextInFocusChain();
    QCOMPARE(widget, edit);
}

void tst_KestWindow::messagesOfTheSystemAreLeftToQt()
{
    class Frame : public KestWindow
    {
    public:
        using KestWindow::nativeEvent;
    };
    Frame frame;
#ifdef Q_OS_WIN
    MSG message = {};
#else
    int message = 0;
#endif
    KestNativeResult result = 17;
    QVERIFY(!frame.nativeEvent(QByteArrayLiteral("message"), &message, &result));
    QCOMPARE(result, KestNativeResult(17));
}

QTEST_MAIN(tst_KestWindow)
#include "tst_kestwindow.moc"
