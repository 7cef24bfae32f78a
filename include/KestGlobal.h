// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTGLOBAL_H
#define KESTGLOBAL_H

#include <QtCore/qglobal.h>

/*!
    \file
    \brief What all headers of the library need.
*/

/*!
    \def KEST_EXPORT
    Marks what the shared library exports. It imports by default; the library itself is compiled
    with KEST_BUILD_SHARED. KEST_STATIC switches both off, for a program that links the
    library's code statically.
*/
#if defined(KEST_STATIC)
#    define KEST_EXPORT
#elif defined(KEST_BUILD_SHARED)
#    define KEST_EXPORT Q_DECL_EXPORT
#else
#    define KEST_EXPORT Q_DECL_IMPORT
#endif

/*!
    What nativeEvent() answers the system with: the type that the Qt of the build has for it, long
   in Qt 5 and qintptr since.
*/
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
using KestNativeResult = long;
#else
using KestNativeResult = qintptr;
#endif

#endif // KESTGLOBAL_H
