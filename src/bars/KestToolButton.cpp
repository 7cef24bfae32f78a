// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestToolButton.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAction>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionToolButton>

class KestToolButtonPrivate
{
public:
    bool showToolTips = true;
    bool selected = false;
};

KestToolButton::KestToolButton(QWidget *parent) : QToolButton(parent), d(new KestToolButtonPrivate)
{
    connect(this, &QAbstractButton::toggled, this, [this] {
        style()->unpolish(this);
        style()->polish(this);
    });
}

KestToolButton::~KestToolButton()
{
    delete d;
}

void KestToolButton::setIcon(const QIcon &icon)
{
    if (QAction *action = defaultAction())
        action->setIcon(icon);
    else
        QAbstractButton::setIcon(icon);
}

bool KestToolButton::showToolTips() const
{
    return d->showToolTips;
}

void KestToolButton::setShowToolTips(bool show)
{
    d->showToolTips = show;
}

void KestToolButton::setSelected(bool selected)
{
    d->selected = selected;
}

bool KestToolButton::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && !d->showToolTips)
        return true;
    return QToolButton::event(event);
}

void KestToolButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    if (d->selected) {
        const QIcon::State state = isChecked() ? QIcon::On : QIcon::Off;
        option.icon =
            QIcon(icon().pixmap(window()->windowHandle(), iconSize(), QIcon::Selected, state));
    }
    style()->drawComplexControl(QStyle::CC_ToolButton, &option, &painter, this);
}
