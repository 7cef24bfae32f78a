// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestNavigationBar.h"
#include "KestTitleBar.h"
#include "KestToolButton.h"
#include "OnEvent.h"
#include "TestedQt.h"

#include <QAction>
#include <QtCore/QPointer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QWidgetAction>

#include <functional>
#include <memory>

namespace {

// A shown window with one of the bars.
class Host : public QWidget
{
public:
    explicit Host(const QString &kind)
    {
        if (kind == QLatin1String("title")) {
            bar = new KestTitleBar(this);
            row = bar->findChild<QHBoxLayout *>(QStringLiteral("actionLayout"));
        } else {
            bar = new KestNavigationBar(this);
            row = bar->layout()->itemAt(0)->layout();
        }
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(bar);
        layout->addStretch(1);
        resize(600, 300);
        show();
    }

    QAction *add(const QString &text)
    {
        auto *action = new QAction(text, this);
        bar->addAction(action);
        return action;
    }

    QWidget *widget(int index) const { return row->itemAt(index)->widget(); }

    // What is asked of the layout: it is whole, and no widget stands on another.
    void verifyLaidOut(int count)
    {
        QCoreApplication::processEvents();
        QVERIFY(bar->layout()->isEnabled());
        QCOMPARE(row->count(), count);
        for (int i = 0; i < count; ++i) {
            QCOMPARE(widget(i)->height(), row->geometry().height());
            QVERIFY(row->geometry().contains(widget(i)->geometry()));
            if (i > 0)
                QVERIFY(widget(i)->x() > widget(i - 1)->geometry().right());
        }
    }

    QWidget *bar;
    QLayout *row;
};

// Does something, once, when a tool button gets an event of some type.
class OnButtonEvent : public QObject
{
public:
    OnButtonEvent(QEvent::Type type, std::function<void()> action)
        : m_type(type), m_action(std::move(action))
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != m_type || !qobject_cast<KestToolButton *>(watched))
            return false;
        qApp->removeEventFilter(this);
        m_action();
        return false;
    }

private:
    QEvent::Type m_type;
    std::function<void()> m_action;
};

} // namespace

class tst_QuietLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void otherWidgetsMayDieWhileOneIsAdded_data() { bars(); }
    void otherWidgetsMayDieWhileOneIsAdded();
    void otherWidgetsMayDieWhileOneIsRemoved_data() { bars(); }
    void otherWidgetsMayDieWhileOneIsRemoved();
    void barIsLaidOutInALoopWhileAnActionIsAdded_data() { bars(); }
    void barIsLaidOutInALoopWhileAnActionIsAdded();
    void barMayBeResizedWhileAnActionIsAdded_data() { bars(); }
    void barMayBeResizedWhileAnActionIsAdded();
    void widgetThatCameBackMayDieToo_data() { bars(); }
    void widgetThatCameBackMayDieToo();
    void actionsMayBeAddedAndRemovedWithinEachOther_data() { bars(); }
    void actionsMayBeAddedAndRemovedWithinEachOther();
    void hostsOwnQuietIsKept_data() { bars(); }
    void hostsOwnQuietIsKept();
    void hostsQuietMayBeginWhileAnActionIsAdded_data() { bars(); }
    void hostsQuietMayBeginWhileAnActionIsAdded();
    void removedActionsAreLaidOutTogether_data() { bars(); }
    void removedActionsAreLaidOutTogether();
    void leavingButtonIsNotSearchedFor_data() { bars(); }
    void leavingButtonIsNotSearchedFor();
    void addedButtonLeavesNothingPosted_data() { bars(); }
    void addedButtonLeavesNothingPosted();
    void callsReachAnAddedButton_data() { bars(); }
    void callsReachAnAddedButton();
    void hiddenButtonIsPolishedLater_data() { bars(); }
    void hiddenButtonIsPolishedLater();
    void addedButtonIsPainted_data() { bars(); }
    void addedButtonIsPainted();

