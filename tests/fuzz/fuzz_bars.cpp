// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// Both bars with the actions of a host that changes and deletes them at any time.

#include "BarActions.h"

void fuzz(FuzzInput &input)
{
    if (input.flag())
        tryNavigationBar(input);
    else
        tryTitleBar(input);
}
