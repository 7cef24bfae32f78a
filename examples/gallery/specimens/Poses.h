// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef POSES_H
#define POSES_H

#include "Specimen.h"

#include <QtCore/QPoint>
#include <QtGui/QIcon>

/*! What brings widgets into their states: the events that a pointer and a keyboard cause, sent to
    the widget, so that pictures do not depend on where the pointer of the machine is. */
namespace Poses {

/*! A pose of a widget, and where in it the pointer is. */
using Pose = std::function<void(QWidget *)>;
using Place = std::function<QPoint(QWidget *)>;

QPoint centre(QWidget *widget);

/*! Moves the pointer onto \a widget at \a at. */
void hoverAt(QWidget *widget, const QPoint &at);

/*! The same, and presses the left button. */
void pressAt(QWidget *widget, const QPoint &at);

/*! Gives \a widget the keyboard focus as the Tab key does. */
void tabInto(QWidget *widget);

/*! Makes \a pose for a child of the widget that a specimen is made of. */
Pose child(const char *objectName, const Pose &pose);

Pose nothing();
Pose disabled();
Pose hover(const Place &place = centre);
Pose press(const Place &place = centre);
Pose focus();
Pose property(const char *name, bool value = true);
Pose both(const Pose &first, const Pose &second);

/*! The centre of a part that the style places, such as the arrow of a spin box. */
Place subControl(int complexControl, int subControl);

/*! An icon of a program, which stands out from every ground. */
QIcon icon();

/*! States that nearly every widget has. */
SpecimenState normalState();
SpecimenState disabledState();
SpecimenState hoverState();
SpecimenState pressedState();
SpecimenState focusState();

/*! The pointer on an item of a view, and an item that is the current and selected one. */
Pose hoverItem(int row, int column = 0);
Pose currentItem(int row, int column = 0);

} // namespace Poses

#endif // POSES_H
