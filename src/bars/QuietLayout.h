// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef QUIETLAYOUT_H
#define QUIETLAYOUT_H

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

/*!
    \brief Keeps a bar's layout quiet while one of the bar's widgets comes or goes.

    A widget that is shown activates its parent's layout at once, which places all others anew, and
    one that dies is searched for in all of it: each action would cost as much as there are actions.
    What changed is laid out when control returns to the event loop.

    A quiet layout hears of nothing. Whatever it has to know, since others may do anything to the
   bar meanwhile, is seen to by the bar's events.
*/
class QuietLayout
{
public:
    explicit QuietLayout(QWidget *bar) : m_bar(bar) { }

    /*! Sees to what \a event, one of the bar's, means to the layout while it is quiet. */
    void see(QEvent *event);

    /*! The layout is quiet for as long as there is one; where the bar needs it sooner, until then.
     */
    class Scope
    {
    public:
        /*! \a leaving, a widget that is in the layout no more, and its \a item may die without a
            search. */
        explicit Scope(QuietLayout &quiet, const QObject *leaving = nullptr,
                       const QObject *item = nullptr);
        ~Scope();

    private:
        Q_DISABLE_COPY(Scope)

        QuietLayout &m_quiet;
        const QPointer<QWidget> m_bar; // the bar takes the other along when it dies
        bool m_began = false;
    };

private:
    Q_DISABLE_COPY(QuietLayout)
    void end();

    QWidget *const m_bar;
    const QObject *m_leaving = nullptr;
    const QObject *m_leavingItem = nullptr;
    bool m_quiet = false;
};

#endif // QUIETLAYOUT_H
