// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef WINAPI_WINDOWS_H
#define WINAPI_WINDOWS_H

/*!
    \file
    A stand-in for the system's header: as much of it as the frame uses, with the system's values.
    What is called is recorded by FakeWindows, which also says what the calls return.
*/

#include <QtGui/qwindowdefs.h>

using BOOL = int;
using UINT = unsigned;
using LONG = qint32;
using SHORT = qint16;
using WPARAM = quintptr;
using LPARAM = qintptr;
using LRESULT = qintptr;
using HMENU = struct FakeMenuHandle *;
#ifndef Q_OS_WIN // where Qt has these, too
using HRESULT = long;
using HWND = struct FakeWindowHandle *;
using HMONITOR = struct FakeMonitorHandle *;
#endif

const BOOL FALSE = 0;
const BOOL TRUE = 1;
const HRESULT S_OK = 0;

struct POINT
{
    LONG x, y;
};

struct RECT
{
    LONG left, top, right, bottom;
};

struct tagMSG
{
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};
using MSG = tagMSG;

struct WINDOWPLACEMENT
{
    UINT length, flags, showCmd;
    POINT ptMinPosition, ptMaxPosition;
    RECT rcNormalPosition;
};

struct WINDOWPOS
{
    HWND hwnd, hwndInsertAfter;
    int x, y, cx, cy;
    UINT flags;
};

struct NCCALCSIZE_PARAMS
{
    RECT rgrc[3];
    void *lppos;
};

struct MONITORINFO
{
    UINT cbSize;
    RECT rcMonitor, rcWork;
    UINT dwFlags;
};

struct MENUITEMINFOW
{
    UINT cbSize, fMask, fType, fState;
};

const int GWL_STYLE = -16;
const LONG WS_CAPTION = 0xC00000;
const LONG WS_SYSMENU = 0x80000;
const LONG WS_THICKFRAME = 0x40000;
const LONG WS_MINIMIZEBOX = 0x20000;
const LONG WS_MAXIMIZEBOX = 0x10000;

const UINT WM_SETFOCUS = 0x0007;
const UINT WM_SETTINGCHANGE = 0x001A;
const UINT WM_WINDOWPOSCHANGING = 0x0046;
const UINT WM_DISPLAYCHANGE = 0x007E;
const UINT WM_NCCALCSIZE = 0x0083;
const UINT WM_NCHITTEST = 0x0084;
const UINT WM_NCPAINT = 0x0085;
const UINT WM_NCACTIVATE = 0x0086;
const UINT WM_NCLBUTTONDBLCLK = 0x00A3;
const UINT WM_NCRBUTTONUP = 0x00A5;
const UINT WM_SYSKEYDOWN = 0x0104;
const UINT WM_SYSCOMMAND = 0x0112;

const UINT SWP_NOSIZE = 0x0001;
const UINT SWP_NOMOVE = 0x0002;
const UINT SWP_NOZORDER = 0x0004;
const UINT SWP_NOACTIVATE = 0x0010;
const UINT SWP_FRAMECHANGED = 0x0020;

const int SM_CXFRAME = 32;
const int SM_CYFRAME = 33;
const int SM_CXPADDEDBORDER = 92;

const int HTTRANSPARENT = -1;
const int HTNOWHERE = 0;
const int HTCLIENT = 1;
const int HTCAPTION = 2;
const int HTSYSMENU = 3;
const int HTMINBUTTON = 8;
const int HTLEFT = 10;
const int HTRIGHT = 11;
const int HTTOP = 12;
const int HTTOPLEFT = 13;
const int HTTOPRIGHT = 14;
const int HTBOTTOM = 15;
const int HTBOTTOMLEFT = 16;
const int HTBOTTOMRIGHT = 17;
const int HTCLOSE = 20;

const UINT SC_SIZE = 0xF000;
const UINT SC_MOVE = 0xF010;
const UINT SC_MINIMIZE = 0xF020;
const UINT SC_MAXIMIZE = 0xF030;
const UINT SC_CLOSE = 0xF060;
const UINT SC_KEYMENU = 0xF100;
const UINT SC_RESTORE = 0xF120;

const UINT MIIM_STATE = 0x0001;
const UINT MFS_ENABLED = 0x0000;
const UINT MF_GRAYED = 0x0001;
const UINT MF_DISABLED = 0x0002;
const UINT TPM_RETURNCMD = 0x0100;

const int SW_SHOWNORMAL = 1;
const int SW_SHOWMINIMIZED = 2;
const int SW_SHOWMAXIMIZED = 3;

const int VK_LBUTTON = 0x01;
const int VK_RBUTTON = 0x02;
const int VK_SHIFT = 0x10;
const int VK_SPACE = 0x20;

const WPARAM SPI_SETWORKAREA = 0x002F;

const UINT MONITOR_DEFAULTTONULL = 0;
const LRESULT WVR_REDRAW = 0x0300;

LONG GetWindowLongW(HWND window, int index);
LONG SetWindowLongW(HWND window, int index, LONG value);
BOOL GetWindowRect(HWND window, RECT *rect);
BOOL SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);
BOOL GetWindowPlacement(HWND window, WINDOWPLACEMENT *placement);
BOOL SetWindowPlacement(HWND window, const WINDOWPLACEMENT *placement);
BOOL IsZoomed(HWND window);
HMONITOR MonitorFromWindow(HWND window, UINT flags);
BOOL GetMonitorInfoW(HMONITOR monitor, MONITORINFO *info);
int GetSystemMetrics(int index);
HMENU GetSystemMenu(HWND window, BOOL revert);
BOOL SetMenuItemInfoW(HMENU menu, UINT item, BOOL byPosition, const MENUITEMINFOW *info);
BOOL SetMenuDefaultItem(HMENU menu, UINT item, UINT byPosition);
BOOL TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND window, void *params);
BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
SHORT GetKeyState(int key);

#endif // WINAPI_WINDOWS_H
