// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestNavigationBar.h"

#include "Announcements.h"
#include "KestNavigationImageButton.h"
#include "KestSeparator.h"
#include "KestUserButton.h"
#include "OnEvent.h"
#include "QtVersions.h"

#include <QAction>
#include <QtCore/QMetaEnum>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QTranslator>
#include <QtCore/QUrl>
#include <QtGui/QAccessible>
#include <QtGui/QDesktopServices>
#include <QtGui/QIcon>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStyle>
#include <QtWidgets/QWidgetAction>

#include <limits>
#include <memory>
#include <optional>
#include <vector>

namespace {

const auto Left = KestNavigationBar::Left;
const auto Center = KestNavigationBar::Center;
const auto Right = KestNavigationBar::Right;
const auto Invalid = KestNavigationBar::ActionPosition(3);
const auto Negative = KestNavigationBar::ActionPosition(-1);

QIcon icon(const QSize &size = QSize(16, 16))
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::red);
    return QIcon(pixmap);
}

// Layout 0 is the left group, 2 the centre one, 4 the right one; stretches lie between.
QLayout *groupLayout(const KestNavigationBar &bar, KestNavigationBar::ActionPosition position)
{
    return bar.layout()->itemAt(2 * position)->layout();
}

QWidget *widgetAt(const KestNavigationBar &bar, int index,
                  KestNavigationBar::ActionPosition position)
{
    return groupLayout(bar, position)->itemAt(index)->widget();
}

QList<QAction *> actionsOf(const KestNavigationBar &bar, KestNavigationBar::ActionPosition position)
{
    QList<QAction *> actions;
    for (int i = 0; i < bar.count(position); ++i)
        actions.append(bar.actionAt(i, position));
    return actions;
}

// How many slots hear of a signal; protected for no reason that holds for a test.
int receiversOf(const QObject *object, const char *signal)
{
    class Access : public QObject
    {
    public:
        using QObject::receivers;
    };
    return (object->*&Access::receivers)(signal);
}

} // namespace

class UrlReceiver : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> urls;

Q_SIGNALS:
    void opened();

public Q_SLOTS:
    void open(const QUrl &url)
    {
        urls.append(url);
        Q_EMIT opened();
    }
};

class tst_KestNavigationBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void positionsAreAnEnum();
    void layoutHoldsThreeGroups();
    void barIsFiftyPixelsHigh();
    void groundIsPaintedByTheSheet();
    void iconSizeIsAlwaysAnnounced();
    void iconSizeIsStoredBeforeItIsAnnounced();

    void actionsAreAppendedToTheirGroup();
    void plainActionsGoToTheLeft();
    void newActionsBelongToTheBar();
    void insertedActionsBelongToTheCaller();
    void indexesCountWithinTheGroup();
    void indexesOutOfRangeAppend_data();
    void indexesOutOfRangeAppend();
    void invalidPositionsHaveNoWidgets();
    void invalidPositionsBindTheWidgetNevertheless();
    void widgetLeavesTheBarWhoseActionIsGivenNoPlaceWhileItIsRemoved();
    void actionsMoveToTheGroupTheyAreAddedTo();
    void actionsMoveWithinTheirGroup();
    void madeEntriesAreAppended();
    void madeButtonsAreBoundBeforeAnybodyHears();
    void separatorsAreSquare();
    void helpOpensItsUrl();
    void helpTakesTheNameHelp();
    void helpIsReadAsHelpUntilItHasAText();
    void spokenNameOfHelpMayBeTheHosts();
    void spokenNameOfHelpIsTranslated();
    void newSpokenNameOfHelpMayDeleteTheBar_data();
    void newSpokenNameOfHelpMayDeleteTheBar();
    void screenReaderFindsAToolBar();
    void logoIsAnImageButton();
    void userIsAUserButton();
    void lookUps();
    void actionRectIsTheWidgets();
    void groupsStandWhereTheyShould();

    void removedActionLosesItsButton();
    void removedLogoAndUserKeepTheirButtons();
    void changesLeaveTheButton();
    void nameIsFollowedOnce();
    void widgetTakenAwayStaysWhereItIs();
    void widgetsThatAreGoneShiftNothing_data();
    void widgetsThatAreGoneShiftNothing();

    void actionMayDieFirst();
    void barMayDieFirst();
    void windowMayDieFirst();
    void actionMayBeOnTwoBars();
    void buttonsMayDieFirst();
    void positionChangedOnTheBarIsHarmless();
    void actionsMayComeAndGoInASlot();
    void slotMayRemoveDeleteOrMoveItsAction_data();
    void slotMayRemoveDeleteOrMoveItsAction();
    void barMayDieInASlotOfItsButton_data();
    void barMayDieInASlotOfItsButton();
    void helpMayDieOfItsUrl();
    void iconSizeMayDeleteTheBar();
    void newWidgetMayEndItsAction();
    void removedWidgetMayDeleteTheBar();
    void removedWidgetMayBePutBackAtOnce();
    void movedActionMayDie();
    void additionMayEndTheAction();
    void removalMayEndTheAction();
    void newerPlaceOfAnActionHolds_data();
    void newerPlaceOfAnActionHolds();
    void newerPlaceInTheGroupHolds();
    void actionMayComeAndGoWhileItGetsItsPlace();
    void actionWithoutPlaceTakesNoButtonAway();
    void newerIconSizeReachesAllButtons();
    void widgetThatIsPutInMayEndItsAction();
    void actionThatDiedWithTheBarIsNull();
    void focusMayMoveWhileTheBarDies();
    void nullActionsAreIgnored();
    void actionsAddedTogetherAreLaidOutTogether();
};

void tst_KestNavigationBar::positionsAreAnEnum()
{
    const QMetaEnum positions = QMetaEnum::fromType<KestNavigationBar::ActionPosition>();
    QCOMPARE(positions.keyCount(), 3);
    QCOMPARE(positions.keyToValue("Left"), 0);
    QCOMPARE(positions.keyToValue("Center"), 1);
    QCOMPARE(positions.keyToValue("Right"), 2);
}

void tst_KestNavigationBar::layoutHoldsThreeGroups()
{
    const KestNavigationBar bar;
    auto *row = qobject_cast<QHBoxLayout *>(bar.layout());
    QVERIFY(row);
    QCOMPARE(row->contentsMargins(), QMargins(1, 1, 1, 1));
    QCOMPARE(row->spacing(), 0);
    QCOMPARE(row->count(), 5);
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(row->stretch(i), i % 2);
        if (i % 2) {
            QVERIFY(row->itemAt(i)->spacerItem());
            continue;
        }
        auto *group = qobject_cast<QHBoxLayout *>(row->itemAt(i)->layout());
        QVERIFY(group);
        QCOMPARE(group->contentsMargins(), QMargins());
        QCOMPARE(group->spacing(), 1);
    }
}

void tst_KestNavigationBar::barIsFiftyPixelsHigh()
{
    KestNavigationBar bar;
    QCOMPARE(bar.minimumHeight(), 50);
    QCOMPARE(bar.maximumHeight(), 50);
    bar.addLogo(icon(QSize(300, 300)), Left);
    bar.show();
    bar.resize(700, 400);
    QCOMPARE(bar.height(), 50);
}

void tst_KestNavigationBar::groundIsPaintedByTheSheet()
{
    KestNavigationBar bar;
    QVERIFY(bar.testAttribute(Qt::WA_StyledBackground));
    bar.setStyleSheet(QStringLiteral("KestNavigationBar { background: #123456 }"));
    bar.resize(200, 50);
    QCOMPARE(bar.grab().toImage().pixelColor(100, 25), QColor(0x12, 0x34, 0x56));
}

