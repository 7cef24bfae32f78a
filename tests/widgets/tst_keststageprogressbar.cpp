// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestStageProgressBar.h"
#include "TestedQt.h"

#include "Announcements.h"
#include "Rendering.h"

#include <QtCore/QLocale>
#include <QtCore/QMetaProperty>
#include <QtCore/QPointer>
#include <QtGui/QGuiApplication>
#include <QtGui/QLinearGradient>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/private/qfont_p.h>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QStyleOptionProgressBar>
#include <QtWidgets/QVBoxLayout>

#include <functional>
#include <limits>
#include <memory>
#include <utility>

namespace {

const QColor Rate(53, 128, 206);

// A style whose numbers are known: 3, 2, 5 and 4 pixels around the contents of a progress bar. It
// keeps what it was asked.
class FramedStyle : public QProxyStyle
{
public:
    FramedStyle() : QProxyStyle(QStringLiteral("Windows")) { }

    QRect subElementRect(SubElement element, const QStyleOption *option,
                         const QWidget *widget) const override
    {
        if (element != SE_ProgressBarContents)
            return QProxyStyle::subElementRect(element, option, widget);
        return option->rect.adjusted(3, 2, -5, -4);
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override
    {
        if (type != CT_ProgressBar)
            return QProxyStyle::sizeFromContents(type, option, size, widget);
        const auto *bar = qstyleoption_cast<const QStyleOptionProgressBar *>(option);
        asked = bar ? *bar : QStyleOptionProgressBar();
        return size + QSize(8, 6);
    }

    mutable QStyleOptionProgressBar asked;
};

// Notes what is drawn where.
class Probe : public KestStageProgressBar
{
public:
    explicit Probe(QWidget *parent = nullptr) : KestStageProgressBar(parent) { }

    mutable QVector<QRectF> stages;
    mutable QVector<QRectF> captions;
    mutable QStringList texts;
    mutable QVector<int> indexes;
    mutable QVector<int> values;

    void paint()
    {
        stages.clear();
        captions.clear();
        texts.clear();
        indexes.clear();
        values.clear();
        rendered(this);
    }

    QStyleOptionProgressBar option() const
    {
        QStyleOptionProgressBar option;
        initStyleOption(&option);
        return option;
    }

protected:
    void drawStage(QPainter *painter, int index, const QRectF &rect, int value) const override
    {
        stages.append(rect);
        indexes.append(index);
        values.append(value);
        KestStageProgressBar::drawStage(painter, index, rect, value);
    }

    void drawText(QPainter *painter, int index, const QRectF &rect,
                  const QString &text) const override
    {
        captions.append(rect);
        texts.append(text);
        KestStageProgressBar::drawText(painter, index, rect, text);
    }
};

// What a bar in FramedStyle, or in any style, is to look like, from the circles and captions.
struct Figure
{
    QVector<QRectF> stages;
    QVector<QRectF> captions;
    QStringList texts;
    QRectF bar;
    bool horizontal = true;
    double share = 0.0;
    QBrush done = Rate;
    QBrush rest;
    QPen number = QPen(Qt::white);
    QColor captionColor;
    QFont font;
};

void draw(QPainter *painter, const Figure &figure)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const QRectF &stage : figure.stages)
        path.addEllipse(stage);
    path.addRect(figure.bar);
    const QRectF whole = path.boundingRect();
    const QRectF part = figure.horizontal
        ? QRectF(whole.x(), whole.y(), whole.width() * figure.share, whole.height())
        : QRectF(QPointF(whole.left(), whole.bottom() - whole.height() * figure.share),
                 whole.bottomRight());

    painter->setFont(figure.font);
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->fillPath(path, figure.rest);
    painter->setClipRect(part);
    painter->fillPath(path, figure.done);
    painter->setClipping(false);
    for (int i = 0; i < figure.stages.size(); ++i) {
        painter->setPen(figure.number);
        painter->drawText(figure.stages.at(i), Qt::AlignCenter, QString::number(i + 1));
        if (i < figure.captions.size()) {
            painter->setPen(figure.captionColor);
            painter->drawText(figure.captions.at(i),
                              figure.horizontal ? Qt::AlignCenter
                                                : Qt::AlignLeft | Qt::AlignVCenter,
                              figure.texts.at(i));
        }
    }
}

QImage drawn(const Figure &figure, const QSize &size, qreal ratio)
{
    Drawing drawing(size, [&figure](QPainter *painter) { draw(painter, figure); });
    return rendered(&drawing, ratio);
}

// What a bar with circles of the default radius is to look like, where its circles and captions are
// known to be right.
Figure figureOf(Probe *bar)
{
    bar->paint();
    Figure figure;
    figure.stages = bar->stages;
    figure.captions = bar->captions;
    figure.texts = bar->texts;
    figure.horizontal = bar->orientation() == Qt::Horizontal;
    const QPointF first = bar->stages.first().center();
    const QPointF last = bar->stages.last().center();
    if (figure.horizontal) {
        figure.bar = QRect(QPoint(int(first.x()), int(first.y() - 2)),
                           QPoint(int(last.x()), int(first.y() + 2)));
    } else if (bar->textVisible()) {
        figure.bar = QRect(QPoint(int(first.x() - 2), int(last.y())),
                           QPoint(int(first.x() + 2), int(first.y())));
    } else {
        figure.bar = QRect(QPoint(int(first.x() + 2), int(last.y())),
                           QPoint(int(first.x() - 2), int(first.y())));
    }
    figure.share = double(bar->value()) / bar->maximum();
    figure.done = bar->rateBackground();
    figure.rest = bar->palette().window();
    figure.number = bar->stageIndexTextPen();
    figure.captionColor = bar->palette().windowText().color();
    figure.font = bar->font();
    return figure;
}

void setCaptions(KestStageProgressBar *bar, const QStringList &texts)
{
    for (int i = 0; i < texts.size(); ++i)
        bar->setText(i, texts.at(i));
    bar->setTextVisible(true);
}

QStringList captionsOf(int count)
{
    QStringList texts { QStringLiteral("A rather long beginning"), QStringLiteral("Two"),
                        QStringLiteral("Third step"), QStringLiteral("IV"),
                        QStringLiteral("The end") };
    return texts.mid(0, count);
}

int inkCount(const QImage &image, const QColor &color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color ? 1 : 0;
    }
    return count;
}

} // namespace

class tst_KestStageProgressBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newBarHasTheDefaults();
    void newBarKeepsTheWidgetsSizePolicy();
    void newBarHasItsHintsSize();
    void declaresTenPropertiesOneSignalSixSlots();
    void propertiesAreReadAndWrittenThroughTheMetaObject_data();
    void propertiesAreReadAndWrittenThroughTheMetaObject();
    void stageCountBelowTwoIsRefused_data();
    void stageCountBelowTwoIsRefused();
    void stageCountDropsAndAddsCaptions();
    void captionOutOfRangeIsLogged();
    void negativeCaptionIndexDoesNothing();
    void listOfCaptionsIsThatOfTheSteps();
    void listOfCaptionsIsAPropertyOfForms();
    void valueInTheRangeIsTakenOnce();
    void valueOutsideTheRangeIsIgnored();
    void rangeMovesTheValueToTheNearerEnd_data();
    void rangeMovesTheValueToTheNearerEnd();
    void minimumPushesTheMaximum();
    void maximumPushesTheMinimum();
    void unchangedRangeDoesNothing();
    void orientationSetsTheSizePolicy();
    void orientationOfTheSamePolicyUpdatesTheLayout();
    void geometrySettersUpdateTheLayout_data();
    void geometrySettersUpdateTheLayout();
    void geometrySettersRepaintInTheSameSize_data();
    void geometrySettersRepaintInTheSameSize();
    void valueRepaintsAtOnce();
    void penAndBrushRepaintLater();
    void styleOptionDescribesTheBar();
    void hintsOfBarsWithoutCaptions_data();
    void hintsOfBarsWithoutCaptions();
    void hintsOfBarsWithCaptions_data();
    void hintsOfBarsWithCaptions();
    void hintsOfEmptyCaptions_data();
    void hintsOfEmptyCaptions();
    void columnOfNoRadiusIsOfItsLeading();
    void hintComesFromTheOverriddenMinimum();
    void circlesWithoutCaptions_data();
    void circlesWithoutCaptions();
    void circlesOfARowWithCaptions();
    void circlesOfAColumnWithCaptions();
    void captionsOfSeveralLines_data();
    void captionsOfSeveralLines();
    void inkOfTheOuterCaptionsMovesTheCircles();
    void captionsOfARowAreCentredBelow();
    void captionsOfAColumnAreBeside();
    void overridesAreAskedForEachStep();
    void drawingLeavesThePainterAsItWas();
    void textIsDrawnInOneLineWhereverItIs();
    void stepsAreDrawnOneAfterTheOther();
    void captionsAreDrawnInTheTextsColor_data();
    void captionsAreDrawnInTheTextsColor();
    void captionsAreDrawnAsTheyStand();
    void numbersAreNoMatterOfLocale();
    void looksLikeItsDrawing_data();
    void looksLikeItsDrawing();
    void eachChangeIsDrawnAnew_data();
    void eachChangeIsDrawnAnew();
    void everyPlaceShowsTheSame_data();
    void everyPlaceShowsTheSame();
    void captionsAreMeasuredAnew_data();
    void captionsAreMeasuredAnew();
    void connectingBars_data();
    void connectingBars();
    void emptyBarShowsNoProgress();
    void fullBarIsAllProgress();
    void halfTheValueIsHalfTheShape();
    void shareCountsFromZero();
    void columnFillsFromTheBottom();
    void maximumOfOneIsAllProgress();
    void maximumOfZeroShowsNoProgress();
    void negativeRangesDoNoHarm();
    void paintEventFromOutsideDoesNoHarm();
    void oddRadiiDoNoHarm_data();
    void oddRadiiDoNoHarm();
    void hugeRadiiAreCountedInFull();
    void extremeRadiiHaveHints_data();
    void extremeRadiiHaveHints();
    void penAndBrushArePainted();
    void disabledBarTakesTheDisabledPalette();
    void rightToLeftKeepsTheOrder();
    void accessibilityReadsValueAndRange();
    void onlyTrueValuesAreAnnounced();
    void slotMayDeleteTheBar_data();
    void slotMayDeleteTheBar();
    void layoutMayDeleteTheBar_data();
    void layoutMayDeleteTheBar();
    void barMayDieWhileItIsMeasured_data();
    void barMayDieWhileItIsMeasured();
    void barMayDieBeforeItIsPainted_data();
    void barMayDieBeforeItIsPainted();
    void overridesMayChangeTheBarWhileItIsPainted();
};

