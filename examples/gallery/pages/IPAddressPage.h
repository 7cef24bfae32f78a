// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef IPADDRESSPAGE_H
#define IPADDRESSPAGE_H

#include <QtWidgets/QWidget>

/*! KestIPAddressEdit: in each state, with what it announces, and with texts to paste into it. */
class IPAddressPage : public QWidget
{
    Q_OBJECT

public:
    explicit IPAddressPage(QWidget *parent = nullptr);
};

#endif // IPADDRESSPAGE_H
