// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestNavigationImageButton.h"

#include "Util.h"

#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtGui/QResizeEvent>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionButton>

namespace {

const int Room = 20; // pixels that the button is larger than its image, in each direction
const QSize EmptySize(5, 5); // pixels

} // namespace

class KestNavigationImageButtonPrivate
{
public:
    bool pressed = false;
    QPixmap pixmap; // the icon at its current display size

    QSize pixmapSize() const
    {
        return (QSizeF(pixmap.size()) / pixmap.devicePixelRatio()).toSize();
    }
};

KestNavigationImageButton::KestNavigationImageButton(QWidget *parent)
    : KestToolButton(parent), d(new KestNavigationImageButtonPrivate)
{
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    connect(this, &QAbstractButton::pressed, this, [this] {
        d->pressed = true;
        update();
    });
    connect(this, &QAbstractButton::released, this, [this] {
        d->pressed = false;
        update();
    });
}

KestNavigationImageButton::~KestNavigationImageButton()
{
    delete d;
}

QSize KestNavigationImageButton::sizeHint() const
{
    return d->pixmap.isNull() ? EmptySize : d->pixmapSize() + QSize(Room, Room);
}

void KestNavigationImageButton::resizeEvent(QResizeEvent *event)
{
    if (!d->pixmap.isNull() && d->pixmapSize() + QSize(Room, Room) == event->size())
        return;
    const QSize hint = sizeHint();
    updatePixmap(event->size().height());
    if (sizeHint() != hint)
        updateGeometry();
}

void KestNavigationImageButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QStyleOptionButton option;
    option.initFrom(this);
    if (d->pressed)
        option.state |= QStyle::State_Raised | QStyle::State_Sunken;
    else if (isChecked())
        option.state |= QStyle::State_On;
    option.text = text();
    style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);

    if (d->pixmap.isNull()) {
        // The icon came after the last resize: from the next paint on it is there.
        updatePixmap(height());
        updateGeometry();
    } else {
        style()->drawItemPixmap(&painter, option.rect, Qt::AlignHCenter | Qt::AlignVCenter,
                                d->pixmap);
    }
}

void KestNavigationImageButton::updatePixmap(int height)
{
    const QIcon::State state = isChecked() ? QIcon::On : QIcon::Off;
    if (!icon().availableSizes(QIcon::Normal, state).isEmpty())
        d->pixmap = Util::iconPixmap(icon(), height - Room, state, devicePixelRatioF());
}