void tst_KestStageProgressBar::newBarHasTheDefaults()
{
    const KestStageProgressBar bar;
    QCOMPARE(bar.stageCount(), 5);
    QCOMPARE(bar.orientation(), Qt::Horizontal);
    QCOMPARE(bar.minimum(), 0);
    QCOMPARE(bar.maximum(), 99);
    QCOMPARE(bar.value(), 0);
    QVERIFY(!bar.textVisible());
    QCOMPARE(bar.stageCircleRadius(), 10);
    QCOMPARE(bar.stageIndexTextPen(), QPen(Qt::white));
    QCOMPARE(bar.rateBackground(), QBrush(Rate));
    for (int i = 0; i < 5; ++i)
        QCOMPARE(bar.text(i), QString());
    QCOMPARE(bar.windowFlags() & ~Qt::WindowFlags(Qt::WindowType_Mask),
             QWidget().windowFlags() & ~Qt::WindowFlags(Qt::WindowType_Mask));
    QWidget parent;
    QCOMPARE(KestStageProgressBar(&parent).parentWidget(), &parent);
}

void tst_KestStageProgressBar::newBarKeepsTheWidgetsSizePolicy()
{
    KestStageProgressBar bar;
    QCOMPARE(bar.sizePolicy(), QWidget().sizePolicy());
    bar.setOrientation(Qt::Horizontal);
    QCOMPARE(bar.sizePolicy(), QWidget().sizePolicy());
}

void tst_KestStageProgressBar::newBarHasItsHintsSize()
{
    QWidget parent;
    KestStageProgressBar bar(&parent);
    QCOMPARE(bar.size(), bar.sizeHint());
    bar.setOrientation(Qt::Vertical);
    QCOMPARE(bar.size(), bar.sizeHint());
    QVERIFY(bar.height() > bar.width());
}

void tst_KestStageProgressBar::declaresTenPropertiesOneSignalSixSlots()
{
    const QMetaObject &meta = KestStageProgressBar::staticMetaObject;
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 10);
    QByteArrayList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods.append(meta.method(i).methodSignature());
    QCOMPARE(methods,
             QByteArrayList({ "valueChanged(int)", "setOrientation(Qt::Orientation)",
                              "setValue(int)", "setRange(int,int)", "setTextVisible(bool)",
                              "setMaximum(int)", "setMinimum(int)" }));
    QCOMPARE(meta.property(meta.indexOfProperty("value")).notifySignal().methodSignature(),
             QByteArray("valueChanged(int)"));
}

void tst_KestStageProgressBar::propertiesAreReadAndWrittenThroughTheMetaObject_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("before");
    QTest::addColumn<QVariant>("after");
    const auto row = [](const char *name, const QVariant &before, const QVariant &after) {
        QTest::newRow(name) << QByteArray(name) << before << after;
    };
    row("stageCount", 5, 7);
    row("textVisible", false, true);
    row("stageIndexTextPen", QPen(Qt::white), QPen(Qt::red, 3, Qt::DashLine));
    row("rateBackground", QBrush(Rate), QBrush(Qt::green, Qt::Dense4Pattern));
    row("texts", QStringList({ QString(), QString(), QString(), QString(), QString() }),
        QStringList({ QStringLiteral("a"), QString(), QString(), QString(), QStringLiteral("e") }));
    row("stageCircleRadius", 10, 14);
    row("maximum", 99, 120);
    row("minimum", 0, -4);
    row("value", 0, 50);
    row("orientation", QVariant::fromValue(Qt::Horizontal), QVariant::fromValue(Qt::Vertical));
}

void tst_KestStageProgressBar::propertiesAreReadAndWrittenThroughTheMetaObject()
{
    QFETCH(QByteArray, name);
    QFETCH(QVariant, before);
    QFETCH(QVariant, after);
    KestStageProgressBar bar;
    QCOMPARE(bar.property(name.constData()), before);
    QVERIFY(bar.setProperty(name.constData(), after));
    QCOMPARE(bar.property(name.constData()), after);
}

void tst_KestStageProgressBar::stageCountBelowTwoIsRefused_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("one") << 1;
    QTest::newRow("none") << 0;
    QTest::newRow("negative") << -3;
}

void tst_KestStageProgressBar::stageCountBelowTwoIsRefused()
{
    QFETCH(int, count);
    KestStageProgressBar bar;
    QTest::ignoreMessage(QtDebugMsg, "stage count must be greater than or equal to 2");
    bar.setStageCount(count);
    QCOMPARE(bar.stageCount(), 5);
    bar.setStageCount(2);
    QCOMPARE(bar.stageCount(), 2);
}

void tst_KestStageProgressBar::stageCountDropsAndAddsCaptions()
{
    KestStageProgressBar bar;
    for (int i = 0; i < 5; ++i)
        bar.setText(i, QString::number(i));
    bar.setStageCount(3);
    QCOMPARE(bar.text(2), QStringLiteral("2"));
    bar.setStageCount(6);
    QCOMPARE(bar.text(2), QStringLiteral("2"));
    for (int i = 3; i < 6; ++i)
        QCOMPARE(bar.text(i), QString());
}

void tst_KestStageProgressBar::captionOutOfRangeIsLogged()
{
    static QStringList messages;
    messages.clear();
    const QtMessageHandler before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &text) { messages.append(text); });
    KestStageProgressBar bar;
    const auto logged = [](const std::function<void()> &action) {
        messages.clear();
        action();
        return messages;
    };
    const QStringList outOfRange { QStringLiteral("stage out of range") };
    QStringList wrong;
    for (const int index : { 0, 4, 5, 7 }) {
        const QStringList expected = index < 5 ? QStringList() : outOfRange;
        if (logged([&] { bar.text(index); }) != expected)
            wrong.append(QStringLiteral("text %1").arg(index));
        if (logged([&] { bar.setText(index, QStringLiteral("no")); }) != expected)
            wrong.append(QStringLiteral("setText %1").arg(index));
        if (bar.text(index) != (index < 5 ? QStringLiteral("no") : QString()))
            wrong.append(QStringLiteral("caption %1").arg(index));
    }
    qInstallMessageHandler(before);
    QCOMPARE(wrong, QStringList());
    QCOMPARE(bar.stageCount(), 5);
    bar.setStageCount(8);
    QCOMPARE(bar.text(5), QString());
    QCOMPARE(bar.text(7), QString());
}

void tst_KestStageProgressBar::listOfCaptionsIsThatOfTheSteps()
{
    const QString a = QStringLiteral("A long caption");
    const QString b = QStringLiteral("b");
    KestStageProgressBar bar;
    bar.setTextVisible(true);
    QCOMPARE(bar.texts(), QStringList({ QString(), QString(), QString(), QString(), QString() }));
    bar.setStageCount(3);
    bar.setText(1, b);
    QCOMPARE(bar.texts(), QStringList({ QString(), b, QString() }));

    // It makes the same bar as one caption after the other.
    KestStageProgressBar other;
    other.setTextVisible(true);
    other.setStageCount(3);
    setCaptions(&other, { a, b, a });
    bar.minimumSizeHint();
    bar.setTexts({ a, b, a });
    QCOMPARE(bar.text(0), a);
    QCOMPARE(bar.text(1), b);
    QCOMPARE(bar.minimumSizeHint(), other.minimumSizeHint());
    bar.resize(other.sizeHint());
    other.resize(other.sizeHint());
    QCOMPARE(bar.grab().toImage(), other.grab().toImage());

    // What it does not reach is empty, and what is too much is told and dropped.
    bar.setTexts({ b });
    QCOMPARE(bar.texts(), QStringList({ b, QString(), QString() }));
    QTest::ignoreMessage(QtDebugMsg, "stage out of range");
    bar.setTexts({ a, b, a, b });
    QCOMPARE(bar.texts(), QStringList({ a, b, a }));
    QCOMPARE(bar.stageCount(), 3);
    bar.setStageCount(4);
    QCOMPARE(bar.text(3), QString());
}

void tst_KestStageProgressBar::listOfCaptionsIsAPropertyOfForms()
{
    KestStageProgressBar bar;
    const QMetaObject *const meta = bar.metaObject();
    const auto position = [meta](const char *name) { return meta->indexOfProperty(name); };
    // Forms set properties in this order, and captions need their steps.
    QVERIFY(position("texts") > position("stageCount"));
    for (const char *name : { "texts", "stageCircleRadius" }) {
        const QMetaProperty property = meta->property(position(name));
        QVERIFY2(property.isWritable() && property.isDesignable() && property.isStored(), name);
        QVERIFY2(property.hasStdCppSet(), name); // uic's code calls it
    }
    QVERIFY(bar.setProperty("stageCircleRadius", 13));
    QCOMPARE(bar.stageCircleRadius(), 13);
}

void tst_KestStageProgressBar::negativeCaptionIndexDoesNothing()
{
    KestStageProgressBar bar;
    bar.setText(-1, QStringLiteral("no"));
    QCOMPARE(bar.text(-1), QString());
    for (int i = 0; i < 5; ++i)
        QCOMPARE(bar.text(i), QString());
}

