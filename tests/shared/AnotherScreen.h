// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#pragma once

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

#include <qpa/qplatformscreen.h>
#include <qpa/qwindowsysteminterface.h>

// One more screen, the first or the last as long as it is there.
class AnotherScreen
{
public:
    AnotherScreen(const QRect &geometry, qreal ratio, bool isFirst = true)
        : m_screen(new Screen(geometry, ratio, QGuiApplication::primaryScreen()->handle()))
    {
        QWindowSystemInterface::handleScreenAdded(m_screen, isFirst);
    }
    ~AnotherScreen() { QWindowSystemInterface::handleScreenRemoved(m_screen); }

private:
    Q_DISABLE_COPY(AnotherScreen)

    class Screen : public QPlatformScreen
    {
    public:
        Screen(const QRect &geometry, qreal ratio, QPlatformScreen *sibling)
            : m_geometry(geometry), m_ratio(ratio), m_sibling(sibling)
        { }

        QRect geometry() const override { return m_geometry; }
        int depth() const override { return 32; }
        QImage::Format format() const override { return QImage::Format_RGB32; }
        qreal devicePixelRatio() const override { return m_ratio; }
        QList<QPlatformScreen *> virtualSiblings() const override
        {
            return { const_cast<Screen *>(this), m_sibling };
        }

    private:
        const QRect m_geometry;
        const qreal m_ratio;
        QPlatformScreen *const m_sibling;
    };

    Screen *const m_screen;
};