private:
    static void bars()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("title bar") << QStringLiteral("title");
        QTest::newRow("navigation bar") << QStringLiteral("navigation");
    }
};

void tst_QuietLayout::otherWidgetsMayDieWhileOneIsAdded()
{
    QFETCH(QString, kind);
    Host host(kind);
    host.add(QStringLiteral("first"));
    auto *label = new QLabel(QStringLiteral("second"));
    QWidgetAction second(nullptr);
    second.setDefaultWidget(label);
    host.bar->addAction(&second);
    host.add(QStringLiteral("third"));
    host.verifyLaidOut(3);
    {
        const OnButtonEvent filter(QEvent::Show, [&] {
            delete label;
            QCOMPARE(host.row->count(), 2);
            delete host.widget(0);
            QCOMPARE(host.row->count(), 1);
            QVERIFY(host.bar->sizeHint().isValid());
        });
        host.add(QStringLiteral("fourth"));
    }
    host.verifyLaidOut(2);
}

void tst_QuietLayout::otherWidgetsMayDieWhileOneIsRemoved()
{
    QFETCH(QString, kind);
    Host host(kind);
    host.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&host));
    QAction *const first = host.add(QStringLiteral("first"));
    host.add(QStringLiteral("second"));
    host.add(QStringLiteral("third"));
    host.verifyLaidOut(3);
    host.widget(0)->setFocusPolicy(Qt::StrongFocus);
    host.widget(0)->setFocus();
    QVERIFY(host.widget(0)->hasFocus());
    bool heard = false;
    const auto connection = connect(qApp, &QApplication::focusChanged, &host, [&] {
        heard = true;
        disconnect(qApp, &QApplication::focusChanged, &host, nullptr);
        QCOMPARE(host.row->count(), 2);
        delete host.widget(1);
        QCOMPARE(host.row->count(), 1);
        QVERIFY(host.bar->sizeHint().isValid());
    });
    host.bar->removeAction(first);
    QVERIFY(heard);
    host.verifyLaidOut(1);
}

void tst_QuietLayout::barIsLaidOutInALoopWhileAnActionIsAdded()
{
    QFETCH(QString, kind);
    Host host(kind);
    host.add(QStringLiteral("first"));
    host.add(QStringLiteral("second"));
    {
        // What was due for the others is done in the loop, and the new one follows.
        const OnButtonEvent filter(QEvent::Show, [&] {
            QCoreApplication::processEvents();
            QVERIFY(host.widget(1)->x() > host.widget(0)->geometry().right());
        });
        host.add(QStringLiteral("third"));
    }
    host.verifyLaidOut(3);
}

void tst_QuietLayout::barMayBeResizedWhileAnActionIsAdded()
{
    QFETCH(QString, kind);
    Host host(kind);
    host.add(QStringLiteral("first"));
    host.verifyLaidOut(1);
    {
        const OnButtonEvent filter(QEvent::Show, [&] {
            host.bar->resize(host.bar->width() + 50, host.bar->height());
            QCOMPARE(host.bar->layout()->geometry(), host.bar->rect());
        });
        host.add(QStringLiteral("second"));
    }
    host.verifyLaidOut(2);
    {
        // Also before anything else has changed.
        const OnEvent filter(host.bar, QEvent::ChildAdded, [&] {
            host.bar->resize(host.bar->width() + 50, host.bar->height());
            QCOMPARE(host.bar->layout()->geometry(), host.bar->rect());
        });
        host.add(QStringLiteral("third"));
    }
    host.verifyLaidOut(3);
}

