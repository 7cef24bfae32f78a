// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestSeparator.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>

KestSeparator::KestSeparator(Qt::Orientation orientation, QWidget *parent)
    : QWidget(parent), m_orientation(orientation)
{
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
}

Qt::Orientation KestSeparator::orientation() const
{
    return m_orientation;
}

QSize KestSeparator::sizeHint() const
{
    QStyleOption option;
    initStyleOption(&option);
    const int extent =
        style()->pixelMetric(QStyle::PM_ToolBarSeparatorExtent, &option, parentWidget());
    return QSize(extent, extent);
}

void KestSeparator::setOrientation(Qt::Orientation orientation)
{
    m_orientation = orientation;
}

void KestSeparator::initStyleOption(QStyleOption *option) const
{
    option->initFrom(this);
    if (m_orientation == Qt::Horizontal)
        option->state |= QStyle::State_Horizontal;
    const QRect contents = style()->subElementRect(QStyle::SE_FrameContents, option, this);
    if (contents.isValid())
        option->rect = contents;
}

void KestSeparator::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOption option;
    initStyleOption(&option);
    style()->drawPrimitive(QStyle::PE_IndicatorToolBarSeparator, &option, &painter, parentWidget());
}
