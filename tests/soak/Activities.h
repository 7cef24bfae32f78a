// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#pragma once

#include <QtCore/QVector>

#include <functional>

// Does one thing that programs do over and over. What it works on lives as long as the function.
using Activity = std::function<void(int round)>;

struct NamedActivity
{
    const char *name;
    Activity (*make)();
    // The same with Qt's own classes where those grow by themselves, else null.
    Activity (*makeControl)();
};

QVector<NamedActivity> activities();
