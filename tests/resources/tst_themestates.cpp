// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "PaintedItems.h"
#include "Pixels.h"
#include "Poses.h"
#include "Specimen.h"
#include "Stage.h"
#include "Themes.h"

#include <QtCore/QHash>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

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

const Specimen &specimenNamed(const QByteArray &name)
{
    static const QVector<Specimen> all = Specimen::all();
    const auto found = std::find_if(all.begin(), all.end(), [name](const Specimen &specimen) {
        return specimen.name == QLatin1String(name);
    });
    Q_ASSERT(found != all.end());
    return *found;
}

} // namespace

class tst_ThemeStates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void statesAreTold_data();
    void statesAreTold();
    void glyphsAreThere_data();
    void glyphsAreThere();
    void arrowsAreWhereTheyLead_data();
    void arrowsAreWhereTheyLead();
    void flatButtonsAreFlat_data();
    void flatButtonsAreFlat();

private:
    void themes();
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

void tst_ThemeStates::themes()
{
    QTest::addColumn<QString>("theme");
    for (const QString &theme : Themes::names())
        QTest::newRow(qPrintable(theme)) << theme;
}

void tst_ThemeStates::glyphsAreThere_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("least");
    for (const QString &theme : Themes::names()) {
        const auto row = [theme](const char *name, int least) {
            QTest::addRow("%s: %s", qPrintable(theme), name) << theme << QByteArray(name) << least;
        };
        row("QSpinBox", 2);
        row("QTimeEdit", 2);
        row("QComboBox", 1);
        row("QComboBox editable", 1);
        row("KestComboBox", 1);
        row("QDateEdit calendar", 1);
        row("QPushButton menu", 1);
        row("QToolButton arrow", 1);
        row("QToolButton menu", 2); // with the button's icon
        row("QToolButton menu beside", 2);
        row("QCheckBox", 1);
        row("QRadioButton", 1);
        row("QGroupBox checkable", 2);
        row("QScrollBar horizontal", 2);
        row("QScrollBar vertical", 2);
        row("QTreeView", 5); // two branches, two boxes, an icon
        row("QTableView", 4); // the header's arrow, two boxes, an icon
        row("QMenu", 9); // three icons, five marks, an arrow
        row("QTabWidget closable", 2);
        row("QTabWidget scrolling", 2);
        row("KestTitleBar", 5); // the window's icon, an action's and three buttons
        row("KestNavigationBar", 4);
    }
}

// The sheet's images are painted, and are not of the ground's colour.
void tst_ThemeStates::glyphsAreThere()
{
    QFETCH(QString, theme);
    QFETCH(QByteArray, name);
    QFETCH(int, least);
    Themes::apply(theme);
    const Stage stage(specimenNamed(name), Poses::normalState());
    const QImage picture = stage.window()->grab().toImage();
    int glyphs = 0;
    const QVector<PaintedItem> items = paintedItems(stage.window());
    for (const PaintedItem &item : items) {
        if (!item.text.isEmpty() || !item.isReadable() || item.rect.height() > 40)
            continue;
        const QRect part = item.rect.toAlignedRect();
        const QImage glyph = picture.copy(part);
        QImage plain(glyph.size(), glyph.format());
        plain.fill(Pixels::commonFrameColor(picture, part.adjusted(-1, -1, 1, 1)));
        if (Pixels::changed(plain, glyph) > 0)
            ++glyphs;
    }
    QVERIFY2(glyphs >= least, qPrintable(QString::number(glyphs)));
}

void tst_ThemeStates::arrowsAreWhereTheyLead_data()
{
    themes();
}

void tst_ThemeStates::arrowsAreWhereTheyLead()
{
    QFETCH(QString, theme);
    Themes::apply(theme);
    const auto at = [](const char *specimen, QStyle::ComplexControl control,
                       QStyle::SubControl part) {
        const Stage stage(specimenNamed(specimen), Poses::normalState());
        const QPoint place = Poses::subControl(control, part)(stage.widget());
        return QPointF(double(place.x()) / stage.widget()->width(),
                       double(place.y()) / stage.widget()->height());
    };
    const QPointF up = at("QSpinBox", QStyle::CC_SpinBox, QStyle::SC_SpinBoxUp);
    const QPointF down = at("QSpinBox", QStyle::CC_SpinBox, QStyle::SC_SpinBoxDown);
    QVERIFY(up.x() > 0.6 && up.y() < 0.5);
    QVERIFY(down.x() > 0.6 && down.y() > 0.5);
    QVERIFY(at("QComboBox", QStyle::CC_ComboBox, QStyle::SC_ComboBoxArrow).x() > 0.6);
    const auto bar = [&at](const char *specimen, QStyle::SubControl part) {
        return at(specimen, QStyle::CC_ScrollBar, part);
    };
    QVERIFY(bar("QScrollBar horizontal", QStyle::SC_ScrollBarSubLine).x() < 0.2);
    QVERIFY(bar("QScrollBar horizontal", QStyle::SC_ScrollBarAddLine).x() > 0.8);
    QVERIFY(bar("QScrollBar vertical", QStyle::SC_ScrollBarSubLine).y() < 0.2);
    QVERIFY(bar("QScrollBar vertical", QStyle::SC_ScrollBarAddLine).y() > 0.8);
    QVERIFY(at("QToolButton menu beside", QStyle::CC_ToolButton, QStyle::SC_ToolButtonMenu).x()
            > 0.6);
}

void tst_ThemeStates::flatButtonsAreFlat_data()
{
    themes();
}

void tst_ThemeStates::flatButtonsAreFlat()
{
    QFETCH(QString, theme);
    Themes::apply(theme);
    const Stage stage(specimenNamed("QPushButton flat"), Poses::normalState());
    const QImage picture = stage.window()->grab().toImage();
    const QRect button = stage.widget()->geometry();
    const QRgb ground = picture.pixel(1, 1);
    QCOMPARE(Pixels::commonFrameColor(picture, button), ground);
    QCOMPARE(Pixels::commonFrameColor(picture, button.adjusted(4, 4, -4, -4)), ground);
}

THEME_TEST_MAIN(tst_ThemeStates)
#include "tst_themestates.moc"
