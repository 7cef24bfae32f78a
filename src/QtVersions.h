// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef QTVERSIONS_H
#define QTVERSIONS_H

#include <QtCore/QtGlobal>

/*!
    \file
    What the library's sources have to write in another way for each major version of Qt. What hosts
   see of it is in KestGlobal.h.
*/

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

#    include <QtWidgets/QApplication>
#    include <QtWidgets/QDesktopWidget>

/*! Returns the number of the screen that \a widget is on. */
inline int screenNumber(const QWidget *widget)
{
    return QApplication::desktop()->screenNumber(widget);
}

#else

#    include <QtGui/QGuiApplication>
#    include <QtGui/QScreen>
#    include <QtWidgets/QWidget>

/*! Returns the number of the screen that \a widget is on. */
inline int screenNumber(const QWidget *widget)
{
    return int(QGuiApplication::screens().indexOf(widget->screen()));
}

#endif

#endif // QTVERSIONS_H
