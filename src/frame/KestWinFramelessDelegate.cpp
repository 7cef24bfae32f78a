// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestWinFramelessDelegate.h"

#include "KestTitleBar.h"

#include <QtCore/QDebug>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QCursor>
#include <QtGui/QFocusEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

#include <windows.h>

#include <dwmapi.h>

#include <utility>

namespace {

const QSize UnlimitedSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
const int BorderWidth = 5; // pixels of the window's edge that resize it
const int CompositionMargin = 1; // pixels of frame left to the compositor, for its shadow

// The parts of a native style that are this delegate's affair.
const LONG FrameStyle = WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
// What every window has of them, but for the maximise button where its flags take that away. No
// WS_SYSMENU: with it the system would paint and hit its own buttons.
const LONG CommonStyle = WS_CAPTION | WS_THICKFRAME | WS_MAXIMIZEBOX;

const UINT FrameChanged = SWP_NOSIZE | SWP_NOMOVE | SWP_FRAMECHANGED;

// The window's handle, or null while it has none: asking for the id would create one.
HWND handleOf(const QWidget *widget)
{
    return reinterpret_cast<HWND>(widget->internalWinId());
}

// Knows whether a widget still has the native window that it had when a call left the library.
class NativeWindowGuard
{
public:
    explicit NativeWindowGuard(QWidget *widget) : m_widget(widget), m_window(handleOf(widget)) { }

    bool holds() const { return m_widget && handleOf(m_widget) == m_window; }

private:
    const QPointer<QWidget> m_widget;
    const HWND m_window;
};

bool isCompositionEnabled()
{
    BOOL enabled = FALSE;
    return DwmIsCompositionEnabled(&enabled) == S_OK && enabled;
}

QRect toQRect(const RECT &rect)
{
    return QRect(QPoint(rect.left, rect.top), QPoint(rect.right - 1, rect.bottom - 1));
}

QRect nativeRect(HWND window)
{
    RECT rect = {};
    GetWindowRect(window, &rect);
    return toQRect(rect);
}

// What the task bar leaves of a monitor.
QRect workAreaOf(HMONITOR monitor)
{
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    GetMonitorInfoW(monitor, &info);
    return toQRect(info.rcWork);
}

// The frame that the system takes off the contents of a maximised window, a caption at the top not
// counted: there the frame is as high as at the bottom.
QMargins systemFrameOf(HWND window)
{
    const QRect outside(0, 0, 1000, 1000);
    RECT rect = { 0, 0, outside.width(), outside.height() };
    DefWindowProcW(window, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&rect));
    const QRect inside = toQRect(rect);
    const int height = outside.bottom() - inside.bottom();
    return QMargins(inside.left(), height, outside.right() - inside.right(), height);
}

// A place on the screen in Qt's pixels, of which the system knows nothing.
QPoint toQtPoint(const QPoint &point, const QWidget *widget)
{
    const QPoint origin = widget->screen()->geometry().topLeft();
    return origin + (point - origin) / widget->devicePixelRatioF();
}

bool isNear(int value, int other, int distance)
{
    return qAbs(value - other) <= distance;
}

bool isKeyDown(int key)
{
    return GetKeyState(key) < 0;
}

// Which of three neighbouring bands a value is in: the first or the last pixels of first to last,
// or what is between them. Earlier ones win where a window is too small for all of them.
enum Band { OutOfBands = -1, FirstBand, MiddleBand, LastBand };

Band bandOf(int value, int first, int last)
{
    if (first <= value && value <= first + BorderWidth)
        return FirstBand;
    if (first + BorderWidth < value && value < last - BorderWidth)
        return MiddleBand;
    return last - BorderWidth <= value && value <= last ? LastBand : OutOfBands;
}

