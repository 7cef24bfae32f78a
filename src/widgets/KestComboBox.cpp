// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestComboBox.h"

#include <QtWidgets/QListView>

KestComboBox::KestComboBox(QWidget *parent) : QComboBox(parent)
{
    setView(new QListView(this));
}

KestComboBox::~KestComboBox() = default;

void KestComboBox::showPopup()
{
    Q_EMIT aboutToShowPopup();
    QComboBox::showPopup();
}
