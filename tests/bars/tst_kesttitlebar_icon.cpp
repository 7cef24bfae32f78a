// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "OnEvent.h"
#include "TestedQt.h"
#include "TitleBarHost.h"

#include <QtCore/QScopeGuard>
#include <QtGui/QIconEngine>
#include <QtGui/QPainter>
#include <QtGui/QWindowStateChangeEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <limits>

namespace {

// An icon that can be drawn in any size, and notes the largest one that it was asked for.
class Drawing : public QIconEngine
{
public:
    Drawing(const QSize &size, QSize *largest) : m_size(size), m_largest(largest) { }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode, QIcon::State) override
    {
        painter->fillRect(rect, Qt::red);
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode, QIcon::State) override
    {
        *m_largest = m_largest->expandedTo(size);
        QPixmap result(size);
        result.fill(Qt::red);
        return result;
    }
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) KEST_CONST_IN_QT5 override
    {
        return { m_size };
    }
    QIconEngine *clone() const override { return new Drawing(*this); }

private:
    QSize m_size;
    QSize *m_largest;
};

} // namespace

class tst_KestTitleBar_Icon : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowIconIsTaken_data();
    void windowIconIsTaken();
    void barTakesTheIconThatItsWindowHas();
    void windowIconIsFollowed();
    void iconIsTakenAnewWithTheApplications();
    void windowIconWithoutSizesLeavesTheOldOne();
    void invisibleIconIsNotFollowed();
    void invisibleIconRepaintsNothing();
    void iconIsRepaintedWhenItComesAndGoes();
    void iconSizeIsOnlyStored();
    void iconPositionIsOnlyStored();

    void customPixmapStaysWhenTheIconChanges();
    void pixmapOfAFinerScreenHasItsSize();
    void roomForTheIconIsInDeviceIndependentPixels();

    void iconRect_data();
    void iconRect();
    void iconIsSharpAtHigherScales();
    void iconIsRenderedForTheRatio();
    void iconOfItsOwnSizeIsNotRenderedAnew();
    void onlyTheRateRepaints();
    void rateMakesTheSameIconSharper();
    void rateLeavesAPixmapOfTheHosts();
    void rateNeverMakesAHugePicture_data();
    void rateNeverMakesAHugePicture();
    void hugeLineIsRenderedAsALine_data();
    void hugeLineIsRenderedAsALine();
    void ratesWithoutSenseDoNoHarm_data();
    void ratesWithoutSenseDoNoHarm();
    void extremePositionsDoNoHarm_data();
    void extremePositionsDoNoHarm();
};

void tst_KestTitleBar_Icon::windowIconIsTaken_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("shown");
    QTest::newRow("smaller") << QSize(16, 20) << QSize(16, 20);
    QTest::newRow("as high") << QSize(32, 32) << QSize(32, 32);
    QTest::newRow("larger") << QSize(64, 64) << QSize(32, 32);
    QTest::newRow("wide") << QSize(128, 64) << QSize(64, 32);
    QTest::newRow("wide, not high") << QSize(100, 20) << QSize(100, 20);
}

void tst_KestTitleBar_Icon::windowIconIsTaken()
{
    QFETCH(QSize, size);
    QFETCH(QSize, shown);
    Host host;
    host.setWindowIcon(icon({ size }));
    QCOMPARE(host.bar->doIconRect(), QRect(QPoint(8, (48 - shown.height()) / 2), shown));
    QCOMPARE(host.row()->contentsMargins(), QMargins(shown.width() + 8 + 16, 0, 0, 0));
    QCOMPARE(painted(host.bar).pixelColor(9, 24), QColor(Qt::red));
}

void tst_KestTitleBar_Icon::barTakesTheIconThatItsWindowHas()
{
    QWidget window;
    window.setWindowIcon(icon({ QSize(24, 24) }));
    TitleBar bar(&window);
    QCOMPARE(bar.doIconRect().size(), QSize(24, 24));
    QCOMPARE(bar.layout()->contentsMargins(), QMargins(24 + 8 + 16, 0, 0, 0));
}

