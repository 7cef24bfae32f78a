// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KeptPicture.h"

#include "Rendering.h"

#include <QtCore/QBuffer>
#include <QtGui/QPdfWriter>
#include <QtGui/QPicture>
#include <QtTest/QTest>

namespace {

const QSize Size(40, 20);

// Something that counts how often it is drawn.
class Disc
{
public:
    void paint(QPainter *painter, const QSize &size, const QColor &color, int inset)
    {
        m_picture.paint(painter, size, { color, inset }, [&](QPainter *drawing) {
            ++count;
            drawing->setRenderHint(QPainter::Antialiasing);
            drawing->setPen(Qt::NoPen);
            drawing->setBrush(color);
            drawing->drawEllipse(QRect(QPoint(), size).adjusted(inset, inset, -inset, -inset));
        });
    }

    void paint(QPainter *painter) { paint(painter, Size, Qt::red, 2); }

    int count = 0;

private:
    KeptPicture<QColor, int> m_picture;
};

int countOf(Disc *disc, const Surface &surface)
{
    const int before = disc->count;
    QImage image = surface.image;
    QPainter painter(&image);
    painter.setTransform(surface.transform);
    disc->paint(&painter);
    return disc->count - before;
}

// How often a part with the brush is drawn for two paints at the ratio.
int timesDrawn(const QBrush &brush, qreal ratio)
{
    int count = 0;
    KeptPicture<QBrush> picture;
    QImage image = canvas(Size, ratio);
    QPainter painter(&image);
    for (int i = 0; i < 2; ++i)
        picture.paint(&painter, Size, { brush }, [&count](QPainter *) { ++count; });
    return count;
}

// Whether Qt begins a pattern at the corner of a fine device, and not where what it fills begins.
bool beginsAtTheDevice(const QBrush &brush)
{
    const auto moved = [](const auto &draw) {
        QImage image = canvas(Size, 2.0);
        QPainter painter(&image);
        painter.translate(3.5, 6); // by what no pattern repeats at
        draw(&painter);
        return image;
    };
    QPixmap picture = emptyPicture(Size, 2.0);
    QPainter(&picture).fillRect(QRect(QPoint(), Size), brush);
    return moved([&](QPainter *painter) { painter->fillRect(QRect(QPoint(), Size), brush); })
        != moved([&](QPainter *painter) { painter->drawPixmap(0, 0, picture); });
}

} // namespace

class tst_KeptPicture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameLookIsDrawnOnce();
    void everyChangeIsDrawnOnce();
    void otherPlacesAreDrawnDirectly_data();
    void otherPlacesAreDrawnDirectly();
    void patternsAreKeptWhereQtBeginsThemAtThePicture();
    void vectorsStayVectors();
    void picturesAreSmall_data();
    void picturesAreSmall();
    void partsOfPixelsAreRoundedUp();
};

void tst_KeptPicture::sameLookIsDrawnOnce()
{
    Disc disc;
    QImage first = canvas(Size, 1.5);
    QImage second = canvas(Size, 1.5);
    QPainter once(&first);
    QPainter again(&second);
    disc.paint(&once);
    disc.paint(&again);
    QCOMPARE(disc.count, 1);
    QCOMPARE(second, first);
    QVERIFY(first != canvas(Size, 1.5));
}

void tst_KeptPicture::everyChangeIsDrawnOnce()
{
    Disc disc;
    QImage image = canvas(Size, 1.0);
    QImage fine = canvas(Size, 2.0);
    QPainter painter(&image);
    QPainter finePainter(&fine);
    const auto twice = [&disc](QPainter *on, const QSize &size, const QColor &color, int inset) {
        const int before = disc.count;
        disc.paint(on, size, color, inset);
        disc.paint(on, size, color, inset);
        return disc.count - before;
    };
    QCOMPARE(twice(&painter, Size, Qt::red, 2), 1);
    QCOMPARE(twice(&painter, Size, Qt::blue, 2), 1);
    QCOMPARE(twice(&painter, Size, Qt::blue, 3), 1);
    QCOMPARE(twice(&painter, QSize(41, 20), Qt::blue, 3), 1);
    QCOMPARE(twice(&painter, QSize(41, 21), Qt::blue, 3), 1);
    QCOMPARE(twice(&finePainter, QSize(41, 21), Qt::blue, 3), 1);
    // The last one alone is kept.
    QCOMPARE(twice(&painter, Size, Qt::red, 2), 1);
}