// Where its host puts it back without its action.
void tst_QuietLayout::widgetThatCameBackMayDieToo()
{
    QFETCH(QString, kind);
    Host host(kind);
    auto *label = new QLabel(QStringLiteral("label"));
    QWidgetAction custom(nullptr);
    custom.setDefaultWidget(label);
    host.bar->addAction(&custom);
    host.verifyLaidOut(1);
    {
        const OnButtonEvent filter(QEvent::Show, [&] {
            host.bar->removeAction(&custom);
            static_cast<QBoxLayout *>(host.row)->addWidget(label);
            QCOMPARE(host.row->count(), 1);
            delete label;
            QCOMPARE(host.row->count(), 0);
        });
        host.add(QStringLiteral("button"));
    }
    host.verifyLaidOut(1);
}

void tst_QuietLayout::actionsMayBeAddedAndRemovedWithinEachOther()
{
    QFETCH(QString, kind);
    Host host(kind);
    QAction *const first = host.add(QStringLiteral("first"));
    host.add(QStringLiteral("second"));
    host.verifyLaidOut(2);
    {
        const OnButtonEvent filter(QEvent::Show, [&] {
            host.bar->removeAction(first);
            QVERIFY(!host.bar->layout()->isEnabled());
            host.add(QStringLiteral("third"));
            QVERIFY(!host.bar->layout()->isEnabled());
        });
        host.add(QStringLiteral("fourth"));
    }
    host.verifyLaidOut(3);
}

// A host that keeps the layout quiet itself finds it so afterwards.
void tst_QuietLayout::hostsOwnQuietIsKept()
{
    QFETCH(QString, kind);
    Host host(kind);
    QAction *const first = host.add(QStringLiteral("first"));
    host.verifyLaidOut(1);
    const QRect place = host.widget(0)->geometry();
    host.bar->layout()->setEnabled(false);
    QAction *const second = host.add(QStringLiteral("second"));
    QVERIFY(!host.bar->layout()->isEnabled());
    QCoreApplication::processEvents();
    QCOMPARE(host.widget(0)->geometry(), place);
    host.bar->resize(host.bar->width() + 50, host.bar->height());
    QVERIFY(!host.bar->layout()->isEnabled());
    host.bar->removeAction(second);
    QVERIFY(!host.bar->layout()->isEnabled());
    host.bar->removeAction(first);
    QVERIFY(!host.bar->layout()->isEnabled());
}

// Also where it begins after the bar's own had to end.
void tst_QuietLayout::hostsQuietMayBeginWhileAnActionIsAdded()
{
    QFETCH(QString, kind);
    Host host(kind);
    host.add(QStringLiteral("first"));
    host.verifyLaidOut(1);
    {
        const OnButtonEvent filter(QEvent::Show, [&] {
            host.bar->resize(host.bar->width() + 50, host.bar->height());
            host.bar->layout()->setEnabled(false);
        });
        host.add(QStringLiteral("second"));
    }
    QVERIFY(!host.bar->layout()->isEnabled());
}

void tst_QuietLayout::removedActionsAreLaidOutTogether()
{
    QFETCH(QString, kind);
    Host host(kind);
    QList<QAction *> actions;
    for (int i = 0; i < 6; ++i)
        actions.append(host.add(QString::number(i)));
    host.verifyLaidOut(6);
    int moves = 0;
    // One bar's actions stand at its left, the other's at its right.
    const OnEvent left(host.widget(1), QEvent::Move, [&moves] { ++moves; });
    const OnEvent right(host.widget(5), QEvent::Move, [&moves] { ++moves; });
    // From the front, from the middle and from the end.
    QWidget *const second = host.widget(1);
    QWidget *const third = host.widget(2);
    QWidget *const last = host.widget(5);
    host.bar->removeAction(actions.at(0));
    host.bar->removeAction(actions.at(3));
    host.bar->removeAction(actions.at(4));
    QCOMPARE(host.row->count(), 3);
    QCOMPARE(host.widget(0), second);
    QCOMPARE(host.widget(1), third);
    QCOMPARE(host.widget(2), last);
    QCOMPARE(moves, 0);
    host.verifyLaidOut(3);
    QVERIFY(moves > 0);
}