void tst_KestStageProgressBar::valueInTheRangeIsTakenOnce()
{
    KestStageProgressBar bar;
    QSignalSpy changed(&bar, &KestStageProgressBar::valueChanged);
    bar.setValue(99);
    QCOMPARE(bar.value(), 99);
    bar.setValue(99);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toInt(), 99);
    bar.setValue(0);
    QCOMPARE(changed.count(), 2);
}

void tst_KestStageProgressBar::valueOutsideTheRangeIsIgnored()
{
    KestStageProgressBar bar;
    bar.setValue(40);
    QSignalSpy changed(&bar, &KestStageProgressBar::valueChanged);
    for (const int value : { 150, 100, -1 }) {
        bar.setValue(value);
        QCOMPARE(bar.value(), 40);
    }
    QCOMPARE(changed.count(), 0);
}

void tst_KestStageProgressBar::rangeMovesTheValueToTheNearerEnd_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("newMaximum");
    QTest::addColumn<int>("value");
    QTest::newRow("inside") << 10 << 60 << 60 << 50;
    QTest::newRow("at the lower end") << 50 << 60 << 60 << 50;
    QTest::newRow("at the upper end") << 10 << 50 << 50 << 50;
    QTest::newRow("below") << 60 << 70 << 70 << 60;
    QTest::newRow("above") << 10 << 20 << 20 << 20;
    QTest::newRow("reversed") << 10 << 5 << 10 << 10;
}

void tst_KestStageProgressBar::rangeMovesTheValueToTheNearerEnd()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, newMaximum);
    QFETCH(int, value);
    KestStageProgressBar bar;
    bar.setValue(50);
    QSignalSpy changed(&bar, &KestStageProgressBar::valueChanged);
    bar.setRange(minimum, maximum);
    QCOMPARE(bar.minimum(), minimum);
    QCOMPARE(bar.maximum(), newMaximum);
    QCOMPARE(bar.value(), value);
    QCOMPARE(changed.count(), value == 50 ? 0 : 1);
    if (value != 50)
        QCOMPARE(changed.at(0).at(0).toInt(), value);
}

void tst_KestStageProgressBar::minimumPushesTheMaximum()
{
    KestStageProgressBar bar;
    QSignalSpy changed(&bar, &KestStageProgressBar::valueChanged);
    bar.setMinimum(120);
    QCOMPARE(bar.minimum(), 120);
    QCOMPARE(bar.maximum(), 120);
    QCOMPARE(bar.value(), 120);
    bar.setMinimum(-5);
    QCOMPARE(bar.minimum(), -5);
    QCOMPARE(bar.maximum(), 120);
    QCOMPARE(changed.count(), 1);
}

void tst_KestStageProgressBar::maximumPushesTheMinimum()
{
    KestStageProgressBar bar;
    bar.setMinimum(20);
    QSignalSpy changed(&bar, &KestStageProgressBar::valueChanged);
    bar.setMaximum(10);
    QCOMPARE(bar.minimum(), 10);
    QCOMPARE(bar.maximum(), 10);
    QCOMPARE(bar.value(), 10);
    bar.setMaximum(30);
    QCOMPARE(bar.minimum(), 10);
    QCOMPARE(bar.maximum(), 30);
    QCOMPARE(changed.count(), 1);
}

void tst_KestStageProgressBar::unchangedRangeDoesNothing()
{
    KestStageProgressBar bar;
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QCoreApplication::processEvents();
    PaintCounter paints(&bar);
    bar.setRange(0, 99);
    bar.setMinimum(0);
    bar.setMaximum(99);
    QCoreApplication::processEvents();
    QCOMPARE(paints.count, 0);
    bar.setMaximum(200);
    QTRY_COMPARE(paints.count, 1);
}

void tst_KestStageProgressBar::orientationSetsTheSizePolicy()
{
    KestStageProgressBar bar;
    bar.setOrientation(Qt::Vertical);
    QCOMPARE(bar.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding));
    QCOMPARE(bar.sizePolicy().controlType(), QSizePolicy::DefaultType);
    bar.setOrientation(Qt::Horizontal);
    QCOMPARE(bar.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed));
    bar.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    bar.setOrientation(Qt::Horizontal);
    QCOMPARE(bar.sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
}

void tst_KestStageProgressBar::orientationOfTheSamePolicyUpdatesTheLayout()
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *bar = new KestStageProgressBar;
    bar->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    layout->addWidget(bar);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    const int before = layout->minimumSize().height();
    bar->setOrientation(Qt::Vertical);
    QVERIFY(layout->minimumSize().height() > before);
}

void tst_KestStageProgressBar::geometrySettersUpdateTheLayout_data()
{
    QTest::addColumn<int>("what");
    QTest::newRow("count") << 0;
    QTest::newRow("radius") << 1;
    QTest::newRow("caption") << 2;
    QTest::newRow("caption visibility") << 3;
    QTest::newRow("orientation") << 4;
}

void tst_KestStageProgressBar::geometrySettersUpdateTheLayout()
{
    QFETCH(int, what);
    class Counter : public QObject
    {
    public:
        int count = 0;
        bool eventFilter(QObject *, QEvent *event) override
        {
            count += event->type() == QEvent::LayoutRequest ? 1 : 0;
            return false;
        }
    };
    QWidget parent;
    KestStageProgressBar bar(&parent);
    const auto set = [&bar, what] {
        if (what == 0)
            bar.setStageCount(6);
        else if (what == 1)
            bar.setStageCircleRadius(11);
        else if (what == 2)
            bar.setText(1, QStringLiteral("x"));
        else if (what == 3)
            bar.setTextVisible(true);
        else
            bar.setOrientation(Qt::Vertical);
    };
    parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&parent));
    QCoreApplication::sendPostedEvents();
    Counter requests;
    parent.installEventFilter(&requests);
    set();
    QCoreApplication::sendPostedEvents();
    QVERIFY(requests.count > 0);
    requests.count = 0;
    set(); // unchanged, which only a caption does not look at
    QCoreApplication::sendPostedEvents();
    QCOMPARE(requests.count > 0, what == 2);
}

void tst_KestStageProgressBar::geometrySettersRepaintInTheSameSize_data()
{
    geometrySettersUpdateTheLayout_data();
}

void tst_KestStageProgressBar::geometrySettersRepaintInTheSameSize()
{
    QFETCH(int, what);
    KestStageProgressBar bar;
    bar.setFixedSize(200, 200);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QCoreApplication::processEvents();
    PaintCounter paints(&bar);
    if (what == 0)
        bar.setStageCount(6);
    else if (what == 1)
        bar.setStageCircleRadius(11);
    else if (what == 2)
        bar.setText(1, QStringLiteral("x"));
    else if (what == 3)
        bar.setTextVisible(true);
    else
        bar.setOrientation(Qt::Vertical);
    QTRY_COMPARE(paints.count, 1);
}

void tst_KestStageProgressBar::valueRepaintsAtOnce()
{
    KestStageProgressBar bar;
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QCoreApplication::processEvents();
    PaintCounter paints(&bar);
    int paintsAtSignal = -1;
    connect(&bar, &KestStageProgressBar::valueChanged, &bar,
            [&] { paintsAtSignal = paints.count; });
    bar.setValue(10);
    QCOMPARE(paints.count, 1);
    QCOMPARE(paintsAtSignal, 0);
    bar.setValue(10);
    bar.setValue(1000);
    QCOMPARE(paints.count, 1);
    bar.setRange(20, 30);
    QCOMPARE(paints.count, 2);
    QTRY_COMPARE(paints.count, 3); // of the range itself
}

void tst_KestStageProgressBar::penAndBrushRepaintLater()
{
    KestStageProgressBar bar;
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QCoreApplication::processEvents();
    PaintCounter paints(&bar);
    bar.setStageIndexTextPen(bar.stageIndexTextPen());
    QCOMPARE(paints.count, 0);
    QTRY_COMPARE(paints.count, 1);
    bar.setRateBackground(bar.rateBackground());
    QCOMPARE(paints.count, 1);
    QTRY_COMPARE(paints.count, 2);
}

void tst_KestStageProgressBar::styleOptionDescribesTheBar()
{
    FramedStyle style;
    Probe bar;
    bar.setStyle(&style);
    bar.setRange(3, 30);
    bar.setValue(17);
    bar.setTextVisible(true);
    bar.resize(200, 50);
    QStyleOptionProgressBar option = bar.option();
    QCOMPARE(option.rect, QRect(0, 0, 200, 50));
    QVERIFY(option.state.testFlag(QStyle::State_Horizontal));
    QCOMPARE(option.minimum, 3);
    QCOMPARE(option.maximum, 30);
    QCOMPARE(option.progress, 17);
    QCOMPARE(option.textAlignment, Qt::AlignCenter);
    QVERIFY(option.textVisible);
    QCOMPARE(option.text, QString());
    bar.setTextVisible(false);
    bar.setOrientation(Qt::Vertical);
    option = bar.option();
    QVERIFY(!option.state.testFlag(QStyle::State_Horizontal));
    QVERIFY(!hasOrientationOfItsOwn(option)); // the state tells
    QVERIFY(!option.textVisible);

    bar.minimumSizeHint();
    QCOMPARE(style.asked.maximum, 30);
    QCOMPARE(style.asked.progress, 17);
}

void tst_KestStageProgressBar::hintsOfBarsWithoutCaptions_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("radius");
    QTest::addColumn<QSize>("contents");
    // A row is (5rn - 4r) / n in whole pixels for each step; a column (4rn - 3r) / n.
    QTest::newRow("row of 5") << Qt::Horizontal << 5 << 10 << QSize(5 * 42, 20);
    QTest::newRow("row of 3") << Qt::Horizontal << 3 << 7 << QSize(3 * 25, 14);
    QTest::newRow("row of 7") << Qt::Horizontal << 7 << 3 << QSize(7 * 13, 6);
    QTest::newRow("row of 2") << Qt::Horizontal << 2 << 15 << QSize(2 * 45, 30);
    QTest::newRow("column of 5") << Qt::Vertical << 5 << 10 << QSize(20, 5 * 34);
    QTest::newRow("column of 3") << Qt::Vertical << 3 << 7 << QSize(14, 3 * 21);
    QTest::newRow("column of 7") << Qt::Vertical << 7 << 3 << QSize(6, 7 * 10);
}

