// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef WINAPI_DWMAPI_H
#define WINAPI_DWMAPI_H

/*!
    \file
    A stand-in for the system's header of desktop composition; see windows.h beside it.
*/

#include "windows.h"

struct MARGINS
{
    int cxLeftWidth, cxRightWidth, cyTopHeight, cyBottomHeight;
};

HRESULT DwmIsCompositionEnabled(BOOL *enabled);
HRESULT DwmExtendFrameIntoClientArea(HWND window, const MARGINS *margins);

#endif // WINAPI_DWMAPI_H
