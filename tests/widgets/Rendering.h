// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef RENDERING_H
#define RENDERING_H

#include "KestStyleSheet.h"

#include <QtCore/QAnimationDriver>
#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QtMath>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QWidget>

#include <memory>

/*! Returns a white image of \a size device-independent pixels at \a ratio. */
inline QImage canvas(const QSize &size, qreal ratio)
{
    const qreal MeterPerInch = 0.0254;
    QImage image(qCeil(size.width() * ratio), qCeil(size.height() * ratio),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    // Fonts come out as large as on the screen.
    const QScreen *screen = QGuiApplication::primaryScreen();
    image.setDotsPerMeterX(qRound(screen->logicalDotsPerInchX() / MeterPerInch));
    image.setDotsPerMeterY(qRound(screen->logicalDotsPerInchY() / MeterPerInch));
    image.fill(Qt::white);
    return image;
}

/*! Returns what \a widget paints itself, without its window's background, at \a ratio. */
inline QImage rendered(QWidget *widget, qreal ratio = 1.0)
{
    QImage image = canvas(widget->size(), ratio);
    widget->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

/*! Returns the largest difference of a colour component between \a a and \a b, which have the
    same size; 256 where they have not. */
inline int largestDifference(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return 256;
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            largest = qMax(largest, qAbs(qRed(p) - qRed(q)));
            largest = qMax(largest, qAbs(qGreen(p) - qGreen(q)));
            largest = qMax(largest, qAbs(qBlue(p) - qBlue(q)));
        }
    }
    return largest;
}

/*! Adds the columns style, sheet and ratio, and a row for each combination that pictures are
    compared in. */
inline void addRenderingRows()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<bool>("sheet");
    QTest::addColumn<qreal>("ratio");
    for (const char *style : { "Fusion", "Windows" }) {
        for (const bool sheet : { false, true }) {
            for (const qreal ratio : { 1.0, 1.5, 2.0 }) {
                QTest::addRow("%s%s at %.1f", style, sheet ? " with the default sheet" : "", ratio)
                    << QString::fromLatin1(style) << sheet << ratio;
            }
        }
    }
}

/*! Dresses a widget in a row's style and sheet, as long as it lives. */
class Dress
{
public:
    Dress(QWidget *widget, const QString &style, bool sheet)
        : m_widget(widget), m_style(QStyleFactory::create(style))
    {
        widget->setStyle(m_style.get());
        if (sheet)
            widget->setStyleSheet(KestStyleSheet::defaultStyleSheet());
        widget->ensurePolished();
    }

    ~Dress()
    {
        m_widget->setStyleSheet(QString());
        m_widget->setStyle(nullptr);
    }

    Dress(const Dress &) = delete;
    Dress &operator=(const Dress &) = delete;

private:
    QWidget *m_widget;
    std::unique_ptr<QStyle> m_style;
};

/*! Drives the animations instead of the computer's clock. Time stands still between calls of
    advanceBy(). */
class AnimationClock : public QAnimationDriver
{
    Q_OBJECT

public:
    AnimationClock()
    {
        settle();
        install();
    }

    ~AnimationClock() override
    {
        settle();
        uninstall();
    }

    qint64 elapsed() const override { return m_now; }

    void advanceBy(int ms)
    {
        settle();
        if (!isRunning())
            return; // there is nothing to drive, and advance() would start the clock
        m_now += ms;
        advance();
        settle();
    }

protected:
    // Time is counted from the start of the first of the animations that run.
    void start() override
    {
        m_now = 0;
        QAnimationDriver::start();
    }

private:
    // Animations join the clock and leave it by calls that are posted, each of which posts another.
    static void settle()
    {
        for (int i = 0; i < 4; ++i)
            QCoreApplication::processEvents();
    }

    qint64 m_now = 0;
};

/*! Counts the paint events of a widget. */
class PaintCounter : public QObject
{
    Q_OBJECT

public:
    explicit PaintCounter(QWidget *widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int count = 0;
};

#endif // RENDERING_H
