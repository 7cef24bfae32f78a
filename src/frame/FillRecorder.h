// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef FILLRECORDER_H
#define FILLRECORDER_H

#include <QtCore/QRect>
#include <QtCore/QVector>
#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtGui/QPaintEngine>

/*! Some pixels in an opaque colour. */
struct Fill
{
    QRect rect;
    QColor color;

    bool operator==(const Fill &other) const { return rect == other.rect && color == other.color; }
};

/*!
    \brief Notes what is drawn on it, as long as that is no more than opaque rectangles of pixels.

    Such a drawing has the same result wherever it is drawn, and in whatever order with what lies
    below it.
*/
class FillRecorder : public QImage
{
public:
    FillRecorder() : QImage(1, 1, Format_ARGB32_Premultiplied) { }

    QPaintEngine *paintEngine() const override { return &m_engine; }
    /*! Returns whether fills() is all that was drawn. */
    bool isComplete() const { return m_engine.complete; }
    /*! Returns what was drawn, in its order. */
    QVector<Fill> fills() const { return m_engine.fills; }

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
        void drawRects(const QRectF *rects, int count) override;
        // All else comes down to these.
        using QPaintEngine::drawPolygon;
        void drawPath(const QPainterPath &) override { complete = false; }
        void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override
        {
            complete = false;
        }
        void drawPolygon(const QPointF *, int, PolygonDrawMode) override { complete = false; }
        void drawTextItem(const QPointF &, const QTextItem &) override { complete = false; }

        QVector<Fill> fills;
        bool complete = true;
    };
    mutable Engine m_engine;
};

#endif // FILLRECORDER_H