// What a point is to the edges of a window; HTCLIENT if nothing. Left and right of the window is
// nowhere, above and below it is not.
int edgeAt(const QPoint &point, const QRect &window)
{
    static const int Answers[3][3] = {
        { HTTOPLEFT, HTTOP, HTTOPRIGHT },
        { HTLEFT, HTCLIENT, HTRIGHT },
        { HTBOTTOMLEFT, HTBOTTOM, HTBOTTOMRIGHT },
    };
    const Band column = bandOf(point.x(), window.left(), window.right());
    const Band row = bandOf(point.y(), window.top(), window.bottom());
    if (column != OutOfBands && row != OutOfBands)
        return Answers[row][column];
    return point.x() < window.left() || point.x() > window.right() ? HTNOWHERE : HTCLIENT;
}

// What one of a bar's own buttons is to the system. The maximise button answers as the minimise
// button does: the system shows its snap choices for neither then.
int buttonAnswer(const QString &name)
{
    if (name == QLatin1String("closeBtn"))
        return HTCLOSE;
    if (name == QLatin1String("minimumSizeBtn") || name == QLatin1String("maximumSizeBtn"))
        return HTMINBUTTON;
    return HTCLIENT;
}

} // namespace

class KestWinFramelessDelegatePrivate
{
public:
    void updateWorkRect(HMONITOR current);

    QList<QWidget *> moveBars;
    QWidget *widget = nullptr;
    bool styleDirty = true; // the native window has not got its style yet
    WINDOWPLACEMENT placement = {}; // when the window was last hidden or closed
    bool restoresPlacement = false; // as soon as Qt has shown the window
    QRect workRect; // of the monitor that the maximised window is on
    HMONITOR monitor = nullptr; // the one that workRect belongs to
    QRect unstyledGeometry; // to come back to from a full screen that was there before the style
    bool answersAsNormal = false; // what is asked for is the client area that it has unmaximised
};

void KestWinFramelessDelegatePrivate::updateWorkRect(HMONITOR current)
{
    if (current == monitor)
        return;
    monitor = current;
    if (!monitor)
        return;
    const QRect rect = workAreaOf(monitor);
    if (!rect.isEmpty())
        workRect = rect;
}

KestWinFramelessDelegate::KestWinFramelessDelegate(QWidget *parent,
                                                   const QList<QWidget *> &moveBars)
    : QObject(parent), d(new KestWinFramelessDelegatePrivate)
{
    d->widget = parent;
    parent->installEventFilter(this);
    for (QWidget *bar : moveBars) {
        watch(bar);
        d->moveBars.append(bar);
    }
    parent->setWindowFlags(parent->windowFlags() | Qt::Window | Qt::FramelessWindowHint
                           | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint
                           | Qt::WindowMaximizeButtonHint);
    watchNativeWindow();
}

KestWinFramelessDelegate::KestWinFramelessDelegate(QWidget *parent, QWidget *moveBar)
    : KestWinFramelessDelegate(parent, QList<QWidget *> { moveBar })
{ }

KestWinFramelessDelegate::~KestWinFramelessDelegate()
{
    delete d;
}

void KestWinFramelessDelegate::addMoveBar(QWidget *widget)
{
    if (!widget || d->moveBars.contains(widget))
        return;
    watch(widget);
    d->moveBars.append(widget);
}

void KestWinFramelessDelegate::removeMoveBar(QWidget *widget)
{
    if (d->moveBars.removeOne(widget) && widget && !d->moveBars.contains(widget))
        disconnect(widget, &QObject::destroyed, this, nullptr);
}

void KestWinFramelessDelegate::setWindowLong()
{
    const HWND window = handleOf(d->widget);
    if (!window)
        return;
    const Qt::WindowFlags flags = d->widget->windowFlags();
    LONG style = GetWindowLongW(window, GWL_STYLE) & ~FrameStyle;
    style |= CommonStyle;
    // A window of limited size counts as a dialog, which is not minimised on its own.
    if (flags & Qt::WindowMinimizeButtonHint && d->widget->maximumSize() == UnlimitedSize)
        style |= WS_MINIMIZEBOX;
    if (!(flags & Qt::WindowMaximizeButtonHint))
        style &= ~LONG(WS_MAXIMIZEBOX);
    SetWindowLongW(window, GWL_STYLE, style);

    if (isCompositionEnabled()) {
        const MARGINS margins = { CompositionMargin, CompositionMargin, CompositionMargin,
                                  CompositionMargin };
        DwmExtendFrameIntoClientArea(window, &margins);
    }

    // The system asks for the client area anew.
    const QRect rect = nativeRect(window);
    SetWindowPos(window, nullptr, rect.x(), rect.y(), rect.width(), rect.height(), FrameChanged);
}