void tst_KestStageProgressBar::hintsOfBarsWithoutCaptions()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(int, count);
    QFETCH(int, radius);
    QFETCH(QSize, contents);
    FramedStyle style;
    KestStageProgressBar bar;
    bar.setStyle(&style);
    bar.setStageCount(count);
    bar.setStageCircleRadius(radius);
    bar.setOrientation(orientation);
    // Columns count the leading of the font, which is 0 in most.
    if (orientation == Qt::Vertical && 2 * bar.fontMetrics().leading() > contents.height() / count)
        contents.setHeight(count * 2 * bar.fontMetrics().leading());
    QCOMPARE(bar.minimumSizeHint(), contents + QSize(8, 6));
    QCOMPARE(bar.sizeHint(), contents + QSize(8, 6));
    bar.setText(0, QStringLiteral("A caption that is not shown\nof\nmany\nlines"));
    QCOMPARE(bar.minimumSizeHint(), contents + QSize(8, 6));
}

void tst_KestStageProgressBar::hintsOfBarsWithCaptions_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("radius");
    for (const int count : { 2, 3, 5 }) {
        for (const int radius : { 2, 7, 10, 40 })
            QTest::addRow("%d steps, radius %d", count, radius) << count << radius;
    }
}

void tst_KestStageProgressBar::hintsOfBarsWithCaptions()
{
    QFETCH(int, count);
    QFETCH(int, radius);
    FramedStyle style;
    KestStageProgressBar bar;
    bar.setStyle(&style);
    bar.setStageCount(count);
    bar.setStageCircleRadius(radius);
    setCaptions(&bar, captionsOf(count));
    const QFontMetrics metrics(bar.font());

    int broadest = 0;
    int widest = 0;
    int highest = 0;
    for (const QString &text : captionsOf(count)) {
        broadest = qMax(broadest, metrics.boundingRect(text).width());
        widest = qMax(widest, metrics.size(0, text).width());
        highest = qMax(highest, metrics.size(0, text).height());
    }
    const int first = metrics.boundingRect(captionsOf(count).first()).width() / 2 - radius;
    const int last = metrics.boundingRect(captionsOf(count).last()).width() / 2 - radius;
    const int padding = qMax(qMax(first, last), 0);
    const int step = qMax(broadest + 10, (5 * radius * count - 4 * radius) / count);
    QCOMPARE(bar.minimumSizeHint(),
             QSize((count - 2) * step + 2 * padding + 10 + 8,
                   2 * radius + metrics.height() + metrics.leading() + 6));

    bar.setOrientation(Qt::Vertical);
    const int rung =
        qMax((4 * radius * count - 3 * radius) / count, highest + 2 * metrics.leading());
    const int firstHeight = metrics.size(0, captionsOf(count).first()).height();
    QCOMPARE(bar.minimumSizeHint(),
             QSize(widest + 2 * radius + 10 + 8, count * rung + qMax(0, firstHeight - radius) + 6));
}

void tst_KestStageProgressBar::hintsOfEmptyCaptions_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("radius");
    QTest::addColumn<int>("rowWidth"); // of the contents
    QTest::newRow("small circles") << 5 << 1 << 3 * 10 + 10;
    QTest::newRow("circles as wide as the space between") << 5 << 3 << 3 * 12 + 10;
    QTest::newRow("large circles") << 4 << 20 << 2 * 80 + 10;
    QTest::newRow("two") << 2 << 20 << 10;
}

void tst_KestStageProgressBar::hintsOfEmptyCaptions()
{
    QFETCH(int, count);
    QFETCH(int, radius);
    QFETCH(int, rowWidth);
    FramedStyle style;
    KestStageProgressBar bar;
    bar.setStyle(&style);
    bar.setStageCount(count);
    bar.setStageCircleRadius(radius);
    bar.setTextVisible(true);
    const QFontMetrics metrics(bar.font());
    QCOMPARE(bar.sizeHint(),
             QSize(rowWidth + 8, 2 * radius + metrics.height() + metrics.leading() + 6));
    bar.setOrientation(Qt::Vertical);
    QCOMPARE(bar.sizeHint().width(), 2 * radius + 10 + 8);
}

void tst_KestStageProgressBar::columnOfNoRadiusIsOfItsLeading()
{
    FramedStyle style;
    KestStageProgressBar bar;
    bar.setStyle(&style);
    bar.setStageCircleRadius(0);
    bar.setOrientation(Qt::Vertical);
    // Which is negative in some fonts.
    QCOMPARE(bar.sizeHint(), QSize(8, 5 * qMax(0, 2 * bar.fontMetrics().leading()) + 6));
}

void tst_KestStageProgressBar::hintComesFromTheOverriddenMinimum()
{
    class Fixed : public KestStageProgressBar
    {
    public:
        QSize minimumSizeHint() const override { return { 321, 54 }; }
    };
    QCOMPARE(Fixed().sizeHint(), QSize(321, 54));
}

void tst_KestStageProgressBar::circlesWithoutCaptions_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<QSize>("contents");
    QTest::addColumn<int>("radius");
    QTest::addColumn<QVector<QPointF>>("corners");
    using Points = QVector<QPointF>;
    QTest::newRow("row") << Qt::Horizontal << QSize(300, 40) << 10
                         << Points(
                                { { 0, 10 }, { 70, 10 }, { 140, 10 }, { 210, 10 }, { 280, 10 } });
    QTest::newRow("odd row") << Qt::Horizontal << QSize(101, 25) << 7
                             << Points({ { 0, 5 }, { 29, 5 }, { 58, 5 }, { 87, 5 } });
    QTest::newRow("row of fractions")
        << Qt::Horizontal << QSize(101, 21) << 5 << Points({ { 0, 5 }, { 45.5, 5 }, { 91, 5 } });
    QTest::newRow("narrow row") << Qt::Horizontal << QSize(10, 10) << 10
                                << Points({ { 0, -5 }, { -10, -5 } });
    QTest::newRow("column")
        << Qt::Vertical << QSize(41, 300) << 10
        << Points({ { 10, 0 }, { 10, 70 }, { 10, 140 }, { 10, 210 }, { 10, 280 } });
    QTest::newRow("odd column") << Qt::Vertical << QSize(21, 101) << 7
                                << Points({ { 3, 0 }, { 3, 29 }, { 3, 58 }, { 3, 87 } });
    QTest::newRow("column of fractions")
        << Qt::Vertical << QSize(20, 101) << 5 << Points({ { 5, 0 }, { 5, 45.5 }, { 5, 91 } });
}

void tst_KestStageProgressBar::circlesWithoutCaptions()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(QSize, contents);
    QFETCH(int, radius);
    QFETCH(QVector<QPointF>, corners);
    FramedStyle style;
    Probe bar;
    bar.setStyle(&style);
    bar.setStageCount(corners.size());
    bar.setStageCircleRadius(radius);
    bar.setOrientation(orientation);
    bar.resize(contents + QSize(8, 6));
    bar.paint();
    QCOMPARE(bar.stages.size(), corners.size());
    for (int i = 0; i < corners.size(); ++i) {
        QCOMPARE(bar.stages.at(i).topLeft(), corners.at(i) + QPointF(3, 2));
        QCOMPARE(bar.stages.at(i).size(), QSizeF(2 * radius, 2 * radius));
    }
    QVERIFY(bar.captions.isEmpty());
}

void tst_KestStageProgressBar::circlesOfARowWithCaptions()
{
    FramedStyle style;
    Probe bar;
    bar.setStyle(&style);
    setCaptions(&bar, captionsOf(5));
    bar.resize(600 + 8, 91 + 6);
    bar.paint();
    const QFontMetrics metrics(bar.font());
    const int padding = metrics.boundingRect(captionsOf(5).first()).width() / 2 - 10;
    QVERIFY(padding > 0);
    const int hint = 20 + metrics.height() + metrics.leading() + 6;
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(bar.stages.at(i).left(), padding + 3 + i * (600 - 20 - 2 * padding) / 4.0);
        QCOMPARE(bar.stages.at(i).top(), 2.0 + 45 - hint / 2);
    }
    // The first caption moves them, not the widest one.
    bar.setText(2, captionsOf(1).first() + captionsOf(1).first());
    bar.paint();
    QCOMPARE(bar.stages.at(0).left(), padding + 3.0);
    // The last caption is the longer one now, and none sticks out of short ones.
    bar.setText(0, QStringLiteral("I"));
    bar.setText(4, captionsOf(1).first());
    bar.paint();
    QCOMPARE(bar.stages.at(0).left(), padding + 3.0);
    bar.setText(4, QStringLiteral("I"));
    bar.paint();
    QCOMPARE(bar.stages.at(0).left(), 3.0);
    QCOMPARE(bar.stages.at(4).left(), 583.0);
}

void tst_KestStageProgressBar::circlesOfAColumnWithCaptions()
{
    FramedStyle style;
    Probe bar;
    bar.setStyle(&style);
    setCaptions(&bar, captionsOf(5));
    bar.setOrientation(Qt::Vertical);
    bar.resize(200 + 8, 301 + 6);
    const int height = QFontMetrics(bar.font()).size(0, captionsOf(1).first()).height();
    for (const int radius : { 4, 10, 40 }) {
        bar.setStageCircleRadius(radius);
        bar.paint();
        for (int i = 0; i < 5; ++i) {
            QCOMPARE(bar.stages.at(i).left(), 3.0);
            QCOMPARE(bar.stages.at(i).top(),
                     2 + (4 - i) * (301 - qMax(height, radius) - radius) / 4.0);
        }
        QVERIFY(bar.stages.at(0).top() > bar.stages.at(4).top());
    }
}