void tst_KestNavigationBar::iconSizeIsAlwaysAnnounced()
{
    KestNavigationBar bar;
    QCOMPARE(bar.iconSize(), QSize(16, 16));
    QAction *const action = bar.addAction(icon(), QStringLiteral("a"), Right);
    auto *button = static_cast<KestToolButton *>(widgetAt(bar, 0, Right));
    QCOMPARE(button->iconSize(), QSize(16, 16));
    QSignalSpy spy(&bar, &KestNavigationBar::iconSizeChanged);
    bar.setIconSize(QSize(16, 16));
    QCOMPARE(spy.count(), 1);
    QVERIFY(bar.setProperty("iconSize", QSize(24, 25)));
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.last().first().toSize(), QSize(24, 25));
    QCOMPARE(bar.property("iconSize").toSize(), QSize(24, 25));
    QCOMPARE(button->iconSize(), QSize(24, 25));
    bar.addAction(QStringLiteral("b"), Left);
    QCOMPARE(static_cast<KestToolButton *>(widgetAt(bar, 0, Left))->iconSize(), QSize(24, 25));
    Q_UNUSED(action)
}

void tst_KestNavigationBar::iconSizeIsStoredBeforeItIsAnnounced()
{
    KestNavigationBar bar;
    QSize heard;
    connect(&bar, &KestNavigationBar::iconSizeChanged, &bar, [&] { heard = bar.iconSize(); });
    bar.setIconSize(QSize(20, 24));
    QCOMPARE(heard, QSize(20, 24));
}

void tst_KestNavigationBar::actionsAreAppendedToTheirGroup()
{
    KestNavigationBar bar;
    QAction left;
    QAction center;
    QAction right;
    QAction left2;
    bar.addAction(&right, Right);
    bar.addAction(&left, Left);
    bar.addAction(&center, Center);
    bar.addAction(&left2, Left);
    QCOMPARE(actionsOf(bar, Left), (QList<QAction *> { &left, &left2 }));
    QCOMPARE(actionsOf(bar, Center), QList<QAction *> { &center });
    QCOMPARE(actionsOf(bar, Right), QList<QAction *> { &right });
    QCOMPARE(left.property("Kest_ActionPosition"), QVariant(0));
    QCOMPARE(center.property("Kest_ActionPosition"), QVariant(1));
    QCOMPARE(right.property("Kest_ActionPosition"), QVariant(2));
    QCOMPARE(static_cast<KestToolButton *>(widgetAt(bar, 1, Left))->defaultAction(), &left2);
}

void tst_KestNavigationBar::plainActionsGoToTheLeft()
{
    KestNavigationBar bar;
    QAction first;
    QAction second;
    static_cast<QWidget &>(bar).addAction(&first);
    bar.insertAction(&first, &second); // QWidget's own is not hidden
    QCOMPARE(actionsOf(bar, Left), (QList<QAction *> { &second, &first }));
    QVERIFY(!first.property("Kest_ActionPosition").isValid());
    QAction third;
    bar.addAction(&third);
    QCOMPARE(bar.count(Left), 3);
}

void tst_KestNavigationBar::newActionsBelongToTheBar()
{
    KestNavigationBar bar;
    QAction *const withIcon = bar.addAction(icon(), QStringLiteral("icon"), Center);
    QAction *const textOnly = bar.addAction(QStringLiteral("text"), Center);
    QCOMPARE(withIcon->text(), QStringLiteral("icon"));
    QVERIFY(!withIcon->icon().isNull());
    QCOMPARE(textOnly->text(), QStringLiteral("text"));
    QVERIFY(textOnly->icon().isNull());
    QCOMPARE(withIcon->parent(), &bar);
    QCOMPARE(textOnly->parent(), &bar);
    QCOMPARE(actionsOf(bar, Center), (QList<QAction *> { withIcon, textOnly }));
}

void tst_KestNavigationBar::insertedActionsBelongToTheCaller()
{
    KestNavigationBar bar;
    const QScopedPointer<QAction> withIcon(bar.insertAction(0, icon(), QStringLiteral("i"), Left));
    const QScopedPointer<QAction> textOnly(bar.insertAction(0, QStringLiteral("t"), Left));
    const QScopedPointer<QAction> separator(bar.insertSeparator(1, Left));
    const QScopedPointer<QAction> appended(bar.addSeparator(Left));
    QVERIFY(!withIcon->parent() && !textOnly->parent() && !separator->parent()
            && !appended->parent());
    QCOMPARE(
        actionsOf(bar, Left),
        (QList<QAction *> { textOnly.data(), separator.data(), withIcon.data(), appended.data() }));
    QVERIFY(!withIcon->icon().isNull());
    QCOMPARE(textOnly->text(), QStringLiteral("t"));
    QVERIFY(separator->isSeparator());
    QVERIFY(appended->isSeparator());
}

void tst_KestNavigationBar::indexesCountWithinTheGroup()
{
    KestNavigationBar bar;
    QAction a;
    QAction b;
    QAction c;
    QAction other;
    bar.addAction(&other, Left);
    bar.insertAction(0, &a, Right);
    bar.insertAction(0, &b, Right);
    bar.insertAction(1, &c, Right);
    QCOMPARE(actionsOf(bar, Right), (QList<QAction *> { &b, &c, &a }));
}

void tst_KestNavigationBar::indexesOutOfRangeAppend_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("negative") << -1;
    QTest::newRow("the count") << 2;
    QTest::newRow("beyond") << 99;
}

void tst_KestNavigationBar::indexesOutOfRangeAppend()
{
    QFETCH(int, index);
    KestNavigationBar bar;
    QAction a;
    QAction b;
    QAction c;
    bar.addAction(&a, Center);
    bar.addAction(&b, Center);
    bar.insertAction(index, &c, Center);
    QCOMPARE(actionsOf(bar, Center), (QList<QAction *> { &a, &b, &c }));
    QVERIFY(!bar.actionAt(index == 2 ? 3 : index, Center));
}

void tst_KestNavigationBar::invalidPositionsHaveNoWidgets()
{
    for (const KestNavigationBar::ActionPosition position : { Invalid, Negative }) {
        KestNavigationBar bar;
        QAction action;
        bar.addAction(&action, position);
        QCOMPARE(bar.actions(), QList<QAction *> { &action });
        QCOMPARE(bar.count(position), 0);
        QVERIFY(!bar.actionAt(0, position));
        QCOMPARE(bar.indexOf(&action), -1);
        QVERIFY(bar.actionRect(&action).isNull());
        QVERIFY(bar.findChildren<KestToolButton *>().isEmpty());
        bar.removeAction(&action);
        QAction second;
        bar.insertAction(0, &second, position);
        QCOMPARE(bar.count(Left) + bar.count(Center) + bar.count(Right), 0);
    }
}

