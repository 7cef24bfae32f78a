// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef TITLEBARHOST_H
#define TITLEBARHOST_H

#include "KestTitleBar.h"

#include <QtCore/QEvent>
#include <QtGui/QIcon>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>

inline QIcon icon(const QList<QSize> &sizes, const QColor &color = Qt::red)
{
    QIcon result;
    for (const QSize &size : sizes) {
        QPixmap pixmap(size);
        pixmap.fill(color);
        result.addPixmap(pixmap);
    }
    return result;
}

class TitleBar : public KestTitleBar
{
public:
    using KestTitleBar::doIconRect;
    using KestTitleBar::KestTitleBar;
};

// A top-level widget with a title bar, as a shell has one.
class Host : public QWidget
{
public:
    Host() : bar(new TitleBar(this))
    {
        setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowMinimizeButtonHint
                       | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint);
        resize(600, 300);
        bar->setGeometry(0, 0, 600, 48);
    }

    template <class Widget>
    Widget *part(const char *name) const
    {
        return bar->findChild<Widget *>(QLatin1String(name));
    }
    QWidget *button(const char *name) const { return part<QWidget>(name); }
    QLayout *row() const { return bar->layout(); }
    QHBoxLayout *actionRow() const
    {
        return bar->findChild<QHBoxLayout *>(QStringLiteral("actionLayout"));
    }

    TitleBar *bar;
};

// The bar's own painting: ground, icon and title, without the children.
inline QImage painted(KestTitleBar *bar)
{
    QImage image(bar->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    bar->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    return image;
}

// What is painted where the title begins at x.
inline QImage expectedPainting(KestTitleBar *bar, const QString &title, int x,
                               const QRect &iconRect, const QPixmap &iconPixmap)
{
    QImage image(bar->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(bar->palette().color(QPalette::Window)); // the bar fills its ground
    QPainter painter(&image);
    painter.setFont(bar->font());
    QStyleOption option;
    option.initFrom(bar);
    bar->style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, bar);
    if (!iconPixmap.isNull())
        painter.drawPixmap(iconRect, iconPixmap);
    const int width = bar->fontMetrics().size(Qt::TextSingleLine, title).width();
    painter.setPen(bar->palette().color(QPalette::WindowText));
    painter.drawText(QRect(x, 0, width, bar->height()),
                     Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip, title);
    return image;
}

inline QRect mirrored(const QWidget *widget, const QRect &rect)
{
    return QRect(widget->width() - rect.left() - rect.width(), rect.top(), rect.width(),
                 rect.height());
}

class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }

    int count = 0;
};

#endif // TITLEBARHOST_H
