// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "RealInput.h"

#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

void RealInput::settle(int ms)
{
    QTest::qWait(ms);
    // On a busy machine what the system sent may still be in Qt's own queue.
    QGuiApplication::sync();
}
