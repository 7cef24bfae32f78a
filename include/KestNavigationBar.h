// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTNAVIGATIONBAR_H
#define KESTNAVIGATIONBAR_H

#include "KestGlobal.h"

#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QIcon;
class QUrl;
QT_END_NAMESPACE

class KestNavigationBarPrivate;

/*!
    \class KestNavigationBar
    \brief A bar of actions in three groups: left, centre and right.

    Where do an application's main entries go, with its logo in front and help and user at the end?

    \code
    KestNavigationBar *bar = window.navigationBar();
    bar->addLogo(QIcon(QStringLiteral(":/logo.png")), KestNavigationBar::Left);
    bar->addAction(tr("Reports"), KestNavigationBar::Center);
    bar->addHelp(QUrl(QStringLiteral("https://example.org/help")), helpIcon,
                 KestNavigationBar::Right)->setObjectName(QStringLiteral("help"));
    \endcode

    Each group keeps its own order and counts its own indexes from 0, the leftmost. An index that
    is out of range appends. A position that is none of the three groups counts no entries, and an
    action that is added there gets no place on the bar.

    The group is kept in the action's dynamic property "Kest_ActionPosition", which must be left
    alone while the action is on the bar; an action without it, such as one added by
    QWidget::addAction(), goes to the left group. A button's object name is its action's: give the
    help entry the name \c help to have it themed by the library's style sheets.

    An action that is on the bar already is moved by adding it again. With a removed entry goes its
    button; the default widget of a QWidgetAction, that of a logo or user entry included, belongs to
    its action, and is left hidden and without a parent.

    The bar is 50 pixels high.

    \image html kestnavigationbar.png width=640px
*/
class KEST_EXPORT KestNavigationBar : public QWidget
{
    Q_OBJECT
    /*! The icon size of all buttons, in pixels; 16 x 16 by default. */
    Q_PROPERTY(QSize iconSize READ iconSize WRITE setIconSize NOTIFY iconSizeChanged)

public:
    /*! A group of entries. Any other int is a position too, one without a group. */
    enum ActionPosition : int {
        Left = 0, /*!< at the left edge */
        Center = 1, /*!< between two equal stretches */
        Right = 2 /*!< at the right edge */
    };
    Q_ENUM(ActionPosition)

    /*! Constructs an empty bar. */
    explicit KestNavigationBar(QWidget *parent = nullptr);
    /*! Destroys the bar with its buttons and the actions that it owns. */
    ~KestNavigationBar() override;

    using QWidget::addAction;
    using QWidget::insertAction;

    /*! Appends \a action to the group at \a position. A null action is ignored. */
    void addAction(QAction *action, ActionPosition position);
    /*! Appends a new action with \a icon and \a text, which the bar owns, and returns it. */
    QAction *addAction(const QIcon &icon, const QString &text, ActionPosition position);
    /*! Appends a new action with \a text, which the bar owns, and returns it. */
    QAction *addAction(const QString &text, ActionPosition position);

    /*! Inserts \a action in front of entry \a index of the group at \a position. A null action is
        ignored. */
    void insertAction(int index, QAction *action, ActionPosition position);
    /*! Inserts a new action with \a icon and \a text and returns it. The caller owns it. */
    QAction *insertAction(int index, const QIcon &icon, const QString &text,
                          ActionPosition position);
    /*! Inserts a new action with \a text and returns it. The caller owns it. */
    QAction *insertAction(int index, const QString &text, ActionPosition position);

    /*! Appends a separator and returns its action. The caller owns it. */
    QAction *addSeparator(ActionPosition position);
    /*! Inserts a separator in front of entry \a index and returns its action. The caller owns
        it. */
    QAction *insertSeparator(int index, ActionPosition position);

    /*! Appends a button that opens \a url in the desktop's browser, and returns its action, which
        the bar owns. Screen readers call it "Help" until the action has a text. */
    QAction *addHelp(const QUrl &url, const QIcon &icon, ActionPosition position);
    /*! Inserts a help entry in front of entry \a index. \sa addHelp() */
    QAction *insertHelp(int index, const QUrl &url, const QIcon &icon, ActionPosition position);

    /*! Appends an image as high as the bar allows for and returns its action, a QWidgetAction that
        the bar owns. */
    QAction *addLogo(const QIcon &icon, ActionPosition position);
    /*! Inserts a logo in front of entry \a index. \sa addLogo() */
    QAction *insertLogo(int index, const QIcon &icon, ActionPosition position);

    /*! Appends a button with \a icon and \a text side by side and returns its action, a
        QWidgetAction that the bar owns. */
    QAction *addUser(const QIcon &icon, const QString &text, ActionPosition position);
    /*! Inserts a user entry in front of entry \a index. \sa addUser() */
    QAction *insertUser(int index, const QIcon &icon, const QString &text, ActionPosition position);

    /*! Returns the number of entries in the group at \a position. */
    int count(ActionPosition position) const;
    /*! Returns the action of entry \a index of the group at \a position, or null. */
    QAction *actionAt(int index, ActionPosition position) const;
    /*! Returns the index of \a action within its group, or -1 when it is on none, as null is. */
    int indexOf(QAction *action) const;
    /*! Returns the geometry of the widget that shows \a action, in the bar's coordinates, or a null
        rectangle when there is none. */
    QRect actionRect(QAction *action);

    /*! Returns the icon size of all buttons, in pixels; 16 x 16 by default. */
    QSize iconSize() const;
    /*! Sets the icon size of all buttons to \a size, in pixels, and emits iconSizeChanged() also
        when it is the same. */
    void setIconSize(const QSize &size);

Q_SIGNALS:
    /*! The buttons have now icons of the given \a size. */
    void iconSizeChanged(const QSize &size);

protected:
    /*! Reimplemented: what is added or removed in one go is laid out once, and what screen readers
        are told follows the language. */
    bool event(QEvent *event) override;
    /*! Reimplemented: gives an action that is added its entry, and takes that of a removed one
     * away.
     */
    void actionEvent(QActionEvent *event) override;

private:
    Q_DISABLE_COPY(KestNavigationBar)
    KestNavigationBarPrivate *d;
};

#endif // KESTNAVIGATIONBAR_H
