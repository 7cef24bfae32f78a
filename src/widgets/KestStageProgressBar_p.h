// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTSTAGEPROGRESSBAR_P_H
#define KESTSTAGEPROGRESSBAR_P_H

#include "KestStageProgressBar.h"

#include "KeptPicture.h"

#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QBrush>
#include <QtGui/QFontMetrics>
#include <QtGui/QPen>

/*!
    \file
    What a stage progress bar knows, and how it lays itself out.
*/

// Radii and numbers of steps are the host's, so that everything that is made of them is wider than
// an int.
class KestStageProgressBarPrivate
{
public:
    // How large a caption is in the bar's font.
    struct Measure
    {
        QSize size;
        int inkWidth;
    };

    explicit KestStageProgressBarPrivate(KestStageProgressBar *bar) : q(bar) { }

    KestStageProgressBar *const q;
    int stageCount = 5;
    Qt::Orientation orientation = Qt::Horizontal;
    int minimum = 0;
    int maximum = 99;
    int value = 0;
    bool textVisible = false;
    int stageCircleRadius = 10;
    QVector<QString> texts = QVector<QString>(stageCount);
    QPen stageIndexTextPen = QPen(Qt::white);
    QBrush rateBackground = QColor(0x35, 0x80, 0xCE);
    // Each of the captions, by the metrics of the font; empty until asked for.
    mutable QVector<Measure> knownMeasures;
    mutable QFontMetrics measuredIn = QFontMetrics(QFont());
    // The bar without and with all of its progress, by circles, connecting bar and brush.
    KeptPicture<QVector<QRectF>, QRectF, QBrush> restPicture;
    KeptPicture<QVector<QRectF>, QRectF, QBrush> donePicture;

    bool isHorizontal() const { return orientation == Qt::Horizontal; }

    // In KestStageProgressBarLayout.cpp: sizes and places.
    const QVector<Measure> &measures() const;
    qint64 captionPadding() const;
    int captionHeight(const Measure &measure) const;
    QSize contentsSize() const;
    qint64 contentsWidth() const;
    qint64 contentsHeight() const;
    QVector<QRectF> stageRects(const QRect &contents, qint64 halfRow) const;
    QVector<QRectF> textRects(const QVector<QRectF> &stages) const;
    QRectF barRect(const QPointF &first, const QPointF &last) const;
    QRectF completedPart(const QRectF &whole) const;

    void fill(QPainter *painter, const QVector<QRectF> &stages);
};

#endif // KESTSTAGEPROGRESSBAR_P_H
