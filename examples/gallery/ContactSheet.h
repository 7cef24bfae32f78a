// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef CONTACTSHEET_H
#define CONTACTSHEET_H

#include <QtGui/QImage>

/*! One picture of every standard widget in every state, as the application's style sheet shows
    them. \a rate is the one that the sheet is scaled by. */
QImage contactSheet(double rate);

#endif // CONTACTSHEET_H
