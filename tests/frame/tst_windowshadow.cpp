// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "WindowShadow.h"

#include "DrawingCounter.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QTest>

#include <functional>

namespace {

const QRect Window(0, 0, 400, 300);
const int Reach = 10; // pixels from an edge on that a shadow of eight may take

QVector<qint64> imagesFor(const WindowShadow &shadow, const QRect &part)
{
    DrawingCounter counter;
    QPainter painter(&counter);
    shadow.draw(painter, part);
    return counter.images();
}

int messages = 0;

void countMessage(QtMsgType, const QMessageLogContext &, const QString &)
{
    ++messages;
}

} // namespace

class tst_WindowShadow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shadowIsAlongTheEdgesOnly();
    void noShadowIsNowhere();
    void smallWindowIsAllShadow();
    void onlyThePiecesOfAPartAreDrawn();
    void piecesAreCutFromOneImageThatIsKept();
    void painterIsLeftAsItWas();
    void shadowIsBlack();
    void widestShadowIsOpaque();
    void nothingIsSaidAboutColours();
};

void tst_WindowShadow::shadowIsAlongTheEdgesOnly()
{
    const WindowShadow shadow(Window, 8);
    QVERIFY(shadow.hasInside());
    const QRect inside = Window.adjusted(Reach, Reach, -Reach, -Reach);
    QVERIFY(!shadow.isIn(inside));
    QVERIFY(!shadow.isIn(QRect(200, 150, 1, 1)));
    QVERIFY(shadow.isIn(Window));
    QVERIFY(shadow.isIn(inside.adjusted(-1, 0, 0, 0)));
    QVERIFY(shadow.isIn(inside.adjusted(0, -1, 0, 0)));
    QVERIFY(shadow.isIn(inside.adjusted(0, 0, 1, 0)));
    QVERIFY(shadow.isIn(inside.adjusted(0, 0, 0, 1)));
    QVERIFY(WindowShadow(Window, 1).isIn(Window));
}

void tst_WindowShadow::noShadowIsNowhere()
{
    const WindowShadow shadow(Window, 0);
    QVERIFY(!shadow.isIn(Window));
    QVERIFY(!shadow.isIn(QRect(0, 0, 1, 1)));
    QVERIFY(imagesFor(shadow, Window).isEmpty());
}

void tst_WindowShadow::smallWindowIsAllShadow()
{
    const WindowShadow shadow(QRect(0, 0, 20, 300), 8);
    QVERIFY(!shadow.hasInside());
    QVERIFY(shadow.isIn(QRect(10, 150, 1, 1)));
    QVERIFY(WindowShadow(QRect(0, 0, 21, 21), 8).hasInside());
    QVERIFY(!WindowShadow(QRect(0, 0, 300, 20), 8).hasInside());
}

void tst_WindowShadow::onlyThePiecesOfAPartAreDrawn()
{
    const WindowShadow shadow(Window, 8);
    const auto pieces = [&shadow](const QRect &part) { return imagesFor(shadow, part).size(); };
    QCOMPARE(pieces(QRect(0, 0, Reach, Reach)), 1);
    QCOMPARE(pieces(QRect(0, 0, Reach + 1, Reach + 1)), 3); // not the inside
    // An edge is drawn in pieces of 64 pixels.
    QCOMPARE(pieces(QRect(0, Reach, 400, 64)), 2);
    QCOMPARE(pieces(QRect(0, Reach, 5, 65)), 2);
    QCOMPARE(pieces(QRect(Reach, 290, 64, 10)), 1);
    QCOMPARE(pieces(QRect(Reach, 290, 65, 10)), 2);
    QCOMPARE(pieces(QRect(200, 150, 30, 30)), 0);
}

void tst_WindowShadow::piecesAreCutFromOneImageThatIsKept()
{
    const WindowShadow shadow(Window, 8);
    const QVector<qint64> first = imagesFor(shadow, Window);
    QVERIFY(first.size() > 8);
    QCOMPARE(first.count(first.first()), first.size());
    // In another window, too, whose shadow is as wide.
    QCOMPARE(imagesFor(shadow, Window), first);
    const QVector<qint64> other = imagesFor(WindowShadow(QRect(0, 0, 50, 500), 8), Window);
    QCOMPARE(other.first(), first.first());
    QVERIFY(imagesFor(WindowShadow(Window, 9), Window).first() != first.first());
}

void tst_WindowShadow::painterIsLeftAsItWas()
{
    for (const QSize &size : { QSize(400, 300), QSize(15, 15) }) {
        QImage image(400, 300, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        const QPen pen(Qt::red, 3);
        painter.setPen(pen);
        WindowShadow(QRect(QPoint(), size), 8).draw(painter, Window);
        QCOMPARE(painter.pen(), pen);
        QVERIFY(!painter.testRenderHint(QPainter::Antialiasing));
        // Nor is anything left saved.
        QTest::ignoreMessage(QtWarningMsg, "QPainter::restore: Unbalanced save/restore");
        painter.restore();
    }
}

void tst_WindowShadow::shadowIsBlack()
{
    QImage image(600, 600, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    WindowShadow(image.rect(), 250).draw(painter, image.rect());
    painter.end();
    for (int x = 0; x < 300; ++x)
        QCOMPARE(image.pixelColor(x, 300).rgb(), qRgb(0, 0, 0));
    QVERIFY(qAlpha(image.pixel(249, 300)) > 100);
}

void tst_WindowShadow::widestShadowIsOpaque()
{
    // The innermost outline of this one is two pixels wide, and as dark as outlines become.
    const int width = 7200;
    const QRect window(0, 0, 2 * width + 2, 2 * width + 2);
    const auto drawn = [](const std::function<void(QPainter &)> &draw) {
        QImage image(2, 2, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.translate(-width, -width);
        draw(painter);
        painter.end();
        return image;
    };
    const QImage expected = drawn([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::black);
        painter.drawRect(width, width, 2, 2);
    });
    messages = 0;
    const QtMessageHandler handler = qInstallMessageHandler(countMessage);
    const QImage found = drawn([&window](QPainter &painter) {
        WindowShadow(window, width).draw(painter, QRect(width, width, 2, 2));
    });
    qInstallMessageHandler(handler);
    QCOMPARE(found, expected);
    QCOMPARE(messages, 0);
}

void tst_WindowShadow::nothingIsSaidAboutColours()
{
    messages = 0;
    const QtMessageHandler handler = qInstallMessageHandler(countMessage);
    QImage image(19, 19, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    WindowShadow(image.rect(), 8).draw(painter, image.rect());
    painter.end();
    qInstallMessageHandler(handler);
    QCOMPARE(messages, 0);
}

QTEST_MAIN(tst_WindowShadow)
#include "tst_windowshadow.moc"
