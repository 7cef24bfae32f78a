// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Pixels.h"
#include "Poses.h"
#include "Specimen.h"
#include "Stage.h"
#include "Themes.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QTextEdit>

namespace {

const double MarkContrast = 3; // of what changed, against what was there
const int MarkPixels = 32; // half of the frame around an indicator of 16 pixels

// Where everything in the window is.
QHash<QWidget *, QRect> geometries(const QWidget *window)
{
    QHash<QWidget *, QRect> all;
    const QList<QWidget *> children = window->findChildren<QWidget *>();
    for (QWidget *child : children) {
        if (child->isVisible())
            all.insert(child, child->geometry());
    }
    return all;
}

// Beyond the reach of a sheet: Qt paints the glow of dials and the frame in its table of colours
// itself.
bool paintsItsOwnFocus(const QWidget *widget)
{
    return widget->inherits("QDial") || widget->inherits("QWellArray");
}

void pressTab(QWidget *window)
{
    QWidget *const target = QApplication::focusWidget();
    // In a text the key is a character, and Control leads out of it.
    const auto modifier = qobject_cast<QTextEdit *>(target) ? Qt::ControlModifier : Qt::NoModifier;
    QTest::keyClick(target ? target : window, Qt::Key_Tab, modifier);
    QApplication::processEvents();
}

} // namespace

class tst_ThemeFocus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void focusIsSeenAfterTab_data();
    void focusIsSeenAfterTab();
};

void tst_ThemeFocus::focusIsSeenAfterTab_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<int>("specimen");
    const QVector<Specimen> specimens = Specimen::all();
    for (const QString &theme : Themes::names()) {
        for (int i = 0; i < specimens.size(); ++i) {
            QTest::addRow("%s: %s", qPrintable(theme), qPrintable(specimens.at(i).name))
                << theme << i;
        }
    }
}

// Every stop of the Tab key in a specimen shows itself, and moves nothing.
void tst_ThemeFocus::focusIsSeenAfterTab()
{
    QFETCH(QString, theme);
    QFETCH(int, specimen);
    Themes::apply(theme);
    Stage stage(Specimen::all().at(specimen), Poses::normalState());
    const QImage without = stage.picture();
    const QHash<QWidget *, QRect> places = geometries(stage.window());
    QStringList unseen;
    QSet<QWidget *> stops;
    for (;;) {
        pressTab(stage.window());
        QWidget *const stop = QApplication::focusWidget();
        if (!stop || stop == stage.window() || stops.contains(stop))
            break;
        stops.insert(stop);
        const QString name = QStringLiteral("%1 %2").arg(
            QString::fromLatin1(stop->metaObject()->className()), stop->objectName());
        if (paintsItsOwnFocus(stop))
            continue;
        const int seen = Pixels::changedWithContrast(without, stage.picture(), MarkContrast);
        if (seen < MarkPixels)
            unseen.append(QStringLiteral("%1: %2 pixels").arg(name).arg(seen));
        if (geometries(stage.window()) != places)
            unseen.append(name + QStringLiteral(" moves something"));
    }
    QVERIFY2(unseen.isEmpty(), qPrintable(unseen.join(QStringLiteral("; "))));
}

THEME_TEST_MAIN(tst_ThemeFocus)
#include "tst_themefocus.moc"
