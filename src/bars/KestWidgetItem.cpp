// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestWidgetItem.h"

#include "KestSeparator.h"
#include "KestToolButton.h"

#include <QtCore/QPointer>
#include <QtWidgets/QWidgetAction>

namespace {

// What QToolButton::setDefaultAction() does not mirror. Both connections end with the action or the
// widget, whichever dies first.
void setWidgetProperty(QAction *action, QWidget *widget)
{
    QObject::connect(action, &QAction::changed, widget, [action, widget] {
        if (widget->parent())
            widget->setVisible(action->isVisible());
    });
    QObject::connect(action, &QObject::objectNameChanged, widget, &QObject::setObjectName);
}

} // namespace

class KestWidgetItemPrivate
{
public:
    // Weak, since a bar's owner may delete actions and widgets at any time.
    QPointer<QAction> action;
    QPointer<QWidget> widget;
    bool customWidget = false;
};

KestWidgetItem::KestWidgetItem(QAction *action, Qt::Orientation orientation, const QSize &iconSize,
                               QWidget *parent)
    : QObject(parent), d(new KestWidgetItemPrivate)
{
    d->action = action;
    if (parent) {
        // The item is deleted by its last shared pointer and must not go with its parent before.
        connect(parent, &QObject::destroyed, this, [this] { setParent(nullptr); });
    }

    KestToolButton *button = nullptr;
    if (auto *widgetAction = qobject_cast<QWidgetAction *>(action)) {
        d->widget = widgetAction->defaultWidget();
        d->customWidget = !d->widget.isNull();
    }
    if (d->customWidget) {
        button = qobject_cast<KestToolButton *>(d->widget);
        if (!button) {
            setWidgetProperty(action, d->widget);
            return;
        }
    } else if (action->isSeparator()) {
        d->widget = new KestSeparator(orientation, parent);
        d->widget->setObjectName(action->objectName());
        connect(action, &QObject::objectNameChanged, this, [this](const QString &name) {
            if (d->widget)
                d->widget->setObjectName(name);
        });
        return;
    } else {
        button = new KestToolButton(parent);
        d->widget = button;
    }

    button->setDefaultAction(action);
    button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    button->setObjectName(action->objectName());
    if (button->parent())
        button->setVisible(action->isVisible());
    setWidgetProperty(action, button);
    button->setIconSize(iconSize);
    connect(this, &KestWidgetItem::iconSizeChanged, button, &QAbstractButton::setIconSize);
}

KestWidgetItem::~KestWidgetItem()
{
    if (!d->customWidget)
        delete d->widget;
    delete d;
}

void KestWidgetItem::release()
{
    d->action = nullptr;
    d->widget = nullptr;
}

QAction *KestWidgetItem::action() const
{
    return d->action;
}

QWidget *KestWidgetItem::widget() const
{
    return d->widget;
}

bool KestWidgetItem::isCustomWidget() const
{
    return d->customWidget;
}
