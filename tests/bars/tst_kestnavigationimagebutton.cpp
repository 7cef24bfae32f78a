// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestNavigationImageButton.h"

#include "RecordingStyle.h"

#include <QtGui/QIcon>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>

namespace {

QPixmap plain(const QSize &size, const QColor &color)
{
    QPixmap pixmap(size);
    pixmap.fill(color);
    return pixmap;
}

} // namespace

class tst_KestNavigationImageButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sizePolicy();
    void sizeHintFollowsTheImage();
    void imageIsFittedIntoTheHeight_data();
    void imageIsFittedIntoTheHeight();
    void imageOfTheRightSizeIsKept();
    void panelIsAPushButtons();
    void pressedPanelIsRaisedAndSunken();
    void pressAndReleaseRepaint();
    void checkedPanelIsOn();
    void panelIsPaintedSmoothly();
    void imageIsCentred();
    void imageIsRenderedForTheRatio();
    void lateIconAppearsWithTheSecondPaint();
    void checkedButtonShowsTheIconsOnState();
    void imageIsKeptWhereTheStateHasNone();
    void layoutMakesRoomForTheImage();
    void layoutMakesRoomForALateImage();
};

void tst_KestNavigationImageButton::sizePolicy()
{
    QCOMPARE(KestNavigationImageButton().sizePolicy(),
             QSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred));
}

void tst_KestNavigationImageButton::sizeHintFollowsTheImage()
{
    KestNavigationImageButton button;
    QCOMPARE(button.sizeHint(), QSize(5, 5));
    button.setIcon(QIcon(plain(QSize(40, 20), Qt::red)));
    QCOMPARE(button.sizeHint(), QSize(5, 5));
    button.resize(100, 48);
    button.grab();
    QCOMPARE(button.sizeHint(), QSize(60, 40));
}

void tst_KestNavigationImageButton::imageIsFittedIntoTheHeight_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<QSize>("hint");
    QTest::newRow("high enough") << 100 << QSize(100, 60);
    QTest::newRow("just high enough") << 60 << QSize(100, 60);
    QTest::newRow("lower") << 40 << QSize(60, 40);
    QTest::newRow("no room") << 20 << QSize(5, 5);
}

void tst_KestNavigationImageButton::imageIsFittedIntoTheHeight()
{
    QFETCH(int, height);
    QFETCH(QSize, hint);
    KestNavigationImageButton button;
    button.setIcon(QIcon(plain(QSize(80, 40), Qt::red)));
    button.resize(200, height);
    button.grab();
    QCOMPARE(button.sizeHint(), hint);
}

void tst_KestNavigationImageButton::imageOfTheRightSizeIsKept()
{
    KestNavigationImageButton button;
    button.setIcon(QIcon(plain(QSize(40, 20), Qt::red)));
    button.resize(100, 48);
    button.grab();
    QCOMPARE(button.sizeHint(), QSize(60, 40));
    // Resized to just what the image wants, another icon is not looked for.
    button.setIcon(QIcon(plain(QSize(10, 10), Qt::blue)));
    button.resize(60, 40);
    QCOMPARE(button.grab().toImage().pixelColor(30, 20), QColor(Qt::red));
    button.resize(61, 40);
    QCOMPARE(button.grab().toImage().pixelColor(30, 20), QColor(Qt::blue));
}

void tst_KestNavigationImageButton::panelIsAPushButtons()
{
    RecordingStyle style;
    KestNavigationImageButton button;
    button.setStyle(&style);
    button.setText(QStringLiteral("text"));
    button.resize(80, 48);
    button.grab();
    QCOMPARE(style.pushButtonsDrawn, 1);
    QCOMPARE(style.pushButton.text, QStringLiteral("text"));
    QVERIFY(style.pushButton.icon.isNull());
    QVERIFY(!(style.pushButton.state & (QStyle::State_Raised | QStyle::State_Sunken)));
    QVERIFY(!(style.pushButton.state & QStyle::State_On));
}

void tst_KestNavigationImageButton::pressedPanelIsRaisedAndSunken()
{
    RecordingStyle style;
    KestNavigationImageButton button;
    button.setStyle(&style);
    button.setCheckable(true);
    button.setChecked(true);
    button.resize(80, 48);
    QTest::mousePress(&button, Qt::LeftButton);
    button.grab();
    QVERIFY(style.pushButton.state & QStyle::State_Raised);
    QVERIFY(style.pushButton.state & QStyle::State_Sunken);
    QVERIFY(!(style.pushButton.state & QStyle::State_On));
    QTest::mouseRelease(&button, Qt::LeftButton);
    button.grab();
    QVERIFY(!(style.pushButton.state & QStyle::State_Raised));
}

void tst_KestNavigationImageButton::pressAndReleaseRepaint()
{
    RecordingStyle style;
    KestNavigationImageButton button;
    button.setStyle(&style);
    button.resize(80, 48);
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    QTest::mousePress(&button, Qt::LeftButton);
    QTRY_VERIFY(style.pushButton.state & QStyle::State_Raised);
    QTest::mouseRelease(&button, Qt::LeftButton);
    QTRY_VERIFY(!(style.pushButton.state & QStyle::State_Raised));
}

