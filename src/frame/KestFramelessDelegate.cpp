// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestFramelessDelegate_p.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtGui/QCursor>
#include <QtGui/QMouseEvent>
#include <QtGui/QPlatformSurfaceEvent>
#include <QtGui/QResizeEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QLayout>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QWidget>

namespace {

const int InnerBorder = 5; // pixels of resize band over the contents, without a shadow

const Qt::WindowFlags FramelessFlags = Qt::FramelessWindowHint | Qt::WindowMinimizeButtonHint
    | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint;
const QSize UnlimitedSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);

} // namespace

QCursor cursorShape(QFlags<Direction> directions)
{
    switch (int(directions)) {
    case 0:
        return QCursor();
    case Top:
    case Bottom:
    case Top | Bottom:
        return Qt::SizeVerCursor;
    case Left:
    case Right:
    case Left | Right:
        return Qt::SizeHorCursor;
    case Top | Left:
    case Bottom | Right:
        return Qt::SizeFDiagCursor;
    default:
        return Qt::SizeBDiagCursor;
    }
}

void releaseHover(QWidget *widget)
{
    if (!widget)
        return;
    // A widget may delete others when it hears that the pointer left.
    QList<QPointer<QWidget>> children;
    for (QObject *object : widget->children()) {
        if (object->isWidgetType())
            children.append(static_cast<QWidget *>(object));
    }
    for (const QPointer<QWidget> &child : qAsConst(children)) {
        if (child && child->testAttribute(Qt::WA_UnderMouse)) {
            QEvent leave(QEvent::Leave);
            QCoreApplication::sendEvent(child, &leave);
            if (child)
                child->repaint();
        }
        releaseHover(child);
    }
}

KestFramelessDelegate::KestFramelessDelegate(QWidget *parent, const QList<QWidget *> &moveBars)
    : QObject(parent), d(new KestFramelessDelegatePrivate)
{
    d->widget = parent;
    parent->installEventFilter(this);
    parent->setWindowFlags(FramelessFlags);
    parent->setAttribute(Qt::WA_TranslucentBackground);
    parent->setAttribute(Qt::WA_Hover);
    // As it is: whoever gives a bar twice takes it out twice.
    d->moveBars = moveBars;
    for (QWidget *bar : moveBars) {
        if (bar)
            watchMoveBar(bar);
    }
}

KestFramelessDelegate::KestFramelessDelegate(QWidget *parent, QWidget *moveBar)
    : KestFramelessDelegate(parent, QList<QWidget *> { moveBar })
{ }

KestFramelessDelegate::~KestFramelessDelegate()
{
    // Nothing but the mouse: the window may be half gone already.
    endMove();
    if (d->shadowless)
        d->widget->releaseMouse();
    delete d;
}

void KestFramelessDelegate::addMoveBar(QWidget *widget)
{
    if (!widget || d->moveBars.contains(widget))
        return;
    d->moveBars.append(widget);
    watchMoveBar(widget);
}

void KestFramelessDelegate::removeMoveBar(QWidget *widget)
{
    if (!widget)
        return;
    d->moveBars.removeOne(widget);
    if (!d->moveBars.contains(widget))
        disconnect(widget, &QObject::destroyed, this, nullptr);
    widget->removeEventFilter(this);
    // What is not watched any more is not heard of when the button is released.
    if (d->movedBar == widget)
        endMove();
    if (d->widget != widget)
        return;
    if (QWindow *window = widget->windowHandle())
        window->removeEventFilter(this);
    leaveEdges();
}

bool KestFramelessDelegate::shadowless() const
{
    return d->shadowless;
}

void KestFramelessDelegate::setShadowless(bool shadowless)
{
    // The mouse is held at the edges without a shadow only.
    const QPointer<KestFramelessDelegate> guard(this);
    leaveEdges();
    if (!guard)
        return;
    d->shadowless = shadowless;
    d->shadowWidth = shadowless ? 0 : KestFramelessDelegatePrivate::DefaultShadowWidth;
    d->innerBorder = shadowless ? InnerBorder : 0;
    d->widget->setAttribute(Qt::WA_TranslucentBackground, !shadowless);
    if (!d->widget->isMaximized()) {
        const int margin = d->shadowWidth;
        d->widget->setContentsMargins(margin, margin, margin, margin);
    }
}

