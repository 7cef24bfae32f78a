// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestUserButton.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionToolButton>

namespace {

const int Gap = 5; // pixels between icon and text

QIcon::Mode iconMode(QStyle::State state)
{
    if (!(state & QStyle::State_Enabled))
        return QIcon::Disabled;
    const QStyle::State raised = QStyle::State_MouseOver | QStyle::State_AutoRaise;
    return (state & raised) == raised ? QIcon::Active : QIcon::Normal;
}

} // namespace

KestUserButton::KestUserButton(QWidget *parent) : KestToolButton(parent)
{ }

QSize KestUserButton::sizeHint() const
{
    QStyleOptionToolButton option;
    initStyleOption(&option);
    const int around = width() - contents(option).width();
    return QSize(around + iconWidth() + Gap + line(option).width(), -1);
}

QSize KestUserButton::minimumSizeHint() const
{
    return sizeHint();
}

void KestUserButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    const QRect iconRect = doIconRect(option);
    const QRect textRect = doTextRect(option);
    const QSize size = option.rect.size().boundedTo(option.iconSize);

    option.text.clear();
    option.icon = QIcon();
    style()->drawComplexControl(QStyle::CC_ToolButton, &option, &painter, this);

    const QPixmap pixmap = icon().pixmap(window()->windowHandle(), size, iconMode(option.state),
                                         option.state & QStyle::State_On ? QIcon::On : QIcon::Off);
    style()->drawItemPixmap(&painter, iconRect, Qt::AlignHCenter | Qt::AlignVCenter, pixmap);
    style()->drawItemText(&painter, textRect, Qt::AlignHCenter | Qt::AlignVCenter, option.palette,
                          option.state & QStyle::State_Enabled, text(), QPalette::NoRole);
}

QRect KestUserButton::doIconRect(const QStyleOptionToolButton &option) const
{
    // On one line with the text, where there is any.
    const QRect area = contents(option);
    QRect rect = text().isEmpty() ? area : line(option);
    rect.setWidth(iconWidth());
    return QStyle::visualRect(option.direction, area, rect);
}

QRect KestUserButton::doTextRect(const QStyleOptionToolButton &option) const
{
    const QRect area = contents(option);
    QRect rect = line(option);
    rect.moveLeft(area.left() + iconWidth() + Gap);
    return QStyle::visualRect(option.direction, area, rect);
}

QRect KestUserButton::contents(const QStyleOptionToolButton &option) const
{
    const QRect rect = style()->subElementRect(QStyle::SE_FrameContents, &option, this);
    if (rect.isValid())
        return rect;
    // Only style sheets know of contents of a tool button. Elsewhere icon and text share one line
    // in the middle of the button.
    const int height = qMax(iconSize().height(), option.fontMetrics.height());
    return QRect(0, (option.rect.height() - height) / 2, option.rect.width(), height);
}

// The text's size and height in the contents.
QRect KestUserButton::line(const QStyleOptionToolButton &option) const
{
    return option.fontMetrics.boundingRect(contents(option), Qt::TextDontClip, text());
}

int KestUserButton::iconWidth() const
{
    return qBound(0, iconSize().width(), QWIDGETSIZE_MAX);
}
