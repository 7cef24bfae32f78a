// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestFramelessDelegate.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>
#include <QtGui/QCursor>
#include <QtGui/QImage>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPlatformSurfaceEvent>
#include <QtGui/QResizeEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QLayout>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QWidget>

#include <cmath>

namespace {

const int ShadowWidth = 8; // pixels of transparent margin
const int InnerBorder = 5; // pixels of resize band over the contents, without a shadow
const int ClickMs = 50; // a press this short is a click and does not move the window
const int TopOfScreen = 5; // pixels: a window dragged above this row is maximised
const int ShadowStrength = 20; // alpha per halving of the distance to the outermost ring

const Qt::WindowFlags FramelessFlags = Qt::FramelessWindowHint | Qt::WindowMinimizeButtonHint
    | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint;
const QSize UnlimitedSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);

QPoint screenPosition(const QMouseEvent *event)
{
    return event->screenPos().toPoint();
}

// Where the window is, as the event tells: a window manager may have placed it without Qt having
// heard of it yet.
QPoint windowPosition(const QWidget *bar, const QMouseEvent *event)
{
    return event->globalPos() - bar->mapTo(bar->window(), event->pos());
}

QMargins layoutMargins(const QWidget *widget)
{
    return widget->layout() ? widget->layout()->contentsMargins() : QMargins();
}

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

class KestFramelessDelegatePrivate
{
public:
    QWidget *widget = nullptr;
    Directions direction;
    QPoint pressPos;
    QElapsedTimer moveTimer;
    bool resizing = false;
    QList<QWidget *> moveBars;
    bool shadowless = false;
    int shadowWidth = ShadowWidth;
    int innerBorder = 0;
    bool moving = false;
    QPoint dragOffset;
};

KestFramelessDelegate::KestFramelessDelegate(QWidget *parent, const QList<QWidget *> &moveBars)
    : QObject(parent), d(new KestFramelessDelegatePrivate)
{
    d->widget = parent;
    parent->installEventFilter(this);
    parent->setWindowFlags(FramelessFlags);
    parent->setAttribute(Qt::WA_TranslucentBackground);
    parent->setAttribute(Qt::WA_Hover);
    for (QWidget *bar : moveBars)
        addMoveBar(bar);
}

KestFramelessDelegate::KestFramelessDelegate(QWidget *parent, QWidget *moveBar)
    : KestFramelessDelegate(parent, QList<QWidget *> { moveBar })
{ }

KestFramelessDelegate::~KestFramelessDelegate()
{
    delete d;
}

void KestFramelessDelegate::addMoveBar(QWidget *widget)
{
    if (!widget || d->moveBars.contains(widget))
        return;
    d->moveBars.append(widget);
    widget->installEventFilter(this);
    connect(widget, &QObject::destroyed, this, [this, widget] { d->moveBars.removeOne(widget); });
}

void KestFramelessDelegate::removeMoveBar(QWidget *widget)
{
    if (!widget)
        return;
    if (d->moveBars.removeOne(widget))
        disconnect(widget, &QObject::destroyed, this, nullptr);
    widget->removeEventFilter(this);
}

bool KestFramelessDelegate::shadowless() const
{
    return d->shadowless;
}

void KestFramelessDelegate::setShadowless(bool shadowless)
{
    d->shadowless = shadowless;
    d->widget->setAttribute(Qt::WA_TranslucentBackground, !shadowless);
    d->shadowWidth = shadowless ? 0 : ShadowWidth;
    d->innerBorder = shadowless ? InnerBorder : 0;
    if (!d->widget->isMaximized()) {
        const int margin = d->shadowWidth;
        d->widget->setContentsMargins(margin, margin, margin, margin);
    }
}

bool KestFramelessDelegate::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == d->widget) {
        // What is done here may have the host delete the window.
        const QPointer<KestFramelessDelegate> guard(this);
        windowEvent(event);
        if (!guard)
            return false;
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Resize:
        break;
    default:
        return false;
    }
    if (!watched->isWidgetType())
        return false;
    auto *bar = static_cast<QWidget *>(watched);
    // On an edge a window that is its own move bar is resized, not moved.
    if (d->moveBars.contains(bar) && (bar != d->widget || !d->direction))
        moveBarEvent(bar, event);
    return false;
}

void KestFramelessDelegate::mousePressEvent(QMouseEvent *event)
{
    if (d->direction && event->button() == Qt::LeftButton) {
        d->resizing = true;
        d->pressPos = screenPosition(event);
    }
}

void KestFramelessDelegate::mouseDoubleClickEvent(QMouseEvent *)
{
    // Only a double click on a move bar means anything.
}

