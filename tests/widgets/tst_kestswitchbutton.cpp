// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestSwitchButton.h"

#include "Rendering.h"

#include <QtCore/QMetaProperty>
#include <QtCore/QPointer>
#include <QtCore/QVariantAnimation>
#include <QtGui/QLinearGradient>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QVBoxLayout>

#include <limits>

namespace {

const QSize Size(40, 20);
const QRect OffHandle(1, 1, 18, 18);
const QRect OnHandle(21, 1, 18, 18);

struct Look
{
    QBrush track;
    QColor trackBorder;
    QBrush handle;
    QColor handleBorder;
};

Look offLook()
{
    return { QColor(238, 238, 238), QColor(227, 227, 227), QColor(255, 255, 255),
             QColor(222, 222, 222) };
}

Look onLook()
{
    return { QColor(50, 108, 243), QColor(0, 0, 0, 0), QColor(255, 255, 255), QColor(0, 0, 0, 0) };
}

// The switch, drawn by the test itself.
QPixmap drawnSwitch(const QSize &size, qreal ratio, const Look &look, const QRect &handle)
{
    QPixmap pixmap(qCeil(size.width() * ratio), qCeil(size.height() * ratio));
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(look.trackBorder);
    painter.setBrush(look.track);
    painter.drawRoundedRect(QRect(0, 0, size.width(), size.height()), size.height() / 2,
                            size.height() / 2, Qt::AbsoluteSize);
    painter.setPen(look.handleBorder);
    painter.setBrush(look.handle);
    painter.drawEllipse(handle);
    return pixmap;
}

// A pixmap of an image's own resolution, one pixel to one pixel.
QImage placed(const QPixmap &pixmap, const QSize &size, qreal ratio)
{
    QImage image = canvas(size, ratio);
    QPixmap exact = pixmap;
    exact.setDevicePixelRatio(ratio);
    QPainter painter(&image);
    painter.drawPixmap(0, 0, exact);
    return image;
}

QImage expectedImage(const Look &look, const QRect &handle, qreal ratio = 1.0,
                     const QSize &size = Size)
{
    return placed(drawnSwitch(size, ratio, look, handle), size, ratio);
}

// Turns every icon into a red field and notes what it was asked for.
class RedIconStyle : public QProxyStyle
{
public:
    QPixmap generatedIconPixmap(QIcon::Mode mode, const QPixmap &pixmap,
                                const QStyleOption *option) const override
    {
        modes.append(mode);
        enabled = option->state.testFlag(QStyle::State_Enabled);
        QPixmap red(pixmap.size());
        red.setDevicePixelRatio(pixmap.devicePixelRatio());
        red.fill(Qt::red);
        return red;
    }

    mutable QVector<QIcon::Mode> modes;
    mutable bool enabled = true;
};

} // namespace

class tst_KestSwitchButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newSwitchIsCheckableAndOff();
    void declaresEightPropertiesAndNothingElse();
    void propertiesHaveTheirDefaults_data();
    void propertiesHaveTheirDefaults();
    void brushesAndColorsAreSetThroughTheMetaObject_data();
    void brushesAndColorsAreSetThroughTheMetaObject();
    void everySetterRepaintsOnceEvenUnchanged_data();
    void everySetterRepaintsOnceEvenUnchanged();
    void looksLikeItsDrawing_data();
    void looksLikeItsDrawing();
    void customColorsArePainted();
    void eachChangeIsDrawnAnew_data();
    void eachChangeIsDrawnAnew();
    void unchangedSwitchIsDrawnOnce();
    void fitsAnySize_data();
    void fitsAnySize();
    void emptySwitchPaintsNothing();
    void paintEventFromOutsideDoesNoHarm();
    void oddRatiosDoNoHarm_data();
    void oddRatiosDoNoHarm();
    void ratiosAreKeptWithinReason_data();
    void ratiosAreKeptWithinReason();
    void handleTakesTenthOfASecond();
    void handleGoesBackInTheSameTime();
    void togglingOnTheWayTurnsTheHandleRound();
    void movingHandleAsksForNoRepaint();
    void colorsChangeAtOnce();
    void resizeMovesTheHandleToItsNewEnd();
    void hintIsThatOfAPushButton_data();
    void hintIsThatOfAPushButton();
    void hintStaysAfterAFontChange();
    void hintWithoutExtentIsAskedForAgain_data();
    void hintWithoutExtentIsAskedForAgain();
    void disabledLookIsTheStylesIcon();
    void enabledLookGoesThroughTheStyleToo();
    void disabledSwitchLooksLikeTheStylesDisabledIcon_data();
    void disabledSwitchLooksLikeTheStylesDisabledIcon();
    void disabledSwitchIgnoresClicksAndKeys();
    void clickToggles();
    void spaceToggles();
    void tabReachesIt();
    void focusOfTheKeyboardShowsAsARing();
    void groupsAreExclusive();
    void rightToLeftKeepsOnAtTheRight();
    void accessibilitySeesACheckBox();
    void accessibilityToggles();
    void deletedOnTheWayLeavesNothing();
    void switchMayDieWhileItIsMeasured();
    void motionOfTheHostShowsTheHandleMove();
    void switchSetBeforeItIsShownArrives();
};

