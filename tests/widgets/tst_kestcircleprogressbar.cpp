// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestCircleProgressBar.h"

#include "Announcements.h"
#include "Rendering.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QMetaProperty>
#include <QtCore/QPointer>
#include <QtGui/QLinearGradient>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtGui/QPicture>
#include <QtGui/QTextOption>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QAccessibleWidget>

#include <functional>
#include <limits>

namespace {

const QSize Size(100, 100);
const QRectF Ring(5, 5, 90, 90);

// What a ring is to look like; angles as QPainter takes them.
struct Figure
{
    QRectF ring = Ring;
    int barWidth = 10;
    QBrush background = QColor(238, 238, 238);
    QPen arc = QPen(QColor(50, 108, 243), 10, Qt::SolidLine, Qt::FlatCap);
    bool hasArc = true;
    int start = -4320;
    int span = -1382;
    QString text;
    QFont font;
};

void draw(QPainter *painter, const Figure &figure)
{
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setFont(figure.font);
    painter->setBrush(Qt::NoBrush);
    QPen ring;
    ring.setWidth(figure.barWidth);
    ring.setBrush(figure.background);
    painter->setPen(ring);
    painter->drawArc(figure.ring, 0, 5760);
    if (figure.hasArc) {
        painter->setPen(figure.arc);
        painter->drawArc(figure.ring, figure.start, figure.span);
    }
    if (!figure.text.isEmpty()) {
        painter->setPen(figure.arc.brush().color());
        painter->drawText(figure.ring, figure.text, QTextOption(Qt::AlignCenter));
    }
}

QImage drawn(const Figure &figure, qreal ratio = 1.0, const QSize &size = Size)
{
    Drawing drawing(size, [&figure](QPainter *painter) { draw(painter, figure); });
    return rendered(&drawing, ratio);
}

// The arc alone, at any span.
QImage drawnSpan(int span)
{
    Figure figure;
    figure.span = span;
    return drawn(figure);
}

// Is on the screen, since its motion rests elsewhere.
class PlainCircle : public KestCircleProgressBar
{
public:
    PlainCircle()
    {
        setTextVisible(false);
        resize(Size);
        show();
    }
};

// Puts a ring of the size Size where it can be hidden and minimised.
class Window : public QWidget
{
public:
    Window() : ring(new KestCircleProgressBar(this))
    {
        ring->setTextVisible(false);
        ring->resize(Size);
        resize(200, 200);
    }

    KestCircleProgressBar *const ring;
};

} // namespace

class tst_KestCircleProgressBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newRingStandsAt24Percent();
    void hintsAreFixed();
    void propertiesAreReadAndWrittenThroughTheMetaObject_data();
    void propertiesAreReadAndWrittenThroughTheMetaObject();
    void declaresTenPropertiesAndOneSignal();
    void appearanceSettersRepaintOnceEvenUnchanged_data();
    void appearanceSettersRepaintOnceEvenUnchanged();
    void sameValueDoesNothing();
    void valueOutsideTheRangeIsKept_data();
    void valueOutsideTheRangeIsKept();
    void rangeIsTakenAsGiven();
    void rangeEmitsNothing();
    void textFillsInTheFormat_data();
    void textFillsInTheFormat();
    void spansAreTruncated_data();
    void spansAreTruncated();
    void paintEventFromOutsideDoesNoHarm();
    void extremeNumbersDoNoHarm();
    void ringFillsTheCentredSquare_data();
    void ringFillsTheCentredSquare();
    void looksLikeItsDrawing_data();
    void looksLikeItsDrawing();
    void brushesCapsAndWidthsArePainted();
    void eachChangeIsDrawnAnew_data();
    void eachChangeIsDrawnAnew();
    void everyPlaceShowsTheSame_data();
    void everyPlaceShowsTheSame();
    void pictureOfCommandsKeepsItsLines();
    void textIsDrawnThroughTheOverride();
    void hiddenTextIsNotDrawn();
    void textTakesTheColorOfItsBrush_data();
    void textTakesTheColorOfItsBrush();
    void longTextIsWrappedWithinTheRing();
    void valueGlidesInTenthOfASecond();
    void glideStartsFromTheLastTarget();
    void rangeGlidesToo();
    void everyStepOfTheGlideRepaints();
    void busyArcTurnsAndBreathes();
    void busyArcOnlyTakesTheColorOfItsBrush();
    void busyRingNeverRests();
    void busyModeEndsAtTheValuesArc();
    void longBusyModeEndsAtOnce();
    void busyModeIsEnteredAgain();
    void busyRingShowsNoValue();
    void maximumOfZeroDrawsTheBusyArcAtRest();
    void farValuesTurnTheBusyArcOnlySoFar_data();
    void farValuesTurnTheBusyArcOnlySoFar();
    void rangeOfOtherEqualEndsIsFull();
    void newRingRests();
    void disabledRingKeepsItsLook();
    void rightToLeftKeepsTheDirection();
    void accessibilityReadsValueAndRange();
    void subclassIsAccessibleToo();
    void deletedOnTheWayLeavesNothing();
    void onlyTrueValuesAreAnnounced();
    void nothingIsMadeForNoReader();
    void slotMayDeleteTheRing_data();
    void slotMayDeleteTheRing();
    void ringMayDieWhileItIsRead();
    void unseenRingHasNoTimer_data();
    void unseenRingHasNoTimer();
    void windowOfItsOwnRestsToo();
    void ringShownInAMinimisedWindowRests();
    void ringHiddenInAMinimisedWindowGoesOnResting();
    void ringOfAWindowExposedTwiceRestsWhenItIsHidden();
    void unseenBusyRingTurnsOn_data();
    void unseenBusyRingTurnsOn();
    void everyLookAtAnUnseenRingIsInTime();
    void ringShownAgainGoesOnInTime();
    void hiddenRingLosesNoTimeSinceItsLastStep();
    void ringShownAgainIsPaintedAnew();
    void unseenGlideEndsInTime();
    void unseenGlideTakesOverItsRun();
    void unseenMaximumOfZeroRests();
    void busyModeEndsUnseen_data();
    void busyModeEndsUnseen();
    void longUnseenTimesKeepTheAngle();
};

void tst_KestCircleProgressBar::newRingStandsAt24Percent()
{
    KestCircleProgressBar bar;
    QCOMPARE(bar.minimum(), 0);
    QCOMPARE(bar.maximum(), 100);
    QCOMPARE(bar.value(), 24);
    QVERIFY(bar.isTextVisible());
    QCOMPARE(bar.format(), QStringLiteral("%p%"));
    QCOMPARE(bar.text(), QStringLiteral("24%"));
    QCOMPARE(bar.barWidth(), 10);
    QCOMPARE(bar.barBrush(), QBrush(QColor(50, 108, 243)));
    QCOMPARE(bar.backgroundBrush(), QBrush(QColor(238, 238, 238)));
    QCOMPARE(bar.penCapStyle(), Qt::FlatCap);
    QVERIFY(!bar.parent());
    QWidget parent;
    QCOMPARE(KestCircleProgressBar(&parent).parentWidget(), &parent);

    PlainCircle plain;
    QCOMPARE(rendered(&plain), drawnSpan(-1382));
}

