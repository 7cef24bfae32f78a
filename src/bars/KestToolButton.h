// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTTOOLBUTTON_H
#define KESTTOOLBUTTON_H

#include <QtWidgets/QToolButton>

class KestToolButtonPrivate;

/*!
    \brief The tool button that a bar shows for an ordinary action.

    Beyond QToolButton it can paint its icon in the selected mode, can keep its tool tips to
    itself, and applies style rules that select on the checked state again after every toggle.
*/
class KestToolButton : public QToolButton
{
    Q_OBJECT
    Q_PROPERTY(QIcon icon READ icon WRITE setIcon)
    Q_PROPERTY(bool showToolTips READ showToolTips WRITE setShowToolTips)

public:
    explicit KestToolButton(QWidget *parent = nullptr);
    ~KestToolButton() override;

    /*! Sets \a icon on the default action, from where it comes back to the button, or on the
        button itself where it has none. */
    void setIcon(const QIcon &icon);

    /*! Returns whether tool tips appear; true by default. */
    bool showToolTips() const;
    void setShowToolTips(bool show);

    /*! Stores whether the icon is painted in QIcon::Selected mode, from the next repaint on. */
    void setSelected(bool selected);

    /*! Deletes the button at once; inside one of its own events it is hidden instead, and deleted
        when the outermost of them has been handled. */
    void dismiss();

protected:
    bool event(QEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(KestToolButton)
    void polishAnew();

    KestToolButtonPrivate *d;
};

#endif // KESTTOOLBUTTON_H