void tst_KestSwitchButton::newSwitchIsCheckableAndOff()
{
    KestSwitchButton button;
    QVERIFY(button.isCheckable());
    QVERIFY(!button.isChecked());
    QVERIFY(!button.parent());
    button.resize(Size);
    QCOMPARE(rendered(&button), expectedImage(offLook(), OffHandle));

    QWidget parent;
    QCOMPARE(KestSwitchButton(&parent).parentWidget(), &parent);
}

void tst_KestSwitchButton::declaresEightPropertiesAndNothingElse()
{
    const QMetaObject &meta = KestSwitchButton::staticMetaObject;
    QCOMPARE(QByteArray(meta.superClass()->className()), QByteArray("QAbstractButton"));
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 8);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 0);
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        QVERIFY(meta.property(i).isReadable());
        QVERIFY(meta.property(i).isWritable());
        QVERIFY(!meta.property(i).hasNotifySignal());
    }
}

void tst_KestSwitchButton::propertiesHaveTheirDefaults_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("isBrush");
    QTest::addColumn<QColor>("color");
    const auto row = [](const char *name, bool isBrush, const QColor &color) {
        QTest::newRow(name) << QByteArray(name) << isBrush << color;
    };
    row("uncheckedBackground", true, QColor(238, 238, 238));
    row("uncheckedBackgroundBorderColor", false, QColor(227, 227, 227));
    row("uncheckedHandleBrush", true, QColor(255, 255, 255));
    row("uncheckedHandleBorderColor", false, QColor(222, 222, 222));
    row("checkedBackground", true, QColor(50, 108, 243));
    row("checkedBackgroundBorderColor", false, QColor(Qt::transparent));
    row("checkedHandleBrush", true, QColor(255, 255, 255));
    row("checkedHandleBorderColor", false, QColor(Qt::transparent));
}

void tst_KestSwitchButton::propertiesHaveTheirDefaults()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, isBrush);
    QFETCH(QColor, color);
    const KestSwitchButton button;
    const QVariant value = button.property(name.constData());
    if (isBrush)
        QCOMPARE(value.value<QBrush>(), QBrush(color));
    else
        QCOMPARE(value.value<QColor>(), color);
}

void tst_KestSwitchButton::brushesAndColorsAreSetThroughTheMetaObject_data()
{
    propertiesHaveTheirDefaults_data();
}

void tst_KestSwitchButton::brushesAndColorsAreSetThroughTheMetaObject()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, isBrush);
    KestSwitchButton button;
    const KestSwitchButton untouched;
    const QVariant value =
        isBrush ? QVariant(QBrush(Qt::green, Qt::Dense4Pattern)) : QVariant(QColor(1, 2, 3, 4));
    QVERIFY(button.setProperty(name.constData(), value));
    const QMetaObject *meta = button.metaObject();
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        const QVariant expected = name == property.name() ? value : property.read(&untouched);
        QCOMPARE(property.read(&button), expected);
    }
}

void tst_KestSwitchButton::everySetterRepaintsOnceEvenUnchanged_data()
{
    propertiesHaveTheirDefaults_data();
}

void tst_KestSwitchButton::everySetterRepaintsOnceEvenUnchanged()
{
    QFETCH(QByteArray, name);
    KestSwitchButton button;
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    QCoreApplication::processEvents();
    PaintCounter paints(&button);
    button.setProperty(name.constData(), button.property(name.constData()));
    QTRY_COMPARE(paints.count, 1);
}

void tst_KestSwitchButton::looksLikeItsDrawing_data()
{
    addRenderingRows();
}

