// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestToolButton.h"
#include "OnEvent.h"
#include "TestedQt.h"
#include "TitleBarHost.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QShowEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QWidgetAction>

#include <optional>

// What hosts may delete, and when: in slots, in filters, and while the bar itself goes.
class tst_KestTitleBar_Lifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void actionMayDieFirst();
    void barMayDieFirst();
    void windowMayDieFirst();
    void actionMayBeOnTwoBars();
    void customWidgetMayDieFirst();
    void actionsMayComeAndGoInASlot();
    void clickOnACheckableActionIsHandledToTheEnd();
    void slotMayChangeTheAction_data();
    void slotMayChangeTheAction();
    void buttonOutlivesALoopInItsSlot();
    void menuOfAButtonMayChangeItsAction();
    void barMayDieInASlotOfItsButton();
    void newWidgetMayEndItsAction();
    void additionMayEndTheAction();
    void removalMayEndTheAction();
    void actionMayBePutOnTheBarAgain_data();
    void actionMayBePutOnTheBarAgain();
    void actionThatLeftTheRowTakesNoButtonAway();
    void actionAtTheSameAddressIsAnother();
    void newerIconSizeReachesAllButtons();
    void widgetThatIsPutInMayEndItsAction();
    void ownButtonsMayDie_data();
    void ownButtonsMayDie();
    void stateChangeMayDeleteTheBar_data();
    void stateChangeMayDeleteTheBar();
    void hidingAButtonMayDeleteTheBar_data();
    void hidingAButtonMayDeleteTheBar();
    void focusMayMoveWhileTheBarDies();
    void replacedMenuBarMayDeleteTheBar();
    void replacedMenuBarMayBeFollowedByAThird();
    void newMenuBarMayDieAtOnce();
    void newMenuBarMayBeFollowedByAnother();
    void parentChangeMayDeleteTheBar();
    void menuBarMayDie();
};

void tst_KestTitleBar_Lifetime::actionMayDieFirst()
{
    Host host;
    auto *action = new QAction;
    host.bar->addAction(action);
    host.show();
    delete action;
    QCOMPARE(host.actionRow()->count(), 0);
    host.bar->setActionIconSize(QSize(10, 10));
}

void tst_KestTitleBar_Lifetime::barMayDieFirst()
{
    Host host;
    QAction action;
    QWidgetAction custom(nullptr);
    const QPointer<QLabel> label(new QLabel);
    custom.setDefaultWidget(label);
    host.bar->addAction(&action);
    host.bar->addAction(&custom);
    host.show();
    delete host.bar;
    action.setText(QStringLiteral("later"));
    QVERIFY(label.isNull()); // the bar was its parent
    custom.setText(QStringLiteral("later"));
    host.setWindowTitle(QStringLiteral("later"));
}

void tst_KestTitleBar_Lifetime::windowMayDieFirst()
{
    QAction action;
    {
        Host host;
        host.bar->addAction(&action);
        host.bar->menuBar();
        host.show();
    }
    action.setText(QStringLiteral("later"));
    QVERIFY(action.associatedWidgets().isEmpty());
}

void tst_KestTitleBar_Lifetime::actionMayBeOnTwoBars()
{
    Host first;
    auto *second = new Host;
    auto *action = new QAction;
    first.bar->addAction(action);
    second->bar->addAction(action);
    delete second;
    QCOMPARE(first.actionRow()->count(), 1);
    action->setObjectName(QStringLiteral("renamed"));
    QCOMPARE(first.actionRow()->itemAt(0)->widget()->objectName(), QStringLiteral("renamed"));
    Host third;
    third.bar->addAction(action);
    delete action;
    QCOMPARE(first.actionRow()->count(), 0);
    QCOMPARE(third.actionRow()->count(), 0);
}

void tst_KestTitleBar_Lifetime::customWidgetMayDieFirst()
{
    Host host;
    QWidgetAction action(nullptr);
    auto *label = new QLabel;
    action.setDefaultWidget(label);
    host.bar->addAction(&action);
    delete label;
    host.bar->removeAction(&action);
    QCOMPARE(host.actionRow()->count(), 0);
}

