// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTFRAMELESSDELEGATE_H
#define KESTFRAMELESSDELEGATE_H

#include <QtCore/QFlags>
#include <QtCore/QList>
#include <QtCore/QObject>

QT_BEGIN_NAMESPACE
class QCursor;
class QImage;
class QMouseEvent;
class QPaintDevice;
class QPaintEvent;
class QPainter;
class QPlatformSurfaceEvent;
class QPoint;
class QRect;
class QRegion;
class QResizeEvent;
class QStyleOption;
class QWidget;
QT_END_NAMESPACE

class KestFramelessDelegatePrivate;

/*! An edge of a window; a corner is the union of two. */
enum Direction { Top = 0x1, Bottom = 0x2, Left = 0x4, Right = 0x8 };
Q_DECLARE_FLAGS(Directions, Direction)
Q_DECLARE_OPERATORS_FOR_FLAGS(Directions)

/*! Returns the cursor for resizing at the edges \a directions; the arrow for none. */
QCursor cursorShape(QFlags<Direction> directions);

/*! Sends a Leave event to each widget below \a widget that believes to be under the mouse, and
    repaints it: what was under the pointer while another widget held the mouse never heard that the
    pointer left. */
void releaseHover(QWidget *widget);

/*!
    \brief Gives a frameless window by Qt's events alone what the system's frame would give it.

    A soft shadow in a transparent margin, resizing at all edges and corners, moving by dragging a
    move bar, maximising by a double click on one or by dragging the window against the top of the
    screen, and restoring by dragging it down again. The delegate is a child of the window and
    filters the events of the window and of its move bars; it consumes none of them.
*/
class KestFramelessDelegate : public QObject
{
    Q_OBJECT

public:
    /*! Makes \a parent frameless, with \a moveBars to move it by; null entries are skipped, and one
        that is in there twice has to be removed twice. All earlier window flags, the window's type
        included, are replaced. */
    KestFramelessDelegate(QWidget *parent, const QList<QWidget *> &moveBars);
    /*! Makes \a parent frameless, with the one move bar \a moveBar, which may be null. */
    KestFramelessDelegate(QWidget *parent, QWidget *moveBar);
    ~KestFramelessDelegate() override;

    /*! Lets a drag on \a widget move the window. Null, or one that does already, is ignored. */
    void addMoveBar(QWidget *widget);
    /*! Takes \a widget out of the move bars, once, and ends a drag on it. Null is ignored. Its
       events are not watched any more in any case: taking out the window itself gives up its frame.
     */
    void removeMoveBar(QWidget *widget);

    /*! Returns whether the shadow is switched off; false by default. */
    bool shadowless() const;
    /*! Returns whether the style draws the window otherwise while the pointer is over it. */
    bool changesWithHover();
    /*! Switches the shadow and its 8 pixels of margin off or on. Without it the window is resized
        by a band of 5 pixels over its own contents. */
    void setShadowless(bool shadowless);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void mousePressEvent(QMouseEvent *event);
    void mouseDoubleClickEvent(QMouseEvent *event);
    void mouseMoveEvent(QMouseEvent *event);
    void mouseReleaseEvent(QMouseEvent *event);
    void resizeEvent(QResizeEvent *event);
    void paintEvent(QPaintEvent *event);
    void styleChangeEvent(QEvent *event);
    void platformSurfaceEvent(QPlatformSurfaceEvent *event);

private:
    Q_DISABLE_COPY(KestFramelessDelegate)
    void region(const QPoint &globalPos, const QPoint &windowPos);
    void adaptMarginsUnlaid();
    void updateLayout();

    void windowEvent(QEvent *event);
    void moveBarEvent(QWidget *bar, QEvent *event);
    void dragWindow(QWidget *bar);
    void maximizeFromTop();
    void resizeWindow();
    void endDrag();
    void endMove();
    void leaveEdges();
    void watchMoveBar(QWidget *bar);
    void paintByImages(QPainter &painter, const QRegion &shown);
    QImage frameImage(const QRect &part, qreal ratio);
    void drawStyled(QPaintDevice *device, const QStyleOption &option, const QPoint &origin);

    KestFramelessDelegatePrivate *d;
};

#endif // KESTFRAMELESSDELEGATE_H