void tst_KestSwitchButton::looksLikeItsDrawing()
{
    QFETCH(QString, style);
    QFETCH(bool, sheet);
    QFETCH(qreal, ratio);
    AnimationClock clock;
    KestSwitchButton button;
    const Dress dress(&button, style, sheet);
    button.resize(Size);
    QCOMPARE(rendered(&button, ratio), expectedImage(offLook(), OffHandle, ratio));
    button.setChecked(true);
    clock.advanceBy(100);
    QCOMPARE(rendered(&button, ratio), expectedImage(onLook(), OnHandle, ratio));

    // Drawn without a pixmap in between it is the same but for rounding: every device pixel of it
    // is its own.
    QImage direct = canvas(Size, ratio);
    QPainter painter(&direct);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::transparent);
    painter.setBrush(QColor(50, 108, 243));
    painter.drawRoundedRect(QRect(QPoint(), Size), 10, 10);
    painter.setBrush(Qt::white);
    painter.drawEllipse(OnHandle);
    painter.end();
    QVERIFY(largestDifference(rendered(&button, ratio), direct) <= 2);
}

void tst_KestSwitchButton::customColorsArePainted()
{
    AnimationClock clock;
    QLinearGradient gradient(0, 0, 40, 0);
    gradient.setColorAt(0, Qt::yellow);
    gradient.setColorAt(1, Qt::magenta);
    const Look off { gradient, QColor(10, 20, 30), QColor(40, 50, 60), QColor(70, 80, 90) };
    const Look on { QColor(1, 120, 1), QColor(2, 2, 120), gradient, QColor(120, 3, 3) };
    KestSwitchButton button;
    button.resize(Size);
    button.setUncheckedBackground(off.track);
    button.setUncheckedBackgroundBorderColor(off.trackBorder);
    button.setUncheckedHandleBrush(off.handle);
    button.setUncheckedHandleBorderColor(off.handleBorder);
    button.setCheckedBackground(on.track);
    button.setCheckedBackgroundBorderColor(on.trackBorder);
    button.setCheckedHandleBrush(on.handle);
    button.setCheckedHandleBorderColor(on.handleBorder);
    QCOMPARE(rendered(&button), expectedImage(off, OffHandle));
    button.setChecked(true);
    clock.advanceBy(100);
    QCOMPARE(rendered(&button), expectedImage(on, OnHandle));
}

void tst_KestSwitchButton::eachChangeIsDrawnAnew_data()
{
    QTest::addColumn<QByteArray>("property");
    for (const char *property :
         { "uncheckedBackground", "uncheckedBackgroundBorderColor", "uncheckedHandleBrush",
           "uncheckedHandleBorderColor", "checkedBackground", "checkedBackgroundBorderColor",
           "checkedHandleBrush", "checkedHandleBorderColor", "checked" })
        QTest::newRow(property) << QByteArray(property);
}

void tst_KestSwitchButton::eachChangeIsDrawnAnew()
{
    QFETCH(QByteArray, property);
    AnimationClock clock;
    const bool checked = property.startsWith("checked");
    KestSwitchButton button;
    button.resize(Size);
    if (property != "checked") {
        button.setChecked(checked);
        clock.advanceBy(100);
    }
    const auto change = [&property](KestSwitchButton *changed) {
        const QVariant value = changed->property(property);
        if (value.userType() == QMetaType::QBrush)
            changed->setProperty(property, QBrush(QColor(9, 87, 65)));
        else if (value.userType() == QMetaType::QColor)
            changed->setProperty(property, QColor(9, 87, 65));
        else
            changed->setChecked(true);
    };
    const QImage before = rendered(&button);
    change(&button);
    const QImage after = rendered(&button);
    QVERIFY(after != before);

    KestSwitchButton fresh;
    fresh.resize(Size);
    if (property != "checked") {
        fresh.setChecked(checked);
        clock.advanceBy(100);
    }
    change(&fresh);
    QCOMPARE(after, rendered(&fresh));
    // The way of the handle, another fineness, and back again.
    clock.advanceBy(100);
    const QImage arrived = rendered(&button);
    QCOMPARE(arrived, rendered(&fresh));
    QVERIFY(rendered(&button, 2.0) != arrived);
    QCOMPARE(rendered(&button), arrived);
    // A switch that is off keeps its handle where it is when it gets wider.
    KestSwitchButton wide;
    wide.resize(Size);
    rendered(&wide);
    wide.resize(Size.width() + 20, Size.height());
    QCOMPARE(rendered(&wide), expectedImage(offLook(), OffHandle, 1.0, Size + QSize(20, 0)));
}

