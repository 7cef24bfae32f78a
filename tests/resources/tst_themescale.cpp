// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "PaintedItems.h"
#include "Pixels.h"
#include "Poses.h"
#include "Specimen.h"
#include "Stage.h"
#include "Themes.h"

#include "KestTitleBar.h"

#include <QtCore/QHash>
#include <QtCore/QMap>
#include <QtGui/QFontInfo>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSlider>
#include <QtWidgets/QStyle>

namespace {

const double PlainDpi = 96;
const double Small = 0.7; // of the size that a rate asks for; layouts keep their margins
const int LeastSize = 8; // pixels; what is smaller is a line or a gap
const double LargestIconRate = 2; // images are drawn for twice their size at the plain scale

// By what a sheet is scaled in this process: by all rates where the resolution is the plain one, by
// the resolution's own where it is not, and not at all where Qt scales everything itself.
QList<double> rates()
{
    const QScreen *const screen = QGuiApplication::primaryScreen();
    if (screen->devicePixelRatio() != 1)
        return { 1 };
    if (screen->logicalDotsPerInch() != PlainDpi)
        return { screen->logicalDotsPerInch() / PlainDpi };
    QList<double> all;
    for (const int percent : Themes::Scales)
        all.append(percent / 100.0);
    return all;
}

const Specimen &specimenNamed(const char *name)
{
    static const QVector<Specimen> all = Specimen::all();
    const auto found = std::find_if(all.begin(), all.end(), [name](const Specimen &specimen) {
        return specimen.name == QLatin1String(name);
    });
    Q_ASSERT(found != all.end());
    return *found;
}

// The smallest rectangle with all that is not ground, in the window's coordinates.
QRectF inkOf(const QImage &picture, const QRect &part)
{
    const qreal ratio = picture.devicePixelRatio();
    // At broken ratios a pixel at the edge belongs to what is beside as well.
    const QRect inside = QRectF(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio)
                             .adjusted(0.5, 0.5, -0.5, -0.5)
                             .toRect()
        & picture.rect();
    const QRgb ground = Pixels::commonColor(picture, inside);
    QRect ink;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            if (Pixels::contrast(picture.pixel(x, y), ground) > 1.5)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return QRectF(QPointF(ink.topLeft()) / ratio, QSizeF(ink.size()) / ratio);
}

int thickness(const QSizeF &size)
{
    return qRound(qMin(size.width(), size.height()));
}

// Whether how thick a widget is follows from the sheet and its texts, not from what is in it.
bool hasOwnThickness(const QWidget *widget)
{
    const char *const classes[] = { "QAbstractButton",
                                    "QLineEdit",
                                    "QComboBox",
                                    "QAbstractSpinBox",
                                    "QSlider",
                                    "QScrollBar",
                                    "QProgressBar",
                                    "QTabBar",
                                    "QHeaderView",
                                    "QMenuBar",
                                    "QStatusBar",
                                    "QSizeGrip",
                                    "QDial",
                                    "QLCDNumber",
                                    "QSplitterHandle",
                                    "KestTitleBar",
                                    "KestNavigationBar",
                                    "KestIPAddressEdit" };
    return std::any_of(std::begin(classes), std::end(classes),
                       [widget](const char *name) { return widget->inherits(name); });
}

QString sizeText(const QRectF &rect)
{
    return QStringLiteral("%1x%2").arg(rect.width()).arg(rect.height());
}

// What Qt sizes in its own code, so that neither a sheet nor a program's lines about sizes reach
// it.
bool isSizedByQt(const QString &specimen, const QString &what)
{
    const struct
    {
        const char *specimen;
        const char *what; // or everything
    } list[] = {
        { "QCommandLinkButton", nullptr }, // 9 points, 16 pixels
        { "QDockWidget", "QDockWidgetTitleButton" }, // around at most 10 pixels
        { "QDockWidget", "icon" },
        { "QMenu", "icon" }, // 16 pixels
        { "QToolBar window", "QToolBarExtension" }, // 12 pixels
        { "QToolBar window", "icon" }, // the same
        { "QMessageBox", "icon" }, // 32 pixels, here and below
        { "KestMessageBox", "icon" },
        { "QErrorMessage", "icon" },
        { "QFileDialog", "icon" },
        { "QColorDialog", "icon" }, // the fields of colours
        { "QFontDialog", "AaBbYyZz" }, // the font to choose
    };
    return std::any_of(std::begin(list), std::end(list), [&](const auto &entry) {
        return specimen == QLatin1String(entry.specimen)
            && (!entry.what || what == QLatin1String(entry.what));
    });
}

// How thick what is in a window is: the thinnest control of each class, the smallest icon, and the
// font of each text. Larger views show fewer of their rows, so that there is no telling which is
// which by their order.
QMap<QString, int> measure(const Stage &stage)
{
    QMap<QString, int> measures;
    const auto note = [&measures](const QString &name, int size) {
        if (size >= LeastSize)
            measures[name] = qMin(measures.value(name, size), size);
    };
    const QList<QWidget *> widgets = stage.window()->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (widget->isVisible() && hasOwnThickness(widget))
            note(QString::fromLatin1(widget->metaObject()->className()), thickness(widget->size()));
    }
    const QVector<PaintedItem> items = paintedItems(stage.window());
    for (const PaintedItem &item : items) {
        if (item.text.isEmpty())
            note(QStringLiteral("icon"), thickness(item.whole.size()));
        else
            note(item.text, QFontInfo(item.font).pixelSize());
    }
    return measures;
}

} // namespace

