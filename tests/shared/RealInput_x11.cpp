// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "RealInput.h"

#include <QtCore/QHash>
#include <QtCore/QStringList>

// Xlib defines None, Status, Bool and others as macros: it comes last.
#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xfixes.h>
#include <X11/keysym.h>

namespace {

const int SettleMs = 15;

Display *display()
{
    // A connection of our own, so that Qt's is never read from two places.
    static Display *const connection = XOpenDisplay(nullptr);
    if (!connection)
        qFatal("RealInput: no X display");
    return connection;
}

void finish()
{
    XSync(display(), False);
    RealInput::settle(SettleMs);
}

void fakeKey(KeySym symbol, bool down)
{
    const KeyCode code = XKeysymToKeycode(display(), symbol);
    if (!code)
        qFatal("RealInput: the keyboard has no key for keysym %lu", symbol);
    XTestFakeKeyEvent(display(), code, down ? True : False, CurrentTime);
}

void tapSymbol(KeySym symbol)
{
    const KeyCode code = XKeysymToKeycode(display(), symbol);
    const bool shifted = code && XkbKeycodeToKeysym(display(), code, 0, 0) != symbol
        && XkbKeycodeToKeysym(display(), code, 0, 1) == symbol;
    if (shifted)
        fakeKey(XK_Shift_L, true);
    fakeKey(symbol, true);
    fakeKey(symbol, false);
    if (shifted)
        fakeKey(XK_Shift_L, false);
}

} // namespace

void RealInput::moveTo(const QPoint &point)
{
    XTestFakeMotionEvent(display(), -1, point.x(), point.y(), CurrentTime);
    finish();
}

void RealInput::glideTo(const QPoint &point, int steps)
{
    Window root = 0;
    Window child = 0;
    int x = 0;
    int y = 0;
    int windowX = 0;
    int windowY = 0;
    unsigned mask = 0;
    XQueryPointer(display(), DefaultRootWindow(display()), &root, &child, &x, &y, &windowX,
                  &windowY, &mask);
    const QPoint from(x, y);
    for (int i = 1; i <= steps; ++i)
        moveTo(from + (point - from) * i / steps);
}

void RealInput::press(Button button)
{
    XTestFakeButtonEvent(display(), button, True, CurrentTime);
    finish();
}

void RealInput::release(Button button)
{
    XTestFakeButtonEvent(display(), button, False, CurrentTime);
    finish();
}

void RealInput::click(const QPoint &point, Button button)
{
    moveTo(point);
    press(button);
    release(button);
}

void RealInput::doubleClick(const QPoint &point)
{
    moveTo(point);
    for (int i = 0; i < 2; ++i) {
        XTestFakeButtonEvent(display(), LeftButton, True, CurrentTime);
        XTestFakeButtonEvent(display(), LeftButton, False, CurrentTime);
    }
    finish();
}

void RealInput::drag(const QPoint &from, const QPoint &to, int holdMs)
{
    moveTo(from);
    press();
    settle(holdMs);
    glideTo(to);
    release();
}

void RealInput::key(const QString &name)
{
    QStringList parts = name.split(QLatin1Char('+'));
    const QString last = parts.takeLast();
    QList<KeySym> modifiers;
    for (const QString &part : qAsConst(parts)) {
        if (part == QLatin1String("Shift"))
            modifiers.append(XK_Shift_L);
        else if (part == QLatin1String("Control"))
            modifiers.append(XK_Control_L);
        else if (part == QLatin1String("Alt"))
            modifiers.append(XK_Alt_L);
        else
            qFatal("RealInput: unknown modifier %s", qPrintable(part));
    }
    for (KeySym modifier : qAsConst(modifiers))
        fakeKey(modifier, true);
    const KeySym symbol = XStringToKeysym(last.toLatin1().constData());
    if (symbol == NoSymbol)
        qFatal("RealInput: unknown key %s", qPrintable(last));
    tapSymbol(symbol);
    for (KeySym modifier : qAsConst(modifiers))
        fakeKey(modifier, false);
    finish();
}

void RealInput::type(const QString &text)
{
    // The keysym of a printable Latin-1 character is its code.
    for (const QChar character : text) {
        tapSymbol(character.unicode());
        finish();
    }
}

size_t RealInput::cursorHash()
{
    XFixesCursorImage *const image = XFixesGetCursorImage(display());
    if (!image)
        return 0;
    size_t hash = qHash(image->xhot) ^ (qHash(image->yhot) << 8);
    const int count = int(image->width) * int(image->height);
    for (int i = 0; i < count; ++i)
        hash = hash * 31 + size_t(image->pixels[i] & 0xffffffffu);
    XFree(image);
    return hash;
}

unsigned RealInput::pixel(const QPoint &point)
{
    XImage *const image = XGetImage(display(), DefaultRootWindow(display()), point.x(), point.y(),
                                    1, 1, AllPlanes, ZPixmap);
    if (!image)
        return 0;
    const unsigned value = unsigned(XGetPixel(image, 0, 0)) & 0xffffffu;
    XDestroyImage(image);
    return value;
}

QPoint RealInput::windowPosition(unsigned long long id)
{
    int x = 0;
    int y = 0;
    Window child = 0;
    XTranslateCoordinates(display(), Window(id), DefaultRootWindow(display()), 0, 0, &x, &y,
                          &child);
    return QPoint(x, y);
}
