// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestPlatformDelegate.h"

#include <QtWidgets/QWidget>

#ifdef Q_OS_WIN

#    include "WindowsEventFilter.h"

#    include <QtCore/QCoreApplication>

KestPlatformDelegate *createPlatformDelegate(QWidget *window, QWidget *moveBar, Qt::WindowType)
{
    return new KestPlatformDelegate(window, moveBar);
}

bool platformNativeEvent(KestPlatformDelegate *delegate, const QByteArray &eventType, void *message,
                         KestNativeResult *result)
{
    return delegate && delegate->nativeEvent(eventType, message, result);
}

bool platformChangesWithHover(KestPlatformDelegate *)
{
    return true; // the host wants it, since the delegate does without hover events
}

void installPlatformEventFilter()
{
    // It lives as long as the process: messages arrive until the very end.
    QCoreApplication::instance()->installNativeEventFilter(new WindowsEventFilter);
}

#else

#    include "KestFramelessDelegate_p.h"

KestPlatformDelegate *createPlatformDelegate(QWidget *window, QWidget *moveBar, Qt::WindowType type)
{
    auto *delegate = new KestPlatformDelegate(window, moveBar);
    // The delegate replaces all window flags, the type included: without it a shell that was
    // given a parent would be shown inside of it.
    window->setWindowFlags(window->windowFlags() | type);
    // The delegate sets the shadow's margin with the first resize, which is too late for a window
    // that is shown in the size that its contents want.
    const int margin = KestFramelessDelegatePrivate::DefaultShadowWidth;
    window->setContentsMargins(margin, margin, margin, margin);
    return delegate;
}

bool platformNativeEvent(KestPlatformDelegate *, const QByteArray &, void *, KestNativeResult *)
{
    return false;
}

bool platformChangesWithHover(KestPlatformDelegate *delegate)
{
    return !delegate || delegate->changesWithHover();
}

void installPlatformEventFilter()
{ }

#endif
