// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestSwitchButton.h"

#include "KeptPicture.h"

#include <QtCore/QPointer>
#include <QtCore/QVariantAnimation>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionButton>

namespace {

const int MoveMs = 100; // the handle's way from end to end
const int HandleInset = 1; // pixels between the track's edge and the handle
const int FocusWidth = 2; // pixels of the ring that shows the keyboard's focus
// The device pixels per pixel that the switch is drawn for.
const qreal SmallestRatio = 1.0 / 16;
const qreal LargestRatio = 16;

QRect offHandle(const QSize &size)
{
    const QRect square(0, 0, size.height(), size.height());
    return square.adjusted(HandleInset, HandleInset, -HandleInset, -HandleInset);
}

QRect onHandle(const QSize &size)
{
    return offHandle(size).translated(size.width() - size.height(), 0);
}

// All that a switch's picture depends on.
struct SwitchLook
{
    QSize size;
    qreal ratio;
    QRect handle;
    QBrush background;
    QColor backgroundBorder;
    QBrush handleBrush;
    QColor handleBorder;

    bool operator!=(const SwitchLook &other) const
    {
        return size != other.size || ratio != other.ratio || handle != other.handle
            || background != other.background || backgroundBorder != other.backgroundBorder
            || handleBrush != other.handleBrush || handleBorder != other.handleBorder;
    }
};

struct SwitchPicture
{
    SwitchLook look;
    QPixmap pixmap;
};

QPixmap draw(const SwitchLook &look)
{
    QPixmap pixmap = emptyPicture(look.size, look.ratio);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);

    painter.setPen(look.backgroundBorder);
    painter.setBrush(look.background);
    const int radius = look.size.height() / 2;
    painter.drawRoundedRect(QRect(QPoint(), look.size), radius, radius, Qt::AbsoluteSize);

    painter.setPen(look.handleBorder);
    painter.setBrush(look.handleBrush);
    painter.drawEllipse(look.handle);
    return pixmap;
}

} // namespace

class KestSwitchButtonPrivate
{
public:
    QBrush uncheckedBackground = QColor(0xEE, 0xEE, 0xEE);
    QColor uncheckedBackgroundBorderColor = QColor(0xE3, 0xE3, 0xE3);
    QBrush uncheckedHandleBrush = QColor(0xFF, 0xFF, 0xFF);
    QColor uncheckedHandleBorderColor = QColor(0xDE, 0xDE, 0xDE);
    QBrush checkedBackground = QColor(0x32, 0x6C, 0xF3);
    QColor checkedBackgroundBorderColor = Qt::transparent;
    QBrush checkedHandleBrush = QColor(0xFF, 0xFF, 0xFF);
    QColor checkedHandleBorderColor = Qt::transparent;
    QVariantAnimation handleAnimation; // its value is the handle's rectangle
    QSize cachedSizeHint;
    SwitchPicture pictures[2]; // unchecked, checked

    void moveHandle(bool checked);
    SwitchLook look(const QSize &size, qreal ratio, bool checked) const;
    QPixmap picture(const QSize &size, qreal ratio, bool checked);
};

void KestSwitchButtonPrivate::moveHandle(bool checked)
{
    handleAnimation.setDirection(checked ? QAbstractAnimation::Forward
                                         : QAbstractAnimation::Backward);
    handleAnimation.start();
}

SwitchLook KestSwitchButtonPrivate::look(const QSize &size, qreal ratio, bool checked) const
{
    const QRect handle = handleAnimation.currentValue().toRect();
    if (checked) {
        return { size,
                 ratio,
                 handle,
                 checkedBackground,
                 checkedBackgroundBorderColor,
                 checkedHandleBrush,
                 checkedHandleBorderColor };
    }
    return { size,
             ratio,
             handle,
             uncheckedBackground,
             uncheckedBackgroundBorderColor,
             uncheckedHandleBrush,
             uncheckedHandleBorderColor };
}

// The last picture of either state is kept: most paints find nothing changed.
QPixmap KestSwitchButtonPrivate::picture(const QSize &size, qreal ratio, bool checked)
{
    SwitchLook wanted = look(size, ratio, checked);
    SwitchPicture &kept = pictures[checked ? 1 : 0];
    if (kept.pixmap.isNull() || kept.look != wanted) {
        kept.pixmap = draw(wanted);
        kept.look = std::move(wanted);
    }
    return kept.pixmap;
}

