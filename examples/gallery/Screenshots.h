// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef SCREENSHOTS_H
#define SCREENSHOTS_H

#include <QtCore/QString>

class GalleryWindow;

/*! Writes a PNG of each page, dialog, theme and scale of \a window into \a folder, which is made
    where it is missing. Returns whether all were written. */
bool writeScreenshots(GalleryWindow *window, const QString &folder);

/*! Writes those of the pages alone, as \a window looks now. */
bool writePages(GalleryWindow *window, const QString &folder);

#endif // SCREENSHOTS_H