void tst_KestSwitchButton::unchangedSwitchIsDrawnOnce()
{
    // The style is handed each picture: the same one has the same key.
    class KeyStyle : public QProxyStyle
    {
    public:
        QPixmap generatedIconPixmap(QIcon::Mode mode, const QPixmap &pixmap,
                                    const QStyleOption *option) const override
        {
            keys.append(pixmap.cacheKey());
            return QProxyStyle::generatedIconPixmap(mode, pixmap, option);
        }

        mutable QVector<qint64> keys;
    };
    AnimationClock clock;
    KeyStyle style;
    KestSwitchButton button;
    button.setStyle(&style);
    button.resize(Size);
    for (int i = 0; i < 4; ++i) {
        rendered(&button);
        button.toggle();
        clock.advanceBy(100);
    }
    QCOMPARE(style.keys.size(), 4);
    QVERIFY(style.keys.at(1) != style.keys.at(0));
    QCOMPARE(style.keys.at(2), style.keys.at(0));
    QCOMPARE(style.keys.at(3), style.keys.at(1));
}

void tst_KestSwitchButton::fitsAnySize_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("off");
    QTest::addColumn<QRect>("on");
    QTest::newRow("wide") << QSize(100, 30) << QRect(1, 1, 28, 28) << QRect(71, 1, 28, 28);
    QTest::newRow("odd") << QSize(53, 27) << QRect(1, 1, 25, 25) << QRect(27, 1, 25, 25);
    QTest::newRow("square") << QSize(24, 24) << QRect(1, 1, 22, 22) << QRect(1, 1, 22, 22);
    QTest::newRow("upright") << QSize(20, 40) << QRect(1, 1, 38, 38) << QRect(-19, 1, 38, 38);
}

void tst_KestSwitchButton::fitsAnySize()
{
    QFETCH(QSize, size);
    QFETCH(QRect, off);
    QFETCH(QRect, on);
    AnimationClock clock;
    KestSwitchButton button;
    button.resize(size);
    for (const qreal ratio : { 1.0, 1.5 }) {
        QCOMPARE(rendered(&button, ratio), expectedImage(offLook(), off, ratio, size));
    }
    button.setChecked(true);
    clock.advanceBy(100);
    for (const qreal ratio : { 1.0, 1.5 }) {
        QCOMPARE(rendered(&button, ratio), expectedImage(onLook(), on, ratio, size));
    }
}

void tst_KestSwitchButton::emptySwitchPaintsNothing()
{
    KestSwitchButton button;
    button.resize(0, 0);
    QVERIFY(button.grab().isNull());
    button.resize(3, 0);
    QVERIFY(button.grab().isNull());
}

void tst_KestSwitchButton::paintEventFromOutsideDoesNoHarm()
{
    KestSwitchButton widget;
    widget.resize(widget.sizeHint());
    const QImage before = rendered(&widget);
    // Nobody has prepared the widget for being painted.
    QPaintEvent event(widget.rect());
    QCoreApplication::sendEvent(&widget, &event);
    QCOMPARE(rendered(&widget), before);
}

void tst_KestSwitchButton::oddRatiosDoNoHarm_data()
{
    QTest::addColumn<qreal>("ratio");
    QTest::newRow("none") << 0.0;
    QTest::newRow("negative") << -2.0;
    QTest::newRow("tiny") << 1e-9;
    QTest::newRow("huge") << 1e9;
    QTest::newRow("infinite") << std::numeric_limits<qreal>::infinity();
    QTest::newRow("not a number") << std::numeric_limits<qreal>::quiet_NaN();
}

