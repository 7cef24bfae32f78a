// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef CONTACTSHEET_H
#define CONTACTSHEET_H

#include <QtCore/QString>

/*! Writes one picture of every standard widget in every state, as the application's style sheet
    shows them, to \a file. Returns whether it was written. */
bool writeContactSheet(const QString &file, double rate);

#endif // CONTACTSHEET_H
