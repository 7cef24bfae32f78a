// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "MenuBarItem.h"

#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStyle>

MenuBarItem::MenuBarItem(QMenuBar *menuBar) : QWidgetItem(menuBar)
{ }

QSize MenuBarItem::sizeHint() const
{
    return widened(QWidgetItem::sizeHint());
}

QSize MenuBarItem::minimumSize() const
{
    const bool mayShrink = wid->sizePolicy().horizontalPolicy() & QSizePolicy::ShrinkFlag;
    return mayShrink ? QWidgetItem::minimumSize() : widened(QWidgetItem::minimumSize());
}

// By what the leftmost entry is short of, or beyond, the place that the bar would begin at.
QSize MenuBarItem::widened(const QSize &size) const
{
    const auto *menuBar = static_cast<QMenuBar *>(wid);
    // A native one is never visible, and thereby empty.
    if (isEmpty() || !menuBar->isRightToLeft())
        return size;
    QRect entries;
    const QList<QAction *> actions = menuBar->actions();
    for (QAction *action : actions)
        entries |= menuBar->actionGeometry(action);
    if (entries.isNull())
        return size;

    const QStyle *const style = menuBar->style();
    int start = style->pixelMetric(QStyle::PM_MenuBarPanelWidth, nullptr, menuBar)
        + style->pixelMetric(QStyle::PM_MenuBarItemSpacing, nullptr, menuBar);
    const QWidget *const corner = menuBar->cornerWidget(Qt::TopLeftCorner);
    start += corner && corner->isVisible()
        ? corner->sizeHint().width()
        : style->pixelMetric(QStyle::PM_MenuBarHMargin, nullptr, menuBar);
    return QSize(size.width() + start - entries.left(), size.height())
        .boundedTo(menuBar->maximumSize());
}
