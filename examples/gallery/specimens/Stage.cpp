// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Stage.h"

#include "KestNavigationBar.h"
#include "KestTitleBar.h"

#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QVBoxLayout>

namespace {

const int Margin = 6; // pixels around the widget
const QPoint Place(20, 20); // of the window on the screen

QList<QWidget *> openedWindows(const QWidget *window)
{
    QList<QWidget *> opened;
    const QWidgetList all = QApplication::topLevelWidgets();
    for (QWidget *other : all) {
        if (other != window && other->isVisible())
            opened.append(other);
    }
    return opened;
}

void scaleOwnSizes(QWidget *widget, double rate)
{
    if (widget->minimumWidth() == widget->maximumWidth())
        widget->setFixedWidth(qRound(widget->minimumWidth() * rate));
    else
        widget->setMinimumWidth(qRound(widget->minimumWidth() * rate));
    if (widget->minimumHeight() == widget->maximumHeight())
        widget->setFixedHeight(qRound(widget->minimumHeight() * rate));
    const QList<KestTitleBar *> bars = widget->findChildren<KestTitleBar *>();
    for (KestTitleBar *bar : bars) {
        QFont font = bar->font();
        font.setPointSizeF(font.pointSizeF() * rate);
        bar->setFont(font);
        bar->setActionIconSize(bar->getActionIconSize() * rate);
        bar->setProperty("geoRate", rate);
    }
    if (auto *bar = qobject_cast<KestNavigationBar *>(widget))
        bar->setIconSize(bar->iconSize() * rate);
}

} // namespace

Stage::Stage(const Specimen &specimen, const SpecimenState &state, double rate)
    : m_window(new QWidget), m_widget(specimen.create())
{
    m_window->setFocusPolicy(Qt::StrongFocus);
    auto *layout = new QVBoxLayout(m_window.data());
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    if (rate != 1)
        scaleOwnSizes(m_widget, rate);
    // Dialogs and windows are shown as what is in them.
    m_widget->setParent(m_window.data(), Qt::Widget);
    layout->addWidget(m_widget);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    m_window->move(Place);
    m_window->show();
    QApplication::setActiveWindow(m_window.data());
    m_window->setFocus();
    QApplication::processEvents();
    state.pose(m_widget);
    QApplication::processEvents();
}

Stage::~Stage()
{
    const QList<QWidget *> opened = openedWindows(m_window.data());
    for (QWidget *other : opened)
        other->close();
}

QImage Stage::picture() const
{
    const QList<QWidget *> opened = openedWindows(m_window.data());
    QRect area = m_window->geometry();
    for (const QWidget *other : opened)
        area |= other->geometry();
    const qreal ratio = m_window->devicePixelRatioF();
    QImage image((QSizeF(area.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.drawPixmap(m_window->pos() - area.topLeft(), m_window->grab());
    for (QWidget *other : opened)
        painter.drawPixmap(other->pos() - area.topLeft(), other->grab());
    return image;
}
