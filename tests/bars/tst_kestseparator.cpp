// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestSeparator.h"

#include "RecordingStyle.h"

#include <QtTest/QTest>

class tst_KestSeparator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void orientationIsAPropertyWithASlot();
    void sizePolicyIsMinimum();
    void sizeHintIsASquareOfTheStylesExtent();
    void separatorIsDrawnInTheNameOfTheParent_data();
    void separatorIsDrawnInTheNameOfTheParent();
    void stateIsTheSeparators();
    void orientationIsOnlyStored();
    void contentsOfTheFrameAreDrawn();
    void framesWithoutContentsAreIgnored_data();
    void framesWithoutContentsAreIgnored();
};

void tst_KestSeparator::orientationIsAPropertyWithASlot()
{
    KestSeparator separator(Qt::Horizontal);
    QCOMPARE(separator.orientation(), Qt::Horizontal);
    QVERIFY(separator.setProperty("orientation", QVariant::fromValue(Qt::Vertical)));
    QCOMPARE(separator.orientation(), Qt::Vertical);
    QVERIFY(QMetaObject::invokeMethod(&separator, "setOrientation",
                                      Q_ARG(Qt::Orientation, Qt::Horizontal)));
    QCOMPARE(separator.orientation(), Qt::Horizontal);
}

void tst_KestSeparator::sizePolicyIsMinimum()
{
    QCOMPARE(KestSeparator(Qt::Horizontal).sizePolicy(),
             QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
}

void tst_KestSeparator::sizeHintIsASquareOfTheStylesExtent()
{
    RecordingStyle style;
    QWidget bar;
    KestSeparator separator(Qt::Horizontal, &bar);
    separator.setStyle(&style);
    QCOMPARE(separator.sizeHint(), QSize(7, 7));
    QCOMPARE(style.metricWidget, &bar);
    QVERIFY(style.metricState & QStyle::State_Horizontal);
    separator.setOrientation(Qt::Vertical);
    style.separatorExtent = 3;
    QCOMPARE(separator.sizeHint(), QSize(3, 3));
    QVERIFY(!(style.metricState & QStyle::State_Horizontal));
}

void tst_KestSeparator::separatorIsDrawnInTheNameOfTheParent_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::newRow("horizontal") << Qt::Horizontal;
    QTest::newRow("vertical") << Qt::Vertical;
}

void tst_KestSeparator::separatorIsDrawnInTheNameOfTheParent()
{
    QFETCH(Qt::Orientation, orientation);
    RecordingStyle style;
    QWidget bar;
    KestSeparator separator(orientation, &bar);
    separator.setStyle(&style);
    separator.resize(9, 40);
    separator.grab();
    QCOMPARE(style.separatorWidget, &bar);
    QCOMPARE(style.separatorRect, QRect(0, 0, 9, 40));
    QCOMPARE(bool(style.separatorState & QStyle::State_Horizontal), orientation == Qt::Horizontal);
}

void tst_KestSeparator::stateIsTheSeparators()
{
    RecordingStyle style;
    QWidget bar;
    KestSeparator separator(Qt::Horizontal, &bar);
    separator.setStyle(&style);
    separator.grab();
    QVERIFY(style.separatorState & QStyle::State_Enabled);
    separator.setEnabled(false);
    separator.grab();
    QVERIFY(!(style.separatorState & QStyle::State_Enabled));
    QVERIFY(style.separatorState & QStyle::State_Horizontal);
}

void tst_KestSeparator::orientationIsOnlyStored()
{
    RecordingStyle style;
    KestSeparator separator(Qt::Horizontal);
    separator.setStyle(&style);
    separator.resize(9, 40);
    separator.show();
    QVERIFY(QTest::qWaitForWindowExposed(&separator));
    QCoreApplication::processEvents();
    style.separatorRect = QRect();
    separator.setOrientation(Qt::Vertical);
    QCoreApplication::processEvents();
    QVERIFY(style.separatorRect.isNull()); // nothing was painted
    separator.grab();
    QVERIFY(!(style.separatorState & QStyle::State_Horizontal));
}

void tst_KestSeparator::contentsOfTheFrameAreDrawn()
{
    RecordingStyle style;
    style.frameContents = QRect(2, 3, 4, 5);
    QWidget bar;
    KestSeparator separator(Qt::Horizontal, &bar);
    separator.setStyle(&style);
    separator.resize(9, 40);
    separator.grab();
    QCOMPARE(style.separatorRect, QRect(2, 3, 4, 5));
}

void tst_KestSeparator::framesWithoutContentsAreIgnored_data()
{
    QTest::addColumn<QRect>("contents");
    QTest::newRow("no width") << QRect(2, 3, 0, 5);
    QTest::newRow("no height") << QRect(2, 3, 4, 0);
    QTest::newRow("none") << QRect();
}

void tst_KestSeparator::framesWithoutContentsAreIgnored()
{
    class Style : public RecordingStyle
    {
    public:
        QRect subElementRect(SubElement element, const QStyleOption *option,
                             const QWidget *widget) const override
        {
            return element == SE_FrameContents
                ? contents
                : RecordingStyle::subElementRect(element, option, widget);
        }

        QRect contents;
    };
    QFETCH(QRect, contents);
    Style style;
    style.contents = contents;
    QWidget bar;
    KestSeparator separator(Qt::Horizontal, &bar);
    separator.setStyle(&style);
    separator.resize(9, 40);
    separator.grab();
    QCOMPARE(style.separatorRect, QRect(0, 0, 9, 40));
}

QTEST_MAIN(tst_KestSeparator)
#include "tst_kestseparator.moc"