void tst_KestNavigationBar::invalidPositionsBindTheWidgetNevertheless()
{
    KestNavigationBar bar;
    QWidgetAction action(nullptr);
    action.setObjectName(QStringLiteral("name"));
    const QPointer<KestToolButton> button(new KestToolButton);
    action.setDefaultWidget(button);
    bar.addAction(&action, Invalid);
    QCOMPARE(button->defaultAction(), &action);
    QCOMPARE(button->objectName(), QStringLiteral("name"));
    QCOMPARE(button->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
    QCOMPARE(button->iconSize(), bar.iconSize());
    // No more than that: it has no place on the bar, and does not hear of it.
    QVERIFY(!button->parent());
    QVERIFY(button->isHidden());
    bar.setIconSize(QSize(30, 30));
    QCOMPARE(button->iconSize(), QSize(16, 16));
    bar.removeAction(&action);
    QVERIFY(!button.isNull());
}

void tst_KestNavigationBar::widgetLeavesTheBarWhoseActionIsGivenNoPlaceWhileItIsRemoved()
{
    KestNavigationBar bar;
    QWidgetAction action(nullptr);
    const QPointer<QLabel> label(new QLabel(QStringLiteral("label")));
    action.setDefaultWidget(label);
    bar.addAction(&action, Center);
    QCOMPARE(label->parentWidget(), &bar);
    {
        const OnEvent again(&bar, QEvent::ActionRemoved, [&] { bar.addAction(&action, Invalid); });
        bar.removeAction(&action);
    }
    QCOMPARE(bar.actions(), QList<QAction *> { &action });
    QCOMPARE(bar.count(Center), 0);
    QVERIFY(label);
    QVERIFY(!label->parent());
    QVERIFY(label->isHidden());

    // It comes back with its action.
    bar.addAction(&action, Left);
    QCOMPARE(bar.actionAt(0, Left), &action);
    QCOMPARE(label->parentWidget(), &bar);
}

void tst_KestNavigationBar::actionsMoveToTheGroupTheyAreAddedTo()
{
    KestNavigationBar bar;
    bar.show();
    QAction plain(QStringLiteral("plain"));
    QAction *const logo = bar.addLogo(icon(), Left);
    bar.addAction(&plain, Left);
    const QPointer<QWidget> logoButton(widgetAt(bar, 0, Left));
    const QPointer<QWidget> plainButton(widgetAt(bar, 1, Left));
    for (QAction *action : { static_cast<QAction *>(&plain), logo }) {
        bar.addAction(action, Right);
        QCOMPARE(action->property("Kest_ActionPosition"), QVariant(2));
    }
    QCOMPARE(bar.count(Left), 0);
    QCOMPARE(groupLayout(bar, Left)->count(), 0);
    QCOMPARE(actionsOf(bar, Right), (QList<QAction *> { &plain, logo }));
    QVERIFY(plainButton.isNull());
    QCOMPARE(widgetAt(bar, 1, Right), logoButton);
    QVERIFY(!logoButton->isHidden());
    QCOMPARE(bar.findChildren<KestToolButton *>().size(), 2);
    // Away from all groups, and back.
    bar.addAction(&plain, Invalid);
    QCOMPARE(bar.findChildren<KestToolButton *>().size(), 1);
    bar.insertAction(0, &plain, Center);
    QCOMPARE(actionsOf(bar, Center), QList<QAction *> { &plain });
    bar.removeAction(&plain);
    QCOMPARE(bar.findChildren<KestToolButton *>().size(), 1);
}

void tst_KestNavigationBar::actionsMoveWithinTheirGroup()
{
    KestNavigationBar bar;
    QAction a;
    QAction b;
    QAction c;
    for (QAction *action : { &a, &b, &c })
        bar.addAction(action, Center);
    bar.insertAction(0, &c, Center);
    QCOMPARE(actionsOf(bar, Center), (QList<QAction *> { &c, &a, &b }));
    bar.insertAction(1, &a, Center); // in front of itself
    QCOMPARE(actionsOf(bar, Center), (QList<QAction *> { &c, &a, &b }));
    bar.insertAction(2, &b, Center);
    QCOMPARE(actionsOf(bar, Center), (QList<QAction *> { &c, &a, &b }));
    bar.insertAction(-1, &c, Center);
    QCOMPARE(actionsOf(bar, Center), (QList<QAction *> { &a, &b, &c }));
    QCOMPARE(groupLayout(bar, Center)->count(), 3);
}

void tst_KestNavigationBar::madeEntriesAreAppended()
{
    for (const auto position : { Left, Center, Right }) {
        KestNavigationBar bar;
        const QList<QAction *> actions {
            bar.addAction(icon(), QStringLiteral("first"), position),
            bar.addAction(QStringLiteral("second"), position),
            bar.addSeparator(position),
            bar.addHelp(QUrl(), icon(), position),
            bar.addLogo(icon(), position),
            bar.addUser(icon(), QStringLiteral("Ann"), position),
        };
        QCOMPARE(actionsOf(bar, position), actions);
        delete actions.at(2);
    }
}

void tst_KestNavigationBar::madeButtonsAreBoundBeforeAnybodyHears()
{
    KestNavigationBar bar;
    for (const bool user : { false, true }) {
        bool heard = false;
        const OnEvent filter(&bar, QEvent::ActionAdded, [&] {
            auto *action = qobject_cast<QWidgetAction *>(bar.actions().constLast());
            QVERIFY(action);
            auto *button = qobject_cast<KestToolButton *>(action->defaultWidget());
            QVERIFY(button);
            QCOMPARE(button->defaultAction(), action);
            QCOMPARE(button->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
            QVERIFY(!button->icon().isNull());
            QCOMPARE(button->text(), user ? QStringLiteral("Ann") : QString());
            heard = true;
        });
        if (user)
            bar.addUser(icon(), QStringLiteral("Ann"), Left);
        else
            bar.addLogo(icon(), Left);
        QVERIFY(heard);
    }
}

void tst_KestNavigationBar::separatorsAreSquare()
{
    KestNavigationBar bar;
    const QScopedPointer<QAction> action(bar.addSeparator(Center));
    auto *separator = qobject_cast<KestSeparator *>(widgetAt(bar, 0, Center));
    QVERIFY(separator);
    QCOMPARE(separator->orientation(), Qt::Horizontal);
    const int extent = bar.style()->pixelMetric(QStyle::PM_ToolBarSeparatorExtent, nullptr, &bar);
    QCOMPARE(separator->sizeHint(), QSize(extent, extent));
}

void tst_KestNavigationBar::helpOpensItsUrl()
{
    UrlReceiver receiver;
    QDesktopServices::setUrlHandler(QStringLiteral("kesthelp"), &receiver, "open");
    KestNavigationBar bar;
    const QUrl url(QStringLiteral("kesthelp://topic/1"));
    QAction *const help = bar.addHelp(url, icon(), Right);
    QAction *const other =
        bar.insertHelp(0, QUrl(QStringLiteral("kesthelp://other")), icon(), Right);
    QCOMPARE(actionsOf(bar, Right), (QList<QAction *> { other, help }));
    QCOMPARE(help->parent(), &bar);
    QCOMPARE(help->text(), QString());
    QVERIFY(!help->icon().isNull());
    bar.show();
    QTest::mouseClick(widgetAt(bar, 1, Right), Qt::LeftButton);
    QCOMPARE(receiver.urls, QList<QUrl> { url });
    help->trigger();
    QCOMPARE(receiver.urls.size(), 2);
    QDesktopServices::unsetUrlHandler(QStringLiteral("kesthelp"));
}

void tst_KestNavigationBar::helpTakesTheNameHelp()
{
    KestNavigationBar bar;
    QAction *const help = bar.addHelp(QUrl(), icon(), Left);
    QCOMPARE(help->objectName(), QString());
    help->setObjectName(QStringLiteral("help"));
    QCOMPARE(widgetAt(bar, 0, Left)->objectName(), QStringLiteral("help"));
}

void tst_KestNavigationBar::helpIsReadAsHelpUntilItHasAText()
{
    KestNavigationBar bar;
    QAction *const help = bar.addHelp(QUrl(), icon(), Left);
    QAction *const plain = bar.addAction(icon(), QString(), Left);
    QCOMPARE(widgetAt(bar, 0, Left)->accessibleName(), QStringLiteral("Help"));
    QCOMPARE(widgetAt(bar, 1, Left)->accessibleName(), QString());
    help->setText(QStringLiteral("Manual"));
    QCOMPARE(widgetAt(bar, 0, Left)->accessibleName(), QString());
    QCOMPARE(QAccessible::queryAccessibleInterface(widgetAt(bar, 0, Left))->text(QAccessible::Name),
             QStringLiteral("Manual"));
    help->setText(QString());
    QCOMPARE(widgetAt(bar, 0, Left)->accessibleName(), QStringLiteral("Help"));
    plain->setIconText(QStringLiteral("Plain"));
    QCOMPARE(widgetAt(bar, 1, Left)->accessibleName(), QString());
    Announcements reader;
    help->setStatusTip(QStringLiteral("Opens the manual"));
    QCOMPARE(reader.take(), QStringList()); // where the name stays
    // With another button elsewhere.
    bar.addAction(help, Right);
    QCOMPARE(widgetAt(bar, 0, Right)->accessibleName(), QStringLiteral("Help"));
}

void tst_KestNavigationBar::spokenNameOfHelpMayBeTheHosts()
{
    KestNavigationBar bar;
    QAction *const help = bar.addHelp(QUrl(), icon(), Left);
    widgetAt(bar, 0, Left)->setAccessibleName(QStringLiteral("Handbook"));
    help->setText(QStringLiteral("Manual"));
    help->setText(QString());
    QEvent languageChange(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&bar, &languageChange);
    QCOMPARE(widgetAt(bar, 0, Left)->accessibleName(), QStringLiteral("Handbook"));
}

class HelpTranslator : public QTranslator
{
public:
    explicit HelpTranslator(const char *help) : m_help(QString::fromLatin1(help)) { }

    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        return qstrcmp(context, "KestNavigationBar") == 0 && qstrcmp(text, "Help") == 0 ? m_help
                                                                                        : QString();
    }

private:
    QString m_help;
};

void tst_KestNavigationBar::spokenNameOfHelpIsTranslated()
{
    KestNavigationBar bar;
    bar.addHelp(QUrl(), icon(), Left);
    bar.addHelp(QUrl(), icon(), Right);
    const auto names = [&bar] {
        QCoreApplication::processEvents();
        return QStringList { widgetAt(bar, 0, Left)->accessibleName(),
                             widgetAt(bar, 0, Right)->accessibleName() };
    };
    bar.show();
    {
        HelpTranslator german("Hilfe");
        QCoreApplication::installTranslator(&german);
        QCOMPARE(names(), QStringList({ QStringLiteral("Hilfe"), QStringLiteral("Hilfe") }));
        HelpTranslator french("Aide");
        QCoreApplication::installTranslator(&french);
        QCOMPARE(names(), QStringList({ QStringLiteral("Aide"), QStringLiteral("Aide") }));
    }
    QCOMPARE(names(), QStringList({ QStringLiteral("Help"), QStringLiteral("Help") }));
}

void tst_KestNavigationBar::newSpokenNameOfHelpMayDeleteTheBar_data()
{
    QTest::addColumn<QString>("change");
    QTest::newRow("added") << QStringLiteral("added");
    QTest::newRow("language") << QStringLiteral("language");
    if (!ActionsTellACopyOfTheirWidgets) // or Qt tells the bar's button, as it does a QToolBar's
        QTest::newRow("text") << QStringLiteral("text");
}

void tst_KestNavigationBar::newSpokenNameOfHelpMayDeleteTheBar()
{
    QFETCH(QString, change);
    const QPointer<KestNavigationBar> bar(new KestNavigationBar);
    QAction *const help = bar->addHelp(QUrl(), icon(), Left);
    help->setParent(this); // Qt goes on with one that changes
    bar->addHelp(QUrl(), icon(), Left);
    Announcements reader;
    if (change == QLatin1String("language"))
        widgetAt(*bar, 0, Left)->setAccessibleName(QString());
    reader.onEach([&bar] { delete bar; });
    QEvent languageChange(QEvent::LanguageChange);
    if (change == QLatin1String("added"))
        bar->addHelp(QUrl(), icon(), Right);
    else if (change == QLatin1String("language"))
        QCoreApplication::sendEvent(bar, &languageChange);
    else
        help->setText(QStringLiteral("Manual"));
    QVERIFY(bar.isNull());
}

void tst_KestNavigationBar::screenReaderFindsAToolBar()
{
    KestNavigationBar bar;
    bar.setAccessibleName(QStringLiteral("Tasks"));
    bar.addSeparator(Left)->setParent(&bar);
    QAccessibleInterface *const found = QAccessible::queryAccessibleInterface(&bar);
    QCOMPARE(found->role(), QAccessible::ToolBar);
    QCOMPARE(found->text(QAccessible::Name), QStringLiteral("Tasks"));
    QCOMPARE(found->childCount(), 1);
    QCOMPARE(found->child(0)->role(), QAccessible::Separator);
    QCOMPARE(found->child(0)->text(QAccessible::Name), QString());
}

void tst_KestNavigationBar::logoIsAnImageButton()
{
    KestNavigationBar bar;
    QAction *const logo = bar.addLogo(icon(QSize(40, 20)), Left);
    auto *action = qobject_cast<QWidgetAction *>(logo);
    QVERIFY(action);
    QCOMPARE(action->parent(), &bar);
    auto *button = qobject_cast<KestNavigationImageButton *>(widgetAt(bar, 0, Left));
    QVERIFY(button);
    QCOMPARE(action->defaultWidget(), button);
    QCOMPARE(button->defaultAction(), logo);
    QCOMPARE(button->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
    QVERIFY(!button->icon().isNull());
    QVERIFY(!logo->icon().isNull());
    QCOMPARE(button->parentWidget(), &bar);
    logo->setObjectName(QStringLiteral("logo"));
    QCOMPARE(button->objectName(), QStringLiteral("logo"));
    QAction *const before = bar.insertLogo(0, icon(), Left);
    QCOMPARE(actionsOf(bar, Left), (QList<QAction *> { before, logo }));
    QSignalSpy triggered(logo, &QAction::triggered);
    bar.show();
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(triggered.count(), 1);
    // On the shown bar it is as large as its image and the room around it.
    QTRY_COMPARE(button->width(), 40 + 20);
}

void tst_KestNavigationBar::userIsAUserButton()
{
    KestNavigationBar bar;
    QAction *const user = bar.addUser(icon(), QStringLiteral("Ann"), Right);
    auto *action = qobject_cast<QWidgetAction *>(user);
    QVERIFY(action);
    QCOMPARE(action->parent(), &bar);
    auto *button = qobject_cast<KestUserButton *>(widgetAt(bar, 0, Right));
    QVERIFY(button);
    QCOMPARE(action->defaultWidget(), button);
    QCOMPARE(button->defaultAction(), user);
    QCOMPARE(button->parentWidget(), &bar);
    QCOMPARE(button->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
    QCOMPARE(user->text(), QStringLiteral("Ann"));
    QCOMPARE(button->text(), QStringLiteral("Ann"));
    QVERIFY(!button->icon().isNull());
    user->setText(QStringLiteral("Bob"));
    QCOMPARE(button->text(), QStringLiteral("Bob"));
    user->setObjectName(QStringLiteral("user"));
    QCOMPARE(button->objectName(), QStringLiteral("user"));
    QVERIFY(!button->isHidden());
    QAction *const before = bar.insertUser(0, icon(), QStringLiteral("Eve"), Right);
    QCOMPARE(actionsOf(bar, Right), (QList<QAction *> { before, user }));
}

void tst_KestNavigationBar::lookUps()
{
    KestNavigationBar bar;
    QAction *const left = bar.addAction(QStringLiteral("l"), Left);
    bar.addAction(QStringLiteral("c0"), Center);
    QAction *const center = bar.addAction(QStringLiteral("c1"), Center);
    QAction *const right = bar.addAction(QStringLiteral("r"), Right);
    QCOMPARE(bar.count(Left), 1);
    QCOMPARE(bar.count(Center), 2);
    QCOMPARE(bar.count(Right), 1);
    QCOMPARE(bar.indexOf(left), 0);
    QCOMPARE(bar.indexOf(center), 1);
    QCOMPARE(bar.indexOf(right), 0);
    QAction elsewhere;
    QCOMPARE(bar.indexOf(&elsewhere), -1);
    QCOMPARE(bar.actionAt(1, Center), center);
    QVERIFY(!bar.actionAt(2, Center));
    QVERIFY(!bar.actionAt(-1, Center));
}

void tst_KestNavigationBar::actionRectIsTheWidgets()
{
    KestNavigationBar bar;
    QAction *const action = bar.addAction(QStringLiteral("text"), Right);
    bar.resize(400, 50);
    bar.show();
    const QRect rect = bar.actionRect(action);
    QVERIFY(rect.isValid());
    QCOMPARE(rect, widgetAt(bar, 0, Right)->geometry());
    QCOMPARE(rect.right(), 398);
    QAction elsewhere;
    QVERIFY(bar.actionRect(&elsewhere).isNull());
}

void tst_KestNavigationBar::groupsStandWhereTheyShould()
{
    KestNavigationBar bar;
    QAction *const left = bar.addAction(QStringLiteral("same"), Left);
    QAction *const center = bar.addAction(QStringLiteral("same"), Center);
    QAction *const right = bar.addAction(QStringLiteral("same"), Right);
    QAction *const left2 = bar.addAction(QStringLiteral("same"), Left);
    QAction *const right2 = bar.addAction(QStringLiteral("same"), Right);
    bar.resize(800, 50);
    bar.show();
    QCOMPARE(bar.actionRect(left).left(), 1);
    QCOMPARE(bar.actionRect(left).top(), 1);
    QCOMPARE(bar.actionRect(left).height(), 48);
    QCOMPARE(bar.actionRect(left2).left(), bar.actionRect(left).right() + 2);
    QCOMPARE(bar.actionRect(right2).right(), 798);
    QCOMPARE(bar.actionRect(right).right(), bar.actionRect(right2).left() - 2);
    QVERIFY(qAbs(bar.actionRect(center).center().x() - 399) <= 1);
}

void tst_KestNavigationBar::removedActionLosesItsButton()
{
    KestNavigationBar bar;
    QAction first;
    QAction second;
    bar.addAction(&first, Center);
    bar.addAction(&second, Center);
    const QPointer<QWidget> button(widgetAt(bar, 0, Center));
    bar.removeAction(&first);
    QVERIFY(button.isNull());
    QCOMPARE(actionsOf(bar, Center), QList<QAction *> { &second });
    QCOMPARE(groupLayout(bar, Center)->count(), 1);
    bar.removeAction(&first);
    // Moved to another group by adding it there.
    bar.addAction(&first, Left);
    QCOMPARE(actionsOf(bar, Left), QList<QAction *> { &first });
}

void tst_KestNavigationBar::removedLogoAndUserKeepTheirButtons()
{
    KestNavigationBar bar;
    bar.show();
    for (const bool isLogo : { true, false }) {
        QAction *const action =
            isLogo ? bar.addLogo(icon(), Left) : bar.addUser(icon(), QString(), Left);
        const QPointer<QWidget> button(widgetAt(bar, 0, Left));
        bar.removeAction(action);
        QVERIFY(!button.isNull());
        QVERIFY(button->isHidden());
        QVERIFY(!button->parent());
        QCOMPARE(groupLayout(bar, Left)->count(), 0);
        bar.addAction(action, Right);
        QCOMPARE(widgetAt(bar, 0, Right), button);
        QVERIFY(!button->isHidden());
        bar.removeAction(action);
    }
}

void tst_KestNavigationBar::changesLeaveTheButton()
{
    KestNavigationBar bar;
    QAction *const action = bar.addAction(QStringLiteral("before"), Center);
    QWidget *const button = widgetAt(bar, 0, Center);
    action->setText(QStringLiteral("after"));
    QCOMPARE(widgetAt(bar, 0, Center), button);
    QCOMPARE(static_cast<KestToolButton *>(button)->text(), QStringLiteral("after"));
    action->setVisible(false);
    QVERIFY(button->isHidden());
    action->setVisible(true);
    QVERIFY(!button->isHidden());
}

void tst_KestNavigationBar::nameIsFollowedOnce()
{
    KestNavigationBar bar;
    for (const bool isLogo : { true, false }) {
        QAction *const action =
            isLogo ? bar.addLogo(icon(), Left) : bar.addUser(icon(), QString(), Left);
        QWidget *const button = widgetAt(bar, 0, Left);
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(receiversOf(action, SIGNAL(objectNameChanged(QString))), 1);
            QCOMPARE(receiversOf(action, SIGNAL(changed())), 1);
            bar.removeAction(action);
            QCOMPARE(receiversOf(action, SIGNAL(changed())), 0);
            // Its own button follows also while it is on no bar.
            action->setObjectName(QString::number(i));
            QCOMPARE(button->objectName(), QString::number(i));
            bar.addAction(action, Left);
        }
        bar.removeAction(action);
    }
}

void tst_KestNavigationBar::widgetTakenAwayStaysWhereItIs()
{
    KestNavigationBar bar;
    bar.show();
    QWidget elsewhere;
    QWidgetAction action(nullptr);
    auto *label = new QLabel;
    action.setDefaultWidget(label);
    bar.addAction(&action, Center);
    label->setParent(&elsewhere);
    label->show();
    bar.removeAction(&action);
    QCOMPARE(label->parentWidget(), &elsewhere);
    QVERIFY(!label->isHidden());
    QCOMPARE(bar.count(Center), 0);
}

void tst_KestNavigationBar::widgetsThatAreGoneShiftNothing_data()
{
    QTest::addColumn<bool>("deleted");
    QTest::newRow("deleted") << true;
    QTest::newRow("taken away") << false;
}

void tst_KestNavigationBar::widgetsThatAreGoneShiftNothing()
{
    QFETCH(bool, deleted);
    KestNavigationBar bar;
    QWidgetAction gone(nullptr);
    QScopedPointer<QLabel> label(new QLabel);
    gone.setDefaultWidget(label.data());
    QAction a;
    QAction b;
    QAction c;
    QAction d;
    bar.addAction(&gone, Left);
    bar.addAction(&a, Left);
    bar.addAction(&b, Left);
    if (deleted)
        label.reset();
    else
        label->setParent(nullptr);
    bar.insertAction(2, &c, Left); // in front of b
    bar.insertAction(0, &d, Left); // in front of the one that is gone
    QCOMPARE(actionsOf(bar, Left), (QList<QAction *> { &d, &gone, &a, &c, &b }));
    const QAction *const shown[] = { &d, &a, &c, &b };
    QCOMPARE(groupLayout(bar, Left)->count(), 4);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(static_cast<KestToolButton *>(widgetAt(bar, i, Left))->defaultAction(), shown[i]);
    bar.removeAction(&gone);
    QCOMPARE(groupLayout(bar, Left)->count(), 4);
    label.reset();
}

void tst_KestNavigationBar::actionMayDieFirst()
{
    KestNavigationBar bar;
    bar.show();
    delete bar.addAction(QStringLiteral("a"), Center);
    delete bar.addLogo(icon(), Left);
    delete bar.addUser(icon(), QStringLiteral("u"), Right);
    delete bar.addSeparator(Right);
    QCOMPARE(bar.count(Left) + bar.count(Center) + bar.count(Right), 0);
    bar.setIconSize(QSize(20, 20));
}

void tst_KestNavigationBar::barMayDieFirst()
{
    auto *bar = new KestNavigationBar;
    QAction action;
    bar->addAction(&action, Left);
    const QScopedPointer<QAction> separator(bar->addSeparator(Left));
    const QPointer<QAction> logo(bar->addLogo(icon(), Left));
    const QPointer<QAction> user(bar->addUser(icon(), QStringLiteral("u"), Right));
    bar->show();
    delete bar;
    QVERIFY(logo.isNull());
    QVERIFY(user.isNull());
    action.setText(QStringLiteral("later"));
    separator->setObjectName(QStringLiteral("later"));
}

void tst_KestNavigationBar::windowMayDieFirst()
{
    QAction action;
    QWidgetAction custom(nullptr);
    const QPointer<QLabel> label(new QLabel);
    custom.setDefaultWidget(label);
    {
        QWidget window;
        auto *bar = new KestNavigationBar(&window);
        bar->addAction(&action, Left);
        bar->addAction(&custom, Center);
        window.show();
    }
    QVERIFY(action.associatedWidgets().isEmpty());
    QVERIFY(label.isNull());
    action.setText(QStringLiteral("later"));
}

void tst_KestNavigationBar::actionMayBeOnTwoBars()
{
    KestNavigationBar first;
    auto *second = new KestNavigationBar;
    auto *action = new QAction;
    first.addAction(action, Center);
    second->addAction(action, Center);
    delete second;
    QCOMPARE(first.count(Center), 1);
    KestNavigationBar third;
    third.addAction(action, Center);
    delete action;
    QCOMPARE(first.count(Center), 0);
    QCOMPARE(third.count(Center), 0);
}

void tst_KestNavigationBar::buttonsMayDieFirst()
{
    KestNavigationBar bar;
    QAction *const logo = bar.addLogo(icon(), Left);
    QAction *const user = bar.addUser(icon(), QStringLiteral("u"), Left);
    QAction *const plain = bar.addAction(QStringLiteral("p"), Left);
    for (int i = 0; i < 3; ++i)
        delete widgetAt(bar, 0, Left);
    QVERIFY(bar.actionRect(logo).isNull());
    bar.setIconSize(QSize(20, 20));
    bar.removeAction(logo);
    bar.removeAction(user);
    bar.removeAction(plain);
    QCOMPARE(bar.count(Left), 0);
}

void tst_KestNavigationBar::positionChangedOnTheBarIsHarmless()
{
    KestNavigationBar bar;
    auto *action = new QAction(QStringLiteral("a"));
    bar.addAction(action, Left);
    action->setProperty("Kest_ActionPosition", int(Right));
    bar.removeAction(action); // looked for on the right, where it is not
    QCOMPARE(bar.count(Left), 1);
    delete action;
    QVERIFY(!bar.actionAt(0, Left));
    QAction other;
    bar.insertAction(0, &other, Left);
    QCOMPARE(bar.indexOf(&other), 1);
    bar.show();
    bar.grab();
}

void tst_KestNavigationBar::actionsMayComeAndGoInASlot()
{
    KestNavigationBar bar;
    bar.resize(500, 50);
    bar.show();
    auto *action = new QAction(QStringLiteral("go"));
    QAction late(QStringLiteral("late"));
    bar.addAction(action, Center);
    connect(action, &QAction::triggered, &bar, [&] {
        bar.removeAction(action);
        bar.addAction(&late, Center);
    });
    QTest::mouseClick(widgetAt(bar, 0, Center), Qt::LeftButton);
    QCOMPARE(actionsOf(bar, Center), QList<QAction *> { &late });

    const auto add = [&bar](int kind) {
        return kind == 0 ? bar.addLogo(icon(), Left)
            : kind == 1  ? bar.addUser(icon(), QStringLiteral("u"), Left)
                         : bar.addAction(QStringLiteral("x"), Left);
    };
    for (int kind = 0; kind < 3; ++kind) {
        QPointer<QAction> dying(add(kind));
        connect(dying, &QAction::triggered, &bar, [dying] { delete dying; });
        QTest::mouseClick(widgetAt(bar, 0, Left), Qt::LeftButton);
        QVERIFY(dying.isNull());
        QCOMPARE(bar.count(Left), 0);
    }
    delete action;
}

namespace {

enum Entry { Plain, Logo, User };

QAction *addEntry(KestNavigationBar &bar, Entry entry)
{
    return entry == Logo ? bar.addLogo(icon(), Left)
        : entry == User  ? bar.addUser(icon(), QStringLiteral("u"), Left)
                         : bar.addAction(QStringLiteral("x"), Left);
}

void addWaysToActivate()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<bool>("keyboard");
    const char *const entries[] = { "action", "logo", "user" };
    for (const int entry : { Plain, Logo, User }) {
        for (const bool keyboard : { false, true })
            QTest::addRow("%s by %s", entries[entry], keyboard ? "keyboard" : "mouse")
                << entry << keyboard;
    }
}

void activate(QWidget *button, bool keyboard)
{
    if (keyboard)
        QTest::keyClick(button, Qt::Key_Space);
    else
        QTest::mouseClick(button, Qt::LeftButton);
}

} // namespace

void tst_KestNavigationBar::slotMayRemoveDeleteOrMoveItsAction_data()
{
    addWaysToActivate();
}

void tst_KestNavigationBar::slotMayRemoveDeleteOrMoveItsAction()
{
    QFETCH(int, entry);
    QFETCH(bool, keyboard);
    KestNavigationBar bar;
    bar.resize(500, 50);
    bar.show();
    for (const bool checkable : { false, true }) {
        const QPointer<QAction> removed(addEntry(bar, Entry(entry)));
        removed->setCheckable(checkable);
        connect(removed, &QAction::triggered, &bar, [&] { bar.removeAction(removed); });
        const QPointer<QWidget> button(widgetAt(bar, 0, Left));
        activate(button, keyboard);
        QCOMPARE(bar.count(Left), 0);
        QVERIFY(!button || button->isHidden());
        QCOMPARE(removed->isChecked(), checkable);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(button.isNull(), entry == Plain);
        delete removed;

        const QPointer<QAction> moved(addEntry(bar, Entry(entry)));
        moved->setCheckable(checkable);
        connect(moved, &QAction::triggered, &bar, [&] { bar.addAction(moved, Right); });
        activate(widgetAt(bar, 0, Left), keyboard);
        QCOMPARE(bar.count(Left), 0);
        QCOMPARE(actionsOf(bar, Right), QList<QAction *> { moved });
        QVERIFY(widgetAt(bar, 0, Right)->isVisible());
        delete moved;

        const QPointer<QAction> dying(addEntry(bar, Entry(entry)));
        dying->setCheckable(checkable);
        if (checkable)
            connect(dying, &QAction::toggled, &bar, [dying] { delete dying; });
        else
            connect(dying, &QAction::triggered, &bar, [dying] { delete dying; });
        activate(widgetAt(bar, 0, Left), keyboard);
        QVERIFY(dying.isNull());
        QCOMPARE(bar.count(Left), 0);
    }
}

void tst_KestNavigationBar::barMayDieInASlotOfItsButton_data()
{
    addWaysToActivate();
}

void tst_KestNavigationBar::barMayDieInASlotOfItsButton()
{
    QFETCH(int, entry);
    QFETCH(bool, keyboard);
    QWidget window;
    auto *bar = new KestNavigationBar(&window);
    QAction *const action = addEntry(*bar, Entry(entry));
    window.show();
    const QPointer<KestNavigationBar> watch(bar);
    connect(action, &QAction::triggered, &window, [bar] { delete bar; });
    activate(widgetAt(*bar, 0, Left), keyboard);
    QVERIFY(watch.isNull());
}

void tst_KestNavigationBar::helpMayDieOfItsUrl()
{
    UrlReceiver receiver;
    QDesktopServices::setUrlHandler(QStringLiteral("kesthelp"), &receiver, "open");
    KestNavigationBar bar;
    const QUrl url(QStringLiteral("kesthelp://topic/1"));
    const QPointer<QAction> help(bar.addHelp(url, icon(), Right));
    bar.show();
    connect(&receiver, &UrlReceiver::opened, &bar, [help] { delete help; });
    QTest::mouseClick(widgetAt(bar, 0, Right), Qt::LeftButton);
    QCOMPARE(receiver.urls, QList<QUrl> { url });
    QVERIFY(help.isNull());
    QDesktopServices::unsetUrlHandler(QStringLiteral("kesthelp"));
}

void tst_KestNavigationBar::iconSizeMayDeleteTheBar()
{
    const QPointer<KestNavigationBar> bar(new KestNavigationBar);
    bar->addAction(QStringLiteral("a"), Left);
    QObject context;
    connect(bar, &KestNavigationBar::iconSizeChanged, &context, [bar] { delete bar; });
    bar->setIconSize(QSize(20, 20));
    QVERIFY(bar.isNull());
    // Or what is on it, before or after the others have heard of the size.
    for (const bool early : { true, false }) {
        KestNavigationBar other;
        QAction *const first = other.addAction(QStringLiteral("a"), Left);
        const auto removal = [&] { other.removeAction(first); };
        if (early)
            connect(&other, &KestNavigationBar::iconSizeChanged, &context, removal);
        QAction *const last = other.addAction(QStringLiteral("b"), Left);
        if (!early)
            connect(&other, &KestNavigationBar::iconSizeChanged, &context, removal);
        other.setIconSize(QSize(20, 20));
        QCOMPARE(actionsOf(other, Left), QList<QAction *> { last });
        QCOMPARE(static_cast<KestToolButton *>(widgetAt(other, 0, Left))->iconSize(),
                 QSize(20, 20));
    }
}

void tst_KestNavigationBar::newWidgetMayEndItsAction()
{
    for (const bool separator : { false, true }) {
        KestNavigationBar bar;
        auto *action = new QAction(QStringLiteral("short-lived"));
        action->setSeparator(separator);
        const OnEvent filter(&bar, QEvent::ChildAdded, [action] { delete action; });
        bar.addAction(action, Left);
        QCOMPARE(bar.count(Left), 0);
        QCOMPARE(groupLayout(bar, Left)->count(), 0);
    }
    {
        KestNavigationBar bar;
        bar.show();
        QAction action(QStringLiteral("removed at once"));
        const OnEvent filter(&bar, QEvent::ChildAdded, [&] { bar.removeAction(&action); });
        bar.addAction(&action, Left);
        QCOMPARE(bar.count(Left), 0);
        QVERIFY(bar.findChildren<KestToolButton *>().isEmpty());
    }
    {
        QWidget window;
        const QPointer<KestNavigationBar> bar(new KestNavigationBar(&window));
        window.show();
        QWidgetAction action(nullptr);
        auto *label = new QLabel;
        action.setDefaultWidget(label);
        const OnEvent filter(label, QEvent::ShowToParent, [bar] { delete bar; });
        bar->addAction(&action, Left);
        QVERIFY(bar.isNull());
    }
    {
        KestNavigationBar bar;
        auto *action = new QAction(QStringLiteral("named"));
        const OnEvent filter(action, QEvent::DynamicPropertyChange, [action] { delete action; });
        bar.addAction(action, Left);
        QCOMPARE(bar.count(Left), 0);
    }
}

void tst_KestNavigationBar::removedWidgetMayDeleteTheBar()
{
    QWidget window;
    const QPointer<KestNavigationBar> bar(new KestNavigationBar(&window));
    QWidgetAction action(nullptr);
    auto *label = new QLabel;
    action.setDefaultWidget(label);
    bar->addAction(&action, Left);
    window.show();
    const OnEvent filter(label, QEvent::HideToParent, [bar] { delete bar; });
    bar->removeAction(&action);
    QVERIFY(bar.isNull());
}

void tst_KestNavigationBar::removedWidgetMayBePutBackAtOnce()
{
    KestNavigationBar bar;
    bar.show();
    QAction *const logo = bar.addLogo(icon(), Left);
    QWidget *const button = widgetAt(bar, 0, Left);
    const OnEvent filter(button, QEvent::HideToParent, [&] { bar.addAction(logo, Right); });
    bar.removeAction(logo);
    QCOMPARE(bar.count(Left), 0);
    QCOMPARE(actionsOf(bar, Right), QList<QAction *> { logo });
    QCOMPARE(widgetAt(bar, 0, Right), button);
    QVERIFY(button->isVisible());
}

void tst_KestNavigationBar::movedActionMayDie()
{
    for (const bool bar : { false, true }) {
        QWidget window;
        const QPointer<KestNavigationBar> watch(new KestNavigationBar(&window));
        const QPointer<QAction> action(watch->addLogo(icon(), Left));
        QAction next;
        watch->addAction(&next, Right);
        window.show();
        const OnEvent filter(widgetAt(*watch, 0, Left), QEvent::HideToParent, [&] {
            if (bar)
                delete watch;
            else
                delete action;
        });
        watch->insertAction(0, action, Right);
        QVERIFY(action.isNull());
        QCOMPARE(watch.isNull(), bar);
        if (watch)
            QCOMPARE(actionsOf(*watch, Right), QList<QAction *> { &next });
    }
}

void tst_KestNavigationBar::additionMayEndTheAction()
{
    KestNavigationBar bar;
    auto *const action = new QAction(QStringLiteral("action"));
    OnEvent end(&bar, QEvent::ActionAdded, [action] { delete action; });
    bar.addAction(action, Center);
    QCOMPARE(bar.count(Center), 0);
    QCOMPARE(groupLayout(bar, Center)->count(), 0);
    QVERIFY(!bar.findChild<KestToolButton *>());
}

void tst_KestNavigationBar::removalMayEndTheAction()
{
    KestNavigationBar bar;
    auto *const action = new QAction(QStringLiteral("action"));
    bar.addAction(action, Center);
    OnEvent end(&bar, QEvent::ActionRemoved, [action] { delete action; });
    bar.removeAction(action);
    QCOMPARE(bar.count(Center), 0);
    QCOMPARE(groupLayout(bar, Center)->count(), 0);
    QVERIFY(!bar.findChild<KestToolButton *>());
}

void tst_KestNavigationBar::newerPlaceOfAnActionHolds_data()
{
    QTest::addColumn<QEvent::Type>("moment");
    QTest::addColumn<bool>("onBar");
    QTest::newRow("while it is added") << QEvent::ActionAdded << false;
    QTest::newRow("while its button is made") << QEvent::ChildAdded << false;
    QTest::newRow("while it is moved") << QEvent::ActionRemoved << true;
}

// Whoever hears of an action that comes or goes may put it elsewhere on the bar.
void tst_KestNavigationBar::newerPlaceOfAnActionHolds()
{
    QFETCH(QEvent::Type, moment);
    QFETCH(bool, onBar);
    KestNavigationBar bar;
    QAction action(QStringLiteral("action"));
    if (onBar)
        bar.addAction(&action, Left);
    OnEvent elsewhere(&bar, moment, [&] { bar.addAction(&action, Right); });
    bar.addAction(&action, Center);
    QCOMPARE(actionsOf(bar, Left), QList<QAction *>());
    QCOMPARE(actionsOf(bar, Center), QList<QAction *>());
    QCOMPARE(actionsOf(bar, Right), QList<QAction *>({ &action }));
    QCOMPARE(groupLayout(bar, Left)->count(), 0);
    QCOMPARE(groupLayout(bar, Center)->count(), 0);
    QCOMPARE(groupLayout(bar, Right)->count(), 1);
    QCOMPARE(bar.findChildren<KestToolButton *>().size(), 1);

    bar.removeAction(&action);
    QCOMPARE(actionsOf(bar, Right), QList<QAction *>());
    QCOMPARE(groupLayout(bar, Right)->count(), 0);
}

void tst_KestNavigationBar::newerPlaceInTheGroupHolds()
{
    KestNavigationBar bar;
    QAction first(QStringLiteral("first"));
    QAction second(QStringLiteral("second"));
    QAction action(QStringLiteral("action"));
    bar.addAction(&first, Left);
    bar.addAction(&second, Left);
    const OnEvent front(&bar, QEvent::ChildAdded, [&] { bar.insertAction(0, &action, Left); });
    bar.addAction(&action, Left);
    QCOMPARE(actionsOf(bar, Left), (QList<QAction *> { &action, &first, &second }));
    QCOMPARE(groupLayout(bar, Left)->count(), 3);
}

// A filter of the action's hears of the property that holds its group.
void tst_KestNavigationBar::actionMayComeAndGoWhileItGetsItsPlace()
{
    {
        KestNavigationBar bar;
        QAction left(QStringLiteral("left"));
        QAction right(QStringLiteral("right"));
        QAction action(QStringLiteral("action"));
        bar.addAction(&left, Left);
        bar.addAction(&right, Right);
        const OnEvent elsewhere(&action, QEvent::DynamicPropertyChange,
                                [&] { bar.insertAction(0, &action, Right); });
        bar.insertAction(0, &action, Left);
        QCOMPARE(actionsOf(bar, Left), QList<QAction *> { &left });
        QCOMPARE(actionsOf(bar, Right), (QList<QAction *> { &action, &right }));
    }
    {
        QAction action(QStringLiteral("action"));
        auto *bar = new KestNavigationBar;
        const OnEvent end(&action, QEvent::DynamicPropertyChange, [bar] { delete bar; });
        bar->addAction(&action, Left);
        QVERIFY(action.associatedWidgets().isEmpty());
    }
    {
        static int warnings = 0;
        const auto before = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &) { ++warnings; });
        KestNavigationBar bar;
        auto *action = new QAction(QStringLiteral("action"));
        const OnEvent end(action, QEvent::DynamicPropertyChange, [action] { delete action; });
        bar.addAction(action, Left);
        qInstallMessageHandler(before);
        QVERIFY(bar.actions().isEmpty());
        QCOMPARE(warnings, 0);
    }
}

