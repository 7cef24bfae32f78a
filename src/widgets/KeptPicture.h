// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KEPTPICTURE_H
#define KEPTPICTURE_H

#include "QtVersions.h"

#include <QtCore/QPointF>
#include <QtCore/QSize>
#include <QtGui/QBrush>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>

#include <tuple>

/*!
    \file
    Parts of a widget that look the same at most of its paints, and are dear to draw.
*/

/*! Returns the device pixels per pixel of \a painter if a picture of \a size that was drawn for
    that ratio comes out of it, at the widget's origin, just as what is drawn there directly; else
    0: where the device has no pixels or other colours, is turned or coarser, where the widget
   begins within a device pixel, and for pictures of more than a megabyte. */
qreal pictureRatio(const QPainter &painter, const QSize &size);

/*! Returns a transparent picture for \a size at \a ratio. Parts of device pixels are rounded up, so
    that it reaches the widget's edges without being stretched. */
QPixmap emptyPicture(const QSize &size, qreal ratio);

/*! Returns whether a part of a look is a brush with a pattern. */
template <class Part>
bool isPattern(const Part &)
{
    return false;
}

inline bool isPattern(const QBrush &brush)
{
    return brush.style() > Qt::SolidPattern && brush.style() < Qt::LinearGradientPattern;
}

/*! A part of a widget as it was drawn last. \a Look is all that its picture depends on. */
template <class... Look>
class KeptPicture
{
public:
    /*! Paints what \a draw paints with a painter. It is asked again for another \a look, size or
        ratio alone. */
    template <class Draw>
    void paint(QPainter *painter, const QSize &size, const std::tuple<Look...> &look,
               const Draw &draw)
    {
        const qreal ratio = pictureRatio(*painter, size);
        if (ratio == 0.0 || (PatternsBeginAtTheDevice && ratio != 1.0 && hasPattern(look))) {
            draw(painter);
            return;
        }
        if (m_pixmap.devicePixelRatioF() != ratio || m_size != size || m_look != look) {
            m_pixmap = emptyPicture(size, ratio);
            m_size = size;
            m_look = look;
            QPainter drawing(&m_pixmap);
            draw(&drawing);
        }
        painter->drawPixmap(QPointF(), m_pixmap);
    }

private:
    static bool hasPattern(const std::tuple<Look...> &look)
    {
        return std::apply([](const auto &...parts) { return (isPattern(parts) || ...); }, look);
    }

    QPixmap m_pixmap;
    QSize m_size; // that of no picture before the first one
    std::tuple<Look...> m_look;
};

#endif // KEPTPICTURE_H
