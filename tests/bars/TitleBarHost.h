// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef TITLEBARHOST_H
#define TITLEBARHOST_H

#include "KestTitleBar.h"

#include <QtGui/QIcon>
#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtWidgets/QHBoxLayout>

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

#endif // TITLEBARHOST_H
