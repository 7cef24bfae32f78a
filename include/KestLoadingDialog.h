// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTLOADINGDIALOG_H
#define KESTLOADINGDIALOG_H

#include "KestGlobal.h"

#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QMovie;
QT_END_NAMESPACE

class KestLoadingDialogPrivate;

/*!
    \class KestLoadingDialog
    \brief A translucent overlay with an animation that covers a window while something takes long.

    How does a caller wait for a task, with the window still painted and the user unable to touch
    it?

    \code
    KestLoadingDialog overlay(&window);
    overlay.setCancelEnable(true);
    connect(&task, &Task::finished, &overlay, &KestLoadingDialog::done);
    task.start();
    if (overlay.exec() == KestLoadingDialog::Canceled)
        task.abort();
    \endcode

    It is no window of its own, but a child of its parent's window that is stretched over all of it.
    Of KestWindow and KestDialog it leaves their shadow free; any other window it fills, contents
    margins included. Margins that are set on the overlay itself are kept.

    exec() runs a local event loop until done() or cancel() is called, the user presses Escape while
    cancelling is enabled, or the overlay or its window is hidden, closed or deleted. Minimising the
    window hides what is in it, and so cancels too.

    While the overlay is visible it has the keyboard focus, and keys and the Tab key reach nothing
    else; then the focus goes back to the widget that had it. Screen readers are told to wait; an
    accessible name says what for.

    \image html kestloadingdialog.png width=360px
*/
class KEST_EXPORT KestLoadingDialog : public QWidget
{
    Q_OBJECT
    /*! Whether the Escape key cancels; false by default. */
    Q_PROPERTY(bool cancelEnable READ cancelEnable WRITE setCancelEnable)

public:
    /*! How exec() ended. */
    enum Result {
        Canceled = 0, /*!< by cancel() or Escape, or by being hidden, closed or deleted */
        Done = 1 /*!< by done() */
    };
    Q_ENUM(Result)

    /*!
        Constructs a hidden overlay for the window of \a parent.

        The parent must be in its window already: one that is put into another window later takes
        the overlay along, but only as far as itself. It must not be null: an overlay without a
        window covers nothing, and its exec() returns at once.
    */
    explicit KestLoadingDialog(QWidget *parent);
    /*! Destroys the overlay; a running exec() returns Canceled. */
    ~KestLoadingDialog() override;

    /*! Returns whether the Escape key cancels. */
    bool cancelEnable() const;
    /*! Sets whether the Escape key cancels to \a enable. */
    void setCancelEnable(bool enable);

    /*! Returns the animation, or null. */
    QMovie *movie() const;
    /*!
        Shows \a movie in place of the animation so far, which is deleted, whoever owns it: do not
        replace a movie in a slot of its own signals. The one that is shown already is left as it
        is; null shows none.

        A movie without a parent becomes the overlay's and dies with it. One that has a parent keeps
        it, and may be shown by several overlays. The overlay starts the movie when it is shown, and
        stops it when no overlay shows it any more.
    */
    void setMovie(QMovie *movie);

public Q_SLOTS:
    /*! Shows the overlay, waits and returns how it ended. Called while it runs already, it returns
        Canceled at once. */
    KestLoadingDialog::Result exec();
    /*! Has exec() return Done, once control is back in its event loop. Call it from other threads
        by a queued connection. */
    void done();
    /*! Has exec() return Canceled, once control is back in its event loop. Call it from other
        threads by a queued connection. */
    void cancel();

protected:
    /*! Reimplemented: ends exec() also when the overlay is hidden over a hidden window. */
    bool event(QEvent *event) override;
    /*! Reimplemented: covers the window whenever its size changes. Consumes nothing. */
    bool eventFilter(QObject *watched, QEvent *event) override;
    /*! Reimplemented: Tab leads nowhere while the overlay is visible. */
    bool focusNextPrevChild(bool next) override;
    /*! Reimplemented: Escape cancels where that is enabled; every other key is swallowed. */
    void keyPressEvent(QKeyEvent *event) override;
    /*! Reimplemented: covers the window, takes the focus and starts the animation. */
    void showEvent(QShowEvent *event) override;
    /*! Reimplemented: ends exec(), gives the focus back and stops the animation. */
    void hideEvent(QHideEvent *event) override;
    /*! Reimplemented: ends exec(). */
    void closeEvent(QCloseEvent *event) override;

private:
    Q_DISABLE_COPY(KestLoadingDialog)
    KestLoadingDialogPrivate *d;
};

#endif // KESTLOADINGDIALOG_H
