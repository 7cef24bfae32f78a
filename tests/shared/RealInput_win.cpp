// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "RealInput.h"

#include <QtCore/QHash>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtTest/QTest>

#include <atomic>
#include <functional>
#include <thread>

#include <windows.h>

namespace {

const int SettleMs = 15;
const int LaterMs = 50;

// Runs \a input, which takes its time, in a thread of its own, while this one goes on with its
// messages: the system may keep it in a loop, as while a window is moved.
void perform(const std::function<void()> &input)
{
    std::atomic_bool done(false);
    std::thread user([&] {
        input();
        done = true;
    });
    do {
        QTest::qWait(SettleMs);
    } while (!done);
    user.join();
    RealInput::settle(SettleMs);
}

void sendButton(RealInput::Button button, bool down)
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    switch (button) {
    case RealInput::LeftButton:
        input.mi.dwFlags = down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP;
        break;
    case RealInput::MiddleButton:
        input.mi.dwFlags = down ? MOUSEEVENTF_MIDDLEDOWN : MOUSEEVENTF_MIDDLEUP;
        break;
    case RealInput::RightButton:
        input.mi.dwFlags = down ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_RIGHTUP;
        break;
    }
    SendInput(1, &input, sizeof(input));
}

void sendKey(WORD key, bool down)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = WORD(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
    SendInput(1, &input, sizeof(input));
}

// The keys of \a name, modifiers first.
QVector<WORD> keysOf(const QString &name)
{
    static const QHash<QString, WORD> Names {
        { QStringLiteral("Shift"), VK_SHIFT },    { QStringLiteral("Control"), VK_CONTROL },
        { QStringLiteral("Alt"), VK_MENU },       { QStringLiteral("Return"), VK_RETURN },
        { QStringLiteral("Escape"), VK_ESCAPE },  { QStringLiteral("Tab"), VK_TAB },
        { QStringLiteral("space"), VK_SPACE },    { QStringLiteral("Left"), VK_LEFT },
        { QStringLiteral("Right"), VK_RIGHT },    { QStringLiteral("Up"), VK_UP },
        { QStringLiteral("Down"), VK_DOWN },      { QStringLiteral("Home"), VK_HOME },
        { QStringLiteral("End"), VK_END },        { QStringLiteral("Delete"), VK_DELETE },
        { QStringLiteral("BackSpace"), VK_BACK },
    };
    QVector<WORD> keys;
    const QStringList parts = name.split(QLatin1Char('+'));
    for (const QString &part : parts) {
        if (Names.contains(part)) {
            keys.append(Names.value(part));
        } else if (part.size() == 1) {
            const SHORT scan = VkKeyScanW(wchar_t(part.at(0).unicode()));
            if (HIBYTE(scan) & 1)
                keys.append(VK_SHIFT);
            keys.append(LOBYTE(scan));
        } else {
            qFatal("RealInput: unknown key %s", qPrintable(part));
        }
    }
    return keys;
}

void tap(const QVector<WORD> &keys)
{
    for (WORD key : keys)
        sendKey(key, true);
    for (int i = keys.size(); i-- > 0;)
        sendKey(keys.at(i), false);
}

// The points of a glide from where the pointer is to \a point.
void glide(const QPoint &point, int steps)
{
    POINT from = {};
    GetCursorPos(&from);
    for (int i = 1; i <= steps; ++i) {
        SetCursorPos(from.x + (point.x() - from.x) * i / steps,
                     from.y + (point.y() - from.y) * i / steps);
        Sleep(SettleMs);
    }
}

} // namespace

void RealInput::moveTo(const QPoint &point)
{
    SetCursorPos(point.x(), point.y());
    settle(SettleMs);
}

void RealInput::glideTo(const QPoint &point, int steps)
{
    perform([&] { glide(point, steps); });
}

void RealInput::press(Button button)
{
    sendButton(button, true);
    settle(SettleMs);
}

void RealInput::release(Button button)
{
    sendButton(button, false);
    settle(SettleMs);
}

void RealInput::click(const QPoint &point, Button button)
{
    moveTo(point);
    // Both at once: the system may have a loop of its own between them.
    sendButton(button, true);
    release(button);
}

void RealInput::doubleClick(const QPoint &point)
{
    moveTo(point);
    for (int i = 0; i < 2; ++i) {
        sendButton(LeftButton, true);
        sendButton(LeftButton, false);
    }
    settle(SettleMs);
}

void RealInput::drag(const QPoint &from, const QPoint &to, int holdMs)
{
    perform([&] {
        SetCursorPos(from.x(), from.y());
        Sleep(SettleMs);
        sendButton(LeftButton, true);
        Sleep(DWORD(holdMs));
        glide(to, 8);
        sendButton(LeftButton, false);
    });
}

void RealInput::key(const QString &name)
{
    tap(keysOf(name));
    settle(SettleMs);
}

void RealInput::keysLater(const QStringList &names)
{
    std::thread([names] {
        for (const QString &name : names) {
            Sleep(LaterMs);
            tap(keysOf(name));
        }
    }).detach();
}

void RealInput::type(const QString &text)
{
    for (const QChar character : text)
        key(QString(character));
}

size_t RealInput::cursorHash()
{
    CURSORINFO info = {};
    info.cbSize = sizeof(info);
    return GetCursorInfo(&info) ? size_t(info.hCursor) : 0;
}

unsigned RealInput::pixel(const QPoint &point)
{
    const HDC screen = GetDC(nullptr);
    const COLORREF color = GetPixel(screen, point.x(), point.y());
    ReleaseDC(nullptr, screen);
    return unsigned(GetRValue(color)) << 16 | unsigned(GetGValue(color)) << 8 | GetBValue(color);
}

QPoint RealInput::windowPosition(unsigned long long id)
{
    RECT rect = {};
    GetWindowRect(reinterpret_cast<HWND>(quintptr(id)), &rect);
    return QPoint(rect.left, rect.top);
}