void KestWinFramelessDelegate::showSystemMenu(const QPoint &pos)
{
    const HWND window = handleOf(d->widget);
    const HMENU menu = GetSystemMenu(window, FALSE);
    if (!menu)
        return;

    const bool maximized = d->widget->isMaximized();
    const bool fixedSize = isFixedSize();
    MENUITEMINFOW item = {};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_STATE;
    const auto setState = [&](UINT command, bool byPosition = false) {
        SetMenuItemInfoW(menu, command, byPosition, &item);
    };

    item.fState = MFS_ENABLED;
    setState(SC_RESTORE);
    setState(SC_MAXIMIZE);
    setState(SC_MINIMIZE);

    // Where the two are not to be disabled they are addressed as positions, which no menu has: they
    // keep the state that the system gives them.
    item.fState = MF_DISABLED;
    setState(SC_SIZE, !fixedSize && !maximized);
    setState(SC_MOVE, !maximized);

    item.fState = MF_GRAYED;
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof(placement);
    GetWindowPlacement(window, &placement);
    const Qt::WindowFlags flags = d->widget->windowFlags();
    switch (placement.showCmd) {
    case SW_SHOWMINIMIZED:
        setState(SC_MINIMIZE);
        SetMenuDefaultItem(menu, SC_RESTORE, FALSE);
        break;
    case SW_SHOWMAXIMIZED:
        setState(SC_MAXIMIZE);
        SetMenuDefaultItem(menu, SC_CLOSE, FALSE);
        break;
    case SW_SHOWNORMAL:
        if (fixedSize || !(flags & Qt::WindowMaximizeButtonHint))
            setState(SC_MAXIMIZE);
        if (!(flags & Qt::WindowMinimizeButtonHint))
            setState(SC_MINIMIZE);
        setState(SC_RESTORE);
        SetMenuDefaultItem(menu, SC_CLOSE, FALSE);
        break;
    default:
        break;
    }

    // The menu has a loop of its own, in which the window may die, or get another native one.
    const NativeWindowGuard guard(d->widget);
    const qreal ratio = qGuiApp->devicePixelRatio();
    const int command = TrackPopupMenuEx(menu, TPM_RETURNCMD, int(pos.x() * ratio),
                                         int(pos.y() * ratio), window, nullptr);
    if (command && guard.holds())
        PostMessageW(window, WM_SYSCOMMAND, WPARAM(command), 0);
}

bool KestWinFramelessDelegate::onNCTitTest(MSG *msg, KestNativeResult *result)
{
    Q_UNUSED(msg)
    // The point where the cursor is now, which the one in the message may lag behind.
    const QPoint cursor = QCursor::pos();
    if (!isFixedSize() && !d->widget->isMaximized() && !d->widget->isFullScreen()) {
        const int edge = edgeAt(cursor, d->widget->geometry());
        if (edge != HTCLIENT) {
            *result = edge;
            return true;
        }
    }

    const QPoint point = d->widget->mapFromGlobal(cursor);
    const QWidget *const child = d->widget->childAt(point);
    if (!child)
        return false;
    for (const QWidget *bar : qAsConst(d->moveBars)) {
        if (child == bar) {
            const auto *title = qobject_cast<const KestTitleBar *>(bar);
            const bool onIcon = title && title->iconIsVisible()
                && title->doIconRect().contains(title->mapFrom(d->widget, point));
            *result = onIcon ? HTSYSMENU : HTCAPTION;
            return true;
        }
        if (child->parentWidget() == bar) {
            const QLatin1String type(child->metaObject()->className());
            if (type != QLatin1String("QWidget") && type != QLatin1String("QLabel")) {
                *result = buttonAnswer(child->objectName());
                // The click is the button's own.
                return false;
            }
        }
    }
    return false;
}

