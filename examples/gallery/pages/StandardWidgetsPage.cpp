// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "StandardWidgetsPage.h"

#include "FormRow.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDateEdit>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QVBoxLayout>

namespace {

using Page = StandardWidgetsPage;

QWidget *createButtons()
{
    auto *box = new QGroupBox(Page::tr("Buttons"));
    auto *layout = new QGridLayout(box);
    auto *primary = new QPushButton(Page::tr("Default"));
    primary->setDefault(true);
    auto *disabled = new QPushButton(Page::tr("Disabled"));
    disabled->setEnabled(false);
    auto *toggle = new QPushButton(Page::tr("Checked"));
    toggle->setCheckable(true);
    toggle->setChecked(true);
    layout->addWidget(new QPushButton(Page::tr("Button")), 0, 0);
    layout->addWidget(primary, 0, 1);
    layout->addWidget(toggle, 1, 0);
    layout->addWidget(disabled, 1, 1);
    return box;
}

QWidget *createChoices()
{
    auto *box = new QGroupBox(Page::tr("Choices"));
    auto *layout = new QGridLayout(box);
    const Qt::CheckState states[] = { Qt::Checked, Qt::PartiallyChecked, Qt::Unchecked };
    const QStringList names { Page::tr("Checked"), Page::tr("Partly"), Page::tr("Unchecked") };
    for (int i = 0; i < 3; ++i) {
        auto *check = new QCheckBox(names.at(i));
        check->setTristate(i == 1);
        check->setCheckState(states[i]);
        layout->addWidget(check, i, 0);
        auto *radio = new QRadioButton(Page::tr("Option %1").arg(i + 1));
        radio->setChecked(i == 0);
        radio->setEnabled(i != 2);
        layout->addWidget(radio, i, 1);
    }
    return box;
}

QWidget *createInputs()
{
    auto *box = new QGroupBox(Page::tr("Inputs"));
    auto *layout = new QFormLayout(box);
    auto *line = new QLineEdit(Page::tr("Some text"));
    line->setClearButtonEnabled(true);
    auto *disabled = new QLineEdit(Page::tr("Disabled"));
    disabled->setEnabled(false);
    auto *combo = new QComboBox;
    combo->addItems({ Page::tr("First"), Page::tr("Second"), Page::tr("Third") });
    auto *editable = new QComboBox;
    editable->setEditable(true);
    editable->addItems({ Page::tr("Editable"), Page::tr("Other") });
    auto *spin = new QSpinBox;
    spin->setSuffix(Page::tr(" px"));
    spin->setValue(42);
    addFormRow(layout, Page::tr("Line:"), line);
    addFormRow(layout, Page::tr("Off:"), disabled);
    addFormRow(layout, Page::tr("Combo:"), combo);
    addFormRow(layout, Page::tr("Edit:"), editable);
    addFormRow(layout, Page::tr("Spin:"), spin);
    addFormRow(layout, Page::tr("Date:"), new QDateEdit(QDate(2026, 11, 21)));
    return box;
}

QWidget *createMeters()
{
    auto *box = new QGroupBox(Page::tr("Ranges"));
    auto *layout = new QVBoxLayout(box);
    auto *progress = new QProgressBar;
    progress->setValue(60);
    auto *slider = new QSlider(Qt::Horizontal);
    slider->setValue(35);
    layout->addWidget(progress);
    layout->addWidget(slider);
    return box;
}

QWidget *createViews()
{
    auto *tabs = new QTabWidget;

    auto *table = new QTableWidget(12, 4);
    table->setTabKeyNavigation(false); // the arrows do: Tab leads out of it
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int column = 0; column < table->columnCount(); ++column) {
            table->setItem(
                row, column,
                new QTableWidgetItem(Page::tr("Cell %1.%2").arg(row + 1).arg(column + 1)));
        }
    }
    table->selectRow(2);
    tabs->addTab(table, Page::tr("Table"));

    auto *tree = new QTreeWidget;
    tree->setHeaderLabels({ Page::tr("Name"), Page::tr("Kind") });
    for (int i = 1; i <= 3; ++i) {
        auto *folder =
            new QTreeWidgetItem(tree, { Page::tr("Folder %1").arg(i), Page::tr("Folder") });
        for (int j = 1; j <= 3; ++j)
            new QTreeWidgetItem(folder, { Page::tr("File %1").arg(j), Page::tr("Text") });
        folder->setExpanded(i == 1);
    }
    tabs->addTab(tree, Page::tr("Tree"));
    auto *text = new QTextEdit(Page::tr("Text of several lines."));
    text->setTabChangesFocus(true);
    tabs->addTab(text, Page::tr("Text"));
    tabs->addTab(new QWidget, Page::tr("Disabled"));
    tabs->setTabEnabled(3, false);
    return tabs;
}

} // namespace

StandardWidgetsPage::StandardWidgetsPage(QWidget *parent) : QWidget(parent)
{
    setWindowTitle(tr("Standard widgets"));
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(24, 20, 24, 20);
    layout->setSpacing(14);
    layout->addWidget(createButtons(), 0, 0);
    layout->addWidget(createChoices(), 0, 1);
    layout->addWidget(createInputs(), 1, 0);
    layout->addWidget(createMeters(), 1, 1, Qt::AlignTop);
    layout->addWidget(createViews(), 2, 0, 1, 2);
    layout->setRowStretch(2, 1);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
}
