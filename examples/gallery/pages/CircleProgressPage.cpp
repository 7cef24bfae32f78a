// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "CircleProgressPage.h"

#include "Ground.h"
#include "PropertyForm.h"

#include "KestCircleProgressBar.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QSlider>
#include <QtWidgets/QVBoxLayout>

namespace {

using Page = CircleProgressPage;

const int StateColumns = 3;

void addState(QGridLayout *grid, int index, KestCircleProgressBar *bar)
{
    bar->setMinimumSize(bar->sizeHint());
    grid->addWidget(bar, index / StateColumns, index % StateColumns);
}

QGroupBox *createStates()
{
    auto *box = new QGroupBox(Page::tr("States"));
    box->setObjectName(QStringLiteral("states"));
    auto *grid = new QGridLayout(box);
    const int values[] = { 0, 24, 75, 100 };
    for (int i = 0; i < 4; ++i) {
        auto *bar = new KestCircleProgressBar;
        bar->setValue(values[i]);
        addState(grid, i, bar);
    }
    auto *rounded = new KestCircleProgressBar;
    rounded->setPenCapStyle(Qt::RoundCap);
    rounded->setBarWidth(6);
    rounded->setBarBrush(QColor(0x28, 0x8A, 0x33));
    rounded->setRange(0, 12);
    rounded->setValue(7);
    rounded->setFormat(Page::tr("%v of %m"));
    addState(grid, 4, rounded);
    auto *busy = new KestCircleProgressBar;
    busy->setRange(0, 0);
    addState(grid, 5, busy);
    return box;
}

} // namespace

CircleProgressPage::CircleProgressPage(QWidget *parent) : QWidget(parent)
{
    setWindowTitle(tr("Circle progress bar"));
    auto *bar = new KestCircleProgressBar;
    auto *form = new PropertyForm(bar);

    auto *slider = new QSlider(Qt::Horizontal);
    slider->setRange(0, 100);
    slider->setValue(bar->value());
    connect(slider, &QSlider::valueChanged, bar, &KestCircleProgressBar::setValue);
    connect(bar, &KestCircleProgressBar::valueChanged, slider, &QSlider::setValue);

    auto *busy = new QCheckBox;
    connect(busy, &QCheckBox::toggled, bar, [bar](bool on) { bar->setRange(0, on ? 0 : 100); });
    form->addRow(tr("Busy"), busy);

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
