// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Pixels.h"
#include "Specimen.h"
#include "Stage.h"
#include "Themes.h"

#include <QtCore/QHash>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

namespace {

const int SeenPixels = 12; // the dot of a radio button has more

QImage pictureOf(const Specimen &specimen, const QString &state)
{
    for (const SpecimenState &candidate : specimen.states) {
        if (candidate.name == state)
            return Stage(specimen, candidate).picture();
    }
    return QImage();
}

} // namespace

class tst_ThemeStates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void statesAreTold_data();
    void statesAreTold();
};

void tst_ThemeStates::statesAreTold_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<int>("specimen");
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("beside");
    const QVector<Specimen> specimens = Specimen::all();
    for (const QString &theme : Themes::names()) {
        for (int i = 0; i < specimens.size(); ++i) {
            for (const SpecimenState &state : specimens.at(i).states) {
                if (state.beside.isEmpty())
                    continue;
                const QString name =
                    QStringLiteral("%1: %2, %3 beside %4")
                        .arg(theme, specimens.at(i).name, state.name, state.beside);
                QTest::newRow(qPrintable(name)) << theme << i << state.name << state.beside;
            }
        }
    }
}

void tst_ThemeStates::statesAreTold()
{
    QFETCH(QString, theme);
    QFETCH(int, specimen);
    QFETCH(QString, state);
    QFETCH(QString, beside);
    static const QVector<Specimen> specimens = Specimen::all();
    Themes::apply(theme);
    const QImage first = pictureOf(specimens.at(specimen), beside);
    const QImage second = pictureOf(specimens.at(specimen), state);
    QVERIFY(!first.isNull() && !second.isNull());
    const int seen = Pixels::changed(first, second);
    QVERIFY2(seen >= SeenPixels, qPrintable(QStringLiteral("%1 pixels").arg(seen)));
}

THEME_TEST_MAIN(tst_ThemeStates)
#include "tst_themestates.moc"