void tst_KestNavigationImageButton::checkedPanelIsOn()
{
    RecordingStyle style;
    KestNavigationImageButton button;
    button.setStyle(&style);
    button.setCheckable(true);
    button.resize(80, 48);
    button.grab();
    QVERIFY(!(style.pushButton.state & QStyle::State_On));
    button.setChecked(true);
    button.grab();
    QVERIFY(style.pushButton.state & QStyle::State_On);
}

void tst_KestNavigationImageButton::imageIsCentred()
{
    RecordingStyle style;
    KestNavigationImageButton button;
    button.setStyle(&style);
    button.setIcon(QIcon(plain(QSize(40, 20), Qt::red)));
    button.resize(100, 48);
    const QImage image = button.grab().toImage();
    QCOMPARE(style.pixmapRect, QRect(0, 0, 100, 48));
    QCOMPARE(style.pixmapAlignment, int(Qt::AlignCenter));
    QCOMPARE(style.pixmapSize, QSize(40, 20));
    for (const QPoint &inside : { QPoint(30, 14), QPoint(69, 33), QPoint(50, 24) })
        QCOMPARE(image.pixelColor(inside), QColor(Qt::red));
    for (const QPoint &outside : { QPoint(29, 24), QPoint(70, 24), QPoint(50, 13), QPoint(50, 34) })
        QVERIFY(image.pixelColor(outside) != QColor(Qt::red));
}

void tst_KestNavigationImageButton::panelIsPaintedSmoothly()
{
    class Style : public RecordingStyle
    {
    public:
        void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                         const QWidget *widget) const override
        {
            if (element == CE_PushButton)
                smooth = painter->testRenderHint(QPainter::Antialiasing);
            RecordingStyle::drawControl(element, option, painter, widget);
        }

        mutable bool smooth = false;
    };
    Style style;
    KestNavigationImageButton button;
    button.setStyle(&style);
    button.grab();
    QVERIFY(style.smooth);
}

// Also run at 200 %.
void tst_KestNavigationImageButton::imageIsRenderedForTheRatio()
{
    RecordingStyle style;
    KestNavigationImageButton button;
    button.setStyle(&style);
    button.setIcon(QIcon(plain(QSize(80, 40), Qt::red)));
    button.resize(100, 48);
    button.grab();
    QCOMPARE(style.pixmapSize, QSize(56, 28) * button.devicePixelRatioF());
    QCOMPARE(button.sizeHint(), QSize(76, 48));
}

void tst_KestNavigationImageButton::lateIconAppearsWithTheSecondPaint()
{
    RecordingStyle style;
    KestNavigationImageButton button;
    button.setStyle(&style);
    button.resize(100, 48);
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    QCoreApplication::processEvents();
    button.setIcon(QIcon(plain(QSize(40, 20), Qt::red)));
    style.pixmapsDrawn = 0;
    button.repaint();
    QCOMPARE(style.pixmapsDrawn, 0);
    QCOMPARE(button.sizeHint(), QSize(60, 40));
    button.repaint();
    QCOMPARE(style.pixmapsDrawn, 1);
}

void tst_KestNavigationImageButton::checkedButtonShowsTheIconsOnState()
{
    QIcon icon;
    icon.addPixmap(plain(QSize(40, 20), Qt::red), QIcon::Normal, QIcon::Off);
    icon.addPixmap(plain(QSize(20, 20), Qt::blue), QIcon::Normal, QIcon::On);
    KestNavigationImageButton button;
    button.setCheckable(true);
    button.setChecked(true);
    button.setIcon(icon);
    button.resize(100, 48);
    button.grab();
    QCOMPARE(button.sizeHint(), QSize(40, 40));
    QCOMPARE(button.grab().toImage().pixelColor(50, 24), QColor(Qt::blue));
}

void tst_KestNavigationImageButton::imageIsKeptWhereTheStateHasNone()
{
    KestNavigationImageButton button;
    button.setCheckable(true);
    button.setIcon(QIcon(plain(QSize(40, 20), Qt::red)));
    button.resize(100, 48);
    button.grab();
    QCOMPARE(button.sizeHint(), QSize(60, 40));
    button.setChecked(true);
    button.resize(101, 48);
    QCOMPARE(button.sizeHint(), QSize(60, 40));
    QCOMPARE(button.grab().toImage().pixelColor(50, 24), QColor(Qt::red));
}

void tst_KestNavigationImageButton::layoutMakesRoomForTheImage()
{
    QWidget bar;
    auto *layout = new QHBoxLayout(&bar);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *button = new KestNavigationImageButton;
    button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    button->setIcon(QIcon(plain(QSize(160, 56), Qt::red)));
    layout->addWidget(button);
    layout->addStretch(1);
    bar.setFixedHeight(48);
    bar.resize(500, 48);
    bar.show();
    QTRY_COMPARE(button->size(), QSize(80 + 20, 48));
}

void tst_KestNavigationImageButton::layoutMakesRoomForALateImage()
{
    QWidget bar;
    auto *layout = new QHBoxLayout(&bar);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *button = new KestNavigationImageButton;
    button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    layout->addWidget(button);
    layout->addStretch(1);
    bar.setFixedHeight(48);
    bar.resize(500, 48);
    bar.show();
    QTRY_COMPARE(button->size(), QSize(5, 48));
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QCoreApplication::processEvents();
    button->setIcon(QIcon(plain(QSize(160, 56), Qt::red)));
    QTRY_COMPARE(button->size(), QSize(80 + 20, 48));
}

QTEST_MAIN(tst_KestNavigationImageButton)
#include "tst_kestnavigationimagebutton.moc"
