// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestStageProgressBar.h"

#include "KestAccessibleProgress.h"

#include <QtCore/QDebug>
#include <QtCore/QVector>
#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionProgressBar>

#include <algorithm>

namespace {

const int MinimumStageCount = 2;
const int CaptionGap = 10; // pixels between a vertical bar's circles and captions
const int CaptionSpacing = 10; // pixels between the captions of a horizontal bar

} // namespace

struct KestStageProgressBarPrivate
{
    explicit KestStageProgressBarPrivate(KestStageProgressBar *bar) : q(bar) { }

    KestStageProgressBar *const q;
    int stageCount = 5;
    Qt::Orientation orientation = Qt::Horizontal;
    int minimum = 0;
    int maximum = 99;
    int value = 0;
    bool textVisible = false;
    int stageCircleRadius = 10;
    QVector<QString> texts = QVector<QString>(stageCount);
    QPen stageIndexTextPen = QPen(Qt::white);
    QBrush rateBackground = QColor(0x35, 0x80, 0xCE);

    bool isHorizontal() const { return orientation == Qt::Horizontal; }
    int captionWidth(const QString &text) const;
    int captionPadding() const;
    int captionHeight(const QString &text) const;
    QSize contentsSize() const;
    int contentsWidth() const;
    int contentsHeight() const;
    QRect contentsRect() const;
    QRectF doStageRect(int index) const;
    QRectF doTextRect(int index) const;
    QRectF barRect() const;
    QPainterPath shape() const;
    QRectF completedPart(const QRectF &whole) const;
};

int KestStageProgressBarPrivate::captionWidth(const QString &text) const
{
    return q->fontMetrics().boundingRect(text).width();
}

// How far the first or last caption sticks out beside its circle.
int KestStageProgressBarPrivate::captionPadding() const
{
    const int first = captionWidth(texts.constFirst()) / 2 - stageCircleRadius;
    const int last = captionWidth(texts.constLast()) / 2 - stageCircleRadius;
    return std::max({ 0, first, last });
}

// Captions that are not shown take no room.
int KestStageProgressBarPrivate::captionHeight(const QString &text) const
{
    return textVisible ? q->fontMetrics().size(0, text).height() : 0;
}

QSize KestStageProgressBarPrivate::contentsSize() const
{
    return { contentsWidth(), contentsHeight() };
}

// Circles with three radii of bar between them make a row of 5rn - 3r; the hint is one radius
// shorter, shared out to whole pixels per step.
int KestStageProgressBarPrivate::contentsWidth() const
{
    const int r = stageCircleRadius;
    const int n = stageCount;
    if (!isHorizontal()) {
        int widest = 0;
        for (const QString &text : texts)
            widest = qMax(widest, q->fontMetrics().size(0, text).width());
        return textVisible ? widest + 2 * r + CaptionGap : 2 * r;
    }

    const int perStage = (5 * r * n - 4 * r) / n;
    if (!textVisible)
        return perStage * n;
    int widest = 0;
    for (const QString &text : texts)
        widest = qMax(widest, captionWidth(text));
    return (n - 2) * qMax(widest + CaptionSpacing, perStage) + 2 * captionPadding()
        + CaptionSpacing;
}

int KestStageProgressBarPrivate::contentsHeight() const
{
    const int r = stageCircleRadius;
    const int n = stageCount;
    const QFontMetrics metrics = q->fontMetrics();
    if (isHorizontal())
        return textVisible ? 2 * r + metrics.height() + metrics.leading() : 2 * r;

    int highest = 0;
    for (const QString &text : texts)
        highest = qMax(highest, captionHeight(text));
    const int perStage = qMax((4 * r * n - 3 * r) / n, highest + 2 * metrics.leading());
    return n * perStage + qMax(0, captionHeight(texts.constFirst()) - r);
}

QRect KestStageProgressBarPrivate::contentsRect() const
{
    QStyleOptionProgressBar option;
    q->initStyleOption(&option);
    return q->style()->subElementRect(QStyle::SE_ProgressBarContents, &option, q);
}

