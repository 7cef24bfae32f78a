// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestWidgetItem.h"

#include "KestSeparator.h"
#include "KestToolButton.h"

#include <QtCore/QPointer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QWidgetAction>

#include <memory>

namespace {

const QSize IconSize(20, 18);

std::shared_ptr<KestWidgetItem> makeItem(QAction *action, QWidget *bar,
                                         Qt::Orientation orientation = Qt::Horizontal)
{
    return std::make_shared<KestWidgetItem>(action, orientation, IconSize, bar);
}

} // namespace

class tst_KestWidgetItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plainActionGetsAToolButton();
    void actionsNameIsFollowed();
    void actionsVisibilityIsFollowed();
    void actionsTextAndStateAreFollowed();
    void separatorGetsASeparator();
    void separatorDoesNotFollowTheVisibility();
    void customWidgetStaysItsOwn();
    void customWidgetIsFollowed();
    void customToolButtonIsWiredAsAnOwnOne();
    void customToolButtonWithoutParentIsNotShown();
    void widgetActionWithoutWidgetGetsAToolButton();
    void iconSizeReachesTheButton();
    void releasedItemDeletesNothing();
    void itemIsChildOfTheBar();

    void barMayDieFirst();
    void actionMayDieFirst();
    void widgetMayDieFirst();
    void customWidgetMayDieFirst();
    void connectionsEndWithTheItem_data();
    void connectionsEndWithTheItem();
    void buttonIsDismissedInItsOwnEvent();
    void actionMayComeToLifeWhileTheWidgetGoes();
    void widgetMayDieWhileItIsBound();
    void actionMayDieWhileItsButtonIsBound();
    void actionMayDieWhileItsSeparatorIsMade();
};

