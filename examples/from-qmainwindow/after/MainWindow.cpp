// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "MainWindow.h"

#include "TaskDialog.h"

#include <KestDialog.h>
#include <KestMessageBox.h>
#include <KestNavigationBar.h>

#include <QAction>
#include <QCloseEvent>
#include <QListWidget>
#include <QMenuBar>
#include <QSettings>
#include <QStatusBar>

MainWindow::MainWindow()
{
    m_tasks = new QListWidget;
    setCentralWidget(m_tasks); // before the window's title and size, which it brings its own of
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
    navigationBar()->addAction(add, KestNavigationBar::Left); // stays where it is: no state to save
    navigationBar()->addAction(clear, KestNavigationBar::Left);
    statusBar()->showMessage(QStringLiteral("Ready"));

    resize(480, 360);
    const QSettings settings;
    restoreGeometry(settings.value(QStringLiteral("geometry")).toByteArray());
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (isWindowModified()
        && KestMessageBox::question(this, QStringLiteral("Tasks"),
                                    QStringLiteral("Close with tasks that are not done?"))
            != KestMessageBox::Yes) {
        event->ignore();
        return;
    }
    QSettings settings;
    settings.setValue(QStringLiteral("geometry"), saveGeometry());
    KestWindow::closeEvent(event);
}

void MainWindow::add()
{
    KestDialog frame(this);
    auto *dialog = new TaskDialog; // as it was: the frame's result is the dialog's
    frame.setCentralWidget(dialog);
    if (frame.exec() != QDialog::Accepted)
        return;
    m_tasks->addItem(dialog->task());
    setModified(true);
}

void MainWindow::clear()
{
    m_tasks->clear();
    setModified(false);
}

void MainWindow::about()
{
    KestMessageBox::information(this, QStringLiteral("About Tasks"),
                                QStringLiteral("<b>Tasks</b>"));
}

void MainWindow::setModified(bool modified)
{
    setWindowModified(modified);
    statusBar()->showMessage(QStringLiteral("Tasks: %1").arg(m_tasks->count()));
}