class tst_ThemeScale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void titleBarHoldsWhatIsOnIt_data();
    void titleBarHoldsWhatIsOnIt();
    void nothingStaysSmall_data();
    void nothingStaysSmall();
    void textsAreWhole_data();
    void textsAreWhole();
    void roundHandlesStayRound_data();
    void roundHandlesStayRound();

private:
    void themesAndRates();
    void themesRatesAndSpecimens();
};

void tst_ThemeScale::themesAndRates()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<double>("rate");
    const QList<double> all = rates();
    for (const QString &theme : Themes::names()) {
        for (const double rate : all)
            QTest::addRow("%s at %d %%", qPrintable(theme), qRound(rate * 100)) << theme << rate;
    }
}

void tst_ThemeScale::themesRatesAndSpecimens()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("specimen");
    const QList<double> all = rates();
    const QVector<Specimen> specimens = Specimen::all();
    for (const QString &theme : Themes::names()) {
        for (const double rate : all) {
            for (int i = 0; i < specimens.size(); ++i) {
                QTest::addRow("%s at %d %%: %s", qPrintable(theme), qRound(rate * 100),
                              qPrintable(specimens.at(i).name))
                    << theme << rate << i;
            }
        }
    }
}

void tst_ThemeScale::titleBarHoldsWhatIsOnIt_data()
{
    themesAndRates();
}

void tst_ThemeScale::titleBarHoldsWhatIsOnIt()
{
    QFETCH(QString, theme);
    QFETCH(double, rate);
    QStringList wrong;
    const auto check = [&wrong](bool right, const QString &what) {
        if (!right)
            wrong.append(what);
    };
    Themes::apply(theme, rate);
    const Stage stage(specimenNamed("KestTitleBar menu"), Poses::normalState(), rate);
    auto *const bar = stage.window()->findChild<KestTitleBar *>();
    const QRect area(bar->mapTo(stage.window(), QPoint()), bar->size());
    const double middle = QRectF(area).center().y();
    const QImage picture = stage.window()->grab().toImage();
    check(area.height() >= qRound(42 * rate) - 1 && area.height() <= qRound(50 * rate) + 1,
          QStringLiteral("the bar has a height of %1").arg(area.height()));

    const QList<QWidget *> parts =
        bar->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *part : parts) {
        if (!part->isVisible())
            continue;
        const QString name = part->objectName().isEmpty()
            ? QString::fromLatin1(part->metaObject()->className())
            : part->objectName();
        const QRect place(part->mapTo(stage.window(), QPoint()), part->size());
        check(area.contains(place), name + QStringLiteral(" is cut off by the bar"));
        const QSize needed = part->minimumSizeHint().boundedTo(part->maximumSize());
        check(part->width() >= needed.width() && part->height() >= needed.height(),
              name + QStringLiteral(" has too little room"));
        if (!qobject_cast<QAbstractButton *>(part))
            continue;
        const QRectF ink = inkOf(picture, place);
        check(ink.width() >= 7 * rate && ink.width() < place.width() - 1
                  && ink.height() < place.height() - 1,
              name + QStringLiteral(" has a glyph of ") + sizeText(ink));
        // Letters stand on their line.
        if (part->objectName() != QLatin1String("named")) {
            check(qAbs(ink.center().y() - middle) <= 1 + rate,
                  name
                      + QStringLiteral(" has its glyph %1 off the middle")
                            .arg(ink.center().y() - middle));
        }
    }

    int texts = 0;
    const QVector<PaintedItem> items = paintedItems(stage.window());
    for (const PaintedItem &item : items) {
        if (item.text.isEmpty())
            continue;
        ++texts;
        check(item.rect.height() > item.whole.height() - 1
                  && item.rect.width() > item.whole.width() - 1,
              QStringLiteral("\"%1\" is clipped").arg(item.text));
        check(qAbs(item.whole.center().y() - middle) <= 1 + rate,
              QStringLiteral("\"%1\" is %2 off the middle")
                  .arg(item.text)
                  .arg(item.whole.center().y() - middle));
    }
    QCOMPARE(texts, 4); // the title, two menus and an action
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QStringLiteral("; "))));
}

void tst_ThemeScale::nothingStaysSmall_data()
{
    themesRatesAndSpecimens();
}

