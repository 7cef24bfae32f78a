// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestWidgetItem.h"

#include "KestSeparator.h"
#include "KestToolButton.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtWidgets/QWidgetAction>

class KestWidgetItemPrivate
{
public:
    void followVisibility();
    void followName(Qt::ConnectionType type = Qt::AutoConnection);

    // Weak, since a bar's owner may delete actions and widgets at any time.
    QPointer<QAction> action;
    QPointer<QWidget> widget;
    bool customWidget = false;
    QMetaObject::Connection nameConnection;
};

void KestWidgetItemPrivate::followVisibility()
{
    if (action && widget && widget->parent())
        widget->setVisible(action->isVisible());
}

void KestWidgetItemPrivate::followName(Qt::ConnectionType type)
{
    nameConnection =
        QObject::connect(action, &QObject::objectNameChanged, widget,
                         QOverload<const QString &>::of(&QObject::setObjectName), type);
}

KestWidgetItem::KestWidgetItem(QAction *action, Qt::Orientation orientation, const QSize &iconSize,
                               QWidget *parent)
    : d(new KestWidgetItemPrivate)
{
    d->action = action;
    if (parent) {
        // The item is deleted by its last shared pointer and must not go with its parent before.
        connect(parent, &QObject::destroyed, this, [this] { setParent(nullptr); });
        setParent(parent);
    }
    // The bar's filters have heard of its new child.
    if (!d->action)
        return;

    if (auto *widgetAction = qobject_cast<QWidgetAction *>(action)) {
        d->widget = widgetAction->defaultWidget();
        d->customWidget = !d->widget.isNull();
    }
    if (d->customWidget) {
        if (auto *button = qobject_cast<KestToolButton *>(d->widget)) {
            bindButton(button, iconSize);
        } else {
            connect(action, &QAction::changed, this, [this] { d->followVisibility(); });
            d->followName();
        }
    } else if (action->isSeparator()) {
        d->widget = new KestSeparator(orientation, parent);
        if (d->action) {
            d->widget->setObjectName(action->objectName());
            d->followName();
        }
    } else {
        auto *button = new KestToolButton(parent);
        d->widget = button;
        if (d->action)
            bindButton(button, iconSize);
        settle();
    }
}

KestWidgetItem::~KestWidgetItem()
{
    const QPointer<QWidget> widget(d->customWidget ? nullptr : d->widget.data());
    // Nothing follows the action any more while the widget goes.
    release();
    if (auto *button = qobject_cast<KestToolButton *>(widget))
        button->dismiss();
    else
        delete widget;
    delete d;
}

void KestWidgetItem::release()
{
    disconnect(d->nameConnection);
    disconnect(this, &KestWidgetItem::iconSizeChanged, nullptr, nullptr);
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

// Qt posts two events to a widget that is made and shown: to polish it, which is done by then, and
// to paint it. All that is posted is searched for what is pending for a widget that dies, and a bar
// with many buttons would have it full of theirs.
void KestWidgetItem::settle()
{
    if (!d->widget || !d->widget->testAttribute(Qt::WA_WState_Polished))
        return;
    QCoreApplication::removePostedEvents(d->widget, QEvent::PolishRequest);
    QCoreApplication::removePostedEvents(d->widget, QEvent::UpdateLater);
    d->widget->update();
}

// What QToolButton::setDefaultAction() does not mirror is followed by the item, and ends with it.
void KestWidgetItem::bindButton(KestToolButton *button, const QSize &iconSize)
{
    QAction *const action = d->action;
    connect(action, &QAction::changed, this, [this] { d->followVisibility(); });
    connect(this, &KestWidgetItem::iconSizeChanged, button, &QAbstractButton::setIconSize);
    // A button that comes with its action follows the name already.
    d->followName(Qt::UniqueConnection);

    button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    button->setIconSize(iconSize);
    button->setDefaultAction(action);
    // From here on others hear of the button, and may delete it or its action.
    if (d->action && d->widget)
        button->setObjectName(action->objectName());
    d->followVisibility();
}
