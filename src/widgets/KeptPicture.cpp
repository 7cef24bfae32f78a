// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KeptPicture.h"

#include <QtCore/QtMath>
#include <QtGui/QImage>
#include <QtGui/QPaintEngine>

namespace {

const int LargestArea = 512 * 512; // device pixels of a picture

// Whether colours are rounded there as in a picture.
bool hasPictureColors(const QPaintDevice *device)
{
    if (device->devType() != QInternal::Image)
        return device->depth() == 32;
    const QImage::Format format = static_cast<const QImage *>(device)->format();
    return format == QImage::Format_RGB32 || format == QImage::Format_ARGB32_Premultiplied;
}

} // namespace

qreal pictureRatio(const QPainter &painter, const QSize &size)
{
    const QPaintEngine *engine = painter.paintEngine();
    if (!engine || engine->type() != QPaintEngine::Raster
        || !hasPictureColors(engine->paintDevice()))
        return 0.0;
    const QTransform &transform = painter.deviceTransform();
    const qreal ratio = transform.m11();
    if (transform.type() > QTransform::TxScale || ratio < 1.0 || transform.m22() != ratio)
        return 0.0;
    if (transform.dx() != std::floor(transform.dx())
        || transform.dy() != std::floor(transform.dy()))
        return 0.0;
    const qreal area = size.width() * ratio * size.height() * ratio;
    return area > 0.0 && area <= LargestArea ? ratio : 0.0;
}

QPixmap emptyPicture(const QSize &size, qreal ratio)
{
    QPixmap pixmap(qCeil(size.width() * ratio), qCeil(size.height() * ratio));
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}
