// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef SWITCHPAGE_H
#define SWITCHPAGE_H

#include <QtWidgets/QWidget>

/*! The switch button: every property live, and its states. */
class SwitchPage : public QWidget
{
    Q_OBJECT

public:
    explicit SwitchPage(QWidget *parent = nullptr);
};

#endif // SWITCHPAGE_H
