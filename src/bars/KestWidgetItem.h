// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTWIDGETITEM_H
#define KESTWIDGETITEM_H

#include <QtCore/QObject>

QT_BEGIN_NAMESPACE
class QAction;
class QSize;
class QWidget;
QT_END_NAMESPACE

class KestToolButton;
class KestWidgetItemPrivate;

/*!
    \brief Binds one action to the widget that shows it on a bar, and owns that widget.

    A QWidgetAction is shown by its default widget, which stays its own; a separator by a
    KestSeparator; any other action by a KestToolButton. The widget's object name follows the
    action's, so that style sheets address a bar's buttons by the names of their actions, and but
    for separators its visibility follows the action's too, for as long as there is the item.

    Bars hold items by std::shared_ptr.
*/
class KestWidgetItem : public QObject
{
    Q_OBJECT

public:
    /*!
        Builds the widget for \a action, which must not be null. \a orientation is used for a
        separator and \a iconSize for tool buttons; \a parent is the bar.
    */
    KestWidgetItem(QAction *action, Qt::Orientation orientation, const QSize &iconSize,
                   QWidget *parent);
    /*! Deletes the widget, unless it is an action's own; a button that is inside one of its own
        events is deleted later. */
    ~KestWidgetItem() override;

    /*! Lets go of action and widget: nothing is deleted with the item any more. */
    void release();

    /*! Returns the action, or null after release() or when it was deleted. */
    QAction *action() const;
    /*! Returns the widget, or null after release() or when it was deleted. */
    QWidget *widget() const;
    /*! Returns whether the widget is the default widget of a QWidgetAction. */
    bool isCustomWidget() const;

Q_SIGNALS:
    /*! Relays a bar's icon \a size to the item's tool button; the bar connects its own signal to
        this one. */
    void iconSizeChanged(const QSize &size);

private:
    Q_DISABLE_COPY(KestWidgetItem)
    void bindButton(KestToolButton *button, const QSize &iconSize);
    void settle();

    KestWidgetItemPrivate *d;
};

#endif // KESTWIDGETITEM_H
