// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef SHOWNWIDGET_H
#define SHOWNWIDGET_H

#include "Contest.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QWidget>

#include <memory>

const int Paints = 100; // in one turn

/*! Shows \a widget, which is owned by what is returned. */
inline std::shared_ptr<QWidget> shown(QWidget *widget)
{
    std::shared_ptr<QWidget> owner(widget);
    showAndPaint(widget);
    settle();
    return owner;
}

/*! Counts up from 0, with one paint for each value. */
template <class Bar>
Work setAndPaintValues(Bar *bar, int count = Paints)
{
    const auto owner = shown(bar);
    return [owner, bar, count] {
        for (int i = 0; i < count; ++i) {
            // Some paint at once, and some later: let none paint twice.
            bar->setUpdatesEnabled(false);
            bar->setValue(i);
            bar->setUpdatesEnabled(true);
            bar->repaint();
        }
    };
}

/*! Changes a button over, with one paint each time. */
template <class Button>
Work toggleAndPaint(Button *button)
{
    const auto owner = shown(button);
    return [owner, button] {
        for (int i = 0; i < Paints; ++i) {
            button->setChecked(!button->isChecked());
            button->repaint();
        }
    };
}

/*! Paints \a edit while it has the focus, and the fields in it: they may be opaque, and then are
   not painted along with it. */
inline Work paintFocused(QWidget *edit, QWidget *focus = nullptr)
{
    const auto owner = shown(edit);
    giveFocus(focus ? focus : edit);
    const QList<QWidget *> fields = edit->findChildren<QWidget *>();
    return [owner, edit, fields] {
        for (int i = 0; i < Paints; ++i) {
            for (QWidget *field : fields)
                field->update();
            edit->repaint();
        }
    };
}

/*! Types an address into \a edit. */
inline Work typeAddress(QWidget *edit)
{
    const auto owner = shown(edit);
    giveFocus(edit);
    return [owner, edit] {
        for (const QChar c : QStringLiteral("192.168.100.200")) {
            QKeyEvent press(QEvent::KeyPress, c.unicode(), Qt::NoModifier, QString(c));
            QCoreApplication::sendEvent(edit, &press);
            QKeyEvent release(QEvent::KeyRelease, c.unicode(), Qt::NoModifier, QString(c));
            QCoreApplication::sendEvent(edit, &release);
        }
    };
}

#endif // SHOWNWIDGET_H