void tst_KestSwitchButton::oddRatiosDoNoHarm()
{
    QFETCH(qreal, ratio);
    KestSwitchButton button;
    button.resize(Size);
    const QImage before = rendered(&button);
    QImage image(Size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    image.setDevicePixelRatio(ratio);
    button.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    QCOMPARE(rendered(&button), before);
}

void tst_KestSwitchButton::ratiosAreKeptWithinReason_data()
{
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("picture");
    QTest::newRow("coarse") << 1.0 / 8 << QSize(1600, 800) << QSize(200, 100);
    QTest::newRow("coarsest") << 1.0 / 16 << QSize(1600, 800) << QSize(100, 50);
    QTest::newRow("too coarse") << 1.0 / 32 << QSize(1600, 800) << QSize(100, 50);
    QTest::newRow("fine") << 15.5 << QSize(160, 80) << QSize(2480, 1240);
    QTest::newRow("too fine") << 17.0 << QSize(160, 80) << QSize(2560, 1280);
}

void tst_KestSwitchButton::ratiosAreKeptWithinReason()
{
    QFETCH(qreal, ratio);
    QFETCH(QSize, size);
    QFETCH(QSize, picture);
    class SizeStyle : public QProxyStyle
    {
    public:
        QPixmap generatedIconPixmap(QIcon::Mode, const QPixmap &pixmap,
                                    const QStyleOption *) const override
        {
            size = pixmap.size();
            return QPixmap(1, 1);
        }

        mutable QSize size;
    } style;
    KestSwitchButton button;
    button.setStyle(&style);
    button.resize(size);
    QImage image(QSize(10, 10), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    button.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    QCOMPARE(style.size, picture);
}

void tst_KestSwitchButton::handleTakesTenthOfASecond()
{
    AnimationClock clock;
    KestSwitchButton button;
    button.resize(Size);
    rendered(&button); // the size reaches it
    button.setChecked(true);
    QCOMPARE(rendered(&button), expectedImage(onLook(), OffHandle));
    clock.advanceBy(50);
    QCOMPARE(rendered(&button), expectedImage(onLook(), QRect(11, 1, 18, 18)));
    clock.advanceBy(45);
    QCOMPARE(rendered(&button), expectedImage(onLook(), QRect(20, 1, 18, 18)));
    clock.advanceBy(5);
    QCOMPARE(rendered(&button), expectedImage(onLook(), OnHandle));
    clock.advanceBy(1000);
    QCOMPARE(rendered(&button), expectedImage(onLook(), OnHandle));
}

void tst_KestSwitchButton::handleGoesBackInTheSameTime()
{
    AnimationClock clock;
    KestSwitchButton button;
    button.resize(Size);
    button.setChecked(true);
    rendered(&button);
    clock.advanceBy(100);
    button.setChecked(false);
    QCOMPARE(rendered(&button), expectedImage(offLook(), OnHandle));
    clock.advanceBy(25);
    QCOMPARE(rendered(&button), expectedImage(offLook(), QRect(16, 1, 18, 18)));
    clock.advanceBy(75);
    QCOMPARE(rendered(&button), expectedImage(offLook(), OffHandle));
}

void tst_KestSwitchButton::togglingOnTheWayTurnsTheHandleRound()
{
    AnimationClock clock;
    KestSwitchButton button;
    button.resize(Size);
    rendered(&button);
    button.setChecked(true);
    clock.advanceBy(75);
    QCOMPARE(rendered(&button), expectedImage(onLook(), QRect(16, 1, 18, 18)));
    button.setChecked(false);
    QCOMPARE(rendered(&button), expectedImage(offLook(), QRect(16, 1, 18, 18)));
    clock.advanceBy(25);
    QCOMPARE(rendered(&button), expectedImage(offLook(), QRect(11, 1, 18, 18)));
    button.setChecked(true);
    clock.advanceBy(50);
    QCOMPARE(rendered(&button), expectedImage(onLook(), OnHandle));
}

void tst_KestSwitchButton::movingHandleAsksForNoRepaint()
{
    AnimationClock clock;
    KestSwitchButton button;
    button.resize(Size);
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    QCoreApplication::processEvents();
    PaintCounter paints(&button);
    button.setChecked(true);
    QTRY_COMPARE(paints.count, 1); // of the change of state
    for (int i = 0; i < 10; ++i) {
        clock.advanceBy(12);
        QCoreApplication::processEvents();
    }
    QCOMPARE(paints.count, 1);
    button.update();
    QTRY_COMPARE(paints.count, 2);
}

void tst_KestSwitchButton::colorsChangeAtOnce()
{
    AnimationClock clock;
    KestSwitchButton button;
    button.resize(Size);
    rendered(&button);
    button.setChecked(true);
    QCOMPARE(rendered(&button).pixelColor(30, 10), QColor(50, 108, 243));
    clock.advanceBy(100);
    button.setChecked(false);
    QCOMPARE(rendered(&button).pixelColor(10, 10), QColor(238, 238, 238));
}

void tst_KestSwitchButton::resizeMovesTheHandleToItsNewEnd()
{
    AnimationClock clock;
    KestSwitchButton button;
    button.resize(Size);
    rendered(&button);
    button.setChecked(true);
    clock.advanceBy(100);
    button.resize(60, 24);
    QCOMPARE(rendered(&button), expectedImage(onLook(), QRect(37, 1, 22, 22), 1.0, QSize(60, 24)));
    button.setChecked(false);
    clock.advanceBy(50);
    button.resize(100, 20); // on the way: half of it is (41, 1)
    QCOMPARE(rendered(&button),
             expectedImage(offLook(), QRect(41, 1, 18, 18), 1.0, QSize(100, 20)));
}

void tst_KestSwitchButton::hintIsThatOfAPushButton_data()
{
    QTest::addColumn<QString>("style");
    QTest::newRow("Fusion") << QStringLiteral("Fusion");
    QTest::newRow("Windows") << QStringLiteral("Windows");
}

void tst_KestSwitchButton::hintIsThatOfAPushButton()
{
    QFETCH(QString, style);
    KestSwitchButton button;
    const Dress dress(&button, style, false);
    QFont font = button.font();
    font.setPixelSize(23);
    button.setFont(font);

    const QSize text = QFontMetrics(font).size(Qt::TextShowMnemonic, QStringLiteral("XXXX"));
    QStyleOptionButton option;
    option.initFrom(&button);
    option.rect.setSize(text);
    const QSize expected =
        button.style()->sizeFromContents(QStyle::CT_PushButton, &option, text, &button);
    QCOMPARE(button.minimumSizeHint(), expected);
    QCOMPARE(button.sizeHint(), expected);
    QVERIFY(expected.width() > text.width());
}

void tst_KestSwitchButton::hintStaysAfterAFontChange()
{
    KestSwitchButton button;
    const QSize hint = button.sizeHint();
    QFont font = button.font();
    font.setPixelSize(60);
    button.setFont(font);
    QCOMPARE(button.sizeHint(), hint);
    QCOMPARE(button.minimumSizeHint(), hint);
    button.setStyleSheet(QStringLiteral("* { font-size: 70px; padding: 20px }"));
    QCOMPARE(button.sizeHint(), hint);

    KestSwitchButton late;
    late.setFont(font);
    QVERIFY(late.sizeHint().height() > hint.height());
}

void tst_KestSwitchButton::hintWithoutExtentIsAskedForAgain_data()
{
    QTest::addColumn<QSize>("hint");
    QTest::addColumn<bool>("kept");
    QTest::newRow("no width") << QSize(0, 9) << false;
    QTest::newRow("no height") << QSize(9, 0) << false;
    QTest::newRow("negative width") << QSize(-3, 9) << false;
    QTest::newRow("negative height") << QSize(9, -3) << false;
    QTest::newRow("a pixel wide") << QSize(1, 9) << true;
    QTest::newRow("a pixel high") << QSize(9, 1) << true;
}

void tst_KestSwitchButton::hintWithoutExtentIsAskedForAgain()
{
    QFETCH(QSize, hint);
    QFETCH(bool, kept);
    class HintStyle : public QProxyStyle
    {
    public:
        QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                               const QWidget *) const override
        {
            if (type == CT_PushButton) {
                ++asked;
                asker = option->styleObject;
                room = option->rect.size();
                contents = size;
            }
            return hint;
        }

        QSize hint;
        mutable int asked = 0;
        mutable QObject *asker = nullptr;
        mutable QSize room;
        mutable QSize contents;
    } style;
    style.hint = hint;
    KestSwitchButton button;
    button.setStyle(&style);
    for (int i = 1; i <= 3; ++i) {
        QCOMPARE(button.minimumSizeHint(), hint);
        QCOMPARE(style.asked, kept ? 1 : i);
    }
    QCOMPARE(style.asker, &button);
    QCOMPARE(style.room, style.contents);
    QVERIFY(!style.room.isEmpty());
}

void tst_KestSwitchButton::disabledLookIsTheStylesIcon()
{
    RedIconStyle style;
    KestSwitchButton button;
    button.setStyle(&style);
    button.resize(Size);
    button.setEnabled(false);
    QImage red = canvas(Size, 1.5);
    red.fill(Qt::red);
    QCOMPARE(rendered(&button, 1.5), red);
    QCOMPARE(style.modes, QVector<QIcon::Mode>({ QIcon::Disabled }));
    QVERIFY(!style.enabled);
}

void tst_KestSwitchButton::enabledLookGoesThroughTheStyleToo()
{
    RedIconStyle style;
    KestSwitchButton button;
    button.setStyle(&style);
    button.resize(Size);
    QImage red = canvas(Size, 1.0);
    red.fill(Qt::red);
    QCOMPARE(rendered(&button), red);
    QCOMPARE(style.modes, QVector<QIcon::Mode>({ QIcon::Normal }));
    QVERIFY(style.enabled);
}

void tst_KestSwitchButton::disabledSwitchLooksLikeTheStylesDisabledIcon_data()
{
    addRenderingRows();
}

void tst_KestSwitchButton::disabledSwitchLooksLikeTheStylesDisabledIcon()
{
    QFETCH(QString, style);
    QFETCH(bool, sheet);
    QFETCH(qreal, ratio);
    KestSwitchButton button;
    const Dress dress(&button, style, sheet);
    button.resize(Size);
    button.setEnabled(false);
    QStyleOption option;
    option.initFrom(&button);
    const QPixmap grey = button.style()->generatedIconPixmap(
        QIcon::Disabled, drawnSwitch(Size, ratio, offLook(), OffHandle), &option);
    QCOMPARE(rendered(&button, ratio), placed(grey, Size, ratio));
    QVERIFY(rendered(&button, ratio) != expectedImage(offLook(), OffHandle, ratio));
}

void tst_KestSwitchButton::disabledSwitchIgnoresClicksAndKeys()
{
    KestSwitchButton button;
    button.resize(Size);
    button.setEnabled(false);
    QSignalSpy toggled(&button, &QAbstractButton::toggled);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QCOMPARE(toggled.count(), 0);
    button.setChecked(true);
    QCOMPARE(toggled.count(), 1);
}

void tst_KestSwitchButton::clickToggles()
{
    KestSwitchButton button;
    button.resize(Size);
    QSignalSpy toggled(&button, &QAbstractButton::toggled);
    QSignalSpy clicked(&button, &QAbstractButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(0, 0));
    QVERIFY(button.isChecked());
    QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(39, 19));
    QVERIFY(!button.isChecked());
    QTest::mouseClick(&button, Qt::RightButton);
    QTest::mousePress(&button, Qt::LeftButton);
    QTest::mouseRelease(&button, Qt::LeftButton, Qt::NoModifier, QPoint(60, 10));
    QCOMPARE(toggled.count(), 2);
    QCOMPARE(clicked.count(), 2);
    QCOMPARE(toggled.at(0).at(0).toBool(), true);
    QCOMPARE(toggled.at(1).at(0).toBool(), false);
}

