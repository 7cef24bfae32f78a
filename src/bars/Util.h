// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef UTIL_H
#define UTIL_H

#include "KestWidgetItem.h"

#include <QtCore/QList>
#include <QtGui/QIcon>
#include <QtWidgets/QAction>
#include <QtWidgets/QWidget>

#include <memory>

/*! What the bars, and in part the shells around them, share. */
namespace Util {

/*! Returns the first of \a items that shows \a action, or an empty pointer. */
std::shared_ptr<KestWidgetItem> find(QAction *action,
                                     const QList<std::shared_ptr<KestWidgetItem>> &items);
/*! Returns the first of \a items whose widget is \a widget, or an empty pointer. */
std::shared_ptr<KestWidgetItem> find(QWidget *widget,
                                     const QList<std::shared_ptr<KestWidgetItem>> &items);

/*!
    Inserts \a item in front of the item of \a before, or at the end where there is none, both into
    \a items and into \a layout, which holds the widgets of the items and nothing else.
*/
template <class Layout, class Item>
void addItem(Item item, QList<Item> &items, QAction *before, Layout *layout)
{
    if (!item || !layout)
        return;
    int index = items.size();
    for (int i = 0; before && i < items.size(); ++i) {
        if (items.at(i)->action() == before) {
            index = i;
            break;
        }
    }
    items.insert(index, item);
    if (!item->widget())
        return;
    layout->insertWidget(index, item->widget());
    if (item->isCustomWidget() && item->action())
        item->widget()->setVisible(item->action()->isVisible());
}

/*!
    Returns \a icon at its first available size for \a state, scaled down to \a maximumHeight where
    it is higher. The numbers are device-independent pixels; the pixmap is rendered for
    \a devicePixelRatio. It is null when the icon has no sizes or the height is not positive.
*/
QPixmap iconPixmap(const QIcon &icon, int maximumHeight, QIcon::State state,
                   qreal devicePixelRatio);

/*! Hides \a widget at once and has it deleted when control returns to the event loop. Null is
    ignored, and whoever hears of the hiding may delete the widget. */
void hideAndDeleteLater(QWidget *widget);

} // namespace Util

#endif // UTIL_H
