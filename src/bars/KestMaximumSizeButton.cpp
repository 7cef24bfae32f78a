// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestMaximumSizeButton.h"

#include <QtCore/QPointer>
#include <QtWidgets/QStyle>

KestMaximumSizeButton::KestMaximumSizeButton(QWidget *parent) : QPushButton(parent)
{ }

bool KestMaximumSizeButton::maximumSized() const
{
    return m_maximumSized;
}

void KestMaximumSizeButton::setMaximumSized(bool maximumSized)
{
    const QPointer<KestMaximumSizeButton> guard(this);
    style()->unpolish(this);
    if (!guard)
        return;
    m_maximumSized = maximumSized;
    style()->polish(this);
}