void tst_KestSwitchButton::spaceToggles()
{
    KestSwitchButton button;
    QTest::keyClick(&button, Qt::Key_Space);
    QVERIFY(button.isChecked());
    QTest::keyClick(&button, Qt::Key_Space);
    QVERIFY(!button.isChecked());
}

void tst_KestSwitchButton::tabReachesIt()
{
    QWidget window;
    KestSwitchButton first(&window);
    KestSwitchButton second(&window);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    first.setFocus();
    QTest::keyClick(&first, Qt::Key_Tab);
    QVERIFY(second.hasFocus());
}

void tst_KestSwitchButton::focusOfTheKeyboardShowsAsARing()
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *first = new KestSwitchButton;
    auto *second = new KestSwitchButton;
    layout->addWidget(first);
    layout->addWidget(second);
    QPalette palette;
    palette.setColor(QPalette::WindowText, Qt::darkGreen);
    second->setPalette(palette);
    second->setChecked(true);
    QTest::qWait(150);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    const QImage plain = second->grab().toImage();
    second->setFocus(Qt::MouseFocusReason);
    QVERIFY(second->hasFocus());
    QCOMPARE(second->grab().toImage(), plain);

    first->setFocus();
    QTest::keyClick(first, Qt::Key_Tab);
    QVERIFY(second->hasFocus());
    const QImage marked = second->grab().toImage();
    const int middle = marked.width() / 2;
    const int bottom = marked.height() - 1;
    for (int y : { 0, 1, bottom - 1, bottom })
        QCOMPARE(marked.pixelColor(middle, y), QColor(Qt::darkGreen));
    for (int y : { 2, bottom - 2 })
        QCOMPARE(marked.pixelColor(middle, y), plain.pixelColor(middle, y));
    // Round there, and blended at its edges: just as wide as the switch.
    QImage expected = plain;
    QPainter painter(&expected);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::darkGreen, 2));
    const qreal radius = (marked.height() - 2) / 2.0;
    painter.drawRoundedRect(QRectF(1, 1, marked.width() - 2, marked.height() - 2), radius, radius);
    painter.end();
    QCOMPARE(marked.convertToFormat(expected.format()), expected);

    QTest::keyClick(second, Qt::Key_Backtab);
    QCOMPARE(second->grab().toImage(), plain);
}

