// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "QuietLayout.h"

#include <QtCore/QEvent>
#include <QtWidgets/QLayout>

namespace {

// The widget is half dead, and known by its address alone.
void takeOut(const QObject *widget, QLayout *layout)
{
    int place = 0;
    while (QLayoutItem *item = layout->itemAt(place)) {
        if (item->widget() == widget) {
            delete layout->takeAt(place);
            continue;
        }
        if (QLayout *inner = item->layout())
            takeOut(widget, inner);
        ++place;
    }
}

} // namespace

void QuietLayout::see(QEvent *event)
{
    if (!m_quiet)
        return;
    if (event->type() == QEvent::ChildRemoved) {
        const QObject *const child = static_cast<QChildEvent *>(event)->child();
        // A dying child of another kind can not be told from a widget in Qt 6.
        if (child != m_leaving && child != m_leavingItem)
            takeOut(child, m_bar->layout());
    } else if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize) {
        end();
        m_bar->layout()->invalidate();
        m_bar->layout()->activate();
    }
}

void QuietLayout::end()
{
    m_quiet = false;
    m_bar->layout()->setEnabled(true);
}

QuietLayout::Scope::Scope(QuietLayout &quiet, const QObject *leaving, const QObject *item)
    : m_quiet(quiet), m_bar(quiet.m_bar)
{
    m_quiet.m_leaving = leaving;
    m_quiet.m_leavingItem = item;
    // A layout that is disabled already is the host's, or that of the scope around.
    if (!m_bar->layout()->isEnabled())
        return;
    m_bar->layout()->setEnabled(false);
    m_quiet.m_quiet = m_began = true;
}

QuietLayout::Scope::~Scope()
{
    if (!m_bar)
        return;
    // Not that of the scope around: it may be back in the layout by now.
    m_quiet.m_leaving = m_quiet.m_leavingItem = nullptr;
    if (m_began && m_quiet.m_quiet)
        m_quiet.end();
}
