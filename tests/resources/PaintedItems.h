// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef PAINTEDITEMS_H
#define PAINTEDITEMS_H

#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QColor>
#include <QtGui/QFont>

class QWidget;

/*! A text or a small image that a widget paints, and where in its window. */
struct PaintedItem
{
    QString text; // empty for an image
    QFont font;
    QRectF rect; // what is seen of it
    QRectF whole; // what it needs
    QColor color; // of the text

    /*! Whether so much of it is seen that a user can read it. */
    bool isReadable() const
    {
        return rect.width() * rect.height() >= 0.6 * whole.width() * whole.height();
    }
};

/*! What \a window paints, in its order, found by painting it on a device that only takes notes. */
QVector<PaintedItem> paintedItems(QWidget *window);

#endif // PAINTEDITEMS_H
