// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// How large a stage progress bar is, and where its circles, captions and connecting bar are.

#include "KestStageProgressBar_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

const int CaptionGap = 10; // pixels between a vertical bar's circles and captions
const int CaptionSpacing = 10; // pixels between the captions of a horizontal bar
// The longest side of a hint: what a style adds to it still is a number.
const qint64 LongestSide = std::numeric_limits<int>::max() - (1 << 20);

int sideOf(qint64 length)
{
    return int(qBound(-LongestSide, length, LongestSide));
}

} // namespace

// Measuring is a large part of painting and laying out, and captions seldom change.
const QVector<KestStageProgressBarPrivate::Measure> &KestStageProgressBarPrivate::measures() const
{
    const QFontMetrics metrics = q->fontMetrics();
    if (knownMeasures.isEmpty() || measuredIn != metrics) {
        knownMeasures.clear();
        for (const QString &text : texts)
            knownMeasures.append({ metrics.size(0, text), metrics.boundingRect(text).width() });
        measuredIn = metrics;
    }
    return knownMeasures;
}

// How far the first or last caption sticks out beside its circle.
qint64 KestStageProgressBarPrivate::captionPadding() const
{
    const qint64 r = stageCircleRadius;
    const qint64 first = measures().constFirst().inkWidth / 2 - r;
    const qint64 last = measures().constLast().inkWidth / 2 - r;
    return std::max({ qint64(0), first, last });
}

// Captions that are not shown take no room.
int KestStageProgressBarPrivate::captionHeight(const Measure &measure) const
{
    return textVisible ? measure.size.height() : 0;
}

QSize KestStageProgressBarPrivate::contentsSize() const
{
    return { sideOf(contentsWidth()), sideOf(contentsHeight()) };
}

// Circles with three radii of bar between them make a row of 5rn - 3r; the hint is one radius
// shorter, shared out to whole pixels per step.
qint64 KestStageProgressBarPrivate::contentsWidth() const
{
    const qint64 r = stageCircleRadius;
    const qint64 n = stageCount;
    if (!isHorizontal()) {
        int widest = 0;
        for (const Measure &caption : measures())
            widest = qMax(widest, caption.size.width());
        return textVisible ? widest + 2 * r + CaptionGap : 2 * r;
    }

    const qint64 perStage = (5 * r * n - 4 * r) / n;
    if (!textVisible)
        return perStage * n;
    qint64 widest = 0;
    for (const Measure &caption : measures())
        widest = qMax(widest, qint64(caption.inkWidth));
    return (n - 2) * qMax(widest + CaptionSpacing, perStage) + 2 * captionPadding()
        + CaptionSpacing;
}

qint64 KestStageProgressBarPrivate::contentsHeight() const
{
    const qint64 r = stageCircleRadius;
    const qint64 n = stageCount;
    const QFontMetrics metrics = q->fontMetrics();
    if (isHorizontal())
        return textVisible ? 2 * r + metrics.height() + metrics.leading() : 2 * r;

    qint64 highest = 0;
    for (const Measure &caption : measures())
        highest = qMax(highest, qint64(captionHeight(caption)));
    const qint64 leading = metrics.leading();
    const qint64 perStage = qMax((4 * r * n - 3 * r) / n, highest + 2 * leading);
    return n * perStage + qMax(qint64(0), captionHeight(measures().constFirst()) - r);
}

// The rectangles of the circles in the rectangle that the style leaves them, of a row those that
// begin halfRow above its middle.
QVector<QRectF> KestStageProgressBarPrivate::stageRects(const QRect &contents, qint64 halfRow) const
{
    const qint64 r = stageCircleRadius;
    qreal left = contents.left();
    qreal top = contents.top();
    // From the first circle to the last: what they, or captions instead, stick out is taken off.
    qreal length = (isHorizontal() ? contents.width() : contents.height()) - r;
    if (isHorizontal()) {
        const qint64 padding = textVisible ? captionPadding() : 0;
        left += padding;
        top += contents.height() / 2 - halfRow; // whole pixels
        length -= r + 2 * padding;
    } else if (textVisible) {
        length -= qMax(qint64(captionHeight(measures().constFirst())), r);
    } else {
        left += contents.width() / 2 - r; // whole pixels
        length -= r;
    }

    QVector<QRectF> rects;
    rects.reserve(stageCount);
    const qreal gaps = stageCount - 1;
    for (int i = 0; i < stageCount; ++i) {
        // A column with captions has its first step at the bottom: they are a ladder to climb.
        const int place = !isHorizontal() && textVisible ? stageCount - 1 - i : i;
        const qreal way = place * length / gaps;
        rects.append(QRectF(isHorizontal() ? left + way : left, isHorizontal() ? top : top + way,
                            2.0 * r, 2.0 * r));
    }
    return rects;
}

QVector<QRectF> KestStageProgressBarPrivate::textRects(const QVector<QRectF> &stages) const
{
    const int leading = q->fontMetrics().leading();
    QVector<QRectF> rects;
    rects.reserve(stageCount);
    for (int i = 0; i < stageCount; ++i) {
        const QRectF &stage = stages.at(i);
        const QSizeF text = measures().at(i).size;
        if (isHorizontal()) {
            const qreal half = std::trunc(text.width() / 2); // whole pixels
            rects.append(QRectF(QPointF(stage.left() + stage.width() * 0.5 - half,
                                        stage.top() + stage.height() + leading),
                                text));
        } else {
            rects.append(QRectF(stage.left() + stage.width() + CaptionGap, stage.top(),
                                text.width(), qMax(stage.height(), text.height())));
        }
    }
    return rects;
}

// Joins the centres of the first and the last circle. The ends are whole pixels, so that the bar's
// long edges are crisp. A vertical bar without captions runs from its first step downwards, and
// its ends come out in reverse: the rectangle has negative extents, which the winding fill paints
// all the same.
QRectF KestStageProgressBarPrivate::barRect(const QPointF &first, const QPointF &last) const
{
    const qreal half = stageCircleRadius / 4; // whole pixels
    const qreal sideways = textVisible ? half : -half;
    const qreal left = std::trunc(isHorizontal() ? first.x() : first.x() - sideways);
    const qreal right = std::trunc(isHorizontal() ? last.x() : first.x() + sideways);
    const qreal top = std::trunc(isHorizontal() ? first.y() - half : last.y());
    const qreal bottom = std::trunc(isHorizontal() ? first.y() + half : first.y());
    return { left, top, right - left + 1, bottom - top + 1 };
}

// The share is that of the maximum alone: the steps stand for amounts counted from 0, wherever the
// range begins. There is no share of a maximum of 0.
QRectF KestStageProgressBarPrivate::completedPart(const QRectF &whole) const
{
    const qreal share = maximum == 0 ? 0.0 : qMax(0.0, qreal(value) / maximum);
    QRectF part = whole;
    if (isHorizontal())
        part.setWidth(whole.width() * share);
    else
        part.setTop(whole.bottom() - whole.height() * share);
    return part;
}
