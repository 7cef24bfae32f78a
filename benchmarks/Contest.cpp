// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Contest.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEvent>
#include <QtGui/QIcon>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

namespace {

const int PatienceMs = 5000;

// Sleeps rather than spins, since spinning would be counted.
template <class Condition>
void waitUntil(const char *what, Condition isMet)
{
    QElapsedTimer timer;
    timer.start();
    while (!isMet()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (timer.hasExpired(PatienceMs))
            qFatal("no %s within %d ms", what, PatienceMs);
    }
}

} // namespace

PaintWait::PaintWait(QWidget *widget)
{
    widget->installEventFilter(this);
}

void PaintWait::wait(int times)
{
    m_paints = 0;
    waitUntil("paint", [this, times] { return m_paints >= times; });
}

bool PaintWait::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Paint)
        ++m_paints;
    return false;
}

void showAndPaint(QWidget *widget)
{
    PaintWait painted(widget);
    widget->show();
    painted.wait();
}

void settle()
{
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents();
}

void giveFocus(QWidget *widget)
{
    widget->window()->activateWindow();
    widget->setFocus();
    waitUntil("focus", [widget] { return widget->hasFocus(); });
    settle();
}

QIcon actionIcon()
{
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::darkBlue);
    return QIcon(pixmap);
}