void tst_KestSwitchButton::groupsAreExclusive()
{
    AnimationClock clock;
    KestSwitchButton first;
    KestSwitchButton second;
    first.resize(Size);
    rendered(&first);
    QButtonGroup group;
    group.addButton(&first);
    group.addButton(&second);
    first.click();
    clock.advanceBy(100);
    second.click();
    QVERIFY(!first.isChecked());
    QVERIFY(second.isChecked());
    clock.advanceBy(100);
    QCOMPARE(rendered(&first), expectedImage(offLook(), OffHandle));
}

void tst_KestSwitchButton::rightToLeftKeepsOnAtTheRight()
{
    AnimationClock clock;
    KestSwitchButton button;
    button.setLayoutDirection(Qt::RightToLeft);
    button.resize(Size);
    QCOMPARE(rendered(&button), expectedImage(offLook(), OffHandle));
    button.setChecked(true);
    clock.advanceBy(100);
    QCOMPARE(rendered(&button), expectedImage(onLook(), OnHandle));
}

void tst_KestSwitchButton::accessibilitySeesACheckBox()
{
    KestSwitchButton button;
    button.setAccessibleName(QStringLiteral("Night mode"));
    QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&button);
    QVERIFY(face);
    QCOMPARE(face->role(), QAccessible::CheckBox);
    QCOMPARE(face->text(QAccessible::Name), QStringLiteral("Night mode"));
    QVERIFY(face->state().checkable);
    QVERIFY(!face->state().checked);
    button.setChecked(true);
    QVERIFY(face->state().checked);
    button.setEnabled(false);
    QVERIFY(face->state().disabled);
}

