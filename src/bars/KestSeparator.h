// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTSEPARATOR_H
#define KESTSEPARATOR_H

#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QStyleOption;
QT_END_NAMESPACE

/*!
    \brief The line that a bar shows for a separator action.

    It is drawn by the style in the name of its parent, so that a style sheet's rules for the
    bar's \c ::separator apply to it.
*/
class KestSeparator : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(Qt::Orientation orientation READ orientation WRITE setOrientation)

public:
    explicit KestSeparator(Qt::Orientation orientation, QWidget *parent = nullptr);

    /*! Returns the orientation of the bar that the separator is on. */
    Qt::Orientation orientation() const;

    /*! Returns a square with the extent that the style gives a tool bar's separator. */
    QSize sizeHint() const override;

public Q_SLOTS:
    void setOrientation(Qt::Orientation orientation);

protected:
    void initStyleOption(QStyleOption *option) const;
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(KestSeparator)
    Qt::Orientation m_orientation;
};

#endif // KESTSEPARATOR_H