bool KestFramelessDelegate::eventFilter(QObject *watched, QEvent *event)
{
    // What is done here may have the host delete whoever the event is for, which Qt then must not
    // go on with: it is told that the event was handled.
    const QPointer<QObject> receiver(watched);
    if (watched->isWindowType()) {
        if (event->type() == QEvent::Resize)
            adaptMarginsUnlaid();
        return receiver.isNull();
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Resize:
    case QEvent::Hide:
        break;
    default:
        if (watched == d->widget)
            windowEvent(event);
        return receiver.isNull();
    }
    if (watched == d->widget) {
        const QPointer<KestFramelessDelegate> guard(this);
        windowEvent(event);
        if (!guard)
            return receiver.isNull();
    }
    if (!watched->isWidgetType())
        return false;
    auto *bar = static_cast<QWidget *>(watched);
    // On an edge a window that is its own move bar is resized, not moved.
    if (d->moveBars.contains(bar) && (bar != d->widget || !d->direction))
        moveBarEvent(bar, event);
    return receiver.isNull();
}

void KestFramelessDelegate::resizeEvent(QResizeEvent *)
{
    const QPointer<KestFramelessDelegate> guard(this);
    const int margin = d->margin();
    d->widget->setContentsMargins(margin, margin, margin, margin);
    if (guard)
        updateLayout();
}

// The layout hears of a new size before any filter does. Margins that change along with the size,
// as they do when the window is maximised or restored, would have it lay out once for each of them.
void KestFramelessDelegate::adaptMarginsUnlaid()
{
    const QPointer<QLayout> layout(d->widget->layout());
    if (!layout || !layout->isEnabled() || d->widget->contentsMargins().left() == d->margin())
        return;
    layout->setEnabled(false);
    resizeEvent(nullptr);
    // Unless it died meanwhile, with the window or without it.
    if (layout)
        layout->setEnabled(true);
}

void KestFramelessDelegate::styleChangeEvent(QEvent *)
{
    updateLayout();
}

void KestFramelessDelegate::platformSurfaceEvent(QPlatformSurfaceEvent *event)
{
    if (event->surfaceEventType() != QPlatformSurfaceEvent::SurfaceCreated)
        return;
    if (QWindow *window = d->widget->windowHandle())
        window->installEventFilter(this);
    if (d->widget->maximumSize() == UnlimitedSize)
        return;
    // The window is just being made: setWindowFlags() would make it once more.
    const Qt::WindowFlags flags = d->widget->windowFlags() & ~Qt::WindowMaximizeButtonHint;
    d->widget->overrideWindowFlags(flags);
    if (QWindow *window = d->widget->windowHandle())
        window->setFlags(flags);
}

void KestFramelessDelegate::updateLayout()
{
    QWidget *const widget = d->widget;
    if (!widget->layout())
        return;
    QStyleOption option;
    option.initFrom(widget);
    const QRect frame = widget->style()->subElementRect(QStyle::SE_FrameContents, &option, widget);
    if (!frame.isValid())
        return;
    if (widget->isMaximized()) {
        widget->layout()->setContentsMargins(0, 0, 0, 0);
    } else {
        widget->layout()->setContentsMargins(frame.left(), frame.top(),
                                             widget->width() - 1 - frame.right(),
                                             widget->height() - 1 - frame.bottom());
    }
}

void KestFramelessDelegate::windowEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::HoverMove: {
        const auto *hover = static_cast<QHoverEvent *>(event);
        QMouseEvent move(QEvent::MouseMove, hover->posF(), QCursor::pos(), Qt::NoButton,
                         Qt::NoButton, hover->modifiers());
        mouseMoveEvent(&move);
        break;
    }
    case QEvent::Paint:
        paintEvent(static_cast<QPaintEvent *>(event));
        break;
    case QEvent::MouseButtonPress:
        mousePressEvent(static_cast<QMouseEvent *>(event));
        break;
    case QEvent::MouseButtonRelease:
        mouseReleaseEvent(static_cast<QMouseEvent *>(event));
        break;
    case QEvent::MouseButtonDblClick:
        mouseDoubleClickEvent(static_cast<QMouseEvent *>(event));
        break;
    case QEvent::Resize:
        if (auto *resize = dynamic_cast<QResizeEvent *>(event))
            resizeEvent(resize);
        break;
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
    case QEvent::StyleChange:
        styleChangeEvent(event);
        break;
    case QEvent::WindowStateChange:
        // Only a window of its own size has edges, whoever gave it another.
        if (!d->isNormal())
            leaveEdges();
        break;
    case QEvent::Hide:
    case QEvent::Close:
    case QEvent::WindowBlocked:
        endDrag();
        break;
    case QEvent::PlatformSurface:
        platformSurfaceEvent(static_cast<QPlatformSurfaceEvent *>(event));
        break;
    default:
        break;
    }
}

void KestFramelessDelegate::watchMoveBar(QWidget *bar)
{
    bar->installEventFilter(this);
    connect(bar, &QObject::destroyed, this, [this, bar] {
        d->moveBars.removeAll(bar);
        if (d->movedBar == bar)
            endMove();
    });
}
