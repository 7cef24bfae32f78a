// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "WindowPage.h"

#include "FormRow.h"

#include "KestNavigationBar.h"
#include "KestTitleBar.h"
#include "KestWindow.h"

#include <QAction>
#include <QtGui/QIcon>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QVBoxLayout>

WindowPage::WindowPage(QWidget *parent) : QWidget(parent)
{
    setWindowTitle(tr("Window"));
    auto *page = new QVBoxLayout(this);
    page->setContentsMargins(24, 20, 24, 20);
    page->setSpacing(14);

    auto *bars = new QGroupBox(tr("Bars"));
    auto *layout = new QFormLayout(bars);
    connect(
        addSwitch(layout, tr("Title bar (the navigation bar moves the window without it)"), true),
        &QCheckBox::toggled, this, [this](bool on) { shell()->titleBar()->setVisible(on); });
    connect(addSwitch(layout, tr("Navigation bar"), true), &QCheckBox::toggled, this,
            [this](bool on) { shell()->navigationBar()->setVisible(on); });
    connect(addSwitch(layout, tr("Status bar"), true), &QCheckBox::toggled, this,
            [this](bool on) { shell()->statusBar()->setVisible(on); });
    connect(addSwitch(layout, tr("Window icon in the title bar"), true), &QCheckBox::toggled, this,
            [this](bool on) {
                shell()->titleBar()->setIconVisible(on);
                shell()->titleBar()->update();
            });
    page->addWidget(bars);

    auto *window = new QGroupBox(tr("Window"));
    layout = new QFormLayout(window);
    auto *title = new QLineEdit(tr("KestWidgets Gallery"));
    connect(title, &QLineEdit::textChanged, this,
            [this](const QString &text) { shell()->setWindowTitle(text); });
    addFormRow(layout, tr("Title:"), title);
    auto *fixed = addSwitch(layout, tr("Fixed size (no edges, no maximising)"), false);
    connect(fixed, &QCheckBox::toggled, this, [this](bool on) {
        KestWindow *const window = shell();
        if (on) {
            window->setFixedSize(window->size());
        } else {
            window->setMinimumSize(720, 480);
            window->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
            window->resize(window->width() + 1, window->height());
        }
    });
    auto *iconSize = new QSlider(Qt::Horizontal);
    iconSize->setRange(12, 32);
    iconSize->setValue(16);
    connect(iconSize, &QSlider::valueChanged, this, [this](int size) {
        shell()->navigationBar()->setIconSize(QSize(size, size));
        shell()->titleBar()->setActionIconSize(QSize(size, size));
    });
    addFormRow(layout, tr("Icon size of the bars:"), iconSize);
    auto *add = new QPushButton(tr("Add an action to the title bar"));
    connect(add, &QPushButton::clicked, this, &WindowPage::addTitleBarAction);
    layout->addRow(QString(), add);
    page->addWidget(window);
    page->addStretch(1);
}

KestWindow *WindowPage::shell() const
{
    return static_cast<KestWindow *>(window());
}

QCheckBox *WindowPage::addSwitch(QFormLayout *layout, const QString &text, bool on)
{
    auto *box = new QCheckBox(text);
    box->setChecked(on);
    layout->addRow(box);
    return box;
}

void WindowPage::addTitleBarAction()
{
    auto *action = new QAction(QIcon(QStringLiteral(":/KestWidgets/Resources/edit.png")),
                               tr("Click to remove"), shell());
    connect(action, &QAction::triggered, action, &QObject::deleteLater);
    shell()->titleBar()->addAction(action);
}
