// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef GROUND_H
#define GROUND_H

#include <QtCore/QList>

class QCheckBox;
class QGroupBox;

/*! Shows \a boxes on white, which the light colours of tracks and rings are made for, or on a dark
    ground: returns the check box that chooses. */
QCheckBox *createGroundSwitch(const QList<QGroupBox *> &boxes);

#endif // GROUND_H
