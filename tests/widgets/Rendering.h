// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef RENDERING_H
#define RENDERING_H

#include "KestStyleSheet.h"

#include <QtCore/QAnimationDriver>
#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QtMath>
#include <QtGui/QFontDatabase>
#include <QtGui/QFontMetrics>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QWidget>

#include <memory>
#include <utility>

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
            for (const qreal ratio : { 1.0, 1.25, 1.5, 2.0 }) {
                QTest::addRow("%s%s at %.2f", style, sheet ? " with the default sheet" : "", ratio)
                    << QString::fromLatin1(style) << sheet << ratio;
            }
        }
    }
}

/*! A place that a widget is painted at. */
struct Surface
{
    QByteArray name;
    QImage image; // as it is before
    QTransform transform;

    /*! Returns the image with what \a widget paints there. */
    QImage painted(QWidget *widget) const
    {
        QImage result = image;
        QPainter painter(&result);
        painter.setTransform(transform);
        widget->render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
        return result;
    }
};

/*! Returns places where what is kept of a widget must not show: other than whole device pixels,
    turned, mirrored, stretched, other colours. */
inline QVector<Surface> surfaces()
{
    const auto surface = [](const char *name, qreal ratio, const QTransform &transform,
                            QImage::Format format = QImage::Format_ARGB32_Premultiplied) {
        QImage image = canvas(QSize(360, 360), ratio).convertToFormat(format);
        image.fill(QColor(250, 240, 200));
        return Surface { name, image, transform };
    };
    QTransform turned;
    turned.translate(100, 20);
    turned.rotate(30);
    QTransform enlarged = turned;
    enlarged.scale(2, 2);
    return {
        surface("plain", 1.0, QTransform()),
        surface("moved", 1.0, QTransform::fromTranslate(7, 3)),
        surface("moved by parts", 1.0, QTransform::fromTranslate(7.5, 3.25)),
        surface("moved in a row", 1.0, QTransform::fromTranslate(7.5, 3)),
        surface("moved in a column", 1.0, QTransform::fromTranslate(7, 3.5)),
        surface("within a device pixel", 1.5, QTransform::fromTranslate(1, 1)),
        surface("three to one", 1.0, QTransform::fromScale(3, 3)),
        surface("one to two", 1.0, QTransform::fromScale(0.5, 0.5)),
        surface("stretched", 1.0, QTransform::fromScale(1, 2)),
        surface("mirrored", 1.0, QTransform(-1, 0, 0, 1, 300, 0)),
        surface("turned", 1.0, turned),
        surface("turned and enlarged", 1.0, enlarged),
        surface("moved on a fine one", 2.0, QTransform::fromTranslate(5, 2)),
        surface("few colours", 1.0, QTransform(), QImage::Format_RGB16),
        surface("many colours", 1.0, QTransform(), QImage::Format_RGBA64_Premultiplied),
        surface("ten bits", 1.0, QTransform(), QImage::Format_RGB30),
        surface("opaque", 1.0, QTransform(), QImage::Format_RGB32),
        surface("other order", 1.0, QTransform(), QImage::Format_RGBA8888_Premultiplied),
        surface("not multiplied", 1.0, QTransform(), QImage::Format_ARGB32),
    };
}

/*! Paints what \a Paint, a function of a painter, does. */
template <class Paint>
class Drawing : public QWidget
{
public:
    Drawing(const QSize &size, Paint paint) : m_paint(std::move(paint)) { resize(size); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        m_paint(&painter);
    }

private:
    const Paint m_paint;
};

/*! Returns a font that, standing in for the font \a unknown, measures otherwise than what stands in
    for it now. */
inline QString otherFamily(const QString &unknown)
{
    const auto width = [](const QString &family) {
        return QFontMetrics(QFont(family, 12)).horizontalAdvance(QStringLiteral("iMW"));
    };
    const QStringList families = QFontDatabase().families(QFontDatabase::Latin);
    for (const QString &family : families) {
        const QString probe = unknown + family;
        QFont::insertSubstitution(probe, family);
        if (width(probe) != width(unknown))
            return family;
    }
    return QString();
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
