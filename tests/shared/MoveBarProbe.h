// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef MOVEBARPROBE_H
#define MOVEBARPROBE_H

#include <QtGui/QCursor>
#include <QtGui/QMouseEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

/*! Returns whether a drag with the left button on \a bar moves its window along, for tests on the
    offscreen platform. The window is put back. */
inline bool movesItsWindow(QWidget *bar)
{
    const int ClickMs = 60; // longer than what still counts as a click
    const QPoint Away(300, 200); // far from the screen's top, where windows are maximised
    const QPoint Step(40, 30);

    QWidget *const window = bar->window();
    const QPoint home = window->pos();
    window->move(Away);
    const auto send = [bar](QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons) {
        const QPoint global = QCursor::pos();
        QMouseEvent event(type, bar->mapFromGlobal(global), global, button, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(bar, &event);
    };
    QCursor::setPos(bar->mapToGlobal(bar->rect().center()));
    send(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    QTest::qSleep(ClickMs);
    QCursor::setPos(QCursor::pos() + Step);
    send(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
    const bool moved = window->pos() == Away + Step;
    window->move(home);
    return moved;
}

#endif // MOVEBARPROBE_H
