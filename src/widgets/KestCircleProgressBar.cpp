// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestCircleProgressBar.h"

#include "KeptPicture.h"
#include "KestAccessibleProgress.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>
#include <QtCore/QVariantAnimation>
#include <QtGui/QPainter>
#include <QtGui/QShowEvent>
#include <QtGui/QTextOption>
#include <QtGui/QWindow>

namespace {

// Angles are sixteenths of a degree, from three o'clock, and negative ones run clockwise.
const int FullTurn = 360 * 16;
const int TwelveOClock = -270 * 16;
const int BusySpan = -270 * 16; // the busy arc at its longest
const int GlideMs = 100;
const int BusyTurnMs = 2000;
// A value far out of its range, which shows no arc anyway, turns no further than what can still be
// added to and subtracted from other angles.
const double FarthestAngle = 1 << 29;

} // namespace

class KestCircleProgressBarPrivate
{
public:
    int minimum = 0;
    int maximum = 100;
    int value = 24;
    bool textVisible = true;
    QString format = QStringLiteral("%p%");
    QVariantAnimation spanAnimation; // the arc's span; while busy, the angle of its middle
    QVariantAnimation busyAnimation; // the busy arc's span
    int barWidth = 10;
    QBrush barBrush = QColor(0x32, 0x6C, 0xF3);
    QBrush backgroundBrush = QColor(0xEE, 0xEE, 0xEE);
    Qt::PenCapStyle penCapStyle = Qt::FlatCap;
    KeptPicture<int, QBrush> ring; // the background, by the bar's width and its brush
    bool onScreen = false;
    QMetaObject::Connection restored; // of a minimised window, while the ring is shown in it
    QElapsedTimer lastStep; // when the animations were last told the time
    qint64 caughtUp = 0; // ms from then on that they were told off the screen

    KestCircleProgressBarPrivate();
    bool hasValueInRange() const;
    double fraction() const;
    int span() const;
    void retarget();
    void startTowardsTarget();
    void noteStep();
    void hold();
    void catchUp();
    void resume();
    QRectF arcRect(const QSize &size) const;
    void paintRing(QPainter *painter, const QSize &size);
};

KestCircleProgressBarPrivate::KestCircleProgressBarPrivate()
{
    spanAnimation.setStartValue(span());
    spanAnimation.setEndValue(span());

    busyAnimation.setStartValue(BusySpan);
    busyAnimation.setKeyValueAt(0.5, 0);
    busyAnimation.setEndValue(BusySpan);
    busyAnimation.setDuration(BusyTurnMs);
    busyAnimation.setLoopCount(-1);
}

bool KestCircleProgressBarPrivate::hasValueInRange() const
{
    return value >= minimum && value <= maximum;
}

// How much of the range is done: 1 is all of it.
double KestCircleProgressBarPrivate::fraction() const
{
    if (maximum == minimum)
        return 1.0;
    return (double(value) - minimum) / (double(maximum) - minimum);
}

int KestCircleProgressBarPrivate::span() const
{
    return int(qBound(-FarthestAngle, fraction() * -FullTurn, FarthestAngle));
}

void KestCircleProgressBarPrivate::retarget()
{
    catchUp();
    startTowardsTarget();
    noteStep();
    if (!onScreen)
        hold();
}

// The glide starts from the last target, not from where the arc is: start() leaves a running
// animation alone, so that quick changes follow one another within one glide.
void KestCircleProgressBarPrivate::startTowardsTarget()
{
    if (minimum == 0 && maximum == 0) {
        spanAnimation.setStartValue(FullTurn);
        spanAnimation.setEndValue(-FullTurn);
        spanAnimation.setDuration(BusyTurnMs);
        spanAnimation.start();
        spanAnimation.setLoopCount(-1);
        busyAnimation.start();
        return;
    }

    busyAnimation.stop();
    spanAnimation.setDuration(GlideMs);
    spanAnimation.setStartValue(spanAnimation.endValue());
    spanAnimation.setEndValue(span());
    spanAnimation.setLoopCount(1);
    spanAnimation.start();
}

