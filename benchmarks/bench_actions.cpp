// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestNavigationBar.h"
#include "KestTitleBar.h"

#include <QtTest/QTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QToolBar>

namespace {

const int ActionCount = 2000;

} // namespace

class bench_Actions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addAndRemove_data();
    void addAndRemove();
};

void bench_Actions::addAndRemove_data()
{
    QTest::addColumn<QString>("bar");
    QTest::newRow("QToolBar") << QStringLiteral("QToolBar");
    QTest::newRow("KestTitleBar") << QStringLiteral("KestTitleBar");
    QTest::newRow("KestNavigationBar") << QStringLiteral("KestNavigationBar");
}

void bench_Actions::addAndRemove()
{
    QFETCH(QString, bar);
    QWidget window;
    QWidget *widget = nullptr;
    if (bar == QLatin1String("QToolBar"))
        widget = new QToolBar(&window);
    else if (bar == QLatin1String("KestTitleBar"))
        widget = new KestTitleBar(&window);
    else
        widget = new KestNavigationBar(&window);

    QList<QAction *> actions;
    for (int i = 0; i < ActionCount; ++i)
        actions.append(new QAction(QString::number(i), &window));
    QBENCHMARK
    {
        for (QAction *action : qAsConst(actions))
            widget->addAction(action);
        for (QAction *action : qAsConst(actions))
            widget->removeAction(action);
    }
    QVERIFY(widget->actions().isEmpty());
}

QTEST_MAIN(bench_Actions)
#include "bench_actions.moc"
