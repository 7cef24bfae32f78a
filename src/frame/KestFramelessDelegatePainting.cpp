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

#include <cmath>

namespace {

const int ShadowStrength = 20; // alpha per halving of the distance to the outermost ring

QMargins layoutMargins(const QWidget *widget)
{
    return widget->layout() ? widget->layout()->contentsMargins() : QMargins();
}

} // namespace

void KestFramelessDelegate::paintEvent(QPaintEvent *event)
{
    QWidget *const widget = d->widget;
    QPainter painter(widget);
    // The window may be painted on something else than its screen, at another ratio.
    const qreal scale = painter.deviceTransform().m11();
    const qreal ratio = scale > 0 ? scale : widget->devicePixelRatioF();

    // Only what is to be painted is drawn. Corners at multiples of four pixels are whole device
    // pixels at all usual ratios, so that a part comes out as it would in the whole.
    const QRect dirty = event->rect() & widget->rect();
    const QRect part(QPoint(dirty.left() & ~3, dirty.top() & ~3), dirty.bottomRight());
    const int shadow = d->shadowWidth;
    const QRect inside = widget->rect().adjusted(shadow, shadow, -shadow, -shadow);

    // The style may be the host's, and do what it likes.
    const QPointer<KestFramelessDelegate> guard(this);
    const QImage frame = frameImage(part, ratio);
    if (!guard)
        return;
    painter.fillRect(inside.marginsRemoved(layoutMargins(widget)),
                     widget->palette().brush(QPalette::Window));
    painter.drawImage(part.topLeft(), frame);
}

// The shadow, and inside of it what the style draws for the window, cut out at part.
QImage KestFramelessDelegate::frameImage(const QRect &part, qreal ratio)
{
    QWidget *const widget = d->widget;
    const QSizeF size = QSizeF(part.size()) * ratio;
    QImage image(QSize(int(std::ceil(size.width())), int(std::ceil(size.height()))),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);

    QStyleOption option;
    option.initFrom(widget);
    QPainter painter(&image);
    painter.translate(-part.topLeft());
    if (d->isNormal()) {
        const QMargins margins = layoutMargins(widget);
        const int inner =
            qMax(qMax(margins.left(), margins.top()), qMax(margins.right(), margins.bottom()));
        const int shadow = d->shadowWidth;
        paintShadow(painter, inner + shadow);
        option.rect = widget->rect().adjusted(shadow, shadow, -shadow, -shadow);
    }
    painter.end();
    painter.begin(&image);
    painter.translate(-part.topLeft());
    widget->style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, widget);
    return image;
}

void KestFramelessDelegate::paintShadow(QPainter &painter, int width)
{
    if (width == 0 || d->shadowless)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QColor color(0, 0, 0);
    for (int i = 0; i < width; ++i) {
        const int inset = width - i;
        QPainterPath path;
        path.setFillRule(Qt::WindingFill);
        path.addRoundedRect(d->widget->rect().adjusted(inset, inset, -inset, -inset), 0.0, 1.0,
                            Qt::AbsoluteSize);
        // The logarithm makes the shadow fade fast next to the window and slowly further out.
        const double alpha = std::log(double(i + 1) / width) / -std::log(2.0) * ShadowStrength;
        color.setAlpha(qMin(int(alpha), 255));
        painter.setPen(color);
        painter.drawPath(path);
    }
    painter.restore();
}
