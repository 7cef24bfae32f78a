// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef PART_H
#define PART_H

// Whether the library's style sheets can be read.
bool sheetsAreThere();

#endif // PART_H
