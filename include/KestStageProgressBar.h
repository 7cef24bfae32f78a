// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTSTAGEPROGRESSBAR_H
#define KESTSTAGEPROGRESSBAR_H

#include "KestGlobal.h"

#include <QtCore/QStringList>
#include <QtGui/QBrush>
#include <QtGui/QPen>
#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QStyleOptionProgressBar;
QT_END_NAMESPACE

class KestStageProgressBarPrivate;

/*!
    \class KestStageProgressBar
    \brief Progress through a fixed number of numbered steps.

    How does a wizard, an order or an installation show which of its steps are behind the user?

    \code
    auto *steps = new KestStageProgressBar(this);
    steps->setStageCount(3);
    steps->setText(0, tr("Cart"));
    steps->setText(1, tr("Address"));
    steps->setText(2, tr("Payment"));
    steps->setTextVisible(true);
    steps->setRange(0, 2);
    steps->setValue(1); // half of the row is highlighted
    \endcode

    Each step is a circle with its number, and a bar joins them. The completed part, value() /
    maximum() of the whole shape, is painted in rateBackground(), the rest in the palette's window
    brush. Progress is continuous: half the value highlights half the shape, not whole circles.

    A horizontal bar runs from left to right, in right-to-left layouts too. A vertical bar is filled
    from the bottom; with captions its first step is at the bottom, without them at the top.

    \image html keststageprogressbar.png width=560px
*/
class KEST_EXPORT KestStageProgressBar : public QWidget
{
    Q_OBJECT
    /*! The number of steps, at least 2. */
    Q_PROPERTY(int stageCount READ stageCount WRITE setStageCount)
    /*! Whether the captions are drawn. */
    Q_PROPERTY(bool textVisible READ textVisible WRITE setTextVisible)
    /*! The pen of the step numbers. */
    Q_PROPERTY(QPen stageIndexTextPen READ stageIndexTextPen WRITE setStageIndexTextPen)
    /*! The brush of the completed part. */
    Q_PROPERTY(QBrush rateBackground READ rateBackground WRITE setRateBackground)
    /*! The upper end of the range. */
    Q_PROPERTY(int maximum READ maximum WRITE setMaximum)
    /*! The lower end of the range. */
    Q_PROPERTY(int minimum READ minimum WRITE setMinimum)
    /*! The current value, always within the range. */
    Q_PROPERTY(int value READ value WRITE setValue NOTIFY valueChanged)
    /*! The direction of the row of steps. */
    Q_PROPERTY(Qt::Orientation orientation READ orientation WRITE setOrientation)
    /*! The captions of all steps, one for each. */
    Q_PROPERTY(QStringList texts READ texts WRITE setTexts)
    /*! The radius of a step's circle in pixels. */
    Q_PROPERTY(int stageCircleRadius READ stageCircleRadius WRITE setStageCircleRadius)

public:
    /*! Constructs a horizontal bar of 5 steps at 0 of 0 to 99, with the given \a parent. */
    explicit KestStageProgressBar(QWidget *parent = nullptr);
    /*! Destroys the bar. */
    ~KestStageProgressBar() override;

    /*! Returns the number of steps; 5 by default. */
    int stageCount() const;
    /*! Sets the number of steps to \a count. New steps have no caption, and the captions of steps
        that go are lost. A count below 2 is refused with a debug message. */
    void setStageCount(int count);

    /*! Returns the radius of a step's circle in pixels; 10 by default. */
    int stageCircleRadius() const;
    /*! Sets the radius of a step's circle to \a radius pixels. */
    void setStageCircleRadius(int radius);

    /*! Returns the caption of step \a index, counted from 0. An index past the last step gives an
        empty string and a debug message. */
    QString text(int index) const;
    /*! Sets the caption of step \a index, counted from 0, to \a text. An index past the last step
        changes nothing but for a debug message. */
    void setText(int index, const QString &text);

    /*! Returns the captions of all steps, as many as there are steps; all empty by default. */
    QStringList texts() const;
    /*! Sets the captions of all steps to \a texts, in their order: steps that the list does not
        reach have none then. What it has for steps past the last is dropped with a debug message.
     */
    void setTexts(const QStringList &texts);

    /*! Returns whether the captions are drawn; false by default. */
    bool textVisible() const;
    /*! Returns the direction of the row of steps; Qt::Horizontal by default. */
    Qt::Orientation orientation() const;
    /*! Returns the lower end of the range; 0 by default. */
    int minimum() const;
    /*! Returns the upper end of the range; 99 by default. */
    int maximum() const;
    /*! Returns the current value; 0 by default. */
    int value() const;

    /*! Returns the pen of the step numbers; solid white by default. */
    QPen stageIndexTextPen() const;
    /*! Sets the pen of the step numbers to \a pen and repaints. */
    void setStageIndexTextPen(const QPen &pen);

    /*! Returns the brush of the completed part; \#3580CE by default. */
    QBrush rateBackground() const;
    /*! Sets the brush of the completed part to \a brush and repaints. */
    void setRateBackground(const QBrush &brush);

    /*! Returns minimumSizeHint(). */
    QSize sizeHint() const override;
    /*! Returns the size that the steps and captions need, as the style makes it for a progress bar
        with these contents. */
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    /*! Sets the direction to \a orientation: the bar then takes what room there is in that
        direction, and its hint in the other. A new bar keeps QWidget's size policy until the
        direction changes. */
    void setOrientation(Qt::Orientation orientation);
    /*! Sets the value to \a value, emits valueChanged() and repaints at once. A value outside the
        range, or the current one, does nothing. */
    void setValue(int value);
    /*! Sets the range to \a minimum to \a maximum; a maximum below \a minimum becomes \a minimum. A
        value that is outside then moves to the nearer end, with valueChanged(). */
    void setRange(int minimum, int maximum);
    /*! Sets whether the captions are drawn to \a flag. */
    void setTextVisible(bool flag);
    /*! Sets the upper end to \a maximum, and the lower one too where it is above. */
    void setMaximum(int maximum);
    /*! Sets the lower end to \a min, and the upper one too where it is below. */
    void setMinimum(int min);

Q_SIGNALS:
    /*! Emitted when the value has become \a value. */
    void valueChanged(int value);

protected:
    /*! Draws what is in the circle of step \a index, which fills \a rect: its number, counted from
        1. An override may look at the bar's current \a value, which the default does not. */
    virtual void drawStage(QPainter *painter, int index, const QRectF &rect, int value) const;
    /*! Draws the caption \a text of step \a index in \a rect, in the palette's window text
        colour. */
    virtual void drawText(QPainter *painter, int index, const QRectF &rect,
                          const QString &text) const;
    /*! Fills in \a option for the style. All that asks the style goes through it. */
    virtual void initStyleOption(QStyleOptionProgressBar *option) const;

    /*! Reimplemented: draws the shape in two colours, and the numbers and captions by drawStage()
       and drawText(). */
    void paintEvent(QPaintEvent *event) override;

private:
    friend class KestStageProgressBarPrivate;
    KestStageProgressBarPrivate *d;
};

#endif // KESTSTAGEPROGRESSBAR_H
