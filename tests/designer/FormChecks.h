// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef FORMCHECKS_H
#define FORMCHECKS_H

#include <KestCircleProgressBar.h>
#include <KestComboBox.h>
#include <KestDialog.h>
#include <KestIPAddressEdit.h>
#include <KestNavigationBar.h>
#include <KestStageProgressBar.h>
#include <KestSwitchButton.h>
#include <KestTitleBar.h>
#include <KestWindow.h>

#include <QtCore/QEvent>
#include <QtCore/QScopedPointer>
#include <QtTest/QtTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStatusBar>

/*!
    \file
    What windowform.ui and dialogform.ui are, whoever makes widgets of them.
*/

template <class Widget>
Widget *part(const QWidget *form, const char *name)
{
    return form->findChild<Widget *>(QLatin1String(name));
}

inline void checkWindowForm(KestWindow *window)
{
    QVERIFY(window);
    QVERIFY(window->isWindow());
    QCOMPARE(window->size(), QSize(700, 500));
    QCOMPARE(window->windowTitle(), QStringLiteral("Every widget"));
    QVERIFY(!window->windowIcon().isNull());

    auto *page = part<QWidget>(window, "page");
    QVERIFY(page);
    QCOMPARE(window->centralWidget(), page);
    QCOMPARE(window->menuBar(), part<QMenuBar>(window, "menus"));
    QCOMPARE(window->navigationBar(), part<KestNavigationBar>(window, "navigation"));
    QCOMPARE(window->statusBar(), part<QStatusBar>(window, "status"));
    QCOMPARE(window->menuBar()->actions().constFirst()->text(), QStringLiteral("File"));

    // The bars are above and below the page, and each is as wide as the window's inside.
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QCOMPARE(window->size(), QSize(700, 500));
    const auto top = [window](QWidget *widget) { return widget->mapTo(window, QPoint()).y(); };
    const KestTitleBar *const titleBar = window->titleBar();
    QVERIFY(titleBar->isAncestorOf(window->menuBar()));
    QCOMPARE(top(window->navigationBar()), titleBar->geometry().bottom() + 1);
    QCOMPARE(top(page), top(window->navigationBar()) + window->navigationBar()->height());
    QCOMPARE(top(window->statusBar()), top(page) + page->height());
    for (QWidget *row : { page, static_cast<QWidget *>(window->statusBar()),
                          static_cast<QWidget *>(window->navigationBar()) }) {
        QCOMPARE(row->width(), titleBar->width());
    }

    const auto *toggle = part<KestSwitchButton>(page, "switchButton");
    QVERIFY(toggle->isChecked());
    QCOMPARE(toggle->checkedBackground(), QBrush(QColor(16, 124, 16)));
    QCOMPARE(toggle->checkedHandleBorderColor(), QColor(1, 2, 3));

    const auto *combo = part<KestComboBox>(page, "comboBox");
    QCOMPARE(combo->count(), 2);
    QCOMPARE(combo->currentText(), QStringLiteral("Two"));

    const auto *address = part<KestIPAddressEdit>(page, "addressEdit");
    QVERIFY(address->isReadOnly());
    QCOMPARE(address->ipAddress(), QStringLiteral("192.168.0.1"));

    const auto *stages = part<KestStageProgressBar>(page, "stageBar");
    QCOMPARE(stages->texts(),
             QStringList(
                 { QStringLiteral("Cart"), QStringLiteral("Address"), QStringLiteral("Payment") }));
    QCOMPARE(stages->stageCount(), 3);
    QCOMPARE(stages->stageCircleRadius(), 14);
    QVERIFY(stages->textVisible());
    QCOMPARE(stages->rateBackground(), QBrush(QColor(4, 5, 6)));
    QCOMPARE(stages->maximum(), 2);
    QCOMPARE(stages->value(), 1);
    QCOMPARE(stages->orientation(), Qt::Vertical);

    const auto *circle = part<KestCircleProgressBar>(page, "circleBar");
    QCOMPARE(circle->text(), QStringLiteral("3 of 4"));
    QCOMPARE(circle->penCapStyle(), Qt::RoundCap);
    QCOMPARE(circle->barWidth(), 6);
    QCOMPARE(circle->barBrush(), QBrush(QColor(7, 8, 9)));

    const auto *bar = part<KestNavigationBar>(page, "barOfThePage");
    QCOMPARE(bar->iconSize(), QSize(24, 24));
    QCOMPARE(bar->actionAt(0, KestNavigationBar::Left), part<QAction>(window, "actionReport"));

    // What the form connects.
    QVERIFY(address->isEnabled());
    part<KestSwitchButton>(page, "switchButton")->click();
    QVERIFY(!address->isEnabled());

    // The empty widget that the window began with is gone, and with it all that is not the form's.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(window->centralWidget(), page);
    QVERIFY(page->isVisible());
}

inline void checkDialogForm(KestDialog *dialog)
{
    QVERIFY(dialog);
    QVERIFY(dialog->isWindow());
    QCOMPARE(dialog->size(), QSize(420, 260));
    QCOMPARE(dialog->windowTitle(), QStringLiteral("A question"));
    auto *page = part<QWidget>(dialog, "page");
    QVERIFY(page);
    QCOMPARE(dialog->centralWidget(), page);
    QVERIFY(part<KestIPAddressEdit>(page, "addressEdit"));

    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    QCOMPARE(dialog->size(), QSize(420, 260));
    QCOMPARE(page->y(), dialog->titleBar()->geometry().bottom() + 1);
    part<QDialogButtonBox>(page, "buttons")->button(QDialogButtonBox::Ok)->click();
    QCOMPARE(dialog->result(), int(QDialog::Accepted));
    QVERIFY(!dialog->isVisible());
}

#endif // FORMCHECKS_H