// Neither one that was on the bar before nor another one at the same address.
void tst_KestNavigationBar::actionWithoutPlaceTakesNoButtonAway()
{
    for (const bool again : { false, true }) {
        KestNavigationBar bar;
        std::optional<QAction> action;
        action.emplace();
        bar.addAction(&*action, Left);
        if (again) {
            const OnEvent end(&bar, QEvent::ActionRemoved, [&action] { action.reset(); });
            bar.removeAction(&*action);
            action.emplace();
        } else {
            bar.removeAction(&*action);
        }
        QCOMPARE(bar.count(Left), 0);
        // A button whose action has died without the bar's knowing.
        auto *lost = new QAction;
        bar.addAction(lost, Left);
        {
            const Drop drop(&bar, QEvent::ActionRemoved);
            delete lost;
        }
        QCOMPARE(bar.count(Left), 1);
        bar.addAction(&*action, Invalid);
        bar.removeAction(&*action);
        QCOMPARE(bar.count(Left), 1);
        QCOMPARE(groupLayout(bar, Left)->count(), 1);
    }
}

void tst_KestNavigationBar::newerIconSizeReachesAllButtons()
{
    KestNavigationBar bar;
    connect(&bar, &KestNavigationBar::iconSizeChanged, &bar, [&bar](const QSize &size) {
        if (size != QSize(24, 24))
            bar.setIconSize(QSize(24, 24));
    });
    bar.addAction(QStringLiteral("action"), Left);
    bar.setIconSize(QSize(32, 32));
    QCOMPARE(bar.findChild<KestToolButton *>()->iconSize(), QSize(24, 24));

    KestNavigationBar other;
    OnEvent whileMade(&other, QEvent::ChildAdded, [&other] { other.setIconSize(QSize(8, 8)); });
    QAction action;
    other.addAction(&action, Left);
    QCOMPARE(other.findChild<KestToolButton *>()->iconSize(), QSize(8, 8));
}

