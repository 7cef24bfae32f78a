// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTTITLEBAR_H
#define KESTTITLEBAR_H

#include "KestGlobal.h"

#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QMenuBar;
class Ui_KestTitleBar;
QT_END_NAMESPACE

class KestTitleBarPrivate;

/*!
    \class KestTitleBar
    \brief The bar on top of a frameless window, in place of the system's caption.

    From left to right it shows the window's icon, an optional menu bar, the window's title, a
    button for each of its actions, and the minimise, maximise and close buttons. KestWindow and
    KestDialog come with one; how does a host put something of its own on it?

    \code
    auto *search = new QAction(QIcon(QStringLiteral(":/search.png")), tr("Search"), &window);
    window.titleBar()->addAction(search);
    window.menuBar()->addMenu(tr("&File"));
    \endcode

    The bar watches its parent, which is usually the window, for its title, icon, state and size,
    and acts on window(). A bar that is put into another widget watches that one from then on. The
    title is painted as Qt hands it to the window system: with the mark of a modified window in
    place of "[*]", and the name of the file where the window has only a file path.

    An action is on the bar for as long as it does not change: set its text, icon and state before
    it is added. An action that changes later leaves the bar. With the entry goes its button; the
    default widget of a QWidgetAction belongs to its action, and stays visible where it was until
    the host hides or moves it.

    Right to left, everything is mirrored as a whole: what is said here of the left holds for the
    right then.

    The three buttons have no icons of their own: style sheets give them their glyphs by the object
    names \c minimumSizeBtn, \c maximumSizeBtn and \c closeBtn, and by the property
    \c maximumsized of the maximise button, which is true while the parent is maximised.

    \image html kesttitlebar.png width=622px
*/
class KEST_EXPORT KestTitleBar : public QWidget
{
    Q_OBJECT
    /*! Whether the bar follows and paints the window's icon; true by default. */
    Q_PROPERTY(bool iconIsVisible READ iconIsVisible WRITE setIconVisible)
    /*! The largest size of the window's icon, in pixels; 32 x 32 by default. */
    Q_PROPERTY(QSize iconSize READ iconSize WRITE setIconSize)
    /*! Where the icon stands: the width is its left offset, the height the least room above and
        below it; 8 x 4 pixels by default. */
    Q_PROPERTY(QSize iconPos READ getIconPos WRITE setIconPos)
    /*! The icon size of the actions' buttons, in pixels; 32 x 32 by default. */
    Q_PROPERTY(QSize actionIconSize READ getActionIconSize WRITE setActionIconSize NOTIFY
                   actionIconSizeChanged)

public:
    /*!
        Constructs a title bar in and for \a parent.

        Without a parent there is nothing to follow: the bar has neither icon nor title, and its
        buttons act on the bar itself, until it is put into a widget, as setTitleBar() of the
        windows does. Of a parent that is not a window it shows that widget's own title, icon and
        state, while its buttons act on the window around it.
    */
    explicit KestTitleBar(QWidget *parent = nullptr);
    /*! Destroys the bar with its buttons and its menu bar. */
    ~KestTitleBar() override;

    /*!
        Shows \a menuBar right of the icon; the title bar owns it from now on. The menu bar that
        was there before is deleted later; null leaves the title bar without one.
    */
    void setMenuBar(QMenuBar *menuBar);
    /*! Returns the menu bar; creates and sets an empty one where there is none. */
    QMenuBar *menuBar() const;

    /*! Returns whether the bar follows and paints the window's icon; true by default. */
    bool iconIsVisible() const;
    /*! Sets whether the bar follows and paints the window's icon to \a visible, and makes or takes
        back the room for it. */
    void setIconVisible(bool visible);

    /*! Returns the largest size of the window's icon, in pixels; 32 x 32 by default. */
    QSize iconSize() const;
    /*! Stores the largest \a size of the window's icon, in pixels. Only the height counts, and
        only from the next change of the icon on. */
    void setIconSize(const QSize &size);

    /*!
        Shows \a pixmap in place of the window's icon, whose changes are no longer followed:
        iconIsVisible() is false from now on, since the pixmap is not the window's icon.
    */
    void setIconPixmap(const QPixmap &pixmap);

    /*! Returns where the icon stands, in pixels: the width is its left offset, the height the
        least room above and below it; 8 x 4 by default. */
    QSize getIconPos() const;
    /*! Stores where the icon stands; the icon moves there with the next repaint, and the room for
        it with the next change of the icon. */
    void setIconPos(QSize pos);

    /*! Returns the left offset of the icon, in pixels. */
    int getLeftMargin() const;

    /*! Returns the icon size of the actions' buttons, in pixels; 32 x 32 by default. */
    QSize getActionIconSize() const;
    /*! Sets the icon size of the actions' buttons to \a size, in pixels. */
    void setActionIconSize(const QSize &size);

    /*! Takes the icon from the parent's window icon anew. Does nothing while the icon is not
        visible; an icon without sizes leaves the earlier one. */
    void updateWindowIcon();

public Q_SLOTS:
    /*! Closes the window. */
    void onCloseBtn();
    /*! Restores a maximised or full-screen window and maximises any other. */
    void onMaximumSizeBtn();
    /*! Minimises the window. */
    void onMinimumSizeBtn();

Q_SIGNALS:
    /*! For subclasses that change the icon size on their own: the bar itself never emits it. */
    void iconSizeChanged(const QSize &size);
    /*! The actions' buttons have now icons of the given \a size. */
    void actionIconSizeChanged(const QSize &size);

protected:
    /*! Reimplemented: follows its parent, the language, its layout direction and the property
        "geoRate". */
    bool event(QEvent *event) override;
    /*! Reimplemented: hides the buttons that the window's flags do not ask for. */
    void showEvent(QShowEvent *event) override;
    /*! Reimplemented: draws the ground, the icon and the title. */
    void paintEvent(QPaintEvent *event) override;
    /*! Reimplemented: gives an action that is added its button; one that changes leaves the bar as
        one that is removed does. */
    void actionEvent(QActionEvent *event) override;
    /*! Reimplemented: follows the icon, the title, the state and the size of the parent. Consumes
        nothing. */
    bool eventFilter(QObject *watched, QEvent *event) override;

    /*!
        Returns where the icon is painted. It is scaled by the rate that the dynamic property
        "geoRate" holds, and fitted into the height of the bar. A rate that is not finite counts as
        1.
    */
    QRect doIconRect() const;

private:
    Q_DISABLE_COPY(KestTitleBar)
    friend class KestWinFramelessDelegate; // the icon is the system menu's handle

    Ui_KestTitleBar *ui;
    KestTitleBarPrivate *d;
};

#endif // KESTTITLEBAR_H
