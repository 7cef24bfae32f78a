// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "part.h"

int main()
{
    return sheetsAreThere() ? 0 : 1;
}