void tst_KestNavigationBar::widgetThatIsPutInMayEndItsAction()
{
    KestNavigationBar bar;
    QWidgetAction action(nullptr);
    action.setDefaultWidget(new QLabel);
    std::unique_ptr<OnEvent> widget;
    // The bar's first new child is the item, the second is the widget.
    OnEvent item(&bar, QEvent::ChildAdded, [&] {
        widget =
            std::make_unique<OnEvent>(&bar, QEvent::ChildAdded, [&] { bar.removeAction(&action); });
    });
    bar.addAction(&action, Center);
    QCOMPARE(actionsOf(bar, Center), QList<QAction *>());
    QCOMPARE(groupLayout(bar, Center)->count(), 0);
}

void tst_KestNavigationBar::actionThatDiedWithTheBarIsNull()
{
    const auto dying = [] {
        auto *const bar = new KestNavigationBar;
        auto *const end = new OnEvent(bar, QEvent::ActionAdded, [bar] { delete bar; });
        connect(bar, &QObject::destroyed, end, &QObject::deleteLater);
        return bar;
    };
    QVERIFY(!dying()->addAction(QStringLiteral("action"), Left));
    QVERIFY(!dying()->addHelp(QUrl(), icon(), Left));
    QVERIFY(!dying()->addLogo(icon(), Left));
    QVERIFY(!dying()->addUser(icon(), QStringLiteral("user"), Left));
    QAction *const own = dying()->insertSeparator(0, Left);
    QVERIFY(own); // it does not belong to the bar
    delete own;
}

