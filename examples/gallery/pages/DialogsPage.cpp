// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "DialogsPage.h"

#include "FormRow.h"

#include "KestDialog.h"

#include <QtCore/QScopedPointer>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>

namespace {

// A form as a host has one already, with buttons of its own that end it.
QDialog *createConnectionForm()
{
    auto *form = new QDialog;
    form->setWindowTitle(DialogsPage::tr("New connection"));
    auto *layout = new QVBoxLayout(form);
    layout->setContentsMargins(24, 20, 24, 20);
    layout->setSpacing(16);
    auto *fields = new QFormLayout;
    fields->setSpacing(10);
    auto *name = new QLineEdit;
    name->setPlaceholderText(DialogsPage::tr("Name"));
    name->setMinimumWidth(220);
    auto *port = new QSpinBox;
    port->setRange(1, 65535);
    port->setValue(8080);
    addFormRow(fields, DialogsPage::tr("&Name:"), name);
    addFormRow(fields, DialogsPage::tr("&Port:"), port);
    fields->addRow(QString(), new QCheckBox(DialogsPage::tr("&Connect at start")));
    layout->addLayout(fields);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QObject::connect(buttons, &QDialogButtonBox::accepted, form, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, form, &QDialog::reject);
    layout->addWidget(buttons);
    return form;
}

QWidget *createNote()
{
    auto *note = new QLabel(DialogsPage::tr(
        "<h3>An ordinary widget</h3><p>The frame takes over its window title.<br>Close it by "
        "its button or the Escape key.</p>"));
    note->setWindowTitle(DialogsPage::tr("Note"));
    note->setMargin(24);
    return note;
}

} // namespace

DialogsPage::DialogsPage(QWidget *parent) : QWidget(parent), m_result(new QLabel)
{
    setWindowTitle(tr("Dialogs"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->setSpacing(12);
    layout->addWidget(new QLabel(tr("<b>Dialogs in the library's frame</b>")));

    const QStringList texts { tr("Show an ordinary widget"), tr("Run a form and take its result") };
    for (int i = 0; i < texts.size(); ++i) {
        auto *button = new QPushButton(texts.at(i));
        connect(button, &QPushButton::clicked, this, [this, i] { run(i); });
        layout->addWidget(button, 0, Qt::AlignLeft);
    }
    m_result->setText(tr("No dialog has been closed yet."));
    layout->addWidget(m_result);
    layout->addStretch(1);
}

QList<QDialog *> DialogsPage::createDialogs(QWidget *parent)
{
    QList<QDialog *> dialogs;
    for (QWidget *content : { createNote(), static_cast<QWidget *>(createConnectionForm()) }) {
        auto *frame = new KestDialog(parent);
        frame->setCentralWidget(content);
        dialogs.append(frame);
    }
    return dialogs;
}

void DialogsPage::run(int index)
{
    const QList<QDialog *> dialogs = createDialogs(window());
    const int result = dialogs.at(index)->exec();
    m_result->setText(result == QDialog::Accepted ? tr("The last dialog was accepted.")
                                                  : tr("The last dialog was rejected."));
    qDeleteAll(dialogs);
}