void tst_KestCircleProgressBar::hintsAreFixed()
{
    KestCircleProgressBar bar;
    bar.setBarWidth(40);
    bar.setFormat(QStringLiteral("a long text that takes a lot of room"));
    QCOMPARE(bar.sizeHint(), QSize(100, 100));
    QCOMPARE(bar.minimumSizeHint(), QSize(40, 40));
}

void tst_KestCircleProgressBar::propertiesAreReadAndWrittenThroughTheMetaObject_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("before");
    QTest::addColumn<QVariant>("after");
    const auto row = [](const char *name, const QVariant &before, const QVariant &after) {
        QTest::newRow(name) << QByteArray(name) << before << after;
    };
    row("value", 24, 77);
    row("minimum", 0, -3);
    row("maximum", 100, 120);
    row("format", QStringLiteral("%p%"), QStringLiteral("%v"));
    row("textVisible", true, false);
    row("penCapStyle", QVariant::fromValue(Qt::FlatCap), QVariant::fromValue(Qt::RoundCap));
    row("barWidth", 10, 3);
    row("barBrush", QBrush(QColor(50, 108, 243)), QBrush(Qt::red));
    row("backgroundBrush", QBrush(QColor(238, 238, 238)), QBrush(Qt::green, Qt::Dense4Pattern));
}

void tst_KestCircleProgressBar::propertiesAreReadAndWrittenThroughTheMetaObject()
{
    QFETCH(QByteArray, name);
    QFETCH(QVariant, before);
    QFETCH(QVariant, after);
    KestCircleProgressBar bar;
    QCOMPARE(bar.property(name.constData()), before);
    QVERIFY(bar.setProperty(name.constData(), after));
    QCOMPARE(bar.property(name.constData()), after);
}

void tst_KestCircleProgressBar::declaresTenPropertiesAndOneSignal()
{
    const QMetaObject &meta = KestCircleProgressBar::staticMetaObject;
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 10);
    const QMetaProperty text = meta.property(meta.indexOfProperty("text"));
    QVERIFY(text.isReadable());
    QVERIFY(!text.isWritable());
    QCOMPARE(KestCircleProgressBar().property("text").toString(), QStringLiteral("24%"));
    const QMetaProperty value = meta.property(meta.indexOfProperty("value"));
    QCOMPARE(value.notifySignal().methodSignature(), QByteArray("valueChanged(int)"));

    QByteArrayList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods.append(meta.method(i).methodSignature());
    QCOMPARE(
        methods,
        QByteArrayList({ "valueChanged(int)", "setValue(int)", "setMaximum(int)", "setMinimum(int)",
                         "setRange(int,int)", "setPenCapStyle(Qt::PenCapStyle)", "setBarWidth(int)",
                         "setBarBrush(QBrush)", "setBackgroundBrush(QBrush)" }));
}

void tst_KestCircleProgressBar::appearanceSettersRepaintOnceEvenUnchanged_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char *name :
         { "format", "textVisible", "penCapStyle", "barWidth", "barBrush", "backgroundBrush" }) {
        QTest::newRow(name) << QByteArray(name);
    }
}

void tst_KestCircleProgressBar::appearanceSettersRepaintOnceEvenUnchanged()
{
    QFETCH(QByteArray, name);
    KestCircleProgressBar bar;
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QCoreApplication::processEvents();
    PaintCounter paints(&bar);
    bar.setProperty(name.constData(), bar.property(name.constData()));
    QTRY_COMPARE(paints.count, 1);
}

void tst_KestCircleProgressBar::sameValueDoesNothing()
{
    AnimationClock clock;
    PlainCircle bar;
    QSignalSpy changed(&bar, &KestCircleProgressBar::valueChanged);
    bar.setValue(24);
    QCOMPARE(changed.count(), 0);
    bar.setValue(50);
    clock.advanceBy(100);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toInt(), 50);
    bar.setValue(50);
    bar.setRange(0, 100);
    bar.setMinimum(0);
    bar.setMaximum(100);
    clock.advanceBy(1);
    QVERIFY(!clock.isRunning());
    QCOMPARE(changed.count(), 1);
}

void tst_KestCircleProgressBar::valueOutsideTheRangeIsKept_data()
{
    QTest::addColumn<int>("value");
    QTest::newRow("above") << 150;
    QTest::newRow("just above") << 101;
    QTest::newRow("below") << -1;
}

void tst_KestCircleProgressBar::valueOutsideTheRangeIsKept()
{
    QFETCH(int, value);
    AnimationClock clock;
    KestCircleProgressBar bar;
    bar.resize(Size);
    QSignalSpy changed(&bar, &KestCircleProgressBar::valueChanged);
    bar.setValue(value);
    QCOMPARE(bar.value(), value);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toInt(), value);
    QVERIFY(bar.text().isNull());
    bar.show();
    clock.advanceBy(100);
    Figure ringOnly;
    ringOnly.hasArc = false;
    QCOMPARE(rendered(&bar), drawn(ringOnly));
}

void tst_KestCircleProgressBar::rangeIsTakenAsGiven()
{
    KestCircleProgressBar bar;
    bar.setRange(80, 20);
    QCOMPARE(bar.minimum(), 80);
    QCOMPARE(bar.maximum(), 20);
    QCOMPARE(bar.value(), 24);
    QVERIFY(bar.text().isEmpty());
    bar.setMinimum(90);
    QCOMPARE(bar.minimum(), 90);
    QCOMPARE(bar.maximum(), 20);
    bar.setMaximum(10);
    QCOMPARE(bar.minimum(), 90);
    QCOMPARE(bar.maximum(), 10);
}

void tst_KestCircleProgressBar::rangeEmitsNothing()
{
    KestCircleProgressBar bar;
    QSignalSpy changed(&bar, &KestCircleProgressBar::valueChanged);
    bar.setRange(30, 50);
    bar.setMinimum(40);
    bar.setMaximum(60);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(bar.value(), 24);
}