void tst_KestNavigationBar::focusMayMoveWhileTheBarDies()
{
    QWidget window;
    auto *bar = new KestNavigationBar(&window);
    QAction left(QStringLiteral("left"));
    QAction right(QStringLiteral("right"));
    QAction late(QStringLiteral("late"));
    bar->addAction(&left, Left);
    bar->addAction(&right, Right);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    int changes = 0;
    widgetAt(*bar, 0, Left)->setFocus();
    const auto connection = connect(qApp, &QApplication::focusChanged, &window, [&] {
        if (++changes > 1) {
            // The one that came late has the focus now, and goes with it.
            QCOMPARE(bar->indexOf(&late), -1);
            bar->removeAction(&late);
            return;
        }
        // Whatever is asked, the lists hold no entry that is on its way out.
        QCOMPARE(bar->indexOf(&left), -1);
        QVERIFY(bar->actionRect(&left).isNull());
        bar->setIconSize(QSize(20, 20));
        bar->removeAction(&left);
        bar->addAction(&late, Left);
        const QSignalBlocker blocker(qApp);
        widgetAt(*bar, groupLayout(*bar, Left)->count() - 1, Left)->setFocus();
    });
    delete bar;
    disconnect(connection);
    QVERIFY(changes > 1);
    QVERIFY(late.associatedWidgets().isEmpty());
}

