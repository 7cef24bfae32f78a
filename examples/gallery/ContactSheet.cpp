// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "ContactSheet.h"

#include "Specimen.h"
#include "Stage.h"

#include <QtCore/QPair>
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

    QSize size() const { return m_size; }

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
    const int pageWidth = ColumnCount * (width + 2 * Gap);
    QVector<QPair<QPoint, Block>> placed;
    QVector<Block> wide; // what no column holds stands in rows below them
    QVector<int> heights(ColumnCount, Gap);
    for (const Specimen &specimen : Specimen::all()) {
        const Block block(specimen, rate, width);
        if (block.size().width() > width) {
            wide.append(block);
            continue;
        }
        const auto shortest = std::min_element(heights.begin(), heights.end());
        const int column = int(shortest - heights.begin());
        placed.append({ QPoint(Gap + column * (width + 2 * Gap), *shortest), block });
        *shortest += block.size().height() + 2 * Gap;
    }

    QPoint at(Gap, *std::max_element(heights.begin(), heights.end()));
    int bottom = at.y();
    for (const Block &block : qAsConst(wide)) {
        if (at.x() > Gap && at.x() + block.size().width() > pageWidth)
            at = QPoint(Gap, bottom);
        placed.append({ at, block });
        at.rx() += block.size().width() + 2 * Gap;
        bottom = qMax(bottom, at.y() + block.size().height() + 2 * Gap);
    }

    QImage page(pageWidth, bottom, QImage::Format_RGB32);
    page.fill(Ground);
    QPainter painter(&page);
    for (const auto &entry : qAsConst(placed)) {
        painter.resetTransform();
        painter.translate(entry.first);
        entry.second.paint(&painter);
    }
    painter.end();
    return page;
}
