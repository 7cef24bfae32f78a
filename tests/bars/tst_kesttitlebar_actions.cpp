// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestSeparator.h"
#include "KestToolButton.h"
#include "OnEvent.h"
#include "TestedQt.h"
#include "TitleBarHost.h"

#include <QAction>
#include <QtCore/QPointer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QWidgetAction>

#include <memory>
#include <vector>

class tst_KestTitleBar_Actions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void menuBarIsCreatedOnRequest();
    void menuBarIsReplaced();
    void menuBarDoesNotFillItsGround();
    void menuBarIsCleared();
    void sameMenuBarAgainChangesNothing();

    void actionsBecomeButtonsInOrder();
    void separatorsAndWidgetsAreTaken();
    void removedActionLosesItsButton();
    void changedActionLeavesTheBar();
    void customWidgetThatLeftTheBarLivesOn_data();
    void customWidgetThatLeftTheBarLivesOn();
    void actionIconSizeReachesAllButtons();
    void actionIconSizeIsStoredBeforeItIsAnnounced();
    void actionIconSizeIsThereWhenItIsAnnounced();
    void actionsAddedTogetherAreLaidOutTogether();
};

void tst_KestTitleBar_Actions::menuBarIsCreatedOnRequest()
{
    Host host;
    host.show();
    QMenuBar *const menuBar = host.bar->menuBar();
    QVERIFY(menuBar);
    QCOMPARE(host.bar->menuBar(), menuBar);
    QVERIFY(menuBar->actions().isEmpty());
    QCOMPARE(menuBar->parentWidget(), host.bar);
    QVERIFY(!menuBar->autoFillBackground());
    QCOMPARE(menuBar->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed));
    QLayout *const row = host.row()->itemAt(0)->layout();
    QCOMPARE(row->count(), 1);
    QCOMPARE(row->itemAt(0)->widget(), menuBar);
    QCOMPARE(row->itemAt(0)->alignment(), Qt::Alignment());
    QTRY_VERIFY(menuBar->isVisible());
}

void tst_KestTitleBar_Actions::menuBarIsReplaced()
{
    Host host;
    host.show();
    const QPointer<QMenuBar> old(host.bar->menuBar());
    QTRY_VERIFY(old->isVisible());
    auto *menuBar = new QMenuBar;
    menuBar->addMenu(QStringLiteral("File"));
    menuBar->setAutoFillBackground(true);
    PaintCounter paints(host.bar);
    host.bar->setMenuBar(menuBar);
    QCOMPARE(host.bar->menuBar(), menuBar);
    QVERIFY(old->isHidden());
    QVERIFY(!old->parent());
    QCOMPARE(menuBar->parentWidget(), host.bar);
    QVERIFY(!menuBar->autoFillBackground());
    QCOMPARE(menuBar->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed));
    QLayout *const row = host.row()->itemAt(0)->layout();
    QCOMPARE(row->count(), 1);
    QCOMPARE(row->itemAt(0)->widget(), menuBar);
    QTRY_VERIFY(menuBar->isVisible());
    QTRY_COMPARE(menuBar->width(), row->geometry().width());
    QVERIFY(menuBar->width() > 0);
    QCOMPARE(menuBar->geometry().center().y(), row->geometry().center().y());
    // The title stands elsewhere now.
    QTRY_VERIFY(paints.count > 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(old.isNull());
    QCOMPARE(host.bar->menuBar(), menuBar);
    // One that nobody sees decides where the title stands as well.
    menuBar->hide();
    QTest::qWait(50);
    paints.count = 0;
    host.bar->setMenuBar(nullptr);
    QTRY_VERIFY(paints.count > 0);
}

void tst_KestTitleBar_Actions::menuBarDoesNotFillItsGround()
{
    Host host;
    auto *menuBar = new QMenuBar;
    menuBar->setAutoFillBackground(true);
    host.bar->setMenuBar(menuBar);
    QVERIFY(!menuBar->autoFillBackground());
}