void tst_KestTitleBar_Icon::windowIconIsFollowed()
{
    Host host;
    host.setWindowIcon(icon({ QSize(16, 16) }, Qt::red));
    QCOMPARE(painted(host.bar).pixelColor(12, 24), QColor(Qt::red));
    host.setWindowIcon(icon({ QSize(24, 24) }, Qt::blue));
    QCOMPARE(painted(host.bar).pixelColor(12, 24), QColor(Qt::blue));
    QCOMPARE(host.bar->doIconRect().size(), QSize(24, 24));

    // The application's icon stands for those without one of their own.
    const auto reset = qScopeGuard([] { QApplication::setWindowIcon(QIcon()); });
    Host other;
    other.show();
    QTRY_VERIFY(other.isVisible());
    QCoreApplication::processEvents();
    PaintCounter paints(other.bar);
    QApplication::setWindowIcon(icon({ QSize(20, 20) }, Qt::green));
    QCOMPARE(other.bar->doIconRect().size(), QSize(20, 20));
    QCOMPARE(painted(other.bar).pixelColor(12, 24), QColor(Qt::green));
    QCOMPARE(host.bar->doIconRect().size(), QSize(24, 24));
    paints.count = 0;
    QTRY_VERIFY(paints.count > 0);
    // That of the application comes first, and is enough.
    Host deaf;
    Drop drop(&deaf, QEvent::WindowIconChange);
    QApplication::setWindowIcon(icon({ QSize(18, 18) }, Qt::blue));
    QCOMPARE(deaf.bar->doIconRect().size(), QSize(18, 18));
}

void tst_KestTitleBar_Icon::iconIsTakenAnewWithTheApplications()
{
    Host host;
    host.removeEventFilter(host.bar);
    host.setWindowIcon(icon({ QSize(24, 24) }));
    host.installEventFilter(host.bar);
    QVERIFY(host.row()->contentsMargins().isNull());
    QEvent event(QEvent::ApplicationWindowIconChange);
    QCoreApplication::sendEvent(&host, &event);
    QCOMPARE(host.row()->contentsMargins().left(), 24 + 8 + 16);
}

void tst_KestTitleBar_Icon::windowIconWithoutSizesLeavesTheOldOne()
{
    Host host;
    host.setWindowIcon(icon({ QSize(16, 16) }));
    host.setWindowIcon(QIcon());
    host.bar->updateWindowIcon();
    QCOMPARE(host.bar->doIconRect().size(), QSize(16, 16));
    QCOMPARE(host.row()->contentsMargins().left(), 16 + 8 + 16);
}

void tst_KestTitleBar_Icon::invisibleIconIsNotFollowed()
{
    Host host;
    host.setWindowIcon(icon({ QSize(16, 16) }, Qt::red));
    host.bar->setIconVisible(false);
    QVERIFY(!host.bar->iconIsVisible());
    QCOMPARE(host.row()->contentsMargins(), QMargins());
    QVERIFY(painted(host.bar).pixelColor(12, 24) != QColor(Qt::red));
    host.setWindowIcon(icon({ QSize(24, 24) }, Qt::blue));
    QCOMPARE(host.bar->doIconRect().size(), QSize(16, 16));
    // Visible again it is as it was: the icon is not taken anew.
    host.bar->setIconVisible(true);
    QCOMPARE(host.row()->contentsMargins(), QMargins(16 + 8 + 16, 0, 0, 0));
    QCOMPARE(painted(host.bar).pixelColor(12, 24), QColor(Qt::red));
    host.bar->updateWindowIcon();
    QCOMPARE(host.bar->doIconRect().size(), QSize(24, 24));
}

void tst_KestTitleBar_Icon::invisibleIconRepaintsNothing()
{
    Host host;
    host.bar->setIconVisible(false);
    host.show();
    QTest::qWait(50); // until nothing is left to paint
    PaintCounter paints(host.bar);
    host.setWindowIcon(icon({ QSize(16, 16) }));
    QTest::qWait(50);
    QCOMPARE(paints.count, 0);
}

