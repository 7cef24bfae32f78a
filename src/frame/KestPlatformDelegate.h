// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTPLATFORMDELEGATE_H
#define KESTPLATFORMDELEGATE_H

#include "KestGlobal.h"

#include <QtCore/QtGlobal>

#ifdef Q_OS_WIN
#    include "KestWinFramelessDelegate.h"
#else
#    include "KestFramelessDelegate.h"
#endif

/*!
    \file
    The one place where the shells' frame behaviour is chosen for a platform, at build time.
*/

#ifdef Q_OS_WIN
/*! The frame behaviour of the shells on this platform. */
using KestPlatformDelegate = KestWinFramelessDelegate;
#else
using KestPlatformDelegate = KestFramelessDelegate;
#endif

/*!
    Gives \a window, a shell of the kind \a type (Qt::Window or Qt::Dialog), its frame behaviour,
    with \a moveBar as its single move bar. The delegate is a child of the window.
*/
KestPlatformDelegate *createPlatformDelegate(QWidget *window, QWidget *moveBar,
                                             Qt::WindowType type);

/*!
    Lets \a delegate answer a native event of its window; returns whether it consumed it. A null
    delegate, or one that works with Qt's events alone, consumes none.
*/
bool platformNativeEvent(KestPlatformDelegate *delegate, const QByteArray &eventType, void *message,
                         KestNativeResult *result);

/*! Returns whether the window of \a delegate has to be painted anew when the pointer enters or
   leaves it. */
bool platformChangesWithHover(KestPlatformDelegate *delegate);

/*! Installs on the application what the delegates need there, if anything. */
void installPlatformEventFilter();

#endif // KESTPLATFORMDELEGATE_H
