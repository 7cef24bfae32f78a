// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include <QtCore/qglobal.h>

// Resources register themselves as a program starts, but from a static library the linker takes
// only what something refers to. Every host's linker is told to look for this function by its name,
// which is C's to be the same for all compilers.
extern "C" {
void kestRegisterResources();
}

void kestRegisterResources()
{
    Q_INIT_RESOURCE(KestWidgets);
}
