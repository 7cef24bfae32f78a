// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "PaintedItems.h"
#include "Pixels.h"
#include "Specimen.h"
#include "Stage.h"
#include "TestedQt.h"
#include "Themes.h"

#include "KestDialog.h"
#include "KestTitleBar.h"

#include <QtGui/QFontInfo>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCalendarWidget>
#include <QtWidgets/QLayout>
#include <QtWidgets/QTableView>

#include <algorithm>

namespace {

const double TextContrast = 4.5;
const double LargeTextContrast = 3;
const double MarkContrast = 3;
const double PlaceholderContrast = 2.5; // where no sheet decides on it
const double LargeText = 24; // pixels, or
const double LargeBoldText = 18.5; // pixels
const int LargestIcon = 48; // pixels

bool isLarge(const QFont &font)
{
    return QFontInfo(font).pixelSize() >= (font.bold() ? LargeBoldText : LargeText);
}

int distance(QRgb a, QRgb b)
{
    return qAbs(qRed(a) - qRed(b)) + qAbs(qGreen(a) - qGreen(b)) + qAbs(qBlue(a) - qBlue(b));
}

// The colour that is most of the part. In front of a gradient that can be the letters themselves.
QRgb groundOf(const QImage &image, const QRect &part, QRgb color)
{
    const QRgb common = Pixels::commonColor(image, part);
    return common == color ? Pixels::commonFrameColor(image, part) : common;
}

// The contrast of the part's pixels that are most of the text's colour. Thin letters are blended
// with their ground all over; where they are still more letter than ground, they count as if they
// were not.
double contrastOfText(const QImage &image, const QRect &part, QRgb color)
{
    const QRgb ground = groundOf(image, part, color);
    QRgb nearest = ground;
    const QRect inside = part & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (distance(pixel, color) < distance(nearest, color))
                nearest = pixel;
        }
    }
    const bool seen = distance(nearest, color) < distance(nearest, ground);
    return Pixels::contrast(seen ? color : nearest, ground);
}

// The strongest contrast in the part against what is around it.
double contrastOfIcon(const QImage &image, const QRect &part)
{
    const QRgb ground = Pixels::commonFrameColor(image, part.adjusted(-1, -1, 1, 1));
    double strongest = 1;
    const QRect inside = part & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x)
            strongest = qMax(strongest, Pixels::contrast(image.pixel(x, y), ground));
    }
    return strongest;
}

bool isOff(const PaintedItem &item)
{
    return item.text == QLatin1String("Off") || item.text.startsWith(QLatin1String("Di"));
}

// The arrow of a spin box that leads no further.
bool isOffArrow(const PaintedItem &item, const QWidget *widget)
{
    const auto *spin = qobject_cast<const QAbstractSpinBox *>(widget);
    if (!spin && widget)
        spin = qobject_cast<const QAbstractSpinBox *>(widget->parentWidget());
    if (!spin || !item.text.isEmpty())
        return false;
    const QRectF bounds(spin->mapTo(spin->window(), QPoint()), spin->size());
    const bool up = item.rect.center().y() < bounds.center().y();
    const QVariant limit = spin->property(up ? "maximum" : "minimum");
    return spin->isReadOnly() || spin->property("value") == limit;
}

// Colours that no sheet decides on are as follows.
double neededContrast(const PaintedItem &item, const QString &theme, const Stage &stage)
{
    if (item.text.isEmpty())
        return MarkContrast;
    if (PlaceholdersAreFaint && item.color.alpha() < 255)
        return PlaceholderContrast;
    if (const auto *calendar = qobject_cast<const QCalendarWidget *>(stage.widget())) {
        // Qt paints weekends in plain red, and days of other months as if they were disabled.
        const QWidget *const days = calendar->findChild<QTableView *>();
        if (item.color == days->palette().color(QPalette::Disabled, QPalette::Text))
            return 1;
        if (item.color == Qt::red)
            return MarkContrast;
    }
    // The blue title bar's grounds under the pointer and under a press are fixed, as is its white.
    const bool onBar = stage.widget()->findChild<KestTitleBar *>();
    if (theme == QLatin1String("kest-blue") && onBar && item.color == Qt::white)
        return MarkContrast;
    return isLarge(item.font) ? LargeTextContrast : TextContrast;
}

// The shadow of a frameless window, which it paints around its layout in pieces.
bool isShadow(const PaintedItem &item, const QWidget *painter)
{
    const auto *window = qobject_cast<const KestDialog *>(painter);
    if (!window || !item.text.isEmpty())
        return false;
    const QRect inside = window->layout()->contentsRect();
    return !QRectF(window->mapTo(window->window(), inside.topLeft()), inside.size())
                .contains(item.rect);
}

