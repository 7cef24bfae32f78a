// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestDialog.h"

#include "BarTabOrder.h"
#include "KestPlatformDelegate.h"
#include "KestTitleBar.h"
#include "Util.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtGui/QHideEvent>
#include <QtWidgets/QVBoxLayout>

#include <typeinfo>

class KestDialogPrivate
{
public:
    QPointer<KestTitleBar> titleBar;
    QPointer<QWidget> centralWidget;
    QVBoxLayout *layout = nullptr;
    KestPlatformDelegate *delegate = nullptr;
    QMetaObject::Connection innerFinished; // of a central widget that is a dialog
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
    if (d->titleBar)
        return d->titleBar;
    const QPointer<const KestDialog> guard(this);
    auto *self = const_cast<KestDialog *>(this);
    self->setTitleBar(new KestTitleBar(self));
    return guard ? d->titleBar.data() : nullptr;
}

void KestDialog::setTitleBar(KestTitleBar *bar)
{
    KestTitleBar *const old = d->titleBar;
    if (old == bar)
        return;
    // It is the dialog's before anybody hears of it: whoever sets another one then is the last.
    const QPointer<KestDialog> guard(this);
    d->titleBar = bar;
    d->delegate->removeMoveBar(old);
    Util::hideAndDeleteLater(old);
    if (!bar || !guard || d->titleBar != bar)
        return;
    d->layout->insertWidget(0, bar);
    if (guard && d->titleBar == bar)
        d->delegate->addMoveBar(bar);
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
    const QPointer<KestDialog> guard(this);
    d->centralWidget = widget;
    disconnect(d->innerFinished);
    const auto isCurrent = [&guard, this, widget] {
        return guard && widget && d->centralWidget == widget;
    };
    Util::hideAndDeleteLater(old);
    if (!isCurrent())
        return;
    d->layout->addWidget(widget, 1);
    if (isCurrent() && !widget->windowTitle().isEmpty())
        setWindowTitle(widget->windowTitle());
    if (!isCurrent())
        return;
    if (auto *inner = qobject_cast<QDialog *>(widget)) {
        d->innerFinished = connect(inner, &QDialog::finished, this, &KestDialog::done);
        // It hid itself, and shall be there when this dialog is shown the next time. That is not
        // for QDialog to know, which would give it the focus.
        connect(inner, &QDialog::finished, this, [this, inner] {
            if (d->centralWidget == inner)
                inner->QWidget::setVisible(true);
        });
    }
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

bool KestDialog::event(QEvent *event)
{
    // Qt gives the first focus right after these.
    if (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate)
        putBarsLastInTabOrder(this, { d->titleBar });
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) {
        // Qt would paint all of the dialog anew; what a subclass paints is its own.
        const QPointer<KestDialog> guard(this);
        if (typeid(*this) == typeid(KestDialog) && !platformChangesWithHover(d->delegate))
            return true;
        if (!guard)
            return true;
    }
    return QDialog::event(event);
}

bool KestDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != d->centralWidget)
        return QDialog::eventFilter(watched, event);
    const QPointer<QObject> receiver(watched);
    if (event->type() == QEvent::WindowTitleChange) {
        setWindowTitle(d->centralWidget->windowTitle());
    } else if (event->type() == QEvent::Show && !event->spontaneous()
               && focusWidget() == d->titleBar) {
        // The bar has the focus from a click on one of its buttons, or for want of anything else.
        focusNextPrevChild(true);
    }
    // A host may have deleted the dialog by now, which the base class could not be asked about, or
    // the widget, which Qt must not go on with.
    return receiver.isNull(); // clazy:exclude=base-class-event
}

bool KestDialog::focusNextPrevChild(bool next)
{
    putBarsLastInTabOrder(this, { d->titleBar });
    return QDialog::focusNextPrevChild(next);
}

void KestDialog::hideEvent(QHideEvent *event)
{
    // A dialog that was closed by its button vanishes below the pointer: the button would never
    // hear that the pointer left, and keep its hover look for the next show.
    if (d->titleBar) {
        if (auto *button = d->titleBar->findChild<QWidget *>(QStringLiteral("closeBtn"))) {
            const QPointer<KestDialog> guard(this);
            QEvent leave(QEvent::Leave);
            QCoreApplication::sendEvent(button, &leave);
            if (!guard)
                return;
        }
    }
    QDialog::hideEvent(event);
}

bool KestDialog::nativeEvent(const QByteArray &eventType, void *message, KestNativeResult *result)
{
    return platformNativeEvent(d->delegate, eventType, message, result)
        || QDialog::nativeEvent(eventType, message, result);
}
