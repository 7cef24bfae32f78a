// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef THEME_H
#define THEME_H

#include <QtCore/QList>
#include <QtCore/QString>

/*! A style sheet that the library offers, under the name that the gallery shows. */
struct Theme
{
    QString name;
    QString sheet;
    bool darkTitle; // icons on the title bar have to be light ones

    /*! The default sheet first, then the sheets for hosts to choose. */
    static QList<Theme> all();
};

#endif // THEME_H
