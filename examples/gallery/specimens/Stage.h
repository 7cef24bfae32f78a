// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef STAGE_H
#define STAGE_H

#include "Specimen.h"

#include <QtCore/QList>
#include <QtCore/QScopedPointer>
#include <QtGui/QImage>

/*! Shows one state of one specimen in a window of its own, which has the focus while the widget
    has not. At another rate than 1 it does what a program has to do beside scaling its sheet. */
class Stage
{
    Q_DISABLE_COPY(Stage)

public:
    Stage(const Specimen &specimen, const SpecimenState &state, double rate = 1);
    ~Stage();

    QWidget *window() const { return m_window.data(); }
    QWidget *widget() const { return m_widget; }

    /*! The window, and what the widget has opened: menus, lists and tool tips. */
    QList<QWidget *> windows() const;

    /*! All of them, as they lie on the screen. */
    QImage picture() const;

private:
    const QList<QWidget *> m_others; // what was on the screen before
    QScopedPointer<QWidget> m_window;
    QWidget *m_widget;
};

#endif // STAGE_H