void tst_KestTitleBar_Icon::iconIsRepaintedWhenItComesAndGoes()
{
    Host host;
    host.setWindowIcon(icon({ QSize(16, 16) }));
    host.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host));
    for (const bool visible : { false, true, false }) {
        QCoreApplication::processEvents();
        PaintCounter counter(host.bar);
        host.bar->setIconVisible(visible);
        QTRY_COMPARE(counter.count, 1);
    }
}

void tst_KestTitleBar_Icon::iconSizeIsOnlyStored()
{
    Host host;
    host.setWindowIcon(icon({ QSize(64, 64) }));
    QSignalSpy spy(host.bar, &KestTitleBar::iconSizeChanged);
    host.bar->setIconSize(QSize(500, 20));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(host.bar->doIconRect().size(), QSize(32, 32));
    // What else happens to the window is no icon update.
    QWindowStateChangeEvent state(host.windowState());
    QEvent title(QEvent::WindowTitleChange);
    QEvent modified(QEvent::ModifiedChange);
    for (QEvent *event : { static_cast<QEvent *>(&state), &title, &modified }) {
        QCoreApplication::sendEvent(&host, event);
        QCOMPARE(host.bar->doIconRect().size(), QSize(32, 32));
    }
    host.bar->updateWindowIcon();
    QCOMPARE(host.bar->doIconRect().size(), QSize(20, 20)); // only the height counts
    QCOMPARE(spy.count(), 0);
}

void tst_KestTitleBar_Icon::iconPositionIsOnlyStored()
{
    Host host;
    host.setWindowIcon(icon({ QSize(16, 16) }));
    const QMargins margins = host.row()->contentsMargins();
    host.bar->setIconPos(QSize(20, 6));
    QCOMPARE(host.bar->getIconPos(), QSize(20, 6));
    QCOMPARE(host.bar->getLeftMargin(), 20);
    QCOMPARE(host.row()->contentsMargins(), margins);
    QCOMPARE(host.bar->doIconRect().left(), 20);
}

void tst_KestTitleBar_Icon::customPixmapStaysWhenTheIconChanges()
{
    Host host;
    QPixmap pixmap(30, 12);
    pixmap.fill(Qt::green);
    host.bar->setIconPixmap(pixmap);
    QVERIFY(!host.bar->iconIsVisible());
    QCOMPARE(host.row()->contentsMargins(), QMargins(30 + 8 + 16, 0, 0, 0));
    QCOMPARE(host.bar->doIconRect(), QRect(8, 18, 30, 12));
    QCOMPARE(painted(host.bar).pixelColor(20, 24), QColor(Qt::green));
    host.setWindowIcon(icon({ QSize(16, 16) }, Qt::red));
    QCOMPARE(painted(host.bar).pixelColor(20, 24), QColor(Qt::green));
}

void tst_KestTitleBar_Icon::pixmapOfAFinerScreenHasItsSize()
{
    Host host;
    QPixmap pixmap(60, 40);
    pixmap.fill(Qt::red);
    pixmap.setDevicePixelRatio(2);
    host.bar->setIconPixmap(pixmap);
    QCOMPARE(host.bar->doIconRect(), QRect(8, (48 - 20) / 2, 30, 20));
    QCOMPARE(host.row()->contentsMargins(), QMargins(30 + 8 + 16, 0, 0, 0));
}

void tst_KestTitleBar_Icon::roomForTheIconIsInDeviceIndependentPixels()
{
    Host host;
    QPixmap pixmap(40, 40);
    pixmap.setDevicePixelRatio(2.0);
    host.bar->setIconPixmap(pixmap);
    QCOMPARE(host.row()->contentsMargins(), QMargins(20 + 8 + 16, 0, 0, 0));
}

