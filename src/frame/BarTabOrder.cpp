// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "BarTabOrder.h"

#include <QtWidgets/QWidget>

#include <algorithm>

namespace {

// Where a widget belongs: 0 for what is in no bar, more for every bar and what is in it.
int rank(const QWidget *widget, const QList<QWidget *> &bars)
{
    for (int i = 0; i < bars.size(); ++i) {
        if (widget == bars.at(i))
            return 2 * i + 2;
        if (bars.at(i) && bars.at(i)->isAncestorOf(widget))
            return 2 * i + 1;
    }
    return 0;
}

// Sets the policy of the widget alone: Qt would set that of its focus proxies as well. Taking the
// proxy away meanwhile is no way, since Qt 6 moves a widget in the tab order when it gets one.
void setOwnFocusPolicy(QWidget *widget, Qt::FocusPolicy policy)
{
    QList<QPair<QWidget *, Qt::FocusPolicy>> proxies;
    for (QWidget *proxy = widget->focusProxy(); proxy; proxy = proxy->focusProxy())
        proxies.append({ proxy, proxy->focusPolicy() });
    widget->setFocusPolicy(policy);
    for (const auto &[proxy, own] : qAsConst(proxies))
        proxy->setFocusPolicy(own);
}

} // namespace

void putBarsLastInTabOrder(QWidget *window, const QList<QWidget *> &bars)
{
    QList<QPair<int, QWidget *>> order;
    for (QWidget *widget = window->nextInFocusChain(); widget != window;
         widget = widget->nextInFocusChain()) {
        if (widget->focusPolicy() != Qt::NoFocus)
            order.append({ rank(widget, bars), widget });
    }
    const auto isBefore = [](const QPair<int, QWidget *> &first,
                             const QPair<int, QWidget *> &second) {
        return first.first < second.first;
    };
    if (std::is_sorted(order.cbegin(), order.cend(), isBefore))
        return;
    std::stable_sort(order.begin(), order.end(), isBefore);

    // To Qt the first widget of a window that takes no focus follows the last one, and would not be
    // moved behind it.
    const Qt::FocusPolicy policy = window->focusPolicy();
    setOwnFocusPolicy(window, Qt::StrongFocus);
    for (int i = 1; i < order.size(); ++i) {
        if (order.at(i).first > 0)
            QWidget::setTabOrder(order.at(i - 1).second, order.at(i).second);
    }
    setOwnFocusPolicy(window, policy);
}