void tst_KestNavigationBar::nullActionsAreIgnored()
{
    KestNavigationBar bar;
    bar.addAction(nullptr, Left);
    for (const int index : { 0, std::numeric_limits<int>::max() })
        bar.insertAction(index, static_cast<QAction *>(nullptr), Right);
    QVERIFY(bar.actions().isEmpty());
    QCOMPARE(bar.indexOf(nullptr), -1);
    // Also where an entry has lost its action.
    auto *action = new QAction;
    bar.addAction(action, Left);
    action->setProperty("Kest_ActionPosition", int(Right));
    delete action;
    QCOMPARE(bar.count(Left), 1);
    QCOMPARE(bar.indexOf(nullptr), -1);
    QVERIFY(bar.actionRect(nullptr).isNull());
}

void tst_KestNavigationBar::actionsAddedTogetherAreLaidOutTogether()
{
    KestNavigationBar bar;
    bar.addAction(QStringLiteral("first"), Left);
    bar.resize(800, 50);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    int places = 0;
    std::vector<std::unique_ptr<OnEvent>> filters;
    int last = -1;
    QVector<QWidget *> buttons { widgetAt(bar, 0, Left) };
    for (int i = 0; i < 5; ++i) {
        bar.addAction(QStringLiteral("action %1").arg(i), Left);
        QWidget *const button = widgetAt(bar, i + 1, Left);
        QVERIFY(button->isVisible());
        filters.push_back(std::make_unique<OnEvent>(button, QEvent::Move, [&places] { ++places; }));
        filters.push_back(
            std::make_unique<OnEvent>(button, QEvent::Resize, [&places] { ++places; }));
        buttons.append(button);
    }
    QCOMPARE(places, 0);
    QVERIFY(bar.layout()->isEnabled());
    QTRY_VERIFY(places > 0);
    for (QWidget *button : qAsConst(buttons)) {
        QVERIFY(button->x() > last);
        last = button->geometry().right();
    }
}

QTEST_MAIN(tst_KestNavigationBar)
#include "tst_kestnavigationbar.moc"