QRectF KestStageProgressBarPrivate::doStageRect(int index) const
{
    const QRect contents = contentsRect();
    const int r = stageCircleRadius;
    const qreal gaps = stageCount - 1;
    qreal left = contents.left();
    qreal top = contents.top();
    if (isHorizontal()) {
        const int padding = textVisible ? captionPadding() : 0;
        const int above = textVisible ? q->minimumSizeHint().height() / 2 : r;
        left += padding + index * (contents.width() - 2 * r - 2 * padding) / gaps;
        const int offset = contents.height() / 2 - above; // whole pixels
        top += offset;
    } else if (textVisible) {
        // The first step is at the bottom here: captions are read as a ladder to climb.
        const int firstHeight = captionHeight(texts.constFirst());
        top += (stageCount - 1 - index) * (contents.height() - qMax(firstHeight, r) - r) / gaps;
    } else {
        const int offset = contents.width() / 2 - r; // whole pixels
        left += offset;
        top += index * (contents.height() - 2 * r) / gaps;
    }
    return { left, top, 2.0 * r, 2.0 * r };
}

QRectF KestStageProgressBarPrivate::doTextRect(int index) const
{
    const QFontMetrics metrics = q->fontMetrics();
    const QSize text = metrics.size(0, texts.at(index));
    const QRectF stage = doStageRect(index);
    if (isHorizontal()) {
        const int half = text.width() / 2; // whole pixels
        return { stage.left() + stage.width() * 0.5 - half,
                 stage.top() + stage.height() + metrics.leading(), qreal(text.width()),
                 qreal(text.height()) };
    }
    return { stage.left() + stage.width() + CaptionGap, stage.top(), qreal(text.width()),
             qreal(qMax(2 * stageCircleRadius, text.height())) };
}

// The ends are whole pixels, so that the bar's long edges are crisp. A vertical bar without
// captions runs from its first step downwards, and its ends come out in reverse: the rectangle has
// negative extents, which the winding fill paints all the same.
QRectF KestStageProgressBarPrivate::barRect() const
{
    const int half = stageCircleRadius / 4;
    const QPointF first = doStageRect(0).center();
    const QPointF last = doStageRect(stageCount - 1).center();
    if (isHorizontal()) {
        return QRect(QPoint(int(first.x()), int(first.y() - half)),
                     QPoint(int(last.x()), int(first.y() + half)));
    }
    const int sideways = textVisible ? half : -half;
    return QRect(QPoint(int(first.x() - sideways), int(last.y())),
                 QPoint(int(first.x() + sideways), int(first.y())));
}

QPainterPath KestStageProgressBarPrivate::shape() const
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (int i = 0; i < stageCount; ++i)
        path.addEllipse(doStageRect(i));
    path.addRect(barRect());
    return path;
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

KestStageProgressBar::KestStageProgressBar(QWidget *parent)
    : QWidget(parent), d(new KestStageProgressBarPrivate(this))
{
    KestAccessibleProgress::install();
    adjustSize();
}

KestStageProgressBar::~KestStageProgressBar()
{
    delete d;
}

int KestStageProgressBar::stageCount() const
{
    return d->stageCount;
}

void KestStageProgressBar::setStageCount(int count)
{
    if (count < MinimumStageCount) {
        qDebug("stage count must be greater than or equal to 2");
        return;
    }
    if (count == d->stageCount)
        return;
    d->stageCount = count;
    d->texts.resize(count);
    updateGeometry();
}

int KestStageProgressBar::stageCircleRadius() const
{
    return d->stageCircleRadius;
}

void KestStageProgressBar::setStageCircleRadius(int radius)
{
    if (radius == d->stageCircleRadius)
        return;
    d->stageCircleRadius = radius;
    updateGeometry();
}

QString KestStageProgressBar::text(int index) const
{
    if (index >= d->stageCount)
        qDebug("stage out of range");
    return d->texts.value(index);
}

void KestStageProgressBar::setText(int index, const QString &text)
{
    if (index >= d->stageCount)
        qDebug("stage out of range");
    if (index < 0 || index >= d->stageCount)
        return;
    d->texts[index] = text;
    updateGeometry();
}

bool KestStageProgressBar::textVisible() const
{
    return d->textVisible;
}