void tst_KestStageProgressBar::captionsOfSeveralLines_data()
{
    QTest::addColumn<int>("tall"); // the step that has them
    QTest::newRow("first") << 0;
    QTest::newRow("one between") << 2;
    QTest::newRow("last") << 4;
}

void tst_KestStageProgressBar::captionsOfSeveralLines()
{
    QFETCH(int, tall);
    FramedStyle style;
    Probe bar;
    bar.setStyle(&style);
    QStringList texts = captionsOf(5);
    texts[tall] = QStringLiteral("Some\nlines\nof\ntext");
    setCaptions(&bar, texts);
    const QFontMetrics metrics(bar.font());
    const int line = metrics.size(0, QStringLiteral("x")).height();
    const QSize lines = metrics.size(0, texts.at(tall));
    QVERIFY(lines.height() > 3 * line);
    // A row has room for one line.
    QCOMPARE(bar.sizeHint().height(), 20 + metrics.height() + metrics.leading() + 6);
    bar.resize(608, 106);
    bar.paint();
    QCOMPARE(bar.captions.at(tall).size(), QSizeF(lines));

    // In a column each step has as much as the tallest one, and the first one its own below it.
    bar.setOrientation(Qt::Vertical);
    const int rung = qMax(34, lines.height() + 2 * metrics.leading());
    const int first = tall == 0 ? lines.height() : line;
    QCOMPARE(bar.sizeHint().height(), 5 * rung + qMax(0, first - 10) + 6);
    bar.resize(308, 406);
    bar.paint();
    QCOMPARE(bar.captions.at(tall).size(), QSizeF(lines.width(), qMax(20, lines.height())));
    for (int i = 0; i < 5; ++i)
        QCOMPARE(bar.stages.at(i).top(), 2 + (4 - i) * (400 - qMax(first, 10) - 10) / 4.0);
    // All of the lines are drawn.
    QCOMPARE(rendered(&bar), drawn(figureOf(&bar), bar.size(), 1.0));
    const QImage whole = rendered(&bar);
    texts[tall] = QStringLiteral("Some\nlines\nof\n ");
    bar.setText(tall, texts.at(tall));
    QVERIFY(rendered(&bar) != whole);
}

void tst_KestStageProgressBar::inkOfTheOuterCaptionsMovesTheCircles()
{
    // Not how far they advance, which is another number.
    FramedStyle style;
    Probe bar;
    bar.setStyle(&style);
    bar.setTextVisible(true);
    bar.resize(900, 90);
    const QFontMetrics metrics(bar.font());
    for (const int step : { 0, 4 }) {
        bool differs = false;
        for (const char letter : { 'f', 'j', 'W', 'A', 'i', 'l', 'T', 'm' }) {
            for (const int length : { 7, 8, 9, 10 }) {
                const QString text(length, QLatin1Char(letter));
                bar.setText(step, text);
                bar.paint();
                const int ink = metrics.boundingRect(text).width() / 2;
                differs |= ink != metrics.size(0, text).width() / 2;
                QCOMPARE(bar.stages.at(0).left(), 3.0 + qMax(0, ink - 10));
            }
        }
        QVERIFY(differs);
        bar.setText(step, QString());
    }
}

void tst_KestStageProgressBar::captionsOfARowAreCentredBelow()
{
    FramedStyle style;
    Probe bar;
    bar.setStyle(&style);
    setCaptions(&bar, captionsOf(5));
    bar.resize(603, 90);
    bar.paint();
    const QFontMetrics metrics(bar.font());
    QCOMPARE(bar.captions.size(), 5);
    QCOMPARE(bar.texts, captionsOf(5));
    for (int i = 0; i < 5; ++i) {
        const QSize text = metrics.size(0, captionsOf(5).at(i));
        QCOMPARE(bar.captions.at(i).size(), QSizeF(text));
        QCOMPARE(bar.captions.at(i).left(), bar.stages.at(i).left() + 10 - text.width() / 2);
        QCOMPARE(bar.captions.at(i).top(), bar.stages.at(i).top() + 20 + metrics.leading());
    }
}

void tst_KestStageProgressBar::captionsOfAColumnAreBeside()
{
    FramedStyle style;
    Probe bar;
    bar.setStyle(&style);
    setCaptions(&bar, captionsOf(5));
    bar.setOrientation(Qt::Vertical);
    bar.resize(200, 300);
    const QFontMetrics metrics(bar.font());
    for (const int radius : { 3, 10 }) {
        bar.setStageCircleRadius(radius);
        bar.paint();
        for (int i = 0; i < 5; ++i) {
            const QSize text = metrics.size(0, captionsOf(5).at(i));
            QCOMPARE(bar.captions.at(i),
                     QRectF(3 + 2 * radius + 10, bar.stages.at(i).top(), text.width(),
                            qMax(2 * radius, text.height())));
        }
    }
}

void tst_KestStageProgressBar::overridesAreAskedForEachStep()
{
    Probe bar;
    bar.setStageCount(3);
    bar.setValue(42);
    bar.paint();
    QCOMPARE(bar.indexes, QVector<int>({ 0, 1, 2 }));
    QCOMPARE(bar.values, QVector<int>({ 42, 42, 42 }));
    QVERIFY(bar.texts.isEmpty());
    bar.setTextVisible(true);
    bar.paint();
    QCOMPARE(bar.texts.size(), 3);
}

void tst_KestStageProgressBar::drawingLeavesThePainterAsItWas()
{
    class Open : public KestStageProgressBar
    {
    public:
        using KestStageProgressBar::drawStage;
        using KestStageProgressBar::drawText;
    } bar;
    const QPen outer(Qt::magenta, 7);
    const QPen inner(Qt::cyan, 5);
    for (const bool caption : { false, true }) {
        QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        painter.setPen(outer);
        painter.save();
        painter.setPen(inner);
        if (caption)
            bar.drawText(&painter, 0, QRectF(0, 0, 100, 100), QStringLiteral("Text"));
        else
            bar.drawStage(&painter, 0, QRectF(0, 0, 100, 100), 0);
        QCOMPARE(painter.pen(), inner);
        painter.restore();
        QCOMPARE(painter.pen(), outer);
    }
}

void tst_KestStageProgressBar::textIsDrawnInOneLineWhereverItIs()
{
    // An override may want it in a rectangle that is too narrow.
    class Open : public KestStageProgressBar
    {
    public:
        using KestStageProgressBar::drawText;
    } bar;
    const QRectF narrow(30, 30, 20, 60);
    const QString text = QStringLiteral("two words");
    const auto paintedBy = [&bar](const std::function<void(QPainter *)> &paint) {
        QImage image = canvas(QSize(120, 120), 1.0);
        QPainter painter(&image);
        painter.setFont(bar.font());
        painter.setPen(bar.palette().windowText().color());
        paint(&painter);
        return image;
    };
    for (const Qt::Orientation orientation : { Qt::Horizontal, Qt::Vertical }) {
        bar.setOrientation(orientation);
        const int alignment = orientation == Qt::Horizontal ? int(Qt::AlignCenter)
                                                            : int(Qt::AlignLeft | Qt::AlignVCenter);
        QCOMPARE(paintedBy([&](QPainter *painter) { bar.drawText(painter, 0, narrow, text); }),
                 paintedBy([&](QPainter *painter) { painter->drawText(narrow, alignment, text); }));
    }
}

void tst_KestStageProgressBar::stepsAreDrawnOneAfterTheOther()
{
    class Ordered : public KestStageProgressBar
    {
    public:
        mutable QStringList order;

    protected:
        void drawStage(QPainter *painter, int index, const QRectF &, int) const override
        {
            const bool smooth = painter->testRenderHint(QPainter::Antialiasing);
            order.append(QStringLiteral("%1 %2").arg(smooth ? "circle" : "rough").arg(index));
        }
        void drawText(QPainter *painter, int index, const QRectF &, const QString &) const override
        {
            const bool smooth = painter->testRenderHint(QPainter::Antialiasing);
            order.append(QStringLiteral("%1 %2").arg(smooth ? "caption" : "rough").arg(index));
        }
    } bar;
    bar.setStageCount(3);
    bar.setTextVisible(true);
    rendered(&bar);
    QCOMPARE(bar.order,
             QStringList({ QStringLiteral("circle 0"), QStringLiteral("caption 0"),
                           QStringLiteral("circle 1"), QStringLiteral("caption 1"),
                           QStringLiteral("circle 2"), QStringLiteral("caption 2") }));
}

void tst_KestStageProgressBar::captionsAreDrawnInTheTextsColor_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QColor>("color");
    QTest::newRow("enabled") << true << QColor(Qt::darkGreen);
    QTest::newRow("disabled") << false << QColor(Qt::darkMagenta);
}

void tst_KestStageProgressBar::captionsAreDrawnInTheTextsColor()
{
    QFETCH(bool, enabled);
    QFETCH(QColor, color);
    // Whatever the widget's own foreground is.
    KestStageProgressBar bar;
    QPalette palette;
    for (const QPalette::ColorGroup group :
         { QPalette::Active, QPalette::Inactive, QPalette::Disabled }) {
        palette.setColor(group, QPalette::Text, Qt::red);
        palette.setColor(group, QPalette::WindowText,
                         group == QPalette::Disabled ? Qt::darkMagenta : Qt::darkGreen);
    }
    bar.setPalette(palette);
    bar.setForegroundRole(QPalette::Text);
    bar.setEnabled(enabled);
    QFont font = bar.font();
    font.setPixelSize(30);
    bar.setFont(font);
    setCaptions(&bar, QStringList { QStringLiteral("HHHH") });
    bar.setStageIndexTextPen(Qt::NoPen);
    bar.resize(bar.sizeHint());
    const QImage image = rendered(&bar);
    QVERIFY(inkCount(image, color) > 20);
    QCOMPARE(inkCount(image, Qt::red), 0);
}

