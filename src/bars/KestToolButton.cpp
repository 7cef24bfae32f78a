// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestToolButton.h"

#include <QAction>
#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionToolButton>

class KestToolButtonPrivate
{
public:
    bool showToolTips = true;
    bool selected = false;
    int eventDepth = 0; // how many of the button's own events are being handled
    bool dismissed = false;
};

KestToolButton::KestToolButton(QWidget *parent) : QToolButton(parent), d(new KestToolButtonPrivate)
{
    connect(this, &QAbstractButton::toggled, this, &KestToolButton::polishAnew);
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

void KestToolButton::dismiss()
{
    if (d->eventDepth == 0) {
        delete this;
        return;
    }
    d->dismissed = true;
    hide();
}

bool KestToolButton::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && !d->showToolTips)
        return true;
    const QPointer<KestToolButton> guard(this);
    ++d->eventDepth;
    const bool handled = QToolButton::event(event);
    if (guard && --d->eventDepth == 0 && d->dismissed)
        deleteLater();
    return handled;
}

void KestToolButton::mouseReleaseEvent(QMouseEvent *event)
{
    // A click may delete the button, by deleting the action that it is the default widget of.
    // QAbstractButton is prepared for that, while QToolButton notes the release afterwards, which
    // only matters where the press was on the menu's part of the button, and is no click.
    if (isDown())
        // NOLINTNEXTLINE(bugprone-parent-virtual-call)
        QAbstractButton::mouseReleaseEvent(event); // clazy:exclude=skipped-base-method
    else
        QToolButton::mouseReleaseEvent(event);
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

void KestToolButton::polishAnew()
{
    const QPointer<KestToolButton> guard(this);
    style()->unpolish(this);
    if (guard)
        style()->polish(this);
}
