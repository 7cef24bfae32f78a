// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestLoadingDialog.h"

#include "ui_KestLoadingDialog.h"

#include <QtCore/QEventLoop>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtGui/QMovie>

class KestLoadingDialogPrivate
{
public:
    Ui_KestLoadingDialog ui;
    QEventLoop *loop = nullptr; // exec()'s own, while it runs
    KestLoadingDialog::Result result = KestLoadingDialog::Canceled;
    bool cancelEnable = false;
};

KestLoadingDialog::KestLoadingDialog(QWidget *parent)
    : QWidget(parent ? parent->window() : nullptr), d(new KestLoadingDialogPrivate)
{
    setFocusPolicy(Qt::StrongFocus);
    d->ui.setupUi(this);
    d->ui.label->setMovie(
        new QMovie(QStringLiteral(":/KestWidgets/Resources/loading.gif"), QByteArray(), this));
    hide();
    if (parentWidget())
        parentWidget()->installEventFilter(this);
}

KestLoadingDialog::~KestLoadingDialog()
{
    quitLoop();
    delete d;
}

bool KestLoadingDialog::cancelEnable() const
{
    return d->cancelEnable;
}

void KestLoadingDialog::setCancelEnable(bool enable)
{
    d->cancelEnable = enable;
}

QMovie *KestLoadingDialog::movie() const
{
    return d->ui.label->movie();
}

void KestLoadingDialog::setMovie(QMovie *movie)
{
    QMovie *const old = this->movie();
    if (movie && movie == old)
        return;
    delete old;
    if (movie)
        movie->setParent(this);
    d->ui.label->setMovie(movie);
    if (movie && isVisible())
        movie->start();
}

KestLoadingDialog::Result KestLoadingDialog::exec()
{
    if (d->loop || !parentWidget())
        return Canceled;
    // The window may be deleted, and the overlay with it, before the loop ends: then nothing of it
    // is touched any more.
    const QPointer<KestLoadingDialog> guard(this);
    QEventLoop loop;
    d->result = Canceled;
    d->loop = &loop;
    ensurePolished();
    setVisible(true);
    loop.exec(QEventLoop::DialogExec);
    if (!guard)
        return Canceled;
    d->loop = nullptr;
    hide();
    loop.processEvents(QEventLoop::AllEvents);
    return guard ? d->result : Canceled;
}

void KestLoadingDialog::done()
{
    finish(Done);
}

void KestLoadingDialog::cancel()
{
    finish(Canceled);
}

bool KestLoadingDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && watched == window())
        cover();
    return false;
}

bool KestLoadingDialog::focusNextPrevChild(bool)
{
    // The keys that would lead to the widgets below are swallowed like all others.
    return false;
}

void KestLoadingDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && d->cancelEnable)
        cancel();
}

void KestLoadingDialog::showEvent(QShowEvent *event)
{
    cover();
    raise();
    setFocus(Qt::OtherFocusReason);
    if (QMovie *const shown = movie())
        shown->start();
    QWidget::showEvent(event);
}

void KestLoadingDialog::hideEvent(QHideEvent *event)
{
    quitLoop();
    if (QMovie *const shown = movie())
        shown->stop();
    QWidget::hideEvent(event);
}

void KestLoadingDialog::closeEvent(QCloseEvent *event)
{
    quitLoop();
    QWidget::closeEvent(event);
}

// The window's contents margins are not painted on: they are its shadow, or off the screen.
void KestLoadingDialog::cover()
{
    if (!parentWidget())
        return;
    setContentsMargins(window()->contentsMargins());
    setGeometry(QRect(QPoint(0, 0), window()->size()));
}

// Not at once: the caller may be inside of what the loop is handling.
void KestLoadingDialog::finish(Result result)
{
    QTimer::singleShot(0, this, [this, result] {
        d->result = result;
        quitLoop();
    });
}

void KestLoadingDialog::quitLoop()
{
    if (d->loop)
        d->loop->quit();
}
