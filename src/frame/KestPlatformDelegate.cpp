// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestPlatformDelegate.h"

#include <QtWidgets/QWidget>

KestPlatformDelegate *createPlatformDelegate(QWidget *window, QWidget *moveBar, Qt::WindowType type)
{
    auto *delegate = new KestPlatformDelegate(window, moveBar);
    // The delegate replaces all window flags, the type included: without it a shell that was
    // given a parent would be shown inside of it.
    window->setWindowFlags(window->windowFlags() | type);
    return delegate;
}

bool platformNativeEvent(KestPlatformDelegate *delegate, const QByteArray &eventType, void *message,
                         long *result)
{
    Q_UNUSED(delegate)
    Q_UNUSED(eventType)
    Q_UNUSED(message)
    Q_UNUSED(result)
    return false;
}