void tst_KestCircleProgressBar::textFillsInTheFormat_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, int minimum, int maximum, int value, const char *format,
                        const char *text) {
        QTest::newRow(name) << minimum << maximum << value << QString::fromLatin1(format)
                            << QString::fromLatin1(text);
    };
    row("truncated", 0, 3, 2, "%p", "66");
    row("value of steps", 0, 3, 2, "%v of %m", "2 of 3");
    row("steps from the minimum", 10, 30, 15, "%p|%v|%m", "25|15|20");
    row("each placeholder often", 0, 4, 1, "%v%v %p%p %m%m", "11 2525 44");
    row("case matters", 0, 4, 1, "%P %V %M", "%P %V %M");
    row("doubled percent sign", 0, 4, 1, "%%p", "%25");
    row("no other placeholder", 0, 4, 1, "%x %1 %", "%x %1 %");
    row("empty", 0, 4, 1, "", "");
    row("equal ends", 5, 5, 5, "%p of %m", "100 of 0");
    row("busy", 0, 0, 0, "%p", "100");
    row("negative range", -20, -10, -15, "%p %v %m", "50 -15 10");
    row("lower end", 0, 100, 0, "%p%", "0%");
    row("upper end", 0, 100, 100, "%p%", "100%");
    row("just below the end", 0, 1000, 999, "%p%", "99%");
    // 29 / 100 is a little less than 0.29, and so is its hundredfold than 29.
    row("cut off in floating point", 0, 100, 29, "%p%", "28%");
    row("widest range", std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 0,
        "%p %m", "50 4294967295");
}

void tst_KestCircleProgressBar::textFillsInTheFormat()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, value);
    QFETCH(QString, format);
    QFETCH(QString, text);
    KestCircleProgressBar bar;
    bar.setRange(minimum, maximum);
    bar.setValue(value);
    bar.setFormat(format);
    QCOMPARE(bar.text(), text);
}

void tst_KestCircleProgressBar::spansAreTruncated_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("span");
    QTest::newRow("none") << 0 << 100 << 0 << 0;
    QTest::newRow("one") << 0 << 100 << 1 << -57; // 57.6
    QTest::newRow("third") << 0 << 7 << 3 << -2468; // 2468.57
    QTest::newRow("half") << 0 << 100 << 50 << -2880;
    QTest::newRow("from a minimum") << 50 << 90 << 60 << -1440;
    QTest::newRow("all") << 0 << 100 << 100 << -5760;
    QTest::newRow("equal ends") << 5 << 5 << 5 << -5760;
}

void tst_KestCircleProgressBar::spansAreTruncated()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, value);
    QFETCH(int, span);
    AnimationClock clock;
    PlainCircle bar;
    bar.setRange(minimum, maximum);
    bar.setValue(value);
    clock.advanceBy(100);
    QCOMPARE(rendered(&bar), drawnSpan(span));
}

void tst_KestCircleProgressBar::paintEventFromOutsideDoesNoHarm()
{
    KestCircleProgressBar widget;
    widget.resize(widget.sizeHint());
    const QImage before = rendered(&widget);
    // Nobody has prepared the widget for being painted.
    QPaintEvent event(widget.rect());
    QCoreApplication::sendEvent(&widget, &event);
    QCOMPARE(rendered(&widget), before);
}

void tst_KestCircleProgressBar::extremeNumbersDoNoHarm()
{
    AnimationClock clock;
    KestCircleProgressBar bar;
    bar.resize(Size);
    const int extremes[] = { std::numeric_limits<int>::min(), -1, 0, 1,
                             std::numeric_limits<int>::max() };
    for (const int minimum : extremes) {
        for (const int maximum : extremes) {
            for (const int value : extremes) {
                bar.setRange(minimum, maximum);
                bar.setValue(value);
                const bool inRange = value >= minimum && value <= maximum;
                QCOMPARE(bar.text().isEmpty(), !inRange);
                rendered(&bar);
            }
        }
    }
    for (const int width : { -5, 0, 1000 }) {
        bar.setBarWidth(width);
        rendered(&bar);
        QCOMPARE(bar.barWidth(), width);
    }
}

void tst_KestCircleProgressBar::ringFillsTheCentredSquare_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("barWidth");
    QTest::addColumn<QRectF>("ring");
    QTest::newRow("wide") << QSize(200, 100) << 10 << QRectF(55, 5, 90, 90);
    QTest::newRow("high") << QSize(60, 101) << 10 << QRectF(5, 25, 50, 50);
    QTest::newRow("odd") << QSize(101, 60) << 7 << QRectF(23.5, 3.5, 53, 53);
    QTest::newRow("thin") << QSize(40, 40) << 1 << QRectF(0.5, 0.5, 39, 39);
    QTest::newRow("thick") << QSize(40, 40) << 40 << QRectF(20, 20, 0, 0);
}

void tst_KestCircleProgressBar::ringFillsTheCentredSquare()
{
    QFETCH(QSize, size);
    QFETCH(int, barWidth);
    QFETCH(QRectF, ring);
    KestCircleProgressBar bar;
    bar.setTextVisible(false);
    bar.setBarWidth(barWidth);
    bar.resize(size);
    Figure figure;
    figure.ring = ring;
    figure.barWidth = barWidth;
    figure.arc.setWidth(barWidth);
    QCOMPARE(rendered(&bar), drawn(figure, 1.0, size));
}

void tst_KestCircleProgressBar::looksLikeItsDrawing_data()
{
    addRenderingRows();
}

void tst_KestCircleProgressBar::looksLikeItsDrawing()
{
    QFETCH(QString, style);
    QFETCH(bool, sheet);
    QFETCH(qreal, ratio);
    AnimationClock clock;
    KestCircleProgressBar bar;
    const Dress dress(&bar, style, sheet);
    bar.resize(Size);
    bar.show();
    Figure figure;
    figure.font = bar.font();
    figure.text = QStringLiteral("24%");
    QCOMPARE(rendered(&bar, ratio), drawn(figure, ratio));
    bar.setValue(75);
    clock.advanceBy(100);
    figure.span = -4320;
    figure.text = QStringLiteral("75%");
    QCOMPARE(rendered(&bar, ratio), drawn(figure, ratio));
}

void tst_KestCircleProgressBar::brushesCapsAndWidthsArePainted()
{
    QLinearGradient gradient(0, 0, 100, 0);
    gradient.setColorAt(0, Qt::red);
    gradient.setColorAt(1, Qt::blue);
    for (const Qt::PenCapStyle cap : { Qt::FlatCap, Qt::SquareCap, Qt::RoundCap }) {
        PlainCircle bar;
        bar.setPenCapStyle(cap);
        bar.setBarWidth(16);
        bar.setBarBrush(gradient);
        bar.setBackgroundBrush(QBrush(Qt::darkGreen, Qt::Dense4Pattern));
        Figure figure;
        figure.ring = QRectF(8, 8, 84, 84);
        figure.barWidth = 16;
        figure.background = QBrush(Qt::darkGreen, Qt::Dense4Pattern);
        figure.arc = QPen(gradient, 16, Qt::SolidLine, cap);
        QCOMPARE(rendered(&bar), drawn(figure));
    }
}

void tst_KestCircleProgressBar::eachChangeIsDrawnAnew_data()
{
    QTest::addColumn<qreal>("ratio");
    for (const qreal ratio : { 1.0, 1.25, 1.5, 2.0 })
        QTest::addRow("at %.2f", ratio) << ratio;
}

