// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef DRAWINGCOUNTER_H
#define DRAWINGCOUNTER_H

#include <QtCore/QVector>
#include <QtGui/QImage>
#include <QtGui/QPaintDevice>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>

/*! Counts what is drawn on it: the result may look the same whatever it took. */
class DrawingCounter : public QPaintDevice
{
public:
    QPaintEngine *paintEngine() const override { return &m_engine; }

    /*! Returns the rectangles that were filled. */
    int rects() const { return m_engine.rects; }
    /*! Returns how many of them were clipped by who drew them. */
    int clippedRects() const { return m_engine.clippedRects; }
    /*! Returns the keys of the images that were drawn, in their order. */
    QVector<qint64> images() const { return m_engine.images; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
        case PdmHeight:
            return 1000;
        case PdmDepth:
            return 32;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        default:
            return QPaintDevice::metric(metric);
        }
    }

private:
    class Engine : public QPaintEngine
    {
    public:
        Engine() : QPaintEngine(AllFeatures) { }

        bool begin(QPaintDevice *) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState &) override { }
        Type type() const override { return User; }
        using QPaintEngine::drawRects;
        void drawRects(const QRectF *, int count) override
        {
            rects += count;
            clippedRects += painter()->hasClipping() ? count : 0;
        }
        using QPaintEngine::drawPolygon;
        void drawPolygon(const QPointF *, int, PolygonDrawMode) override { }
        void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override { }
        void drawImage(const QRectF &, const QImage &image, const QRectF &,
                       Qt::ImageConversionFlags) override
        {
            images.append(image.cacheKey());
        }

        int rects = 0;
        int clippedRects = 0;
        QVector<qint64> images;
    };
    mutable Engine m_engine;
};

#endif // DRAWINGCOUNTER_H