bool KestWinFramelessDelegate::nativeEvent(const QByteArray &eventType, void *message,
                                           KestNativeResult *result)
{
    Q_UNUSED(eventType)
    auto *msg = static_cast<MSG *>(message);
    switch (msg->message) {
    case WM_NCHITTEST:
        return onNCTitTest(msg, result);
    case WM_NCCALCSIZE:
        return calculateClientArea(msg, result);
    case WM_WINDOWPOSCHANGING:
        placeMaximized(msg);
        return false;
    case WM_NCPAINT:
    case WM_NCACTIVATE:
        // Without a compositor the system would paint a classic frame over the contents.
        if (isCompositionEnabled())
            return false;
        *result = 1;
        return true;
    case WM_NCLBUTTONDBLCLK:
        if (d->widget->maximumSize() != UnlimitedSize)
            return true;
        return !(d->widget->windowFlags() & Qt::WindowMaximizeButtonHint);
    case WM_NCRBUTTONUP:
        showSystemMenu(QCursor::pos());
        *result = 0;
        return true;
    case WM_SYSKEYDOWN:
        if (msg->wParam != VK_SPACE)
            return false;
        *result = 0;
        return true;
    case WM_SYSCOMMAND:
        if (msg->wParam != SC_KEYMENU || msg->lParam != VK_SPACE)
            return false;
        showSystemMenu(d->widget->pos());
        *result = 0;
        return true;
    case WM_SETFOCUS: {
        const NativeWindowGuard guard(d->widget);
        announceFocus();
        // Without its window the message goes nowhere.
        return !guard.holds();
    }
    case WM_SETTINGCHANGE:
    case WM_DISPLAYCHANGE: {
        const NativeWindowGuard guard(d->widget);
        renewWorkRect(msg);
        return !guard.holds();
    }
    default:
        return false;
    }
}

bool KestWinFramelessDelegate::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != d->widget)
        return event->type() == QEvent::WindowStateChange && changeState(watched, event);
    // Qt must not go on with a window that a host deletes meanwhile.
    const QPointer<QObject> receiver(watched);
    switch (event->type()) {
    case QEvent::WindowStateChange:
        applyWindowState();
        break;
    case QEvent::Show:
        prepareShow();
        break;
    case QEvent::Hide:
        d->restoresPlacement = false;
        savePlacement();
        break;
    case QEvent::Close:
        if ((d->widget->windowType() & Qt::Dialog) != Qt::Dialog)
            savePlacement();
        break;
    case QEvent::WinIdChange:
        d->styleDirty = true;
        watchNativeWindow();
        break;
    case QEvent::ScreenChangeInternal:
        if (d->widget->isVisible() && handleOf(d->widget))
            SetWindowPos(handleOf(d->widget), nullptr, 0, 0, 0, 0, FrameChanged);
        break;
    default:
        break;
    }
    return receiver.isNull();
}

// At once, so that the filters of all others come before this one, which ends the way of a state.
void KestWinFramelessDelegate::watchNativeWindow()
{
    if (QWindow *const window = d->widget->windowHandle())
        window->installEventFilter(this);
}

// With a new state Qt notes the normal geometry of the window. It takes off it what the frame takes
// off the contents at that time, which of a maximised window is more than of a normal one: it would
// come back smaller by that much from each saveGeometry().
bool KestWinFramelessDelegate::changeState(QObject *window, QEvent *event)
{
    if (!IsZoomed(handleOf(d->widget)))
        return false;
    const QPointer<KestWinFramelessDelegate> guard(this);
    const QPointer<QObject> receiver(window);
    d->answersAsNormal = true;
    tellFrame();
    if (!guard)
        return receiver.isNull();
    d->answersAsNormal = false;
    window->event(event);
    if (guard)
        tellFrame();
    return true;
}

// Qt learns from the answer to this message what the frame takes off the contents.
void KestWinFramelessDelegate::tellFrame()
{
    const HWND window = handleOf(d->widget);
    WINDOWPOS pos = {};
    NCCALCSIZE_PARAMS params = {};
    params.lppos = &pos;
    GetWindowRect(window, params.rgrc);
    SendMessageW(window, WM_NCCALCSIZE, TRUE, reinterpret_cast<LPARAM>(&params));
}

