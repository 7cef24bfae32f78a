// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestFramelessDelegate_p.h"

#include <QtCore/QPointer>
#include <QtGui/QImage>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QLayout>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>

#include <algorithm>
#include <cmath>

namespace {

const int ShadowStrength = 20; // alpha per halving of the distance to the outermost ring
const int OutlineReach = 2; // pixels that an antialiased outline takes inside of its rectangle
const int MostStrips = 8; // more of them cost more than what lies between them

QMargins layoutMargins(const QWidget *widget)
{
    return widget->layout() ? widget->layout()->contentsMargins() : QMargins();
}

void drawShadow(QPainter &painter, const QRect &window, int width)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QColor color(0, 0, 0);
    for (int i = 0; i < width; ++i) {
        const int inset = width - i;
        QPainterPath path;
        path.setFillRule(Qt::WindingFill);
        path.addRoundedRect(window.adjusted(inset, inset, -inset, -inset), 0.0, 1.0,
                            Qt::AbsoluteSize);
        // The logarithm makes the shadow fade fast next to the window and slowly further out.
        const double alpha = std::log(double(i + 1) / width) / -std::log(2.0) * ShadowStrength;
        color.setAlpha(qMin(int(alpha), 255));
        painter.setPen(color);
        painter.drawPath(path);
    }
    painter.restore();
}

// The shadow of a window so small that only its corners differ from any other's: one pixel of each
// edge lies between them. The last one is kept, since windows mostly have one width and ratio.
const QImage &shadowPatch(int width, int ratio)
{
    static QImage patch;
    static int patchWidth = 0;
    if (width != patchWidth || patch.devicePixelRatio() != ratio) {
        const int side = 2 * (width + OutlineReach) + 1;
        patch = QImage(QSize(side, side) * ratio, QImage::Format_ARGB32_Premultiplied);
        patch.setDevicePixelRatio(ratio);
        patch.fill(Qt::transparent);
        QPainter painter(&patch);
        drawShadow(painter, QRect(0, 0, side, side), width);
        patchWidth = width;
    }
    return patch;
}

// Copies into an image, which shows the pixels of a window from origin on, the shadow of the
// window.
void copyShadow(QImage *image, const QPoint &origin, const QSize &window, const QImage &patch)
{
    const int corner = patch.width() / 2;
    // Where a pixel of the window is in the patch.
    const auto inPatch = [corner, &patch](int position, int extent) {
        if (position < corner)
            return position;
        return qMax(corner, position - (extent - patch.width()));
    };
    const int right = window.width() - corner;
    for (int y = 0; y < image->height(); ++y) {
        const int row = inPatch(origin.y() + y, window.height());
        auto *to = reinterpret_cast<QRgb *>(image->scanLine(y));
        const auto *from = reinterpret_cast<const QRgb *>(patch.constScanLine(row));
        int x = 0;
        for (; x < image->width() && origin.x() + x < corner; ++x)
            to[x] = from[origin.x() + x];
        const int middle = qBound(x, right - origin.x(), image->width());
        std::fill(to + x, to + middle, from[corner]);
        for (x = middle; x < image->width(); ++x)
            to[x] = from[inPatch(origin.x() + x, window.width())];
    }
}

} // namespace

void KestFramelessDelegate::paintEvent(QPaintEvent *event)
{
    QWidget *const widget = d->widget;
    QPainter painter(widget);
    // The window may be painted on something else than its screen, at another ratio.
    const qreal scale = painter.deviceTransform().m11();
    const qreal ratio = scale > 0 ? scale : widget->devicePixelRatioF();

    // Only what shows is drawn. Where pixels of the device are shared by what lies next to each
    // other, that is one part, whose corner is a multiple of four pixels: at all usual ratios these
    // are whole device pixels, so that a part comes out as it would in the whole.
    QRegion parts = event->region() & widget->rect();
    if (ratio != std::floor(ratio)) {
        const QRect dirty = parts.boundingRect();
        parts = QRect(QPoint(dirty.left() & ~3, dirty.top() & ~3), dirty.bottomRight());
    } else if (parts.rectCount() > MostStrips) {
        parts = parts.boundingRect();
    }

    const int shadow = d->shadowWidth;
    const QRect inside = widget->rect().adjusted(shadow, shadow, -shadow, -shadow);
    painter.fillRect(inside.marginsRemoved(layoutMargins(widget)),
                     widget->palette().brush(QPalette::Window));
    for (const QRect &part : parts) {
        // The style may be the host's, and do what it likes.
        const QPointer<KestFramelessDelegate> guard(this);
        const QImage frame = frameImage(part, ratio);
        if (!guard)
            return;
        painter.drawImage(part.topLeft(), frame);
    }
}

// The shadow, and inside of it what the style draws for the window, cut out at part.
QImage KestFramelessDelegate::frameImage(const QRect &part, qreal ratio)
{
    QWidget *const widget = d->widget;
    const QSizeF size = QSizeF(part.size()) * ratio;
    QImage image(QSize(int(std::ceil(size.width())), int(std::ceil(size.height()))),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);

    QStyleOption option;
    option.initFrom(widget);
    if (d->isNormal()) {
        const QMargins margins = layoutMargins(widget);
        const int inner =
            qMax(qMax(margins.left(), margins.top()), qMax(margins.right(), margins.bottom()));
        const int shadow = d->shadowWidth;
        paintShadow(&image, part.topLeft(), inner + shadow);
        option.rect = widget->rect().adjusted(shadow, shadow, -shadow, -shadow);
    } else {
        image.fill(Qt::transparent);
    }
    QPainter painter(&image);
    painter.translate(-part.topLeft());
    widget->style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, widget);
    return image;
}

// Fills an image, which shows the window from origin on, with the shadow alone.
void KestFramelessDelegate::paintShadow(QImage *image, const QPoint &origin, int width)
{
    const QRect window = d->widget->rect();
    const qreal ratio = image->devicePixelRatioF();
    const QRect shown(origin, image->size() / ratio);
    const int reach = width + OutlineReach;
    const QRect unreached = window.adjusted(reach, reach, -reach, -reach);
    if (width == 0 || d->shadowless || (unreached.isValid() && unreached.contains(shown))) {
        image->fill(Qt::transparent);
    } else if (unreached.isValid() && ratio == int(ratio)) {
        copyShadow(image, origin * ratio, window.size() * ratio, shadowPatch(width, int(ratio)));
    } else {
        image->fill(Qt::transparent);
        QPainter painter(image);
        painter.translate(-origin);
        drawShadow(painter, window, width);
    }
}
