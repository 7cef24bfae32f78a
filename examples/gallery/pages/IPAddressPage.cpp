// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "IPAddressPage.h"

#include "FormRow.h"

#include "KestIPAddressEdit.h"

#include <QAction>
#include <QtCore/QTime>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

using Page = IPAddressPage;

KestIPAddressEdit *createEdit(const QString &address)
{
    auto *edit = new KestIPAddressEdit;
    edit->setIPAddress(address);
    return edit;
}

// Puts a text on the clipboard and has the edit paste it, as its user would.
QPushButton *createPasteButton(const QString &text, KestIPAddressEdit *edit)
{
    auto *button = new QPushButton(text);
    QObject::connect(button, &QPushButton::clicked, edit, [text, edit] {
        QGuiApplication::clipboard()->setText(text);
        edit->setFocus();
        const QList<QAction *> actions = edit->actions();
        for (QAction *action : actions) {
            if (action->shortcut() == QKeySequence(QKeySequence::Paste))
                action->trigger();
        }
    });
    return button;
}

QWidget *createStates()
{
    auto *group = new QGroupBox(Page::tr("States"));
    group->setObjectName(QStringLiteral("states"));
    auto *layout = new QFormLayout(group);
    addFormRow(layout, Page::tr("Address"), createEdit(QStringLiteral("192.168.0.1")));
    addFormRow(layout, Page::tr("Empty"), new KestIPAddressEdit);
    KestIPAddressEdit *readOnly = createEdit(QStringLiteral("10.0.0.138"));
    readOnly->setReadOnly(true);
    addFormRow(layout, Page::tr("Read-only"), readOnly);
    KestIPAddressEdit *disabled = createEdit(QStringLiteral("127.0.0.1"));
    disabled->setEnabled(false);
    addFormRow(layout, Page::tr("Disabled"), disabled);
    auto *line = new QLineEdit(QStringLiteral("192.168.0.1"));
    addFormRow(layout, Page::tr("A line edit"), line);
    return group;
}

} // namespace

IPAddressPage::IPAddressPage(QWidget *parent) : QWidget(parent)
{
    setWindowTitle(tr("IP address edit"));
    KestIPAddressEdit *edit = createEdit(QStringLiteral("192.168.0.1"));
    auto *address = new QLabel(edit->ipAddress());
    auto *log = new QListWidget;
    const auto announce = [address, edit, log](const char *what) {
        address->setText(edit->ipAddress());
        const QString now = QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz"));
        log->addItem(now + QLatin1Char(' ') + QLatin1String(what));
        log->scrollToBottom();
    };
    connect(edit, &KestIPAddressEdit::editChanged, log, [announce] { announce("editChanged()"); });
    connect(edit, &KestIPAddressEdit::editingFinished, log,
            [announce] { announce("editingFinished()"); });

    auto *preview = new QGroupBox(tr("Preview"));
    auto *form = new QFormLayout(preview);
    addFormRow(form, tr("Address"), edit);
    addFormRow(form, tr("ipAddress()"), address);
    addFormRow(form, tr("Signals"), log);

    auto *paste = new QGroupBox(tr("Paste"));
    auto *buttons = new QVBoxLayout(paste);
    buttons->addWidget(new QLabel(tr("Addresses and what fits are taken,")));
    for (const char *text : { "10.20.30.40", "192.168.001.1", "7" })
        buttons->addWidget(createPasteButton(QString::fromLatin1(text), edit));
    buttons->addWidget(new QLabel(tr("anything else is not:")));
    for (const char *text : { "1.2.3.256", "1..2.3", "1.2.3", "4711" })
        buttons->addWidget(createPasteButton(QString::fromLatin1(text), edit));
    buttons->addStretch(1);

    auto *left = new QVBoxLayout;
    left->addWidget(createStates());
    left->addWidget(preview, 1);
    auto *layout = new QHBoxLayout(this);
    layout->addLayout(left, 1);
    layout->addWidget(paste);
}
