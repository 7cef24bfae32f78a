// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "ComboBoxPage.h"

#include "FormRow.h"

#include "KestComboBox.h"

#include <QtCore/QTime>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>

namespace {

using Page = ComboBoxPage;

KestComboBox *createBox()
{
    auto *box = new KestComboBox;
    box->addItems({ Page::tr("Apple"), Page::tr("Banana"), Page::tr("Cherry") });
    return box;
}

QWidget *createStates()
{
    auto *group = new QGroupBox(Page::tr("States"));
    group->setObjectName(QStringLiteral("states"));
    auto *layout = new QFormLayout(group);
    addFormRow(layout, Page::tr("Enabled"), createBox());
    KestComboBox *editable = createBox();
    editable->setEditable(true);
    addFormRow(layout, Page::tr("Editable"), editable);
    KestComboBox *disabled = createBox();
    disabled->setEnabled(false);
    addFormRow(layout, Page::tr("Disabled"), disabled);
    addFormRow(layout, Page::tr("Empty"), new KestComboBox);
    return group;
}

} // namespace

ComboBoxPage::ComboBoxPage(QWidget *parent) : QWidget(parent)
{
    setWindowTitle(tr("Combo box"));
    KestComboBox *box = createBox();
    auto *announced = new QLabel(tr("Not opened yet"));
    connect(box, &KestComboBox::aboutToShowPopup, this, [box, announced] {
        const QString now = QTime::currentTime().toString(QStringLiteral("HH:mm:ss"));
        box->addItem(tr("Opened at %1").arg(now));
        announced->setText(tr("aboutToShowPopup() at %1").arg(now));
    });

    auto *preview = new QGroupBox(tr("Preview"));
    auto *previewLayout = new QVBoxLayout(preview);
    previewLayout->addWidget(new QLabel(tr("Each opening adds an item to the list:")));
    previewLayout->addWidget(box);
    previewLayout->addWidget(announced);

    auto *controls = new QGroupBox(tr("Controls"));
    auto *form = new QFormLayout(controls);
    auto *editable = new QCheckBox;
    connect(editable, &QCheckBox::toggled, box, &QComboBox::setEditable);
    auto *enabled = new QCheckBox;
    enabled->setChecked(true);
    connect(enabled, &QCheckBox::toggled, box, &QWidget::setEnabled);
    auto *visibleItems = new QSpinBox;
    visibleItems->setRange(1, 30);
    visibleItems->setValue(box->maxVisibleItems());
    connect(visibleItems, qOverload<int>(&QSpinBox::valueChanged), box,
            &QComboBox::setMaxVisibleItems);
    addFormRow(form, tr("Editable"), editable);
    addFormRow(form, tr("Enabled"), enabled);
    addFormRow(form, tr("Visible items"), visibleItems);

    auto *left = new QVBoxLayout;
    left->addWidget(preview);
    left->addWidget(createStates());
    left->addStretch(1);
    auto *layout = new QHBoxLayout(this);
    layout->addLayout(left, 1);
    layout->addWidget(controls, 0, Qt::AlignTop);
}