void KestWinFramelessDelegate::applyWindowState()
{
    const QPointer<KestWinFramelessDelegate> guard(this);
    const Qt::WindowStates state = d->widget->windowState();
    qDebug() << "QRavWinFramelessDelegate::eventFilter QEvent::WindowStateChange" << state;
    if (!(state & Qt::WindowFullScreen) && d->unstyledGeometry.isValid()) {
        // Qt has given back the style and the frame of the time before full screen.
        const QRect geometry = std::exchange(d->unstyledGeometry, QRect());
        setWindowLong();
        if (guard && state == Qt::WindowNoState)
            d->widget->setGeometry(geometry);
        if (!guard)
            return;
    }
    QMargins margins;
    if (state == Qt::WindowNoState) {
        // A window that was restored above the work area could not be caught again.
        const QScreen *const screen = QGuiApplication::primaryScreen();
        const QRect workRect = screen ? screen->availableVirtualGeometry() : QRect();
        const HWND window = handleOf(d->widget);
        const QRect rect = nativeRect(window);
        qDebug() << "rect.top " << rect.top() << "workRect.top" << workRect.top();
        // Qt tells of this state as well on its way from full screen to maximised.
        const QPoint topLeft = toQtPoint(rect.topLeft(), d->widget);
        if (window && !IsZoomed(window) && workRect.top() > topLeft.y())
            d->widget->move(topLeft.x(), workRect.top());
        if (!guard)
            return;
    } else if (state == Qt::WindowMaximized) {
        // A maximised window is larger than the work area by its frame on all sides. Its contents
        // begin where the work area does, so of a widget of the window's size twice the frame is
        // off the screen at the right and at the bottom.
        const int padding = GetSystemMetrics(SM_CXPADDEDBORDER);
        const int x = GetSystemMetrics(SM_CXFRAME) + padding;
        const int y = GetSystemMetrics(SM_CYFRAME) + padding;
        qDebug() << "max x" << x << "max y" << y << "boarder" << padding;
        margins = QMargins(0, 0, 2 * x, 2 * y);
    }
    // Qt makes the widget as large as the client area, though, so nothing of it is off the screen:
    // the layout covers all of it.
    d->widget->setAttribute(Qt::WA_LayoutOnEntireRect, state == Qt::WindowMaximized);
    d->widget->setContentsMargins(margins);
}

void KestWinFramelessDelegate::prepareShow()
{
    if (d->styleDirty) {
        d->styleDirty = false;
        const QPointer<KestWinFramelessDelegate> guard(this);
        setWindowLong();
        if (!guard)
            return;
        d->unstyledGeometry = d->widget->isFullScreen() ? d->widget->normalGeometry() : QRect();
    }
    // Qt is not to choose a size of its own.
    d->widget->setAttribute(Qt::WA_Resized);
    if (d->widget->isMaximized()) {
        d->restoresPlacement = true;
        QTimer::singleShot(0, this, [this] { restorePlacement(); });
    }
}

void KestWinFramelessDelegate::savePlacement()
{
    const HWND window = handleOf(d->widget);
    if (!window)
        return;
    d->placement.length = sizeof(d->placement);
    GetWindowPlacement(window, &d->placement);
}

void KestWinFramelessDelegate::restorePlacement()
{
    const HWND window = handleOf(d->widget);
    // The system would show a window that was hidden since, and maximise one that was restored.
    if (!std::exchange(d->restoresPlacement, false) || !window || !d->widget->isMaximized())
        return;
    // What the system sends on its way may save another one, or delete this.
    const WINDOWPLACEMENT placement = d->placement;
    if (placement.showCmd != SW_SHOWMINIMIZED)
        SetWindowPlacement(window, &placement);
}

