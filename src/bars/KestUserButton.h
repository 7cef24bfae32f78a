// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTUSERBUTTON_H
#define KESTUSERBUTTON_H

#include "KestToolButton.h"

QT_BEGIN_NAMESPACE
class QStyleOptionToolButton;
QT_END_NAMESPACE

/*! \brief The navigation bar's user entry: icon and text side by side, on the panel of a tool
    button. */
class KestUserButton : public KestToolButton
{
    Q_OBJECT

public:
    explicit KestUserButton(QWidget *parent = nullptr);

    /*! Returns the width of icon, gap, text and what the style puts around them; the height is
        invalid, since the bar's decides. */
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

    /*! Returns the rectangle that the icon is centred in. */
    QRect doIconRect(const QStyleOptionToolButton &option) const;
    /*! Returns the rectangle that the text is centred in. */
    QRect doTextRect(const QStyleOptionToolButton &option) const;

private:
    Q_DISABLE_COPY(KestUserButton)
    QRect contents(const QStyleOptionToolButton &option) const;
    QRect line(const QStyleOptionToolButton &option) const;
    int iconWidth() const;
};

#endif // KESTUSERBUTTON_H