void tst_KestCircleProgressBar::eachChangeIsDrawnAnew()
{
    QFETCH(qreal, ratio);
    PlainCircle bar;
    Figure figure;
    QCOMPARE(rendered(&bar, ratio), drawn(figure, ratio));
    bar.setBackgroundBrush(QColor(200, 10, 10, 90));
    figure.background = QColor(200, 10, 10, 90);
    QCOMPARE(rendered(&bar, ratio), drawn(figure, ratio));
    bar.setBackgroundBrush(QBrush(QColor(200, 10, 10), Qt::Dense3Pattern));
    figure.background = QBrush(QColor(200, 10, 10), Qt::Dense3Pattern);
    QCOMPARE(rendered(&bar, ratio), drawn(figure, ratio));
    for (const int width : { 11, 1, 0, 2, 30 }) {
        bar.setBarWidth(width);
        figure.barWidth = width;
        figure.arc.setWidth(width);
        figure.ring = QRectF(width * 0.5, width * 0.5, 100 - width, 100 - width);
        QCOMPARE(rendered(&bar, ratio), drawn(figure, ratio));
    }
    // The square stays as large, in another place.
    for (const QSize &size : { QSize(140, 100), QSize(100, 140), QSize(60, 60), Size }) {
        bar.resize(size);
        const int side = qMin(size.width(), size.height());
        figure.ring = QRectF((size.width() - side) / 2 + 15, (size.height() - side) / 2 + 15,
                             side - 30, side - 30);
        QCOMPARE(rendered(&bar, ratio), drawn(figure, ratio, size));
    }
    // The same once more, and at a ratio that comes in between.
    QCOMPARE(rendered(&bar, ratio), drawn(figure, ratio));
    QCOMPARE(rendered(&bar, 3.0), drawn(figure, 3.0));
    QCOMPARE(rendered(&bar, ratio), drawn(figure, ratio));
}

void tst_KestCircleProgressBar::everyPlaceShowsTheSame_data()
{
    QTest::addColumn<int>("barWidth");
    QTest::addColumn<QBrush>("background");
    QTest::newRow("plain") << 10 << QBrush(QColor(238, 238, 238));
    QTest::newRow("translucent") << 7 << QBrush(QColor(10, 200, 100, 77));
    QTest::newRow("as thin as can be") << 1 << QBrush(QColor(10, 200, 100, 77));
    QLinearGradient gradient(0, 0, 100, 0);
    gradient.setColorAt(0, QColor(255, 0, 0, 30));
    gradient.setColorAt(1, Qt::blue);
    QTest::newRow("pattern") << 20 << QBrush(Qt::magenta, Qt::DiagCrossPattern);
    QTest::newRow("gradient") << 20 << QBrush(gradient);
}

void tst_KestCircleProgressBar::everyPlaceShowsTheSame()
{
    QFETCH(int, barWidth);
    QFETCH(QBrush, background);
    PlainCircle bar;
    bar.setBarWidth(barWidth);
    bar.setBackgroundBrush(background);
    Figure figure;
    figure.barWidth = barWidth;
    figure.arc.setWidth(barWidth);
    figure.background = background;
    const qreal half = barWidth * 0.5;
    figure.ring = QRectF(QPointF(), Size).adjusted(half, half, -half, -half);
    Drawing drawing(Size, [&figure](QPainter *painter) { draw(painter, figure); });
    // Twice each: what the first one leaves behind is no other's.
    const QVector<Surface> all = surfaces() + surfaces();
    for (const Surface &surface : all)
        QVERIFY2(surface.painted(&bar) == surface.painted(&drawing), surface.name);
}

void tst_KestCircleProgressBar::pictureOfCommandsKeepsItsLines()
{
    PlainCircle bar;
    rendered(&bar);
    QPicture commands;
    bar.render(&commands, QPoint(), QRegion(), QWidget::DrawChildren);
    Drawing drawing(Size, [](QPainter *painter) { draw(painter, Figure()); });
    QPicture expected;
    drawing.render(&expected, QPoint(), QRegion(), QWidget::DrawChildren);
    const auto enlarged = [](const QPicture &picture) {
        QImage image = canvas(Size * 3, 1.0);
        QPainter painter(&image);
        painter.scale(3, 3);
        painter.drawPicture(0, 0, picture);
        return image;
    };
    QCOMPARE(enlarged(commands), enlarged(expected));
}

void tst_KestCircleProgressBar::textIsDrawnThroughTheOverride()
{
    class Named : public KestCircleProgressBar
    {
    public:
        QString text() const override { return QStringLiteral("Own"); }
    };
    Named bar;
    bar.resize(Size);
    Figure figure;
    figure.font = bar.font();
    figure.text = QStringLiteral("Own");
    QCOMPARE(rendered(&bar), drawn(figure));
    QCOMPARE(bar.property("text").toString(), QStringLiteral("Own"));
}

void tst_KestCircleProgressBar::hiddenTextIsNotDrawn()
{
    KestCircleProgressBar bar;
    bar.resize(Size);
    const QImage withText = rendered(&bar);
    bar.setTextVisible(false);
    QCOMPARE(rendered(&bar), drawnSpan(-1382));
    QVERIFY(rendered(&bar) != withText);
}

void tst_KestCircleProgressBar::textTakesTheColorOfItsBrush_data()
{
    QTest::addColumn<QBrush>("brush");
    QLinearGradient gradient(0, 0, 100, 0);
    gradient.setColorAt(0, Qt::red);
    gradient.setColorAt(1, Qt::blue);
    QTest::newRow("gradient") << QBrush(gradient);
    QTest::newRow("pattern") << QBrush(Qt::magenta, Qt::Dense5Pattern);
}

void tst_KestCircleProgressBar::textTakesTheColorOfItsBrush()
{
    QFETCH(QBrush, brush);
    KestCircleProgressBar bar;
    bar.setBarBrush(brush);
    bar.resize(Size);
    Figure figure;
    figure.arc.setBrush(brush);
    figure.font = bar.font();
    figure.text = QStringLiteral("24%");
    QCOMPARE(rendered(&bar), drawn(figure));
}

void tst_KestCircleProgressBar::longTextIsWrappedWithinTheRing()
{
    KestCircleProgressBar bar;
    bar.setFormat(QStringLiteral("%p of all the hundred there are"));
    bar.setBarWidth(20);
    bar.resize(200, 100); // where there is room beside the ring
    Figure figure;
    figure.ring = QRectF(60, 10, 80, 80);
    figure.barWidth = 20;
    figure.arc.setWidth(20);
    figure.font = bar.font();
    figure.text = bar.text();
    QCOMPARE(rendered(&bar), drawn(figure, 1.0, QSize(200, 100)));
}

