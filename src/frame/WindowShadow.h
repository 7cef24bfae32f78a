// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef WINDOWSHADOW_H
#define WINDOWSHADOW_H

#include <QtCore/QMargins>
#include <QtCore/QRect>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

/*! \brief The soft shadow along the edges of a window. */
class WindowShadow
{
public:
    /*! The shadow of the window \a window, \a width pixels deep; 0 for none. */
    WindowShadow(const QRect &window, int width);

    /*! Returns whether any of it may be in \a part of the window. */
    bool isIn(const QRect &part) const
    {
        return m_width > 0 && !(hasInside() && m_inside.contains(part));
    }
    /*! Returns whether there is something of the window that it does not reach. */
    bool hasInside() const { return m_inside.isValid(); }
    /*! Draws what is in \a part of the window, or more. Where pixels of the window are whole ones
        of the device, every pixel is drawn once. */
    void draw(QPainter &painter, const QRect &part) const;

private:
    QMargins reach() const;
    void drawOutlines(QPainter &painter) const;
    void drawPatch(QPainter &painter, const QRect &part, int ratio) const;

    QRect m_window;
    int m_width;
    QRect m_inside;
};

#endif // WINDOWSHADOW_H