void tst_KestTitleBar_Lifetime::actionsMayComeAndGoInASlot()
{
    Host host;
    host.show();
    auto *action = new QAction(QStringLiteral("go"));
    QAction late(QStringLiteral("late"));
    host.bar->addAction(action);
    connect(action, &QAction::triggered, host.bar, [&] {
        host.bar->removeAction(action);
        host.bar->addAction(&late);
    });
    QTest::mouseClick(host.actionRow()->itemAt(0)->widget(), Qt::LeftButton);
    QCOMPARE(host.actionRow()->count(), 1);

    auto *dying = new QAction(QStringLiteral("die"));
    host.bar->addAction(dying);
    connect(dying, &QAction::triggered, host.bar, [dying] { delete dying; });
    QTest::mouseClick(host.actionRow()->itemAt(1)->widget(), Qt::LeftButton);
    QCOMPARE(host.actionRow()->count(), 1);
    delete action;
}

void tst_KestTitleBar_Lifetime::clickOnACheckableActionIsHandledToTheEnd()
{
    Host host;
    host.show();
    QAction action(QStringLiteral("check"));
    action.setCheckable(true);
    host.bar->addAction(&action);
    const QPointer<QWidget> button(host.actionRow()->itemAt(0)->widget());
    QSignalSpy toggled(&action, &QAction::toggled);
    QSignalSpy clicked(static_cast<QAbstractButton *>(button.data()), &QAbstractButton::clicked);
    QTest::mouseClick(button, Qt::LeftButton);
    // The check is a change, so the entry is gone; the click is a whole one nevertheless.
    QCOMPARE(toggled.count(), 1);
    QCOMPARE(clicked.count(), 1);
    QVERIFY(action.isChecked());
    QCOMPARE(host.actionRow()->count(), 0);
    QVERIFY(!button || button->isHidden());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(button.isNull());
    // A change that comes from elsewhere takes the button at once.
    host.bar->addAction(&action);
    const QPointer<QWidget> second(host.actionRow()->itemAt(0)->widget());
    action.trigger();
    QVERIFY(isGoneByAChange(second));
}

void tst_KestTitleBar_Lifetime::slotMayChangeTheAction_data()
{
    QTest::addColumn<bool>("keyboard");
    QTest::newRow("mouse") << false;
    QTest::newRow("keyboard") << true;
}

void tst_KestTitleBar_Lifetime::slotMayChangeTheAction()
{
    QFETCH(bool, keyboard);
    Host host;
    host.show();
    const auto activate = [&host, keyboard] {
        QWidget *const button = host.actionRow()->itemAt(0)->widget();
        if (keyboard)
            QTest::keyClick(button, Qt::Key_Space);
        else
            QTest::mouseClick(button, Qt::LeftButton);
    };
    QAction action(QStringLiteral("before"));
    host.bar->addAction(&action);
    int calls = 0;
    connect(&action, &QAction::triggered, host.bar, [&] {
        ++calls;
        action.setText(QStringLiteral("after"));
        action.setVisible(true);
    });
    const QPointer<QWidget> button(host.actionRow()->itemAt(0)->widget());
    activate();
    QCOMPARE(calls, 1);
    QCOMPARE(host.actionRow()->count(), 0);
    QVERIFY(!button || button->isHidden());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(button.isNull());

    // Put back in the slot, it has a new button.
    connect(&action, &QAction::triggered, host.bar, [&] { host.bar->addAction(&action); });
    host.bar->addAction(&action);
    const QPointer<QWidget> old(host.actionRow()->itemAt(0)->widget());
    activate();
    QCOMPARE(calls, 2);
    QCOMPARE(host.actionRow()->count(), 1);
    QVERIFY(host.actionRow()->itemAt(0)->widget() != old);
    QVERIFY(host.actionRow()->itemAt(0)->widget()->isVisible());
    QVERIFY(!old || old->isHidden());
}

void tst_KestTitleBar_Lifetime::buttonOutlivesALoopInItsSlot()
{
    Host host;
    host.show();
    QAction action(QStringLiteral("wait"));
    host.bar->addAction(&action);
    const QPointer<QWidget> button(host.actionRow()->itemAt(0)->widget());
    bool livedOn = false;
    connect(&action, &QAction::triggered, host.bar, [&] {
        QTimer::singleShot(0, host.bar, [&] { host.bar->removeAction(&action); });
        QTest::qWait(50);
        livedOn = !button.isNull() && button->isHidden();
    });
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(livedOn);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(button.isNull());
}