// Every control, text and icon is as much larger as the rate says.
void tst_ThemeScale::nothingStaysSmall()
{
    QFETCH(QString, theme);
    QFETCH(double, rate);
    QFETCH(int, specimen);
    static const QVector<Specimen> specimens = Specimen::all();
    static QHash<QString, QMap<QString, int>> plain;
    const Specimen &subject = specimens.at(specimen);
    const QString key = theme + subject.name;
    if (!plain.contains(key)) {
        Themes::apply(theme, 1);
        plain.insert(key, measure(Stage(subject, Poses::normalState(), 1)));
    }
    Themes::apply(theme, rate);
    const QMap<QString, int> now = measure(Stage(subject, Poses::normalState(), rate));
    const QMap<QString, int> before = plain.value(key);
    QVERIFY(!before.isEmpty() || now.isEmpty());

    QStringList small;
    for (auto size = before.begin(); size != before.end(); ++size) {
        const QString what = size.key();
        const double growth = what == QLatin1String("icon") ? qMin(rate, LargestIconRate) : rate;
        if (!now.contains(what) || isSizedByQt(subject.name, what))
            continue;
        if (now.value(what) < Small * growth * size.value()) {
            small.append(
                QStringLiteral("%1: %2 from %3").arg(what).arg(now.value(what)).arg(size.value()));
        }
    }
    QVERIFY2(small.isEmpty(), qPrintable(small.join(QStringLiteral("; "))));
}

void tst_ThemeScale::textsAreWhole_data()
{
    themesRatesAndSpecimens();
}

// No text loses its top or bottom; views and edits show parts of what they scroll.
void tst_ThemeScale::textsAreWhole()
{
    QFETCH(QString, theme);
    QFETCH(double, rate);
    QFETCH(int, specimen);
    Themes::apply(theme, rate);
    static const QVector<Specimen> specimens = Specimen::all();
    const Stage stage(specimens.at(specimen), Poses::normalState(), rate);
    QStringList cut;
    const QVector<PaintedItem> items = paintedItems(stage.window());
    for (const PaintedItem &item : items) {
        const QWidget *widget = stage.window()->childAt(item.rect.center().toPoint());
        while (widget && !qobject_cast<const QAbstractScrollArea *>(widget))
            widget = widget->parentWidget();
        if (item.text.isEmpty() || widget)
            continue;
        if (item.rect.height() < item.whole.height() - 2)
            cut.append(QStringLiteral("\"%1\" %2 of %3")
                           .arg(item.text)
                           .arg(item.rect.height())
                           .arg(item.whole.height()));
    }
    QVERIFY2(cut.isEmpty(), qPrintable(cut.join(QStringLiteral("; "))));
}

void tst_ThemeScale::roundHandlesStayRound_data()
{
    themesAndRates();
}

// A radius of more than half of its box is no radius: the corners of the box are painted then.
void tst_ThemeScale::roundHandlesStayRound()
{
    QFETCH(QString, theme);
    QFETCH(double, rate);
    Themes::apply(theme, rate);
    const struct
    {
        const char *specimen;
        QStyle::ComplexControl control;
        QStyle::SubControl part;
    } handles[] = {
        { "QSlider horizontal", QStyle::CC_Slider, QStyle::SC_SliderHandle },
        { "QSlider vertical", QStyle::CC_Slider, QStyle::SC_SliderHandle },
        { "QScrollBar horizontal", QStyle::CC_ScrollBar, QStyle::SC_ScrollBarSlider },
        { "QScrollBar vertical", QStyle::CC_ScrollBar, QStyle::SC_ScrollBarSlider },
    };
    for (const auto &handle : handles) {
        const Stage stage(specimenNamed(handle.specimen), Poses::normalState(), rate);
        const QImage picture = stage.widget()->grab().toImage();
        const qreal ratio = picture.devicePixelRatio();
        const QPoint centre =
            Poses::subControl(handle.control, handle.part)(stage.widget()) * ratio;
        // Outwards from the centre to what is another colour.
        const QRgb color = picture.pixel(centre);
        QRect box(centre, QSize(1, 1));
        const auto same = [&](int x, int y) {
            return picture.valid(x, y) && Pixels::contrast(picture.pixel(x, y), color) < 1.05;
        };
        while (same(box.left() - 1, centre.y()))
            box.setLeft(box.left() - 1);
        while (same(box.right() + 1, centre.y()))
            box.setRight(box.right() + 1);
        while (same(centre.x(), box.top() - 1))
            box.setTop(box.top() - 1);
        while (same(centre.x(), box.bottom() + 1))
            box.setBottom(box.bottom() + 1);
        QVERIFY2(box.width() >= 5 * rate && box.height() >= 5 * rate, handle.specimen);
        for (const QPoint &corner :
             { box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight() }) {
            QVERIFY2(!same(corner.x(), corner.y()), handle.specimen);
        }
    }
}

THEME_TEST_MAIN(tst_ThemeScale)
#include "tst_themescale.moc"
