// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Stage.h"

#include "Scaling.h"

#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QVBoxLayout>
#include <QtWidgets/QWidget>

namespace {

const int Margin = 6; // pixels around the widget
const QPoint Place(20, 20); // of the window on the screen

QList<QWidget *> visibleWindows()
{
    QList<QWidget *> visible;
    const QWidgetList all = QApplication::topLevelWidgets();
    for (QWidget *window : all) {
        if (window->isVisible())
            visible.append(window);
    }
    return visible;
}

} // namespace

Stage::Stage(const Specimen &specimen, const SpecimenState &state, double rate)
    : m_others(visibleWindows()), m_window(new QWidget), m_widget(specimen.create())
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
    const QList<QWidget *> shown = windows();
    for (QWidget *opened : shown.mid(1))
        opened->close();
}

QList<QWidget *> Stage::windows() const
{
    QList<QWidget *> shown { m_window.data() };
    const QList<QWidget *> all = visibleWindows();
    for (QWidget *window : all) {
        if (window != m_window.data() && !m_others.contains(window))
            shown.append(window);
    }
    return shown;
}

QImage Stage::picture() const
{
    const QList<QWidget *> shown = windows();
    QRect area;
    for (const QWidget *window : shown)
        area |= window->geometry();
    const qreal ratio = m_window->devicePixelRatioF();
    QImage image((QSizeF(area.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    for (QWidget *window : shown)
        painter.drawPixmap(window->pos() - area.topLeft(), window->grab());
    return image;
}
