// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef FORMROW_H
#define FORMROW_H

#include <QtCore/QString>

class QFormLayout;
class QWidget;

/*! Adds \a field to \a form with a label on the line of its text. QFormLayout makes labels at most
    7/4 of their text high, which is above the middle of fields with tall borders. */
void addFormRow(QFormLayout *form, const QString &text, QWidget *field);

#endif // FORMROW_H