KestSwitchButton::KestSwitchButton(QWidget *parent)
    : QAbstractButton(parent), d(new KestSwitchButtonPrivate)
{
    d->handleAnimation.setDuration(MoveMs);
    setCheckable(true);
    connect(this, &QAbstractButton::toggled, this,
            [this](bool checked) { d->moveHandle(checked); });
}

KestSwitchButton::~KestSwitchButton()
{
    delete d;
}

QBrush KestSwitchButton::uncheckedBackground() const
{
    return d->uncheckedBackground;
}

void KestSwitchButton::setUncheckedBackground(const QBrush &brush)
{
    d->uncheckedBackground = brush;
    update();
}

QColor KestSwitchButton::uncheckedBackgroundBorderColor() const
{
    return d->uncheckedBackgroundBorderColor;
}

void KestSwitchButton::setUncheckedBackgroundBorderColor(const QColor &color)
{
    d->uncheckedBackgroundBorderColor = color;
    update();
}

QBrush KestSwitchButton::uncheckedHandleBrush() const
{
    return d->uncheckedHandleBrush;
}

void KestSwitchButton::setUncheckedHandleBrush(const QBrush &brush)
{
    d->uncheckedHandleBrush = brush;
    update();
}

QColor KestSwitchButton::uncheckedHandleBorderColor() const
{
    return d->uncheckedHandleBorderColor;
}

void KestSwitchButton::setUncheckedHandleBorderColor(const QColor &color)
{
    d->uncheckedHandleBorderColor = color;
    update();
}

QBrush KestSwitchButton::checkedBackground() const
{
    return d->checkedBackground;
}

void KestSwitchButton::setCheckedBackground(const QBrush &brush)
{
    d->checkedBackground = brush;
    update();
}

QColor KestSwitchButton::checkedBackgroundBorderColor() const
{
    return d->checkedBackgroundBorderColor;
}

void KestSwitchButton::setCheckedBackgroundBorderColor(const QColor &color)
{
    d->checkedBackgroundBorderColor = color;
    update();
}

QBrush KestSwitchButton::checkedHandleBrush() const
{
    return d->checkedHandleBrush;
}

void KestSwitchButton::setCheckedHandleBrush(const QBrush &brush)
{
    d->checkedHandleBrush = brush;
    update();
}

QColor KestSwitchButton::checkedHandleBorderColor() const
{
    return d->checkedHandleBorderColor;
}

void KestSwitchButton::setCheckedHandleBorderColor(const QColor &color)
{
    d->checkedHandleBorderColor = color;
    update();
}

QSize KestSwitchButton::sizeHint() const
{
    return minimumSizeHint();
}

QSize KestSwitchButton::minimumSizeHint() const
{
    if (d->cachedSizeHint.width() > 0 && d->cachedSizeHint.height() > 0)
        return d->cachedSizeHint;

    const QSize text = fontMetrics().size(Qt::TextShowMnemonic, QStringLiteral("XXXX"));
    QStyleOptionButton option;
    option.initFrom(this);
    option.rect.setSize(text);
    const QPointer<const KestSwitchButton> guard(this);
    const QSize size = style()->sizeFromContents(QStyle::CT_PushButton, &option, text, this);
    if (!guard)
        return QSize();
    d->cachedSizeHint = size;
    return size;
}

void KestSwitchButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!painter.isActive())
        return;
    // What is painted on may be finer than the screen: a picture taken of the widget, say. It may
    // claim to be of any fineness, too.
    const qreal ratio = qBound(
        SmallestRatio, painter.paintEngine()->paintDevice()->devicePixelRatioF(), LargestRatio);
    const QPixmap picture = d->picture(size(), ratio, isChecked());

    QStyleOption option;
    option.initFrom(this);
    const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
    const QPixmap styled = style()->generatedIconPixmap(mode, picture, &option);

    const QSizeF target = QSizeF(picture.size()) / ratio;
    painter.drawPixmap(QRectF(QPointF(), target), styled, styled.rect());

    // Only who walks the window by keyboard has to find the switch: a click needs no ring.
    const QStyle::State byKeyboard = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    if ((option.state & byKeyboard) == byKeyboard) {
        const qreal half = FocusWidth * 0.5;
        const qreal radius = height() * 0.5 - half;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().windowText().color(), FocusWidth));
        painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), radius, radius);
    }
}

void KestSwitchButton::resizeEvent(QResizeEvent *event)
{
    QAbstractButton::resizeEvent(event);
    d->handleAnimation.setStartValue(offHandle(size()));
    d->handleAnimation.setEndValue(onHandle(size()));
}
