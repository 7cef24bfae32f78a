// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#pragma once

#include <QtCore/QStringList>
#include <QtCore/QVector>

// What this process holds at a moment: memory in kB, everything else in pieces. What depends on the
// system comes first, then widgets, objects and timers.
using Figures = QVector<qint64>;

QStringList figureNames();

// Whether the figure is one of memory, which is counted in kB.
bool isMemory(const QString &name);

// Has all objects counted that are made from now on.
void countObjects();

Figures figures();
