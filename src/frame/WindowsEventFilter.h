// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef WINDOWSEVENTFILTER_H
#define WINDOWSEVENTFILTER_H

#include "KestGlobal.h"

#include <QtCore/QAbstractNativeEventFilter>

/*!
    \brief Makes native child windows transparent where their frameless window is to be hit.

    The system asks the innermost native window what a point is. For a native child of a window with
    a KestWinFramelessDelegate that claims the point, say a video in a move bar, the answer is that
    it is not there, so that the window itself is asked next.
*/
class WindowsEventFilter : public QAbstractNativeEventFilter
{
public:
    bool nativeEventFilter(const QByteArray &eventType, void *message,
                           KestNativeResult *result) override;
};

#endif // WINDOWSEVENTFILTER_H
