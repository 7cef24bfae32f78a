// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "part.h"

#include <KestColor>

#include <QtCore/QFile>

// Of the library only what has nothing to do with its resources is used.
bool sheetsAreThere()
{
    const char *const names[] = { "default-light.css", "sw-light.css", "tool.css",
                                  "kest-blue.css" };
    for (const char *const name : names) {
        QFile file(QLatin1String(":/stylesheet/Resources/stylesheet/") + QLatin1String(name));
        if (!file.open(QIODevice::ReadOnly) || file.size() == 0)
            return false;
    }
    return KestColor::generateBackgroundColor(0).isValid();
}
