// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTWINFRAMELESSDELEGATE_H
#define KESTWINFRAMELESSDELEGATE_H

#include "KestGlobal.h"

#include <QtCore/QList>
#include <QtCore/QObject>

QT_BEGIN_NAMESPACE
class QPoint;
class QWidget;
QT_END_NAMESPACE
class KestWinFramelessDelegatePrivate;
struct tagMSG;
using MSG = tagMSG;

/*!
    \brief Keeps the frame of a frameless window the system's own, on Windows.

    The window stays one with a caption and a thick frame to the system, which therefore moves,
    resizes, snaps, maximises and minimises it and offers its menu. Only the area that the frame
    would take is given to the contents, and what a point of the contents is to the system is
    answered from the move bars. The delegate is a child of the window, filters its events, and
    is asked about its native messages.
*/
class KestWinFramelessDelegate : public QObject
{
    Q_OBJECT

public:
    /*! Takes the frame of \a parent away, with \a moveBars to move it by. The list is taken as it
       is: null entries stand for nothing, and a bar that is in it twice has to be removed twice.
       The flags of a window without a frame but with system menu, minimise and maximise button are
       added to the window's own. */
    KestWinFramelessDelegate(QWidget *parent, const QList<QWidget *> &moveBars);
    /*! Takes the frame of \a parent away, with the one move bar \a moveBar, which may be null. */
    KestWinFramelessDelegate(QWidget *parent, QWidget *moveBar);
    ~KestWinFramelessDelegate() override;

    /*! Makes the free area of \a widget a caption. Null, or one that is already, is ignored. */
    void addMoveBar(QWidget *widget);
    /*! Takes \a widget out of the move bars. Null, or one that is none, is ignored. */
    void removeMoveBar(QWidget *widget);

    /*! Gives the native window the style that makes the system treat it as framed. */
    void setWindowLong();
    /*! Opens the system menu at \a pos, in Qt's global coordinates, and carries out what is
        chosen. Returns when the menu is closed. */
    void showSystemMenu(const QPoint &pos);

    /*! Answers the hit-test \a msg for the point at the cursor. Returns whether \a result is the
        answer; where the system is to decide, as on the title bar's buttons, it is not. */
    bool onNCTitTest(MSG *msg, KestNativeResult *result);
    /*! Handles the native message \a message, a MSG of the window. Returns whether it is consumed,
        with its answer in \a result. */
    bool nativeEvent(const QByteArray &eventType, void *message, KestNativeResult *result);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(KestWinFramelessDelegate)
    void watch(QWidget *bar);
    void watchNativeWindow();
    bool changeState(QObject *window, QEvent *event);
    void tellFrame();
    void applyWindowState();
    void prepareShow();
    void savePlacement();
    void restorePlacement();
    void placeMaximized(MSG *msg);
    void renewWorkRect(MSG *msg);
    bool calculateClientArea(MSG *msg, KestNativeResult *result);
    void announceFocus();
    bool isFixedSize() const;

    KestWinFramelessDelegatePrivate *d;
};

#endif // KESTWINFRAMELESSDELEGATE_H
