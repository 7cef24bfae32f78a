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

#    include <QtCore/QVariant>
#    include <QtWidgets/QApplication>
#    include <QtWidgets/QDesktopWidget>

/*! Whether a changed action tells those that show it from a list that the dead stay in. */
constexpr bool ActionsTellACopyOfTheirWidgets = false;

/*! Whether the patterns of brushes begin at the corner of a device that has several pixels for one,
    wherever what they fill begins. */
constexpr bool PatternsBeginAtTheDevice = false;

/*! Returns the number of the screen that \a widget is on. */
inline int screenNumber(const QWidget *widget)
{
    return QApplication::desktop()->screenNumber(widget);
}

/*! Returns whether there is nothing in \a value: no value at all, or a null string. */
inline bool isNull(const QVariant &value)
{
    return value.isNull();
}

#else

#    include <QtCore/QVariant>
#    include <QtGui/QGuiApplication>
#    include <QtGui/QScreen>
#    include <QtWidgets/QWidget>

/*! Whether a changed action tells those that show it from a list that the dead stay in. */
constexpr bool ActionsTellACopyOfTheirWidgets = true;

/*! Whether the patterns of brushes begin at the corner of a device that has several pixels for one,
    wherever what they fill begins. */
constexpr bool PatternsBeginAtTheDevice = true;

/*! Returns the number of the screen that \a widget is on. */
inline int screenNumber(const QWidget *widget)
{
    return int(QGuiApplication::screens().indexOf(widget->screen()));
}

/*! Returns whether there is nothing in \a value: no value at all, or a null string. */
inline bool isNull(const QVariant &value)
{
    return value.isNull() || (value.userType() == QMetaType::QString && value.toString().isNull());
}

#endif

#endif // QTVERSIONS_H
