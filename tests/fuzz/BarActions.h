// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef BARACTIONS_H
#define BARACTIONS_H

#include "Fuzzer.h"

#include <QtCore/QEvent>
#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <functional>
#include <vector>

QT_BEGIN_NAMESPACE
class QAction;
class QIcon;
class QWidget;
QT_END_NAMESPACE

/*! The actions of a host whose bars are fuzzed: some plain, some separators, some with a widget. */
class BarActions
{
public:
    explicit BarActions(std::function<void()> called);
    ~BarActions();

    /*! Returns one of the actions, a new one, or null. */
    QAction *any(FuzzInput &input);
    /*! Makes \a action, which may be null, one of the host's, if there is room; deletes another. */
    void keep(QAction *action);
    /*! Changes or deletes one of the actions, or the widget of one. */
    void change(FuzzInput &input);
    /*! Calls \a changed from now on whenever an action has changed. */
    void onChanged(std::function<void(QAction *)> changed) { m_changed = std::move(changed); }

private:
    Q_DISABLE_COPY(BarActions)
    QAction *create(FuzzInput &input);
    void watch(QAction *action);

    std::vector<QPointer<QAction>> m_actions;
    std::function<void()> m_called;
    std::function<void(QAction *)> m_changed;
};

/*! Calls back in the midst of what a bar does, at some event of the bar, and tells
    whether anything may be deleted there: nothing can while a child gets its parent, in the midst
    of what QWidget does. */
class BarInterruption : public QObject
{
public:
    BarInterruption(QWidget *bar, std::function<void(bool)> called);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<QWidget> m_bar;
    std::function<void(bool)> m_called;
};

QIcon anyIcon(FuzzInput &input);

/*! Returns the widget that shows \a action on \a bar, or null: a button that is not hidden, or the
    action's own. */
QWidget *widgetOf(const QWidget *bar, const QAction *action);

/*! Clicks into \a widget, as a user does. */
void clickInto(QWidget *widget);

/*! Drives a bar until \a input ends. */
void tryNavigationBar(FuzzInput &input);
void tryTitleBar(FuzzInput &input);

#endif // BARACTIONS_H
