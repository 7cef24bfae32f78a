// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef MENUBARITEM_H
#define MENUBARITEM_H

#include <QtWidgets/QLayoutItem>

QT_BEGIN_NAMESPACE
class QMenuBar;
QT_END_NAMESPACE

/*!
    \brief A menu bar's place in a layout, as wide as its entries in either direction.

    A right-to-left QMenuBar takes its hint from where its entries stand within its present width:
    it would never grow beyond the width that it happens to have.
*/
class MenuBarItem : public QWidgetItem
{
public:
    explicit MenuBarItem(QMenuBar *menuBar);

    QSize sizeHint() const override;
    QSize minimumSize() const override;

private:
    QSize widened(const QSize &size) const;
};

#endif // MENUBARITEM_H
