// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestColor.h"

#include <QtCore/QMetaEnum>
#include <QtTest/QTest>

class tst_KestColor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void paletteIsTheFirstAndOnlyEnumerator();
    void paletteColors_data();
    void paletteColors();
    void backgroundRepeatsEveryTwentyColors();
    void negativeIndexGivesOpaqueWhite();
    void negativeMultipleOfTwentyGivesTheFirstColor();
    void foregroundKeepsHueAndSaturation_data();
    void foregroundKeepsHueAndSaturation();
    void foregroundOfGreyIsGrey();
    void foregroundIsOpaque();
    void lightMeansLuminanceAbove127_data();
    void lightMeansLuminanceAbove127();
    void instanceBelongsToItsParent();
};

void tst_KestColor::paletteIsTheFirstAndOnlyEnumerator()
{
    const QMetaObject &meta = KestColor::staticMetaObject;
    QCOMPARE(meta.enumeratorCount() - meta.enumeratorOffset(), 1);
    QCOMPARE(QByteArray(meta.enumerator(meta.enumeratorOffset()).name()), QByteArray("Colors"));
    QCOMPARE(meta.enumerator(meta.enumeratorOffset()).keyCount(), 20);
}

void tst_KestColor::paletteColors_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("red");
    QTest::addColumn<int>("green");
    QTest::addColumn<int>("blue");

    const int table[20][3] = {
        { 45, 116, 234 },  { 0, 32, 80 },   { 53, 136, 139 },  { 77, 72, 149 },  { 171, 116, 44 },
        { 120, 57, 19 },   { 85, 129, 93 }, { 45, 65, 167 },   { 25, 66, 43 },   { 34, 101, 70 },
        { 42, 176, 200 },  { 77, 79, 81 },  { 40, 138, 51 },   { 39, 36, 92 },   { 207, 161, 131 },
        { 130, 115, 147 }, { 196, 63, 22 }, { 112, 127, 199 }, { 173, 84, 102 }, { 118, 85, 66 }
    };
    for (int i = 0; i < 20; ++i) {
        QTest::addRow("Color%d", i) << i << table[i][0] << table[i][1] << table[i][2];
    }
}

void tst_KestColor::paletteColors()
{
    QFETCH(int, index);
    QFETCH(int, red);
    QFETCH(int, green);
    QFETCH(int, blue);
    const QColor expected(red, green, blue);

    const QMetaEnum colors = QMetaEnum::fromType<KestColor::Colors>();
    QCOMPARE(QByteArray(colors.key(index)), QByteArray(QTest::currentDataTag()));
    QCOMPARE(colors.value(index), int(expected.rgb() & 0xffffff));
    QCOMPARE(KestColor::generateBackgroundColor(index), expected);
}

void tst_KestColor::backgroundRepeatsEveryTwentyColors()
{
    QCOMPARE(KestColor::generateBackgroundColor(20), QColor(0x2D, 0x74, 0xEA));
    QCOMPARE(KestColor::generateBackgroundColor(40), QColor(0x2D, 0x74, 0xEA));
    QCOMPARE(KestColor::generateBackgroundColor(39), QColor(0x76, 0x55, 0x42));
}

void tst_KestColor::negativeIndexGivesOpaqueWhite()
{
    for (const int index : { -1, -19, -21, -39 })
        QCOMPARE(KestColor::generateBackgroundColor(index), QColor(255, 255, 255, 255));
}

void tst_KestColor::negativeMultipleOfTwentyGivesTheFirstColor()
{
    QCOMPARE(KestColor::generateBackgroundColor(-20), QColor(0x2D, 0x74, 0xEA));
}

void tst_KestColor::foregroundKeepsHueAndSaturation_data()
{
    QTest::addColumn<QColor>("background");
    QTest::addColumn<int>("lightness");

    QTest::newRow("light yellow") << QColor(255, 240, 120) << 45;
    QTest::newRow("light green") << QColor(100, 220, 100) << 45;
    QTest::newRow("navy") << QColor(0, 32, 80) << 210;
    QTest::newRow("pure blue is dark") << QColor(0, 0, 255) << 210;
    QTest::newRow("pure red is dark") << QColor(255, 0, 0) << 210;
    QTest::newRow("pure green is light") << QColor(0, 255, 0) << 45;
}

void tst_KestColor::foregroundKeepsHueAndSaturation()
{
    QFETCH(QColor, background);
    QFETCH(int, lightness);

    const QColor foreground = KestColor::generateForegroundColor(background);
    QCOMPARE(foreground,
             QColor::fromHsl(background.hslHue(), background.hslSaturation(), lightness, 255));
}

void tst_KestColor::foregroundOfGreyIsGrey()
{
    const QColor onWhite = KestColor::generateForegroundColor(Qt::white);
    QCOMPARE(onWhite.lightness(), 45);
    QCOMPARE(onWhite.hslHue(), -1);
    QCOMPARE(onWhite.rgb(), qRgb(45, 45, 45));

    const QColor onBlack = KestColor::generateForegroundColor(Qt::black);
    QCOMPARE(onBlack.lightness(), 210);
    QCOMPARE(onBlack.rgb(), qRgb(210, 210, 210));
}

void tst_KestColor::foregroundIsOpaque()
{
    QCOMPARE(KestColor::generateForegroundColor(QColor(10, 20, 30, 40)).alpha(), 255);
}

void tst_KestColor::lightMeansLuminanceAbove127_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<bool>("light");

    QTest::newRow("grey 127") << QColor(127, 127, 127) << false;
    QTest::newRow("grey 128") << QColor(128, 128, 128) << true;
    QTest::newRow("white") << QColor(Qt::white) << true;
    QTest::newRow("black") << QColor(Qt::black) << false;
    // 0.715 * 177 = 126.555 and 0.715 * 178 = 127.27
    QTest::newRow("green 177") << QColor(0, 177, 0) << false;
    QTest::newRow("green 178") << QColor(0, 178, 0) << true;
    // 0.213 * 255 + 0.715 * 101 = 126.53; blue 6 adds 0.432, blue 7 adds 0.504
    QTest::newRow("blue 6 is too little") << QColor(255, 101, 6) << false;
    QTest::newRow("blue 7 tips it") << QColor(255, 101, 7) << true;
}

void tst_KestColor::lightMeansLuminanceAbove127()
{
    QFETCH(QColor, color);
    QFETCH(bool, light);
    QCOMPARE(isLight(color), light);
}

void tst_KestColor::instanceBelongsToItsParent()
{
    QObject parent;
    const KestColor *color = new KestColor(&parent);
    QCOMPARE(color->parent(), &parent);
}

QTEST_APPLESS_MAIN(tst_KestColor)
#include "tst_kestcolor.moc"