void tst_KestCircleProgressBar::valueGlidesInTenthOfASecond()
{
    AnimationClock clock;
    PlainCircle bar;
    bar.setValue(74);
    QCOMPARE(rendered(&bar), drawnSpan(-1382));
    clock.advanceBy(50);
    QCOMPARE(rendered(&bar), drawnSpan(-2822)); // half of -1382 to -4262
    clock.advanceBy(25);
    QCOMPARE(rendered(&bar), drawnSpan(-3542));
    clock.advanceBy(25);
    QCOMPARE(rendered(&bar), drawnSpan(-4262)); // of 4262.4
    QVERIFY(!clock.isRunning());
}

void tst_KestCircleProgressBar::glideStartsFromTheLastTarget()
{
    AnimationClock clock;
    PlainCircle bar;
    bar.setValue(50);
    clock.advanceBy(50);
    QCOMPARE(rendered(&bar), drawnSpan(-2131)); // half of -1382 to -2880
    // The run goes on where it is in time, between the new ends.
    bar.setValue(100);
    QCOMPARE(rendered(&bar), drawnSpan(-4320)); // half of -2880 to -5760
    clock.advanceBy(50);
    QCOMPARE(rendered(&bar), drawnSpan(-5760));
    QVERIFY(!clock.isRunning());
    bar.setValue(0);
    QCOMPARE(rendered(&bar), drawnSpan(-5760));
}

void tst_KestCircleProgressBar::rangeGlidesToo()
{
    AnimationClock clock;
    PlainCircle bar;
    bar.setMaximum(48);
    clock.advanceBy(50);
    QCOMPARE(rendered(&bar), drawnSpan(-2131)); // to half of the ring
    clock.advanceBy(50);
    QCOMPARE(rendered(&bar), drawnSpan(-2880));
    bar.setMinimum(12);
    clock.advanceBy(50);
    QCOMPARE(rendered(&bar), drawnSpan(-2400)); // half way to a third
    clock.advanceBy(50);
    QCOMPARE(rendered(&bar), drawnSpan(-1920));
    bar.setRange(0, 96);
    clock.advanceBy(100);
    QCOMPARE(rendered(&bar), drawnSpan(-1440));
}

void tst_KestCircleProgressBar::everyStepOfTheGlideRepaints()
{
    AnimationClock clock;
    PlainCircle bar;
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QCoreApplication::processEvents();
    PaintCounter paints(&bar);
    bar.setValue(100);
    for (int i = 1; i <= 5; ++i) {
        clock.advanceBy(20);
        QTRY_COMPARE(paints.count, i);
    }
    clock.advanceBy(20);
    QCoreApplication::processEvents();
    QCOMPARE(paints.count, 5);
}

// Where the busy arc is drawn: around an angle that goes from 5760 to -5760, with a span that goes
// from -4320 to 0 and back, both in two seconds.
static QImage drawnBusy(int middle, int span, const QColor &color = QColor(50, 108, 243))
{
    Figure figure;
    figure.arc.setColor(color);
    figure.start = middle - span / 2;
    figure.span = span;
    return drawn(figure);
}

void tst_KestCircleProgressBar::busyArcTurnsAndBreathes()
{
    AnimationClock clock;
    KestCircleProgressBar bar;
    bar.resize(Size);
    bar.show();
    QVERIFY(bar.isTextVisible()); // and yet none is drawn
    bar.setRange(0, 0);
    QCOMPARE(rendered(&bar), drawnBusy(5760, -4320));
    clock.advanceBy(500);
    QCOMPARE(rendered(&bar), drawnBusy(2880, -2160));
    clock.advanceBy(250);
    QCOMPARE(rendered(&bar), drawnBusy(1440, -1080));
    clock.advanceBy(250);
    QCOMPARE(rendered(&bar), drawnBusy(0, 0));
    clock.advanceBy(500);
    QCOMPARE(rendered(&bar), drawnBusy(-2880, -2160));
    clock.advanceBy(500);
    QCOMPARE(rendered(&bar), drawnBusy(5760, -4320));
    clock.advanceBy(100);
    QCOMPARE(rendered(&bar), drawnBusy(5184, -3888));
}

void tst_KestCircleProgressBar::busyArcOnlyTakesTheColorOfItsBrush()
{
    AnimationClock clock;
    PlainCircle bar;
    QLinearGradient gradient(0, 0, 100, 0);
    gradient.setColorAt(0, Qt::red);
    gradient.setColorAt(1, Qt::blue);
    bar.setBarBrush(gradient);
    bar.setRange(0, 0);
    clock.advanceBy(500);
    QCOMPARE(rendered(&bar), drawnBusy(2880, -2160, QBrush(gradient).color()));
    bar.setBarBrush(QBrush(Qt::magenta, Qt::Dense4Pattern));
    QCOMPARE(rendered(&bar), drawnBusy(2880, -2160, Qt::magenta));
    bar.setPenCapStyle(Qt::RoundCap);
    QVERIFY(rendered(&bar) != drawnBusy(2880, -2160, Qt::magenta));
}

void tst_KestCircleProgressBar::busyRingNeverRests()
{
    AnimationClock clock;
    PlainCircle bar;
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    bar.setRange(0, 0);
    PaintCounter paints(&bar);
    for (int i = 0; i < 30; ++i) {
        const int before = paints.count;
        clock.advanceBy(430);
        QTRY_VERIFY(paints.count > before);
    }
    QVERIFY(clock.isRunning());
}

void tst_KestCircleProgressBar::busyModeEndsAtTheValuesArc()
{
    AnimationClock clock;
    PlainCircle bar;
    bar.setRange(0, 0);
    clock.advanceBy(40);
    bar.setMaximum(100);
    QCOMPARE(rendered(&bar), drawnSpan(-4008)); // 40 ms of the glide from -5760 to -1382
    clock.advanceBy(60);
    QCOMPARE(rendered(&bar), drawnSpan(-1382));
    QVERIFY(!clock.isRunning());
}

void tst_KestCircleProgressBar::longBusyModeEndsAtOnce()
{
    AnimationClock clock;
    PlainCircle bar;
    bar.setRange(0, 0);
    clock.advanceBy(1500);
    bar.setRange(0, 100);
    clock.advanceBy(1);
    QCOMPARE(rendered(&bar), drawnSpan(-1382));
    QVERIFY(!clock.isRunning());
}

void tst_KestCircleProgressBar::busyModeIsEnteredAgain()
{
    AnimationClock clock;
    PlainCircle bar;
    bar.setRange(0, 0);
    clock.advanceBy(700);
    bar.setRange(0, 100);
    clock.advanceBy(100);
    bar.setRange(0, 0);
    QCOMPARE(rendered(&bar), drawnBusy(5760, -4320));
    clock.advanceBy(500);
    QCOMPARE(rendered(&bar), drawnBusy(2880, -2160));
    bar.setValue(7); // a value changes nothing of it
    QCOMPARE(rendered(&bar), drawnBusy(2880, -2160));
    clock.advanceBy(500);
    QCOMPARE(rendered(&bar), drawnBusy(0, 0));
}

