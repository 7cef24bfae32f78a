// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef COMBOBOXPAGE_H
#define COMBOBOXPAGE_H

#include <QtWidgets/QWidget>

/*! The combo box that fills itself as it opens, and its states. */
class ComboBoxPage : public QWidget
{
    Q_OBJECT

public:
    explicit ComboBoxPage(QWidget *parent = nullptr);
};

#endif // COMBOBOXPAGE_H
