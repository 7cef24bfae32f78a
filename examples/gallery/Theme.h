// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef THEME_H
#define THEME_H

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

/*! A style sheet that the library offers, under the name that the gallery shows. */
struct Theme
{
    QString name;
    QString sheet;
    bool darkTitle; // icons on the title bar have to be light ones

    /*! The default sheet first, then the sheets for hosts to choose. */
    static QList<Theme> all();

    /*! The theme of this name, whatever the case of its letters. */
    static Theme named(const QString &name);

    /*! The sheet that is in \a files, one after the other. */
    static Theme fromFiles(const QStringList &files);

    /*! Gives the application this sheet and texts of this size, from what they are at 100 %. */
    void apply(double rate) const;
};

#endif // THEME_H