void tst_KestTitleBar_Lifetime::menuOfAButtonMayChangeItsAction()
{
    Host host;
    host.show();
    QMenu menu;
    QAction *const entry = menu.addAction(QStringLiteral("entry"));
    QAction action(QStringLiteral("menu"));
    action.setMenu(&menu);
    host.bar->addAction(&action);
    auto *button = static_cast<KestToolButton *>(host.actionRow()->itemAt(0)->widget());
    button->setPopupMode(QToolButton::InstantPopup);
    const QPointer<QWidget> watch(button);
    connect(entry, &QAction::triggered, host.bar,
            [&action] { action.setText(QStringLiteral("changed")); });
    QTimer::singleShot(0, &menu, [&menu, entry] {
        menu.setActiveAction(entry);
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(action.text(), QStringLiteral("changed"));
    QCOMPARE(host.actionRow()->count(), 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(watch.isNull());
}

void tst_KestTitleBar_Lifetime::barMayDieInASlotOfItsButton()
{
    for (const bool keyboard : { false, true }) {
        Host host;
        host.show();
        QAction action(QStringLiteral("die"));
        host.bar->addAction(&action);
        QWidget *const button = host.actionRow()->itemAt(0)->widget();
        connect(&action, &QAction::triggered, &host, [&host] {
            delete host.bar;
            host.bar = nullptr;
        });
        if (keyboard)
            QTest::keyClick(button, Qt::Key_Space);
        else
            QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(!host.bar);
    }
}

void tst_KestTitleBar_Lifetime::newWidgetMayEndItsAction()
{
    {
        Host host;
        auto *action = new QAction(QStringLiteral("short-lived"));
        const OnEvent filter(host.bar, QEvent::ChildAdded, [action] { delete action; });
        host.bar->addAction(action);
        QCOMPARE(host.actionRow()->count(), 0);
    }
    {
        Host host;
        host.show();
        QAction action(QStringLiteral("removed at once"));
        const OnEvent filter(host.bar, QEvent::ChildAdded,
                             [&] { host.bar->removeAction(&action); });
        host.bar->addAction(&action);
        QCOMPARE(host.actionRow()->count(), 0);
        QVERIFY(host.bar->findChildren<KestToolButton *>().isEmpty());
        host.bar->addAction(&action);
        QCOMPARE(host.actionRow()->count(), 1);
    }
    {
        Host host;
        host.show();
        QWidgetAction action(nullptr);
        auto *label = new QLabel;
        action.setDefaultWidget(label);
        const OnEvent filter(label, QEvent::ShowToParent, [&] {
            delete host.bar;
            host.bar = nullptr;
        });
        host.bar->addAction(&action);
        QVERIFY(!host.bar);
    }
}

void tst_KestTitleBar_Lifetime::additionMayEndTheAction()
{
    Host host;
    auto *const action = new QAction(QStringLiteral("action"));
    OnEvent end(host.bar, QEvent::ActionAdded, [action] { delete action; });
    host.bar->addAction(action);
    QCOMPARE(host.actionRow()->count(), 0);
    QVERIFY(!host.bar->findChild<KestToolButton *>());
}

void tst_KestTitleBar_Lifetime::removalMayEndTheAction()
{
    Host host;
    auto *const action = new QAction(QStringLiteral("action"));
    host.bar->addAction(action);
    OnEvent end(host.bar, QEvent::ActionRemoved, [action] { delete action; });
    host.bar->removeAction(action);
    QCOMPARE(host.actionRow()->count(), 0);
    QVERIFY(!host.bar->findChild<KestToolButton *>());
}

void tst_KestTitleBar_Lifetime::actionMayBePutOnTheBarAgain_data()
{
    QTest::addColumn<QEvent::Type>("moment");
    QTest::newRow("while it is added") << QEvent::ActionAdded;
    QTest::newRow("while its button is made") << QEvent::ChildAdded;
    QTest::newRow("while it is removed") << QEvent::ActionRemoved;
}

// It is on the bar once, whatever became of the call that was interrupted.
void tst_KestTitleBar_Lifetime::actionMayBePutOnTheBarAgain()
{
    QFETCH(QEvent::Type, moment);
    Host host;
    QAction action(QStringLiteral("action"));
    const bool removed = moment == QEvent::ActionRemoved;
    if (removed)
        host.bar->addAction(&action);
    OnEvent again(host.bar, moment, [&] { host.bar->addAction(&action); });
    if (removed)
        host.bar->removeAction(&action);
    else
        host.bar->addAction(&action);
    QCOMPARE(host.actionRow()->count(), 1);
    QCOMPARE(host.bar->findChildren<KestToolButton *>().size(), 1);
    host.bar->removeAction(&action);
    QCOMPARE(host.actionRow()->count(), 0);
}

void tst_KestTitleBar_Lifetime::actionThatLeftTheRowTakesNoButtonAway()
{
    Host host;
    QAction action(QStringLiteral("action"));
    host.bar->addAction(&action);
    action.setText(QStringLiteral("changed")); // it is still among the bar's actions
    QCOMPARE(host.actionRow()->count(), 0);
    // A button whose action has died without the bar's knowing.
    auto *lost = new QAction;
    host.bar->addAction(lost);
    {
        const Drop drop(host.bar, QEvent::ActionRemoved);
        delete lost;
    }
    QCOMPARE(host.actionRow()->count(), 1);
    host.bar->removeAction(&action);
    QCOMPARE(host.actionRow()->count(), 1);
}

void tst_KestTitleBar_Lifetime::actionAtTheSameAddressIsAnother()
{
    Host host;
    std::optional<QAction> action;
    action.emplace();
    host.bar->addAction(&*action);
    {
        const Drop drop(host.bar, QEvent::ActionRemoved);
        action.reset();
    }
    QCOMPARE(host.actionRow()->count(), 1);
    action.emplace();
    host.bar->addAction(&*action);
    QCOMPARE(host.actionRow()->count(), 2);
    auto *button = qobject_cast<QToolButton *>(host.actionRow()->itemAt(1)->widget());
    QVERIFY(button);
    QCOMPARE(button->defaultAction(), &*action);
}

void tst_KestTitleBar_Lifetime::newerIconSizeReachesAllButtons()
{
    Host host;
    connect(host.bar, &KestTitleBar::actionIconSizeChanged, host.bar,
            [&host] { host.bar->setActionIconSize(QSize(24, 24)); });
    QAction action(QStringLiteral("action"));
    host.bar->addAction(&action);
    host.bar->setActionIconSize(QSize(16, 16));
    QCOMPARE(host.bar->findChild<KestToolButton *>()->iconSize(), QSize(24, 24));

    Host other;
    OnEvent whileMade(other.bar, QEvent::ChildAdded,
                      [&other] { other.bar->setActionIconSize(QSize(8, 8)); });
    other.bar->addAction(&action);
    QCOMPARE(other.bar->findChild<KestToolButton *>()->iconSize(), QSize(8, 8));
}

void tst_KestTitleBar_Lifetime::widgetThatIsPutInMayEndItsAction()
{
    Host host;
    QWidgetAction action(nullptr);
    action.setDefaultWidget(new QLabel);
    std::unique_ptr<OnEvent> widget;
    // The bar's first new child is the item, the second is the widget.
    OnEvent item(host.bar, QEvent::ChildAdded, [&] {
        widget = std::make_unique<OnEvent>(host.bar, QEvent::ChildAdded,
                                           [&] { host.bar->removeAction(&action); });
    });
    host.bar->addAction(&action);
    QCOMPARE(host.actionRow()->count(), 0);
    QVERIFY(action.defaultWidget()->isHidden());
}

void tst_KestTitleBar_Lifetime::ownButtonsMayDie_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("close") << QStringLiteral("closeBtn");
    QTest::newRow("minimise") << QStringLiteral("minimumSizeBtn");
    QTest::newRow("maximise") << QStringLiteral("maximumSizeBtn");
}

void tst_KestTitleBar_Lifetime::ownButtonsMayDie()
{
    QFETCH(QString, name);
    Host host;
    delete host.bar->findChild<QWidget *>(name);
    host.setWindowFlags(Qt::Window | Qt::FramelessWindowHint); // all buttons would be hidden
    host.show();
    host.setWindowFlag(Qt::WindowMaximizeButtonHint);
    host.show();
    host.bar->onMaximumSizeBtn();
    QVERIFY(host.isMaximized());
    host.bar->onMaximumSizeBtn();
    QVERIFY(!host.isMaximized());
    host.setFixedSize(500, 200);
    QCoreApplication::processEvents();
    QWidget other;
    host.bar->setParent(&other);
    host.bar->onMinimumSizeBtn();
    host.bar->onCloseBtn();
    host.bar->setParent(&host);
}

void tst_KestTitleBar_Lifetime::stateChangeMayDeleteTheBar_data()
{
    QTest::addColumn<bool>("click");
    QTest::newRow("slot") << false;
    QTest::newRow("click") << true;
}

void tst_KestTitleBar_Lifetime::stateChangeMayDeleteTheBar()
{
    QFETCH(bool, click);
    for (const bool restore : { false, true }) {
        Host host;
        if (restore)
            host.setWindowState(Qt::WindowMaximized);
        host.show();
        const OnEvent filter(&host, QEvent::WindowStateChange, [&host] {
            delete host.bar;
            host.bar = nullptr;
        });
        if (click)
            QTest::mouseClick(host.button("maximumSizeBtn"), Qt::LeftButton);
        else
            host.bar->onMaximumSizeBtn();
        QVERIFY(!host.bar);
    }
}

void tst_KestTitleBar_Lifetime::hidingAButtonMayDeleteTheBar_data()
{
    ownButtonsMayDie_data();
}

void tst_KestTitleBar_Lifetime::hidingAButtonMayDeleteTheBar()
{
    QFETCH(QString, name);
    {
        Host host;
        host.show();
        host.overrideWindowFlags(Qt::Window | Qt::FramelessWindowHint);
        QWidget *const button = host.bar->findChild<QWidget *>(name);
        const OnEvent filter(button, QEvent::HideToParent, [&host] {
            delete host.bar;
            host.bar = nullptr;
        });
        // No more than the event: QWidget itself needs a widget that outlives its show().
        QShowEvent event;
        QCoreApplication::sendEvent(host.bar, &event);
        QVERIFY(!host.bar);
    }
    if (name != QStringLiteral("maximumSizeBtn"))
        return;
    {
        Host host;
        host.show();
        const OnEvent filter(host.button("maximumSizeBtn"), QEvent::HideToParent, [&host] {
            delete host.bar;
            host.bar = nullptr;
        });
        host.bar->onMaximumSizeBtn();
        QVERIFY(!host.bar);
    }
    {
        Host host;
        host.show();
        host.button("maximumSizeBtn")->setAttribute(Qt::WA_UnderMouse);
        const OnEvent filter(host.button("maximumSizeBtn"), QEvent::HideToParent, [&host] {
            delete host.bar;
            host.bar = nullptr;
        });
        host.setFixedSize(500, 200);
        QTRY_VERIFY(!host.bar);
    }
}

void tst_KestTitleBar_Lifetime::focusMayMoveWhileTheBarDies()
{
    Host host;
    QAction first(QStringLiteral("first"));
    QAction second(QStringLiteral("second"));
    QAction late(QStringLiteral("late"));
    host.bar->addAction(&first);
    host.bar->addAction(&second);
    host.show();
    host.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&host));
    host.actionRow()->itemAt(1)->widget()->setFocus();
    QVERIFY(host.actionRow()->itemAt(1)->widget()->hasFocus());
    int changes = 0;
    KestTitleBar *const bar = host.bar;
    const auto connection = connect(qApp, &QApplication::focusChanged, &host, [&] {
        if (++changes > 1) {
            // The one that came late has the focus now, and goes with it.
            bar->removeAction(&late);
            return;
        }
        host.setWindowIcon(icon({ QSize(24, 24) }));
        host.setWindowTitle(QStringLiteral("dying"));
        host.setWindowState(Qt::WindowMaximized);
        bar->setActionIconSize(QSize(10, 10));
        bar->removeAction(&first);
        bar->addAction(&late);
        const QSignalBlocker blocker(qApp);
        host.actionRow()->itemAt(host.actionRow()->count() - 1)->widget()->setFocus();
    });
    delete host.bar;
    QVERIFY(changes > 1);
    disconnect(connection);
    QVERIFY(late.associatedWidgets().isEmpty());
    host.setWindowTitle(QStringLiteral("dead"));
}