// A long row would be gone through for each one.
void tst_QuietLayout::leavingButtonIsNotSearchedFor()
{
    class Item : public QSpacerItem
    {
    public:
        explicit Item(int *asked) : QSpacerItem(1, 1), m_asked(asked) { }
        QWidget *widget() KEST_CONST_IN_QT6 override
        {
            ++*m_asked;
            return nullptr;
        }

    private:
        int *m_asked;
    };
    QFETCH(QString, kind);
    Host host(kind);
    QAction *const first = host.add(QStringLiteral("first"));
    host.add(QStringLiteral("second"));
    int asked = 0;
    host.row->addItem(new Item(&asked));
    QCoreApplication::processEvents();
    asked = 0;
    host.bar->removeAction(first);
    QCOMPARE(asked, 0);
    QCOMPARE(host.row->count(), 2);
    QCOMPARE(host.row->indexOf(host.bar), -1); // a search does ask
    QVERIFY(asked > 0);
}

// Qt searches all that is posted for each object that dies with events pending: many buttons must
// not pile theirs up.
void tst_QuietLayout::addedButtonLeavesNothingPosted()
{
    QFETCH(QString, kind);
    for (const bool shown : { true, false }) {
        Host host(kind);
        host.bar->setVisible(shown);
        QCoreApplication::processEvents();
        host.add(QStringLiteral("first"));
        QWidget *const button = host.widget(0);
        QCOMPARE(button->isVisible(), shown);
        QCOMPARE(button->testAttribute(Qt::WA_WState_Polished), true);
        int events = 0;
        const OnEvent polish(button, QEvent::PolishRequest, [&events] { ++events; });
        const OnEvent update(button, QEvent::UpdateLater, [&events] { ++events; });
        const OnEvent call(button, QEvent::MetaCall, [&events] { ++events; });
        QCoreApplication::sendPostedEvents(button);
        QCOMPARE(events, 0);
    }
}

// What others post to a new button is theirs.
void tst_QuietLayout::callsReachAnAddedButton()
{
    QFETCH(QString, kind);
    Host host(kind);
    bool called = false;
    QPointer<QWidget> button;
    {
        const OnButtonEvent filter(QEvent::Show, [&] {
            button = host.bar->findChild<KestToolButton *>();
            QMetaObject::invokeMethod(
                button, [&called] { called = true; }, Qt::QueuedConnection);
        });
        host.add(QStringLiteral("first"));
    }
    QVERIFY(!called);
    QCoreApplication::sendPostedEvents();
    QVERIFY(called);
}

void tst_QuietLayout::hiddenButtonIsPolishedLater()
{
    QFETCH(QString, kind);
    Host host(kind);
    auto *action = new QAction(&host);
    action->setVisible(false);
    host.bar->addAction(action);
    QVERIFY(host.widget(0)->isHidden());
    QVERIFY(!host.widget(0)->testAttribute(Qt::WA_WState_Polished));
    QCoreApplication::sendPostedEvents();
    QVERIFY(host.widget(0)->testAttribute(Qt::WA_WState_Polished));
}

void tst_QuietLayout::addedButtonIsPainted()
{
    QFETCH(QString, kind);
    Host host(kind);
    QVERIFY(QTest::qWaitForWindowExposed(&host));
    QCoreApplication::processEvents();
    host.add(QStringLiteral("first"));
    // Also one that stays where it was made, and whose layout changes nothing.
    host.bar->layout()->setEnabled(false);
    host.add(QStringLiteral("second"));
    for (int i = 0; i < 2; ++i) {
        int paints = 0;
        const OnEvent filter(host.widget(i), QEvent::Paint, [&paints] { ++paints; });
        QTRY_COMPARE(paints, 1);
        host.widget(i)->update();
    }
}

QTEST_MAIN(tst_QuietLayout)
#include "tst_quietlayout.moc"
