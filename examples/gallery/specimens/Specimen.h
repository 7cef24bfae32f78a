// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef SPECIMEN_H
#define SPECIMEN_H

#include <QtCore/QString>
#include <QtCore/QVector>

#include <functional>

class QWidget;

/*! One way in which a user may meet a widget, such as hovered or checked. */
struct SpecimenState
{
    QString name;

    /*! Brings a shown widget from its first state into this one. */
    std::function<void(QWidget *)> pose;

    /*! The state of the same widget that a user has to tell this one from. Empty where this one is
        only to be looked at. */
    QString beside;
};

/*! A widget and the states that a style sheet has to show. */
struct Specimen
{
    QString name;
    std::function<QWidget *()> create;
    QVector<SpecimenState> states;

    /*! Every widget that the sheets are for: Qt's and the library's. */
    static QVector<Specimen> all();
};

/*! The families that Specimen::all() is put together from. */
namespace Specimens {

QVector<Specimen> buttons();
QVector<Specimen> inputs();
QVector<Specimen> ranges();
QVector<Specimen> views();
QVector<Specimen> containers();
QVector<Specimen> menus();
QVector<Specimen> bars();
QVector<Specimen> dialogs();

} // namespace Specimens

#endif // SPECIMEN_H
