// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef PIXELS_H
#define PIXELS_H

#include <QtGui/QColor>
#include <QtGui/QImage>

/*! What a reader sees of pictures. */
namespace Pixels {

/*! The contrast of two colours, from 1 to 21, by their relative luminances. */
double contrast(QRgb a, QRgb b);

/*! How many pixels of two pictures differ by more than a reader would overlook. Pictures of
    different sizes differ by all of the larger one's pixels. */
int changed(const QImage &before, const QImage &after);

/*! How many pixels changed to a colour of at least this contrast against what was there. */
int changedWithContrast(const QImage &before, const QImage &after, double atLeast);

/*! The colour that most pixels of a part of a picture have. */
QRgb commonColor(const QImage &image, const QRect &part);

/*! The same of the outermost pixels of the part alone. */
QRgb commonFrameColor(const QImage &image, const QRect &part);

} // namespace Pixels

#endif // PIXELS_H
