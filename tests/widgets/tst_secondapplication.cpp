// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestCircleProgressBar.h"
#include "KestIPAddressEdit.h"
#include "KestStageProgressBar.h"

#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

// A process, a host of plug-ins say, may have one application after the other.
class tst_SecondApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void widgetsAreReadInEachApplication();
};

void tst_SecondApplication::widgetsAreReadInEachApplication()
{
    for (int i = 0; i < 3; ++i) {
        int argc = 1;
        char name[] = "tst_secondapplication";
        char *argv[] = { name, nullptr };
        const QApplication application(argc, argv);
        KestIPAddressEdit edit;
        KestStageProgressBar stages;
        KestCircleProgressBar ring;
        QVERIFY(QAccessible::queryAccessibleInterface(&edit)->textInterface());
        QVERIFY(QAccessible::queryAccessibleInterface(&stages)->valueInterface());
        QVERIFY(QAccessible::queryAccessibleInterface(&ring)->valueInterface());
    }
}

QTEST_APPLESS_MAIN(tst_SecondApplication)

#include "tst_secondapplication.moc"