void tst_KestCircleProgressBar::maximumOfZeroDrawsTheBusyArcAtRest()
{
    AnimationClock clock;
    PlainCircle bar;
    bar.setRange(-10, 0);
    clock.advanceBy(100);
    QVERIFY(!clock.isRunning());
    // (24 - -10) / 10 of a turn, the target that the middle glided to, and the longest arc
    QCOMPARE(rendered(&bar), drawnBusy(-19584, -4320));
}

void tst_KestCircleProgressBar::busyRingShowsNoValue()
{
    AnimationClock clock;
    KestCircleProgressBar bar;
    bar.resize(Size);
    bar.show();
    bar.setValue(0); // which is in the range to come
    bar.setRange(0, 0);
    QVERIFY(bar.isTextVisible());
    QCOMPARE(bar.text(), QStringLiteral("100%"));
    clock.advanceBy(500);
    QCOMPARE(rendered(&bar), drawnBusy(2880, -2160));
}

void tst_KestCircleProgressBar::farValuesTurnTheBusyArcOnlySoFar_data()
{
    // A step of the range is half a turn, or a whole one. Only 2^29 sixteenths of a degree count.
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("middle");
    const int farthest = 1 << 29;
    const int largest = std::numeric_limits<int>::max();
    QTest::newRow("just within") << -2 << 186411 << -186413 * 2880;
    QTest::newRow("beyond") << -2 << 186412 << -farthest;
    QTest::newRow("far beyond") << -1 << largest << -farthest;
    QTest::newRow("just within, below") << -2 << -186415 << 186413 * 2880;
    QTest::newRow("beyond, below") << -2 << -186416 << farthest;
    QTest::newRow("far beyond, below") << -1 << -largest << farthest;
}

void tst_KestCircleProgressBar::farValuesTurnTheBusyArcOnlySoFar()
{
    QFETCH(int, minimum);
    QFETCH(int, value);
    QFETCH(int, middle);
    AnimationClock clock;
    PlainCircle bar;
    bar.setRange(minimum, 0);
    bar.setValue(value);
    clock.advanceBy(100);
    QVERIFY(!clock.isRunning());
    QCOMPARE(rendered(&bar), drawnBusy(middle, -4320));
}

void tst_KestCircleProgressBar::rangeOfOtherEqualEndsIsFull()
{
    AnimationClock clock;
    PlainCircle bar;
    bar.setRange(5, 5);
    bar.setValue(5);
    clock.advanceBy(100);
    QCOMPARE(rendered(&bar), drawnSpan(-5760));
    QCOMPARE(bar.text(), QStringLiteral("100%"));
    QVERIFY(!clock.isRunning());
}

void tst_KestCircleProgressBar::newRingRests()
{
    AnimationClock clock;
    PlainCircle bar;
    clock.advanceBy(50);
    QVERIFY(!clock.isRunning());
    QCOMPARE(rendered(&bar), drawnSpan(-1382));
}

void tst_KestCircleProgressBar::disabledRingKeepsItsLook()
{
    KestCircleProgressBar bar;
    bar.resize(Size);
    const QImage enabled = rendered(&bar);
    bar.setEnabled(false);
    QCOMPARE(rendered(&bar), enabled);
}

void tst_KestCircleProgressBar::rightToLeftKeepsTheDirection()
{
    KestCircleProgressBar bar;
    bar.resize(Size);
    const QImage leftToRight = rendered(&bar);
    bar.setLayoutDirection(Qt::RightToLeft);
    QCOMPARE(rendered(&bar), leftToRight);
}

void tst_KestCircleProgressBar::accessibilityReadsValueAndRange()
{
    KestCircleProgressBar bar;
    bar.setAccessibleName(QStringLiteral("Copying"));
    bar.setRange(10, 50);
    bar.setValue(20);
    QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&bar);
    QVERIFY(face);
    QCOMPARE(face->role(), QAccessible::ProgressBar);
    bar.setToolTip(QStringLiteral("Three files"));
    bar.setAccessibleDescription(QStringLiteral("To the disk"));
    QCOMPARE(face->text(QAccessible::Name), QStringLiteral("Copying"));
    QCOMPARE(face->text(QAccessible::Description), QStringLiteral("To the disk"));
    QVERIFY(face->actionInterface()); // as of any widget
    QVERIFY(!face->textInterface());
    QCOMPARE(face->text(QAccessible::Value), QStringLiteral("25%"));
    QVERIFY(face->state().readOnly);
    QAccessibleValueInterface *value = face->valueInterface();
    QVERIFY(value);
    QCOMPARE(value->currentValue().toInt(), 20);
    QCOMPARE(value->minimumValue().toInt(), 10);
    QCOMPARE(value->maximumValue().toInt(), 50);
    QCOMPARE(value->minimumStepSize().toInt(), 1);
    value->setCurrentValue(30);
    QCOMPARE(bar.value(), 20);
    bar.setValue(60);
    QCOMPARE(face->text(QAccessible::Value), QStringLiteral("60"));
}

void tst_KestCircleProgressBar::subclassIsAccessibleToo()
{
    PlainCircle bar;
    QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&bar);
    QVERIFY(face);
    QVERIFY(face->valueInterface());
    QCOMPARE(face->valueInterface()->currentValue().toInt(), 24);
    QWidget other;
    QVERIFY(!QAccessible::queryAccessibleInterface(&other)->valueInterface());
}

void tst_KestCircleProgressBar::deletedOnTheWayLeavesNothing()
{
    AnimationClock clock;
    auto *bar = new KestCircleProgressBar;
    bar->setRange(0, 0);
    clock.advanceBy(10);
    delete bar;
    clock.advanceBy(10);
    QVERIFY(!clock.isRunning());
}

void tst_KestCircleProgressBar::onlyTrueValuesAreAnnounced()
{
    KestCircleProgressBar bar;
    QVector<int> values;
    connect(&bar, &KestCircleProgressBar::valueChanged, &bar, [&](int value) {
        values.append(value);
        if (value == 30)
            bar.setValue(60);
    });
    Announcements reader;
    bar.setValue(30);
    QCOMPARE(bar.value(), 60);
    QCOMPARE(values, QVector<int>({ 30, 60 }));
    QCOMPARE(reader.take(), QStringList({ QStringLiteral("value 60") }));
    bar.setValue(7);
    QCOMPARE(reader.take(), QStringList({ QStringLiteral("value 7") }));
}

void tst_KestCircleProgressBar::nothingIsMadeForNoReader()
{
    const KestCircleProgressBar first; // factories are asked from the last one on
    const InterfaceRequests requests;
    KestCircleProgressBar bar;
    bar.setValue(30);
    QCOMPARE(requests.count(), 0);
    QAccessible::queryAccessibleInterface(&bar);
    QVERIFY(requests.count() > 0);
}

