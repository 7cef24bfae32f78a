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

    /*! The default sheet first, then the sheets for hosts to choose. */
    static QList<Theme> all();

    /*! The default sheet and each of the files that the library's sheets are in, by their names. */
    static QList<Theme> sheets();

    /*! The theme of this name, whatever the case of its letters. */
    static Theme named(const QString &name);

    /*! The sheet that is in \a files, one after the other. */
    static Theme fromFiles(const QStringList &files);

    /*! Whether Qt can read \a sheet, of which it takes either all or nothing. */
    static bool canRead(const QString &sheet);

    /*! The size of the application's texts at 100 %, in points. */
    static double plainPointSize();

    /*! Gives the application this sheet and texts of this size, from what they are at 100 %, where
        texts may have another \a pointSize. */
    void apply(double rate, double pointSize = plainPointSize()) const;
};

#endif // THEME_H
