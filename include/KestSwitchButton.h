// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTSWITCHBUTTON_H
#define KESTSWITCHBUTTON_H

#include "KestGlobal.h"

#include <QtGui/QBrush>
#include <QtGui/QColor>
#include <QtWidgets/QAbstractButton>

class KestSwitchButtonPrivate;

/*!
    \class KestSwitchButton
    \brief An on/off switch: a pill-shaped track with a round handle, left for off, right for on.

    How does a setting that takes effect at once look different from a check box in a form?

    \code
    auto *night = new KestSwitchButton(this);
    night->setAccessibleName(tr("Night mode"));

    auto *motion = new QVariantAnimation(night); // repaints the switch while its handle moves
    motion->setDuration(100);
    motion->setStartValue(0.0);
    motion->setEndValue(1.0);
    connect(motion, &QVariantAnimation::valueChanged, night, qOverload<>(&QWidget::update));
    connect(night, &KestSwitchButton::toggled, motion, [motion] {
        motion->stop();
        motion->start();
    });

    night->setChecked(theme->isDark());
    connect(night, &KestSwitchButton::toggled, theme, &Theme::setDark);
    \endcode

    It is a checkable QAbstractButton: clicks, the space key, setChecked(), toggled() and button
    groups are Qt's. Four brushes and four border colours give the look of the two states; a
    disabled switch looks like a disabled icon of the style. On is at the right in right-to-left
    layouts too. A switch that got the focus by the keyboard shows a ring in the palette's text
    colour.

    The colours change at once with the state. The handle takes 100 ms to its new end, but its
    motion asks for no repaint of its own: a paint shows it where it is by then. After setChecked(),
    a click or a key the last paint may be one from the handle's way, and the handle then stays
    painted there until something else repaints the switch. That is seen most in a switch that is
    set just before it is first shown. The animation in the example has the switch repainted as long
    as the handle moves; an update() after that time is enough where only the end counts.

    \image html kestswitchbutton.png width=515px
*/
class KEST_EXPORT KestSwitchButton : public QAbstractButton
{
    Q_OBJECT
    /*! The track while off. */
    Q_PROPERTY(QBrush uncheckedBackground READ uncheckedBackground WRITE setUncheckedBackground)
    /*! The outline of the track while off. */
    Q_PROPERTY(QColor uncheckedBackgroundBorderColor READ uncheckedBackgroundBorderColor WRITE
                   setUncheckedBackgroundBorderColor)
    /*! The handle while off. */
    Q_PROPERTY(QBrush uncheckedHandleBrush READ uncheckedHandleBrush WRITE setUncheckedHandleBrush)
    /*! The outline of the handle while off. */
    Q_PROPERTY(QColor uncheckedHandleBorderColor READ uncheckedHandleBorderColor WRITE
                   setUncheckedHandleBorderColor)
    /*! The track while on. */
    Q_PROPERTY(QBrush checkedBackground READ checkedBackground WRITE setCheckedBackground)
    /*! The outline of the track while on. */
    Q_PROPERTY(QColor checkedBackgroundBorderColor READ checkedBackgroundBorderColor WRITE
                   setCheckedBackgroundBorderColor)
    /*! The handle while on. */
    Q_PROPERTY(QBrush checkedHandleBrush READ checkedHandleBrush WRITE setCheckedHandleBrush)
    /*! The outline of the handle while on. */
    Q_PROPERTY(QColor checkedHandleBorderColor READ checkedHandleBorderColor WRITE
                   setCheckedHandleBorderColor)

public:
    /*! Constructs a switch that is off, with the given \a parent. */
    explicit KestSwitchButton(QWidget *parent = nullptr);
    /*! Destroys the switch. */
    ~KestSwitchButton() override;

    /*! Returns the brush of the track while off; \#EEEEEE by default. */
    QBrush uncheckedBackground() const;
    /*! Sets the brush of the track while off to \a brush and repaints. */
    void setUncheckedBackground(const QBrush &brush);

    /*! Returns the colour of the track's outline while off; \#E3E3E3 by default. */
    QColor uncheckedBackgroundBorderColor() const;
    /*! Sets the colour of the track's outline while off to \a color and repaints. */
    void setUncheckedBackgroundBorderColor(const QColor &color);

    /*! Returns the brush of the handle while off; white by default. */
    QBrush uncheckedHandleBrush() const;
    /*! Sets the brush of the handle while off to \a brush and repaints. */
    void setUncheckedHandleBrush(const QBrush &brush);

    /*! Returns the colour of the handle's outline while off; \#DEDEDE by default. */
    QColor uncheckedHandleBorderColor() const;
    /*! Sets the colour of the handle's outline while off to \a color and repaints. */
    void setUncheckedHandleBorderColor(const QColor &color);

    /*! Returns the brush of the track while on; \#326CF3 by default. */
    QBrush checkedBackground() const;
    /*! Sets the brush of the track while on to \a brush and repaints. */
    void setCheckedBackground(const QBrush &brush);

    /*! Returns the colour of the track's outline while on; transparent by default. */
    QColor checkedBackgroundBorderColor() const;
    /*! Sets the colour of the track's outline while on to \a color and repaints. */
    void setCheckedBackgroundBorderColor(const QColor &color);

    /*! Returns the brush of the handle while on; white by default. */
    QBrush checkedHandleBrush() const;
    /*! Sets the brush of the handle while on to \a brush and repaints. */
    void setCheckedHandleBrush(const QBrush &brush);

    /*! Returns the colour of the handle's outline while on; transparent by default. */
    QColor checkedHandleBorderColor() const;
    /*! Sets the colour of the handle's outline while on to \a color and repaints. */
    void setCheckedHandleBorderColor(const QColor &color);

    /*! Returns minimumSizeHint(). */
    QSize sizeHint() const override;

    /*! Returns the size of a push button that says "XXXX". It is worked out the first time it is
        asked for and stays: a later change of font or style leaves the switch as it is. */
    QSize minimumSizeHint() const override;

protected:
    /*! Reimplemented: draws the track, and the handle where it is by now. */
    void paintEvent(QPaintEvent *event) override;
    /*! Reimplemented: the handle is as high as the switch and travels its width. */
    void resizeEvent(QResizeEvent *event) override;

private:
    KestSwitchButtonPrivate *d;
};

#endif // KESTSWITCHBUTTON_H
