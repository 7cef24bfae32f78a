// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef STANDARDWIDGETSPAGE_H
#define STANDARDWIDGETSPAGE_H

#include <QtWidgets/QWidget>

/*! Qt's own widgets under the library's style sheets, enabled and disabled. */
class StandardWidgetsPage : public QWidget
{
    Q_OBJECT

public:
    explicit StandardWidgetsPage(QWidget *parent = nullptr);
};

#endif // STANDARDWIDGETSPAGE_H
