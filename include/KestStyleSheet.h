// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTSTYLESHEET_H
#define KESTSTYLESHEET_H

#include "KestGlobal.h"

#include <QtCore/QString>

QT_BEGIN_NAMESPACE
class QObject;
QT_END_NAMESPACE

/*!
    \class KestStyleSheet
    \brief The library's default style sheet, and style sheets for other screen scales.

    How does an application get the library's look without KestApplication, and how do sheets that
    were written in pixels follow a screen at 150 %?

    \code
    qApp->setStyleSheet(KestStyleSheet::scaleSheet(KestStyleSheet::defaultStyleSheet(), 1.5f));
    \endcode

    All functions are static; use them in the GUI thread.

    \image html keststylesheet.png width=576px
*/
class KEST_EXPORT KestStyleSheet
{
public:
    KestStyleSheet() = delete;

    /*!
        Returns the default application style sheet: the text of "default-light.css", which themes
        Qt's widgets, directly followed by that of "sw-light.css", which themes the library's own.

        The files are read from the library's resources on every call; one that is missing only
        leaves its text out.
    */
    static QString defaultStyleSheet();

    /*!
        Returns \a sheet with every pixel length multiplied by \a rate and rounded to the nearest
        integer, halves up.

        A pixel length is a run of decimal digits directly before the unit \c px in any case: of
        \c 1.5px only the 5 is scaled, and lengths in \c em or \c pt are left as they are. A run
        of digits that is no \c int counts as 0, and a product outside the range of \c int becomes
        the nearest limit of it. An empty sheet, or a rate of exactly 1, gives back \a sheet
        itself; any other rate is taken, 0 and negative ones too. The time taken grows linearly
        with the length of the sheet.
    */
    static QString scaleSheet(const QString &sheet, float rate);

    /*!
        Rescales the style sheets of all widgets below \a object, though not of \a object itself,
        to \a geoRate.

        A widget's unscaled sheet is kept in its dynamic property "originStyle" when it is first
        rescaled and every later call starts from that, so rates do not accumulate: 1 brings the
        original sheets back. The rate is recorded in the property "geoRate". \a fontRate has no
        effect: fonts in points follow the screen by themselves. A null \a object is ignored.
    */
    static void ChangeObjectSizeAndFontSize(QObject *object, double geoRate, double fontRate);
};

#endif // KESTSTYLESHEET_H
