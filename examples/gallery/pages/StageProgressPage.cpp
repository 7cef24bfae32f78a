// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "StageProgressPage.h"

#include "Ground.h"
#include "PropertyForm.h"

#include "KestStageProgressBar.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>

namespace {

using Page = StageProgressPage;

const int MostStages = 12;

void setCaptions(KestStageProgressBar *bar, const QString &captions)
{
    const QStringList texts = captions.split(QLatin1Char(','));
    for (int i = 0; i < bar->stageCount(); ++i)
        bar->setText(i, texts.value(i).trimmed());
}

// The window's colour is that of the steps to come: it wants to differ from what is around it.
KestStageProgressBar *createBar(Qt::Orientation orientation, int value, bool captions)
{
    auto *bar = new KestStageProgressBar;
    bar->setStyleSheet(QStringLiteral("KestStageProgressBar { background-color: #A9B2BD }"));
    bar->setRange(0, 100);
    bar->setValue(value);
    bar->setOrientation(orientation);
    setCaptions(bar, Page::tr("Cart, Ship, Pay, Check, Done"));
    bar->setTextVisible(captions);
    return bar;
}

QGroupBox *createStates()
{
    auto *box = new QGroupBox(Page::tr("States"));
    box->setObjectName(QStringLiteral("states"));
    auto *layout = new QHBoxLayout(box);
    layout->setSpacing(24);
    auto *rows = new QVBoxLayout;
    for (const int value : { 0, 50, 100 })
        rows->addWidget(createBar(Qt::Horizontal, value, value == 50));
    KestStageProgressBar *disabled = createBar(Qt::Horizontal, 50, true);
    disabled->setEnabled(false);
    rows->addWidget(disabled);
    layout->addLayout(rows, 1);
    layout->addWidget(createBar(Qt::Vertical, 40, false));
    layout->addWidget(createBar(Qt::Vertical, 40, true));
    return box;
}

} // namespace

StageProgressPage::StageProgressPage(QWidget *parent) : QWidget(parent)
{
    setWindowTitle(tr("Stage progress bar"));
    KestStageProgressBar *bar = createBar(Qt::Horizontal, 45, true);
    auto *form = new PropertyForm(bar);

    auto *slider = new QSlider(Qt::Horizontal);
    slider->setRange(0, 100);
    slider->setValue(bar->value());
    connect(slider, &QSlider::valueChanged, bar, &KestStageProgressBar::setValue);
    connect(bar, &KestStageProgressBar::valueChanged, slider, &QSlider::setValue);

    auto *radius = new QSpinBox;
    radius->setRange(2, 60);
    radius->setValue(bar->stageCircleRadius());
    connect(radius, qOverload<int>(&QSpinBox::valueChanged), bar,
            &KestStageProgressBar::setStageCircleRadius);
    auto *captions = new QLineEdit(tr("Cart, Ship, Pay, Check, Done"));
    connect(captions, &QLineEdit::textChanged, bar,
            [bar](const QString &text) { setCaptions(bar, text); });
    auto *enabled = new QCheckBox;
    enabled->setChecked(true);
    connect(enabled, &QCheckBox::toggled, bar, &QWidget::setEnabled);
    form->addRow(tr("Stage circle radius"), radius);
    form->addRow(tr("Captions"), captions);
    form->addRow(tr("Enabled"), enabled);
    form->findChild<QSpinBox *>(QStringLiteral("stageCount"))->setRange(2, MostStages);

    auto *preview = new QGroupBox(tr("Preview"));
    auto *previewLayout = new QVBoxLayout(preview);
    previewLayout->addWidget(bar, 1);
    previewLayout->addWidget(slider);

    QGroupBox *const states = createStates();
    form->addRow(tr("Dark ground"), createGroundSwitch({ preview, states }));

    auto *left = new QVBoxLayout;
    left->addWidget(preview, 1);
    left->addWidget(states);
    auto *layout = new QHBoxLayout(this);
    layout->addLayout(left, 1);
    layout->addWidget(form);
}
