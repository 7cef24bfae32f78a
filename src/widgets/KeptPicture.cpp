// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KeptPicture.h"

#include <QtCore/QtMath>
#include <QtGui/QImage>
#include <QtGui/QPaintEngine>

namespace {

const int LargestArea = 512 * 512; // device pixels of a picture

// Whether colours are rounded there as in a picture. What Qt rasterises is an image in the end.
bool hasPictureColors(const QPaintDevice *device)
{
    const bool isImage = device->devType() == QInternal::Image;
    const QImage::Format format =
        isImage ? static_cast<const QImage *>(device)->format() : QImage::Format_Invalid;
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
    return !size.isEmpty() && area <= LargestArea ? ratio : 0.0;
}

QPixmap emptyPicture(const QSize &size, qreal ratio)
{
    QPixmap pixmap(qCeil(size.width() * ratio), qCeil(size.height() * ratio));
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}
