// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef FILLEDWINDOW_H
#define FILLEDWINDOW_H

#include <QtCore/QSize>

#include <memory>
#include <vector>

class KestWindow;
QT_BEGIN_NAMESPACE
class QMainWindow;
class QMenuBar;
QT_END_NAMESPACE

const QSize WindowSize(600, 400); // pixels; smaller than the smallest screen
const int ActionCount = 6; // on each of a window's two bars

/*! Gives \a menuBar three menus. */
void fillMenus(QMenuBar *menuBar);

/*! Gives \a window menus, two bars with actions, a status bar and a central widget. */
void fillWindow(KestWindow &window);
/*! The same for Qt's own window. */
void fillWindow(QMainWindow &window);

#endif // FILLEDWINDOW_H
