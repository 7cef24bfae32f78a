// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// The address edit beside a model of it, driven with the same random input. After each step both
// have to hold the same and to have announced the same.

#include "IPAddressModel.h"

#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>

class tst_IPAddressModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void randomInput_data();
    void randomInput();
};

void tst_IPAddressModel::randomInput_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 6; ++seed)
        QTest::newRow(qPrintable(QString::number(seed))) << seed;
}

void tst_IPAddressModel::randomInput()
{
    const int Steps = 100000;
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    const QStringList texts {
        QStringLiteral("1"),      QStringLiteral("25"),       QStringLiteral("255"),
        QStringLiteral("999"),    QStringLiteral("1.2.3.4"),  QStringLiteral("1.2.3.256"),
        QStringLiteral("ab"),     QStringLiteral("1.2"),      QStringLiteral("-1"),
        QStringLiteral("12345"),  QStringLiteral("..."),      QStringLiteral("01.002.3.44"),
        QStringLiteral("1..2.3"), QStringLiteral("10.20.30"), QString(),
    };
    IPAddressTrial trial([&random](int n) { return int(random.bounded(n)); }, texts);

    for (int step = 0; step < Steps; ++step) {
        const QString difference = trial.step();
        if (!difference.isEmpty())
            QFAIL(qPrintable(QStringLiteral("step %1: %2").arg(step).arg(difference)));
        if (step % 500 == 0)
            trial.edit()->grab(); // painting survives every state
    }
}

QTEST_MAIN(tst_IPAddressModel)
#include "tst_ipaddressmodel.moc"
