// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestFramelessDelegate_p.h"

#include <QtCore/QPointer>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QMouseEvent>
#include <QtGui/QResizeEvent>
#include <QtGui/QScreen>

#include <utility>

namespace {

const int ClickMs = 50; // a press this short is a click and does not move the window
const int Rounding = 2; // pixels, of both coordinates, at fractional ratios
const int TopOfScreen = 5; // pixels: a window dragged above this row is maximised

QPoint screenPosition(const QMouseEvent *event)
{
    return event->screenPos().toPoint();
}

// Where the window is, as an event of it or of a widget in it tells: a window manager may have
// placed it without Qt having heard of it yet.
QPoint windowPosition(const QWidget *widget, const QMouseEvent *event)
{
    return event->globalPos() - widget->mapTo(widget->window(), event->pos());
}

} // namespace

void KestFramelessDelegate::mousePressEvent(QMouseEvent *event)
{
    if (d->direction && event->button() == Qt::LeftButton) {
        d->resizing = true;
        d->pressPos = screenPosition(event);
        const QPoint offset =
            windowPosition(d->widget, event) - d->widget->mapToGlobal(QPoint(0, 0));
        d->windowOffset = offset.manhattanLength() > Rounding ? offset : QPoint();
    }
}

void KestFramelessDelegate::mouseDoubleClickEvent(QMouseEvent *)
{
    // Only a double click on a move bar means anything.
}

void KestFramelessDelegate::mouseMoveEvent(QMouseEvent *event)
{
    if (d->resizing) {
        resizeWindow();
        return;
    }
    if (!d->isNormal())
        return;
    const QPointer<KestFramelessDelegate> guard(this);
    const Directions old = d->direction;
    region(event->globalPos(), windowPosition(d->widget, event));
    if (!guard || d->direction == old || !d->shadowless)
        return;
    // Without a shadow the band lies over child widgets, which would take the events.
    if (!old) {
        d->widget->grabMouse();
    } else if (!d->direction) {
        d->widget->releaseMouse();
        releaseHover(d->widget);
    }
}

void KestFramelessDelegate::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    d->resizing = false;
    if (!d->direction)
        return;
    const QPointer<KestFramelessDelegate> guard(this);
    region(screenPosition(event), windowPosition(d->widget, event));
    if (guard && !d->direction && d->shadowless) {
        d->widget->releaseMouse();
        releaseHover(d->widget);
    }
}

void KestFramelessDelegate::region(const QPoint &globalPos, const QPoint &windowPos)
{
    QWidget *const widget = d->widget;
    const int band = d->shadowWidth + d->innerBorder;
    const QPoint pos = globalPos - windowPos;
    const int right = widget->width() - 1;
    const int bottom = widget->height() - 1;

    d->direction = {};
    if (widget->minimumWidth() != widget->maximumWidth()) {
        if (0 <= pos.x() && pos.x() <= band)
            d->direction |= Left;
        if (right - band <= pos.x() && pos.x() <= right)
            d->direction |= Right;
    }
    if (widget->minimumHeight() != widget->maximumHeight()) {
        if (0 <= pos.y() && pos.y() <= band)
            d->direction |= Top;
        if (bottom - band <= pos.y() && pos.y() <= bottom)
            d->direction |= Bottom;
    }
    widget->setCursor(cursorShape(d->direction));
}

void KestFramelessDelegate::moveBarEvent(QWidget *bar, QEvent *event)
{
    if (event->type() == QEvent::Resize) {
        if (const auto *resize = dynamic_cast<QResizeEvent *>(event))
            d->dragOffset = QPoint(resize->size().width() / 2, resize->size().height() / 2);
        return;
    }
    if (event->type() == QEvent::Hide) {
        if (d->movedBar == bar)
            endMove();
        return;
    }
    const auto *mouse = static_cast<QMouseEvent *>(event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (mouse->button() == Qt::LeftButton) {
            // A bar elsewhere knows nothing of where this window is.
            const QPoint position =
                bar->window() == d->widget ? windowPosition(bar, mouse) : d->widget->pos();
            d->moving = true;
            d->movedBar = bar;
            d->dragOffset = QCursor::pos() - position;
            d->moveTimer.start();
            bar->grabMouse();
        }
        break;
    case QEvent::MouseButtonRelease:
        if (mouse->button() == Qt::LeftButton)
            endMove();
        break;
    case QEvent::MouseButtonDblClick:
        if (d->isFixedSize())
            break;
        if (d->isNormal())
            d->widget->showMaximized();
        else
            d->widget->showNormal();
        break;
    case QEvent::MouseMove:
        if (d->moving && !d->direction && d->moveTimer.elapsed() >= ClickMs)
            dragWindow(bar);
        break;
    default:
        break;
    }
}

