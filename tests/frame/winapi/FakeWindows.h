// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef FAKEWINDOWS_H
#define FAKEWINDOWS_H

#include "windows.h"

#include <QtCore/QHash>
#include <QtCore/QMargins>
#include <QtCore/QRect>
#include <QtCore/QSet>
#include <QtCore/QStringList>

#include <functional>
#include <utility>

/*!
    The system that the stand-in headers declare: what it answers, and what it was asked to do.
   Calls that change something are recorded as their name and arguments, those about another window
   than \c window with a "?" before them.
*/
struct FakeWindows
{
    /*! The one that calls reach. */
    static FakeWindows *current;

    FakeWindows() { current = this; }
    ~FakeWindows() { current = nullptr; }

    HWND window = nullptr;
    LONG style = 0;
    QRect rect;
    bool composition = true;
    bool compositionFails = false;
    bool zoomed = false;
    HMONITOR monitor = nullptr;
    QHash<HMONITOR, QRect> workAreas;
    LRESULT defaultAnswer = 0;
    QHash<int, int> metrics;
    bool hasMenu = true;
    int chosen = 0;
    WINDOWPLACEMENT placement = {};
    QSet<int> keysDown;
    QSet<int> keysToggled; // pressed once too often, as caps lock is
    QMargins frame = QMargins(8, 31, 8, 8); // that the system takes off a maximised window
    int placementsRead = 0;
    /*! What happens while a call of that name is carried out, once: the real ones send messages
        to the window, or have a loop of their own. */
    QHash<QString, std::function<void()>> during;

    /*! Gets what is sent to the window, as its window procedure would. */
    std::function<void(MSG *)> receive;

    QStringList calls;
    /*! The calls since the last time. */
    QStringList takeCalls() { return std::exchange(calls, QStringList()); }
};

#endif // FAKEWINDOWS_H
