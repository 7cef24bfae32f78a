// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef LONGTASKPAGE_H
#define LONGTASKPAGE_H

#include <QtWidgets/QWidget>

class KestCircleProgressBar;
class KestStageProgressBar;
class QCheckBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QThread;

/*! A task in a thread of its own that moves both progress bars, with the busy overlay above them or
    without, and that can be cancelled. */
class LongTaskPage : public QWidget
{
    Q_OBJECT

public:
    explicit LongTaskPage(QWidget *parent = nullptr);
    ~LongTaskPage() override;

private:
    void start();
    void showProgress(int percent);
    void finish(int primes);

    QSpinBox *m_millions;
    QCheckBox *m_cover;
    QPushButton *m_button; // starts and, while the task runs, cancels
    KestStageProgressBar *m_stages;
    KestCircleProgressBar *m_circle;
    QLabel *m_result;
    QThread *m_task = nullptr;
};

#endif // LONGTASKPAGE_H
