// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "FillRecorder.h"

#include <QtGui/QPainter>

void FillRecorder::Engine::drawRects(const QRectF *rects, int count)
{
    const QPainter &current = *painter();
    const QTransform transform = current.combinedTransform();
    complete = complete && transform.type() <= QTransform::TxTranslate
        && current.pen().style() == Qt::NoPen && current.brush().style() == Qt::SolidPattern
        && current.brush().isOpaque() && !current.hasClipping() && current.opacity() == 1
        && current.compositionMode() == QPainter::CompositionMode_SourceOver;
    for (int i = 0; complete && i < count; ++i) {
        const QRectF rect = transform.mapRect(rects[i]);
        complete = rect.isValid() && rect == rect.toRect();
        fills.append({ rect.toRect(), current.brush().color() });
    }
}
