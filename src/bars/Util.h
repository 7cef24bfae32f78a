// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef UTIL_H
#define UTIL_H

#include "KestWidgetItem.h"

#include <QAction>
#include <QtCore/QList>
#include <QtGui/QIcon>
#include <QtWidgets/QLayout>
#include <QtWidgets/QWidget>

#include <memory>

/*! What the bars, and in part the shells around them, share. */
namespace Util {

/*! Returns the first of \a items that shows \a action, or an empty pointer. No item shows null, nor
    does one whose action has died. */
std::shared_ptr<KestWidgetItem> find(QAction *action,
                                     const QList<std::shared_ptr<KestWidgetItem>> &items);
/*! Returns the first of \a items whose widget is \a widget, or an empty pointer, also for null. */
std::shared_ptr<KestWidgetItem> find(QWidget *widget,
                                     const QList<std::shared_ptr<KestWidgetItem>> &items);
/*! Returns the first of \a items whose action has died, or an empty pointer. */
std::shared_ptr<KestWidgetItem> findOrphan(const QList<std::shared_ptr<KestWidgetItem>> &items);

/*!
    Inserts \a item in front of the item of \a before, or at the end where there is none, both into
    \a items and into \a layout, which holds the widgets of the items and nothing else. Widgets that
    others deleted or took away are no longer in the layout.
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
    // The place in the layout is in front of the next widget that is still there.
    int place = -1;
    for (int i = index; place < 0 && i < items.size(); ++i) {
        if (QWidget *next = items.at(i)->widget())
            place = layout->indexOf(next);
    }
    items.insert(index, item);
    if (!item->widget())
        return;
    QWidget *const widget = item->widget();
    if (widget->isVisible() && widget->parentWidget() == layout->parentWidget()
        && !widget->testAttribute(Qt::WA_LaidOut)) {
        // The layout itself would have it shown later, by a call that waits in the event queue.
        widget->setAttribute(Qt::WA_LaidOut);
        layout->insertItem(place, new QWidgetItemV2(widget));
    } else {
        layout->insertWidget(place, widget);
        // Whoever heard of its new parent may have taken the action away again, or the widget.
        if (items.lastIndexOf(item) < 0 || item->widget() != widget
            || widget->parentWidget() != layout->parentWidget()) {
            layout->removeWidget(widget);
            return;
        }
    }
    if (item->isCustomWidget() && item->widget() && item->action())
        item->widget()->setVisible(item->action()->isVisible());
}

/*! Takes \a item out of \a items, and its widget out of \a layout, as addItem() put them there. */
void takeItem(const std::shared_ptr<KestWidgetItem> &item,
              QList<std::shared_ptr<KestWidgetItem>> &items, QLayout *layout);

/*!
    Returns \a icon at its first available size for \a state, scaled down to \a maximumHeight where
    it is higher. The numbers are device-independent pixels; the pixmap is rendered for
    \a devicePixelRatio. It is null when the icon has no sizes or the height is not positive.
*/
QPixmap iconPixmap(const QIcon &icon, int maximumHeight, QIcon::State state,
                   qreal devicePixelRatio);

/*! Returns \a icon, as it is for QIcon::Off, with exactly \a pixels, and a device pixel ratio of
    1. */
QPixmap iconPixels(const QIcon &icon, const QSize &pixels);

/*! Hides \a widget at once and has it deleted when control returns to the event loop. Null is
    ignored, and whoever hears of the hiding may delete the widget. */
void hideAndDeleteLater(QWidget *widget);

} // namespace Util

#endif // UTIL_H
