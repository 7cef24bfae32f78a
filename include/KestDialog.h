// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTDIALOG_H
#define KESTDIALOG_H

#include "KestGlobal.h"

#include <QtWidgets/QDialog>

class KestDialogPrivate;
class KestTitleBar;

/*!
    \class KestDialog
    \brief A dialog without the system's frame: a title bar over one widget.

    How does a form get the same window as the rest of the application? Any widget will do, and so
    will a finished QDialog, whose result the frame passes on:

    \code
    KestDialog frame(window);
    frame.setCentralWidget(new QColorDialog);
    if (frame.exec() == QDialog::Accepted)
        apply();
    \endcode

    The dialog owns what it is given: a title bar or central widget that is replaced, or cleared
    with a null pointer, is hidden at once and deleted when control returns to the event loop.

    Whenever it is shown the keyboard focus is in the contents: in the tab order the title bar comes
    last.

    What is different from other dialogs:

    - The dialog has a layout of its own; yours goes on a central widget.
    - setWindowFlags() replaces the flags that make the frame. setWindowFlag() changes a single one
      and keeps them.
    - Where the library draws the frame itself, everywhere but on Windows, the size of the dialog
      includes the margin of its shadow, 8 pixels on each side while it is neither maximised nor
      full screen.
    - setCentralWidget() does not resize a dialog that was given a size, or is shown.

    \image html kestdialog.png width=360px
*/
class KEST_EXPORT KestDialog : public QDialog
{
    Q_OBJECT

public:
    /*! Constructs a dialog with a title bar and an empty central widget. It is a top-level window
        also when it has a \a parent. */
    explicit KestDialog(QWidget *parent = nullptr);
    /*! Destroys the dialog with its title bar and its central widget. */
    ~KestDialog() override;

    /*! Returns the title bar; creates and sets a new one where there is none. */
    KestTitleBar *titleBar() const;
    /*! Makes \a bar, which may come without a parent, the title bar, which moves the dialog; null
        leaves it without one. */
    void setTitleBar(KestTitleBar *bar);

    /*! Returns the central widget, or null. */
    QWidget *centralWidget() const;
    /*!
        Makes \a widget the central widget, below the title bar; null removes it.

        The dialog takes over the widget's window title unless it is empty, and its later changes.
        When the widget is a QDialog, finishing it finishes this dialog with the same result, and
        it is there again when this dialog is shown the next time. The size of the dialog is left
        to its layout. Forms of Qt Designer call it, by its name too.
    */
    Q_INVOKABLE void setCentralWidget(QWidget *widget);

    /*! Lets a drag on \a widget, a child of the dialog, move the dialog. Null is ignored. */
    void addMoveBar(QWidget *widget);
    /*! Takes \a widget out of the widgets that move the dialog. Null is ignored. */
    void removeMoveBar(QWidget *widget);

protected:
    /*! Reimplemented: the first focus is that of the contents, and a hover that changes nothing is
        not painted. */
    bool event(QEvent *event) override;
    /*! Reimplemented: follows the title of the central widget. Consumes nothing. */
    bool eventFilter(QObject *watched, QEvent *event) override;
    /*! Reimplemented: Tab leads through the contents first and to the title bar last. */
    bool focusNextPrevChild(bool next) override;
    /*! Reimplemented: the close button does not look hovered when the dialog is shown again. */
    void hideEvent(QHideEvent *event) override;
    /*! Reimplemented: on Windows, answers what the system asks of a frame. */
    bool nativeEvent(const QByteArray &eventType, void *message, KestNativeResult *result) override;

private:
    Q_DISABLE_COPY(KestDialog)
    KestDialogPrivate *d;
};

#endif // KESTDIALOG_H