// The animations have a timer only as long as their steps can be seen. Where they can not, they are
// paused, and told what time has passed whenever somebody looks or sets a value.
void KestCircleProgressBarPrivate::noteStep()
{
    lastStep.start();
    caughtUp = 0;
}

void KestCircleProgressBarPrivate::hold()
{
    for (QVariantAnimation *animation : { &spanAnimation, &busyAnimation }) {
        if (animation->state() == QAbstractAnimation::Running)
            animation->pause();
    }
}

void KestCircleProgressBarPrivate::catchUp()
{
    // The busy animation is only held along with the other one.
    if (spanAnimation.state() != QAbstractAnimation::Paused)
        return;
    const qint64 elapsed = lastStep.elapsed();
    for (QVariantAnimation *animation : { &spanAnimation, &busyAnimation }) {
        if (animation->state() != QAbstractAnimation::Paused)
            continue;
        qint64 time = animation->currentTime() + elapsed - caughtUp;
        // Any number of whole turns shows the same, and is longer than a glide.
        time = qMin(time, BusyTurnMs + time % BusyTurnMs);
        const QSignalBlocker blocker(animation); // what looks at it paints it
        animation->setCurrentTime(int(time));
    }
    caughtUp = elapsed;
}

void KestCircleProgressBarPrivate::resume()
{
    for (QVariantAnimation *animation : { &spanAnimation, &busyAnimation }) {
        if (animation->state() == QAbstractAnimation::Paused)
            animation->resume();
    }
}

// The middle of the ring's stroke: the stroke touches the edges of the centred square.
QRectF KestCircleProgressBarPrivate::arcRect(const QSize &size) const
{
    const int side = qMin(size.width(), size.height());
    const qreal half = barWidth * 0.5;
    const int left = (size.width() - side) / 2; // whole pixels
    const int top = (size.height() - side) / 2;
    return { left + half, top + half, qreal(side) - barWidth, qreal(side) - barWidth };
}

// Stroking all of the ring is most of a paint, and it seldom changes. Lines of one pixel are no
// outlines to fill but dots, which overlap: they come out otherwise by way of a picture.
void KestCircleProgressBarPrivate::paintRing(QPainter *painter, const QSize &size)
{
    const auto draw = [this, &size](QPainter *drawing) {
        drawing->setRenderHint(QPainter::Antialiasing);
        drawing->setPen(QPen(backgroundBrush, barWidth));
        drawing->drawArc(arcRect(size), 0, FullTurn);
    };
    if (barWidth > 1)
        ring.paint(painter, size, { barWidth, backgroundBrush }, draw);
    else
        draw(painter);
}

KestCircleProgressBar::KestCircleProgressBar(QWidget *parent)
    : QWidget(parent), d(new KestCircleProgressBarPrivate)
{
    KestAccessibleProgress::install();
    connect(&d->spanAnimation, &QVariantAnimation::valueChanged, this, [this] {
        d->noteStep();
        update();
    });
}

KestCircleProgressBar::~KestCircleProgressBar()
{
    delete d;
}

int KestCircleProgressBar::value() const
{
    return d->value;
}

int KestCircleProgressBar::minimum() const
{
    return d->minimum;
}

int KestCircleProgressBar::maximum() const
{
    return d->maximum;
}

QString KestCircleProgressBar::format() const
{
    return d->format;
}

void KestCircleProgressBar::setFormat(const QString &format)
{
    d->format = format;
    update();
}

bool KestCircleProgressBar::isTextVisible() const
{
    return d->textVisible;
}

void KestCircleProgressBar::setTextVisible(bool visible)
{
    d->textVisible = visible;
    update();
}

