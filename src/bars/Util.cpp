// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Util.h"

#include <QtCore/QPointer>
#include <QtGui/QPixmap>

#include <algorithm>

namespace {

using ItemList = QList<std::shared_ptr<KestWidgetItem>>;

template <class Predicate>
std::shared_ptr<KestWidgetItem> findFirst(const ItemList &items, Predicate predicate)
{
    const auto found = std::find_if(items.cbegin(), items.cend(), predicate);
    return found == items.cend() ? std::shared_ptr<KestWidgetItem>() : *found;
}

// The device pixel ratio is 1.
QPixmap render(const QIcon &icon, const QSize &requested, const QSize &pixels, QIcon::State state)
{
    QPixmap pixmap = icon.pixmap(requested, QIcon::Normal, state);
    pixmap.setDevicePixelRatio(1.0);
    if (pixmap.size() == pixels)
        return pixmap;
    return pixmap.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

std::shared_ptr<KestWidgetItem> Util::find(QAction *action, const ItemList &items)
{
    if (!action)
        return std::shared_ptr<KestWidgetItem>();
    return findFirst(items, [action](const auto &item) { return item->action() == action; });
}

std::shared_ptr<KestWidgetItem> Util::find(QWidget *widget, const ItemList &items)
{
    if (!widget)
        return std::shared_ptr<KestWidgetItem>();
    return findFirst(items, [widget](const auto &item) { return item->widget() == widget; });
}

std::shared_ptr<KestWidgetItem> Util::findOrphan(const ItemList &items)
{
    return findFirst(items, [](const auto &item) { return !item->action(); });
}

void Util::takeItem(const std::shared_ptr<KestWidgetItem> &item, ItemList &items, QLayout *layout)
{
    const int index = items.indexOf(item);
    items.removeAt(index);
    QWidget *const widget = item->widget();
    if (!widget)
        return;
    // Mostly in the same place in the layout, which is long where there are many.
    QLayoutItem *const same = layout->itemAt(index);
    delete layout->takeAt(same && same->widget() == widget ? index : layout->indexOf(widget));
}

QPixmap Util::iconPixmap(const QIcon &icon, int maximumHeight, QIcon::State state,
                         qreal devicePixelRatio)
{
    const QList<QSize> sizes = icon.availableSizes(QIcon::Normal, state);
    if (sizes.isEmpty() || maximumHeight <= 0)
        return QPixmap();

    const QSize available = sizes.first();
    QSize size = available;
    if (maximumHeight < size.height()) {
        // The width is rounded up, as QPixmap::scaledToHeight() does.
        const qreal factor = qreal(maximumHeight) / size.height();
        size = QSize(int(factor * size.width() + 0.9999), maximumHeight);
    }

    QPixmap pixmap = render(icon, available * devicePixelRatio, size * devicePixelRatio, state);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

QPixmap Util::iconPixels(const QIcon &icon, const QSize &pixels)
{
    return render(icon, pixels, pixels, QIcon::Off);
}

void Util::hideAndDeleteLater(QWidget *widget)
{
    if (!widget)
        return;
    const QPointer<QWidget> guard(widget);
    widget->hide();
    if (guard)
        guard->deleteLater();
}
