// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "MainWindow.h"

#include "TaskDialog.h"

#include <QAction>
#include <QCloseEvent>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>

MainWindow::MainWindow()
{
    m_tasks = new QListWidget;
    setCentralWidget(m_tasks);
    setWindowTitle(QStringLiteral("Tasks[*]"));

    auto *add = new QAction(QStringLiteral("&Add"), this);
    add->setShortcut(QKeySequence::New);
    connect(add, &QAction::triggered, this, &MainWindow::add);
    auto *clear = new QAction(QStringLiteral("&Clear"), this);
    connect(clear, &QAction::triggered, this, &MainWindow::clear);
    auto *about = new QAction(QStringLiteral("A&bout"), this);
    connect(about, &QAction::triggered, this, &MainWindow::about);

    menuBar()->addMenu(QStringLiteral("&File"))->addActions({ add, clear });
    menuBar()->addMenu(QStringLiteral("&Help"))->addAction(about);
    QToolBar *bar = addToolBar(QStringLiteral("Main"));
    bar->setObjectName(QStringLiteral("main"));
    bar->addActions({ add, clear });
    statusBar()->showMessage(QStringLiteral("Ready"));

    resize(480, 360);
    const QSettings settings;
    restoreGeometry(settings.value(QStringLiteral("geometry")).toByteArray());
    restoreState(settings.value(QStringLiteral("state")).toByteArray());
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (isWindowModified()
        && QMessageBox::question(this, QStringLiteral("Tasks"),
                                 QStringLiteral("Close with tasks that are not done?"))
            != QMessageBox::Yes) {
        event->ignore();
        return;
    }
    QSettings settings;
    settings.setValue(QStringLiteral("geometry"), saveGeometry());
    settings.setValue(QStringLiteral("state"), saveState());
    QMainWindow::closeEvent(event);
}

void MainWindow::add()
{
    TaskDialog dialog(this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    m_tasks->addItem(dialog.task());
    setModified(true);
}

void MainWindow::clear()
{
    m_tasks->clear();
    setModified(false);
}

void MainWindow::about()
{
    QMessageBox::about(this, QStringLiteral("About Tasks"), QStringLiteral("<b>Tasks</b>"));
}

void MainWindow::setModified(bool modified)
{
    setWindowModified(modified);
    statusBar()->showMessage(QStringLiteral("Tasks: %1").arg(m_tasks->count()));
}