QString KestCircleProgressBar::text() const
{
    if (!d->hasValueInRange())
        return QString();

    const int percent = int(d->fraction() * 100.0);
    const qint64 steps = qint64(d->maximum) - d->minimum;
    QString text = d->format;
    text.replace(QLatin1String("%p"), QString::number(percent));
    text.replace(QLatin1String("%v"), QString::number(d->value));
    text.replace(QLatin1String("%m"), QString::number(steps));
    return text;
}

Qt::PenCapStyle KestCircleProgressBar::penCapStyle() const
{
    return d->penCapStyle;
}

int KestCircleProgressBar::barWidth() const
{
    return d->barWidth;
}

QBrush KestCircleProgressBar::barBrush() const
{
    return d->barBrush;
}

QBrush KestCircleProgressBar::backgroundBrush() const
{
    return d->backgroundBrush;
}

QSize KestCircleProgressBar::sizeHint() const
{
    return { 100, 100 };
}

QSize KestCircleProgressBar::minimumSizeHint() const
{
    return { 40, 40 };
}

void KestCircleProgressBar::setValue(int value)
{
    if (value == d->value)
        return;
    d->value = value;
    const QPointer<KestCircleProgressBar> guard(this);
    Q_EMIT valueChanged(value);
    // A slot may have set another value, which was announced then.
    if (guard && d->value == value)
        KestAccessibleProgress::announceValue(this, value);
    if (guard)
        d->retarget();
}

void KestCircleProgressBar::setMaximum(int maximum)
{
    setRange(d->minimum, maximum);
}

void KestCircleProgressBar::setMinimum(int minimum)
{
    setRange(minimum, d->maximum);
}

void KestCircleProgressBar::setRange(int minimum, int maximum)
{
    if (minimum == d->minimum && maximum == d->maximum)
        return;
    d->minimum = minimum;
    d->maximum = maximum;
    d->retarget();
}

void KestCircleProgressBar::setPenCapStyle(Qt::PenCapStyle style)
{
    d->penCapStyle = style;
    update();
}

void KestCircleProgressBar::setBarWidth(int width)
{
    d->barWidth = width;
    update();
}

void KestCircleProgressBar::setBarBrush(const QBrush &brush)
{
    d->barBrush = brush;
    update();
}

void KestCircleProgressBar::setBackgroundBrush(const QBrush &brush)
{
    d->backgroundBrush = brush;
    update();
}

void KestCircleProgressBar::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    d->onScreen = !window()->isMinimized();
    // A window may be exposed before it says that it is restored, and its children are not told
    // again then.
    disconnect(d->restored);
    if (const QWindow *handle = d->onScreen ? nullptr : window()->windowHandle()) {
        d->restored = connect(handle, &QWindow::windowStateChanged, this, [this](auto state) {
            d->onScreen = state != Qt::WindowMinimized;
            update();
        });
    }
    update(); // which resumes
}

void KestCircleProgressBar::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    disconnect(d->restored);
    d->onScreen = false;
    d->hold();
}

void KestCircleProgressBar::paintEvent(QPaintEvent *)
{
    d->catchUp();
    if (d->onScreen)
        d->resume();

    const QRectF rect = d->arcRect(size());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    d->paintRing(&painter, size());

    // A maximum of 0 alone draws the busy arc, though only a range of 0 to 0 sets it in motion.
    if (d->maximum == 0) {
        const int span = d->busyAnimation.currentValue().toInt();
        const int middle = d->spanAnimation.currentValue().toInt();
        painter.setPen(QPen(d->barBrush.color(), d->barWidth, Qt::SolidLine, d->penCapStyle));
        painter.drawArc(rect, middle - span / 2, span);
        return;
    }

    if (!d->hasValueInRange())
        return;
    painter.setPen(QPen(d->barBrush, d->barWidth, Qt::SolidLine, d->penCapStyle));
    painter.drawArc(rect, TwelveOClock, d->spanAnimation.currentValue().toInt());
    if (d->textVisible) {
        painter.setPen(d->barBrush.color());
        painter.drawText(rect, text(), QTextOption(Qt::AlignCenter));
    }
}
