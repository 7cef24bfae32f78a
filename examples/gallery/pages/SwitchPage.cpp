// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "SwitchPage.h"

#include "Ground.h"
#include "PropertyForm.h"

#include "KestSwitchButton.h"

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace {

using Page = SwitchPage;

const QSize SwitchSize(48, 24);
const int MotionMs = 100; // what the handle takes from end to end

// The handle asks for no repaint on its way: without this it may stay painted where it was.
void paintMotion(KestSwitchButton *button)
{
    auto *motion = new QVariantAnimation(button);
    motion->setDuration(MotionMs);
    motion->setStartValue(0.0);
    motion->setEndValue(1.0);
    QObject::connect(motion, &QVariantAnimation::valueChanged, button,
                     qOverload<>(&QWidget::update));
    QObject::connect(button, &KestSwitchButton::toggled, motion, [motion] {
        motion->stop();
        motion->start();
    });
}

KestSwitchButton *createSwitch(bool checked)
{
    auto *button = new KestSwitchButton;
    paintMotion(button);
    button->setFixedSize(SwitchSize);
    button->setChecked(checked);
    return button;
}

QGroupBox *createStates()
{
    auto *box = new QGroupBox(Page::tr("States"));
    box->setObjectName(QStringLiteral("states"));
    auto *grid = new QGridLayout(box);
    grid->setColumnStretch(3, 1);
    grid->addWidget(new QLabel(Page::tr("Off")), 0, 1, Qt::AlignCenter);
    grid->addWidget(new QLabel(Page::tr("On")), 0, 2, Qt::AlignCenter);
    grid->addWidget(new QLabel(Page::tr("Enabled")), 1, 0);
    grid->addWidget(new QLabel(Page::tr("Disabled")), 2, 0);
    for (const bool checked : { false, true }) {
        for (const bool enabled : { true, false }) {
            KestSwitchButton *button = createSwitch(checked);
            button->setEnabled(enabled);
            grid->addWidget(button, enabled ? 1 : 2, checked ? 2 : 1, Qt::AlignCenter);
        }
    }
    return box;
}

} // namespace

SwitchPage::SwitchPage(QWidget *parent) : QWidget(parent)
{
    setWindowTitle(tr("Switch button"));
    KestSwitchButton *button = createSwitch(true);
    auto *form = new PropertyForm(button);
    auto *enabled = new QCheckBox;
    enabled->setChecked(true);
    connect(enabled, &QCheckBox::toggled, button, &QWidget::setEnabled);
    form->addRow(tr("Enabled"), enabled);

    auto *preview = new QGroupBox(tr("Preview"));
    auto *previewLayout = new QHBoxLayout(preview);
    auto *label = new QLabel(tr("On"));
    connect(button, &KestSwitchButton::toggled, label,
            [label](bool checked) { label->setText(checked ? tr("On") : tr("Off")); });
    previewLayout->addWidget(button);
    previewLayout->addWidget(label, 1);

    QGroupBox *const states = createStates();
    form->addRow(tr("Dark ground"), createGroundSwitch({ preview, states }));

    auto *left = new QVBoxLayout;
    left->addWidget(preview);
    left->addWidget(states);
    left->addStretch(1);
    auto *layout = new QHBoxLayout(this);
    layout->addLayout(left, 1);
    layout->addWidget(form, 0, Qt::AlignTop);
}
