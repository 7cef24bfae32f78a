// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "LoadingPage.h"

#include "FormRow.h"

#include "KestLoadingDialog.h"

#include <QtCore/QScopedPointer>
#include <QtCore/QThread>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

LoadingPage::LoadingPage(QWidget *parent)
    : QWidget(parent),
      m_seconds(new QSpinBox),
      m_cancel(new QCheckBox(tr("Escape cancels"))),
      m_result(new QLabel(tr("Not run yet.")))
{
    setWindowTitle(tr("Busy overlay"));
    auto *layout = new QFormLayout(this);
    layout->setContentsMargins(24, 20, 24, 20);
    layout->setSpacing(12);
    m_seconds->setRange(1, 60);
    m_seconds->setValue(3);
    m_seconds->setSuffix(tr(" s"));
    m_cancel->setChecked(true);
    auto *start = new QPushButton(tr("Run a long task"));
    connect(start, &QPushButton::clicked, this, &LoadingPage::run);
    addFormRow(layout, tr("It takes:"), m_seconds);
    layout->addRow(QString(), m_cancel);
    layout->addRow(QString(), start);
    layout->addRow(QString(), m_result);
}

void LoadingPage::run()
{
    KestLoadingDialog overlay(this);
    overlay.setCancelEnable(m_cancel->isChecked());
    const int steps = m_seconds->value() * 20;
    // A task that looks every now and then whether it is wanted any more.
    const QScopedPointer<QThread> task(QThread::create([steps] {
        for (int i = 0; i < steps && !QThread::currentThread()->isInterruptionRequested(); ++i)
            QThread::msleep(50);
    }));
    connect(task.data(), &QThread::finished, &overlay, &KestLoadingDialog::done);
    task->start();
    const KestLoadingDialog::Result result = overlay.exec();
    task->requestInterruption();
    task->wait();
    m_result->setText(result == KestLoadingDialog::Done ? tr("Done.") : tr("Cancelled."));
}