void tst_KestCircleProgressBar::slotMayDeleteTheRing_data()
{
    QTest::addColumn<bool>("announced");
    QTest::newRow("signal") << false;
    QTest::newRow("announcement") << true;
}

void tst_KestCircleProgressBar::slotMayDeleteTheRing()
{
    QFETCH(bool, announced);
    Window window;
    const QPointer<KestCircleProgressBar> bar(window.ring);
    window.show();
    Announcements reader;
    if (announced)
        reader.onEach([bar] { delete bar; });
    else
        connect(bar, &KestCircleProgressBar::valueChanged, qApp, [bar] { delete bar; });
    bar->setValue(10);
    QVERIFY(bar.isNull());
    QCOMPARE(reader.take().size(), announced ? 1 : 0);
}

void tst_KestCircleProgressBar::ringMayDieWhileItIsRead()
{
    class Fragile : public KestCircleProgressBar
    {
    public:
        QString text() const override
        {
            delete this;
            return QString();
        }
    };
    const QPointer<Fragile> bar(new Fragile);
    QAccessibleInterface *face = QAccessible::queryAccessibleInterface(bar);
    QCOMPARE(face->text(QAccessible::Value), QString());
    QVERIFY(bar.isNull());
}

// The ways of a ring off the screen, and back on it.
struct Way
{
    const char *name;
    std::function<void(Window &)> leave;
    std::function<void(Window &)> comeBack;
};

static const Way ways[] = {
    { "hidden", [](Window &window) { window.ring->hide(); },
      [](Window &window) { window.ring->show(); } },
    { "window hidden", [](Window &window) { window.hide(); },
      [](Window &window) { window.show(); } },
    { "minimised", [](Window &window) { window.showMinimized(); },
      [](Window &window) { window.showNormal(); } },
};

static void addWays()
{
    QTest::addColumn<int>("way");
    for (int i = 0; i < 3; ++i)
        QTest::newRow(ways[i].name) << i;
}

void tst_KestCircleProgressBar::unseenRingHasNoTimer_data()
{
    addWays();
}

void tst_KestCircleProgressBar::unseenRingHasNoTimer()
{
    QFETCH(int, way);
    AnimationClock clock;
    Window window;
    window.ring->setRange(0, 0);
    clock.advanceBy(0);
    QVERIFY(!clock.isRunning()); // never shown
    window.show();
    QTRY_VERIFY(clock.isRunning());
    ways[way].leave(window);
    QTRY_VERIFY(!clock.isRunning());
    rendered(window.ring);
    clock.advanceBy(0);
    QVERIFY(!clock.isRunning());
    window.ring->setValue(30);
    clock.advanceBy(0);
    QVERIFY(!clock.isRunning());
    window.ring->setRange(0, 60);
    clock.advanceBy(0);
    QVERIFY(!clock.isRunning());
    window.ring->setRange(0, 0);
    ways[way].comeBack(window);
    QTRY_VERIFY(clock.isRunning());
    PaintCounter paints(window.ring);
    for (int i = 1; i < 4; ++i) {
        clock.advanceBy(20);
        QTRY_VERIFY(paints.count >= i);
    }
}

void tst_KestCircleProgressBar::windowOfItsOwnRestsToo()
{
    AnimationClock clock;
    PlainCircle bar;
    bar.setRange(0, 0);
    QTRY_VERIFY(clock.isRunning());
    bar.showMinimized();
    QTRY_VERIFY(!clock.isRunning());
    bar.showNormal();
    QTRY_VERIFY(clock.isRunning());
    bar.hide();
    QTRY_VERIFY(!clock.isRunning());
}

void tst_KestCircleProgressBar::ringShownInAMinimisedWindowRests()
{
    AnimationClock clock;
    Window window;
    window.ring->hide();
    window.ring->setRange(0, 0);
    window.showMinimized();
    window.ring->show();
    clock.advanceBy(0);
    QVERIFY(!clock.isRunning());
    window.showNormal();
    QTRY_VERIFY(clock.isRunning());
}

void tst_KestCircleProgressBar::ringHiddenInAMinimisedWindowGoesOnResting()
{
    AnimationClock clock;
    Window window;
    window.ring->hide();
    window.showMinimized();
    window.ring->show();
    window.ring->hide();
    window.showNormal();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    window.ring->setRange(0, 0);
    clock.advanceBy(0);
    QVERIFY(!clock.isRunning());
    window.ring->show();
    QTRY_VERIFY(clock.isRunning());
}

void tst_KestCircleProgressBar::ringOfAWindowExposedTwiceRestsWhenItIsHidden()
{
    AnimationClock clock;
    Window window;
    window.ring->hide();
    window.showMinimized();
    window.ring->show();
    QShowEvent exposed;
    QCoreApplication::sendEvent(window.ring, &exposed);
    window.ring->hide();
    window.showNormal();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    window.ring->setRange(0, 0);
    clock.advanceBy(0);
    QVERIFY(!clock.isRunning());
}

namespace {

// Where a busy arc is after a time: its middle, and its span; cut off as the animation cuts it off.
void busyArcAt(int ms, int *middle, int *span)
{
    const double turn = ms % 2000 / 2000.0;
    *middle = int(5760 + (-5760 - 5760) * turn);
    *span = turn < 0.5 ? int(-4320 + 4320 * (turn / 0.5)) : int(-4320 * ((turn - 0.5) / 0.5));
}

// Returns after how many ms from the first to the last a busy arc looks as in the picture; -1 if at
// no time.
int busyTimeOf(const QImage &picture, int first, int last)
{
    for (int ms = first; ms <= last; ++ms) {
        int middle = 0;
        int span = 0;
        busyArcAt(ms, &middle, &span);
        if (picture == drawnBusy(middle, span))
            return ms;
    }
    return -1;
}

// Real time, as a range: from when an arc may have been set in motion to when it was looked at.
class Stopwatch
{
public:
    Stopwatch() { m_before.start(); }

    void hasStarted() { m_after.start(); }

    // Looks at a ring: whether its busy arc is where it is after the time that has passed.
    bool isInTime(KestCircleProgressBar *bar)
    {
        const int earliest = int(m_after.elapsed());
        const QImage picture = rendered(bar);
        const int latest = int(m_before.elapsed()) + 1;
        if (busyTimeOf(picture, earliest, latest) >= 0)
            return true;
        qDebug("not where it is after %d to %d ms", earliest, latest);
        return false;
    }

private:
    QElapsedTimer m_before;
    QElapsedTimer m_after;
};

} // namespace

void tst_KestCircleProgressBar::unseenBusyRingTurnsOn_data()
{
    addWays();
}

