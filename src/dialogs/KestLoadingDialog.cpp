// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestLoadingDialog.h"

#include "KestAccessibleParts.h"
#include "KestDialog.h"
#include "KestWindow.h"
#include "ui_KestLoadingDialog.h"

#include <QtCore/QEventLoop>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtGui/QMovie>
#include <QtWidgets/QApplication>

#include <algorithm>

namespace {

// What of a window is not painted on. The contents margins of the library's own windows are their
// shadow, or off the screen, unless their layout lies on them; those of other windows are theirs.
QMargins marginsAround(const QWidget *window)
{
    const bool isShell =
        qobject_cast<const KestWindow *>(window) || qobject_cast<const KestDialog *>(window);
    return isShell && !window->testAttribute(Qt::WA_LayoutOnEntireRect) ? window->contentsMargins()
                                                                        : QMargins();
}

// Several overlays may share a movie.
bool isShownByOthers(const QMovie *movie, const KestLoadingDialog *than)
{
    const QWidgetList widgets = QApplication::allWidgets();
    return std::any_of(widgets.cbegin(), widgets.cend(), [=](const QWidget *widget) {
        const auto *overlay = qobject_cast<const KestLoadingDialog *>(widget);
        return overlay && overlay != than && overlay->isVisible() && overlay->movie() == movie;
    });
}

} // namespace

class KestLoadingDialogPrivate
{
public:
    explicit KestLoadingDialogPrivate(KestLoadingDialog *overlay) : q(overlay) { }

    void cover();
    void takeFocus();
    void giveFocusBack();
    void stopMovie();
    void finish(KestLoadingDialog::Result end);
    void quitLoop();

    KestLoadingDialog *q;
    Ui_KestLoadingDialog ui;
    QPointer<QWidget> focusBefore; // had the focus when the overlay took it
    QEventLoop *loop = nullptr; // exec()'s own, while it runs
    bool loopEnded = false;
    KestLoadingDialog::Result result = KestLoadingDialog::Canceled;
    bool cancelEnable = false;
};

void KestLoadingDialogPrivate::cover()
{
    if (!q->parentWidget())
        return;
    // In the form's layout: the overlay's own margins are the host's.
    ui.horizontalLayout->setContentsMargins(marginsAround(q->window()));
    q->setGeometry(QRect(QPoint(0, 0), q->window()->size()));
}

void KestLoadingDialogPrivate::takeFocus()
{
    QWidget *const before = q->window()->focusWidget();
    if (before != q)
        focusBefore = before;
    q->setFocus(Qt::OtherFocusReason);
}

// To the widget that had it, unless somebody else has it by now. Where that is not possible any
// more Qt moves it on when the overlay is hidden.
void KestLoadingDialogPrivate::giveFocusBack()
{
    QPointer<QWidget> before;
    before.swap(focusBefore);
    if (before && q->window()->focusWidget() == q && before->window() == q->window())
        before->setFocus(Qt::OtherFocusReason);
}

void KestLoadingDialogPrivate::stopMovie()
{
    QMovie *const movie = q->movie();
    if (movie && !isShownByOthers(movie, q))
        movie->stop();
}

// Not at once: the caller may be inside of what the loop is handling.
void KestLoadingDialogPrivate::finish(KestLoadingDialog::Result end)
{
    QTimer::singleShot(0, q, [this, end] {
        result = end;
        quitLoop();
    });
}

void KestLoadingDialogPrivate::quitLoop()
{
    if (!loop)
        return;
    loopEnded = true;
    loop->quit();
}

KestLoadingDialog::KestLoadingDialog(QWidget *parent)
    : QWidget(parent ? parent->window() : nullptr), d(new KestLoadingDialogPrivate(this))
{
    KestAccessibleParts::install();
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
    // Whoever hears of it still meets a whole overlay. A window that dies has hidden it already.
    d->quitLoop();
    if (isVisible())
        hide();
    clearFocus();
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
    const QPointer<QMovie> old = this->movie();
    if (movie && movie == old)
        return;
    if (movie && !movie->parent())
        movie->setParent(this);
    d->ui.label->setMovie(movie);
    if (movie && isVisible())
        movie->start();
    // Last, and no longer a child of who may be deleted by whoever hears of it.
    if (old)
        old->setParent(nullptr);
    delete old;
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
    d->loopEnded = false;
    ensurePolished();
    if (guard)
        setVisible(true);
    // Whoever heard of the showing may have ended it before it began.
    if (guard && !d->loopEnded)
        loop.exec(QEventLoop::DialogExec);
    if (!guard)
        return Canceled;
    d->loop = nullptr;
    // Hiding does that too, but a widget does not survive its deletion while it is being hidden.
    d->giveFocusBack();
    if (guard)
        d->stopMovie();
    if (guard)
        hide();
    loop.processEvents(QEventLoop::AllEvents);
    return guard ? d->result : Canceled;
}

void KestLoadingDialog::done()
{
    d->finish(Done);
}

void KestLoadingDialog::cancel()
{
    d->finish(Canceled);
}

bool KestLoadingDialog::event(QEvent *event)
{
    const bool result = QWidget::event(event);
    // Over a window that is not shown, hiding the overlay is no hide event.
    if (event->type() == QEvent::HideToParent)
        d->quitLoop();
    return result;
}

bool KestLoadingDialog::eventFilter(QObject *watched, QEvent *event)
{
    // Qt sends one for new contents margins as well.
    if (event->type() != QEvent::Resize || watched != window())
        return false;
    // Qt must not go on with a window that a host deletes meanwhile.
    const QPointer<QObject> receiver(watched);
    d->cover();
    return receiver.isNull();
}

bool KestLoadingDialog::focusNextPrevChild(bool next)
{
    // The keys that would lead to the widgets below are swallowed like all others. Once the overlay
    // is hidden, it is Qt that moves the focus on.
    return !isVisible() && QWidget::focusNextPrevChild(next);
}

void KestLoadingDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && d->cancelEnable)
        cancel();
}

void KestLoadingDialog::showEvent(QShowEvent *event)
{
    const QPointer<KestLoadingDialog> guard(this);
    d->cover();
    if (guard)
        raise();
    if (guard)
        d->takeFocus();
    if (!guard)
        return;
    if (QMovie *const shown = movie())
        shown->start();
    if (guard)
        QWidget::showEvent(event);
}

void KestLoadingDialog::hideEvent(QHideEvent *event)
{
    const QPointer<KestLoadingDialog> guard(this);
    d->quitLoop();
    // An overlay that is hidden with its window is shown with it again.
    if (isHidden())
        d->giveFocusBack();
    if (guard)
        d->stopMovie();
    if (guard)
        QWidget::hideEvent(event);
}

void KestLoadingDialog::closeEvent(QCloseEvent *event)
{
    d->quitLoop();
    QWidget::closeEvent(event);
}
