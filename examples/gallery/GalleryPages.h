// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef GALLERYPAGES_H
#define GALLERYPAGES_H

#include <QtCore/QList>

class QWidget;

/*! Makes one of each page, in the order of the gallery's list. A page's window title is its name.
    The caller owns them. */
QList<QWidget *> createGalleryPages();

#endif // GALLERYPAGES_H