Qt::Orientation KestStageProgressBar::orientation() const
{
    return d->orientation;
}

int KestStageProgressBar::minimum() const
{
    return d->minimum;
}

int KestStageProgressBar::maximum() const
{
    return d->maximum;
}

int KestStageProgressBar::value() const
{
    return d->value;
}

QPen KestStageProgressBar::stageIndexTextPen() const
{
    return d->stageIndexTextPen;
}

void KestStageProgressBar::setStageIndexTextPen(const QPen &pen)
{
    d->stageIndexTextPen = pen;
    update();
}

QBrush KestStageProgressBar::rateBackground() const
{
    return d->rateBackground;
}

void KestStageProgressBar::setRateBackground(const QBrush &brush)
{
    d->rateBackground = brush;
    update();
}

QSize KestStageProgressBar::sizeHint() const
{
    return minimumSizeHint();
}

QSize KestStageProgressBar::minimumSizeHint() const
{
    ensurePolished();
    QStyleOptionProgressBar option;
    initStyleOption(&option);
    return style()->sizeFromContents(QStyle::CT_ProgressBar, &option, d->contentsSize(), this);
}

void KestStageProgressBar::setOrientation(Qt::Orientation orientation)
{
    if (orientation == d->orientation)
        return;
    d->orientation = orientation;
    if (d->isHorizontal())
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    else
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    adjustSize();
    updateGeometry();
}

void KestStageProgressBar::setValue(int value)
{
    if (value == d->value || value < d->minimum || value > d->maximum)
        return;
    d->value = value;
    Q_EMIT valueChanged(value);
    KestAccessibleProgress::announceValue(this, value);
    repaint();
}

void KestStageProgressBar::setRange(int minimum, int maximum)
{
    if (minimum == d->minimum && maximum == d->maximum)
        return;
    d->minimum = minimum;
    d->maximum = qMax(minimum, maximum);
    // The nearer end is in the range and differs from the value: setValue() takes it.
    setValue(qBound(d->minimum, d->value, d->maximum));
    update();
}

void KestStageProgressBar::setTextVisible(bool flag)
{
    if (flag == d->textVisible)
        return;
    d->textVisible = flag;
    updateGeometry();
}

void KestStageProgressBar::setMaximum(int maximum)
{
    setRange(qMin(d->minimum, maximum), maximum);
}

void KestStageProgressBar::setMinimum(int min)
{
    setRange(min, qMax(d->maximum, min));
}

void KestStageProgressBar::drawStage(QPainter *painter, int index, const QRectF &rect, int) const
{
    painter->save();
    painter->setPen(d->stageIndexTextPen);
    painter->drawText(rect, Qt::AlignCenter, QString::number(index + 1));
    painter->restore();
}

void KestStageProgressBar::drawText(QPainter *painter, int, const QRectF &rect,
                                    const QString &text) const
{
    const int alignment =
        d->isHorizontal() ? int(Qt::AlignCenter) : int(Qt::AlignLeft | Qt::AlignVCenter);
    painter->save();
    painter->setPen(palette().windowText().color());
    painter->drawText(rect, alignment, text);
    painter->restore();
}

void KestStageProgressBar::initStyleOption(QStyleOptionProgressBar *option) const
{
    option->initFrom(this);
    if (d->isHorizontal())
        option->state |= QStyle::State_Horizontal;
    option->minimum = d->minimum;
    option->maximum = d->maximum;
    option->progress = d->value;
    option->textAlignment = Qt::AlignCenter;
    option->textVisible = d->textVisible;
}

void KestStageProgressBar::paintEvent(QPaintEvent *)
{
    const QPainterPath shape = d->shape();
    const QRectF completed = d->completedPart(shape.boundingRect());

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(shape, palette().window());

    painter.save();
    painter.setClipRect(completed);
    painter.fillPath(shape, d->rateBackground);
    painter.restore();

    for (int i = 0; i < d->stageCount; ++i) {
        drawStage(&painter, i, d->doStageRect(i), d->value);
        if (d->textVisible)
            drawText(&painter, i, d->doTextRect(i), d->texts.at(i));
    }
}