void tst_KestCircleProgressBar::unseenBusyRingTurnsOn()
{
    QFETCH(int, way);
    Window window;
    window.show();
    ways[way].leave(window);
    QCoreApplication::processEvents();
    Stopwatch time;
    window.ring->setRange(0, 0);
    time.hasStarted();
    QVERIFY(time.isInTime(window.ring));
    QTest::qSleep(130);
    QVERIFY(time.isInTime(window.ring));
    QTest::qWait(170);
    QVERIFY(time.isInTime(window.ring));
    QCOMPARE(window.ring->grab().toImage().size(), Size);
    QTest::qSleep(1900); // into the next turn
    QVERIFY(time.isInTime(window.ring));
}

void tst_KestCircleProgressBar::everyLookAtAnUnseenRingIsInTime()
{
    KestCircleProgressBar bar;
    bar.resize(Size);
    Stopwatch time;
    bar.setRange(0, 0);
    time.hasStarted();
    for (int i = 0; i < 200; ++i) {
        QTest::qSleep(1);
        QVERIFY(time.isInTime(&bar));
    }
}

void tst_KestCircleProgressBar::ringShownAgainGoesOnInTime()
{
    AnimationClock clock; // stands still, so that only the time off the screen counts
    Window window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.ring->setRange(0, 0);
    clock.advanceBy(500);
    QCOMPARE(rendered(window.ring), drawnBusy(2880, -2160));
    for (int i = 0; i < 5; ++i) {
        window.ring->hide();
        QTest::qSleep(20);
        window.ring->show();
        QCoreApplication::processEvents();
    }
    const QImage shown = rendered(window.ring);
    const int found = busyTimeOf(shown, 600, 2000);
    QVERIFY(found >= 600);
    QCOMPARE(rendered(window.ring), shown); // the clock's own time goes on from there
    clock.advanceBy(100);
    int middle = 0;
    int span = 0;
    busyArcAt(found + 100, &middle, &span);
    QCOMPARE(rendered(window.ring), drawnBusy(middle, span));
}

void tst_KestCircleProgressBar::hiddenRingLosesNoTimeSinceItsLastStep()
{
    AnimationClock clock;
    Window window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.ring->setRange(0, 0);
    QTest::qSleep(300); // which is in the step to come
    QElapsedTimer time;
    time.start();
    clock.advanceBy(500);
    QTest::qSleep(50);
    rendered(window.ring); // a look on the screen takes nothing from it
    window.ring->hide();
    const QImage picture = rendered(window.ring);
    const int found = busyTimeOf(picture, 500, 2000);
    QVERIFY2(found >= 550, QByteArray::number(found));
    QVERIFY2(found <= 501 + time.elapsed(), QByteArray::number(found));
}

void tst_KestCircleProgressBar::ringShownAgainIsPaintedAnew()
{
    Window window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    window.showMinimized();
    QCoreApplication::processEvents();
    window.ring->setValue(80);
    PaintCounter paints(window.ring);
    window.showNormal();
    QTRY_VERIFY(paints.count > 0);
    QTRY_COMPARE(rendered(window.ring), drawnSpan(-4608));
}

void tst_KestCircleProgressBar::unseenGlideEndsInTime()
{
    KestCircleProgressBar bar;
    bar.setTextVisible(false);
    bar.resize(Size);
    QElapsedTimer before;
    before.start();
    bar.setValue(74);
    QElapsedTimer after;
    after.start();
    QTest::qSleep(40);
    const int earliest = int(after.elapsed());
    const QImage picture = rendered(&bar);
    const int latest = qMin(100, int(before.elapsed()) + 1);
    bool found = false;
    for (int ms = earliest; ms <= latest && !found; ++ms)
        found = picture == drawnSpan(int(-1382 + (-4262 + 1382) * (ms / 100.0)));
    QVERIFY(found || before.elapsed() > 100);
    QTest::qSleep(100);
    QCOMPARE(rendered(&bar), drawnSpan(-4262));
    QTest::qSleep(10);
    QCOMPARE(rendered(&bar), drawnSpan(-4262));
}

void tst_KestCircleProgressBar::unseenGlideTakesOverItsRun()
{
    KestCircleProgressBar bar;
    bar.setTextVisible(false);
    bar.resize(Size);
    QElapsedTimer time;
    time.start();
    bar.setValue(50);
    bar.setValue(100); // goes on with the run, from the target of the one before
    const QImage picture = rendered(&bar);
    const int latest = int(time.elapsed()) + 1;
    bool found = false;
    for (int ms = 0; ms <= latest && !found; ++ms)
        found = picture == drawnSpan(int(-2880 - 2880 * (ms / 100.0)));
    QVERIFY(found || latest > 100);
    QTest::qSleep(110);
    QCOMPARE(rendered(&bar), drawnSpan(-5760));
    bar.setValue(0); // a run that has ended is no run to go on with
    QElapsedTimer second;
    second.start();
    const QImage begun = rendered(&bar);
    const bool atStart = begun == drawnSpan(-5760);
    QVERIFY(atStart || second.elapsed() > 0);
}

void tst_KestCircleProgressBar::unseenMaximumOfZeroRests()
{
    KestCircleProgressBar bar;
    bar.resize(Size);
    bar.setRange(-10, 0);
    QTest::qSleep(30);
    rendered(&bar); // in the midst of the glide, or at its end
    QTest::qSleep(100);
    QCOMPARE(rendered(&bar), drawnBusy(-19584, -4320));
}

void tst_KestCircleProgressBar::busyModeEndsUnseen_data()
{
    QTest::addColumn<bool>("shown");
    QTest::newRow("unseen") << false;
    QTest::newRow("shown then") << true;
}

void tst_KestCircleProgressBar::busyModeEndsUnseen()
{
    QFETCH(bool, shown);
    Window window;
    window.ring->setRange(0, 0);
    QTest::qSleep(150); // longer than a glide: it is at its end at once
    window.ring->setRange(0, 100);
    if (shown) {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
    }
    QCOMPARE(rendered(window.ring), drawnSpan(-1382));
    AnimationClock clock;
    clock.advanceBy(0);
    QVERIFY(!clock.isRunning());
}

void tst_KestCircleProgressBar::longUnseenTimesKeepTheAngle()
{
    // Whole turns, however many, show the same; a run that is as long as a turn stays as long.
    AnimationClock clock;
    Window window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.ring->setRange(0, 0);
    for (int i = 0; i < 3; ++i)
        clock.advanceBy(2000);
    clock.advanceBy(50);
    window.ring->hide();
    QElapsedTimer time;
    time.start();
    const QImage picture = rendered(window.ring);
    QVERIFY(busyTimeOf(picture, 50, 100 + int(time.elapsed())) >= 0);
    window.ring->setRange(0, 100);
    window.ring->setTextVisible(false);
    QTest::qSleep(2);
    QCOMPARE(rendered(window.ring), drawnSpan(-1382)); // not 50 ms of a glide
}

QTEST_MAIN(tst_KestCircleProgressBar)

#include "tst_kestcircleprogressbar.moc"
