// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef CIRCLEPROGRESSPAGE_H
#define CIRCLEPROGRESSPAGE_H

#include <QtWidgets/QWidget>

/*! The circle progress bar: every property live, and its states. */
class CircleProgressPage : public QWidget
{
    Q_OBJECT

public:
    explicit CircleProgressPage(QWidget *parent = nullptr);
};

#endif // CIRCLEPROGRESSPAGE_H
