// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef THEMES_H
#define THEMES_H

#include <QtCore/QString>
#include <QtCore/QStringList>

/*! The themes under test, and what makes their pictures the same on every machine. */
namespace Themes {

/*! The scales at which the sheets have to hold, in percent. */
const int Scales[] = { 100, 125, 150, 175, 200, 300 };

/*! "default", which is two sheets, "tool" and "kest-blue". */
QStringList names();

/*! The sheets that make up a theme, by their file names. */
QStringList files(const QString &name);

/*! The text of one sheet. */
QString text(const QString &file);

/*! Gives the application a theme at a scale: the sheet scaled, and texts in its size. Does nothing
    where that is what the application has already. */
void apply(const QString &name, double rate = 1);

/*! Fixes what pictures depend on: the platform, the resolution, the style. To be called before
    there is an application. */
void pinPlatform();

/*! The same for what needs the application: the style, the font, and what blinks or fades. */
void pinLook();

} // namespace Themes

/*! The main function of a test of themes. */
#define THEME_TEST_MAIN(Test) \
    int main(int argc, char *argv[]) \
    { \
        Themes::pinPlatform(); \
        QApplication app(argc, argv); \
        Themes::pinLook(); \
        Test test; \
        return QTest::qExec(&test, argc, argv); \
    }

#endif // THEMES_H