void KestFramelessDelegate::dragWindow(QWidget *bar)
{
    const QPoint cursor = QCursor::pos();
    const QPointer<KestFramelessDelegate> guard(this);
    if (d->isNormal()) {
        d->widget->move(cursor - d->dragOffset);
        if (guard && d->moving && cursor.y() < TopOfScreen && !d->isFixedSize()) {
            // Once the event that is being handled is through.
            QMetaObject::invokeMethod(
                this, [this] { maximizeFromTop(); }, Qt::QueuedConnection);
        }
    } else if (cursor.y() >= TopOfScreen) {
        // The restored window hangs from the middle of the bar on the moves to come.
        const QPointer<QWidget> watchedBar(bar);
        d->widget->showNormal();
        if (guard && watchedBar)
            d->dragOffset = QPoint(bar->width() / 2, bar->height() / 2);
    }
}

void KestFramelessDelegate::maximizeFromTop()
{
    QWidget *const widget = d->widget;
    const QPointer<KestFramelessDelegate> guard(this);
    if (d->isNormal()) {
        // The pointer has taken it beyond the top of the screen, where a restored window could not
        // be caught by its bar any more.
        const QScreen *const screen = QGuiApplication::screenAt(QCursor::pos());
        const QRect room = (screen ? screen : widget->screen())->availableGeometry();
        widget->move(widget->x(), qMax(widget->y(), room.top() - d->shadowWidth));
    }
    if (guard)
        widget->showMaximized();
}

void KestFramelessDelegate::resizeWindow()
{
    QWidget *const widget = d->widget;
    const QPointer<KestFramelessDelegate> guard(this);
    const QPoint cursor = QCursor::pos();
    const int margin = d->shadowWidth;
    const QSize minimum = widget->minimumSize().expandedTo(widget->minimumSizeHint());
    const QSize maximum = widget->maximumSize();
    const QPoint topLeft = widget->mapToGlobal(QPoint(0, 0)) + d->windowOffset;
    const QPoint bottomRight = topLeft + QPoint(widget->width() - 1, widget->height() - 1);
    // From the first change on Qt has the window where it is.
    d->windowOffset = QPoint();
    const Directions direction = d->direction;
    QRect rect(topLeft, bottomRight);

    // Left and top stop one pixel short of the minimum: the opposite edge, which QRect counts in,
    // must not be touched.
    if (direction & (Left | Right)) {
        if (direction & Left) {
            rect.setLeft(qMax(bottomRight.x() + 1 - maximum.width(),
                              qMin(bottomRight.x() - minimum.width(), cursor.x() - margin)));
        } else {
            const int width =
                qMin(qMax(cursor.x() - topLeft.x() + margin, minimum.width()), maximum.width());
            rect.setRight(rect.left() + width - 1);
        }
        widget->setGeometry(rect);
        if (!guard || !d->resizing)
            return;
    }
    if (direction & (Top | Bottom)) {
        if (direction & Top) {
            rect.setTop(qMax(bottomRight.y() + 1 - maximum.height(),
                             qMin(cursor.y() - margin, bottomRight.y() - minimum.height())));
        } else {
            const int height =
                qMin(maximum.height(), qMax(cursor.y() - topLeft.y() + margin, minimum.height()));
            rect.setBottom(rect.top() + height - 1);
        }
        widget->setGeometry(rect);
    }
}

// The one end of all drags, with or without a release of the button.
void KestFramelessDelegate::endDrag()
{
    endMove();
    leaveEdges();
}

void KestFramelessDelegate::endMove()
{
    d->moving = false;
    QWidget *const bar = std::exchange(d->movedBar, nullptr);
    if (bar)
        bar->releaseMouse();
}

void KestFramelessDelegate::leaveEdges()
{
    d->resizing = false;
    if (!d->direction)
        return;
    d->direction = {};
    const QPointer<KestFramelessDelegate> guard(this);
    d->widget->setCursor(cursorShape({}));
    if (guard && d->shadowless) {
        d->widget->releaseMouse();
        releaseHover(d->widget);
    }
}