void tst_KestTitleBar_Icon::iconRect_data()
{
    QTest::addColumn<QSize>("pixmap");
    QTest::addColumn<QVariant>("rate");
    QTest::addColumn<int>("height");
    QTest::addColumn<QRect>("rect");
    QTest::newRow("as it is") << QSize(32, 32) << QVariant() << 48 << QRect(8, 8, 32, 32);
    QTest::newRow("fitted after scaling")
        << QSize(32, 32) << QVariant(1.5) << 48 << QRect(8, 4, 40, 40);
    QTest::newRow("scaled") << QSize(20, 10) << QVariant(1.5) << 48 << QRect(8, 16, 30, 15);
    QTest::newRow("rounded") << QSize(15, 13) << QVariant(1.5) << 48 << QRect(8, 14, 23, 20);
    QTest::newRow("odd room") << QSize(16, 15) << QVariant() << 48 << QRect(8, 16, 16, 15);
    QTest::newRow("wide and fitted") << QSize(80, 40) << QVariant(2.0) << 48 << QRect(8, 4, 80, 40);
    QTest::newRow("smaller rate") << QSize(32, 32) << QVariant(0.5) << 48 << QRect(8, 16, 16, 16);
    QTest::newRow("low bar") << QSize(32, 32) << QVariant() << 42 << QRect(8, 5, 32, 32);
    QTest::newRow("lowest bar, large icon")
        << QSize(40, 40) << QVariant() << 42 << QRect(8, 4, 34, 34);
}

void tst_KestTitleBar_Icon::iconRect()
{
    QFETCH(QSize, pixmap);
    QFETCH(QVariant, rate);
    QFETCH(int, height);
    QFETCH(QRect, rect);
    Host host;
    host.bar->resize(600, height);
    host.bar->setIconPixmap(QPixmap(pixmap));
    if (rate.isValid())
        host.bar->setProperty("geoRate", rate);
    QCOMPARE(host.bar->doIconRect(), rect);
}

void tst_KestTitleBar_Icon::iconIsSharpAtHigherScales()
{
    Host host;
    // Stripes as wide as a pixel of the scaled icon.
    QImage stripes(64, 64, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x)
            stripes.setPixelColor(x, y, x % 2 ? Qt::black : Qt::white);
    }
    host.bar->setIconSize(QSize(16, 16));
    host.bar->setMaximumHeight(200);
    host.bar->resize(600, 100);
    host.setWindowIcon(QIcon(QPixmap::fromImage(stripes)));
    host.bar->setProperty("geoRate", 4.0);
    QCOMPARE(host.bar->doIconRect(), QRect(8, 18, 64, 64));
    const QImage image = painted(host.bar);
    for (int x = 0; x < 64; ++x)
        QCOMPARE(image.pixelColor(8 + x, 50), stripes.pixelColor(x, 32));
}

// Also run at 200 %.
void tst_KestTitleBar_Icon::iconIsRenderedForTheRatio()
{
    Host host;
    QSize largest;
    host.setWindowIcon(QIcon(new Drawing(QSize(20, 16), &largest)));
    QCOMPARE(largest, QSize(20, 16) * host.bar->devicePixelRatioF() * finenessOfPixmaps());
    QCOMPARE(host.bar->doIconRect(), QRect(8, 16, 20, 16));
    QCOMPARE(host.row()->contentsMargins().left(), 20 + 8 + 16);
    largest = QSize();
    host.bar->setProperty("geoRate", 1.5);
    painted(host.bar);
    QCOMPARE(largest, QSize(30, 24) * host.bar->devicePixelRatioF() * finenessOfPixmaps());
}

void tst_KestTitleBar_Icon::iconOfItsOwnSizeIsNotRenderedAnew()
{
    Host host;
    QSize largest;
    host.setWindowIcon(QIcon(new Drawing(QSize(20, 16), &largest)));
    largest = QSize();
    QCOMPARE(painted(host.bar).pixelColor(12, 24), QColor(Qt::red));
    QCOMPARE(largest, QSize());
    // Nor is anything rendered where there is nothing to see.
    host.bar->setProperty("geoRate", 0.0);
    painted(host.bar);
    QCOMPARE(largest, QSize());
}

void tst_KestTitleBar_Icon::onlyTheRateRepaints()
{
    Host host;
    host.show();
    QTest::qWait(50);
    PaintCounter paints(host.bar);
    host.bar->setProperty("another", 2);
    QTest::qWait(50);
    QCOMPARE(paints.count, 0);
    host.bar->setProperty("geoRate", 2.0);
    QTRY_COMPARE(paints.count, 1);
}