// What nobody can use need not be readable: disabled widgets, and entries that say so.
bool isExempt(const PaintedItem &item, const QVector<PaintedItem> &items, QWidget *window)
{
    const QPoint centre = item.rect.center().toPoint();
    const QWidget *const painter = window->childAt(centre);
    if (!(painter ? painter : window)->isEnabled() || isOffArrow(item, painter)
        || isShadow(item, painter))
        return true;
    // Qt lays the lists of its font dialog out before they have a style: their rows overlap.
    if (painter && painter->parentWidget()->inherits("QFontListView"))
        return true;
    return std::any_of(items.begin(), items.end(), [&item](const PaintedItem &other) {
        return isOff(other) && other.rect.top() <= item.rect.center().y()
            && other.rect.bottom() >= item.rect.center().y();
    });
}

bool isIcon(const PaintedItem &item)
{
    return item.text.isEmpty() && item.rect.width() <= LargestIcon
        && item.rect.height() <= LargestIcon;
}

// A text whose selected part is painted over most of it is not seen.
QVector<PaintedItem> seenItems(QWidget *window)
{
    QVector<PaintedItem> items = paintedItems(window);
    for (int i = items.size() - 1; i >= 0; --i) {
        const PaintedItem item = items.at(i);
        const auto covers = [item](const PaintedItem &later) {
            const QRectF both = later.rect & item.rect;
            return later.text == item.text
                && both.width() * both.height() > 0.6 * item.rect.width() * item.rect.height();
        };
        if (!item.text.isEmpty() && std::any_of(items.begin() + i + 1, items.end(), covers))
            items.removeAt(i);
    }
    return items;
}

} // namespace

class tst_ThemeContrast : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsAreRead_data();
    void textsAreRead();
    void calendarsNameTheirDays_data();
    void calendarsNameTheirDays();
};

void tst_ThemeContrast::textsAreRead_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<int>("specimen");
    QTest::addColumn<int>("state");
    const QVector<Specimen> specimens = Specimen::all();
    for (const QString &theme : Themes::names()) {
        for (int i = 0; i < specimens.size(); ++i) {
            const QVector<SpecimenState> &states = specimens.at(i).states;
            for (int j = 0; j < states.size(); ++j) {
                if (states.at(j).name.contains(QLatin1String("disabled")))
                    continue;
                QTest::addRow("%s: %s %s", qPrintable(theme), qPrintable(specimens.at(i).name),
                              qPrintable(states.at(j).name))
                    << theme << i << j;
            }
        }
    }
}

void tst_ThemeContrast::textsAreRead()
{
    QFETCH(QString, theme);
    QFETCH(int, specimen);
    QFETCH(int, state);
    Themes::apply(theme);
    static const QVector<Specimen> specimens = Specimen::all();
    Stage stage(specimens.at(specimen), specimens.at(specimen).states.at(state));
    QStringList faint;
    const QList<QWidget *> windows = stage.windows();
    for (QWidget *window : windows) {
        const QImage picture = window->grab().toImage();
        const QVector<PaintedItem> items = seenItems(window);
        for (const PaintedItem &item : items) {
            if (!item.isReadable() || isExempt(item, items, window))
                continue;
            if (item.text.isEmpty() && !isIcon(item))
                continue;
            const QRect part = item.rect.toAlignedRect();
            const double contrast = item.text.isEmpty()
                ? contrastOfIcon(picture, part)
                : contrastOfText(picture, part, item.color.rgb());
            if (contrast >= neededContrast(item, theme, stage))
                continue;
            const QString what = item.text.isEmpty()
                ? QStringLiteral("icon of %1 at %2,%3")
                      .arg(part.width())
                      .arg(part.x())
                      .arg(part.y())
                : QStringLiteral("\"%1\" %2").arg(item.text, item.color.name());
            const QColor ground = groundOf(picture, part, item.color.rgb());
            faint.append(
                QStringLiteral("%1 on %2: %3").arg(what, ground.name()).arg(contrast, 0, 'f', 1));
        }
    }
    QVERIFY2(faint.isEmpty(), qPrintable(faint.join(QStringLiteral("; "))));
}

void tst_ThemeContrast::calendarsNameTheirDays_data()
{
    QTest::addColumn<QString>("theme");
    for (const QString &theme : Themes::names())
        QTest::newRow(qPrintable(theme)) << theme;
}

void tst_ThemeContrast::calendarsNameTheirDays()
{
    QFETCH(QString, theme);
    Themes::apply(theme);
    for (const int points : { 7, 9, 12, 18 }) {
        QCalendarWidget calendar;
        calendar.setLocale(QLocale::c());
        QFont font = calendar.font();
        font.setPointSize(points);
        calendar.setFont(font);
        calendar.show();
        calendar.resize(calendar.minimumSizeHint());
        QStringList texts;
        const QVector<PaintedItem> items = paintedItems(&calendar);
        for (const PaintedItem &item : items)
            texts.append(item.text);
        for (int day = Qt::Monday; day <= Qt::Sunday; ++day)
            QVERIFY2(texts.contains(QLocale::c().dayName(day, QLocale::ShortFormat)),
                     qPrintable(texts.join(QLatin1Char(' '))));
    }
}

THEME_TEST_MAIN(tst_ThemeContrast)
#include "tst_themecontrast.moc"
