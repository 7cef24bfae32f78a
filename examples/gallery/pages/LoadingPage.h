// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef LOADINGPAGE_H
#define LOADINGPAGE_H

#include <QtWidgets/QWidget>

class QCheckBox;
class QLabel;
class QSpinBox;

/*! The busy overlay over a long task, which can be cancelled. */
class LoadingPage : public QWidget
{
    Q_OBJECT

public:
    explicit LoadingPage(QWidget *parent = nullptr);

private:
    void run();

    QSpinBox *m_seconds;
    QCheckBox *m_cancel;
    QLabel *m_result;
};

#endif // LOADINGPAGE_H
