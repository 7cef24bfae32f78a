// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef REALINPUT_H
#define REALINPUT_H

#include <QtCore/QPoint>
#include <QtCore/QStringList>

/*!
    \brief The pointer and the keyboard of the display that the test's windows are shown on.

    Events go the whole way a user's do: through the X server and the window manager, or through
    the input queue of Windows, and Qt's platform plugin. Every call returns after the system has
    taken the event and Qt has worked off what came of it. Points are global, in physical pixels.
*/
class RealInput
{
public:
    enum Button { LeftButton = 1, MiddleButton = 2, RightButton = 3 };

    /*! Moves the pointer to \a point in one step. */
    static void moveTo(const QPoint &point);
    /*! Moves the pointer from where it is to \a point in \a steps even steps. */
    static void glideTo(const QPoint &point, int steps = 8);
    static void press(Button button = LeftButton);
    static void release(Button button = LeftButton);
    static void click(const QPoint &point, Button button = LeftButton);
    static void doubleClick(const QPoint &point);
    /*! Presses at \a from, waits \a holdMs, glides to \a to and releases. On Windows this is the
        way to drag what the system drags itself: it keeps the thread until the release. */
    static void drag(const QPoint &from, const QPoint &to, int holdMs = 80);

    /*! Types a key by its name as an X keysym ("a", "Return", "Escape", "Tab", "Left"), with the
        modifiers before it joined by plus signs ("Shift+Tab", "Control+c", "Alt+o"). */
    static void key(const QString &name);
#ifdef Q_OS_WIN
    /*! Types the keys with the given \a names a while later, and does not wait for that: for loops
        of the system's own, as that of a menu, which get no messages while Qt works them off. */
    static void keysLater(const QStringList &names);
#endif
    /*! Types ASCII \a text key by key. */
    static void type(const QString &text);

    /*! The cursor shape that is shown now, as a hash: equal shapes, equal hashes. */
    static size_t cursorHash();
    /*! The colour of the pixel at \a point on the screen, as 0xRRGGBB. */
    static unsigned pixel(const QPoint &point);
    /*! Where the top left corner of the window with the given \a id is on the screen, whatever Qt
        knows of it. */
    static QPoint windowPosition(unsigned long long id);
    /*! Lets Qt work off what the system sent. */
    static void settle(int ms = 30);
};

#endif // REALINPUT_H