void tst_KestTitleBar_Actions::menuBarIsCleared()
{
    Host host;
    host.bar->setMenuBar(nullptr);
    QVERIFY(!host.bar->findChild<QMenuBar *>());
    const QPointer<QMenuBar> old(host.bar->menuBar());
    host.bar->setMenuBar(nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(old.isNull());
    QVERIFY(!host.bar->findChild<QMenuBar *>());
    QVERIFY(host.bar->menuBar());
}

void tst_KestTitleBar_Actions::sameMenuBarAgainChangesNothing()
{
    Host host;
    QMenuBar *const menuBar = host.bar->menuBar();
    host.bar->setMenuBar(menuBar);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(host.bar->menuBar(), menuBar);
    QCOMPARE(host.row()->itemAt(0)->layout()->count(), 1);
    QVERIFY(!menuBar->isHidden());
}

void tst_KestTitleBar_Actions::actionsBecomeButtonsInOrder()
{
    Host host;
    QAction first(icon({ QSize(16, 16) }), QStringLiteral("first"));
    QAction second(QStringLiteral("second"));
    QAction third(QStringLiteral("third"));
    first.setObjectName(QStringLiteral("named"));
    host.bar->addAction(&first);
    host.bar->addAction(&second);
    host.bar->insertAction(&second, &third);
    QCOMPARE(host.actionRow()->count(), 3);
    const QAction *const order[] = { &first, &third, &second };
    for (int i = 0; i < 3; ++i) {
        auto *button = qobject_cast<KestToolButton *>(host.actionRow()->itemAt(i)->widget());
        QVERIFY(button);
        QCOMPARE(button->defaultAction(), order[i]);
        QCOMPARE(button->iconSize(), QSize(32, 32));
        QCOMPARE(button->parentWidget(), host.bar);
    }
    QSignalSpy triggered(&first, &QAction::triggered);
    host.show();
    QTest::mouseClick(host.button("named"), Qt::LeftButton);
    QCOMPARE(triggered.count(), 1);
}

void tst_KestTitleBar_Actions::separatorsAndWidgetsAreTaken()
{
    Host host;
    QAction separator;
    separator.setSeparator(true);
    host.bar->addAction(&separator);
    auto *line = qobject_cast<KestSeparator *>(host.actionRow()->itemAt(0)->widget());
    QVERIFY(line);
    QCOMPARE(line->orientation(), Qt::Horizontal);
    QWidgetAction custom(nullptr);
    auto *label = new QLabel(QStringLiteral("label"));
    custom.setDefaultWidget(label);
    host.bar->addAction(&custom);
    QCOMPARE(host.actionRow()->itemAt(1)->widget(), label);
    QVERIFY(!label->isHidden());
}

void tst_KestTitleBar_Actions::removedActionLosesItsButton()
{
    Host host;
    QAction first;
    QAction second;
    host.bar->addAction(&first);
    host.bar->addAction(&second);
    const QPointer<QWidget> button(host.actionRow()->itemAt(0)->widget());
    host.bar->removeAction(&first);
    QVERIFY(button.isNull());
    QCOMPARE(host.actionRow()->count(), 1);
    host.bar->removeAction(&first);
    host.bar->addAction(&first);
    QCOMPARE(host.actionRow()->count(), 2);
}

void tst_KestTitleBar_Actions::changedActionLeavesTheBar()
{
    Host host;
    QAction action(QStringLiteral("before"));
    host.bar->addAction(&action);
    const QPointer<QWidget> button(host.actionRow()->itemAt(0)->widget());
    action.setText(QStringLiteral("after"));
    QVERIFY(isGoneByAChange(button));
    QCOMPARE(host.actionRow()->count(), 0);
    QCOMPARE(host.bar->actions(), QList<QAction *> { &action });
    action.setText(QStringLiteral("and again")); // no item is met, and nothing happens
    host.bar->removeAction(&action);
    QVERIFY(host.bar->actions().isEmpty());
}

void tst_KestTitleBar_Actions::customWidgetThatLeftTheBarLivesOn_data()
{
    QTest::addColumn<bool>("removed");
    QTest::newRow("action removed") << true;
    QTest::newRow("action changed") << false;
}

void tst_KestTitleBar_Actions::customWidgetThatLeftTheBarLivesOn()
{
    QFETCH(bool, removed);
    Host host;
    QWidgetAction action(nullptr);
    const QPointer<QLabel> label(new QLabel);
    action.setDefaultWidget(label);
    host.bar->addAction(&action);
    if (removed)
        host.bar->removeAction(&action);
    else
        action.setText(QStringLiteral("after"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!label.isNull());
    QCOMPARE(host.actionRow()->count(), 0);
}

void tst_KestTitleBar_Actions::actionIconSizeReachesAllButtons()
{
    Host host;
    QAction first;
    QAction second;
    host.bar->addAction(&first);
    host.bar->addAction(&second);
    QSignalSpy spy(host.bar, &KestTitleBar::actionIconSizeChanged);
    host.bar->setActionIconSize(QSize(32, 32));
    QCOMPARE(spy.count(), 0);
    host.bar->setActionIconSize(QSize(18, 19));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.first().first().toSize(), QSize(18, 19));
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(static_cast<KestToolButton *>(host.actionRow()->itemAt(i)->widget())->iconSize(),
                 QSize(18, 19));
    }
    QAction third;
    host.bar->addAction(&third);
    QCOMPARE(static_cast<KestToolButton *>(host.actionRow()->itemAt(2)->widget())->iconSize(),
             QSize(18, 19));
}

void tst_KestTitleBar_Actions::actionIconSizeIsStoredBeforeItIsAnnounced()
{
    Host host;
    QList<QSize> heard;
    connect(host.bar, &KestTitleBar::actionIconSizeChanged, host.bar,
            [&] { heard.append(host.bar->getActionIconSize()); });
    host.bar->setActionIconSize(QSize(20, 24));
    // One side alone is a change, too.
    host.bar->setActionIconSize(QSize(22, 24));
    host.bar->setActionIconSize(QSize(22, 26));
    QCOMPARE(heard, (QList<QSize> { QSize(20, 24), QSize(22, 24), QSize(22, 26) }));
}

void tst_KestTitleBar_Actions::actionIconSizeIsThereWhenItIsAnnounced()
{
    Host host;
    QSize read;
    connect(host.bar, &KestTitleBar::actionIconSizeChanged, host.bar,
            [&] { read = host.bar->getActionIconSize(); });
    host.bar->setActionIconSize(QSize(20, 20));
    QCOMPARE(read, QSize(20, 20));
}

void tst_KestTitleBar_Actions::actionsAddedTogetherAreLaidOutTogether()
{
    Host host;
    host.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host));
    int places = 0;
    std::vector<std::unique_ptr<OnEvent>> filters;
    for (int i = 0; i < 5; ++i) {
        host.bar->addAction(new QAction(QStringLiteral("action"), &host));
        auto *button = host.bar->findChildren<KestToolButton *>().constLast();
        QVERIFY(button->isVisible());
        filters.push_back(std::make_unique<OnEvent>(button, QEvent::Move, [&places] { ++places; }));
        filters.push_back(
            std::make_unique<OnEvent>(button, QEvent::Resize, [&places] { ++places; }));
    }
    QCOMPARE(places, 0);
    QVERIFY(host.bar->layout()->isEnabled());
    QTRY_VERIFY(places >= 5);
}

QTEST_MAIN(tst_KestTitleBar_Actions)
#include "tst_kesttitlebar_actions.moc"
