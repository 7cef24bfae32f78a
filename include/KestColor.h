// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTCOLOR_H
#define KESTCOLOR_H

#include "KestGlobal.h"

#include <QtCore/QObject>
#include <QtGui/QColor>

/*!
    \class KestColor
    \brief Twenty background colours and a readable text colour for any background.

    Which colour does the n-th avatar, chart line or tag get, and what can be read on it?

    \code
    const QColor background = KestColor::generateBackgroundColor(row);
    const QColor text = KestColor::generateForegroundColor(background);
    \endcode

    The functions are static: no instance is needed.

    \image html kestcolor.png width=596px
*/
class KEST_EXPORT KestColor : public QObject
{
    Q_OBJECT

public:
    /*! The palette. A value is the colour as 0xRRGGBB. */
    enum Colors {
        Color0 = 0x2D74EA, /*!< blue */
        Color1 = 0x002050, /*!< night blue */
        Color2 = 0x35888B, /*!< teal */
        Color3 = 0x4D4895, /*!< violet */
        Color4 = 0xAB742C, /*!< ochre */
        Color5 = 0x783913, /*!< brown */
        Color6 = 0x55815D, /*!< moss green */
        Color7 = 0x2D41A7, /*!< royal blue */
        Color8 = 0x19422B, /*!< dark green */
        Color9 = 0x226546, /*!< pine green */
        Color10 = 0x2AB0C8, /*!< cyan */
        Color11 = 0x4D4F51, /*!< grey */
        Color12 = 0x288A33, /*!< green */
        Color13 = 0x27245C, /*!< indigo */
        Color14 = 0xCFA183, /*!< sand */
        Color15 = 0x827393, /*!< mauve */
        Color16 = 0xC43F16, /*!< vermilion */
        Color17 = 0x707FC7, /*!< lavender */
        Color18 = 0xAD5466, /*!< rose */
        Color19 = 0x765542 /*!< umber */
    };
    Q_ENUM(Colors)

    /*! Constructs a colour object with the given \a parent. */
    explicit KestColor(QObject *parent = nullptr);
    /*! Destroys the object. */
    ~KestColor() override;

    /*!
        Returns the palette colour number \a index; the palette repeats every twenty colours.

        A negative \a index names no colour, unless it is a multiple of twenty, and gives opaque
        white.
    */
    static QColor generateBackgroundColor(int index);

    /*!
        Returns an opaque text colour that can be read on \a background: its hue and saturation
        with an HSL lightness of 45 where the background is light and of 210 where it is dark.

        \sa isLight()
    */
    static QColor generateForegroundColor(QColor background);
};

/*!
    \relates KestColor
    Returns whether \a color counts as light: its luminance, 0.213 red + 0.715 green + 0.072 blue
    of the components from 0 to 255, is above 127. The weights are those of the eye's sensitivity
    to the three primaries (ITU-R BT.709, rounded).
*/
KEST_EXPORT bool isLight(QColor color);

#endif // KESTCOLOR_H
