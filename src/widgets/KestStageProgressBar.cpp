// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestStageProgressBar.h"

#include "KestAccessibleProgress.h"
#include "KestStageProgressBar_p.h"

#include <QtCore/QDebug>
#include <QtCore/QPointer>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionProgressBar>

namespace {

const int MinimumStageCount = 2;

// The outline of circles and connecting bar.
QPainterPath shape(const QVector<QRectF> &stages, const QRectF &bar)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const QRectF &stage : stages)
        path.addEllipse(stage);
    path.addRect(bar);
    return path;
}

} // namespace

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

QStringList KestStageProgressBar::texts() const
{
    return QStringList(d->texts.cbegin(), d->texts.cend());
}

void KestStageProgressBar::setTexts(const QStringList &texts)
{
    if (texts.size() > d->stageCount)
        qDebug("stage out of range");
    for (int i = 0; i < d->stageCount; ++i)
        d->texts[i] = texts.value(i);
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
    // A row's circles and captions are centred together, by the height of the bar's hint.
    const bool isCentredByHint = d->textVisible && d->isHorizontal();
    const qint64 halfRow = isCentredByHint ? minimumSizeHint().height() / 2 : d->stageCircleRadius;
    if (!guard)
        return;

    // What is drawn is the bar as it is now, whatever the overrides do to it meanwhile.
    const QVector<QRectF> stages = d->stageRects(contents, halfRow);
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
