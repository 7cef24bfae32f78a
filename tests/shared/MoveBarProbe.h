// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef MOVEBARPROBE_H
#define MOVEBARPROBE_H

#include <QtGui/QCursor>
#include <QtGui/QMouseEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#ifdef Q_OS_WIN
#    include <windows.h>
#endif

/*! Returns whether a drag with the left button on \a bar, by Qt's events alone, moves its window
    along, for tests on the offscreen platform. The window is put back. */
inline bool dragMovesItsWindow(QWidget *bar)
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
    // The window may have opened with an edge below the pointer, which has left that by now.
    send(QEvent::MouseMove, Qt::NoButton, Qt::NoButton);
    send(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    QTest::qSleep(ClickMs);
    QCursor::setPos(QCursor::pos() + Step);
    send(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
    const bool moved = window->pos() == Away + Step;
    window->move(home);
    return moved;
}

#ifdef Q_OS_WIN
/*! Returns whether \a bar, where nothing covers it, is a caption to the system, which moves the
    window by it then. */
inline bool movesItsWindow(QWidget *bar)
{
    // The handler is protected; any widget's is called through this.
    struct Access : public QWidget
    {
        using QWidget::nativeEvent;
    };
    QWidget *const window = bar->window();
    for (int x = 0; x < bar->width(); ++x) {
        const QPoint point = bar->mapTo(window, QPoint(x, bar->height() / 2));
        if (window->childAt(point) != bar)
            continue;
        QCursor::setPos(window->mapToGlobal(point));
        MSG message = {};
        message.message = WM_NCHITTEST;
        long result = 0;
        if ((window->*&Access::nativeEvent)(QByteArrayLiteral("windows_generic_MSG"), &message,
                                            &result)
            && result == HTCAPTION)
            return true;
    }
    return false;
}
#else
/*! Returns whether \a bar moves its window; see dragMovesItsWindow(). */
inline bool movesItsWindow(QWidget *bar)
{
    return dragMovesItsWindow(bar);
}
#endif

#endif // MOVEBARPROBE_H