void tst_KeptPicture::otherPlacesAreDrawnDirectly_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("kept");
    const QByteArrayList kept { "plain", "moved", "three to one", "moved on a fine one", "opaque" };
    const QVector<Surface> all = surfaces();
    for (const Surface &surface : all)
        QTest::newRow(surface.name) << surface.name << kept.contains(surface.name);
}

void tst_KeptPicture::otherPlacesAreDrawnDirectly()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, kept);
    const QVector<Surface> all = surfaces();
    for (const Surface &surface : all) {
        if (surface.name != name)
            continue;
        Disc disc;
        QCOMPARE(countOf(&disc, surface), 1);
        QCOMPARE(countOf(&disc, surface), kept ? 0 : 1);
        // What is drawn directly leaves the kept one alone.
        const Surface &plain = all.first();
        Disc other;
        QCOMPARE(countOf(&other, plain), 1);
        countOf(&other, surface);
        if (!kept)
            QCOMPARE(countOf(&other, plain), 0);
    }
}

void tst_KeptPicture::patternsAreKeptWhereQtBeginsThemAtThePicture()
{
    for (int style = Qt::NoBrush; style <= Qt::DiagCrossPattern; ++style) {
        const QBrush brush(Qt::red, Qt::BrushStyle(style));
        QCOMPARE(timesDrawn(brush, 1.0), 1);
        QCOMPARE(timesDrawn(brush, 2.0), beginsAtTheDevice(brush) ? 2 : 1);
    }
    for (const QGradient &gradient : { QGradient(QLinearGradient()), QGradient(QRadialGradient()),
                                       QGradient(QConicalGradient()) })
        QCOMPARE(timesDrawn(QBrush(gradient), 2.0), 1);
}

void tst_KeptPicture::vectorsStayVectors()
{
    Disc disc;
    QPicture commands;
    QPainter painter(&commands);
    disc.paint(&painter);
    disc.paint(&painter);
    QCOMPARE(disc.count, 2);
    painter.end();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter pages(&buffer);
    painter.begin(&pages);
    disc.paint(&painter);
    disc.paint(&painter);
    painter.end();
    QCOMPARE(disc.count, 4);
    QCOMPARE(pictureRatio(QPainter(), Size), 0.0);
}

void tst_KeptPicture::picturesAreSmall_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<bool>("kept");
    QTest::newRow("a megabyte") << QSize(512, 512) << 1.0 << true;
    QTest::newRow("more") << QSize(513, 512) << 1.0 << false;
    QTest::newRow("long") << QSize(2048, 128) << 1.0 << true;
    QTest::newRow("a megabyte, fine") << QSize(256, 256) << 2.0 << true;
    QTest::newRow("more, fine") << QSize(256, 257) << 2.0 << false;
    QTest::newRow("no width") << QSize(0, 20) << 1.0 << false;
    QTest::newRow("no height") << QSize(20, 0) << 1.0 << false;
    QTest::newRow("a pixel") << QSize(1, 1) << 1.0 << true;
    QTest::newRow("turned inside out") << QSize(-20, 20) << 1.0 << false;
    QTest::newRow("turned inside out twice") << QSize(-20, -20) << 1.0 << false;
}

void tst_KeptPicture::picturesAreSmall()
{
    QFETCH(QSize, size);
    QFETCH(qreal, ratio);
    QFETCH(bool, kept);
    QImage image = canvas(QSize(10, 10), ratio);
    const QPainter painter(&image);
    QCOMPARE(pictureRatio(painter, size), kept ? ratio : 0.0);
}

void tst_KeptPicture::partsOfPixelsAreRoundedUp()
{
    const QPixmap picture = emptyPicture(QSize(41, 21), 1.5);
    QCOMPARE(picture.size(), QSize(62, 32));
    QCOMPARE(picture.devicePixelRatio(), 1.5);
    QCOMPARE(picture.toImage().pixel(61, 31), qRgba(0, 0, 0, 0));
}

QTEST_MAIN(tst_KeptPicture)

#include "tst_keptpicture.moc"
