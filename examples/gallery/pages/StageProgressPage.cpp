// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "StageProgressPage.h"

#include "Ground.h"
#include "PropertyForm.h"

#include "KestStageProgressBar.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>

namespace {

using Page = StageProgressPage;

const int MostStages = 12;
const int PlainStages = 5; // of bars without captions
const int LargestRadius = 60; // pixels

// The window's colour is that of the steps to come: it wants to differ from what is around it.
KestStageProgressBar *createBar(Qt::Orientation orientation, int value, const QStringList &texts)
{
    auto *bar = new KestStageProgressBar;
    bar->setStyleSheet(
        QStringLiteral("KestStageProgressBar { background-color: #A9B2BD; padding: 0px 2px }"));
    bar->setRange(0, 100);
    bar->setValue(value);
    bar->setOrientation(orientation);
    bar->setStageCount(texts.isEmpty() ? PlainStages : texts.size());
    bar->setTexts(texts);
    bar->setTextVisible(!texts.isEmpty());
    return bar;
}

QGroupBox *createStates()
{
    auto *box = new QGroupBox(Page::tr("States"));
    box->setObjectName(QStringLiteral("states"));
    auto *layout = new QHBoxLayout(box);
    layout->setSpacing(24);
    auto *rows = new QVBoxLayout;
    const QStringList captions { Page::tr("Cart"), Page::tr("Ship"), Page::tr("Pay"),
                                 Page::tr("Done") };
    for (const int value : { 0, 50, 100 })
        rows->addWidget(createBar(Qt::Horizontal, value, value == 50 ? captions : QStringList()));
    KestStageProgressBar *disabled = createBar(Qt::Horizontal, 50, captions);
    disabled->setEnabled(false);
    rows->addWidget(disabled);
    layout->addLayout(rows, 1);
    layout->addWidget(createBar(Qt::Vertical, 40, {}));
    layout->addWidget(createBar(Qt::Vertical, 40, captions));
    return box;
}

} // namespace

StageProgressPage::StageProgressPage(QWidget *parent) : QWidget(parent)
{
    setWindowTitle(tr("Stage progress bar"));
    KestStageProgressBar *bar = createBar(
        Qt::Horizontal, 45, { tr("Cart"), tr("Ship"), tr("Pay"), tr("Check"), tr("Done") });
    auto *form = new PropertyForm(bar);

    auto *slider = new QSlider(Qt::Horizontal);
    slider->setRange(0, 100);
    slider->setValue(bar->value());
    connect(slider, &QSlider::valueChanged, bar, &KestStageProgressBar::setValue);
    connect(bar, &KestStageProgressBar::valueChanged, slider, &QSlider::setValue);

    auto *enabled = new QCheckBox;
    enabled->setChecked(true);
    connect(enabled, &QCheckBox::toggled, bar, &QWidget::setEnabled);
    form->addRow(tr("Enabled"), enabled);
    form->findChild<QSpinBox *>(QStringLiteral("stageCount"))->setRange(2, MostStages);
    form->findChild<QSpinBox *>(QStringLiteral("stageCircleRadius"))->setRange(2, LargestRadius);

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
