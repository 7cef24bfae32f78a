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

#    include <QtCore/QLocale>
#    include <QtCore/QTranslator>
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

/*! Has \a translator load the catalogue \a name of the \a locale from \a folder: that of a country
    before that of its language. */
inline bool loadCatalogue(QTranslator *translator, const QLocale &locale, const QString &name,
                          const QString &folder)
{
    return translator->load(locale, name, QStringLiteral("_"), folder);
}

#else

#    include <QtCore/QFile>
#    include <QtCore/QLocale>
#    include <QtCore/QTranslator>
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

/*! Has \a translator load the catalogue \a name of the \a locale from \a folder: that of a country
    before that of its language. Qt itself takes German for de_AT, as a part of de_Latn_AT. */
inline bool loadCatalogue(QTranslator *translator, const QLocale &locale, const QString &name,
                          const QString &folder)
{
    const QString separator = QStringLiteral("_");
    const QString language = locale.bcp47Name();
    if (locale.uiLanguages().contains(language)) {
        const QString own = folder + QLatin1Char('/') + name + separator
            + QString(language).replace(QLatin1Char('-'), separator) + QLatin1String(".qm");
        if (QFile::exists(own) && translator->load(own))
            return true;
    }
    return translator->load(locale, name, separator, folder);
}

#endif

#endif // QTVERSIONS_H
