// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTWINDOW_H
#define KESTWINDOW_H

#include "KestGlobal.h"

#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QMenuBar;
class QStatusBar;
QT_END_NAMESPACE

class KestNavigationBar;
class KestTitleBar;
class KestWindowLayouts;
class KestWindowPrivate;

/*!
    \class KestWindow
    \brief A main window without the system's frame, with bars of its own.

    How does an application get a window that looks like all the others of its family, and still
    moves, resizes and maximises as a window should?

    \code
    KestWindow window;
    window.setCentralWidget(new QTextEdit);
    window.setWindowTitle(QStringLiteral("Notes"));
    window.menuBar()->addMenu(QObject::tr("&File"));
    window.navigationBar()->addAction(QObject::tr("New"), KestNavigationBar::Left);
    window.statusBar()->showMessage(QObject::tr("Ready"));
    window.show();
    \endcode

    From top to bottom the window shows the title bar, the navigation bar where one was asked for,
    the central widget and the status bar where one was asked for. It is a plain QWidget: dock
    widgets and tool bars are not for it.

    The window owns what it is given: a bar or central widget that is replaced, or cleared with a
    null pointer, is hidden at once and deleted when control returns to the event loop. The
    getters of the bars never return null, but create a bar where there is none.

    The window is moved by its title bar, or by its navigation bar while the title bar is hidden,
    and by every further widget given to addMoveBar().

    Whenever it is shown the keyboard focus is in the contents: in the tab order the navigation bar
    and the title bar come last. Status tips go to the status bar, where there is one.

    What is different from other windows:

    - setCentralWidget() resizes the window: call resize() after it.
    - The window has a layout of its own; yours goes on a central widget.
    - setWindowFlags() replaces the flags that make the frame. setWindowFlag() changes a single one
      and keeps them.
    - Where the library draws the frame itself, everywhere but on Windows, the size of the window
      includes the margin of its shadow, 8 pixels on each side while it is neither maximised nor
      full screen.
    - A QMainWindow as central widget is no window any more and gets no close event. A subclass of
      KestWindow hands it on:

    \code
    void closeEvent(QCloseEvent *event) override
    {
        QCoreApplication::sendEvent(centralWidget(), event); // which may ignore it
    }
    \endcode

    \image html kestwindow.png width=640px
*/
class KEST_EXPORT KestWindow : public QWidget
{
    Q_OBJECT

public:
    /*!
        Constructs a window with a title bar and an empty central widget, 160 x 160 pixels large.

        It is a top-level window also when it has a \a parent.
    */
    explicit KestWindow(QWidget *parent = nullptr);
    /*! Destroys the window with its bars and its central widget. */
    ~KestWindow() override;

    /*! Returns the title bar; creates and sets a new one where there is none. */
    KestTitleBar *titleBar() const;
    /*!
        Makes \a bar the title bar, which moves the window while it is shown. It may come without
        a parent. The old one is hidden and deleted later. Null leaves the window without a title
        bar, and a navigation bar then moves the window.
    */
    void setTitleBar(KestTitleBar *bar);

    /*! Returns the navigation bar; creates and sets a new one where there is none. */
    KestNavigationBar *navigationBar() const;
    /*! Makes \a bar the navigation bar, below the title bar; null removes it. */
    void setNavigationBar(KestNavigationBar *bar);

    /*! Returns the status bar; creates and sets a new one where there is none. */
    QStatusBar *statusBar() const;
    /*! Makes \a bar the status bar, at the bottom of the window; null removes it. */
    void setStatusBar(QStatusBar *bar);

    /*! Returns the title bar's menu bar, created on the first call, or null without a title bar. */
    QMenuBar *menuBar() const;
    /*! Shows \a bar as the title bar's menu bar; does nothing without a title bar. */
    void setMenuBar(QMenuBar *bar);

    /*! Returns the central widget, or null. */
    QWidget *centralWidget() const;
    /*!
        Makes \a widget the central widget; null removes it.

        The window takes over the widget's window title, also when it changes later, and its
        window icon, and is resized to the widget's size plus the height of the title bar: a size
        for the window has to be set after this. The widget fills its background from now on.
    */
    void setCentralWidget(QWidget *widget);

    /*!
        Puts \a widget where it belongs in a form of Qt Designer, whose code calls this: a menu,
        status or navigation bar becomes the window's own, anything else its central widget.

        Unlike setCentralWidget() this leaves the size, title and icon of the window as they are.
        Forms set these before they make what is in the window. Null is ignored.
    */
    Q_INVOKABLE void addFormWidget(QWidget *widget);

    /*! Lets a drag on \a widget, a child of the window, move the window. Null is ignored. */
    void addMoveBar(QWidget *widget);
    /*! Takes \a widget out of the widgets that move the window. Null is ignored. */
    void removeMoveBar(QWidget *widget);

    /*! Notes in \a on whether the window shall scale itself with its screen. Nothing in this
        version of the library acts on it. */
    void autoDPIScale(bool on);

    /*!
        Rescales the style sheets of all widgets below \a object to \a geoRate, in the same way as
        KestStyleSheet::ChangeObjectSizeAndFontSize(); \a fontRate has no effect. A null \a object
        is ignored.
    */
    void ChangeObjectSizeAndFontSize(QObject *object, double geoRate, double fontRate);

    /*!
        Records the fonts of all widgets below \a object in their dynamic property "originFont",
        and the icon sizes of title and navigation bars, whose children are left out, in
        "originIconSize". A null \a object is ignored.
    */
    void saveObjectSize(QObject *object);

public Q_SLOTS:
    /*! Called 10 milliseconds after the last of a row of resizes; the hook for scaling with the
        screen. Does nothing in this version of the library. */
    void adaptScreenDPI();

protected:
    /*! Reimplemented: the first focus is that of the contents, status tips go to the status bar,
        and a hover that changes nothing is not painted. */
    bool event(QEvent *event) override;
    /*! Reimplemented: follows the title and the size of the central widget, and lets the navigation
        bar move the window while the title bar is hidden. Consumes nothing. */
    bool eventFilter(QObject *watched, QEvent *event) override;
    /*! Reimplemented: Tab leads through the contents first and to the bars last. */
    bool focusNextPrevChild(bool next) override;
    /*! Reimplemented: on Windows, answers what the system asks of a frame. */
    bool nativeEvent(const QByteArray &eventType, void *message, KestNativeResult *result) override;
    /*! Reimplemented: adaptScreenDPI() is called soon after. */
    void resizeEvent(QResizeEvent *event) override;

private:
    Q_DISABLE_COPY(KestWindow)
    KestWindowLayouts *layouts;
    KestWindowPrivate *d;
};

#endif // KESTWINDOW_H
