// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTACCESSIBLEPARTS_H
#define KESTACCESSIBLEPARTS_H

/*!
    \class KestAccessibleParts
    \brief Tells assistive technology what windows, message boxes, bars, separators and overlays
   are.

    To Qt they are widgets like any other, which screen readers pass over.
*/
class KestAccessibleParts
{
public:
    /*! Makes the accessibility framework ask this class for them. For each bar and overlay, since
       an application may be followed by another one. */
    static void install();
};

#endif // KESTACCESSIBLEPARTS_H
