// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestStyle.h"

KestStyle::KestStyle(QStyle *style) : QProxyStyle(style)
{ }

QPixmap KestStyle::standardPixmap(StandardPixmap standardPixmap, const QStyleOption *option,
                                  const QWidget *widget) const
{
    return QProxyStyle::standardPixmap(standardPixmap, option, widget);
}