void KestFramelessDelegate::mouseMoveEvent(QMouseEvent *)
{
    if (d->resizing) {
        resizeWindow();
        return;
    }
    if (!isNormal())
        return;
    const Directions old = d->direction;
    region(QCursor::pos());
    if (d->direction == old || !d->shadowless)
        return;
    // Without a shadow the band lies over child widgets, which would take the events.
    if (d->direction && !old) {
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
    region(screenPosition(event));
    if (!d->direction && d->shadowless) {
        d->widget->releaseMouse();
        releaseHover(d->widget);
    }
}

void KestFramelessDelegate::resizeEvent(QResizeEvent *)
{
    const int margin = isNormal() ? d->shadowWidth : 0;
    d->widget->setContentsMargins(margin, margin, margin, margin);
    updateLayout();
}

void KestFramelessDelegate::paintEvent(QPaintEvent *event)
{
    QWidget *const widget = d->widget;
    QPainter window(widget);
    // The window may be painted on something else than its screen, at another ratio.
    const qreal scale = window.deviceTransform().m11();
    const qreal ratio = scale > 0 ? scale : widget->devicePixelRatioF();

    // Only what is to be painted is drawn. Corners at multiples of four pixels are whole device
    // pixels at all usual ratios, so that a part comes out as it would in the whole.
    const QRect dirty = event->rect() & widget->rect();
    const QPoint origin(dirty.left() & ~3, dirty.top() & ~3);
    const QSizeF size = QSizeF(dirty.right() + 1 - origin.x(), dirty.bottom() + 1 - origin.y());
    QImage image(QSize(int(std::ceil(size.width() * ratio)), int(std::ceil(size.height() * ratio))),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);

    const QMargins margins = layoutMargins(widget);
    QStyleOption option;
    option.initFrom(widget);
    QPainter painter(&image);
    painter.translate(-origin);
    if (isNormal()) {
        const int inner =
            qMax(qMax(margins.left(), margins.top()), qMax(margins.right(), margins.bottom()));
        paintShadow(painter, inner + d->shadowWidth);
        const int shadow = d->shadowWidth;
        option.rect = widget->rect().adjusted(shadow, shadow, -shadow, -shadow);
    }
    painter.end();
    painter.begin(&image);
    painter.translate(-origin);
    widget->style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, widget);
    painter.end();

    const int shadow = d->shadowWidth;
    const QRect inside = widget->rect().adjusted(shadow, shadow, -shadow, -shadow);
    window.fillRect(inside.marginsRemoved(margins), option.palette.brush(QPalette::Window));
    window.drawImage(origin, image);
}

void KestFramelessDelegate::styleChangeEvent(QEvent *)
{
    updateLayout();
}

void KestFramelessDelegate::platformSurfaceEvent(QPlatformSurfaceEvent *event)
{
    if (event->surfaceEventType() != QPlatformSurfaceEvent::SurfaceCreated
        || d->widget->maximumSize() == UnlimitedSize) {
        return;
    }
    // The window is just being made: setWindowFlags() would make it once more.
    const Qt::WindowFlags flags = d->widget->windowFlags() & ~Qt::WindowMaximizeButtonHint;
    d->widget->overrideWindowFlags(flags);
    if (QWindow *window = d->widget->windowHandle())
        window->setFlags(flags);
}

void KestFramelessDelegate::region(const QPoint &globalPos)
{
    QWidget *const widget = d->widget;
    const int band = d->shadowWidth + d->innerBorder;
    const QPoint topLeft = widget->mapToGlobal(QPoint(0, 0));
    const QPoint bottomRight =
        widget->mapToGlobal(QPoint(widget->width() - 1, widget->height() - 1));

    d->direction = {};
    if (widget->minimumWidth() != widget->maximumWidth()) {
        if (topLeft.x() <= globalPos.x() && globalPos.x() <= topLeft.x() + band)
            d->direction |= Left;
        if (bottomRight.x() - band <= globalPos.x() && globalPos.x() <= bottomRight.x())
            d->direction |= Right;
    }
    if (widget->minimumHeight() != widget->maximumHeight()) {
        if (topLeft.y() <= globalPos.y() && globalPos.y() <= topLeft.y() + band)
            d->direction |= Top;
        if (bottomRight.y() - band <= globalPos.y() && globalPos.y() <= bottomRight.y())
            d->direction |= Bottom;
    }

    const QCursor cursor = cursorShape(d->direction);
    if (!widget->testAttribute(Qt::WA_SetCursor) || widget->cursor().shape() != cursor.shape())
        widget->setCursor(cursor);
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

void KestFramelessDelegate::paintShadow(QPainter &painter, int width)
{
    if (width == 0 || d->shadowless)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QColor color(0, 0, 0);
    for (int i = 0; i < width; ++i) {
        const int inset = width - i;
        QPainterPath path;
        path.setFillRule(Qt::WindingFill);
        path.addRoundedRect(d->widget->rect().adjusted(inset, inset, -inset, -inset), 0.0, 1.0,
                            Qt::AbsoluteSize);
        // The logarithm makes the shadow fade fast next to the window and slowly further out.
        const double alpha = std::log(double(i + 1) / width) / -std::log(2.0) * ShadowStrength;
        color.setAlpha(qMin(int(alpha), 255));
        painter.setPen(color);
        painter.drawPath(path);
    }
    painter.restore();
}

void KestFramelessDelegate::windowEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::HoverMove:
        mouseMoveEvent(nullptr);
        break;
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
        updateLayout();
        break;
    case QEvent::StyleChange:
        styleChangeEvent(event);
        break;
    case QEvent::PlatformSurface:
        platformSurfaceEvent(static_cast<QPlatformSurfaceEvent *>(event));
        break;
    default:
        break;
    }
}