void tst_KestSwitchButton::accessibilityToggles()
{
    KestSwitchButton button;
    QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&button);
    QAccessibleActionInterface *actions = face->actionInterface();
    QVERIFY(actions);
    QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::toggleAction()));
    actions->doAction(QAccessibleActionInterface::toggleAction());
    QVERIFY(button.isChecked());
}

void tst_KestSwitchButton::deletedOnTheWayLeavesNothing()
{
    AnimationClock clock;
    auto *button = new KestSwitchButton;
    button->setChecked(true);
    clock.advanceBy(10);
    delete button;
    clock.advanceBy(10);
}

void tst_KestSwitchButton::switchMayDieWhileItIsMeasured()
{
    class Style : public QProxyStyle
    {
    public:
        QPointer<QWidget> victim;
        QSize sizeFromContents(ContentsType, const QStyleOption *, const QSize &size,
                               const QWidget *) const override
        {
            delete victim;
            return size;
        }
    } style;
    auto *button = new KestSwitchButton;
    button->setStyle(&style);
    style.victim = button;
    QCOMPARE(button->minimumSizeHint(), QSize());
    QVERIFY(style.victim.isNull());
}

// What the class's documentation tells hosts to do.
static void paintMotion(KestSwitchButton *button)
{
    auto *motion = new QVariantAnimation(button);
    motion->setDuration(100);
    motion->setStartValue(0.0);
    motion->setEndValue(1.0);
    QObject::connect(motion, &QVariantAnimation::valueChanged, button,
                     qOverload<>(&QWidget::update));
    QObject::connect(button, &KestSwitchButton::toggled, motion, [motion] {
        motion->stop();
        motion->start();
    });
}

void tst_KestSwitchButton::motionOfTheHostShowsTheHandleMove()
{
    AnimationClock clock;
    KestSwitchButton button;
    paintMotion(&button);
    button.resize(Size);
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    QCoreApplication::processEvents();
    const auto shown = [&button] {
        return button.window()
            ->windowHandle()
            ->screen()
            ->grabWindow(button.winId())
            .toImage()
            .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    };
    for (const bool checked : { true, false }) {
        button.setChecked(checked);
        const Look look = checked ? onLook() : offLook();
        for (int i = 1; i <= 5; ++i) {
            clock.advanceBy(20);
            const int x = checked ? 1 + 4 * i : 21 - 4 * i;
            QCOMPARE(shown().pixelColor(x + 9, 10), look.handle.color());
        }
    }
}

void tst_KestSwitchButton::switchSetBeforeItIsShownArrives()
{
    AnimationClock clock;
    for (const bool followed : { false, true }) {
        KestSwitchButton button;
        if (followed)
            paintMotion(&button);
        button.resize(Size);
        button.setChecked(true);
        button.show();
        QVERIFY(QTest::qWaitForWindowExposed(&button));
        QCoreApplication::processEvents();
        PaintCounter paints(&button);
        for (int i = 0; i < 6; ++i)
            clock.advanceBy(20);
        // The switch itself asks for nothing.
        QCOMPARE(paints.count > 0, followed);
        QCOMPARE(rendered(&button), expectedImage(onLook(), OnHandle));
    }
}

QTEST_MAIN(tst_KestSwitchButton)

#include "tst_kestswitchbutton.moc"
