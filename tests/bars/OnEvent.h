// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef ONEVENT_H
#define ONEVENT_H

#include <QtCore/QEvent>
#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <functional>

/*! Does something, once, when an object is about to get an event of some type. */
class OnEvent : public QObject
{
public:
    OnEvent(QObject *watched, QEvent::Type type, std::function<void()> action)
        : m_type(type), m_action(std::move(action))
    {
        watched->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != m_type)
            return false;
        watched->removeEventFilter(this);
        const QPointer<QObject> guard(watched);
        m_action();
        return guard.isNull(); // there is nobody left to handle it
    }

private:
    QEvent::Type m_type;
    std::function<void()> m_action;
};

/*! Keeps events of one type from an object, and from the filters that it has so far. */
class Drop : public QObject
{
public:
    Drop(QObject *watched, QEvent::Type type) : m_type(type) { watched->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override { return event->type() == m_type; }

private:
    const QEvent::Type m_type;
};

#endif // ONEVENT_H
