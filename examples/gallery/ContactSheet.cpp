// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "ContactSheet.h"

#include "Specimen.h"
#include "Stage.h"

#include <QtCore/QRect>
#include <QtGui/QFontMetrics>
#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <algorithm>

namespace {

const int ColumnCount = 3;
const int ColumnWidth = 660; // pixels at 100 %
const int Gap = 10; // pixels
const int CaptionHeight = 14; // pixels
const int CaptionSize = 10; // pixels
const QColor Ground(0x60, 0x64, 0x6A);
const QColor CaptionColor(Qt::white);

struct Cell
{
    QString caption;
    QImage picture;
    QPoint place;

    QSize size() const
    {
        return picture.size() / picture.devicePixelRatio() + QSize(0, CaptionHeight);
    }
};

QFont captionFont(bool bold)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(CaptionSize);
    font.setBold(bold);
    return font;
}

// A specimen's name and below it its states, in rows of the column's width.
class Block
{
public:
    Block(const Specimen &specimen, double rate, int width) : m_name(specimen.name)
    {
        const QFontMetrics metrics(captionFont(false));
        QPoint at(0, CaptionHeight + Gap / 2);
        int rowHeight = 0;
        for (const SpecimenState &state : specimen.states) {
            Cell cell { state.name, Stage(specimen, state, rate).picture(), QPoint() };
            const int cellWidth =
                qMax(cell.size().width(), metrics.horizontalAdvance(cell.caption));
            if (at.x() > 0 && at.x() + cellWidth > width) {
                at = QPoint(0, at.y() + rowHeight + Gap);
                rowHeight = 0;
            }
            cell.place = at;
            m_size = m_size.expandedTo(
                QSize(at.x() + cellWidth, at.y() + qMax(rowHeight, cell.size().height())));
            at.rx() += cellWidth + Gap;
            rowHeight = qMax(rowHeight, cell.size().height());
            m_cells.append(cell);
        }
    }

    int height() const { return m_size.height(); }

    void paint(QPainter *painter) const
    {
        painter->setPen(CaptionColor);
        painter->setFont(captionFont(true));
        painter->drawText(QPoint(0, CaptionSize), m_name);
        painter->setFont(captionFont(false));
        for (const Cell &cell : m_cells) {
            painter->drawText(cell.place + QPoint(0, CaptionSize), cell.caption);
            painter->drawImage(cell.place + QPoint(0, CaptionHeight), cell.picture);
        }
    }

private:
    QString m_name;
    QSize m_size;
    QVector<Cell> m_cells;
};

} // namespace

QImage contactSheet(double rate)
{
    const int width = qRound(ColumnWidth * rate);
    QVector<QVector<Block>> columns(ColumnCount);
    QVector<int> heights(ColumnCount, Gap);
    for (const Specimen &specimen : Specimen::all()) {
        const Block block(specimen, rate, width);
        const auto shortest = std::min_element(heights.begin(), heights.end());
        columns[int(shortest - heights.begin())].append(block);
        *shortest += block.height() + 2 * Gap;
    }

    QImage page(ColumnCount * (width + 2 * Gap), *std::max_element(heights.begin(), heights.end()),
                QImage::Format_RGB32);
    page.fill(Ground);
    QPainter painter(&page);
    for (int i = 0; i < ColumnCount; ++i) {
        painter.resetTransform();
        painter.translate(Gap + i * (width + 2 * Gap), Gap);
        for (const Block &block : qAsConst(columns[i])) {
            block.paint(&painter);
            painter.translate(0, block.height() + 2 * Gap);
        }
    }
    painter.end();
    return page;
}
