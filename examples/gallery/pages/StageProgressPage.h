// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef STAGEPROGRESSPAGE_H
#define STAGEPROGRESSPAGE_H

#include <QtWidgets/QWidget>

/*! The stage progress bar: every property live, and its states. */
class StageProgressPage : public QWidget
{
    Q_OBJECT

public:
    explicit StageProgressPage(QWidget *parent = nullptr);
};

#endif // STAGEPROGRESSPAGE_H
