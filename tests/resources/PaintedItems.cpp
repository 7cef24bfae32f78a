// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "PaintedItems.h"

#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QWidget>

namespace {

// Qt moves the texts of headers by an image without a pixel.
bool isEmpty(const QPixmap &pixmap)
{
    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0)
                return false;
        }
    }
    return true;
}

QRectF largestRect(const QRegion &region)
{
    QRect largest;
    for (const QRect &rect : region) {
        if (rect.width() * rect.height() > largest.width() * largest.height())
            largest = rect;
    }
    return largest;
}

class NotingEngine : public QPaintEngine
{
public:
    NotingEngine() : QPaintEngine(QPaintEngine::AllFeatures) { }

    QVector<PaintedItem> items;

    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState &) override { }
    void drawPath(const QPainterPath &) override { }
    void drawPolygon(const QPointF *, int, PolygonDrawMode) override { }
    void drawTiledPixmap(const QRectF &, const QPixmap &, const QPointF &) override { }

    void drawPixmap(const QRectF &rect, const QPixmap &pixmap, const QRectF &) override
    {
        if (!isEmpty(pixmap))
            note({ QString(), QFont(), rect, rect, QColor() });
    }

    void drawTextItem(const QPointF &at, const QTextItem &item) override
    {
        if (item.text().trimmed().isEmpty())
            return;
        const QRectF rect(at.x(), at.y() - item.ascent(), item.width(),
                          item.ascent() + item.descent());
        note({ item.text(), item.font(), rect, rect, painter()->pen().color() });
    }

private:
    // What is clipped away is not there to be read: a text layout paints all of a text, clipped to
    // what is not selected.
    void note(PaintedItem item)
    {
        if (painter()->hasClipping()) {
            QPainterPath whole;
            whole.addRect(item.rect);
            item.rect = painter()->clipPath().intersected(whole).boundingRect();
        }
        item.rect = painter()->deviceTransform().mapRect(item.rect);
        item.whole = painter()->deviceTransform().mapRect(item.whole);
        // The part of the window that the widget may paint on.
        const QRegion room = systemClip();
        if (!room.isEmpty())
            item.rect &= largestRect(room & item.rect.toAlignedRect());
        if (!item.rect.isEmpty())
            items.append(item);
    }
};

class NotingDevice : public QPaintDevice
{
public:
    explicit NotingDevice(const QWidget *window) : m_window(window) { }

    QPaintEngine *paintEngine() const override { return &m_engine; }
    const QVector<PaintedItem> &items() const { return m_engine.items; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return m_window->width();
        case PdmHeight:
            return m_window->height();
        case PdmDpiX:
        case PdmPhysicalDpiX:
            return m_window->logicalDpiX();
        case PdmDpiY:
        case PdmPhysicalDpiY:
            return m_window->logicalDpiY();
        case PdmWidthMM:
            return m_window->widthMM();
        case PdmHeightMM:
            return m_window->heightMM();
        case PdmDevicePixelRatio:
            return 1;
        case PdmDepth:
            return m_window->depth();
        case PdmNumColors:
            return m_window->colorCount();
        default:
            return QPaintDevice::metric(metric);
        }
    }

private:
    const QWidget *m_window;
    mutable NotingEngine m_engine;
};

} // namespace

QVector<PaintedItem> paintedItems(QWidget *window)
{
    NotingDevice device(window);
    window->render(&device);
    return device.items();
}
