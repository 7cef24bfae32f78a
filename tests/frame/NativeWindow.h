// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef NATIVEWINDOW_H
#define NATIVEWINDOW_H

#include <QtCore/QRect>
#include <QtGui/QImage>
#include <QtWidgets/QWidget>

#include <windows.h>

/*!
    \file
    What the system knows of a window on Windows, in its own pixels, whatever Qt knows of it.
*/

inline HWND handleOf(const QWidget *widget)
{
    return reinterpret_cast<HWND>(widget->internalWinId());
}

inline QRect toQRect(const RECT &rect)
{
    return QRect(QPoint(rect.left, rect.top), QPoint(rect.right - 1, rect.bottom - 1));
}

/*! The window with its frame, as far as it has one. */
inline QRect nativeRect(const QWidget *window)
{
    RECT rect = {};
    GetWindowRect(handleOf(window), &rect);
    return toQRect(rect);
}

inline MONITORINFO monitorOf(const QWidget *window)
{
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    GetMonitorInfoW(MonitorFromWindow(handleOf(window), MONITOR_DEFAULTTONEAREST), &info);
    return info;
}

/*! What the task bar leaves of the screen that the window is on. */
inline QRect workArea(const QWidget *window)
{
    return toQRect(monitorOf(window).rcWork);
}

/*! What the contents of the window cover of the screen. */
inline QRect clientRect(const QWidget *window)
{
    RECT rect = {};
    GetClientRect(handleOf(window), &rect);
    POINT origin = {};
    ClientToScreen(handleOf(window), &origin);
    return QRect(origin.x, origin.y, rect.right, rect.bottom);
}

/*! What is seen on the primary screen. */
inline QImage screenshot()
{
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    QImage image(width, height, QImage::Format_RGB32);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height; // from the top down
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, screen, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    GetDIBits(memory, bitmap, 0, UINT(height), image.bits(), &info, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return image;
}

inline QPoint centerOf(const QWidget *widget)
{
    return widget->mapToGlobal(widget->rect().center());
}

inline QWidget *childNamed(const QWidget *parent, const char *name)
{
    return parent->findChild<QWidget *>(QString::fromLatin1(name));
}

#endif // NATIVEWINDOW_H
