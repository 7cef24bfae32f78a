// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Specimen.h"

QVector<Specimen> Specimen::all()
{
    return Specimens::buttons() + Specimens::inputs() + Specimens::ranges() + Specimens::views()
        + Specimens::containers() + Specimens::menus() + Specimens::bars() + Specimens::dialogs();
}