void tst_KestStageProgressBar::captionsAreDrawnAsTheyStand()
{
    // An ampersand is one, and no mnemonic.
    for (const Qt::Orientation orientation : { Qt::Horizontal, Qt::Vertical }) {
        Probe bar;
        bar.setOrientation(orientation);
        setCaptions(&bar, QStringList { QStringLiteral("Save && &go") });
        bar.resize(bar.sizeHint());
        bar.paint();
        QCOMPARE(bar.captions.at(0).width(),
                 bar.fontMetrics().size(0, QStringLiteral("Save && &go")).width());
        QCOMPARE(rendered(&bar), drawn(figureOf(&bar), bar.size(), 1.0));
    }
}

void tst_KestStageProgressBar::numbersAreNoMatterOfLocale()
{
    KestStageProgressBar bar;
    bar.resize(bar.sizeHint());
    const QImage image = rendered(&bar);
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    const QImage elsewhere = rendered(&bar);
    QLocale::setDefault(before);
    QVERIFY(QLocale(QLocale::Arabic, QLocale::Egypt).toString(1) != QStringLiteral("1"));
    QCOMPARE(elsewhere, image);
}

void tst_KestStageProgressBar::looksLikeItsDrawing_data()
{
    addRenderingRows();
}

void tst_KestStageProgressBar::looksLikeItsDrawing()
{
    QFETCH(QString, style);
    QFETCH(bool, sheet);
    QFETCH(qreal, ratio);
    for (const Qt::Orientation orientation : { Qt::Horizontal, Qt::Vertical }) {
        for (const bool captions : { false, true }) {
            for (const int value : { 0, 37, 99 }) {
                Probe bar;
                const Dress dress(&bar, style, sheet);
                bar.setOrientation(orientation);
                bar.setValue(value);
                if (captions)
                    setCaptions(&bar, captionsOf(5));
                bar.resize(bar.sizeHint() + QSize(17, 23));
                QCOMPARE(rendered(&bar, ratio), drawn(figureOf(&bar), bar.size(), ratio));
            }
        }
    }
}

void tst_KestStageProgressBar::eachChangeIsDrawnAnew_data()
{
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<Qt::Orientation>("orientation");
    for (const qreal ratio : { 1.0, 1.25, 1.5, 2.0 }) {
        QTest::addRow("row at %.2f", ratio) << ratio << Qt::Horizontal;
        QTest::addRow("column at %.2f", ratio) << ratio << Qt::Vertical;
    }
}

void tst_KestStageProgressBar::eachChangeIsDrawnAnew()
{
    QFETCH(qreal, ratio);
    QFETCH(Qt::Orientation, orientation);
    QLinearGradient gradient(0, 0, 300, 300);
    gradient.setColorAt(0, Qt::yellow);
    gradient.setColorAt(1, QColor(0, 0, 255, 100));
    QPalette palette;
    palette.setBrush(QPalette::Active, QPalette::Window, QColor(10, 120, 30, 99));
    palette.setBrush(QPalette::Disabled, QPalette::Window, QBrush(gradient));
    palette.setBrush(QPalette::Inactive, QPalette::Window, QColor(90, 20, 30));
    FramedStyle framed;
    std::unique_ptr<QStyle> fusion(QStyleFactory::create(QStringLiteral("Fusion")));
    Probe bar;
    bar.setStyle(fusion.get());
    bar.setOrientation(orientation);
    bar.setValue(40);
    bar.resize(300, 280);
    const QVector<std::function<void()>> changes {
        [] {},
        [&] { bar.setValue(70); },
        [&] { bar.setRateBackground(gradient); },
        [&] { bar.setRateBackground(QColor(100, 0, 0, 100)); },
        [&] { bar.setRateBackground(QBrush(Qt::red, Qt::Dense5Pattern)); },
        [&] { bar.setPalette(palette); },
        [&] { bar.setEnabled(false); },
        [&] { bar.setEnabled(true); },
        [&] { bar.setStageCount(3); },
        [&] { bar.setStageCount(6); },
        [&] { setCaptions(&bar, captionsOf(5)); },
        [&] { bar.setText(0, QStringLiteral("A much longer beginning")); },
        [&] { bar.setFont(QFont(bar.font().family(), 17)); },
        [&] { bar.setStyle(&framed); },
        [&] { bar.resize(280, 300); },
        [&] { bar.resize(300, 300); },
        [&] { bar.setTextVisible(false); },
        [&] { bar.setLayoutDirection(Qt::RightToLeft); },
        [&] { bar.setOrientation(Qt::Horizontal); },
        [&] { bar.setOrientation(Qt::Vertical); },
        [&] { bar.setStyle(fusion.get()); },
    };
    for (int i = 0; i < changes.size(); ++i) {
        changes.at(i)();
        for (const qreal other : { ratio, ratio + 1.0, ratio }) {
            QVERIFY2(rendered(&bar, other) == drawn(figureOf(&bar), bar.size(), other),
                     qPrintable(QStringLiteral("change %1 at %2").arg(i).arg(other)));
        }
    }
    bar.setStyle(nullptr);
}

void tst_KestStageProgressBar::everyPlaceShowsTheSame_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<QBrush>("brush");
    QLinearGradient gradient(0, 0, 100, 0);
    gradient.setColorAt(0, QColor(255, 0, 0, 30));
    gradient.setColorAt(1, Qt::blue);
    QTest::newRow("row") << Qt::Horizontal << QBrush(QColor(9, 200, 9));
    QTest::newRow("translucent row") << Qt::Horizontal << QBrush(QColor(9, 200, 9, 90));
    QTest::newRow("column") << Qt::Vertical << QBrush(QColor(9, 200, 9, 90));
    QTest::newRow("gradient") << Qt::Horizontal << QBrush(gradient);
    QTest::newRow("pattern") << Qt::Vertical << QBrush(Qt::magenta, Qt::DiagCrossPattern);
}

void tst_KestStageProgressBar::everyPlaceShowsTheSame()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(QBrush, brush);
    Probe bar;
    bar.setOrientation(orientation);
    bar.setRateBackground(brush);
    QPalette palette = bar.palette();
    palette.setBrush(QPalette::Window, brush);
    bar.setPalette(palette);
    bar.setValue(50);
    bar.resize(120, 110);
    const Figure figure = figureOf(&bar);
    Drawing drawing(bar.size(), [&figure](QPainter *painter) { draw(painter, figure); });
    // Twice each: what the first one leaves behind is no other's.
    const QVector<Surface> all = surfaces() + surfaces();
    for (const Surface &surface : all)
        QVERIFY2(surface.painted(&bar) == surface.painted(&drawing), surface.name);
}

void tst_KestStageProgressBar::captionsAreMeasuredAnew_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::newRow("row") << Qt::Horizontal;
    QTest::newRow("column") << Qt::Vertical;
}

void tst_KestStageProgressBar::captionsAreMeasuredAnew()
{
    QFETCH(Qt::Orientation, orientation);
    // A name that stands for no font, yet.
    const QString family = QStringLiteral("Nowhere %1").arg(orientation);
    Probe bar;
    bar.setOrientation(orientation);
    setCaptions(&bar, captionsOf(5));
    QSize before = bar.sizeHint();
    const QVector<std::function<void()>> changes {
        [&] { bar.setText(0, QStringLiteral("An even longer beginning of many words")); },
        [&] { bar.setText(4, QStringLiteral("An end that is longer than the whole rest of it")); },
        [&] {
            // Also while it does not show.
            bar.setTextVisible(false);
            bar.sizeHint();
            bar.setText(4, QStringLiteral("An end"));
            bar.setTextVisible(true);
        },
        [&] { bar.setFont(QFont(bar.font().family(), 30)); },
        [&] { bar.setFont(QFont()); }, // the one that metrics begin with
        [&] { bar.setStyleSheet(QStringLiteral("* { font-size: 7px; }")); },
        [&] { bar.setStageCount(2); },
        [&] { bar.setStageCount(9); },
        [&] {
            bar.setText(8, QStringLiteral("One that has to be the longest of all of them here"));
        },
        [&] { bar.setStyleSheet(QString()); },
        [&] { bar.setFont(QFont(family, 21)); },
        [&] {
            QFont::insertSubstitution(family, otherFamily(family));
            QFontCache::instance()->clear();
            Q_EMIT qGuiApp->fontDatabaseChanged();
        },
    };
    for (int i = 0; i < changes.size(); ++i) {
        changes.at(i)();
        const QSize hint = bar.sizeHint();
        QVERIFY2(hint != before, qPrintable(QString::number(i)));
        before = hint;
        Probe fresh;
        fresh.setOrientation(orientation);
        fresh.setStageCount(bar.stageCount());
        for (int j = 0; j < bar.stageCount(); ++j)
            fresh.setText(j, bar.text(j));
        fresh.setTextVisible(true);
        fresh.setFont(bar.font());
        fresh.setStyleSheet(bar.styleSheet());
        QCOMPARE(hint, fresh.sizeHint());
        bar.resize(hint);
        fresh.resize(hint);
        bar.paint();
        fresh.paint();
        QCOMPARE(bar.stages, fresh.stages);
        QCOMPARE(bar.captions, fresh.captions);
    }
}

void tst_KestStageProgressBar::connectingBars_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<bool>("captions");
    QTest::addColumn<int>("radius");
    QTest::addColumn<int>("thickness");
    QTest::newRow("row") << Qt::Horizontal << false << 10 << 5;
    QTest::newRow("thick row") << Qt::Horizontal << false << 23 << 11;
    QTest::newRow("thin row") << Qt::Horizontal << false << 3 << 1;
    QTest::newRow("column with captions") << Qt::Vertical << true << 10 << 5;
    // Its sides come in reverse order: one pixel less twice.
    QTest::newRow("column") << Qt::Vertical << false << 10 << 3;
    QTest::newRow("thick column") << Qt::Vertical << false << 23 << 9;
}

