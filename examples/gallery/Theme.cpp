// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Theme.h"

#include "KestStyleSheet.h"

#include <QtCore/QFile>

namespace {

QString embeddedSheet(const char *name)
{
    QFile file(QStringLiteral(":/stylesheet/Resources/stylesheet/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

QList<Theme> Theme::all()
{
    return {
        { QStringLiteral("Default"), KestStyleSheet::defaultStyleSheet(), false },
        { QStringLiteral("Tool"), embeddedSheet("tool.css"), true },
        { QStringLiteral("Kest blue"), embeddedSheet("kest-blue.css"), true },
    };
}
