// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "WindowShadow.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <cmath>
#include <vector>

namespace {

const int ShadowStrength = 20; // alpha per halving of the distance to the outermost ring
const int OutlineReach = 2; // pixels that an antialiased outline takes inside of its rectangle
const int PatchSide = 64; // pixels of an edge that are drawn at once

// A piece of a window along one axis, and where the patch has the same.
struct Piece
{
    int start;
    int length;
    int startInPatch;
};

std::vector<Piece> pieces(int extent, int corner)
{
    std::vector<Piece> result { { 0, corner, 0 } };
    const int end = extent - corner;
    for (int start = corner; start < end; start += PatchSide)
        result.push_back({ start, qMin(PatchSide, end - start), corner });
    result.push_back({ end, corner, corner + PatchSide });
    return result;
}

} // namespace

WindowShadow::WindowShadow(const QRect &window, int width)
    : m_window(window), m_width(width), m_inside(window.marginsRemoved(reach()))
{ }

void WindowShadow::draw(QPainter &painter, const QRect &part) const
{
    if (!isIn(part))
        return;
    const qreal ratio = painter.deviceTransform().m11();
    // Elsewhere edges are not the same all along.
    if (hasInside() && ratio == std::floor(ratio))
        drawPatch(painter, part, int(ratio));
    else
        drawOutlines(painter);
}

QMargins WindowShadow::reach() const
{
    const int reach = m_width + OutlineReach;
    return { reach, reach, reach, reach };
}

void WindowShadow::drawOutlines(QPainter &painter) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QColor color(0, 0, 0);
    for (int i = 0; i < m_width; ++i) {
        const int inset = m_width - i;
        QPainterPath path;
        path.setFillRule(Qt::WindingFill);
        path.addRoundedRect(m_window.adjusted(inset, inset, -inset, -inset), 0.0, 1.0,
                            Qt::AbsoluteSize);
        // The logarithm makes the shadow fade fast next to the window and slowly further out.
        const double alpha = std::log(double(i + 1) / m_width) / -std::log(2.0) * ShadowStrength;
        color.setAlpha(qMin(int(alpha), 255));
        painter.setPen(color);
        painter.drawPath(path);
    }
    painter.restore();
}

// Draws the shadow piece by piece from that of a small window. The last one is kept, since windows
// mostly have one width and ratio.
void WindowShadow::drawPatch(QPainter &painter, const QRect &part, int ratio) const
{
    static QImage patch;
    static int patchWidth = 0;
    const int corner = reach().left();
    if (m_width != patchWidth || patch.devicePixelRatio() != ratio) {
        const int side = 2 * corner + PatchSide;
        patch = QImage(QSize(side, side) * ratio, QImage::Format_ARGB32_Premultiplied);
        patch.setDevicePixelRatio(ratio);
        patch.fill(Qt::transparent);
        QPainter patchPainter(&patch);
        WindowShadow(QRect(0, 0, side, side), m_width).drawOutlines(patchPainter);
        patchWidth = m_width;
    }
    const std::vector<Piece> columns = pieces(m_window.width(), corner);
    const std::vector<Piece> rows = pieces(m_window.height(), corner);
    for (const Piece &row : rows) {
        if (row.start > part.bottom() || row.start + row.length <= part.top())
            continue;
        for (const Piece &column : columns) {
            const QRect target(column.start, row.start, column.length, row.length);
            if (!target.intersects(part) || m_inside.contains(target))
                continue;
            const QRect source(column.startInPatch * ratio, row.startInPatch * ratio,
                               column.length * ratio, row.length * ratio);
            painter.drawImage(target, patch, source);
        }
    }
}