void tst_KestTitleBar_Lifetime::replacedMenuBarMayDeleteTheBar()
{
    for (const QEvent::Type type : { QEvent::HideToParent, QEvent::ParentChange }) {
        Host host;
        const QPointer<QMenuBar> old(host.bar->menuBar());
        host.show();
        QTRY_VERIFY(old->isVisible());
        const OnEvent filter(old, type, [&host] {
            delete host.bar;
            host.bar = nullptr;
        });
        QScopedPointer<QMenuBar> next(new QMenuBar);
        host.bar->setMenuBar(next.data());
        QVERIFY(!host.bar);
        QVERIFY(!next->parent());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void tst_KestTitleBar_Lifetime::replacedMenuBarMayBeFollowedByAThird()
{
    Host host;
    const QPointer<QMenuBar> old(host.bar->menuBar());
    host.show();
    QTRY_VERIFY(old->isVisible());
    const QPointer<QMenuBar> second(new QMenuBar);
    const QPointer<QMenuBar> third(new QMenuBar);
    const OnEvent filter(old, QEvent::HideToParent, [&] { host.bar->setMenuBar(third); });
    host.bar->setMenuBar(second);
    QCOMPARE(host.bar->menuBar(), third);
    QCOMPARE(host.row()->itemAt(0)->layout()->count(), 1);
    QVERIFY(!second->parent());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(old.isNull());
    QVERIFY(second.isNull());
    QCOMPARE(host.row()->itemAt(0)->layout()->count(), 1);
    QCOMPARE(host.row()->itemAt(0)->layout()->itemAt(0)->widget(), third);
}

void tst_KestTitleBar_Lifetime::newMenuBarMayDieAtOnce()
{
    Host host;
    const QPointer<QMenuBar> old(host.bar->menuBar());
    host.show();
    QTRY_VERIFY(old->isVisible());
    auto *next = new QMenuBar;
    const OnEvent filter(old, QEvent::HideToParent, [next] { delete next; });
    host.bar->setMenuBar(next);
    QCOMPARE(host.row()->itemAt(0)->layout()->count(), 0);
    QVERIFY(host.bar->menuBar());
}

void tst_KestTitleBar_Lifetime::newMenuBarMayBeFollowedByAnother()
{
    for (const bool none : { false, true }) {
        Host host;
        host.show();
        const QPointer<QMenuBar> first(new QMenuBar);
        const QPointer<QMenuBar> second(none ? nullptr : new QMenuBar);
        const OnEvent filter(first, QEvent::ParentChange, [&] { host.bar->setMenuBar(second); });
        host.bar->setMenuBar(first);
        QLayout *const row = host.row()->itemAt(0)->layout();
        QCOMPARE(row->count(), none ? 0 : 1);
        if (second)
            QCOMPARE(row->itemAt(0)->widget(), second);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(first.isNull());
        QCOMPARE(host.bar->findChildren<QMenuBar *>().size(), none ? 0 : 1);
        QCOMPARE(row->count(), none ? 0 : 1);
    }
}

void tst_KestTitleBar_Lifetime::parentChangeMayDeleteTheBar()
{
    class Style : public QProxyStyle
    {
    public:
        using QProxyStyle::polish;
        using QProxyStyle::unpolish;
        void unpolish(QWidget *) override
        {
            if (victim)
                delete victim;
        }

        QPointer<QWidget> victim;
    };
    Style style;
    Host host;
    host.button("maximumSizeBtn")->setStyle(&style);
    QWidget other;
    other.setWindowState(Qt::WindowMaximized);
    {
        // No more than the event: QWidget itself needs a widget that outlives its setParent().
        const Drop drop(host.bar, QEvent::ParentChange);
        host.bar->setParent(&other);
    }
    const QPointer<QWidget> bar(host.bar);
    style.victim = bar;
    QEvent event(QEvent::ParentChange);
    QVERIFY(QCoreApplication::sendEvent(host.bar, &event));
    QVERIFY(bar.isNull());
}

void tst_KestTitleBar_Lifetime::menuBarMayDie()
{
    Host host;
    host.setWindowTitle(QStringLiteral("title"));
    delete host.bar->menuBar();
    painted(host.bar);
    QVERIFY(host.bar->menuBar());
}

QTEST_MAIN(tst_KestTitleBar_Lifetime)
#include "tst_kesttitlebar_lifetime.moc"
