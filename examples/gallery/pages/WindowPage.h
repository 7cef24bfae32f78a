// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef WINDOWPAGE_H
#define WINDOWPAGE_H

#include <QtWidgets/QWidget>

class KestWindow;
class QCheckBox;
class QFormLayout;

/*! Live controls for the window that the page is shown in: its bars, title, icon and size. */
class WindowPage : public QWidget
{
    Q_OBJECT

public:
    explicit WindowPage(QWidget *parent = nullptr);

private:
    KestWindow *shell() const;
    QCheckBox *addSwitch(QFormLayout *layout, const QString &text, bool on);
    void addTitleBarAction();
};

#endif // WINDOWPAGE_H
