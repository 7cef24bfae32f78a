// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef COLORSPAGE_H
#define COLORSPAGE_H

#include <QtWidgets/QWidget>

/*! The twenty palette colours, each with the text colour that goes with it. */
class ColorsPage : public QWidget
{
    Q_OBJECT

public:
    explicit ColorsPage(QWidget *parent = nullptr);
};

#endif // COLORSPAGE_H
