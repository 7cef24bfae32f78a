// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Ground.h"

#include <QtCore/QVariant>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QGroupBox>

namespace {

// One sheet for both grounds: a scaled window goes back to the sheet that a widget had at first.
QString groundSheet()
{
    return QStringLiteral(
        "QGroupBox { background: white; color: #24292F }"
        "QGroupBox::title { background: transparent; color: #24292F }"
        "QLabel { color: #24292F }"
        "QGroupBox[dark=\"true\"] { background: #22272E }"
        "QGroupBox[dark=\"true\"]::title { background: #22272E; color: #F0F3F6 }"
        "QGroupBox[dark=\"true\"] QLabel,"
        "QGroupBox[dark=\"true\"] KestStageProgressBar { color: #F0F3F6 }"
        "QGroupBox[dark=\"true\"] KestStageProgressBar:disabled { color: #909AA6 }");
}

} // namespace

QCheckBox *createGroundSwitch(const QList<QGroupBox *> &boxes)
{
    for (QGroupBox *box : boxes)
        box->setStyleSheet(groundSheet());
    auto *dark = new QCheckBox;
    dark->setObjectName(QStringLiteral("darkGround"));
    for (QGroupBox *box : boxes) {
        QObject::connect(dark, &QCheckBox::toggled, box, [box](bool on) {
            box->setProperty("dark", on);
            box->setStyleSheet(box->styleSheet()); // asks for the rules of the property anew
        });
    }
    return dark;
}
