// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef BARTABORDER_H
#define BARTABORDER_H

#include <QtCore/QList>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

/*!
    Puts \a bars, each with what is in it before it, behind everything else in the tab order of
    \a window, so that the first focus of the window is that of its contents. What else there is
    keeps its order. Null entries are skipped.

    Widgets can come and go at any time and Qt tells nobody: a window calls this when it is about to
    give the focus to the first or the next widget.
*/
void putBarsLastInTabOrder(QWidget *window, const QList<QWidget *> &bars);

#endif // BARTABORDER_H