void tst_KestWidgetItem::plainActionGetsAToolButton()
{
    QWidget bar;
    QAction action(QStringLiteral("Text"));
    action.setObjectName(QStringLiteral("name"));
    QPointer<QWidget> widget;
    {
        const auto item = makeItem(&action, &bar);
        QCOMPARE(item->action(), &action);
        QVERIFY(!item->isCustomWidget());
        auto *button = qobject_cast<KestToolButton *>(item->widget());
        QVERIFY(button);
        widget = button;
        QCOMPARE(button->parentWidget(), &bar);
        QCOMPARE(button->defaultAction(), &action);
        QCOMPARE(button->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
        QCOMPARE(button->sizePolicy().controlType(), QSizePolicy::DefaultType);
        QCOMPARE(button->objectName(), QStringLiteral("name"));
        QCOMPARE(button->iconSize(), IconSize);
        QVERIFY(!button->isHidden());
    }
    QVERIFY(widget.isNull());

    QAction hidden;
    hidden.setVisible(false);
    QVERIFY(makeItem(&hidden, &bar)->widget()->isHidden());
}

void tst_KestWidgetItem::actionsNameIsFollowed()
{
    QWidget bar;
    QAction action;
    const auto item = makeItem(&action, &bar);
    action.setObjectName(QStringLiteral("renamed"));
    QCOMPARE(item->widget()->objectName(), QStringLiteral("renamed"));
}

void tst_KestWidgetItem::actionsVisibilityIsFollowed()
{
    QWidget bar;
    QAction action;
    const auto item = makeItem(&action, &bar);
    action.setVisible(false);
    QVERIFY(item->widget()->isHidden());
    action.setVisible(true);
    QVERIFY(!item->widget()->isHidden());
    // A button that was taken out of the bar is left alone.
    item->widget()->setParent(nullptr);
    action.setVisible(false);
    action.setVisible(true);
    QVERIFY(item->widget()->isHidden());
}

void tst_KestWidgetItem::actionsTextAndStateAreFollowed()
{
    QWidget bar;
    QAction action;
    const auto item = makeItem(&action, &bar);
    auto *button = static_cast<KestToolButton *>(item->widget());
    action.setText(QStringLiteral("Later"));
    action.setToolTip(QStringLiteral("tip"));
    action.setCheckable(true);
    action.setChecked(true);
    action.setEnabled(false);
    QCOMPARE(button->text(), QStringLiteral("Later"));
    QCOMPARE(button->toolTip(), QStringLiteral("tip"));
    QVERIFY(button->isChecked());
    QVERIFY(!button->isEnabled());
}

void tst_KestWidgetItem::separatorGetsASeparator()
{
    QWidget bar;
    QAction action;
    action.setSeparator(true);
    action.setObjectName(QStringLiteral("line"));
    for (const Qt::Orientation orientation : { Qt::Horizontal, Qt::Vertical }) {
        const auto item = makeItem(&action, &bar, orientation);
        auto *separator = qobject_cast<KestSeparator *>(item->widget());
        QVERIFY(separator);
        QCOMPARE(separator->orientation(), orientation);
        QCOMPARE(separator->parentWidget(), &bar);
        QVERIFY(!item->isCustomWidget());
        QCOMPARE(separator->objectName(), QStringLiteral("line"));
    }
    const auto item = makeItem(&action, &bar);
    action.setObjectName(QStringLiteral("renamed"));
    QCOMPARE(item->widget()->objectName(), QStringLiteral("renamed"));
    // A released item follows no more.
    const QPointer<QWidget> widget(item->widget());
    item->release();
    action.setObjectName(QStringLiteral("again"));
    QCOMPARE(widget->objectName(), QStringLiteral("renamed"));
}

void tst_KestWidgetItem::separatorDoesNotFollowTheVisibility()
{
    QWidget bar;
    QAction action;
    action.setSeparator(true);
    const auto item = makeItem(&action, &bar);
    action.setVisible(false);
    QVERIFY(!item->widget()->isHidden());
}

void tst_KestWidgetItem::customWidgetStaysItsOwn()
{
    QWidget bar;
    QWidgetAction action(nullptr);
    auto *edit = new QLineEdit;
    edit->setObjectName(QStringLiteral("edit"));
    action.setObjectName(QStringLiteral("action"));
    action.setDefaultWidget(edit);
    const QPointer<QLineEdit> watch(edit);
    {
        const auto item = makeItem(&action, &bar);
        QVERIFY(item->isCustomWidget());
        QCOMPARE(item->widget(), edit);
        QCOMPARE(edit->objectName(), QStringLiteral("edit")); // not copied, only followed
        QVERIFY(!edit->parent());
    }
    QVERIFY(!watch.isNull());
}

void tst_KestWidgetItem::customWidgetIsFollowed()
{
    QWidget bar;
    QWidgetAction action(nullptr);
    auto *edit = new QLineEdit(&bar);
    action.setDefaultWidget(edit);
    edit->setParent(&bar);
    edit->show();
    const auto item = makeItem(&action, &bar);
    action.setVisible(false);
    QVERIFY(edit->isHidden());
    action.setVisible(true);
    QVERIFY(!edit->isHidden());
    action.setObjectName(QStringLiteral("renamed"));
    QCOMPARE(edit->objectName(), QStringLiteral("renamed"));
}

void tst_KestWidgetItem::customToolButtonIsWiredAsAnOwnOne()
{
    QWidget bar;
    QWidgetAction action(nullptr);
    auto *button = new KestToolButton;
    action.setDefaultWidget(button);
    button->setParent(&bar);
    action.setObjectName(QStringLiteral("name"));
    const QPointer<KestToolButton> watch(button);
    {
        const auto item = makeItem(&action, &bar);
        QVERIFY(item->isCustomWidget());
        QCOMPARE(item->widget(), button);
        QCOMPARE(button->defaultAction(), &action);
        QCOMPARE(button->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
        QCOMPARE(button->objectName(), QStringLiteral("name"));
        QVERIFY(!button->isHidden());
        QCOMPARE(button->iconSize(), IconSize);
        action.setVisible(false);
        QVERIFY(button->isHidden());
        Q_EMIT item->iconSizeChanged(QSize(9, 9));
        QCOMPARE(button->iconSize(), QSize(9, 9));
    }
    QVERIFY(!watch.isNull());
}

void tst_KestWidgetItem::customToolButtonWithoutParentIsNotShown()
{
    QWidget bar;
    QWidgetAction action(nullptr);
    auto *button = new KestToolButton;
    action.setDefaultWidget(button);
    const auto item = makeItem(&action, &bar);
    QVERIFY(!button->parent());
    QVERIFY(button->isHidden());
}

void tst_KestWidgetItem::widgetActionWithoutWidgetGetsAToolButton()
{
    QWidget bar;
    QWidgetAction action(nullptr);
    const auto item = makeItem(&action, &bar);
    QVERIFY(!item->isCustomWidget());
    QVERIFY(qobject_cast<KestToolButton *>(item->widget()));
}

void tst_KestWidgetItem::iconSizeReachesTheButton()
{
    QWidget bar;
    QAction action;
    const auto item = makeItem(&action, &bar);
    auto *button = static_cast<KestToolButton *>(item->widget());
    QSignalSpy spy(item.get(), &KestWidgetItem::iconSizeChanged);
    Q_EMIT item->iconSizeChanged(QSize(40, 41));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(button->iconSize(), QSize(40, 41));
}

void tst_KestWidgetItem::releasedItemDeletesNothing()
{
    QWidget bar;
    QAction action;
    auto item = makeItem(&action, &bar);
    const QPointer<QWidget> widget(item->widget());
    item->release();
    QVERIFY(!item->action());
    QVERIFY(!item->widget());
    item.reset();
    QVERIFY(!widget.isNull());
}

void tst_KestWidgetItem::itemIsChildOfTheBar()
{
    QWidget bar;
    QAction action;
    QCOMPARE(makeItem(&action, &bar)->parent(), &bar);
}

void tst_KestWidgetItem::barMayDieFirst()
{
    auto *bar = new QWidget;
    QAction action;
    QAction separator;
    separator.setSeparator(true);
    auto item = makeItem(&action, bar);
    auto line = makeItem(&separator, bar);
    delete bar;
    QVERIFY(!item->widget());
    QVERIFY(!item->parent());
    action.setVisible(false);
    separator.setObjectName(QStringLiteral("renamed"));
    QCOMPARE(item->action(), &action);
}

void tst_KestWidgetItem::actionMayDieFirst()
{
    QWidget bar;
    auto *action = new QAction;
    const auto item = makeItem(action, &bar);
    delete action;
    QVERIFY(!item->action());
    QVERIFY(item->widget());
}

void tst_KestWidgetItem::widgetMayDieFirst()
{
    QWidget bar;
    QAction action;
    const auto item = makeItem(&action, &bar);
    delete item->widget();
    QVERIFY(!item->widget());
    action.setVisible(false);
    action.setObjectName(QStringLiteral("renamed"));
    Q_EMIT item->iconSizeChanged(QSize(1, 1));
}

void tst_KestWidgetItem::customWidgetMayDieFirst()
{
    QWidget bar;
    auto *action = new QWidgetAction(nullptr);
    auto *edit = new QLineEdit;
    action->setDefaultWidget(edit);
    const auto item = makeItem(action, &bar);
    delete action; // and its widget with it
    QVERIFY(!item->widget());
    QVERIFY(!item->action());
    QVERIFY(item->isCustomWidget());
}

void tst_KestWidgetItem::connectionsEndWithTheItem_data()
{
    QTest::addColumn<QWidget *>("widget");
    QTest::newRow("line edit") << static_cast<QWidget *>(new QLineEdit);
    QTest::newRow("tool button") << static_cast<QWidget *>(new KestToolButton);
    QTest::newRow("none") << static_cast<QWidget *>(nullptr);
}

void tst_KestWidgetItem::connectionsEndWithTheItem()
{
    class Action : public QWidgetAction
    {
    public:
        Action() : QWidgetAction(nullptr) { }
        using QWidgetAction::receivers;
    };
    QFETCH(QWidget *, widget);
    QWidget bar;
    Action action;
    action.setDefaultWidget(widget);
    const auto count = [&action] {
        return qMakePair(action.receivers(SIGNAL(changed())),
                         action.receivers(SIGNAL(objectNameChanged(QString))));
    };
    const auto before = count();
    for (int i = 0; i < 3; ++i) {
        const auto item = makeItem(&action, &bar);
        QCOMPARE(count(), qMakePair(before.first + 1, before.second + 1));
    }
    QCOMPARE(count(), before);
    {
        const auto item = makeItem(&action, &bar);
        item->release();
        action.setObjectName(QStringLiteral("released"));
        QCOMPARE(count().second, before.second);
        Q_EMIT item->iconSizeChanged(QSize(99, 99));
    }
    if (widget)
        QVERIFY(widget->objectName() != QStringLiteral("released"));
    if (auto *button = qobject_cast<KestToolButton *>(widget))
        QCOMPARE(button->iconSize(), IconSize);
}

void tst_KestWidgetItem::buttonIsDismissedInItsOwnEvent()
{
    QWidget bar;
    QAction action;
    auto item = makeItem(&action, &bar);
    const QPointer<QWidget> button(item->widget());
    bar.show();
    connect(&action, &QAction::triggered, &bar, [&item] { item.reset(); });
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!item);
    QVERIFY(!button || button->isHidden());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(button.isNull());
}

void tst_KestWidgetItem::actionMayComeToLifeWhileTheWidgetGoes()
{
    QWidget bar;
    QAction action;
    auto item = makeItem(&action, &bar);
    bar.show();
    const QPointer<QWidget> button(item->widget());
    connect(&action, &QAction::triggered, &bar, [&] {
        item.reset();
        action.setVisible(false);
        action.setVisible(true);
        action.setObjectName(QStringLiteral("late"));
    });
    QTest::mouseClick(button, Qt::LeftButton);
    if (button) {
        QVERIFY(button->isHidden());
        QVERIFY(button->objectName() != QStringLiteral("late"));
    }
}

void tst_KestWidgetItem::widgetMayDieWhileItIsBound()
{
    for (const bool deleteAction : { false, true }) {
        QWidget bar;
        auto *action = new QWidgetAction(&bar);
        action->setObjectName(QStringLiteral("name"));
        const QPointer<KestToolButton> button(new KestToolButton);
        action->setDefaultWidget(button);
        connect(button, &QObject::objectNameChanged, &bar, [&] {
            if (deleteAction)
                delete action; // and its widget with it
            else
                delete button;
        });
        const auto item = makeItem(action, &bar);
        QVERIFY(!item->widget());
        QCOMPARE(item->action() == nullptr, deleteAction);
    }
}

void tst_KestWidgetItem::actionMayDieWhileItsButtonIsBound()
{
    // The font is the last that a tool button takes over from its action.
    class Filter : public QObject
    {
    public:
        explicit Filter(QAction *action) : m_action(action) { qApp->installEventFilter(this); }
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() == QEvent::FontChange && qobject_cast<KestToolButton *>(watched))
                delete m_action;
            return false;
        }

    private:
        QPointer<QAction> m_action;
    };
    QWidget bar;
    auto *action = new QAction;
    action->setObjectName(QStringLiteral("name"));
    action->setVisible(false);
    action->setFont(QFont(QStringLiteral("DejaVu Serif"), 30));
    const Filter filter(action);
    const auto item = makeItem(action, &bar);
    QVERIFY(!item->action());
    QVERIFY(item->widget());
    QCOMPARE(item->widget()->objectName(), QString());
}

void tst_KestWidgetItem::actionMayDieWhileItsSeparatorIsMade()
{
    class Bar : public QWidget
    {
    public:
        QPointer<QAction> action;

    protected:
        void childEvent(QChildEvent *event) override
        {
            if (event->added() && event->child()->isWidgetType())
                delete action;
        }
    };
    Bar bar;
    bar.action = new QAction;
    bar.action->setSeparator(true);
    bar.action->setObjectName(QStringLiteral("name"));
    const auto item = makeItem(bar.action, &bar);
    QVERIFY(!item->action());
    QVERIFY(item->widget());
    QCOMPARE(item->widget()->objectName(), QString());
}

QTEST_MAIN(tst_KestWidgetItem)
#include "tst_kestwidgetitem.moc"