// The contents of a maximised window are the system's to place at the left and at the right, inside
// of the frame. They reach from one end of the work area to the other where the frame lies beyond
// it, as the system itself places such windows, but Qt, on the primary screen, does not.
void KestWinFramelessDelegate::placeMaximized(MSG *msg)
{
    if (!IsZoomed(msg->hwnd))
        return;
    auto *pos = reinterpret_cast<WINDOWPOS *>(msg->lParam);
    const bool moves = !(pos->flags & SWP_NOMOVE);
    const bool resizes = !(pos->flags & SWP_NOSIZE);
    const HMONITOR monitor = MonitorFromWindow(msg->hwnd, MONITOR_DEFAULTTONULL);
    if (!monitor || (!moves && !resizes))
        return;
    const QRect now = nativeRect(msg->hwnd);
    const QPoint topLeft = moves ? QPoint(pos->x, pos->y) : now.topLeft();
    const QSize size = resizes ? QSize(pos->cx, pos->cy) : now.size();

    const QRect work = workAreaOf(monitor);
    const QMargins frame = systemFrameOf(msg->hwnd);
    const QRect covering = work.marginsAdded(frame);
    // Qt's work area is off by a few pixels at some scales, and the system itself puts a window
    // that it restores on the screen. One of limited size is left alone.
    if (!isNear(topLeft.x(), work.x(), frame.left()) || !isNear(topLeft.y(), work.y(), frame.top())
        || !isNear(size.width(), work.width(), 2 * frame.left())
        || !isNear(size.height(), work.height(), 2 * frame.top()))
        return;
    pos->flags &= ~UINT(SWP_NOMOVE | SWP_NOSIZE);
    pos->x = covering.x();
    pos->y = covering.y();
    pos->cx = covering.width();
    pos->cy = covering.height();
}

// The task bar or the screen changed: the monitor is the same, what is left of it is not. The
// system may have placed its maximised windows anew before it tells.
void KestWinFramelessDelegate::renewWorkRect(MSG *msg)
{
    if (msg->message == WM_SETTINGCHANGE && msg->wParam != SPI_SETWORKAREA)
        return;
    d->monitor = nullptr;
    if (IsZoomed(msg->hwnd)) {
        SetWindowPos(msg->hwnd, nullptr, 0, 0, 0, 0, FrameChanged | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

bool KestWinFramelessDelegate::calculateClientArea(MSG *msg, KestNativeResult *result)
{
    if (!msg->wParam) {
        *result = 0;
        return true;
    }
    auto *params = reinterpret_cast<NCCALCSIZE_PARAMS *>(msg->lParam);
    RECT *const rects = params->rgrc;
    rects[2] = rects[1];
    rects[1] = rects[0];

    if (d->answersAsNormal || !IsZoomed(msg->hwnd)) {
        // All of the window is contents. The one pixel more keeps the system from taking it for a
        // window that has no frame at all.
        rects[0].bottom += 1;
        *result = WVR_REDRAW;
        return true;
    }

    d->updateWorkRect(MonitorFromWindow(msg->hwnd, MONITOR_DEFAULTTONULL));
    qDebug() << "WM_NCCALCSIZE full " << d->workRect;
    if (d->workRect.isNull()) {
        qWarning() << "work rect is null";
        return false;
    }
    *result = KestNativeResult(DefWindowProcW(msg->hwnd, WM_NCCALCSIZE, msg->wParam, msg->lParam));
    if (*result == 0) {
        rects[0].top = d->workRect.top();
        rects[0].bottom = d->workRect.bottom() + 1;
    }
    return true;
}

// The system does not say what gave the window the focus; the keys and buttons that are down do.
void KestWinFramelessDelegate::announceFocus()
{
    Qt::FocusReason reason = Qt::TabFocusReason;
    if (isKeyDown(VK_LBUTTON) || isKeyDown(VK_RBUTTON))
        reason = Qt::MouseFocusReason;
    else if (isKeyDown(VK_SHIFT))
        reason = Qt::BacktabFocusReason;
    QFocusEvent event(QEvent::FocusIn, reason);
    QCoreApplication::sendEvent(d->widget, &event);
}

void KestWinFramelessDelegate::watch(QWidget *bar)
{
    if (bar && !d->moveBars.contains(bar))
        connect(bar, &QObject::destroyed, this, [this, bar] { d->moveBars.removeAll(bar); });
}

bool KestWinFramelessDelegate::isFixedSize() const
{
    return d->widget->minimumSize() == d->widget->maximumSize();
}
