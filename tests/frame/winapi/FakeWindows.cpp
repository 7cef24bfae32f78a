// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "FakeWindows.h"

#include "dwmapi.h"

FakeWindows *FakeWindows::current = nullptr;

namespace {

FakeWindows &fake()
{
    return *FakeWindows::current;
}

HMENU systemMenu()
{
    return reinterpret_cast<HMENU>(quintptr(0x4d));
}

void record(bool expected, const QString &call)
{
    fake().calls.append(expected ? call : QLatin1Char('?') + call);
}

void interrupt(const char *call)
{
    if (const auto happens = fake().during.take(QLatin1String(call)))
        happens();
}

QString hex(quintptr value)
{
    return QStringLiteral("0x") + QString::number(value, 16);
}

RECT toRect(const QRect &rect)
{
    return { rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height() };
}

} // namespace

LONG GetWindowLongW(HWND window, int index)
{
    return window == fake().window && index == GWL_STYLE ? fake().style : 0;
}

LONG SetWindowLongW(HWND window, int index, LONG value)
{
    record(window == fake().window && index == GWL_STYLE,
           QStringLiteral("SetWindowLongW %1").arg(hex(quint32(value))));
    return std::exchange(fake().style, value);
}

BOOL GetWindowRect(HWND window, RECT *rect)
{
    if (window != fake().window)
        return FALSE;
    *rect = toRect(fake().rect);
    return TRUE;
}

BOOL SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags)
{
    record(window == fake().window && !after,
           QStringLiteral("SetWindowPos %1,%2 %3x%4 %5")
               .arg(x)
               .arg(y)
               .arg(width)
               .arg(height)
               .arg(hex(flags)));
    interrupt("SetWindowPos");
    return TRUE;
}

BOOL GetWindowPlacement(HWND window, WINDOWPLACEMENT *placement)
{
    if (window != fake().window || placement->length != sizeof(WINDOWPLACEMENT))
        return FALSE;
    ++fake().placementsRead;
    *placement = fake().placement;
    placement->length = sizeof(WINDOWPLACEMENT);
    return TRUE;
}

BOOL SetWindowPlacement(HWND window, const WINDOWPLACEMENT *placement)
{
    interrupt("SetWindowPlacement");
    record(window == fake().window,
           QStringLiteral("SetWindowPlacement length %1 showCmd %2 left %3")
               .arg(placement->length)
               .arg(placement->showCmd)
               .arg(placement->rcNormalPosition.left));
    return TRUE;
}

BOOL IsZoomed(HWND window)
{
    return window == fake().window && fake().zoomed;
}

HMONITOR MonitorFromWindow(HWND window, UINT flags)
{
    return window == fake().window && flags == MONITOR_DEFAULTTONULL ? fake().monitor : nullptr;
}

BOOL GetMonitorInfoW(HMONITOR monitor, MONITORINFO *info)
{
    record(info->cbSize == 40, QStringLiteral("GetMonitorInfoW"));
    info->rcMonitor = { 0, 0, 10000, 10000 };
    info->rcWork = toRect(fake().workAreas.value(monitor));
    return TRUE;
}

int GetSystemMetrics(int index)
{
    return fake().metrics.value(index);
}

HMENU GetSystemMenu(HWND window, BOOL revert)
{
    return window == fake().window && !revert && fake().hasMenu ? systemMenu() : nullptr;
}

BOOL SetMenuItemInfoW(HMENU menu, UINT item, BOOL byPosition, const MENUITEMINFOW *info)
{
    record(menu == systemMenu() && info->cbSize == sizeof(MENUITEMINFOW)
               && info->fMask == MIIM_STATE,
           QStringLiteral("%1 %2 %3")
               .arg(byPosition ? QStringLiteral("position") : QStringLiteral("item"), hex(item))
               .arg(info->fState));
    return TRUE;
}

BOOL SetMenuDefaultItem(HMENU menu, UINT item, UINT byPosition)
{
    record(menu == systemMenu() && !byPosition, QStringLiteral("default %1").arg(hex(item)));
    return TRUE;
}

BOOL TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND window, void *params)
{
    record(menu == systemMenu() && flags == TPM_RETURNCMD && window == fake().window && !params,
           QStringLiteral("popup %1,%2").arg(x).arg(y));
    interrupt("TrackPopupMenuEx");
    return fake().chosen;
}

BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    record(window == fake().window,
           QStringLiteral("post %1 %2 %3").arg(hex(message), hex(wParam), hex(quintptr(lParam))));
    return TRUE;
}

LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    record(window == fake().window, QStringLiteral("send %1 %2").arg(hex(message), hex(wParam)));
    MSG msg = { window, message, wParam, lParam };
    if (fake().receive)
        fake().receive(&msg);
    return 0;
}

LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const bool expected = window == fake().window && message == WM_NCCALCSIZE && lParam;
    record(expected, QStringLiteral("DefWindowProcW"));
    if (expected && fake().defaultAnswer == 0) {
        // What the system does for a maximised window: its frame is taken off.
        RECT &rect = wParam ? reinterpret_cast<NCCALCSIZE_PARAMS *>(lParam)->rgrc[0]
                            : *reinterpret_cast<RECT *>(lParam);
        const QMargins frame = fake().frame;
        rect = { rect.left + frame.left(), rect.top + frame.top(), rect.right - frame.right(),
                 rect.bottom - frame.bottom() };
    }
    return fake().defaultAnswer;
}

SHORT GetKeyState(int key)
{
    return fake().keysDown.contains(key) ? SHORT(-127) : SHORT(fake().keysToggled.contains(key));
}

HRESULT DwmIsCompositionEnabled(BOOL *enabled)
{
    *enabled = fake().composition;
    return fake().compositionFails ? HRESULT(-1) : S_OK;
}

HRESULT DwmExtendFrameIntoClientArea(HWND window, const MARGINS *margins)
{
    record(window == fake().window,
           QStringLiteral("extend %1 %2 %3 %4")
               .arg(margins->cxLeftWidth)
               .arg(margins->cxRightWidth)
               .arg(margins->cyTopHeight)
               .arg(margins->cyBottomHeight));
    return S_OK;
}
