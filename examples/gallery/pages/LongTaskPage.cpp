// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "LongTaskPage.h"

#include "FormRow.h"

#include "KestCircleProgressBar.h"
#include "KestLoadingDialog.h"
#include "KestStageProgressBar.h"

#include <QtCore/QThread>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>

#include <functional>

namespace {

using Page = LongTaskPage;

const int Million = 1000000;
const int Steps = 100;

bool isPrime(int number)
{
    for (int divisor = 3; divisor <= number / divisor; divisor += 2) {
        if (number % divisor == 0)
            return false;
    }
    return true;
}

// Runs in the thread, tells of each step and looks whether it is wanted any more.
int countPrimes(int end, const std::function<void(int)> &tellPercent)
{
    int primes = 1; // 2, the only even one
    for (int step = 0; step < Steps; ++step) {
        if (QThread::currentThread()->isInterruptionRequested())
            return -1;
        const int stop = end / Steps * (step + 1);
        for (int number = qMax(3, end / Steps * step + 1); number < stop; number += 2)
            primes += isPrime(number) ? 1 : 0;
        tellPercent(step + 1);
    }
    return primes;
}

QGroupBox *createMeters(KestStageProgressBar *stages, KestCircleProgressBar *circle)
{
    stages->setStyleSheet(
        QStringLiteral("KestStageProgressBar { background-color: #A9B2BD; padding: 0px 2px }"));
    stages->setRange(0, Steps);
    stages->setTextVisible(true);
    const QStringList captions { Page::tr("Start"), Page::tr("25 %"), Page::tr("50 %"),
                                 Page::tr("75 %"), Page::tr("Done") };
    for (int i = 0; i < captions.size(); ++i)
        stages->setText(i, captions.at(i));
    circle->setRange(0, Steps);
    circle->setValue(0);
    circle->setMinimumSize(160, 160);

    auto *box = new QGroupBox(Page::tr("Progress"));
    box->setStyleSheet(QStringLiteral("QGroupBox { background: white }"));
    auto *layout = new QVBoxLayout(box);
    layout->setSpacing(24);
    layout->addWidget(circle, 1);
    layout->addWidget(stages);
    return box;
}

} // namespace

LongTaskPage::LongTaskPage(QWidget *parent)
    : QWidget(parent),
      m_millions(new QSpinBox),
      m_cover(new QCheckBox(tr("C&over the window with the busy overlay"))),
      m_button(new QPushButton(tr("&Count the primes"))),
      m_stages(new KestStageProgressBar),
      m_circle(new KestCircleProgressBar),
      m_result(new QLabel(tr("Not run yet.")))
{
    setWindowTitle(tr("Long task"));
    m_millions->setRange(1, 100);
    m_millions->setValue(10);
    m_millions->setSuffix(tr(" million"));
    m_button->setObjectName(QStringLiteral("task"));
    m_result->setObjectName(QStringLiteral("taskResult"));
    connect(m_button, &QPushButton::clicked, this, [this] {
        if (m_task)
            m_task->requestInterruption();
        else
            start();
    });

    auto *task = new QGroupBox(tr("Task"));
    auto *form = new QFormLayout(task);
    addFormRow(form, tr("&Primes below"), m_millions);
    form->addRow(m_cover);
    form->addRow(m_button);
    form->addRow(m_result);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 20);
    layout->setSpacing(14);
    layout->addWidget(task);
    layout->addWidget(createMeters(m_stages, m_circle), 1);
}

LongTaskPage::~LongTaskPage()
{
    if (m_task) {
        m_task->requestInterruption();
        m_task->wait();
        delete m_task;
    }
}

void LongTaskPage::start()
{
    const int end = m_millions->value() * Million;
    // What a thread finds out goes to the widgets through their own thread's events.
    m_task = QThread::create([this, end] {
        const int primes = countPrimes(end, [this](int percent) {
            QMetaObject::invokeMethod(this, [this, percent] { showProgress(percent); });
        });
        QMetaObject::invokeMethod(this, [this, primes] { finish(primes); });
    });
    m_button->setText(tr("C&ancel"));
    m_result->setText(tr("Counting ..."));
    showProgress(0);
    m_task->start();
    if (!m_cover->isChecked())
        return;
    KestLoadingDialog overlay(this);
    overlay.setCancelEnable(true);
    connect(m_task, &QThread::finished, &overlay, &KestLoadingDialog::done);
    if (overlay.exec() == KestLoadingDialog::Canceled && m_task)
        m_task->requestInterruption();
}

void LongTaskPage::showProgress(int percent)
{
    m_stages->setValue(percent);
    m_circle->setValue(percent);
}

void LongTaskPage::finish(int primes)
{
    m_task->wait();
    delete m_task;
    m_task = nullptr;
    m_result->setText(primes < 0 ? tr("Cancelled at %1 %.").arg(m_circle->value())
                                 : tr("%1 primes.").arg(primes));
    m_button->setText(tr("&Count the primes"));
}
