// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestFramelessDelegate_p.h"

#include "FillRecorder.h"
#include "WindowShadow.h"

#include <QtCore/QPointer>
#include <QtGui/QImage>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QLayout>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QStyleOption>

#include <algorithm>
#include <cmath>
#include <memory>
#include <typeindex>

namespace {

const int MostStrips = 8; // more of them cost more than what lies between them

QMargins layoutMargins(const QWidget *widget)
{
    return widget->layout() ? widget->layout()->contentsMargins() : QMargins();
}

bool isWhole(qreal value)
{
    return value == std::floor(value);
}

// Qt's own style draws nothing for plain widgets; one that is derived from it may.
bool isPlainStyle(const QStyle &style)
{
    static const std::type_index fusion = [] {
        const std::unique_ptr<QStyle> made(QStyleFactory::create(QStringLiteral("Fusion")));
        const QStyle *const known = made.get();
        return std::type_index(known ? typeid(*known) : typeid(void));
    }();
    return fusion == typeid(style);
}

// Whether a pixel of a window is so many whole ones of the device, drawn as they are: then it is
// all the same which of them are drawn together.
bool drawsWholePixels(const QPainter &painter)
{
    const QTransform &transform = painter.deviceTransform();
    return transform.type() <= QTransform::TxScale && transform.m11() >= 1
        && transform.m11() == transform.m22() && isWhole(transform.m11()) && isWhole(transform.dx())
        && isWhole(transform.dy())
        && painter.compositionMode() == QPainter::CompositionMode_SourceOver;
}

void fillBackground(QPainter &painter, const QRect &rect, const QBrush &brush)
{
    // The same, without what it takes to prepare a brush.
    if (brush.style() == Qt::SolidPattern)
        painter.fillRect(rect, brush.color());
    else
        painter.fillRect(rect, brush);
}

} // namespace

// How deep the shadow is: it lies over the widest of the layout's margins, too.
int KestFramelessDelegatePrivate::shadowDepth(const QMargins &margins) const
{
    if (shadowless || !isNormal())
        return 0;
    return shadowWidth
        + std::max({ margins.left(), margins.top(), margins.right(), margins.bottom() });
}

// What the style is to draw the window by.
QStyleOption KestFramelessDelegatePrivate::frameOption() const
{
    QStyleOption option;
    option.initFrom(widget);
    if (isNormal())
        option.rect.adjust(shadowWidth, shadowWidth, -shadowWidth, -shadowWidth);
    return option;
}

void KestFramelessDelegate::paintEvent(QPaintEvent *event)
{
    QWidget *const widget = d->widget;
    const QMargins margins = layoutMargins(widget);
    const WindowShadow shadow(widget->rect(), d->shadowDepth(margins));
    const bool shadowed = shadow.isIn(event->rect());

    QPainter painter(widget);
    QVector<Fill> fills;
    bool isFilled = true; // and nothing else
    if (!isPlainStyle(*widget->style())) {
        // It may be the host's, and do what it likes.
        const QPointer<KestFramelessDelegate> guard(this);
        FillRecorder recorder;
        drawStyled(&recorder, d->frameOption(), QPoint());
        if (!guard)
            return;
        fills = recorder.fills();
        isFilled = recorder.isComplete();
    }
    // What is made of whole pixels needs no image to come out as if drawn by way of one.
    const bool isDirect = isFilled
        && ((fills.isEmpty() && !shadowed)
            || ((shadow.hasInside() || !shadowed) && drawsWholePixels(painter)));

    const int width = d->shadowWidth;
    const QRect background =
        widget->rect().adjusted(width, width, -width, -width).marginsRemoved(margins);
    const QBrush &brush = widget->palette().brush(QPalette::Window);
    if (!isDirect) {
        painter.fillRect(background, brush);
        paintByImages(painter, event->region() & widget->rect());
        return;
    }
    const auto covers = [&background](const Fill &fill) { return fill.rect.contains(background); };
    const bool isCovered = std::any_of(fills.cbegin(), fills.cend(), covers);
    const auto paintPart = [&](const QRect &part) {
        if (!isCovered)
            fillBackground(painter, background, brush);
        shadow.draw(painter, part);
        for (const Fill &fill : qAsConst(fills))
            painter.fillRect(fill.rect, fill.color);
    };
    // A rectangle at a time is faster than what has to be cut out pixel by pixel, but not where
    // rectangles share pixels.
    const int parts = event->region().rectCount();
    if (parts == 1 || parts > MostStrips || !drawsWholePixels(painter)) {
        paintPart(event->rect());
        return;
    }
    for (const QRect &part : event->region()) {
        painter.save();
        painter.setClipRect(part, Qt::IntersectClip);
        paintPart(part);
        painter.restore();
    }
}

// Paints shadow and style by way of images, since styles may compose as they like.
void KestFramelessDelegate::paintByImages(QPainter &painter, const QRegion &shown)
{
    // The window may be painted on something else than its screen, at another ratio.
    const qreal scale = painter.deviceTransform().m11();
    const qreal ratio = scale > 0 ? scale : d->widget->devicePixelRatioF();

    // Only what shows is drawn. Where pixels of the device are shared by what lies next to each
    // other, that is one part, whose corner is a multiple of four pixels: at all usual ratios these
    // are whole device pixels, so that a part comes out as it would in the whole.
    QRegion parts = shown;
    if (!isWhole(ratio)) {
        const QRect dirty = parts.boundingRect();
        parts = QRect(QPoint(dirty.left() & ~3, dirty.top() & ~3), dirty.bottomRight());
    } else if (parts.rectCount() > MostStrips) {
        parts = parts.boundingRect();
    }
    for (const QRect &part : parts) {
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
    const QSizeF size = QSizeF(part.size()) * ratio;
    QImage image(QSize(int(std::ceil(size.width())), int(std::ceil(size.height()))),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    const WindowShadow shadow(d->widget->rect(), d->shadowDepth(layoutMargins(d->widget)));
    if (shadow.isIn(part)) {
        QPainter painter(&image);
        painter.translate(-part.topLeft());
        shadow.draw(painter, part);
    }
    drawStyled(&image, d->frameOption(), part.topLeft());
    return image;
}

// Has the style draw the window on what shows it from origin on.
void KestFramelessDelegate::drawStyled(QPaintDevice *device, const QStyleOption &option,
                                       const QPoint &origin)
{
    QPainter painter(device);
    painter.translate(-origin);
    d->widget->style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, d->widget);
}

bool KestFramelessDelegate::changesWithHover()
{
    if (isPlainStyle(*d->widget->style()))
        return false;
    const QPointer<KestFramelessDelegate> guard(this);
    QStyleOption option = d->frameOption();
    FillRecorder with;
    option.state |= QStyle::State_MouseOver;
    drawStyled(&with, option, QPoint());
    if (!guard)
        return true;
    FillRecorder without;
    option.state &= ~QStyle::State_MouseOver;
    drawStyled(&without, option, QPoint());
    return !with.isComplete() || !without.isComplete() || with.fills() != without.fills();
}
