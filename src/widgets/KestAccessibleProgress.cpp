// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestAccessibleProgress.h"

#include "KestCircleProgressBar.h"
#include "KestStageProgressBar.h"

#include <QtCore/QPointer>

namespace {

// Asked for every class in an object's ancestry in turn: a host's subclass is found by its base.
QAccessibleInterface *createProgressInterface(const QString &className, QObject *object)
{
    const bool isOurs =
        className == QLatin1String(KestStageProgressBar::staticMetaObject.className())
        || className == QLatin1String(KestCircleProgressBar::staticMetaObject.className());
    return isOurs ? new KestAccessibleProgress(qobject_cast<QWidget *>(object)) : nullptr;
}

} // namespace

KestAccessibleProgress::KestAccessibleProgress(QWidget *widget)
    : QAccessibleWidget(widget, QAccessible::ProgressBar)
{ }

KestAccessibleProgress::~KestAccessibleProgress() = default;

void KestAccessibleProgress::install()
{
    // Qt takes each once, and forgets them with the application: a later one needs them anew.
    QAccessible::installFactory(createProgressInterface);
}

void KestAccessibleProgress::announceValue(QWidget *widget, int value)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleValueChangeEvent event(widget, value);
    QAccessible::updateAccessibility(&event);
}

QString KestAccessibleProgress::text(QAccessible::Text kind) const
{
    if (kind != QAccessible::Value)
        return QAccessibleWidget::text(kind);
    // What the widget writes into itself is what is read aloud. A subclass may find it out by
    // itself.
    const QPointer<QObject> guard(object());
    const QString shown = object()->property("text").toString();
    if (!guard)
        return QString();
    return shown.isEmpty() ? currentValue().toString() : shown;
}

QAccessible::State KestAccessibleProgress::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    return state;
}

void *KestAccessibleProgress::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QVariant KestAccessibleProgress::currentValue() const
{
    return object()->property("value");
}

void KestAccessibleProgress::setCurrentValue(const QVariant &)
{
    // Progress is the program's to set.
}

QVariant KestAccessibleProgress::minimumValue() const
{
    return object()->property("minimum");
}

QVariant KestAccessibleProgress::maximumValue() const
{
    return object()->property("maximum");
}

QVariant KestAccessibleProgress::minimumStepSize() const
{
    return 1;
}
