// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTCIRCLEPROGRESSBAR_H
#define KESTCIRCLEPROGRESSBAR_H

#include "KestGlobal.h"

#include <QtGui/QBrush>
#include <QtWidgets/QWidget>

class KestCircleProgressBarPrivate;

/*!
    \class KestCircleProgressBar
    \brief Progress as a ring that fills clockwise from twelve o'clock, with a text in it.

    How is progress shown where there is no room for a bar, and that something is going on when
    nobody knows how long it takes?

    \code
    auto *ring = new KestCircleProgressBar(this);
    ring->setRange(0, files.size());
    ring->setFormat(tr("%v of %m"));
    connect(copier, &Copier::copied, ring, &KestCircleProgressBar::setValue);

    ring->setRange(0, 0); // busy: the arc turns and breathes until there is a range again
    \endcode

    The arc glides to a new value or range in 100 ms. A value outside the range is kept, and only
    the background ring is drawn for it. A new ring stands at 24 of 0 to 100, so that a form shows
    at once what it is. The ring fills clockwise in right-to-left layouts too.

    The ring only has a timer while it moves where it can be seen: neither hidden, nor in a hidden
    or minimised window. What is painted elsewhere, by grab() say, shows it where it would be by
   then.

    \image html kestcircleprogressbar.png width=702px
*/
class KEST_EXPORT KestCircleProgressBar : public QWidget
{
    Q_OBJECT
    /*! The current value. */
    Q_PROPERTY(int value READ value WRITE setValue NOTIFY valueChanged)
    /*! The value of an empty ring. */
    Q_PROPERTY(int minimum READ minimum WRITE setMinimum)
    /*! The value of a full ring. */
    Q_PROPERTY(int maximum READ maximum WRITE setMaximum)
    /*! The template of the text: %p is the percentage, %v the value, %m the number of steps. */
    Q_PROPERTY(QString format READ format WRITE setFormat)
    /*! Whether the text is drawn. */
    Q_PROPERTY(bool textVisible READ isTextVisible WRITE setTextVisible)
    /*! The format with value and range filled in. */
    Q_PROPERTY(QString text READ text DESIGNABLE false STORED false)
    /*! The shape of the arc's ends. */
    Q_PROPERTY(Qt::PenCapStyle penCapStyle READ penCapStyle WRITE setPenCapStyle)
    /*! The thickness of ring and arc in pixels. */
    Q_PROPERTY(int barWidth READ barWidth WRITE setBarWidth)
    /*! The brush of the arc; its colour is the text's. */
    Q_PROPERTY(QBrush barBrush READ barBrush WRITE setBarBrush)
    /*! The brush of the ring behind the arc. */
    Q_PROPERTY(QBrush backgroundBrush READ backgroundBrush WRITE setBackgroundBrush)

public:
    /*! Constructs a ring at 24 of 0 to 100, with the given \a parent. */
    explicit KestCircleProgressBar(QWidget *parent = nullptr);
    /*! Destroys the ring. */
    ~KestCircleProgressBar() override;

    /*! Returns the current value; 24 by default. */
    int value() const;
    /*! Returns the lower end of the range; 0 by default. */
    int minimum() const;
    /*! Returns the upper end of the range; 100 by default. */
    int maximum() const;

    /*! Returns the template of the text; "%p%" by default. */
    QString format() const;
    /*! Sets the template of the text to \a format and repaints. \sa text() */
    void setFormat(const QString &format);

    /*! Returns whether the text is drawn; true by default. Busy rings never draw it. */
    bool isTextVisible() const;
    /*! Sets whether the text is drawn to \a visible and repaints. */
    void setTextVisible(bool visible);

    /*!
        Returns the text of the ring: format() with each "%p" replaced by the percentage, each
        "%v" by the value and each "%m" by the number of steps, maximum() - minimum(). Case
        matters, and a doubled percent sign stands for itself.

        The percentage is (value - minimum) / (maximum - minimum) * 100 in floating point, cut off
        behind the point, so that 2 of 3 reads 66 and 100 is not read before the end; it is 100
        where the ends are equal. A value outside the range has no text.
    */
    virtual QString text() const;

    /*! Returns the cap of the arc's ends; Qt::FlatCap by default. */
    Qt::PenCapStyle penCapStyle() const;
    /*! Returns the thickness of ring and arc in pixels; 10 by default. */
    int barWidth() const;
    /*! Returns the brush of the arc; \#326CF3 by default. */
    QBrush barBrush() const;
    /*! Returns the brush of the ring behind the arc; \#EEEEEE by default. */
    QBrush backgroundBrush() const;

    /*! Returns 100 x 100. */
    QSize sizeHint() const override;
    /*! Returns 40 x 40. */
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    /*! Sets the value to \a value, in the range or not, emits valueChanged() and glides there. An
        unchanged value does nothing. */
    void setValue(int value);
    /*! Sets the upper end to \a maximum and glides; neither the other end nor the value moves. */
    void setMaximum(int maximum);
    /*! Sets the lower end to \a minimum and glides; neither the other end nor the value moves. */
    void setMinimum(int minimum);
    /*! Sets both ends, as they are given, and glides. A range of 0 to 0 makes the ring busy until
        there is another range. An unchanged range does nothing. */
    void setRange(int minimum, int maximum);
    /*! Sets the cap of the arc's ends to \a style and repaints. */
    void setPenCapStyle(Qt::PenCapStyle style);
    /*! Sets the thickness of ring and arc to \a width pixels and repaints. */
    void setBarWidth(int width);
    /*! Sets the brush of the arc, and its colour for text and busy arc, to \a brush and
        repaints. */
    void setBarBrush(const QBrush &brush);
    /*! Sets the brush of the ring behind the arc to \a brush and repaints. */
    void setBackgroundBrush(const QBrush &brush);

Q_SIGNALS:
    /*! Emitted by setValue() when the value has become \a value. */
    void valueChanged(int value);

protected:
    /*! Reimplemented: a ring that moves gets its timer back. */
    void showEvent(QShowEvent *event) override;
    /*! Reimplemented: a ring that is not seen has no timer. */
    void hideEvent(QHideEvent *event) override;
    /*! Reimplemented: draws the ring, the arc where it is by now, and the text. */
    void paintEvent(QPaintEvent *event) override;

private:
    KestCircleProgressBarPrivate *d;
};

#endif // KESTCIRCLEPROGRESSBAR_H
