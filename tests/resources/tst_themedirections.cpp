// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "PaintedItems.h"
#include "Pixels.h"
#include "Poses.h"
#include "Specimen.h"
#include "Stage.h"
#include "Themes.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

namespace {

const double Touching = 2; // pixels; letters have room around them

const Specimen &specimenNamed(const char *name)
{
    static const QVector<Specimen> all = Specimen::all();
    const auto found = std::find_if(all.begin(), all.end(), [name](const Specimen &specimen) {
        return specimen.name == QLatin1String(name);
    });
    Q_ASSERT(found != all.end());
    return *found;
}

QRgb pixelAt(const QImage &image, double x, double y)
{
    return image.pixel(int(image.width() * x), int(image.height() * y));
}

} // namespace

class tst_ThemeDirections : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanupTestCase();

    void filledPartsEndAtTheValue_data();
    void filledPartsEndAtTheValue();
    void iconsAreOnTheirSide_data();
    void iconsAreOnTheirSide();
    void nothingOverlaps_data();
    void nothingOverlaps();
};

void tst_ThemeDirections::init()
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
}

void tst_ThemeDirections::cleanupTestCase()
{
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

void tst_ThemeDirections::filledPartsEndAtTheValue_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("reverse");
    for (const QString &theme : Themes::names()) {
        for (const char *name : { "QSlider horizontal", "QProgressBar horizontal" }) {
            for (const bool reverse : { false, true }) {
                QTest::addRow("%s: %s %s", qPrintable(theme), name,
                              reverse ? "from the right" : "from the left")
                    << theme << QByteArray(name) << reverse;
            }
        }
    }
}

// At 40 of 100 the colour of the filled part is where the numbers begin.
void tst_ThemeDirections::filledPartsEndAtTheValue()
{
    QFETCH(QString, theme);
    QFETCH(QByteArray, name);
    QFETCH(bool, reverse);
    QApplication::setLayoutDirection(reverse ? Qt::RightToLeft : Qt::LeftToRight);
    Themes::apply(theme);
    const Stage stage(specimenNamed(name.constData()), Poses::normalState());
    const QImage image = stage.widget()->grab().toImage();
    const QColor begin = pixelAt(image, reverse ? 0.85 : 0.15, 0.5);
    const QColor end = pixelAt(image, reverse ? 0.15 : 0.85, 0.5);
    // The filled part is blue, the rest is grey.
    QVERIFY2(begin.saturation() > 60, qPrintable(begin.name()));
    QVERIFY2(end.saturation() < 40, qPrintable(end.name()));
}

void tst_ThemeDirections::iconsAreOnTheirSide_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("right"); // from right to left
    for (const QString &theme : Themes::names()) {
        const auto row = [theme](const char *name, bool right) {
            QTest::addRow("%s: %s", qPrintable(theme), name) << theme << QByteArray(name) << right;
        };
        row("QCheckBox", true);
        row("QRadioButton", true);
        row("QComboBox", false);
        row("QComboBox editable", false);
        row("QSpinBox", false);
        row("QDateEdit calendar", false);
        row("QPushButton menu", false);
    }
}

// Where the images of a widget are, seen from its text.
void tst_ThemeDirections::iconsAreOnTheirSide()
{
    QFETCH(QString, theme);
    QFETCH(QByteArray, name);
    QFETCH(bool, right);
    Themes::apply(theme);
    const Stage stage(specimenNamed(name.constData()), Poses::normalState());
    const QVector<PaintedItem> items = paintedItems(stage.window());
    const auto text = std::find_if(items.begin(), items.end(),
                                   [](const PaintedItem &item) { return !item.text.isEmpty(); });
    QVERIFY(text != items.end());
    int icons = 0;
    for (const PaintedItem &item : items) {
        const bool besides = item.rect.center().y() > text->rect.top()
            && item.rect.center().y() < text->rect.bottom();
        if (!item.text.isEmpty() || item.rect.width() > 40 || (!besides && name != "QSpinBox"))
            continue;
        ++icons;
        QCOMPARE(item.rect.center().x() > text->rect.center().x(), right);
    }
    QVERIFY(icons > 0);
}

void tst_ThemeDirections::nothingOverlaps_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<int>("specimen");
    QTest::addColumn<bool>("reverse");
    const QVector<Specimen> specimens = Specimen::all();
    for (const QString &theme : Themes::names()) {
        for (int i = 0; i < specimens.size(); ++i) {
            for (const bool reverse : { false, true }) {
                QTest::addRow("%s: %s %s", qPrintable(theme), qPrintable(specimens.at(i).name),
                              reverse ? "from the right" : "from the left")
                    << theme << i << reverse;
            }
        }
    }
}

void tst_ThemeDirections::nothingOverlaps()
{
    QFETCH(QString, theme);
    QFETCH(int, specimen);
    QFETCH(bool, reverse);
    QApplication::setLayoutDirection(reverse ? Qt::RightToLeft : Qt::LeftToRight);
    Themes::apply(theme);
    const Stage stage(Specimen::all().at(specimen), Poses::normalState());
    // Qt aligns the names in its file dialog to the left, where the arrow of their header is.
    const bool reversed = !stage.widget()->inherits("QFileDialog");
    const auto painterOf = [&stage](const PaintedItem &item) {
        return stage.window()->childAt(item.rect.center().toPoint());
    };
    QStringList overlaps;
    const QVector<PaintedItem> items = paintedItems(stage.window());
    for (const PaintedItem &text : items) {
        if (text.text.isEmpty() || !text.isReadable() || !reversed)
            continue;
        for (const PaintedItem &icon : items) {
            // The buttons that scroll tabs lie on them, and a title runs under actions.
            const QWidget *const painter = painterOf(text);
            if ((painter && painter->parentWidget()->inherits("QTabBar")) || !icon.text.isEmpty()
                || icon.rect.width() > 40 || icon.rect.height() > 40
                || painterOf(icon) != painter) {
                continue;
            }
            const QRectF both = text.rect & icon.rect;
            if (both.width() > Touching && both.height() > Touching) {
                overlaps.append(QStringLiteral("\"%1\" and the icon at %2,%3")
                                    .arg(text.text)
                                    .arg(icon.rect.x())
                                    .arg(icon.rect.y()));
            }
        }
    }
    QVERIFY2(overlaps.isEmpty(), qPrintable(overlaps.join(QStringLiteral("; "))));
}

THEME_TEST_MAIN(tst_ThemeDirections)
#include "tst_themedirections.moc"
