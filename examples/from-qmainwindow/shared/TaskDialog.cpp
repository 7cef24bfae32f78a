// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "TaskDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

TaskDialog::TaskDialog(QWidget *parent) : QDialog(parent)
{
    setWindowTitle(QStringLiteral("Add a task"));
    m_task = new QLineEdit;
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QFormLayout(this);
    layout->addRow(QStringLiteral("&Task:"), m_task);
    layout->addRow(buttons);
}

QString TaskDialog::task() const
{
    return m_task->text();
}