void tst_KestTitleBar_Icon::rateMakesTheSameIconSharper()
{
    Host host;
    QSize largest;
    host.setWindowIcon(QIcon(new Drawing(QSize(32, 32), &largest)));
    const QMargins margins = host.row()->contentsMargins();
    host.bar->setIconSize(QSize(8, 8));
    host.bar->setIconPos(QSize(30, 4));
    largest = QSize();
    host.bar->setProperty("geoRate", 1.125);
    painted(host.bar);
    // Neither the new limit nor the new position made it another icon with other room.
    QCOMPARE(host.bar->doIconRect(), QRect(30, 6, 36, 36));
    QCOMPARE(host.row()->contentsMargins(), margins);
    QCOMPARE(largest, QSize(36, 36)); // as many pixels as it is drawn with
    // It is rendered once for a size, also when the bar becomes lower.
    largest = QSize();
    painted(host.bar);
    QCOMPARE(largest, QSize());
    host.bar->resize(600, 42);
    painted(host.bar);
    QCOMPARE(largest, QSize(34, 34));
    // A new icon is never taken for the old one.
    host.bar->setIconSize(QSize(32, 32));
    host.setWindowIcon(icon({ QSize(32, 32) }, Qt::blue));
    QCOMPARE(painted(host.bar).pixelColor(40, 21), QColor(Qt::blue));
}

void tst_KestTitleBar_Icon::rateLeavesAPixmapOfTheHosts()
{
    Host host;
    host.setWindowIcon(icon({ QSize(16, 16) }, Qt::red));
    QPixmap pixmap(20, 20);
    pixmap.fill(Qt::green);
    host.bar->setIconPixmap(pixmap);
    host.bar->setIconVisible(true);
    host.bar->setProperty("geoRate", 1.5);
    QCOMPARE(host.bar->doIconRect(), QRect(8, 9, 30, 30));
    QCOMPARE(host.row()->contentsMargins(), QMargins(20 + 8 + 16, 0, 0, 0));
    QCOMPARE(painted(host.bar).pixelColor(20, 24), QColor(Qt::green));
}

void tst_KestTitleBar_Icon::rateNeverMakesAHugePicture_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("height");
    QTest::addColumn<QSize>("rendered");
    QTest::newRow("a bar's height") << QSize(32, 32) << 48 << QSize(40, 40);
    QTest::newRow("a high bar") << QSize(32, 32) << 4000 << QSize(512, 512);
    QTest::newRow("a wide icon") << QSize(3200, 32) << 4000 << QSize(3200, 32);
}

void tst_KestTitleBar_Icon::rateNeverMakesAHugePicture()
{
    QFETCH(QSize, size);
    QFETCH(int, height);
    QFETCH(QSize, rendered);
    Host host;
    host.bar->setMaximumHeight(height);
    host.bar->resize(600, height);
    QSize largest;
    host.setWindowIcon(QIcon(new Drawing(size, &largest)));
    largest = QSize();
    host.bar->setProperty("geoRate", 300.0);
    painted(host.bar);
    QCOMPARE(largest, rendered);
}

void tst_KestTitleBar_Icon::hugeLineIsRenderedAsALine_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("lying") << QSize(2000, 1);
    QTest::newRow("standing") << QSize(1, 2000);
}

void tst_KestTitleBar_Icon::hugeLineIsRenderedAsALine()
{
    QFETCH(QSize, size);
    Host host;
    host.bar->setMaximumHeight(4000);
    host.bar->resize(600, 4000);
    host.bar->setIconSize(QSize(32, 4000));
    QSize largest;
    host.setWindowIcon(QIcon(new Drawing(size, &largest)));
    // It is painted larger than it is rendered at most, but no thicker.
    host.bar->setProperty("geoRate", 1.4);
    QCOMPARE(host.bar->doIconRect().size(),
             QSize(qRound(size.width() * 1.4), qRound(size.height() * 1.4)));
    largest = QSize();
    painted(host.bar);
    QCOMPARE(largest, size);
}

