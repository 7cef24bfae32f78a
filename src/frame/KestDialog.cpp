// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestDialog.h"

#include "KestPlatformDelegate.h"
#include "KestTitleBar.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtGui/QHideEvent>
#include <QtWidgets/QVBoxLayout>

class KestDialogPrivate
{
public:
    QPointer<KestTitleBar> titleBar;
    QPointer<QWidget> centralWidget;
    QVBoxLayout *layout = nullptr;
    KestPlatformDelegate *delegate = nullptr;
};

KestDialog::KestDialog(QWidget *parent) : QDialog(parent), d(new KestDialogPrivate)
{
    d->titleBar = new KestTitleBar(this);

    d->layout = new QVBoxLayout(this);
    d->layout->setContentsMargins(0, 0, 0, 0);
    d->layout->setSpacing(0);
    d->layout->addWidget(d->titleBar);
    d->layout->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    d->delegate = createPlatformDelegate(this, d->titleBar, Qt::Dialog);
    setCentralWidget(new QWidget(this));
}

KestDialog::~KestDialog()
{
    delete d;
}

KestTitleBar *KestDialog::titleBar() const
{
    if (!d->titleBar) {
        auto *self = const_cast<KestDialog *>(this);
        self->setTitleBar(new KestTitleBar(self));
    }
    return d->titleBar;
}

void KestDialog::setTitleBar(KestTitleBar *bar)
{
    KestTitleBar *const old = d->titleBar;
    if (old == bar)
        return;
    if (old) {
        d->delegate->removeMoveBar(old);
        old->hide();
        old->deleteLater();
    }
    d->titleBar = bar;
    if (bar) {
        d->layout->insertWidget(0, bar);
        d->delegate->addMoveBar(bar);
    }
}

QWidget *KestDialog::centralWidget() const
{
    return d->centralWidget;
}

void KestDialog::setCentralWidget(QWidget *widget)
{
    QWidget *const old = d->centralWidget;
    if (old == widget)
        return;
    if (old) {
        old->hide();
        old->deleteLater();
    }
    d->centralWidget = widget;
    if (!widget)
        return;
    d->layout->addWidget(widget, 1);
    if (!widget->windowTitle().isEmpty())
        setWindowTitle(widget->windowTitle());
    if (auto *dialog = qobject_cast<QDialog *>(widget))
        connect(dialog, &QDialog::finished, this, &KestDialog::done);
    widget->installEventFilter(this);
}

void KestDialog::addMoveBar(QWidget *widget)
{
    d->delegate->addMoveBar(widget);
}

void KestDialog::removeMoveBar(QWidget *widget)
{
    d->delegate->removeMoveBar(widget);
}

void KestDialog::hideEvent(QHideEvent *event)
{
    // A dialog that was closed by its button vanishes below the pointer: the button would never
    // hear that the pointer left, and keep its hover look for the next show.
    if (d->titleBar) {
        if (auto *button = d->titleBar->findChild<QWidget *>(QStringLiteral("closeBtn"))) {
            QEvent leave(QEvent::Leave);
            QCoreApplication::sendEvent(button, &leave);
        }
    }
    QDialog::hideEvent(event);
}

bool KestDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::WindowTitleChange && watched == d->centralWidget)
        setWindowTitle(d->centralWidget->windowTitle());
    return QDialog::eventFilter(watched, event);
}

bool KestDialog::nativeEvent(const QByteArray &eventType, void *message, long *result)
{
    return platformNativeEvent(d->delegate, eventType, message, result)
        || QDialog::nativeEvent(eventType, message, result);
}
