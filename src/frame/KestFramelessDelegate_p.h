// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTFRAMELESSDELEGATE_P_H
#define KESTFRAMELESSDELEGATE_P_H

#include "KestFramelessDelegate.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QPoint>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QWidget>

/*! What the delegate's handling of input and its painting share. */
class KestFramelessDelegatePrivate
{
public:
    static constexpr int DefaultShadowWidth = 8; // pixels of transparent margin

    bool isNormal() const { return !widget->isMaximized() && !widget->isFullScreen(); }
    int margin() const { return isNormal() ? shadowWidth : 0; }
    bool isFixedSize() const { return widget->minimumSize() == widget->maximumSize(); }
    int shadowDepth(const QMargins &margins) const;
    QStyleOption frameOption() const;

    QWidget *widget = nullptr;
    Directions direction;
    QPoint pressPos;
    QElapsedTimer moveTimer;
    bool resizing = false;
    QList<QWidget *> moveBars;
    bool shadowless = false;
    int shadowWidth = DefaultShadowWidth;
    int innerBorder = 0;
    bool moving = false;
    QPoint dragOffset;
    QWidget *movedBar = nullptr; // the move bar that holds the mouse
    QPoint windowOffset; // from where Qt has the window to where it is, at the press on an edge
};

#endif // KESTFRAMELESSDELEGATE_P_H
