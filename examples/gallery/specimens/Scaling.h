// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef SCALING_H
#define SCALING_H

class QWidget;

/*! Scales what a program has said itself about \a widget and the bars in it, which a scaled style
    sheet does not reach: fixed and least sizes, and the sizes of the bars' icons. \a rate is the
    one to the sizes as they are now. */
void scaleOwnSizes(QWidget *widget, double rate);

/*! Scales the sizes in pixels that a program gave to the widgets in \a root by properties: rings,
    circles, swatches and the distances in layouts. What they are at a \a rate of 1 is noted, so
    that rates do not add up; one that is changed meanwhile is scaled from what it is then. */
void scaleProperties(QWidget *root, double rate);

/*! Makes the placeholder texts of the line edits in \a widget lighter than what is typed: style
    sheets of Qt 5 paint both in the same colour. To be called after each change of the sheet. */
void lightenPlaceholders(QWidget *widget);

#endif // SCALING_H