void KestFramelessDelegate::moveBarEvent(QWidget *bar, QEvent *event)
{
    if (event->type() == QEvent::Resize) {
        if (const auto *resize = dynamic_cast<QResizeEvent *>(event))
            d->dragOffset = QPoint(resize->size().width() / 2, resize->size().height() / 2);
        return;
    }
    const auto *mouse = static_cast<QMouseEvent *>(event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (mouse->button() == Qt::LeftButton) {
            d->moving = true;
            d->dragOffset = QCursor::pos() - windowPosition(bar, mouse);
            d->moveTimer.start();
            bar->grabMouse();
        }
        break;
    case QEvent::MouseButtonRelease:
        if (mouse->button() == Qt::LeftButton) {
            d->moving = false;
            bar->releaseMouse();
        }
        break;
    case QEvent::MouseButtonDblClick:
        if (isFixedSize())
            break;
        if (isNormal())
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
    const QPointer<QWidget> widget(d->widget);
    if (isNormal()) {
        widget->move(cursor - d->dragOffset);
        if (widget && cursor.y() < TopOfScreen && !isFixedSize()) {
            // Once the event that is being handled is through.
            QMetaObject::invokeMethod(widget, &QWidget::showMaximized, Qt::QueuedConnection);
        }
    } else if (cursor.y() >= TopOfScreen) {
        // The restored window hangs from the middle of the bar on the moves to come.
        const QPointer<KestFramelessDelegate> guard(this);
        const QPointer<QWidget> watchedBar(bar);
        widget->showNormal();
        if (guard && watchedBar)
            d->dragOffset = QPoint(bar->width() / 2, bar->height() / 2);
    }
}

void KestFramelessDelegate::resizeWindow()
{
    if (!d->direction)
        return;
    const QPointer<QWidget> widget(d->widget);
    const QPoint cursor = QCursor::pos();
    const int margin = d->shadowWidth;
    const QSize minimum = widget->minimumSize().expandedTo(widget->minimumSizeHint());
    const QSize maximum = widget->maximumSize();
    const QPoint topLeft = widget->mapToGlobal(QPoint(0, 0));
    const QPoint bottomRight =
        widget->mapToGlobal(QPoint(widget->width() - 1, widget->height() - 1));
    const Directions direction = d->direction;
    QRect rect(topLeft, bottomRight);

    // Left and top stop one pixel short of the minimum: the opposite edge, which QRect counts in,
    // must not be touched.
    if (direction & Left) {
        rect.setLeft(qMax(bottomRight.x() + 1 - maximum.width(),
                          qMin(bottomRight.x() - minimum.width(), cursor.x() - margin)));
    } else if (direction & Right) {
        const int width =
            qMin(qMax(cursor.x() - topLeft.x() + margin, minimum.width()), maximum.width());
        rect.setRight(rect.left() + width - 1);
    }
    if (direction & (Left | Right))
        widget->setGeometry(rect);
    if (!widget)
        return;
    if (direction & Top) {
        rect.setTop(qMax(bottomRight.y() + 1 - maximum.height(),
                         qMin(cursor.y() - margin, bottomRight.y() - minimum.height())));
    } else if (direction & Bottom) {
        const int height =
            qMin(maximum.height(), qMax(cursor.y() - topLeft.y() + margin, minimum.height()));
        rect.setBottom(rect.top() + height - 1);
    }
    if (direction & (Top | Bottom))
        widget->setGeometry(rect);
}

bool KestFramelessDelegate::isNormal() const
{
    return !d->widget->isMaximized() && !d->widget->isFullScreen();
}

bool KestFramelessDelegate::isFixedSize() const
{
    return d->widget->minimumSize() == d->widget->maximumSize();
}
