// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestStageProgressBar.h"

#include "KeptPicture.h"
#include "KestAccessibleProgress.h"

#include <QtCore/QDebug>
#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <QtGui/QFontMetrics>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionProgressBar>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

const int MinimumStageCount = 2;
const int CaptionGap = 10; // pixels between a vertical bar's circles and captions
const int CaptionSpacing = 10; // pixels between the captions of a horizontal bar
// The longest side of a hint: what a style adds to it still is a number.
const qint64 LongestSide = std::numeric_limits<int>::max() - (1 << 20);

int sideOf(qint64 length)
{
    return int(qBound(-LongestSide, length, LongestSide));
}

// How large a caption is in the bar's font.
struct Measure
{
    QSize size;
    int inkWidth;
};

} // namespace

// Radii and numbers of steps are the host's, so that everything that is made of them is wider than
// an int.
class KestStageProgressBarPrivate
{
public:
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
    // Each of the captions, by the metrics of the font; empty until asked for.
    mutable QVector<Measure> knownMeasures;
    mutable QFontMetrics measuredIn = QFontMetrics(QFont());
    // The bar without and with all of its progress, by circles, connecting bar and brush.
    KeptPicture<QVector<QRectF>, QRectF, QBrush> restPicture;
    KeptPicture<QVector<QRectF>, QRectF, QBrush> donePicture;

    bool isHorizontal() const { return orientation == Qt::Horizontal; }
    const QVector<Measure> &measures() const;
    qint64 captionPadding() const;
    int captionHeight(const Measure &measure) const;
    QSize contentsSize() const;
    qint64 contentsWidth() const;
    qint64 contentsHeight() const;
    QVector<QRectF> stageRects(const QRect &contents, int hintHeight) const;
    QVector<QRectF> textRects(const QVector<QRectF> &stages) const;
    QRectF barRect(const QPointF &first, const QPointF &last) const;
    QPainterPath shape(const QVector<QRectF> &stages, const QRectF &bar) const;
    void fill(QPainter *painter, const QVector<QRectF> &stages);
    QRectF completedPart(const QRectF &whole) const;
};

// Measuring is a large part of painting and laying out, and captions seldom change.
const QVector<Measure> &KestStageProgressBarPrivate::measures() const
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

// The rectangles of the circles in the rectangle that the style leaves them. The height of the
// bar's hint centres circles and captions together.
QVector<QRectF> KestStageProgressBarPrivate::stageRects(const QRect &contents, int hintHeight) const
{
    const qint64 r = stageCircleRadius;
    qreal left = contents.left();
    qreal top = contents.top();
    qreal length = 0; // from the first circle to the last
    if (isHorizontal()) {
        const qint64 padding = textVisible ? captionPadding() : 0;
        left += padding;
        top += contents.height() / 2 - (textVisible ? hintHeight / 2 : r); // whole pixels
        length = contents.width() - 2 * r - 2 * padding;
    } else if (textVisible) {
        length = contents.height() - qMax(qint64(captionHeight(measures().constFirst())), r) - r;
    } else {
        left += contents.width() / 2 - r; // whole pixels
        length = contents.height() - 2 * r;
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

QPainterPath KestStageProgressBarPrivate::shape(const QVector<QRectF> &stages,
                                                const QRectF &bar) const
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const QRectF &stage : stages)
        path.addEllipse(stage);
    path.addRect(bar);
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

// The bar, and over it as much of the progress as there is.
void KestStageProgressBarPrivate::fill(QPainter *painter, const QVector<QRectF> &stages)
{
    const QRectF bar = barRect(stages.constFirst().center(), stages.constLast().center());
    const QPainterPath path = shape(stages, bar);
    const auto fillWith = [&](KeptPicture<QVector<QRectF>, QRectF, QBrush> *picture,
                              const QBrush &brush) {
        picture->paint(painter, q->size(), { stages, bar, brush }, [&](QPainter *drawing) {
            drawing->setRenderHint(QPainter::Antialiasing);
            drawing->fillPath(path, brush);
        });
    };
    fillWith(&restPicture, q->palette().window());
    painter->save();
    painter->setClipRect(completedPart(path.boundingRect()));
    fillWith(&donePicture, rateBackground);
    painter->restore();
}

KestStageProgressBar::KestStageProgressBar(QWidget *parent)
    : QWidget(parent), d(new KestStageProgressBarPrivate(this))
{
    KestAccessibleProgress::install();
    // Fonts that come and go may change what a font's name stands for.
    connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, this,
            [this] { d->knownMeasures.clear(); });
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
    d->knownMeasures.clear();
    update();
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
    update();
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
    d->knownMeasures.clear();
    update();
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
    const QPointer<const KestStageProgressBar> guard(this);
    ensurePolished();
    QStyleOptionProgressBar option;
    if (guard)
        initStyleOption(&option);
    if (!guard)
        return QSize();
    return style()->sizeFromContents(QStyle::CT_ProgressBar, &option, d->contentsSize(), this);
}

void KestStageProgressBar::setOrientation(Qt::Orientation orientation)
{
    if (orientation == d->orientation)
        return;
    d->orientation = orientation;
    update();
    const QPointer<KestStageProgressBar> guard(this);
    if (d->isHorizontal())
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    else
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    if (guard)
        adjustSize();
    if (guard)
        updateGeometry();
}

void KestStageProgressBar::setValue(int value)
{
    if (value == d->value || value < d->minimum || value > d->maximum)
        return;
    d->value = value;
    const QPointer<KestStageProgressBar> guard(this);
    Q_EMIT valueChanged(value);
    // A slot may have set another value, which was announced then.
    if (guard && d->value == value)
        KestAccessibleProgress::announceValue(this, value);
    if (guard)
        repaint();
}

void KestStageProgressBar::setRange(int minimum, int maximum)
{
    if (minimum == d->minimum && maximum == d->maximum)
        return;
    d->minimum = minimum;
    d->maximum = qMax(minimum, maximum);
    // The nearer end is in the range and differs from the value: setValue() takes it.
    const QPointer<KestStageProgressBar> guard(this);
    setValue(qBound(d->minimum, d->value, d->maximum));
    if (guard)
        update();
}

void KestStageProgressBar::setTextVisible(bool flag)
{
    if (flag == d->textVisible)
        return;
    d->textVisible = flag;
    update();
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
    const QPointer<const KestStageProgressBar> guard(this);
    QStyleOptionProgressBar option;
    initStyleOption(&option);
    if (!guard)
        return;
    const QRect contents = style()->subElementRect(QStyle::SE_ProgressBarContents, &option, this);
    if (!guard)
        return;
    const int hintHeight = d->textVisible && d->isHorizontal() ? minimumSizeHint().height() : 0;
    if (!guard)
        return;

    // What is drawn is the bar as it is now, whatever the overrides do to it meanwhile.
    const QVector<QRectF> stages = d->stageRects(contents, hintHeight);
    const bool textVisible = d->textVisible;
    const QVector<QString> texts = d->texts;
    const QVector<QRectF> captions = textVisible ? d->textRects(stages) : QVector<QRectF>();
    const int value = d->value;

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    d->fill(&painter, stages);

    for (int i = 0; i < stages.size() && guard; ++i) {
        drawStage(&painter, i, stages.at(i), value);
        if (textVisible && guard)
            drawText(&painter, i, captions.at(i), texts.at(i));
    }
}