void tst_KestStageProgressBar::connectingBars()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(bool, captions);
    QFETCH(int, radius);
    QFETCH(int, thickness);
    FramedStyle style;
    Probe bar;
    bar.setStyle(&style);
    bar.setStageCount(2);
    bar.setStageCircleRadius(radius);
    bar.setOrientation(orientation);
    bar.setTextVisible(captions);
    bar.resize(308, 306);
    bar.setValue(99);
    bar.paint();
    const QImage image = rendered(&bar);
    const QPoint middle =
        (QRectF(bar.stages.at(0) | bar.stages.at(1)).center() - QPointF(0.5, 0.5)).toPoint();
    int count = 0;
    for (int i = -40; i <= 40; ++i) {
        const QPoint at =
            orientation == Qt::Horizontal ? middle + QPoint(0, i) : middle + QPoint(i, 0);
        if (image.rect().contains(at))
            count += image.pixelColor(at) == Rate ? 1 : 0;
    }
    QCOMPARE(count, thickness);
}

void tst_KestStageProgressBar::emptyBarShowsNoProgress()
{
    KestStageProgressBar bar;
    bar.resize(300, 40);
    QCOMPARE(inkCount(rendered(&bar), Rate), 0);
    bar.setOrientation(Qt::Vertical);
    bar.resize(40, 300);
    QCOMPARE(inkCount(rendered(&bar), Rate), 0);
}

void tst_KestStageProgressBar::fullBarIsAllProgress()
{
    KestStageProgressBar bar;
    QPalette palette = bar.palette();
    palette.setColor(QPalette::Window, Qt::green);
    bar.setPalette(palette);
    bar.resize(300, 40);
    QVERIFY(inkCount(rendered(&bar), Qt::green) > 100);
    bar.setValue(99);
    QCOMPARE(inkCount(rendered(&bar), Qt::green), 0);
    QVERIFY(inkCount(rendered(&bar), Rate) > 1000);
}

// How far progress reaches in contents that begin at 3.
static int doneWidth(KestStageProgressBar *bar)
{
    const QImage image = rendered(bar);
    int width = 0;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y)
            width = image.pixelColor(x, y) == Rate ? x + 1 - 3 : width;
    }
    return width;
}

void tst_KestStageProgressBar::halfTheValueIsHalfTheShape()
{
    FramedStyle style;
    KestStageProgressBar bar;
    bar.setStyle(&style);
    bar.resize(308, 46);
    bar.setRange(0, 100);
    bar.setValue(50);
    QCOMPARE(doneWidth(&bar), 150);
    bar.setValue(25);
    QCOMPARE(doneWidth(&bar), 75);
}

void tst_KestStageProgressBar::shareCountsFromZero()
{
    FramedStyle style;
    KestStageProgressBar bar;
    bar.setStyle(&style);
    bar.resize(308, 46);
    bar.setRange(50, 100);
    bar.setValue(75);
    QCOMPARE(doneWidth(&bar), 225);
}

void tst_KestStageProgressBar::columnFillsFromTheBottom()
{
    FramedStyle style;
    Probe bar;
    bar.setStyle(&style);
    bar.setRange(0, 100);
    bar.setValue(40);
    bar.setOrientation(Qt::Vertical);
    bar.resize(48, 306);
    for (const bool captions : { false, true }) {
        bar.setTextVisible(captions);
        bar.paint();
        const QImage image = rendered(&bar);
        const int x = int(bar.stages.first().center().x());
        const auto isDone = [&](int y) { return image.pixelColor(x, y) == Rate; };
        const int top = int(qMin(bar.stages.first().top(), bar.stages.last().top()));
        const int bottom = int(qMax(bar.stages.first().bottom(), bar.stages.last().bottom()));
        const int edge = qRound(bottom - 0.4 * (bottom - top));
        QVERIFY(isDone(edge + 1));
        QVERIFY(!isDone(edge - 2));
        QVERIFY(isDone(bottom - 3));
        QVERIFY(!isDone(top + 3));
    }
}

void tst_KestStageProgressBar::maximumOfOneIsAllProgress()
{
    KestStageProgressBar bar;
    bar.resize(300, 40);
    bar.setValue(99);
    const QImage full = rendered(&bar);
    bar.setRange(0, 1);
    QCOMPARE(rendered(&bar), full);
    bar.setValue(0);
    QCOMPARE(inkCount(rendered(&bar), Rate), 0);
}

void tst_KestStageProgressBar::maximumOfZeroShowsNoProgress()
{
    KestStageProgressBar bar;
    bar.resize(300, 40);
    bar.setRange(0, 0);
    QCOMPARE(inkCount(rendered(&bar), Rate), 0);
    bar.setRange(-10, 0);
    bar.setValue(-5);
    QCOMPARE(inkCount(rendered(&bar), Rate), 0);
    bar.setOrientation(Qt::Vertical);
    bar.resize(40, 300);
    QCOMPARE(inkCount(rendered(&bar, 2.0), Rate), 0);
}

void tst_KestStageProgressBar::negativeRangesDoNoHarm()
{
    KestStageProgressBar bar;
    bar.resize(300, 40);
    bar.setRange(-10, 10);
    bar.setValue(-5);
    QCOMPARE(inkCount(rendered(&bar), Rate), 0);
    QCOMPARE(inkCount(rendered(&bar, 2.0), Rate), 0);
    bar.setRange(-100, -50);
    QCOMPARE(bar.value(), -50);
    QVERIFY(inkCount(rendered(&bar), Rate) > 1000);
}

void tst_KestStageProgressBar::paintEventFromOutsideDoesNoHarm()
{
    KestStageProgressBar widget;
    widget.resize(widget.sizeHint());
    const QImage before = rendered(&widget);
    // Nobody has prepared the widget for being painted.
    QPaintEvent event(widget.rect());
    QCoreApplication::sendEvent(&widget, &event);
    QCOMPARE(rendered(&widget), before);
}

void tst_KestStageProgressBar::oddRadiiDoNoHarm_data()
{
    QTest::addColumn<int>("radius");
    QTest::newRow("none") << 0;
    QTest::newRow("negative") << -5;
    QTest::newRow("huge") << 5000;
}

void tst_KestStageProgressBar::oddRadiiDoNoHarm()
{
    QFETCH(int, radius);
    for (const Qt::Orientation orientation : { Qt::Horizontal, Qt::Vertical }) {
        for (const bool captions : { false, true }) {
            KestStageProgressBar bar;
            bar.setStageCircleRadius(radius);
            bar.setOrientation(orientation);
            bar.setTextVisible(captions);
            bar.resize(100, 100);
            bar.setValue(50);
            QVERIFY(!rendered(&bar).isNull());
            QCOMPARE(bar.stageCircleRadius(), radius);
        }
    }
}

void tst_KestStageProgressBar::hugeRadiiAreCountedInFull()
{
    FramedStyle style;
    KestStageProgressBar bar;
    bar.setStyle(&style);
    bar.setStageCircleRadius(100000000);
    // (5 * 5 - 4) radii, and two; more than half of what an int holds
    QCOMPARE(bar.sizeHint(), QSize(2100000000 + 8, 200000000 + 6));
    bar.setOrientation(Qt::Vertical);
    // (4 * 5 - 3) radii
    QCOMPARE(bar.sizeHint(), QSize(200000000 + 8, 1700000000 + 6));
    bar.setStageCircleRadius(1000000);
    bar.setStageCount(100);
    QCOMPARE(bar.sizeHint(), QSize(2000000 + 8, 397000000 + 6));
}

void tst_KestStageProgressBar::extremeRadiiHaveHints_data()
{
    QTest::addColumn<int>("radius");
    QTest::addColumn<int>("count");
    for (const int count : { 2, 5, 70000 }) {
        QTest::addRow("largest, %d steps", count) << std::numeric_limits<int>::max() << count;
        QTest::addRow("smallest, %d steps", count) << std::numeric_limits<int>::min() << count;
        QTest::addRow("large, %d steps", count) << 100000000 << count;
    }
}

void tst_KestStageProgressBar::extremeRadiiHaveHints()
{
    QFETCH(int, radius);
    QFETCH(int, count);
    FramedStyle style;
    for (const Qt::Orientation orientation : { Qt::Horizontal, Qt::Vertical }) {
        for (const bool captions : { false, true }) {
            KestStageProgressBar bar;
            bar.setStyle(&style);
            bar.setStageCount(count);
            bar.setText(0, QStringLiteral("A caption"));
            bar.setStageCircleRadius(radius);
            bar.setOrientation(orientation);
            bar.setTextVisible(captions);
            if (radius == std::numeric_limits<int>::max() && !captions) {
                // What a style adds to the longest side still is a number.
                const int longest = radius - (1 << 20);
                QCOMPARE(bar.sizeHint(), QSize(longest + 8, longest + 6));
                if (orientation == Qt::Horizontal) {
                    bar.setStageCircleRadius(-radius);
                    QCOMPARE(bar.sizeHint(), QSize(8 - longest, 6 - longest));
                    bar.setStageCircleRadius(radius);
                }
            }
            if (radius > 0) {
                // Of a row with captions the first and the last step count by their captions only.
                const bool endsOnly = captions && count == 2 && orientation == Qt::Horizontal;
                QCOMPARE(bar.sizeHint().width() > 100000000, !endsOnly);
                QVERIFY(bar.sizeHint().height() > 100000000);
            }
            if (count > 5)
                continue; // so many circles take their time
            bar.resize(300, 100);
            bar.setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
            bar.setValue(std::numeric_limits<int>::max());
            QVERIFY(!rendered(&bar).isNull());
            bar.setValue(std::numeric_limits<int>::min());
            QVERIFY(!rendered(&bar).isNull());
        }
    }
}

void tst_KestStageProgressBar::penAndBrushArePainted()
{
    KestStageProgressBar bar;
    bar.resize(300, 40);
    bar.setValue(99);
    QVERIFY(inkCount(rendered(&bar), Qt::white) > 0);
    QCOMPARE(inkCount(rendered(&bar), Qt::red), 0);
    bar.setRateBackground(QColor(Qt::red));
    QVERIFY(inkCount(rendered(&bar), Qt::red) > 1000);
    QCOMPARE(inkCount(rendered(&bar), Rate), 0);
    bar.setRateBackground(QColor(Qt::white));
    bar.setStageIndexTextPen(QColor(Qt::blue));
    const QImage image = rendered(&bar, 3.0);
    QVERIFY(inkCount(image, Qt::blue) > 0);
}