void tst_KestTitleBar_Icon::ratesWithoutSenseDoNoHarm_data()
{
    QTest::addColumn<QVariant>("rate");
    QTest::addColumn<QSize>("size");
    const QSize unscaled(32, 16);
    const qreal infinity = std::numeric_limits<qreal>::infinity();
    QTest::newRow("no number") << QVariant(std::numeric_limits<qreal>::quiet_NaN()) << unscaled;
    QTest::newRow("infinity") << QVariant(infinity) << unscaled;
    QTest::newRow("minus infinity") << QVariant(-infinity) << unscaled;
    QTest::newRow("null text") << QVariant(QString()) << unscaled;
    QTest::newRow("text") << QVariant(QStringLiteral("large")) << QSize(0, 0);
    QTest::newRow("huge") << QVariant(1e10) << QSize(80, 40);
    QTest::newRow("hugest") << QVariant(std::numeric_limits<qreal>::max()) << QSize(80, 40);
    QTest::newRow("zero") << QVariant(0.0) << QSize(0, 0);
}

void tst_KestTitleBar_Icon::ratesWithoutSenseDoNoHarm()
{
    QFETCH(QVariant, rate);
    QFETCH(QSize, size);
    Host host;
    host.setWindowTitle(QStringLiteral("title"));
    host.setWindowIcon(icon({ QSize(32, 16) }));
    host.bar->setProperty("geoRate", rate);
    QCOMPARE(host.bar->doIconRect().height(), size.height());
    QVERIFY(qAbs(host.bar->doIconRect().width() - size.width()) <= 1);
    painted(host.bar);
    host.bar->setLayoutDirection(Qt::RightToLeft);
    painted(host.bar);
    host.bar->setProperty("geoRate", -1e10);
    painted(host.bar);
}

void tst_KestTitleBar_Icon::extremePositionsDoNoHarm_data()
{
    QTest::addColumn<QSize>("position");
    const int least = std::numeric_limits<int>::min();
    const int most = std::numeric_limits<int>::max();
    QTest::newRow("far right") << QSize(most, 4);
    QTest::newRow("far left") << QSize(least, 4);
    QTest::newRow("no room") << QSize(8, most);
    QTest::newRow("all room") << QSize(8, least);
    QTest::newRow("both ends") << QSize(least, most);
}

void tst_KestTitleBar_Icon::extremePositionsDoNoHarm()
{
    QFETCH(QSize, position);
    Host host;
    host.setWindowTitle(QStringLiteral("title"));
    host.bar->setIconPos(position);
    QCOMPARE(host.bar->getIconPos(), position);
    QCOMPARE(host.bar->getLeftMargin(), position.width());
    host.setWindowIcon(icon({ QSize(100, 1), QSize(64, 64) }));
    for (const qreal rate : { 1.0, 300.0, 1e10 }) {
        host.bar->setProperty("geoRate", rate);
        painted(host.bar);
        // Sums with it stay within an int.
        QVERIFY(qAbs(host.bar->doIconRect().width()) <= QWIDGETSIZE_MAX);
        QVERIFY(qAbs(host.bar->doIconRect().height()) <= QWIDGETSIZE_MAX);
    }
    host.bar->setIconVisible(false);
    host.bar->setIconVisible(true);
    host.bar->setIconPixmap(QPixmap(30, 30));
    for (const Qt::LayoutDirection direction : { Qt::RightToLeft, Qt::LeftToRight }) {
        host.bar->setLayoutDirection(direction);
        host.bar->resize(600, 48);
        painted(host.bar);
        // The icon is far away, or has no room, and is not back on the bar by an overflow.
        if (position.height() == std::numeric_limits<int>::max())
            QVERIFY(!host.bar->doIconRect().isValid());
        if (position.width() != 8)
            QVERIFY(!host.bar->doIconRect().intersects(host.bar->rect()));
    }
    host.show();
}

QTEST_MAIN(tst_KestTitleBar_Icon)
#include "tst_kesttitlebar_icon.moc"
