// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "WindowsEventFilter.h"

#include "KestWinFramelessDelegate.h"

#include <QtWidgets/QWidget>

#include <windows.h>

bool WindowsEventFilter::nativeEventFilter(const QByteArray &eventType, void *message,
                                           KestNativeResult *result)
{
    Q_UNUSED(eventType)
    auto *msg = static_cast<MSG *>(message);
    if (msg->message != WM_NCHITTEST)
        return false;
    const QWidget *const widget = QWidget::find(reinterpret_cast<WId>(msg->hwnd));
    if (!widget || widget->isWindow())
        return false;
    auto *delegate = widget->window()->findChild<KestWinFramelessDelegate *>();
    if (!delegate || !delegate->onNCTitTest(msg, result))
        return false;
    *result = HTTRANSPARENT;
    return true;
}