void tst_KestStageProgressBar::disabledBarTakesTheDisabledPalette()
{
    KestStageProgressBar bar;
    QPalette palette = bar.palette();
    palette.setColor(QPalette::Active, QPalette::Window, Qt::green);
    palette.setColor(QPalette::Inactive, QPalette::Window, Qt::green);
    palette.setColor(QPalette::Disabled, QPalette::Window, Qt::yellow);
    bar.setPalette(palette);
    bar.resize(300, 40);
    bar.setEnabled(false);
    const QImage image = rendered(&bar);
    QCOMPARE(inkCount(image, Qt::green), 0);
    QVERIFY(inkCount(image, Qt::yellow) > 1000);
}

void tst_KestStageProgressBar::rightToLeftKeepsTheOrder()
{
    for (const Qt::Orientation orientation : { Qt::Horizontal, Qt::Vertical }) {
        Probe bar;
        bar.setOrientation(orientation);
        setCaptions(&bar, captionsOf(5));
        bar.setValue(40);
        bar.resize(500, 300);
        const QImage leftToRight = rendered(&bar);
        bar.setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(rendered(&bar), leftToRight);
    }
}

void tst_KestStageProgressBar::accessibilityReadsValueAndRange()
{
    Probe bar;
    bar.setAccessibleName(QStringLiteral("Order"));
    bar.setRange(1, 7);
    bar.setValue(4);
    QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&bar);
    QVERIFY(face);
    QCOMPARE(face->role(), QAccessible::ProgressBar);
    QCOMPARE(face->text(QAccessible::Name), QStringLiteral("Order"));
    QCOMPARE(face->text(QAccessible::Value), QStringLiteral("4"));
    QVERIFY(face->state().readOnly);
    QAccessibleValueInterface *value = face->valueInterface();
    QVERIFY(value);
    QCOMPARE(value->currentValue().toInt(), 4);
    QCOMPARE(value->minimumValue().toInt(), 1);
    QCOMPARE(value->maximumValue().toInt(), 7);
    value->setCurrentValue(6);
    QCOMPARE(bar.value(), 4);
}

void tst_KestStageProgressBar::onlyTrueValuesAreAnnounced()
{
    KestStageProgressBar bar;
    QVector<int> values;
    connect(&bar, &KestStageProgressBar::valueChanged, &bar, [&](int value) {
        values.append(value);
        if (value == 30)
            bar.setValue(60);
    });
    Announcements reader;
    bar.setValue(30);
    QCOMPARE(bar.value(), 60);
    QCOMPARE(values, QVector<int>({ 30, 60 }));
    QCOMPARE(reader.take(), QStringList({ QStringLiteral("value 60") }));
    bar.setRange(0, 40);
    QCOMPARE(reader.take(), QStringList({ QStringLiteral("value 40") }));
    bar.setRange(0, 30); // which the slot finds too low to go to 60
    QCOMPARE(reader.take(), QStringList({ QStringLiteral("value 30") }));
}

void tst_KestStageProgressBar::slotMayDeleteTheBar_data()
{
    QTest::addColumn<bool>("announced");
    QTest::addColumn<bool>("range");
    QTest::newRow("value, in the signal") << false << false;
    QTest::newRow("range, in the signal") << false << true;
    QTest::newRow("value, in the announcement") << true << false;
    QTest::newRow("range, in the announcement") << true << true;
}

void tst_KestStageProgressBar::slotMayDeleteTheBar()
{
    QFETCH(bool, announced);
    QFETCH(bool, range);
    QWidget window;
    const QPointer<KestStageProgressBar> bar(new KestStageProgressBar(&window));
    window.show();
    Announcements reader;
    if (announced)
        reader.onEach([bar] { delete bar; });
    else
        connect(bar, &KestStageProgressBar::valueChanged, qApp, [bar] { delete bar; });
    if (range)
        bar->setRange(10, 20);
    else
        bar->setValue(10);
    QVERIFY(bar.isNull());
    QCOMPARE(reader.take().size(), announced ? 1 : 0);
}

void tst_KestStageProgressBar::layoutMayDeleteTheBar_data()
{
    // Not the orientation: QWidget::setSizePolicy() can not bear it.
    QTest::addColumn<int>("what");
    QTest::newRow("count") << 0;
    QTest::newRow("radius") << 1;
    QTest::newRow("caption") << 2;
    QTest::newRow("caption visibility") << 3;
}

void tst_KestStageProgressBar::layoutMayDeleteTheBar()
{
    class Layout : public QVBoxLayout
    {
    public:
        using QVBoxLayout::QVBoxLayout;
        std::function<void()> onInvalidate;
        void invalidate() override
        {
            QVBoxLayout::invalidate();
            if (onInvalidate)
                std::exchange(onInvalidate, nullptr)();
        }
    };
    QFETCH(int, what);
    QWidget window;
    auto *layout = new Layout(&window);
    const QPointer<KestStageProgressBar> bar(new KestStageProgressBar);
    layout->addWidget(bar);
    window.show();
    layout->onInvalidate = [bar] { delete bar; };
    if (what == 0)
        bar->setStageCount(6);
    else if (what == 1)
        bar->setStageCircleRadius(11);
    else if (what == 2)
        bar->setText(1, QStringLiteral("x"));
    else
        bar->setTextVisible(true);
    QVERIFY(bar.isNull());
}

namespace {

// Has a class of its own, so that it is polished again after its base class was constructed.
class Fragile : public KestStageProgressBar
{
    Q_OBJECT

public:
    using KestStageProgressBar::KestStageProgressBar;

    std::function<void()> onOption;

protected:
    void initStyleOption(QStyleOptionProgressBar *option) const override
    {
        KestStageProgressBar::initStyleOption(option);
        if (const auto action = onOption)
            action();
    }
};

class ChildPolishedFilter : public QObject
{
public:
    std::function<void()> action;
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::ChildPolished)
            action();
        return false;
    }
};

} // namespace

void tst_KestStageProgressBar::barMayDieWhileItIsMeasured_data()
{
    QTest::addColumn<bool>("polished");
    QTest::newRow("polished") << true;
    QTest::newRow("option") << false;
}

void tst_KestStageProgressBar::barMayDieWhileItIsMeasured()
{
    QFETCH(bool, polished);
    QWidget window;
    const QPointer<Fragile> bar(new Fragile(&window));
    ChildPolishedFilter filter;
    if (polished) {
        filter.action = [bar] { delete bar; };
        window.installEventFilter(&filter);
    } else {
        bar->onOption = [bar] { delete bar; };
    }
    QCOMPARE(bar->minimumSizeHint(), QSize());
    QVERIFY(bar.isNull());
}

void tst_KestStageProgressBar::barMayDieBeforeItIsPainted_data()
{
    QTest::addColumn<QString>("where");
    for (const char *where : { "option", "contents", "hint" })
        QTest::newRow(where) << QString::fromLatin1(where);
}

void tst_KestStageProgressBar::barMayDieBeforeItIsPainted()
{
    QFETCH(QString, where);
    class Style : public QProxyStyle
    {
    public:
        QPointer<QWidget> inContents;
        QPointer<QWidget> inHint;
        mutable int asked = 0; // for the contents
        QRect subElementRect(SubElement, const QStyleOption *option, const QWidget *) const override
        {
            ++asked;
            delete inContents;
            return option->rect;
        }
        QSize sizeFromContents(ContentsType, const QStyleOption *, const QSize &size,
                               const QWidget *) const override
        {
            delete inHint;
            return size;
        }
    } style;
    const QPointer<Fragile> bar(new Fragile);
    bar->setStyle(&style);
    bar->setTextVisible(true);
    bar->ensurePolished();
    if (where == QLatin1String("option"))
        bar->onOption = [bar] { delete bar; };
    else if (where == QLatin1String("contents"))
        style.inContents = bar;
    else
        style.inHint = bar;
    QPaintEvent event(QRect(0, 0, 100, 100));
    static_cast<QObject *>(bar)->event(&event);
    QVERIFY(bar.isNull());
    QCOMPARE(style.asked, where == QLatin1String("option") ? 0 : 1);
}

void tst_KestStageProgressBar::overridesMayChangeTheBarWhileItIsPainted()
{
    class Changing : public KestStageProgressBar
    {
    public:
        mutable QStringList drawnTexts;
        mutable QVector<int> values;

    protected:
        void drawStage(QPainter *, int index, const QRectF &, int value) const override
        {
            values.append(value);
            auto *bar = const_cast<Changing *>(this);
            if (index == 1)
                bar->setStageCount(2);
            if (index == 2)
                bar->setTextVisible(false);
            if (index == 3)
                bar->setValue(50);
        }
        void drawText(QPainter *, int index, const QRectF &, const QString &text) const override
        {
            if (index < stageCount())
                const_cast<Changing *>(this)->setText(index, QStringLiteral("changed"));
            drawnTexts.append(text);
        }
    };
    Changing bar;
    setCaptions(&bar, captionsOf(5));
    rendered(&bar);
    // The picture is of the bar that it was begun for.
    QCOMPARE(bar.drawnTexts, captionsOf(5));
    QCOMPARE(bar.values, QVector<int>(5, 0));
    QCOMPARE(bar.stageCount(), 2);
    bar.drawnTexts.clear();
    bar.values.clear();
    bar.setTextVisible(true);
    rendered(&bar);
    QCOMPARE(bar.values, QVector<int>(2, 50));
    QCOMPARE(bar.drawnTexts, QStringList({ QStringLiteral("changed"), QStringLiteral("changed") }));
}

QTEST_MAIN(tst_KestStageProgressBar)

#include "tst_keststageprogressbar.moc"
